// brindle: the engine on the terminal.
#include <array>

#include "apps/brindle/commands.h"
#include "apps/version_text.h"
#include "journal/journal_writer.h"
#include "platform/program_frame.h"
#include "simulation/report.h"

namespace brindlemoor {

namespace {

constexpr std::array<ToolCommand, 12> kCommands = {{
    {"new", "new FOLDER [--name NAME]",
     "Makes a folder with a small game that plays at once, for its author to go on from.", RunNew},
    {"check", "check FOLDER|FILE... [--json] [--codes]",
     "Says what is wrong in card files, and where. --codes lists the kinds of findings.", RunCheck},
    {"watch", "watch FOLDER [--once]",
     "Checks a game, carries out the tests in its folder \"tests\" and plays some matches, again "
     "whenever a file changes.",
     RunWatch},
    {"scenario",
     "scenario FILE|FOLDER... [--trace] [--accept] [--words] | --from JOURNAL --turn N [FOLDER] "
     "[--out FILE]",
     "Carries out tests of cards. --trace tells which actions did nothing, and why. --accept "
     "writes "
     "into the files what was there in place of what they expected. --words lists what they are "
     "written with. --from makes a test of a turn of a journal.",
     RunScenario},
    {"sim",
     "sim [FOLDER] [--game NAME] [--matches N] [--seed N] [--turns N] [--decks] [--mind LEVEL] "
     "[--player-mind LEVEL] [--jobs J] "
     "[--csv[=FILE]] [--json[=FILE]] [--html[=FILE]] [--shard I/N [--out FILE]] [--journal FILE]",
     "Plays many matches of every deck against every opponent and says who wins and which cards. "
     "--mind and --player-mind say how opponents and decks are played: plain, thoughtful or deep.",
     RunSim},
    {"merge", "merge FILE... [--csv[=FILE]] [--json[=FILE]] [--html[=FILE]]",
     "Adds up the shards of a simulation and reports on all of it.", RunMerge},
    {"auto",
     "auto [FOLDER] [--game NAME] [--seed N] [--pages DIR] [--turns N] [--opponent K] "
     "[--mind LEVEL] [--player-mind LEVEL] [--save FILE] [--continue FILE [--despite-changes]] "
     "[--trace] [--journal FILE]",
     "Plays a match by itself and keeps its report pages. Without a name it is the folder's first "
     "game. --save keeps the match behind turn N, --continue goes on with one that was kept. "
     "--trace tells which actions did nothing, and why. --mind and --player-mind say how the "
     "opponent and the other side think: plain, thoughtful or deep.",
     RunAuto},
    {"replay", "replay JOURNAL [FOLDER] [--pages DIR]",
     "Plays again what a program noted with --journal and says where its pages differ.", RunReplay},
    {"pack", "pack FOLDER [--game NAME] [--out FILE]",
     "Puts a game with all files that it uses into one archive, for others to open.", RunPack},
    {"unpack", "unpack ARCHIVE [FOLDER] [--list] [--replace|--keep]",
     "Puts the game of an archive into a folder. --list only says what is in it. Files of the "
     "folder "
     "that differ stop it, unless --replace or --keep says what becomes of them.",
     RunUnpack},
    {"reference", "reference [FILE]",
     "Writes the reference for authors, a page of every word of card files and scripts. Without a "
     "FILE it is ScriptReference.html.",
     RunReference},
    {"serve", "serve",
     "Helps editors with card files: the Language Server Protocol on the standard input and "
     "output.",
     RunServe},
}};

void PrintHelp() {
  std::cout << "brindle plays and checks card games on the terminal.\n\n";
  for (const ToolCommand& command : kCommands) {
    std::cout << "  brindle " << command.Usage << "\n      " << command.Summary << '\n';
  }
  std::cout << "  brindle --help\n      Shows this.\n";
  std::cout << "  brindle --version\n      Shows the version.\n";
}

int Run(Arguments arguments) {
  if (arguments.empty()) {
    PrintHelp();
    return kWrongUsage;
  }
  if (arguments[0] == "--help" || arguments[0] == "help") {
    PrintHelp();
    return kSuccess;
  }
  if (arguments[0] == "--version") {
    std::cout << VersionText("brindle");
    return kSuccess;
  }
  for (const ToolCommand& command : kCommands) {
    if (command.Name == arguments[0]) return command.Run(arguments.subspan(1));
  }
  return WrongUsage("unknown command ", arguments[0]);
}

}  // namespace

int WrongUsage(std::string_view problem, std::string_view text) {
  std::cerr << "brindle: " << problem << text << "\nTry: brindle --help\n";
  return kWrongUsage;
}

int Refuse(std::string_view problem, int code) {
  std::cerr << "brindle: " << TerminalText(std::string(problem)) << '\n';
  return code;
}

std::string OpenJournal(const std::string& path, JournalWriter& journal) {
  journal.OnFailure = [](const std::string& problem) { Refuse(problem, kFailure); };
  return journal.Open(path);
}

}  // namespace brindlemoor

int main(int count, char** words) {
  using namespace brindlemoor;  // NOLINT: the program itself
  OpenStandardStreams();
  LetWritesFail();
  const int code = RunProgram(
      "brindle",
      [&] {
        return Run(std::vector<std::string_view>(words + (count > 0 ? 1 : 0), words + count));
      },
      kFailure);
  // A full disk shows when the last of the output is written.
  if (!std::cout.flush()) {
    std::cerr << "brindle: the output could not be written\n";
    return kWrongUsage;
  }
  return code;
}

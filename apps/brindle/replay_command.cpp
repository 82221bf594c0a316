// brindle replay: what a journal notes, played again.
#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>

#include "apps/brindle/commands.h"
#include "apps/brindle/journal_file.h"
#include "archive/zip_library.h"
#include "core/program_version.h"
#include "journal/journal.h"
#include "journal/match_journal.h"
#include "journal/session_journal.h"
#include "platform/files.h"
#include "simulation/report.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

struct CommandOptions {
  std::string PagesFolder;  ///< "" keeps none
};
constexpr std::array<Option<CommandOptions>, 1> kOptions = {{
    {"--pages",
     [](CommandOptions& o, std::string_view v) {
       o.PagesFolder = v;
       return !v.empty();
     }},
}};

/// A kind of journal and how it is played again.
struct KindRow {
  std::string_view Kind;
  std::string_view What;
  std::string_view Done;   ///< what the replay counts
  std::string_view Equal;  ///< what it compares
  ReplayResult (*Replay)(const Journal& journal, const ReplayOptions& options);
};
constexpr std::array<KindRow, 3> kKinds = {{
    {kSessionJournal, "a session", "events", "pages and files", ReplaySession},
    {kMatchJournal, "a match of the computer", "matches", "pages", ReplayMatch},
    {kSimulationJournal, "a simulation", "matches", "matches", ReplaySimulation},
}};

const KindRow* FindKind(std::string_view kind) {
  for (const KindRow& row : kKinds) {
    if (row.Kind == kind) return &row;
  }
  return nullptr;
}

/// Line by line, so that a journal can't write over the terminal.
void Print(std::string_view text) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::cout << TerminalText(std::string(text.substr(0, end))) << '\n';
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

void PrintFiles(const std::vector<std::string>& differences) {
  if (differences.empty()) return;
  Print("The files are not those of the journal; what follows may come from that:");
  for (const std::string& line : differences) Print(Joined("  ", line));
}

/// Writes the pages of a replay into a folder, numbered as they come.
class PageKeeper {
 public:
  explicit PageKeeper(std::string folder) : folder_(std::move(folder)) {}

  void Keep(std::string name, std::string_view bytes) {
    if (!name.ends_with(".html") || !Problem.empty()) return;
    std::ranges::replace(name, '/', '-');
    std::array<char, 16> number{};
    std::snprintf(number.data(), number.size(), "/%05d-", ++count_);
    Problem = LocalFileSystem().Write(Joined(folder_, number.data(), name), bytes);
  }

  std::string Problem;

 private:
  const std::string folder_;
  int count_ = 0;
};

int PrintResult(const ReplayResult& result, const KindRow& kind) {
  const std::string so =
      Joined(result.Events, " ", kind.Done, ", ", result.Texts, " equal ", kind.Equal);
  if (!result.Problem.empty()) return Refuse(result.Problem, kWrongUsage);
  if (!result.Difference.empty()) {
    Print(Joined("Differs after ", so, ":\n", result.Difference));
    return kFailure;
  }
  if (result.CutOff) {
    Print("The journal has no end: the program crashed, was ended or still runs.");
  }
  Print(Joined("Equal: ", so, "."));
  return kSuccess;
}

/// "" or why a journal can't be played.
std::string ReadFile(const std::string& path, Journal& journal) {
  std::string problem = ReadJournalFile(path, journal);
  if (!problem.empty()) return problem;
  return FindKind(journal.Kind) != nullptr ? ""
                                           : Joined("can't use ", path, ": its head is damaged");
}

/// "" or why the pages can't be kept there.
std::string PreparePages(const std::string& pages, const std::string& folder) {
  if (pages == folder) return Joined("the pages can't go to ", pages);
  std::error_code failure;
  std::filesystem::create_directories(pages, failure);
  return failure ? Joined("can't make ", pages, ": ", failure.message()) : std::string();
}

}  // namespace

int RunReplay(Arguments arguments) {
  CommandOptions options;
  std::vector<std::string> operands;
  const int wrong = ReadOptions<CommandOptions>(arguments, kOptions, options, operands);
  if (wrong != kSuccess) return wrong;
  if (operands.empty()) return WrongUsage("a journal is missing behind ", "replay");
  if (operands.size() > 2) return WrongUsage("one folder only: ", operands[2]);

  Journal journal;
  std::string problem = ReadFile(operands[0], journal);
  if (!problem.empty()) return Refuse(problem, kWrongUsage);
  const KindRow& kind = *FindKind(journal.Kind);
  ReplayOptions replay;
  replay.Folder = operands.size() > 1 ? AbsoluteFolder(operands[1]) : journal.Folder;
  if (!LocalFileSystem().FolderExists(replay.Folder)) {
    return Refuse(Joined("there is no folder ", replay.Folder,
                         ": name the one with the game behind the journal"),
                  kWrongUsage);
  }
  PageKeeper keeper(AbsoluteFolder(options.PagesFolder));
  if (!options.PagesFolder.empty()) {
    problem = PreparePages(AbsoluteFolder(options.PagesFolder), replay.Folder);
    if (!problem.empty()) return Refuse(problem, kWrongUsage);
    replay.OnText = [&](const std::string& name, std::string_view text) {
      keeper.Keep(name, text);
    };
  }
  replay.OnFiles = PrintFiles;
  replay.Archives = std::make_shared<ZipLibrary>();
  Print(Joined("The journal of ", kind.What, " in ", journal.Folder, "."));
  if (journal.Program != kProgramVersion) {
    Print(Joined("It is of version ", journal.Program, "; this is ", kProgramVersion, "."));
  }
  const int code = PrintResult(kind.Replay(journal, replay), kind);
  if (!keeper.Problem.empty())
    return Refuse(Joined("can't keep the pages: ", keeper.Problem), kWrongUsage);
  return code;
}

}  // namespace brindlemoor

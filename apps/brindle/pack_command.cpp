// brindle pack: a game as one file, for others.
#include <algorithm>
#include <array>

#include "apps/brindle/commands.h"
#include "apps/brindle/output_file.h"
#include "archive/zip_library.h"
#include "check/game_check.h"
#include "core/desktop.h"
#include "core/state.h"
#include "data/profiles.h"
#include "game/game_list.h"
#include "game/session_opening.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/overlay_files.h"
#include "sharing/game_archive.h"
#include "sharing/game_contents.h"
#include "simulation/automatic_match.h"
#include "simulation/report.h"
#include "text/file_names.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kNameBytes = 100;  // of the archive's own name

struct PackOptions {
  std::string Game;
  std::string Out;
};
constexpr std::array<Option<PackOptions>, 2> kOptions = {{
    {"--game", [](PackOptions& o, std::string_view v) { return !(o.Game = v).empty(); }},
    {"--out", [](PackOptions& o, std::string_view v) { return !(o.Out = v).empty(); }},
}};

void Print(std::ostream& out, std::string_view text) {
  out << TerminalText(std::string(text)) << '\n';
}

/// The game that is meant, 0 for none, with the reason. Of several games none is meant without a
/// name: what is passed on should be no surprise.
int GameToPack(const std::string& name, std::string& problem) {
  DiscoverGames();
  const int game = FindGame(name, problem);
  if (game == 0 || !name.empty()) return game;
  std::string names;
  int count = 0;
  for (const GameRec& listed : State().Games) {
    if (listed.Name.empty()) continue;
    names += Joined(count++ == 0 ? "" : ", ", listed.Name);
  }
  if (count > 1) problem = Joined("There are several games. Name one with --game: ", names, ".");
  return count > 1 ? 0 : game;
}

/// Tells what a check finds in the files that go in; false when there is an error.
bool PassesCheck(const std::string& folder, const GameContents& contents) {
  bool passes = true;
  for (const Finding& finding : CheckPaths({folder}).Findings) {
    const bool isPacked =
        std::ranges::find(contents.Files, finding.File, &GameFile::Path) != contents.Files.end();
    if (!isPacked) continue;
    Print(std::cerr, FindingLine(finding));
    passes = passes && RowOf(finding.Code).Level != Severity::kError;
  }
  return passes;
}

/// "" or why the files can't be read.
std::string ReadFiles(const GameContents& contents, std::vector<ArchiveFile>& files) {
  for (const GameFile& file : contents.Files) {
    auto bytes = Desktop().Files().Read(file.Path);
    if (!bytes) return Joined("can't read ", file.Path);
    files.push_back({file.Name, std::move(*bytes)});
  }
  return "";
}

/// Composes the archive; what nobody could open is not passed on. "" or what went wrong.
std::string Compose(const GameContents& contents, std::string& archive, std::size_t& unpacked) {
  std::vector<ArchiveFile> files;
  std::string problem = ReadFiles(contents, files);
  if (problem.empty()) problem = Desktop().Archives().Write(files, archive);
  if (!problem.empty()) return problem;
  const GameArchive readBack = ReadGameArchive(archive);
  unpacked = readBack.Bytes;
  if (!readBack.Problem.empty()) {
    return Joined("The game can't be passed on as it is. ", readBack.Problem);
  }
  for (std::size_t index = 0; index < files.size(); ++index) {
    if (index < readBack.Files.size() && readBack.Files[index] == files[index]) continue;
    return Joined("archives can't hold the name of \"", files[index].Name, "\" as it is");
  }
  return "";
}

/// Nothing but an older archive is written over.
std::string RefuseOutput(const std::string& out) {
  const std::string problem = OutputProblem(out);
  if (!problem.empty()) return problem;
  const auto bytes = LocalFileSystem().Read(AbsoluteFolder(out));
  return !bytes || bytes->empty() || bytes->starts_with("PK")
             ? ""
             : Joined(out, " is there already and is no archive");
}

std::string NameOfArchive(const PackOptions& options, std::string_view game) {
  if (!options.Out.empty()) return options.Out;
  return Joined(BoundedForFileName(game, kNameBytes), ".zip");
}

int Pack(const std::string& folder, const PackOptions& options) {
  std::string problem;
  const int game = GameToPack(options.Game, problem);
  if (game == 0) return Refuse(problem, kWrongUsage);
  const std::string name = State().Games[game].Name.Str();
  const std::string out = NameOfArchive(options, name);
  problem = RefuseOutput(out);
  if (!problem.empty()) return Refuse(problem, kWrongUsage);
  const GameContents contents = ContentsOfGame(game);
  for (const std::string& remark : contents.Remarks) Print(std::cerr, remark);
  for (const std::string& missing : contents.Problems) Print(std::cerr, missing);
  const bool passes = PassesCheck(folder, contents);
  if (!passes || !contents.Problems.empty()) {
    return Refuse(Joined(name, " is not packed: it has errors."), kFailure);
  }
  std::string archive;
  std::size_t unpacked = 0;
  problem = Compose(contents, archive, unpacked);
  if (problem.empty()) problem = WriteOutput(out, archive);
  if (!problem.empty()) return Refuse(problem, kFailure);
  for (const std::string& file : contents.LeftOut) Print(std::cout, Joined("left out: ", file));
  Print(std::cout, Joined(out, ": ", name, ", ", contents.Files.size(), " files, ",
                          SizeText(unpacked), ", packed ", SizeText(archive.size())));
  return kSuccess;
}

}  // namespace

int RunPack(Arguments arguments) {
  PackOptions options;
  std::vector<std::string> folders;
  const int wrong = ReadOptions<PackOptions>(arguments, kOptions, options, folders);
  if (wrong != kSuccess) return wrong;
  if (folders.empty()) return WrongUsage("a folder is missing behind ", "pack");
  if (folders.size() > 1) return WrongUsage("one folder only: ", folders[1]);
  const std::string folder = AbsoluteFolder(folders[0]);
  auto desktop =
      std::make_shared<HeadlessPlatform>(std::make_unique<OverlayFileSystem>(BelongsToPlayers));
  desktop->AcceptMessages = true;
  desktop->SetArchives(std::make_shared<ZipLibrary>());
  desktop->Files().TakeChoice(folder);
  if (!desktop->Files().FolderExists(folder)) {
    return Refuse(Joined("there is no folder ", folders[0]), kWrongUsage);
  }
  OpenSession(std::move(desktop), folder);
  return Pack(folder, options);
}

}  // namespace brindlemoor

// brindle unpack: a game that was passed on, put into a folder.
#include <array>
#include <filesystem>

#include "apps/brindle/commands.h"
#include "archive/zip_library.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "platform/headless/headless_platform.h"
#include "platform/machine_folder.h"
#include "sharing/game_archive.h"
#include "sharing/game_opening.h"
#include "simulation/automatic_match.h"
#include "simulation/report.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

struct UnpackOptions {
  bool List = false;
  bool Replace = false;
  bool Keep = false;
};
constexpr std::array<Option<UnpackOptions>, 3> kOptions = {{
    {"--list", [](UnpackOptions& o, std::string_view) { return o.List = true; }, true},
    {"--replace", [](UnpackOptions& o, std::string_view) { return o.Replace = true; }, true},
    {"--keep", [](UnpackOptions& o, std::string_view) { return o.Keep = true; }, true},
}};

void Print(std::string_view text) { std::cout << TerminalText(std::string(text)) << '\n'; }

std::string Summary(const std::string& path, const GameArchive& archive) {
  std::string games;
  for (const std::string& game : archive.Games) games += Joined(games.empty() ? "" : ", ", game);
  return Joined(path, ": ", games, ", ", archive.Files.size(), " files, ", SizeText(archive.Bytes));
}

void PrintList(const std::string& path, const GameArchive& archive) {
  for (const ArchiveFile& file : archive.Files) {
    Print(Joined(file.Name, "  ", SizeText(file.Bytes.size())));
  }
  Print(Summary(path, archive));
}

/// A folder beside the terminal that is called like the archive.
std::string FolderFor(const std::string& archive) {
  return std::filesystem::path(archive).stem().string();
}

int Unpack(const std::string& path, const GameArchive& archive, const UnpackOptions& options,
           const std::string& folder) {
  FileSystem& files = Desktop().Files();
  const OpeningPlan plan = PlanOpening(archive, files, folder);
  if (!plan.Problem.empty()) return Refuse(plan.Problem, kFailure);
  for (const std::string& remark : plan.Remarks) Print(remark);
  const std::size_t differing = plan.Count(FileFate::kDiffers);
  if (differing > 0 && !options.Replace && !options.Keep) {
    for (std::size_t index = 0; index < archive.Files.size(); ++index) {
      if (plan.Fates[index] != FileFate::kDiffers) continue;
      Print(Joined("differs: ", archive.Files[index].Name));
    }
    return Refuse(
        Joined("Nothing was unpacked: ", differing, " files of the folder differ. ",
               "--replace takes the archive's and keeps yours as \"….old~\", --keep takes "
               "the others only."),
        kFailure);
  }
  const OpeningResult result = OpenInFolder(
      archive, plan, options.Replace ? Differing::kReplace : Differing::kKeepMine, files, folder);
  if (!result.Problem.empty()) return Refuse(result.Problem, kFailure);
  for (const std::string& kept : result.Kept) Print(Joined("kept: ", kept));
  Print(Joined(Summary(path, archive), ", ", result.Written, " written to ", folder));
  return kSuccess;
}

}  // namespace

int RunUnpack(Arguments arguments) {
  UnpackOptions options;
  std::vector<std::string> operands;
  const int wrong = ReadOptions<UnpackOptions>(arguments, kOptions, options, operands);
  if (wrong != kSuccess) return wrong;
  if (operands.empty()) return WrongUsage("an archive is missing behind ", "unpack");
  if (operands.size() > 2) return WrongUsage("one folder only: ", operands[2]);
  if (options.Replace && options.Keep) return WrongUsage("--keep does not go with ", "--replace");
  auto desktop = std::make_shared<HeadlessPlatform>(std::make_unique<LocalFileSystem>());
  desktop->SetArchives(std::make_shared<ZipLibrary>());
  State().Desktop = desktop;
  FileSystem& files = desktop->Files();
  const std::string path = AbsoluteFolder(operands[0]);
  const auto bytes = files.Read(path);
  if (!bytes) {
    const std::string reason = files.WhyUnread(path);
    return Refuse(Joined("can't read ", operands[0], reason.empty() ? "" : ": ", reason),
                  kWrongUsage);
  }
  const GameArchive archive = ReadGameArchive(*bytes);
  if (!archive.Problem.empty()) return Refuse(archive.Problem, kFailure);
  if (options.List) {
    PrintList(operands[0], archive);
    return kSuccess;
  }
  const std::string folder =
      AbsoluteFolder(operands.size() > 1 ? operands[1] : FolderFor(operands[0]));
  const std::string problem = MakeFolder(folder);
  if (!problem.empty()) return Refuse(Joined("can't make ", folder, ": ", problem), kFailure);
  files.KeepTo(folder);
  const std::string finished = FinishOpening(files, folder);
  if (!finished.empty()) Print(finished);
  return Unpack(operands[0], archive, options, folder);
}

}  // namespace brindlemoor

// Comparing an archive with a folder, and putting it there.
#include "sharing/game_opening.h"

#include <algorithm>
#include <map>
#include <set>

#include "platform/files.h"
#include "sharing/entry_names.h"
#include "sharing/file_stage.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr StagePurpose kOpening{"opening", "The files of a game, to be moved to their places:\n",
                                &WhyNoEntry, true};

constexpr std::string_view kByAnother =
    "Another program is opening an archive in this folder at the moment.";

OpeningResult Refused(std::string_view problem) { return {0, {}, std::string(problem)}; }

std::string FolderOf(const std::string& name) {
  const std::size_t slash = name.find('/');
  return slash == name.npos ? "" : name.substr(0, slash);
}
std::string_view LastPart(std::string_view name) { return name.substr(name.find('/') + 1); }

/// Looks at a program's folder for what an archive's files meet there.
class Comparison {
 public:
  Comparison(FileSystem& files, const std::string& folder)
      : files_(files), folder_(folder == "/" ? "" : folder) {}

  OpeningPlan Take(const GameArchive& archive) {
    ListFolder("");
    for (const std::string& name : files_.ListFolders(Path(""))) ListFolder(name);
    for (const ArchiveFile& file : archive.Files) {
      plan_.Fates.push_back(FateOf(file));
      if (!plan_.Problem.empty()) break;
      NoteTwin(file.Name);
    }
    NoteNamesakes(archive);
    for (const auto& [name, other] : twins_) {
      plan_.Remarks.push_back(Joined("\"", name, "\" has the same name as \"", other,
                                     "\" of your folder: games may take the one for the other."));
    }
    return std::move(plan_);
  }

 private:
  std::string Path(const std::string& name) const {
    return name.empty() ? (folder_.empty() ? "/" : folder_) : Joined(folder_, "/", name);
  }

  void ListFolder(const std::string& folder) {
    for (const std::string& file : files_.ListFiles(Path(folder))) {
      present_.emplace(FoldUpper(file), folder.empty() ? file : Joined(folder, "/", file));
    }
  }

  FileFate FateOf(const ArchiveFile& file) {
    const std::string path = Path(file.Name);
    const std::string folder = FolderOf(file.Name);
    const bool isKeptOut =
        !folder.empty() && IsThere(files_, Path(folder)) && !files_.FolderExists(Path(folder));
    if (isKeptOut || files_.FolderExists(path)) {
      plan_.Problem =
          Joined("\"", isKeptOut ? folder : file.Name, "\" can't be put into the folder: ",
                 isKeptOut ? "there is no folder but something else of that name."
                           : "there is a folder of that name.");
      return FileFate::kDiffers;
    }
    if (!IsThere(files_, path)) return FileFate::kNew;
    return files_.Read(path) == file.Bytes ? FileFate::kSame : FileFate::kDiffers;
  }

  /// A reference finds files by their last part, wherever they lie.
  void NoteTwin(const std::string& name) {
    const auto [first, last] = present_.equal_range(FoldUpper(LastPart(name)));
    for (auto other = first; other != last; ++other) {
      const bool isTest = name.starts_with("tests/") || other->second.starts_with("tests/");
      if (other->second != name && !isTest) twins_.emplace(name, other->second);
    }
  }

  /// Of two games of one name the list shows one.
  void NoteNamesakes(const GameArchive& archive) {
    for (const std::string& file : files_.ListFiles(Path(""))) {
      const bool isReplaced =
          std::ranges::find(archive.Files, file, &ArchiveFile::Name) != archive.Files.end();
      if (isReplaced || KindOfGameFile(file) != GameFileKind::kText) continue;
      const std::string game = GameDeclaredBy(files_.Read(Path(file)).value_or(""));
      if (game.empty() || std::ranges::count(archive.Games, game) == 0) continue;
      plan_.Remarks.push_back(Joined("Your folder has a game \"", game, "\" already, in \"", file,
                                     "\": only one of the two will be listed."));
    }
  }

  FileSystem& files_;
  const std::string folder_;
  std::multimap<std::string, std::string> present_;  ///< names by their folded last part
  std::map<std::string, std::string> twins_;
  OpeningPlan plan_;
};

}  // namespace

std::size_t OpeningPlan::Count(FileFate fate) const {
  return static_cast<std::size_t>(std::ranges::count(Fates, fate));
}

OpeningPlan PlanOpening(const GameArchive& archive, FileSystem& files, const std::string& folder) {
  return Comparison(files, folder).Take(archive);
}

OpeningResult OpenInFolder(const GameArchive& archive, const OpeningPlan& plan, Differing differing,
                           FileSystem& files, const std::string& folder) {
  FileStage stage(files, folder, kOpening);
  if (!stage.IsHeld()) return Refused(kByAnother);
  if (stage.HasLeftovers()) {
    if (stage.TakeLeftovers()) {
      return Refused("An earlier opening is not finished: start the program again.");
    }
    stage.Clear();
  }
  std::string problem;
  for (std::size_t index = 0; index < archive.Files.size() && problem.empty(); ++index) {
    const ArchiveFile& file = archive.Files[index];
    const bool isTaken =
        plan.Fates[index] == FileFate::kNew ||
        (plan.Fates[index] == FileFate::kDiffers && differing == Differing::kReplace);
    if (!isTaken) continue;
    problem = stage.Add(file.Name, file.Bytes);
    if (!problem.empty()) problem = Joined(file.Name, ": ", problem);
  }
  if (problem.empty() && stage.IsEmpty()) return {};
  if (problem.empty()) problem = stage.Complete();
  if (!problem.empty()) {
    stage.Clear();
  } else {
    problem = stage.MoveIn();
  }
  if (!problem.empty()) {
    return Refused(Joined("The game was not put into the folder: ", problem, "."));
  }
  return {stage.Moved(), stage.Kept(), ""};
}

std::string FinishOpening(FileSystem& files, const std::string& folder) {
  FileStage stage(files, folder, kOpening);
  if (!stage.IsHeld() || !stage.HasLeftovers()) return "";
  if (!stage.TakeLeftovers()) {
    const bool isBare = stage.IsBare();
    stage.Clear();
    if (isBare) return "";
    return "The opening of an archive had been broken off: nothing of it was put into the folder.";
  }
  const std::string problem = stage.MoveIn();
  return problem.empty()
             ? "The opening of an archive had been broken off. It is finished now: the game is "
               "there."
             : Joined("The opening of an archive had been broken off and can't be finished: ",
                      problem, ".");
}

}  // namespace brindlemoor

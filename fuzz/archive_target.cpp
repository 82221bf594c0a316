// A target that takes its bytes for an archive of a stranger and opens what it reads.
#include <memory>
#include <string>

#include "archive/zip_library.h"
#include "fuzz/fuzz_session.h"
#include "fuzz/fuzz_targets.h"
#include "sharing/entry_names.h"
#include "sharing/game_archive.h"
#include "sharing/game_opening.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// What every opened file must be.
void MustBeOfAGame(const std::string& path) {
  const std::string folder = Joined(kFuzzFolder, "/");
  MustHold(path.starts_with(folder), "a file was written outside of the folder");
  std::string name = path.substr(folder.size());
  if (name.ends_with('~')) name = name.substr(0, name.rfind(".old"));
  MustHold(WhyNoEntry(name).empty(), "a file has a name that archives can't have");
}

void OpenOn(const GameArchive& archive, MemoryFileSystem& files, Differing differing) {
  const std::string folder(kFuzzFolder);
  const OpeningPlan plan = PlanOpening(archive, files, folder);
  if (!plan.Problem.empty()) return;
  const OpeningResult result = OpenInFolder(archive, plan, differing, files, folder);
  MustHold(result.Problem.empty(), "files in memory can't be written");
  for (const auto& [path, bytes] : files.Contents) MustBeOfAGame(path);
}

void Read(std::string_view bytes) {
  FuzzSession session;
  const GameArchive archive = ReadGameArchive(bytes);
  MustHold(archive.Files.empty() != archive.Problem.empty(), "an archive is read and refused");
  if (!archive.Problem.empty()) return;
  MemoryFileSystem files;
  OpenOn(archive, files, Differing::kKeepMine);
  for (const ArchiveFile& file : archive.Files) {
    MustHold(files.Read(Joined(kFuzzFolder, "/", file.Name)) == file.Bytes, "a file is missing");
  }
  for (auto& [path, mine] : files.Contents) mine += "mine";
  OpenOn(archive, files, Differing::kReplace);
}

}  // namespace

void FuzzArchive(std::string_view bytes) {
  Read(bytes);  // the plain format, which mutations know their way in
  FuzzSession session;
  session.Desktop().SetArchives(std::make_shared<ZipLibrary>());
  const GameArchive archive = ReadGameArchive(bytes);
  if (!archive.Problem.empty()) return;
  MemoryFileSystem files;
  OpenOn(archive, files, Differing::kReplace);
}

}  // namespace brindlemoor

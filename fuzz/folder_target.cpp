// A target that opens a stranger's folder of the disk: all that the program does in one.
#include <algorithm>

#include "check/game_check.h"
#include "core/state.h"
#include "data/profiles.h"
#include "editor/compose_folder.h"
#include "editor/editor_forms.h"
#include "editor/editor_opening.h"
#include "fuzz/fuzz_session.h"
#include "fuzz/fuzz_targets.h"
#include "fuzz/made_folder.h"
#include "game/program_start.h"
#include "platform/program_copy.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kEditedFiles = 3;

/// The machine's files; no page holds the secret even for a moment.
class SearchedFiles : public LocalFileSystem {
 public:
  explicit SearchedFiles(const MadeFolder& folder) : folder_(folder) {}
  std::string Write(const std::string& path, std::string_view bytes) override {
    folder_.MustNotTell(bytes);
    return LocalFileSystem::Write(path, bytes);
  }

 private:
  const MadeFolder& folder_;
};

/// Opens files in the card editor and saves them, as an author does who looks at a game.
void EditFiles(HeadlessPlatform& desktop, std::vector<std::string> files) {
  files.resize(std::min(files.size(), kEditedFiles));
  OpenCardEditor();
  for (const std::string& file : files) {
    desktop.FileAnswers = {file};
    TheCardEdit().loaddeckmen.Click();
    desktop.YesNoAnswers = {true, true};
    TheCardEdit().savedeckmen.Click();
  }
  ComposeFolderImages();
  LeaveCardEditor();
}

void RunProgram(const MadeFolder& folder) {
  FuzzProgram program(std::make_unique<SearchedFiles>(folder), folder.Path());
  const ProgramCopy copy(folder.Path());
  State().CopyOfProgram = copy.Number();
  StartProgram();
  PlayOpponents(program.Desktop());
  SaveProfiles();
  EditFiles(program.Desktop(), folder.CardFiles());
  CheckPaths({folder.Path()});
}

}  // namespace

void FuzzFolder(std::string_view bytes) {
  const MadeFolder folder(bytes);
  RunProgram(folder);
  folder.MustHaveKeptTheRest();
}

}  // namespace brindlemoor

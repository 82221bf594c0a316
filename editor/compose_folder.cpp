// Reading the cards of a program folder and composing their images.
#include "editor/compose_folder.h"

#include <string_view>
#include <vector>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_reader.h"
#include "data/profiles.h"
#include "editor/image_composer.h"
#include "script/card_setup.h"

namespace brindlemoor {

namespace {

std::vector<std::string> FoldersOfProgram() {
  const std::string& folder = State().ProgramFolder;
  std::vector<std::string> folders = {folder};
  for (const std::string& name : Desktop().Files().ListFolders(folder)) {
    folders.push_back(Joined(folder, "/", name));
  }
  return folders;
}

/// The cards of all files, in their order. A read begins the collection anew.
Pile ReadAllCards(const std::vector<std::string>& folders) {
  Session& state = State();
  InitPlayer(state.Players[1], 1);
  Pile cards;
  for (const std::string& folder : folders) {
    for (const std::string& name : Desktop().Files().ListFiles(folder)) {
      if (!IsCardFileName(name)) continue;
      EnterProgramFolder();
      state.Collection = Pile(1);
      ReadCards(Joined(folder, "/", name), state.Players[1], 1, "COLLECTION", 1);
      for (const Card& card : state.Collection) {
        if (!IsFree(card)) cards.Append(card);
      }
    }
  }
  return cards;
}

}  // namespace

FolderComposition ComposeFolderImages(int quality) {
  const std::vector<std::string> folders = FoldersOfProgram();
  const Pile cards = ReadAllCards(folders);
  FolderComposition result;
  for (const std::string& folder : folders) {
    ImageComposer composer(Joined(folder, "/"), quality);
    for (const int index : composer.CardsToCompose(cards)) composer.Compose(cards[index]);
    result.Images += composer.Composed();
    if (composer.Failed().Count() == 0) continue;
    if (!result.Failed.empty()) result.Failed += ", ";
    result.Failed += composer.Failed().Told();
  }
  return result;
}

}  // namespace brindlemoor

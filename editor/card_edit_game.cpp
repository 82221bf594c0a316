// The card editor: all cards of a game at once.
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_file_writer.h"
#include "data/saving.h"
#include "editor/card_edit.h"
#include "ui/choice_form.h"

namespace brindlemoor {

void CardEdit::opengamemen_Click() {
  const int chosen = AskGame("Which game's cards?");
  if (chosen == 0 || !MayLeaveCards()) return;
  Session& state = State();
  const GameRec game = state.Games[chosen];
  if (beforeFiles_) beforeFiles_->PutBack();
  const auto unread = documents_.OpenGame(game);
  state.GameFileName = game.RulesFile;
  ShowFiles(unread);
}

void CardEdit::ShowFiles(const std::vector<std::string>& unread) {
  Session& state = State();
  const Text game = state.GameFileName;
  state.CardFile = documents_.MainFile();
  const std::string& main = documents_.MainFile();
  Image.CardFolder = main.substr(0, main.size() - FileNameOf(main).size());
  BeginCardList();
  loadcommontraits();
  AllIsSaved();
  std::string names;
  for (const std::string& name : unread) names += Joined("\n", name);
  if (!names.empty()) {
    Desktop().MessageBox(
        Joined("The cards of these files are not shown, and stay as they are:", names));
  }
  const std::string copy = copy_.Offer(CopyName());
  if (copy == CopyName()) return;
  ReadCardList(copy);
  state.GameFileName = game;
  loadcommontraits();
  ListChanged();
}

void CardEdit::FileCombo_Click() {
  if (FormBusy != kFormReady) return;
  State().EditCard.SourceFile = FileCombo.Text.Get();
  Lists.NamesAreOld = true;
}

bool CardEdit::SaveGame() {
  Session& state = State();
  StampCards(state.CardFile, 0);
  const auto changes = documents_.Changes(state.Collection, state.Templates);
  for (const CardDocuments::Change& change : changes) {
    if (!change.Bytes) {
      Desktop().MessageBox(Joined("Can't save ", FileNameOf(change.Path),
                                  ": lines of it depend on those of other cards.  Nothing is "
                                  "saved.  Change this file in a text editor, or load it alone."));
      return false;
    }
    if (!MaySaveOver(change.Path)) return false;
  }
  // A card that moves is in no file between two writes; the copy has it whatever happens there.
  if (changes.size() > 1 && !copy_.Write(CopyName(), UnsavedText())) return false;
  for (const CardDocuments::Change& change : changes) {
    if (!SaveBytesOrTell(change.Path, FileNameOf(change.Path), *change.Bytes)) return false;
    documents_.ReadAgain(change.Path, state.Collection);
  }
  copy_.RemoveOwn(CopyName());
  copy_.PutAside(CopyName());
  AllIsSaved();
  return true;
}

}  // namespace brindlemoor

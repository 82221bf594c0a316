// The card editor: its File menu.
#include <optional>
#include <utility>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_file_writer.h"
#include "data/card_reader.h"
#include "data/card_writer.h"
#include "data/saving.h"
#include "editor/card_edit.h"
#include "editor/editor_opening.h"
#include "editor/replaced_file.h"
#include "game/card_sorting.h"
#include "game/game_list.h"
#include "game/player_saving.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kAnyCardFile = "*.txt";
constexpr std::string_view kLoadAnyway =
    "What you have not saved would be lost.  Load the file anyway?";

constexpr std::string_view kSaveImage = "The new image is in no file.  Save it first?";

std::optional<std::string> AskSaveName() {
  return Desktop().AskFile(
      {.Save = true, .FileName = std::string(kAnyCardFile), .DefaultExtension = "txt"});
}

/// A file may hold more than the save that replaces it writes: rules, decks, actions of a store.
/// False when the user would rather keep that.
bool MayReplace(const std::string& path, SavedKind kind) {
  if (!Desktop().Files().Exists(path)) return true;
  std::string bytes = Desktop().Files().Read(path).value_or("?");
  if (bytes.empty()) return true;
  const std::string lost = LostByReplacing(std::move(bytes), kind);
  if (lost.empty()) return true;
  const std::string said = lost == "?" ? std::string(" was not written by the card editor")
                                       : Joined(" holds more than is saved now, such as ", lost);
  return Desktop().AskYesNo(Joined(FileNameOf(path), said, "; that would be lost.  Replace it?"));
}

}  // namespace

void CardEdit::loaddeckmen_Click() {
  Session& state = State();
  const auto path = Desktop().AskFile({.FileName = std::string(kAnyCardFile)});
  if (!path || FileNameOf(*path) == kAnyCardFile) return;
  if (!IsThere(Desktop().Files(), *path)) {
    Desktop().MessageBox(Joined("There is no file ", *path, "."));
    return;
  }
  if (!Desktop().Files().Read(*path)) {
    Desktop().MessageBox(CantRead(FileNameOf(*path), *path));
    return;
  }
  if (!MayLeaveCards()) return;
  const std::string source = copy_.Offer(*path);
  documents_ = {};
  const bool isWhole = ReadCardList(source);
  state.CardFile = isWhole ? Text(*path) : Text();
  if (isWhole) documents_.Read(*path, state.Collection);
  // Then the cards of each file are shown where they stand, and none of them is copied into this.
  if (documents_.IsMixed() && source == *path) {
    if (beforeFiles_) beforeFiles_->PutBack();
    ShowFiles(documents_.OpenWithIncluded(*path));
    return;
  }
  loadcommontraits();
  Image.CardFolder = path->substr(0, path->size() - FileNameOf(*path).size());
  AllIsSaved();
  if (source != *path) ListChanged();
}

bool CardEdit::MayLeaveCards() {
  if (!HasUnsavedChanges()) {
    copy_.RemoveOwn(CopyName());
    return true;
  }
  if (Image.IsUnsaved() && Desktop().AskYesNo(kSaveImage)) {
    BuildCardFromForm();
    if (Image.IsUnsaved()) return false;
  }
  // Offered when these cards are loaded again.
  return copy_.Write(CopyName(), UnsavedText()) || Desktop().AskYesNo(kLoadAnyway);
}

bool CardEdit::ReadCardList(const std::string& file) {
  Session& state = State();
  // What the last file declared beside the cards is none of this one's.
  if (beforeFiles_) beforeFiles_->PutBack();
  state.Collection = Pile(1);
  const bool isWhole = ReadCards(file, state.Players[1], 1, "COLLECTION", 1);
  // A part of the cards must not be saved in place of all.
  if (!isWhole) {
    state.Collection = Pile(1);
    Desktop().MessageBox(Joined("Can't read all of ", FileNameOf(file), "."));
  }
  BeginCardList();
  return isWhole;
}

void CardEdit::BeginCardList() {
  SortList();
  // What is edited belonged to the cards before; a card of no list stays.
  if (Lists.Place() > 0) BeginFreshCard();
  CardCombo.Select(0);
  LoadCombos();
}

void CardEdit::SortList() {
  if (documents_.IsOfGame()) {
    documents_.Sort(State().Collection);
  } else {
    SortCards(State().Collection, "NAME");
  }
}

/// Others may have written the file since it was read.
bool CardEdit::MaySaveOver(const std::string& path) const {
  if (documents_.IsAsLeft(path)) return true;
  const std::string there = Desktop().Files().Read(path).value_or("");
  const std::string copy = PathOfCopy(path, ".other", there);
  const bool isWanted =
      Desktop().AskYesNo(Joined(FileNameOf(path),
                                " has changed since it was read.  Save over it?  A copy of the "
                                "other file is kept as ",
                                FileNameOf(copy), "."));
  return isWanted && SaveBytesOrTell(copy, FileNameOf(copy), there);
}

bool CardEdit::SaveCards(SaveOptions options) {
  if (documents_.IsOfGame() && !options.AskAlways) return SaveGame();
  Session& state = State();
  const std::string copied = CopyName();
  std::string path = state.CardFile.Str();
  if (options.AskAlways || path.empty()) {
    const auto chosen = AskSaveName();
    if (!chosen) return false;
    path = *chosen;
  }
  const bool isThisFile = path == state.CardFile && !documents_.IsOfGame();
  if (isThisFile && !MaySaveOver(path)) return false;
  if (options.Stamp) {
    StampCards(path, 1);
    if (Lists.HoldsEdited()) {
      state.EditCard.SourceFile = state.Collection[Lists.Place()].SourceFile;
      Edited.KeepFile();
    }
  }
  const auto bytes =
      isThisFile ? documents_.BytesWith(state.Collection, state.Templates) : std::nullopt;
  if (!bytes && !MayReplace(path, SavedKind::kCards)) return false;
  const Text before = std::exchange(state.CardFile, Text(path));
  const bool isSaved =
      bytes ? SaveBytesOrTell(path, path, *bytes) : SaveCardFile(path, "COLLECTION", "", 0);
  if (!isSaved) {
    state.CardFile = before;
    return false;
  }
  documents_.Read(path, state.Collection);
  copy_.RemoveOwn(copied);
  copy_.PutAside(state.CardFile);
  AllIsSaved();
  return true;
}

void CardEdit::savedeckmen_Click() {
  // The file holds all that is to be saved, and perhaps more than a save could keep.
  const std::string file = State().CardFile.Str();
  const bool isKnown = documents_.Knows(file) && !documents_.IsOfGame();
  if (isKnown && !HasUnsavedChanges() && documents_.IsAsLeft(file)) return;
  StoreCurrentCard();
  SaveCards({.Stamp = true});
}

void CardEdit::savedeckasmen_Click() {
  StoreCurrentCard();
  SaveCards({.AskAlways = true, .Stamp = true});
}

void CardEdit::SaveCollectionAs(std::string_view question, int starterFlag) {
  StoreCurrentCard();
  const auto path = AskSaveName();
  if (!path || !MayReplace(*path, SavedKind::kStore)) return;
  const auto name = Desktop().AskText(question);
  if (!name) return;
  if (name->empty()) {
    Desktop().MessageBox("Without a name nothing is saved.");
    return;
  }
  const int game = GameOfNewFiles();
  SaveStoreFile(*path, *name, starterFlag, game != 0 ? State().Games[game].Name : Text());
}

void CardEdit::Cardstoremen_Click() { SaveCollectionAs("Name of store?", 0); }

void CardEdit::starterdeckmen_Click() { SaveCollectionAs("Name of starter deck?", 1); }

void CardEdit::ShowOutput(bool shown) {
  OutputText.Visible = shown;
  OutputFrame.Visible = shown;
}

void CardEdit::gencardtextmen_Click() {
  Card card = BuildCardFromForm();
  OutputText.Text = CardToText(card, "INDECK");
  ShowOutput(true);
}

void CardEdit::testcardsmen_Click() {
  if (State().CardFile.empty()) {
    Desktop().MessageBox("You need to load a card file first.");
    return;
  }
  StoreCurrentCard();
  UnsavedTimer_Tick();  // the timer stands still while the form is hidden
  BeginTestCards();
}

void CardEdit::createoppmen_Click() {
  StoreCurrentCard();
  BuildOpponent();
  CollectionChanged();
}

}  // namespace brindlemoor

// The card editor: its pictures. Existing files are shown and chosen.
#include "core/paths.h"
#include "core/state.h"
#include "editor/card_edit.h"
#include "platform/platform.h"

namespace brindlemoor {

namespace {

void TellOfLaterVersion() {
  Desktop().MessageBox("Composing card images comes with a later version.");
}

/// A picture of the game, or one beside the card file; "" when there is none.
std::string FindPicture(std::string_view name, const std::string& cardFolder) {
  if (name.empty()) return "";
  std::string path = ResolvePath(name, 0);
  if (!path.empty() || cardFolder.empty()) return path;
  path = cardFolder + FileNameOf(name);
  return Desktop().Files().Exists(path) ? path : std::string();
}

/// The path of the thumbnail that belongs to a picture.
std::string MiniOf(const std::string& path) {
  const std::size_t dot = path.rfind('.');
  const std::size_t end = dot == std::string::npos ? path.size() : dot;
  return path.substr(0, end) + "-mini" + path.substr(end);
}

void ShowPicture(PictureBox& box, const Text& name, const std::string& cardFolder) {
  const std::string path = FindPicture(name, cardFolder);
  if (!path.empty() || name.empty()) box.Picture = path;
}

}  // namespace

void CardEdit::UpdatePic(int /*updateCardSurf*/) {
  const Card& card = State().EditCard;
  ShowPicture(MainPic, card.Picture, CardFolder);
  ShowPicture(MiniPic, card.Thumb, CardFolder);
}

void CardEdit::MainPic_Click() { TellOfLaterVersion(); }

void CardEdit::Command3_Click() { TellOfLaterVersion(); }

void CardEdit::Command7_Click() { TellOfLaterVersion(); }

void CardEdit::loadgraphicmen_Click() {
  const auto path = Desktop().AskFile({.FileName = "*.jpg;*.jpeg;*.png;*.bmp;*.gif"});
  if (!path || !Desktop().Files().Exists(*path)) return;
  Card& card = State().EditCard;
  const std::string mini = MiniOf(*path);
  const bool hasMini = Desktop().Files().Exists(mini);
  card.Picture = FileNameOf(*path);
  if (hasMini) card.Thumb = FileNameOf(mini);
  UpdatePic(1);
  // What was chosen is seen wherever it lies.
  MainPic.Picture = *path;
  if (hasMini) MiniPic.Picture = mini;
  PreviewSoon();
}

void CardEdit::loadformen_Click() { TellOfLaterVersion(); }

void CardEdit::loadbackmen_Click() { TellOfLaterVersion(); }

void CardEdit::loadminimen_Click() { TellOfLaterVersion(); }

void CardEdit::saveimagemen_Click() { TellOfLaterVersion(); }

}  // namespace brindlemoor

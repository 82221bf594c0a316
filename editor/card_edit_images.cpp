// The card editor: the images of the edited card, chosen, composed and saved by its controls.
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "editor/card_edit.h"
#include "editor/editor_forms.h"
#include "editor/picture_files.h"

namespace brindlemoor {

namespace {

/// The picture that the user chooses; "" for none that can be read.
std::string PickPicture(EditedImage& image, std::string_view prompt, bool withCrop) {
  PicPick& picker = ThePicPick();
  picker.Label1.Caption = std::string(prompt);
  picker.PicSizeOn(withCrop);
  picker.Clicked = false;
  Desktop().ShowForm(picker, true);
  picker.Picture1.Visible = false;
  picker.PicSizeOn(false);
  std::string name = picker.PicName;
  if (name.empty()) return "";
  // The picker still knows what was picked last, perhaps for another card.
  if (!picker.Clicked && !Desktop().AskYesNo(Joined("Take ", FileNameOf(name), " again?"))) {
    return "";
  }
  const std::string error = CheckPicture(name);
  if (!error.empty()) {
    Desktop().MessageBox(Joined("Can't use ", FileNameOf(name), ": ", error));
    return "";
  }
  image.NotePicked(name);
  return name;
}

/// The image of the edited card, of that path, may lie where no game finds it.
void TellOfFarImage(const EditedImage& image, const std::string& path) {
  const Text name = State().EditCard.Picture;
  const std::string found = FindPicture(name, image.CardFolder);
  const FileSystem& files = Desktop().Files();
  if (found == path || (!found.empty() && files.Read(found) == files.Read(path))) return;
  Desktop().MessageBox(
      found.empty()
          ? Joined(name, " lies where no game looks for it.  Copy it into the game's folder.")
          : Joined("The game finds another ", name, ", in ", ParentFolder(found),
                   ".  Save this one under another name."));
}

/// The name that a card has for a picture which was chosen; a copy's where that is needed.
std::string NameOfChosen(KeptPictures& kept, const std::string& picture) {
  const std::string name = kept.Keep(picture);
  return name.empty() ? FileNameOf(picture) : name;
}

}  // namespace

void CardEdit::UpdatePic(int /*updateCardSurf*/) {
  Image.Redraw();
  ShowChanges();
}

void CardEdit::ShowImagesAfresh() {
  // Files of the same names have other pictures now.
  if (!State().EditCard.Picture.empty()) Image.ShowNothing();
  UpdatePic(1);
  PreviewNow();
}

void CardEdit::StoreComposedImage() {
  const bool chosen = !Image.ForeFile().empty();
  const bool composed = chosen && State().EditCard.Picture.empty();
  if (!Image.Store(Lists.Place())) return;
  if (composed) ListChanged();
  if (chosen) Edited.KeepImage();
  ShowChanges();
}

void CardEdit::MainPic_Click() {
  if (!State().EditCard.Picture.empty() &&
      !Desktop().AskYesNo(
          "This card already has an image file saved.  Do you want to make a new one?")) {
    UpdatePic(1);
    return;
  }
  Image.ChooseForeground([this] { return PickPicture(Image, "", true); }, false);
  ShowChanges();
  PreviewSoon();
}

void CardEdit::Command3_Click() {
  std::string file = PickRandomFile(ThePicPick().Folder(), "*.jpg");
  if (file.empty()) {
    Desktop().MessageBox(Joined("There is no .jpg picture in ", ThePicPick().Folder(), "."));
    return;
  }
  Image.ChooseForeground([&file] { return file; }, true);
  ShowChanges();
  PreviewSoon();
}

void CardEdit::loadbackmen_Click() {
  const std::string file = PickPicture(Image, "", false);
  if (file.empty()) return;
  Image.ChooseBackground(file);
  UpdatePic(1);
  PreviewSoon();
}

void CardEdit::loadminimen_Click() {
  const std::string file = PickPicture(Image, "", false);
  if (file.empty()) return;
  Image.MiniBorderFile = file;
  UpdatePic(1);
}

void CardEdit::loadgraphicmen_Click() {
  const std::string picture = PickPicture(Image, "Choose the main card pic.", false);
  if (picture.empty()) return;
  Card& card = State().EditCard;
  KeptPictures kept(Image.Folder());
  card.Picture = NameOfChosen(kept, picture);
  const std::string thumb = PickPicture(Image, "Choose the thumbnail pic.", false);
  if (!thumb.empty()) card.Thumb = NameOfChosen(kept, thumb);
  UpdatePic(1);
  // What was chosen is seen wherever it lies.
  Image.Show({.File = picture}, thumb.empty() ? Image.Mini() : ShownPicture{.File = thumb});
  Image.TellOf(kept);
  PreviewSoon();
}

void CardEdit::saveimagemen_Click() {
  if (Image.Main().Empty()) {
    Desktop().MessageBox("There is no image to save.");
    return;
  }
  const auto path =
      Desktop().AskFile({.Save = true, .FileName = "*.jpg", .DefaultExtension = "jpg"});
  if (!path || !Image.SaveAs(*path)) return;
  UpdatePic(1);
  TellOfFarImage(Image, *path);
  PreviewSoon();
}

}  // namespace brindlemoor

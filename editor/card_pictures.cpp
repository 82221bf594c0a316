// The card editor: the images of the edited card, shown, composed, chosen and saved.
#include <memory>
#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "editor/card_edit.h"
#include "editor/editor_forms.h"
#include "editor/image_recipes.h"
#include "editor/picture_files.h"
#include "images/card_images.h"

namespace brindlemoor {

namespace {

void ShowFile(PictureBox& box, const std::string& path) {
  box.Picture = path;
  box.Drawing = nullptr;
}

void ShowDrawing(PictureBox& box, Raster drawing) {
  box.Picture = "";
  box.Drawing = drawing.Empty() ? nullptr : std::make_shared<const Raster>(std::move(drawing));
}

void ShowPicture(PictureBox& box, const Text& name, const std::string& cardFolder) {
  const std::string path = FindPicture(name, cardFolder);
  if (!path.empty() || name.empty()) ShowFile(box, path);
}

bool ShowsImage(const PictureBox& box) {
  return box.Drawing.Get() != nullptr || !box.Picture.Get().empty();
}

/// A picture of which a missing file is an empty one.
Raster ReadPart(const std::string& path) {
  std::string error;
  return path.empty() ? Raster() : ReadPicture(path, error).value_or(Raster());
}

bool WriteOrTell(const PictureBox& box, const std::string& file, int quality) {
  const std::string error = WritePicture(box, file, quality);
  if (error.empty()) return true;
  Desktop().MessageBox(Joined("Can't save ", FileNameOf(file), ": ", error));
  return false;
}

}  // namespace

bool CardEdit::SaveImage(const std::string& filen) {
  return WriteOrTell(MainPic, filen, kMainQuality);
}

bool CardEdit::SaveMini(const std::string& filen) {
  return WriteOrTell(MiniPic, filen, kMiniQuality);
}

void CardEdit::UpdatePic(int /*updateCardSurf*/) {
  RedrawImages();
  ShowChanges();
}

bool CardEdit::RedrawImages() {
  EnterProgramFolder();
  MainPic.Visible = true;
  MiniPic.Visible = true;
  const Card& card = State().EditCard;
  if (card.Picture.empty() && !ForeFile.empty()) return ComposeImages();
  composedOf_.clear();
  if (card.Picture.empty()) {
    const Raster background = ReadPart(FindPart(BackFile));
    ShowDrawing(MainPic, background.Empty() ? Raster() : MainSurface(background));
    ShowDrawing(MiniPic, Raster());
  } else {
    ShowPicture(MainPic, card.Picture, CardFolder);
    ShowPicture(MiniPic, card.Thumb, CardFolder);
  }
  return true;
}

bool CardEdit::ComposeImages() {
  std::string error;
  const auto foreground = ReadPicture(ForeFile, error);
  CropCoordinates crop = State().Crop;
  if (foreground) {
    CompleteCrop(crop, *foreground);
    if (!IsUsable(crop)) error = "the chosen piece of it is empty";
  }
  if (!foreground || !error.empty()) {
    // Once, not with every colour or background that is tried.
    if (std::exchange(unusable_, ForeFile) == ForeFile) return false;
    Desktop().MessageBox(Joined("Can't use ", FileNameOf(ForeFile), ": ", error));
    return false;
  }
  TellOfMissingBackground();
  State().Crop = crop;
  Raster main = MainSurface(ReadPart(FindPart(BackFile)));
  Raster mini(kMiniSize, kMiniSize);
  DrawCardImages(*foreground, crop, FrameColor, ReadPart(FindPart(MiniBorderFile)), main, mini);
  ShowDrawing(MainPic, std::move(main));
  ShowDrawing(MiniPic, std::move(mini));
  composedOf_ = ForeFile;
  unusable_.clear();
  State().CurrentFolder = ImageFolder();
  return true;
}

void CardEdit::TellOfMissingBackground() {
  if (BackFile.empty() || !FindPart(BackFile).empty()) return;
  // Once, not with every drawing.
  if (std::exchange(missing_, BackFile) == BackFile) return;
  Desktop().MessageBox(
      Joined("The background ", FileNameOf(BackFile), " is not there; the image has a black one."));
}

std::string CardEdit::FindPart(const std::string& name) const {
  // A name out of a file leads nowhere else; what the user chose is taken wherever it lies.
  if (picked_.contains(name) && Desktop().Files().Exists(name)) return name;
  return FindPicture(name, CardFolder);
}

void CardEdit::ClearImages() {
  ShowFile(MainPic, "");
  ShowFile(MiniPic, "");
}

void CardEdit::ShowImagesAfresh() {
  // Files of the same names have other pictures now.
  if (!State().EditCard.Picture.empty()) ClearImages();
  UpdatePic(1);
  PreviewNow();
}

std::string CardEdit::ImageFolder() const {
  return CardFolder.empty() ? Joined(State().ProgramFolder, "/") : CardFolder;
}

CardEdit::ImageChoice CardEdit::PresentImage() const {
  const Card& card = State().EditCard;
  return {card.Picture, card.Thumb, ForeFile, State().Crop};
}

void CardEdit::ForgetForeground() {
  ForeFile.clear();
  composedOf_.clear();
  unusable_.clear();
  replaced_ = {};
}

void CardEdit::DropFinishedImage() {
  Card& card = State().EditCard;
  if (!card.Picture.empty()) replaced_ = PresentImage();
  card.Picture = Text();
  card.Thumb = Text();
}

void CardEdit::TakeForeground(const ImageChoice& before) {
  unusable_.clear();
  if (ForeFile.empty() || !RedrawImages()) {
    State().EditCard.Picture = before.Picture;
    State().EditCard.Thumb = before.Thumb;
    State().Crop = before.Crop;
    ForeFile = before.Foreground;
    RedrawImages();
  }
  ShowChanges();
  PreviewSoon();
}

std::string CardEdit::PickPicture(std::string_view prompt, bool withCrop) {
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
  picked_.insert(name);
  return name;
}

void CardEdit::MainPic_Click() {
  if (!State().EditCard.Picture.empty() &&
      !Desktop().AskYesNo(
          "This card already has an image file saved.  Do you want to make a new one?")) {
    UpdatePic(1);
    return;
  }
  const ImageChoice before = PresentImage();
  DropFinishedImage();
  State().Crop = {};
  ForeFile = PickPicture("", true);
  TakeForeground(before);
}

void CardEdit::loadformen_Click() { MainPic_Click(); }

void CardEdit::Command3_Click() {
  std::string file = PickRandomFile(ThePicPick().Folder(), "*.jpg");
  if (file.empty()) return;
  const ImageChoice before = PresentImage();
  ForeFile = std::move(file);
  State().Crop = {};
  TakeForeground(before);
}

void CardEdit::loadbackmen_Click() {
  const std::string file = PickPicture("", false);
  if (file.empty()) return;
  DropFinishedImage();
  BackFile = file;
  UpdatePic(1);
  PreviewSoon();
}

void CardEdit::loadminimen_Click() {
  const std::string file = PickPicture("", false);
  if (file.empty()) return;
  MiniBorderFile = file;
  UpdatePic(1);
}

void CardEdit::loadgraphicmen_Click() {
  const std::string picture = PickPicture("Choose the main card pic.", false);
  if (picture.empty()) return;
  Card& card = State().EditCard;
  card.Picture = FileNameOf(picture);
  const std::string thumb = PickPicture("Choose the thumbnail pic.", false);
  if (!thumb.empty()) card.Thumb = FileNameOf(thumb);
  UpdatePic(1);
  // What was chosen is seen wherever it lies.
  ShowFile(MainPic, picture);
  if (!thumb.empty()) ShowFile(MiniPic, thumb);
  TellOfFarImage();
  PreviewSoon();
}

void CardEdit::saveimagemen_Click() {
  if (!ShowsImage(MainPic)) {
    Desktop().MessageBox("There is no image to save.");
    return;
  }
  const auto path =
      Desktop().AskFile({.Save = true, .FileName = "*.jpg", .DefaultExtension = "jpg"});
  if (!path || !SaveImage(*path)) return;
  Card& card = State().EditCard;
  const std::string file = FileNameOf(*path);
  if (HasComposedImage() && *path == ImageFolder() + file) RecordRecipe(file);
  card.Picture = file;
  const std::string mini = MiniOf(*path);
  if (ShowsImage(MiniPic) && SaveMini(mini)) card.Thumb = mini;
  UpdatePic(1);
  TellOfFarImage();
  PreviewSoon();
}

void CardEdit::TellOfFarImage() const {
  const Card& card = State().EditCard;
  if (!FindPicture(card.Picture, CardFolder).empty()) return;
  Desktop().MessageBox(Joined(
      card.Picture.View(), " lies where no game looks for it.  Copy it into the game's folder."));
}

bool CardEdit::HasComposedImage() const {
  return !ForeFile.empty() && composedOf_ == ForeFile && State().EditCard.Picture.empty();
}

bool CardEdit::MayLeaveImage() const {
  return !HasComposedImage() ||
         Desktop().AskYesNo("The new image is in no file.  Go on without it?");
}

void CardEdit::KeepReplacedImage(Card& card) const {
  if (ForeFile.empty() || !card.Picture.empty()) return;
  card.Picture = replaced_.Picture;
  card.Thumb = replaced_.Thumb;
}

void CardEdit::StoreComposedImage() {
  if (!ForeFile.empty() && State().EditCard.Picture.empty()) {
    if (!HasComposedImage() && !ComposeImages()) return;
    if (!WriteComposedImage()) return;
  }
  if (!ForeFile.empty()) history_.KeepImage(State().EditCard);
  ForgetForeground();
  ShowChanges();
}

bool CardEdit::WriteComposedImage() {
  Card& card = State().EditCard;
  if (BackFile.empty()) {
    Desktop().MessageBox("The image is not saved: choose a background image first.");
    return false;
  }
  const std::string main = CardImageName(card.UniqueID, kMainEnding);
  if (!MayReplaceImage(main)) return false;
  State().CurrentFolder = ImageFolder();
  const std::string mini = CardImageName(card.UniqueID, kMiniEnding);
  if (!SaveImage(main) || !SaveMini(mini)) return false;
  RecordRecipe(main);
  card.Picture = main;
  card.Thumb = mini;
  ListChanged();
  return true;
}

bool CardEdit::MayReplaceImage(const std::string& file) const {
  const Pile& cards = State().Collection;
  for (int index = 1; index <= cards.UpperBound(); ++index) {
    const Card& other = cards[index];
    if (index == CurrentIndex || IsFree(other) || other.Picture != file ||
        other.UniqueID == State().EditCard.UniqueID) {
      continue;
    }
    return Desktop().AskYesNo(
        Joined(file, " is the image of ", other.Name.View(), " too.  Replace it?"));
  }
  return true;
}

std::string CardEdit::RecordedPart(const std::string& name) const {
  const std::string found = FindPart(name);
  return found == FindPicture(name, CardFolder) ? FileNameOf(name) : found;
}

void CardEdit::RecordRecipe(const std::string& file) const {
  ImageRecipes recipes(ImageFolder());
  recipes.Set({file, ForeFile, RecordedPart(BackFile), RecordedPart(MiniBorderFile), State().Crop});
  const std::string error = recipes.Write();
  if (error.empty()) return;
  Desktop().MessageBox(Joined("Can't save ", ImageRecipes::kFileName, ": ", error));
}

}  // namespace brindlemoor

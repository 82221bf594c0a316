// Composing the images of the edited card, and writing them with the recipe of what they are made.
#include "editor/edited_image.h"

#include <optional>
#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "editor/image_recipes.h"
#include "images/card_images.h"

namespace brindlemoor {

namespace {

/// A picture of which a missing file is an empty one.
Raster ReadPart(const std::string& path) {
  std::string error;
  return path.empty() ? Raster() : ReadPicture(path, error).value_or(Raster());
}

bool WriteOrTell(const ShownPicture& picture, const std::string& file, int quality) {
  const std::string error = WritePicture(picture, file, quality);
  if (error.empty()) return true;
  Desktop().MessageBox(Joined("Can't save ", FileNameOf(file), ": ", error));
  return false;
}

/// Asks when the file is the image of a card in another place too.
bool MayReplaceImage(const std::string& file, int place) {
  const Pile& cards = State().Collection;
  for (int index = 1; index <= cards.UpperBound(); ++index) {
    const Card& other = cards[index];
    if (index == place || IsFree(other) || other.Picture != file ||
        other.UniqueID == State().EditCard.UniqueID) {
      continue;
    }
    return Desktop().AskYesNo(
        Joined(file, " is the image of ", other.Name.View(), " too.  Replace it?"));
  }
  return true;
}

}  // namespace

std::int32_t EditedImage::FrameColor() { return FrameColorOf(State().EditCard.NameColor); }

void EditedImage::Begin() {
  ForgetForeground();
  BackFile = "backs-generic.bmp";
  MiniBorderFile.clear();
  CardFolder.clear();
}

void EditedImage::ForgetForeground() {
  foreground_.clear();
  composedOf_.clear();
  unusable_.clear();
  replaced_ = {};
}

void EditedImage::Show(ShownPicture main, ShownPicture mini) {
  main_ = std::move(main);
  mini_ = std::move(mini);
  Changed();
}

ShownPicture EditedImage::Finished(const Text& name, const ShownPicture& present) const {
  std::string path = FindPicture(name, CardFolder);
  return path.empty() && !name.empty() ? present : ShownPicture{.File = std::move(path)};
}

bool EditedImage::Redraw() {
  EnterProgramFolder();
  const Card& card = State().EditCard;
  if (IsComposed()) return Compose();
  composedOf_.clear();
  if (card.Picture.empty()) {
    const Raster background = ReadPart(FindPart(BackFile));
    Show(Drawn(background.Empty() ? Raster() : MainSurface(background)), {});
  } else {
    ShownPicture main = Finished(card.Picture, main_);
    Show(std::move(main), Finished(card.Thumb, mini_));
  }
  return true;
}

bool EditedImage::Compose() {
  std::string error;
  const auto foreground = ReadPicture(foreground_, error);
  CropCoordinates crop = State().Crop;
  if (foreground) {
    CompleteCrop(crop, *foreground);
    if (!IsUsable(crop)) error = "the chosen piece of it is empty";
  }
  if (!foreground || !error.empty()) {
    // Once, not with every colour or background that is tried.
    if (std::exchange(unusable_, foreground_) == foreground_) return false;
    Desktop().MessageBox(Joined("Can't use ", FileNameOf(foreground_), ": ", error));
    return false;
  }
  TellOfMissingBackground();
  State().Crop = crop;
  Raster main = MainSurface(ReadPart(FindPart(BackFile)));
  Raster mini(kMiniSize, kMiniSize);
  DrawCardImages(*foreground, crop, FrameColor(), ReadPart(FindPart(MiniBorderFile)), main, mini);
  Show(Drawn(std::move(main)), Drawn(std::move(mini)));
  composedOf_ = foreground_;
  unusable_.clear();
  State().CurrentFolder = Folder();
  return true;
}

void EditedImage::TellOfMissingBackground() {
  if (BackFile.empty() || !FindPart(BackFile).empty()) return;
  // Once, not with every drawing.
  if (std::exchange(missing_, BackFile) == BackFile) return;
  Desktop().MessageBox(
      Joined("The background ", FileNameOf(BackFile), " is not there; the image has a black one."));
}

bool EditedImage::IsComposed() const {
  return !foreground_.empty() && State().EditCard.Picture.empty();
}

EditedImage::Choice EditedImage::Present() const {
  const Card& card = State().EditCard;
  return {card.Picture, card.Thumb, foreground_, State().Crop};
}

void EditedImage::DropFinished() {
  Card& card = State().EditCard;
  if (!card.Picture.empty()) replaced_ = Present();
  card.Picture = Text();
  card.Thumb = Text();
}

void EditedImage::ChooseForeground(const std::function<std::string()>& pick, bool finishedStays) {
  const Choice before = Present();
  if (!finishedStays) DropFinished();
  State().Crop = {};
  foreground_ = pick();
  unusable_.clear();
  if (!foreground_.empty() && Redraw()) return;
  State().EditCard.Picture = before.Picture;
  State().EditCard.Thumb = before.Thumb;
  State().Crop = before.Crop;
  foreground_ = before.Foreground;
  Redraw();
}

void EditedImage::ChooseBackground(const std::string& file) {
  DropFinished();
  BackFile = file;
}

bool EditedImage::IsUnsaved() const { return IsComposed() && composedOf_ == foreground_; }

bool EditedImage::MayLeave() const {
  return !IsUnsaved() || Desktop().AskYesNo("The new image is in no file.  Go on without it?");
}

void EditedImage::KeepReplaced(Card& card) const {
  if (foreground_.empty() || !card.Picture.empty()) return;
  card.Picture = replaced_.Picture;
  card.Thumb = replaced_.Thumb;
}

void EditedImage::GoOn(Card& kept) const {
  if (!IsComposed()) return;
  kept.Picture = Text();
  kept.Thumb = Text();
}

bool EditedImage::Store(int place) {
  if (IsComposed()) {
    if (!IsUnsaved() && !Compose()) return false;
    if (!Write(place)) return false;
  }
  ForgetForeground();
  return true;
}

bool EditedImage::Write(int place) {
  Card& card = State().EditCard;
  if (BackFile.empty()) {
    Desktop().MessageBox("The image is not saved: choose a background image first.");
    return false;
  }
  const std::string main = CardImageName(card.UniqueID, kMainEnding);
  if (!MayReplaceImage(main, place)) return false;
  State().CurrentFolder = Folder();
  const std::string mini = CardImageName(card.UniqueID, kMiniEnding);
  if (!SaveImage(main) || !SaveMini(mini)) return false;
  RecordRecipe(main);
  card.Picture = main;
  card.Thumb = mini;
  return true;
}

bool EditedImage::SaveAs(const std::string& path) {
  if (!SaveImage(path)) return false;
  Card& card = State().EditCard;
  const std::string file = FileNameOf(path);
  if (IsUnsaved() && path == Folder() + file) RecordRecipe(file);
  card.Picture = file;
  const std::string mini = MiniOf(path);
  if (!mini_.Empty() && SaveMini(mini)) card.Thumb = FileNameOf(mini);
  return true;
}

bool EditedImage::SaveImage(const std::string& file) const {
  return WriteOrTell(main_, file, kMainQuality);
}

bool EditedImage::SaveMini(const std::string& file) const {
  return WriteOrTell(mini_, file, kMiniQuality);
}

std::string EditedImage::Folder() const {
  return CardFolder.empty() ? Joined(State().ProgramFolder, "/") : CardFolder;
}

std::string EditedImage::FindPart(const std::string& name) const {
  // A name out of a file leads nowhere else; what the user chose is taken wherever it lies.
  if (picked_.contains(name) && Desktop().Files().Exists(name)) return name;
  return FindPicture(name, CardFolder);
}

std::string EditedImage::KeepPart(KeptPictures& kept, std::string& part) const {
  const std::string found = FindPart(part);
  if (found.empty()) return FileNameOf(part);
  std::string name = kept.Keep(found);
  if (!name.empty()) part = name;
  return name;
}

void EditedImage::TellOf(const KeptPictures& kept) const {
  const std::string copied = kept.Copied();
  if (OnNote && !copied.empty()) OnNote(copied);
  if (kept.HasFailed()) Desktop().MessageBox(kept.Problem());
}

bool EditedImage::KeepParts() {
  KeptPictures kept(Folder());
  KeepPart(kept, BackFile);
  KeepPart(kept, MiniBorderFile);
  TellOf(kept);
  return !kept.HasFailed();
}

void EditedImage::RecordRecipe(const std::string& file) {
  KeptPictures kept(Folder());
  const ImageRecipe recipe{.File = file,
                           .Foreground = kept.Keep(foreground_),
                           .Background = KeepPart(kept, BackFile),
                           .Border = KeepPart(kept, MiniBorderFile),
                           .Crop = State().Crop};
  TellOf(kept);
  ImageRecipes recipes(Folder());
  // Parts that could not be kept can't be found again; those of an earlier image are none of this.
  if (kept.HasFailed() && !recipes.Forget(file)) return;
  if (!kept.HasFailed()) recipes.Set(recipe);
  const std::string error = recipes.Write();
  if (error.empty()) return;
  Desktop().MessageBox(Joined("Can't save ", ImageRecipes::kFileName, ": ", error));
}

}  // namespace brindlemoor

// The card editor: composing the images of all cards of the list again.
#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "core/cards.h"
#include "core/paths.h"
#include "core/state.h"
#include "editor/card_edit.h"
#include "editor/image_recipes.h"
#include "editor/picture_files.h"
#include "images/card_images.h"
#include "images/folder_pictures.h"
#include "platform/platform.h"
#include "ui/forms.h"

namespace brindlemoor {

namespace {

std::string ShownPart(const std::string& name) {
  return name.empty() ? std::string("(none)") : FileNameOf(name);
}

/// A background or border, read once for many cards: no more of it than is drawn.
struct PartPicture {
  std::string File;
  Raster Picture;
};

/// As much of a border picture as a thumbnail takes.
Raster BorderCorner(const Raster& border) {
  constexpr int kSide = kMiniSize + 1;
  Raster corner(std::min(border.Width(), kSide), std::min(border.Height(), kSide));
  for (int y = 0; y < corner.Height(); ++y) {
    std::copy_n(border.Row(y), corner.Width(), corner.Row(y));
  }
  return corner;
}

bool LiesWithin(const CropCoordinates& crop, const Raster& picture) {
  return crop.MainX1 >= 0 && crop.MainY1 >= 0 && crop.MiniX1 >= 0 && crop.MiniY1 >= 0 &&
         crop.MainX2 <= picture.Width() && crop.MiniX2 <= picture.Width() &&
         crop.MainY2 <= picture.Height() && crop.MiniY2 <= picture.Height();
}

/// Composes the images of one card at a time, into the files that they have.
class Composer {
 public:
  explicit Composer(std::string folder) : folder_(std::move(folder)), recipes_(folder_) {}

  const ImageRecipe* RecipeOf(const Card& card) const {
    return recipes_.Find(FileNameOf(card.Picture));
  }
  /// The cards that have recipes, one for each image: that whose unique ID names it, else the
  /// first.
  std::vector<int> CardsToCompose(const Pile& cards);
  /// Takes these, found files or "", in place of the recipes' own; names has what is recorded of
  /// them. False if they can't be read.
  bool TakeParts(const std::string& background, const std::string& border, ImageRecipe names);
  void Compose(const Card& card);
  std::string Report() const;
  std::string WriteRecipes() const { return recipes_.Write(); }

 private:
  /// A file of a recipe; "" when it is gone or no picture.
  std::string Find(const std::string& name, bool byName) const;
  bool ReadPart(PartPicture& part, const std::string& file);
  bool Read(const ImageRecipe& recipe, Raster& foreground, CropCoordinates& crop);
  bool Write(Raster drawing, const std::string& file, int quality);

  std::string folder_;
  ImageRecipes recipes_;
  std::optional<ImageRecipe> taken_;
  PartPicture background_;
  PartPicture border_;
  int composed_ = 0;
  int withoutRecipe_ = 0;
  ShortList failed_;
};

std::vector<int> Composer::CardsToCompose(const Pile& cards) {
  std::map<std::string, int> byImage;
  for (int index = 1; index <= cards.UpperBound(); ++index) {
    const Card& card = cards[index];
    if (IsFree(card)) continue;
    const ImageRecipe* recipe = RecipeOf(card);
    if (recipe == nullptr) {
      ++withoutRecipe_;
      continue;
    }
    const auto [entry, fresh] = byImage.emplace(recipe->File, index);
    if (!fresh && CardImageName(card.UniqueID, kMainEnding) == recipe->File) entry->second = index;
  }
  std::vector<int> chosen;
  chosen.reserve(byImage.size());
  for (const auto& [image, index] : byImage) chosen.push_back(index);
  return chosen;
}

std::string Composer::Find(const std::string& name, bool byName) const {
  if (!IsPictureName(name)) return "";
  std::string full = name.starts_with('/') && Desktop().Files().Exists(name) ? name : std::string();
  if (!byName && !full.empty()) return full;
  std::string found = FindPicture(name, folder_);
  return found.empty() ? full : found;
}

bool Composer::ReadPart(PartPicture& part, const std::string& file) {
  if (part.File == file) return true;
  part = {};
  if (file.empty()) return true;
  std::string error;
  auto picture = ReadPicture(file, error);
  if (!picture) return false;
  part = {file, &part == &background_ ? MainSurface(*picture) : BorderCorner(*picture)};
  return true;
}

bool Composer::TakeParts(const std::string& background, const std::string& border,
                         ImageRecipe names) {
  taken_ = std::move(names);
  return ReadPart(background_, background) && ReadPart(border_, border);
}

bool Composer::Read(const ImageRecipe& recipe, Raster& foreground, CropCoordinates& crop) {
  std::string error;
  const std::string file = Find(recipe.Foreground, false);
  auto picture = file.empty() ? std::nullopt : ReadPicture(file, error);
  if (picture) CompleteCrop(crop, *picture);
  if (!picture || !IsUsable(crop) || !LiesWithin(crop, *picture)) {
    failed_.Add(FileNameOf(recipe.Foreground));
    return false;
  }
  foreground = std::move(*picture);
  if (taken_) return true;
  for (auto [part, name] :
       {std::pair(&background_, &recipe.Background), std::pair(&border_, &recipe.Border)}) {
    const std::string path = name->empty() ? "" : Find(*name, true);
    if (path.empty() != name->empty() || !ReadPart(*part, path)) {
      failed_.Add(FileNameOf(*name));
      return false;
    }
  }
  return true;
}

bool Composer::Write(Raster drawing, const std::string& file, int quality) {
  PictureBox box("MainPic");
  box.Drawing = std::make_shared<const Raster>(std::move(drawing));
  if (WritePicture(box, folder_ + file, quality).empty()) return true;
  failed_.Add(file);
  return false;
}

void Composer::Compose(const Card& card) {
  ImageRecipe recipe = *RecipeOf(card);
  Raster foreground;
  if (!Read(recipe, foreground, recipe.Crop)) return;
  Raster main = MainSurface(background_.Picture);
  Raster mini(kMiniSize, kMiniSize);
  DrawCardImages(foreground, recipe.Crop, FrameColorOf(card.NameColor), border_.Picture, main,
                 mini);
  if (!Write(std::move(main), recipe.File, kMainQuality)) return;
  // A thumbnail of another make stays.
  const std::string miniFile = MiniOf(recipe.File);
  const bool hasMini = FileNameOf(card.Thumb) == miniFile;
  if (hasMini && !Write(std::move(mini), miniFile, kMiniQuality)) return;
  ++composed_;
  if (!taken_) return;
  recipe.Background = taken_->Background;
  recipe.Border = taken_->Border;
  recipes_.Set(recipe);
}

std::string Composer::Report() const {
  std::string report = Joined(CountText(composed_, "image"), " composed.");
  if (withoutRecipe_ > 0) {
    report += Joined("  No parts are recorded for ", CountText(withoutRecipe_, "card"), ".");
  }
  if (failed_.Count() > 0) report += Joined("  Not read or written: ", failed_.Told(), ".");
  return report;
}

}  // namespace

void CardEdit::composeallmen_Click() {
  StoreCurrentCard();
  Composer composer(ImageFolder());
  const Pile& cards = State().Collection;
  const std::vector<int> chosen = composer.CardsToCompose(cards);
  if (chosen.empty()) {
    Desktop().MessageBox("There is no card with an image whose parts are recorded.");
    return;
  }
  const int count = static_cast<int>(chosen.size());
  if (!Desktop().AskYesNo(Joined("Compose ", CountText(count, "image"),
                                 " anew?  The present ones are replaced."))) {
    return;
  }
  const bool take = Desktop().AskYesNo(
      Joined("Take the background ", ShownPart(BackFile), " and the thumbnail border ",
             ShownPart(MiniBorderFile), " for all of them, in place of each one's own?"));
  if (take) {
    const std::string back = FindPart(BackFile);
    const std::string border = FindPart(MiniBorderFile);
    const bool found = back.empty() == BackFile.empty() && border.empty() == MiniBorderFile.empty();
    const ImageRecipe names{.Background = RecordedPart(BackFile),
                            .Border = RecordedPart(MiniBorderFile)};
    if (!found || !composer.TakeParts(back, border, names)) {
      Desktop().MessageBox("The background or the border can't be read: nothing is composed.");
      return;
    }
  }
  ProgressForm& progress = TheProgressForm();
  progress.Run("Composing images", count, [&](int index) {
    const Card& card = cards[chosen[static_cast<std::size_t>(index)]];
    progress.What.Caption = card.Name.Str();
    composer.Compose(card);
  });
  std::string report = composer.Report();
  const std::string error = take ? composer.WriteRecipes() : std::string();
  if (!error.empty()) report += Joined("  Can't save ", ImageRecipes::kFileName, ": ", error, ".");
  ShowImagesAfresh();
  Desktop().MessageBox(report);
}

}  // namespace brindlemoor

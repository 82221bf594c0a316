// Composing images of recorded parts.
#include "editor/image_composer.h"

#include <algorithm>
#include <map>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/strings.h"
#include "images/folder_pictures.h"

namespace brindlemoor {

namespace {

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

}  // namespace

std::vector<int> ImageComposer::CardsToCompose(const Pile& cards) {
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

std::string ImageComposer::Find(const std::string& name) const {
  if (!IsPictureName(name)) return "";
  // A full path of an old list is that file, even where the game has another of its name.
  if (name.starts_with('/') && Desktop().Files().Exists(name)) return name;
  return FindPicture(name, folder_);
}

bool ImageComposer::ReadPart(PartPicture& part, const std::string& file) {
  if (part.File == file) return true;
  part = {};
  if (file.empty()) return true;
  std::string error;
  auto picture = ReadPicture(file, error);
  if (!picture) return false;
  part = {file, &part == &background_ ? MainSurface(*picture) : BorderCorner(*picture)};
  return true;
}

bool ImageComposer::TakeParts(const std::string& background, const std::string& border,
                              ImageRecipe names) {
  taken_ = std::move(names);
  return ReadPart(background_, background) && ReadPart(border_, border);
}

bool ImageComposer::Read(const ImageRecipe& recipe, Raster& foreground, CropCoordinates& crop) {
  std::string error;
  const std::string file = Find(recipe.Foreground);
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
    const std::string path = name->empty() ? "" : Find(*name);
    if (path.empty() != name->empty() || !ReadPart(*part, path)) {
      failed_.Add(FileNameOf(*name));
      return false;
    }
  }
  return true;
}

bool ImageComposer::Write(Raster drawing, const std::string& file, int quality) {
  if (WritePicture(Drawn(std::move(drawing)), folder_ + file, quality).empty()) return true;
  failed_.Add(file);
  return false;
}

void ImageComposer::Compose(const Card& card) {
  ImageRecipe recipe = *RecipeOf(card);
  Raster foreground;
  if (!Read(recipe, foreground, recipe.Crop)) return;
  if (taken_) {  // its line is written anew
    recipe.Foreground = kept_.Keep(Find(recipe.Foreground));
    if (recipe.Foreground.empty()) return failed_.Add(recipe.File);
  }
  Raster main = MainSurface(background_.Picture);
  Raster mini(kMiniSize, kMiniSize);
  DrawCardImages(foreground, recipe.Crop, FrameColorOf(card.NameColor), border_.Picture, main,
                 mini);
  if (!Write(std::move(main), recipe.File, mainQuality_)) return;
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

std::string ImageComposer::Report() const {
  std::string report = Joined(CountText(composed_, "image"), " composed.");
  if (withoutRecipe_ > 0) {
    report += Joined("  No parts are recorded for ", CountText(withoutRecipe_, "card"), ".");
  }
  if (failed_.Count() > 0) report += Joined("  Not read or written: ", failed_.Told(), ".");
  for (const std::string& told : {kept_.Copied(), kept_.Problem()}) {
    if (!told.empty()) report += "  " + told;
  }
  return report;
}

}  // namespace brindlemoor

// ImageComposer: the images of cards, composed again of their recorded parts.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/paths.h"
#include "core/records.h"
#include "editor/image_recipes.h"
#include "editor/kept_pictures.h"
#include "editor/picture_files.h"
#include "images/card_images.h"
#include "platform/raster.h"

namespace brindlemoor {

/// Composes the images of one card at a time, into the files that they have.
class ImageComposer {
 public:
  /// Of a folder with its separator. mainQuality is that of the large images.
  explicit ImageComposer(std::string folder, int mainQuality = kMainQuality)
      : folder_(std::move(folder)), mainQuality_(mainQuality), recipes_(folder_), kept_(folder_) {}

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
  int Composed() const { return composed_; }
  /// Images whose parts could not be read, or that could not be written.
  const ShortList& Failed() const { return failed_; }
  std::string WriteRecipes() const { return recipes_.Write(); }

 private:
  /// A background or border, read once for many cards: no more of it than is drawn.
  struct PartPicture {
    std::string File;
    Raster Picture;
  };

  /// A file of a recipe; "" when it is gone or no picture.
  std::string Find(const std::string& name) const;
  bool ReadPart(PartPicture& part, const std::string& file);
  bool Read(const ImageRecipe& recipe, Raster& foreground, CropCoordinates& crop);
  bool Write(Raster drawing, const std::string& file, int quality);

  std::string folder_;
  int mainQuality_;
  ImageRecipes recipes_;
  KeptPictures kept_;
  std::optional<ImageRecipe> taken_;
  PartPicture background_;
  PartPicture border_;
  int composed_ = 0;
  int withoutRecipe_ = 0;
  ShortList failed_;
};

}  // namespace brindlemoor

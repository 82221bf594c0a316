// ImageRecipes: what the composed images of a folder were made of.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/records.h"

namespace brindlemoor {

/// Parts are named without folders; lists of old name some by full paths.
struct ImageRecipe {
  std::string File{};  ///< name of the large image, without a folder
  std::string Foreground{};
  std::string Background{};  ///< "" for none, as is Border
  std::string Border{};
  CropCoordinates Crop{};
};

/// The file "CardImages.list" of a folder: a line for each composed image, the fields of its recipe
/// separated by tabs. Lines that are no recipe are kept as they are.
class ImageRecipes {
 public:
  static constexpr std::string_view kFileName = "CardImages.list";

  /// Of a folder with its separator. Without a file there are no recipes.
  explicit ImageRecipes(const std::string& folder);

  /// Nothing for an image that has none. The answer lives until the next Set.
  const ImageRecipe* Find(std::string_view file) const;
  /// Takes the place of the recipe for the same file. One that does not fit into a line is left
  /// out.
  void Set(const ImageRecipe& recipe);
  /// False where there was none.
  bool Forget(std::string_view file);
  /// Returns "" or what went wrong; then the old file is as it was.
  std::string Write() const;

 private:
  void Put(ImageRecipe recipe, std::string line);

  std::string path_;
  std::string problem_;             // why the file must not be written
  std::vector<std::string> lines_;  // those of recipes that another one replaced are empty
  struct Entry {
    std::size_t Line;
    ImageRecipe Recipe;
  };
  std::map<std::string, Entry, std::less<>> recipes_;
};

}  // namespace brindlemoor

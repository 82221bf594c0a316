// Reading and writing the list of recipes.
#include "editor/image_recipes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

#include "core/desktop.h"
#include "core/limits.h"
#include "core/paths.h"
#include "core/strings.h"

namespace brindlemoor {

namespace {

constexpr char kTab = '\t';

using Coordinate = std::int16_t CropCoordinates::*;
constexpr std::array<Coordinate, 8> kCoordinates = {
    &CropCoordinates::MainX1, &CropCoordinates::MainX2, &CropCoordinates::MainY1,
    &CropCoordinates::MainY2, &CropCoordinates::MiniX1, &CropCoordinates::MiniX2,
    &CropCoordinates::MiniY1, &CropCoordinates::MiniY2};

bool FitsInLine(std::string_view field) {
  return std::ranges::none_of(
      field, [](char character) { return static_cast<unsigned char>(character) < ' '; });
}

bool IsUsable(const ImageRecipe& recipe) {
  const bool plain = recipe.File != "." && recipe.File != ".." &&
                     recipe.File.find_first_of("/\\") == std::string::npos;
  return plain && !recipe.File.empty() && !recipe.Foreground.empty() && FitsInLine(recipe.File) &&
         FitsInLine(recipe.Foreground) && FitsInLine(recipe.Background) &&
         FitsInLine(recipe.Border);
}

std::optional<ImageRecipe> Parsed(std::string_view line) {
  FieldWalker fields(line, kTab);
  ImageRecipe recipe;
  for (std::string* text : {&recipe.File, &recipe.Foreground, &recipe.Background, &recipe.Border}) {
    *text = std::string(fields.Next());
  }
  for (const Coordinate coordinate : kCoordinates) {
    const std::string_view field = fields.Next();
    const char* end = field.data() + field.size();
    const auto [stop, error] = std::from_chars(field.data(), end, recipe.Crop.*coordinate);
    if (field.empty() || error != std::errc() || stop != end) return std::nullopt;
  }
  return fields.AtEnd() && IsUsable(recipe) ? std::optional(std::move(recipe)) : std::nullopt;
}

std::string LineOf(const ImageRecipe& recipe) {
  std::string line =
      Joined(recipe.File, kTab, recipe.Foreground, kTab, recipe.Background, kTab, recipe.Border);
  for (const Coordinate coordinate : kCoordinates) {
    line += Joined(kTab, int{recipe.Crop.*coordinate});
  }
  return line;
}

}  // namespace

ImageRecipes::ImageRecipes(const std::string& folder) : path_(Joined(folder, kFileName)) {
  FileSystem& files = Desktop().Files();
  if (!IsThere(files, path_)) return;
  const auto bytes = files.Read(path_);
  if (!bytes || bytes->size() > limits::kPageBytes) {
    problem_ = "the list that is there can't be read";
    return;
  }
  std::string_view rest = *bytes;
  if (rest.starts_with("\xEF\xBB\xBF")) rest.remove_prefix(3);
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (auto recipe = Parsed(line)) {
      Put(std::move(*recipe), std::string(line));
    } else if (!line.empty()) {
      lines_.emplace_back(line);
    }
  }
}

const ImageRecipe* ImageRecipes::Find(std::string_view file) const {
  const auto entry = recipes_.find(file);
  return entry == recipes_.end() ? nullptr : &entry->second.Recipe;
}

void ImageRecipes::Set(const ImageRecipe& recipe) {
  if (IsUsable(recipe)) Put(recipe, LineOf(recipe));
}

bool ImageRecipes::Forget(std::string_view file) {
  const auto known = recipes_.find(file);
  if (known == recipes_.end()) return false;
  lines_[known->second.Line].clear();
  recipes_.erase(known);
  return true;
}

void ImageRecipes::Put(ImageRecipe recipe, std::string line) {
  const std::string file = recipe.File;
  Forget(file);
  recipes_.insert_or_assign(file, Entry{lines_.size(), std::move(recipe)});
  lines_.push_back(std::move(line));
}

std::string ImageRecipes::Write() const {
  if (!problem_.empty()) return problem_;
  std::string text;
  for (const std::string& line : lines_) {
    if (!line.empty()) text += Joined(line, "\n");
  }
  return Desktop().Files().Write(path_, text);
}

}  // namespace brindlemoor

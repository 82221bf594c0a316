// The picture files of cards: what they are called, where they lie, reading and writing them.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/raster.h"
#include "text/text.h"

namespace brindlemoor {

inline constexpr std::string_view kMainEnding = ".jpg";
inline constexpr std::string_view kMiniEnding = "-mini.jpg";

/// A picture of the game, or one in the folder of the card file (with its separator); "" when there
/// is none.
std::string FindPicture(std::string_view name, const std::string& cardFolder);
/// The path of the thumbnail that belongs to a picture.
std::string MiniOf(const std::string& path);
/// The file that a composed image of a card is written to: "Card-", the unique ID and an ending,
/// without blanks. What would lead into another folder, or could not be linked to, is replaced.
std::string CardImageName(std::string_view uniqueId, std::string_view ending);

/// A colour text as a number with red high and blue low, 0 when it is none.
std::int32_t FrameColorOf(const Text& color);

/// The picture of a file (absolute, or in the current folder); on failure nothing and what went
/// wrong.
std::optional<Raster> ReadPicture(std::string_view file, std::string& error);
/// "" when a file begins like a picture that can be read, else what is wrong.
std::string CheckPicture(std::string_view file);

/// What a picture box shows: a file, or what was drawn.
struct ShownPicture {
  std::string File{};
  std::shared_ptr<const Raster> Drawing{};
  bool Empty() const { return File.empty() && Drawing == nullptr; }
};
/// A drawing to be shown; an empty one is none.
ShownPicture Drawn(Raster drawing);
/// Writes what is shown. Returns "" or what went wrong; then the old file is as it was.
std::string WritePicture(const ShownPicture& picture, std::string_view file, int quality);

/// Up to ten names, and how many more there were.
class ShortList {
 public:
  void Add(std::string_view name);
  int Count() const { return count_; }
  /// "a.jpg, b.jpg and 3 more".
  std::string Told() const;

 private:
  std::string names_;
  int count_ = 0;
};

}  // namespace brindlemoor

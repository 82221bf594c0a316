// Names, places, reading and writing of card pictures.
#include "editor/picture_files.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "core/desktop.h"
#include "core/paths.h"
#include "images/image_bridge.h"
#include "platform/controls.h"
#include "text/fold.h"
#include "text/hex_digits.h"

namespace brindlemoor {

namespace {

constexpr int kHexadecimal = 16;
constexpr std::uint32_t kColorBits = 0xFFFFFF;
constexpr int kToldNames = 10;
/// Characters that separate folders, or that pages and other systems take for something else.
constexpr std::string_view kNotInNames = "/\\:*?\"<>|#%";

bool FitsInName(std::string_view text, std::size_t at) {
  const char character = text[at];
  if (static_cast<unsigned char>(character) < ' ' || character == '\x7F') return false;
  const bool dots =
      character == '.' && (text.substr(at + 1).starts_with('.') || (at > 0 && text[at - 1] == '.'));
  return !dots && kNotInNames.find(character) == std::string_view::npos;
}

}  // namespace

std::string FindPicture(std::string_view name, const std::string& cardFolder) {
  if (name.empty()) return "";
  std::string path = ResolvePath(name, 0);
  if (!path.empty() || cardFolder.empty()) return path;
  const std::string file = FileNameOf(name);
  if (file.empty() || file == "." || file == "..") return "";
  path = cardFolder + file;
  return Desktop().Files().Exists(path) ? path : std::string();
}

std::string MiniOf(const std::string& path) {
  const std::size_t dot = path.rfind('.');
  const std::size_t end = dot == std::string::npos ? path.size() : dot;
  return path.substr(0, end) + "-mini" + path.substr(end);
}

std::string CardImageName(std::string_view uniqueId, std::string_view ending) {
  std::string id(uniqueId);
  std::erase(id, ' ');
  std::string name = "Card-";
  for (std::size_t at = 0; at < id.size(); ++at) {
    if (FitsInName(id, at)) {
      name += id[at];
    } else {
      AppendHex(name += '_', static_cast<unsigned char>(id[at]), kLargeHexDigits);
    }
  }
  return name.append(ending);
}

std::int32_t FrameColorOf(const Text& color) {
  std::string digits = color.Str();
  std::erase(digits, '#');
  std::uint32_t value = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, value, kHexadecimal);
  return error == std::errc() && stop == end ? static_cast<std::int32_t>(value & kColorBits) : 0;
}

std::optional<Raster> ReadPicture(std::string_view file, std::string& error) {
  cGdiPlus bridge([&error](int, const std::string& text) { error = text; });
  return bridge.FilenameToIPicture(file);
}

std::string CheckPicture(std::string_view file) {
  std::string error;
  cGdiPlus bridge([&error](int, const std::string& text) { error = text; });
  bridge.SizeOfFile(file);
  return error;
}

ShownPicture Drawn(Raster drawing) {
  if (drawing.Empty()) return {};
  return {.Drawing = std::make_shared<const Raster>(std::move(drawing))};
}

std::string WritePicture(const ShownPicture& picture, std::string_view file, int quality) {
  PictureBox box("MainPic");
  box.Picture = picture.File;
  box.Drawing = picture.Drawing;
  std::string error;
  cGdiPlus bridge([&error](int, const std::string& text) { error = text; });
  if (bridge.PictureBoxToFile(box, file, quality)) return "";
  return error.empty() ? "pictures are not written to files of this kind" : error;
}

void ShortList::Add(std::string_view name) {
  if (count_++ >= kToldNames) return;
  if (!names_.empty()) names_ += ", ";
  names_ += name;
}

std::string ShortList::Told() const {
  return count_ <= kToldNames ? names_ : Joined(names_, " and ", count_ - kToldNames, " more");
}

}  // namespace brindlemoor

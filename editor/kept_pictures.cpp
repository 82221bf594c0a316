// Copying pictures to where their names lead to them.
#include "editor/kept_pictures.h"

#include <algorithm>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/strings.h"

namespace brindlemoor {

namespace {

constexpr int kMostOfOneName = 1000;

/// Lists are files of lines.
std::string WithoutControls(std::string name) {
  std::ranges::replace_if(
      name, [](char character) { return static_cast<unsigned char>(character) < ' '; }, '_');
  return name;
}

std::string Numbered(const std::string& name, int number) {
  if (number == 1) return name;
  const std::size_t end = std::min(name.rfind('.'), name.size());
  return Joined(name.substr(0, end), "-", number, name.substr(end));
}

}  // namespace

std::string KeptPictures::NameFor(const std::string& name, const std::string& bytes) const {
  for (int number = 1; number <= kMostOfOneName; ++number) {
    std::string tried = Numbered(name, number);
    const std::string found = FindPicture(tried, folder_);
    const bool isFree = found.empty() && !IsThere(Desktop().Files(), folder_ + tried);
    if (isFree || (!found.empty() && Desktop().Files().Read(found) == bytes)) return tried;
  }
  return "";
}

std::string KeptPictures::Fail(const std::string& name, std::string_view error) {
  if (problem_.empty()) problem_ = Joined("Can't copy ", name, " beside the cards: ", error, ".");
  return "";
}

std::string KeptPictures::Keep(const std::string& path) {
  std::string own = FileNameOf(path);
  const std::string plain = WithoutControls(own);
  if (plain == own && FindPicture(own, folder_) == path) return own;
  const auto bytes = Desktop().Files().Read(path);
  if (!bytes) return Fail(own, "it can't be read");
  std::string name = NameFor(plain, *bytes);
  if (name.empty()) return Fail(own, "no name for it is free");
  if (!FindPicture(name, folder_).empty()) return name;
  const std::string error = Desktop().Files().Write(folder_ + name, *bytes);
  if (!error.empty()) return Fail(own, error);
  copied_.Add(name == own ? own : Joined(own, " as ", name));
  return name;
}

std::string KeptPictures::Copied() const {
  if (copied_.Count() == 0) return "";
  return Joined("Copied beside the cards, where the game finds it: ", copied_.Told(), ".");
}

}  // namespace brindlemoor

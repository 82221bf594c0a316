// Keeping, offering and removing the copy of unsaved changes.
#include "editor/unsaved_copy.h"

#include "core/desktop.h"
#include "core/paths.h"
#include "data/saving.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kUntitled = "Untitled.txt";
constexpr int kPutAside = 9;  // copies that were not wanted, for each file

std::string FullPath(std::string_view cardFile) {
  return cardFile.empty() ? InProgramFolder(kUntitled) : InCurrentFolder(cardFile);
}

/// "cards-unsaved-2.txt" for "cards.txt".
std::string AsidePath(std::string_view cardFile, int number) {
  const std::string path = FullPath(cardFile);
  const std::size_t name = path.size() - FileNameOf(path).size();
  const std::size_t dot = path.rfind('.');
  const std::size_t end = dot == std::string::npos || dot <= name ? path.size() : dot;
  return Joined(path.substr(0, end), "-unsaved-", number, path.substr(end));
}

}  // namespace

std::string UnsavedCopy::PathOf(std::string_view cardFile) {
  return Joined(FullPath(cardFile), ".unsaved");
}

std::string UnsavedCopy::Offer(std::string_view cardFile) {
  *this = {};
  FileSystem& files = Desktop().Files();
  std::string copy = PathOf(cardFile);
  const auto bytes = files.Read(copy);
  if (bytes && !cardFile.empty() && files.Read(FullPath(cardFile)) == bytes) {
    own_ = HashOf(*bytes);
  } else if (bytes) {
    const bool isWanted =
        Desktop().AskYesNo(Joined("There is a copy of unsaved changes to ",
                                  FileNameOf(FullPath(cardFile)), ".  Open it instead?"));
    if (isWanted) own_ = HashOf(*bytes);
    if (isWanted) return copy;
  }
  return std::string(cardFile);
}

bool UnsavedCopy::IsOwn(const std::optional<std::string>& bytes) const {
  return bytes && !own_.empty() && HashOf(*bytes) == own_;
}

std::string UnsavedCopy::MakeRoom(std::string_view cardFile) const {
  FileSystem& files = Desktop().Files();
  const std::string copy = PathOf(cardFile);
  const auto bytes = files.Read(copy);
  // Another program may have put its own there, or the one before could not be removed.
  if (!bytes || IsOwn(bytes)) return "";
  // A copy of what was saved says nothing new, and none is kept twice.
  bool kept = files.Read(FullPath(cardFile)) == bytes;
  for (int number = 1; !kept; ++number) {
    const std::string place = AsidePath(cardFile, number);
    if (number > kPutAside) return Joined("there are ", kPutAside, " others already");
    if (files.Exists(place)) {
      kept = files.Read(place) == bytes;
    } else {
      std::string error = files.Write(place, *bytes);
      if (!error.empty()) return error;
      kept = true;
    }
  }
  files.Remove(copy);
  return "";
}

bool UnsavedCopy::Write(std::string_view cardFile, std::string_view text) {
  const std::string path = PathOf(cardFile);
  std::string error = MakeRoom(cardFile);
  if (error.empty()) error = SaveText(path, text);
  if (error.empty()) {
    own_ = HashOf(text);
  } else if (!failureTold_) {
    Desktop().MessageBox(Joined("Can't keep a copy of unsaved changes as ", path, ": ", error));
  }
  failureTold_ = !error.empty();
  return error.empty();
}

void UnsavedCopy::PutAside(std::string_view cardFile) {
  MakeRoom(cardFile);  // one that stays is offered again
}

void UnsavedCopy::RemoveOwn(std::string_view cardFile) {
  if (own_.empty()) return;
  // A copy that stays is offered again; nothing is lost by it.
  FileSystem& files = Desktop().Files();
  const std::string copy = PathOf(cardFile);
  if (IsOwn(files.Read(copy))) files.Remove(copy);
  own_.clear();
}

}  // namespace brindlemoor

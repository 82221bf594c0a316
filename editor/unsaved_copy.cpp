// Keeping, offering and removing the copy of unsaved changes.
#include "editor/unsaved_copy.h"

#include "core/paths.h"
#include "core/text.h"
#include "data/saving.h"
#include "platform/platform.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kUntitled = "Untitled.txt";

std::string FullPath(std::string_view cardFile) {
  return cardFile.empty() ? InProgramFolder(kUntitled) : InCurrentFolder(cardFile);
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
    own_ = true;
  } else if (bytes) {
    own_ = Desktop().AskYesNo(Joined("There is a copy of unsaved changes to ",
                                     FileNameOf(FullPath(cardFile)), ".  Open it instead?"));
    if (own_) return copy;
  }
  return std::string(cardFile);
}

bool UnsavedCopy::Write(std::string_view cardFile, std::string_view text) {
  const std::string path = PathOf(cardFile);
  const std::string error = SaveText(path, text);
  if (error.empty()) {
    own_ = true;
  } else if (!failureTold_) {
    Desktop().MessageBox(Joined("Can't keep a copy of unsaved changes as ", path, ": ", error));
  }
  failureTold_ = !error.empty();
  return error.empty();
}

void UnsavedCopy::Remove(std::string_view cardFile) {
  // A copy that stays is offered again; nothing is lost by it.
  Desktop().Files().Remove(PathOf(cardFile));
  own_ = false;
}

void UnsavedCopy::RemoveOwn(std::string_view cardFile) {
  if (own_) Remove(cardFile);
}

}  // namespace brindlemoor

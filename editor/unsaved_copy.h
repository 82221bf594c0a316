// UnsavedCopy: the copy of a card file that keeps what an author has not saved yet.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brindlemoor {

/// Lies beside the card file as "NAME.txt.unsaved". A card file without a name, "", has its copy in
/// the program's folder. A copy that was not wanted makes room for a new one under the name of a
/// card file, "NAME-unsaved-1.txt", so that it can still be loaded.
class UnsavedCopy {
 public:
  static std::string PathOf(std::string_view cardFile);

  /// Asks whether to open the copy of a file, if there is one and it says something else. The file
  /// to read: the copy's or the card file's own.
  std::string Offer(std::string_view cardFile);
  /// False when that failed, which a message box has told the first time.
  bool Write(std::string_view cardFile, std::string_view text);
  /// The card file has been saved: a copy that was not wanted is not offered again.
  void PutAside(std::string_view cardFile);
  /// Removes a copy whose changes are those in the editor. One that was not wanted stays.
  void RemoveOwn(std::string_view cardFile);

 private:
  /// Puts a copy that is not the editor's own aside. What went wrong, "" for nothing.
  std::string MakeRoom(std::string_view cardFile) const;

  /// True for bytes that are the editor's own: written or opened by it.
  bool IsOwn(const std::optional<std::string>& bytes) const;

  std::string own_;  // hash of those bytes, "" for none
  bool failureTold_ = false;
};

}  // namespace brindlemoor

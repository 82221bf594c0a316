// FileReach: how far the files of a program's folder may lead. Games come from strangers.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>

namespace brindlemoor {

/// Names in card files are looked up in the program's folder, its parent and its subfolders. A link
/// that lies there and leads out of the program's folder and its parent's own files leads nowhere,
/// and nothing is written outside of the program's folder. What the user chose in a dialog, and the
/// folder that it lies in, are as good as the program's folder. Without a folder all is allowed.
class FileReach {
 public:
  /// The program's folder, as paths name it; "" for none. Choices of the user stay.
  void KeepTo(const std::string& programFolder);
  /// A file or folder that the user chose.
  void TakeChoice(const std::string& path);

  bool AllowsReading(const std::string& path) const;
  /// Whether a folder may be listed.
  bool AllowsFolder(const std::string& folder) const;
  /// Whether files of this name may be written and removed. What the name itself is, a link
  /// perhaps, does not count: it is replaced.
  bool AllowsWriting(const std::string& path) const;
  /// Where a path of the program's folder leads by way of links; the path as it is where there are
  /// none.
  std::string Followed(const std::string& path) const;

 private:
  /// The part of a path below which links count: the program's folder or its parent; "" elsewhere.
  std::string_view BaseOf(const std::string& path) const;
  bool IsBelow(const std::filesystem::path& real) const;

  std::string folder_;
  std::string parent_;
  std::filesystem::path realFolder_;
  std::filesystem::path realParent_;
  std::set<std::string> chosenFiles_;
  std::set<std::string> chosenFolders_;
};

}  // namespace brindlemoor

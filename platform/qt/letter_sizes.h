// The size of letters that the user has given to each window, kept from one start to the next.
#pragma once

#include <map>
#include <string>

namespace brindlemoor {

class FileSystem;

class LetterSizes {
 public:
  static constexpr double kSmallest = 0.5;
  static constexpr double kLargest = 3.0;

  /// The folder is the program's. What its file says that is no line of a window is left out.
  LetterSizes(FileSystem& files, const std::string& folder);

  /// How many times the ordinary size the letters of a window have, from kSmallest to kLargest.
  double Of(const std::string& window) const;
  /// Keeps a size; where the file can't be written, until the program ends.
  void Keep(const std::string& window, double size);

 private:
  FileSystem& files_;
  std::string path_;
  std::map<std::string, int> percents_;  // only those that are not 100
};

}  // namespace brindlemoor

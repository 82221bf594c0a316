// OpenTexts: the files that are open in the editor, as they stand there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/headless/overlay_files.h"

namespace brindlemoor {

/// A file that is open.
struct OpenFile {
  std::string Address;  ///< its URL, as the editor writes it
  std::optional<std::int64_t> Version;
};

/// Their texts stand before the files of the machine, of which nothing is changed.
class OpenTexts {
 public:
  static constexpr std::size_t kMostBytes = 64 << 20;  ///< of all texts together

  explicit OpenTexts(OverlayFileSystem& files) : files_(files) {}

  /// The path of a file's URL without "." and ".."; "" for what is no file.
  static std::string PathOf(std::string_view address);

  /// Opens a file, or gives an open one another text. False, and it is closed, when there is no
  /// room.
  bool Put(const std::string& path, OpenFile record, std::string text);
  void Close(const std::string& path);
  bool IsOpen(const std::string& path) const { return records_.contains(path); }
  /// Of an open file.
  const std::string& TextOf(const std::string& path) const { return files_.Contents.at(path); }
  /// By path.
  const std::map<std::string, OpenFile>& Records() const { return records_; }
  /// The URL by which the editor knows a file.
  std::string AddressOf(const std::string& path) const;

 private:
  OverlayFileSystem& files_;
  std::map<std::string, OpenFile> records_;
  std::size_t bytes_ = 0;
};

}  // namespace brindlemoor

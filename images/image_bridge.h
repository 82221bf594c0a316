// cGdiPlus: the one class that talks to the library for image files.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/image_library.h"

namespace brindlemoor {

struct PictureBox;

/// Reads picture files of any format that the library knows, and writes a picture in the format
/// that the file's extension names. Statuses are the library's; no operation throws.
class cGdiPlus {
 public:
  using ErrorHandler = std::function<void(int lGdiError, const std::string& sErrorDesc)>;

  /// Starts the library of the session's desktop; without one error is told.
  explicit cGdiPlus(ErrorHandler error = {});
  ~cGdiPlus();
  cGdiPlus(const cGdiPlus&) = delete;
  cGdiPlus& operator=(const cGdiPlus&) = delete;

  /// Told of every failure with its status and a description, behind which stands what the file
  /// system said of a failed write.
  ErrorHandler Error;

  /// Index of the encoder for a pattern such as "*.jpg", without regard to case; -1 for none.
  int FindEncoder(std::string_view key) const;
  /// The picture of a file (absolute, or in the current folder), laid over black; nothing on
  /// failure.
  std::optional<Raster> FilenameToIPicture(std::string_view sFilename);
  /// The size that a picture of a file has; nothing on failure.
  std::optional<PictureSize> SizeOfFile(std::string_view sFilename);
  /// Writes what is drawn in a box to a file (absolute, or in the current folder), which stays as
  /// it was on failure. lQuality, 0 to 100, counts where the extension begins with J. False without
  /// an encoder for the extension (of which nobody is told) and on failure.
  bool PictureBoxToFile(const PictureBox& box, std::string_view sFilename, int lQuality);

  /// Text behind the last "."; "" without one, or with a folder separator behind it.
  static std::string FileExtension(std::string_view sFilename);
  static std::string GdiErrorString(int lError);

 private:
  bool Class_Initialize();
  void LoadEncoders();
  void AddEncoderKeys(std::string_view list, char delimiter, int index);
  void Raise(int status, std::string_view reason = {}) const;

  std::uint32_t Token = 0;  ///< 0 without a started library
  std::vector<ImageEncoderId> EncoderIds;
  std::map<std::string, int> EncoderKeys;  ///< folded pattern -> index in EncoderIds
  int EncoderCount = 0;
};

}  // namespace brindlemoor

// Picture files by way of the desktop's image library.
#include "images/image_bridge.h"

#include <algorithm>
#include <array>
#include <system_error>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "platform/controls.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

constexpr int kLeastQuality = 0;
constexpr int kMostQuality = 100;
constexpr std::string_view kUnknownError = "Unknown GDI+ Error";
/// By status, from 1.
constexpr std::array<std::string_view, 20> kErrorTexts = {
    "Generic Error",
    "Invalid Parameter",
    "Out Of Memory",
    "Object Busy",
    "Insufficient Buffer",
    "Not Implemented",
    "Win32 Error",
    "Wrong State",
    "Aborted",
    "File Not Found",
    "Value Overflow",
    "Access Denied",
    "Unknown Image Format",
    "FontFamily Not Found",
    "FontStyle Not Found",
    "Not TrueType Font",
    "Unsupported Gdiplus Version",
    "Gdiplus Not Initialized",
    "Property Not Found",
    "Property Not Supported",
};

/// The status of a write that failed with a reason of the file system.
int WriteStatus(std::string_view reason) {
  for (const std::errc error : {std::errc::permission_denied, std::errc::operation_not_permitted,
                                std::errc::read_only_file_system}) {
    if (reason == std::make_error_code(error).message()) return kImageAccessDenied;
  }
  return kImageSystemError;
}

/// What a box shows: its drawing, or else the picture of its file.
int PictureOf(const PictureBox& box, std::shared_ptr<const Raster>& picture) {
  picture = box.Drawing;
  if (picture == nullptr && !box.Picture.Get().empty()) {
    auto loaded = std::make_shared<Raster>();
    const int status = Desktop().Images().Load(InCurrentFolder(box.Picture.Get()), *loaded);
    if (status != kImageOk) return status;
    picture = std::move(loaded);
  }
  return picture == nullptr || picture->Empty() ? kImageInvalidParameter : kImageOk;
}

}  // namespace

cGdiPlus::cGdiPlus(ErrorHandler error) : Error(std::move(error)) {
  if (Class_Initialize()) {
    LoadEncoders();
  } else {
    Raise(kImageNotInitialized);
  }
}

cGdiPlus::~cGdiPlus() = default;

bool cGdiPlus::Class_Initialize() {
  Token = State().Desktop != nullptr ? 1 : 0;
  return Token != 0;
}

void cGdiPlus::LoadEncoders() {
  const std::vector<ImageEncoder> encoders = Desktop().Images().Encoders();
  EncoderCount = static_cast<int>(encoders.size());
  EncoderIds.resize(encoders.size());
  for (std::size_t index = encoders.size(); index-- > 0;) {
    EncoderIds[index] = encoders[index].Id;
    AddEncoderKeys(encoders[index].FilenameExtension, ';', static_cast<int>(index));
  }
}

void cGdiPlus::AddEncoderKeys(std::string_view list, char delimiter, int index) {
  FieldWalker patterns(list, delimiter);
  while (!patterns.AtEnd()) {
    const std::string_view pattern = Trimmed(patterns.Next());
    // A pattern that a later encoder has as well stays that one's.
    if (!pattern.empty()) EncoderKeys.emplace(FoldUpper(pattern), index);
  }
}

int cGdiPlus::FindEncoder(std::string_view key) const {
  const auto entry = EncoderKeys.find(FoldUpper(key));
  return entry == EncoderKeys.end() ? -1 : entry->second;
}

std::optional<Raster> cGdiPlus::FilenameToIPicture(std::string_view sFilename) {
  Raster picture;
  const int status = Token == 0 ? int{kImageNotInitialized}
                                : Desktop().Images().Load(InCurrentFolder(sFilename), picture);
  if (status == kImageOk) return picture;
  Raise(status);
  return std::nullopt;
}

std::optional<PictureSize> cGdiPlus::SizeOfFile(std::string_view sFilename) {
  PictureSize size;
  const int status = Token == 0 ? int{kImageNotInitialized}
                                : Desktop().Images().LoadSize(InCurrentFolder(sFilename), size);
  if (status == kImageOk) return size;
  Raise(status);
  return std::nullopt;
}

bool cGdiPlus::PictureBoxToFile(const PictureBox& box, std::string_view sFilename, int lQuality) {
  const std::string extension = FileExtension(sFilename);
  const int encoder = FindEncoder(Joined("*.", extension));
  if (encoder == -1) return false;
  std::optional<int> quality;
  if (extension[0] == 'J' || extension[0] == 'j') {
    quality = std::clamp(lQuality, kLeastQuality, kMostQuality);
  }
  std::shared_ptr<const Raster> picture;
  std::string bytes;
  int status = PictureOf(box, picture);
  if (status == kImageOk) {
    const ImageEncoderId& id = EncoderIds[static_cast<std::size_t>(encoder)];
    status = Desktop().Images().Encode(*picture, id, quality, bytes);
  }
  std::string reason;
  if (status == kImageOk) {
    reason = Desktop().Files().Write(InCurrentFolder(sFilename), bytes);
    if (!reason.empty()) status = WriteStatus(reason);
  }
  if (status != kImageOk) Raise(status, reason);
  return status == kImageOk;
}

std::string cGdiPlus::FileExtension(std::string_view sFilename) {
  const std::size_t dot = sFilename.rfind('.');
  if (dot == std::string_view::npos) return "";
  const std::string_view behind = sFilename.substr(dot + 1);
  return behind.find_first_of("\\/") == std::string_view::npos ? std::string(behind) : "";
}

std::string cGdiPlus::GdiErrorString(int lError) {
  const auto index = static_cast<std::size_t>(lError) - 1;
  return std::string(index < kErrorTexts.size() ? kErrorTexts[index] : kUnknownError);
}

void cGdiPlus::Raise(int status, std::string_view reason) const {
  if (!Error) return;
  const std::string text = GdiErrorString(status);
  Error(status, reason.empty() ? text : Joined(text, ": ", reason));
}

}  // namespace brindlemoor

// Putting the pictures of a page into it.
#include "pages/page_snapshot.h"

#include <algorithm>
#include <array>
#include <map>

#include "core/desktop.h"
#include "core/paths.h"
#include "pages/markup.h"
#include "text/addresses.h"
#include "text/base64.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kMostBytes = 64U << 20U;  // of the pictures on a page, as text
constexpr std::string_view kBegin = "<HTML>\r\n";

struct MediaType {
  std::string_view Extension;
  std::string_view Type;
};
constexpr std::array<MediaType, 5> kMediaTypes = {{{".bmp", "image/bmp"},
                                                   {".gif", "image/gif"},
                                                   {".jpeg", "image/jpeg"},
                                                   {".jpg", "image/jpeg"},
                                                   {".png", "image/png"}}};

/// The data of a picture as an address; "" where there is none.
std::string DataOf(std::string_view address) {
  if (address.starts_with(kFileScheme)) address.remove_prefix(kFileScheme.size());
  std::string path;
  while (!address.empty()) path += TakeUrlCharacter(address);
  const std::string folded = FoldUpper(path);
  const auto* const type = std::ranges::find_if(kMediaTypes, [&folded](const MediaType& row) {
    return folded.ends_with(FoldUpper(row.Extension));
  });
  if (type == kMediaTypes.end()) return "";
  const auto bytes = Desktop().Files().Read(path.starts_with('/') ? path : InProgramFolder(path));
  return bytes ? Joined("data:", type->Type, ";base64,", Base64(*bytes)) : "";
}

}  // namespace

std::string PageSnapshot(std::string_view page, std::string_view title) {
  std::map<std::string, std::string, std::less<>> known;
  std::size_t room = kMostBytes;
  const auto withData = [&](std::string_view address) {
    auto found = known.find(address);
    if (found == known.end()) found = known.emplace(address, DataOf(address)).first;
    const std::string& data = found->second;
    if (data.empty() || data.size() > room) return std::string(address);
    room -= data.size();
    return data;
  };
  if (page.starts_with(kBegin)) page.remove_prefix(kBegin.size());
  return Joined(kBegin, "<head><meta charset=\"utf-8\"><title>", title,
                "</title><style>a{pointer-events:none}</style></head>\r\n",
                WithValues(page, AttributeValue::kPicture, withData));
}

}  // namespace brindlemoor

// Reading headers, and finding the next one behind a broken one.
#include "server/message_frames.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "core/strings.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kLength = "Content-Length:";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kHeaderEnd = "\r\n\r\n";

/// The length that a header tells; nothing when it tells none.
std::optional<std::size_t> LengthIn(std::string_view header) {
  while (!header.empty()) {
    const std::size_t end = std::min(header.find(kLineEnd), header.size());
    const std::string_view line = header.substr(0, end);
    header.remove_prefix(std::min(end + kLineEnd.size(), header.size()));
    if (!FoldStartsWith(line, kLength)) continue;
    const std::string_view digits = Trimmed(line.substr(kLength.size()));
    std::size_t length = 0;
    const auto [behind, failure] =
        std::from_chars(digits.data(), digits.data() + digits.size(), length);
    if (failure != std::errc() || behind != digits.data() + digits.size()) return std::nullopt;
    return length;
  }
  return std::nullopt;
}

}  // namespace

/// Drops the bytes before what looks like a header. False while there is nothing of the kind.
bool MessageFrames::FindHeader() {
  const std::size_t at = bytes_.find(kLength);
  if (at == std::string::npos) {
    // The beginning of one may be the last that has come.
    bytes_.erase(0, bytes_.size() - std::min(bytes_.size(), kLength.size() - 1));
    return false;
  }
  bytes_.erase(0, at);
  isLost_ = false;
  return true;
}

std::optional<MessageFrames::Frame> MessageFrames::LeaveOut(std::string problem) {
  isLost_ = true;
  return Frame{"", std::move(problem)};
}

std::optional<MessageFrames::Frame> MessageFrames::Next() {
  if (isLost_ && !FindHeader()) return std::nullopt;
  const std::size_t end = bytes_.find(kHeaderEnd);
  if (std::min(end, bytes_.size()) > kMostHeaderBytes) {
    bytes_.erase(0, kMostHeaderBytes);
    return LeaveOut("There is no header of a message.");
  }
  if (end == std::string::npos) return std::nullopt;
  const std::optional<std::size_t> length = LengthIn(std::string_view(bytes_).substr(0, end));
  const std::size_t begin = end + kHeaderEnd.size();
  if (!length || *length > kMostContentBytes) {
    bytes_.erase(0, begin);
    return LeaveOut(length ? Joined("A message has more than ", kMostContentBytes, " bytes.")
                           : "A header tells no length.");
  }
  if (bytes_.size() - begin < *length) return std::nullopt;
  Frame frame{bytes_.substr(begin, *length), ""};
  bytes_.erase(0, begin + *length);
  return frame;
}

std::string Framed(std::string_view content) {
  return Joined(kLength, " ", content.size(), kHeaderEnd, content);
}

}  // namespace brindlemoor

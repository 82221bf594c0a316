// Delimited strings.
#include "core/replacing.h"
#include "core/strings.h"

namespace brindlemoor {

namespace {

/// A field of a text whose delimiter has several characters. The walk moves one character behind
/// the start of each delimiter, so the rest of the delimiter is taken out of the field afterwards.
std::string LongDelimiterField(std::string_view text, int n, std::string_view delimiter) {
  const std::string closed = std::string(text) + std::string(delimiter);
  std::size_t position = 0;
  for (int count = 1; count < n; ++count) {
    const std::size_t found = closed.find(delimiter, position);
    if (found == std::string::npos) return "";
    position = found + 1;
  }
  const std::size_t end = closed.find(delimiter, position);
  std::string field = closed.substr(position, end == std::string::npos ? end : end - position);
  ReplaceAll(field, delimiter.substr(1), "");
  return field;
}

}  // namespace

std::string GetDS(std::string_view text, int n, std::string_view delimiter) {
  if (n < 1) return "";
  if (delimiter.size() == 1) return std::string(FieldAt(text, n, delimiter.front()));
  if (delimiter.empty() || text.find(delimiter) == std::string_view::npos) {
    return n == 1 ? std::string(text) : std::string();
  }
  return LongDelimiterField(text, n, delimiter);
}

std::string RestDS(std::string_view text, int n, std::string_view delimiter) {
  if (n < 1) return "";
  std::size_t position = 0;
  for (int count = 1; count < n; ++count) {
    const std::size_t found =
        delimiter.empty() ? std::string_view::npos : text.find(delimiter, position);
    if (found == std::string_view::npos) return "";
    position = found + 1;
  }
  return std::string(text.substr(position));
}

std::string_view FieldAt(std::string_view text, int n, char delimiter) noexcept {
  if (n < 1) return {};
  for (int count = 1; count < n; ++count) {
    const std::size_t found = text.find(delimiter);
    if (found == std::string_view::npos) return {};
    text.remove_prefix(found + 1);
  }
  return text.substr(0, text.find(delimiter));
}

std::string_view FieldWalker::Next() noexcept {
  if (!more_) return {};
  const std::size_t found = rest_.find(delimiter_);
  const std::string_view field = rest_.substr(0, found);
  if (found == std::string_view::npos) {
    more_ = false;
  } else {
    rest_.remove_prefix(found + 1);
  }
  return field;
}

}  // namespace brindlemoor

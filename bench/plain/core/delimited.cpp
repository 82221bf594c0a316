// Delimited strings of the plain engine: each field is looked for from the first character on, in a
// copy that the delimiter closes.
#include "core/replacing.h"
#include "core/strings.h"

namespace brindlemoor {

std::string GetDS(std::string_view text, int n, std::string_view delimiter) {
  if (n < 1) return "";
  if (delimiter.empty() || text.find(delimiter) == std::string_view::npos) {
    return n == 1 ? std::string(text) : std::string();
  }
  const std::string closed = std::string(text) + std::string(delimiter);
  std::size_t position = 0;
  for (int count = 1; count < n; ++count) {
    const std::size_t found = closed.find(delimiter, position);
    if (found == std::string::npos) return "";
    position = found + 1;
  }
  const std::size_t end = closed.find(delimiter, position);
  if (end == std::string::npos && delimiter.size() == 1) return "";
  std::string field = closed.substr(position, end - position);
  if (delimiter.size() > 1) ReplaceAll(field, delimiter.substr(1), "");
  return field;
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
  FieldWalker fields(text, delimiter);
  for (int count = 1; count < n; ++count) fields.Next();
  return n < 1 ? std::string_view() : fields.Next();
}

std::string_view FieldWalker::Next() noexcept {
  if (!more_) return {};
  const std::size_t found = rest_.find(delimiter_);
  const std::string_view field = rest_.substr(0, found);
  more_ = found != std::string_view::npos;
  if (more_) rest_.remove_prefix(found + 1);
  return field;
}

}  // namespace brindlemoor

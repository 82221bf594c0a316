// The one way by which the program's text files are saved.
#include "data/saving.h"

#include "core/desktop.h"
#include "text/encoding.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// A text as UTF-8. One stray byte, as an old file name may hold, would make the reader take the
/// whole file for another encoding; such a byte becomes the character of its number.
std::string WellFormed(std::string_view text) {
  std::string out;
  for (std::size_t position = 0; position < text.size();) {
    AppendCodePoint(out, NextCodePoint(text, position));
  }
  return out;
}

}  // namespace

std::string TextAsSaved(std::string_view text) {
  return IsUtf8(text) ? std::string(text) : WellFormed(text);
}

std::string SaveText(const std::string& path, std::string_view text) {
  FileSystem& files = Desktop().Files();
  return IsUtf8(text) ? files.Write(path, text) : files.Write(path, TextAsSaved(text));
}

namespace {

bool TellFailure(std::string_view shownName, std::string_view error) {
  if (error.empty()) return true;
  Desktop().MessageBox(Joined("Can't save ", shownName, ": ", error));
  return false;
}

}  // namespace

bool SaveOrTell(const std::string& path, std::string_view shownName, std::string_view text) {
  return TellFailure(shownName, SaveText(path, text));
}

bool SaveBytesOrTell(const std::string& path, std::string_view shownName, std::string_view bytes) {
  return TellFailure(shownName, Desktop().Files().Write(path, bytes));
}

std::string CantRead(std::string_view shownName, const std::string& path) {
  const std::string reason = Desktop().Files().WhyUnread(path);
  return Joined("Can't read ", shownName, reason.empty() ? "" : ": ", reason, ".");
}

}  // namespace brindlemoor

// Writing and reading the lines of a journal.
#include "journal/journal_text.h"

#include <algorithm>
#include <charconv>

#include "text/encoding.h"
#include "text/hex_digits.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kPlain =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-+._()/";

struct Escape {
  char Character;
  char Letter;
};
constexpr Escape kEscapes[] = {{'\n', 'n'}, {'\r', 'r'}, {'\t', 't'}, {'"', '"'}, {'\\', '\\'}};

void AppendEscaped(std::string& out, char character, bool isUtf8) {
  for (const Escape& row : kEscapes) {
    if (row.Character != character) continue;
    (out += '\\') += row.Letter;
    return;
  }
  const auto byte = static_cast<unsigned char>(character);
  if ((byte >= 0x20 && byte < 0x7F) || (byte >= 0x80 && isUtf8)) {
    out += character;
  } else {
    AppendHex(out += "\\x", byte);
  }
}

/// Takes the escape that begins the text, behind its backslash; false when it is none.
bool TakeEscape(std::string_view& text, std::string& out) {
  if (text.empty()) return false;
  for (const Escape& row : kEscapes) {
    if (row.Letter != text[0]) continue;
    out += row.Character;
    text.remove_prefix(1);
    return true;
  }
  if (text[0] != 'x' || text.size() < 3) return false;
  int byte = 0;
  const auto [end, failure] = std::from_chars(text.data() + 1, text.data() + 3, byte, 16);
  if (failure != std::errc() || end != text.data() + 3) return false;
  out += static_cast<char>(byte);
  text.remove_prefix(3);
  return true;
}

/// Takes the text behind an opening quote, and the closing one.
bool TakeQuoted(std::string_view& text, std::string& out) {
  while (!text.empty()) {
    const std::size_t plain = std::min(text.find_first_of("\"\\"), text.size());
    out += text.substr(0, plain);
    text.remove_prefix(plain);
    if (text.empty()) return false;
    const bool closes = text[0] == '"';
    text.remove_prefix(1);
    if (closes) return true;
    if (!TakeEscape(text, out)) return false;
  }
  return false;
}

bool TakeField(std::string_view& text, std::string& field) {
  if (text.starts_with('"')) {
    text.remove_prefix(1);
    if (!TakeQuoted(text, field)) return false;
  } else {
    const std::size_t length = std::min(text.find_first_not_of(kPlain), text.size());
    if (length == 0) return false;
    field = text.substr(0, length);
    text.remove_prefix(length);
  }
  return text.empty() || text[0] == ' ';
}

}  // namespace

std::string JournalField(std::string_view text) {
  if (!text.empty() && text.find_first_not_of(kPlain) == text.npos) return std::string(text);
  const bool isUtf8 = IsUtf8(text);
  std::string out = "\"";
  out.reserve(text.size() + text.size() / 8 + 2);
  for (const char character : text) AppendEscaped(out, character, isUtf8);
  return out += '"';
}

std::string JournalLine(std::string_view word, const JournalFields& fields) {
  std::string line(word);
  for (const std::string& field : fields) (line += ' ') += JournalField(field);
  return line;
}

bool ReadJournalLine(std::string_view line, JournalRecord& record) {
  record.Fields.clear();
  if (!TakeField(line, record.Word)) return false;
  while (!line.empty()) {
    line.remove_prefix(1);
    if (!TakeField(line, record.Fields.emplace_back())) return false;
  }
  return true;
}

}  // namespace brindlemoor

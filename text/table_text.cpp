// Writing and reading tables as text.
#include "text/table_text.h"

#include <algorithm>
#include <optional>

namespace brindlemoor {

namespace {

constexpr char kQuote = '"';
constexpr std::string_view kCellEnds = "\t\n";

void AppendCell(std::string& text, std::string_view cell) {
  if (!cell.starts_with(kQuote) && cell.find_first_of("\t\r\n") == std::string_view::npos) {
    text += cell;
    return;
  }
  text += kQuote;
  for (const char character : cell) text.append(character == kQuote ? 2 : 1, character);
  text += kQuote;
}

std::string WithoutReturns(std::string_view text) {
  std::string plain(text);
  std::erase(plain, '\r');
  return plain;
}

/// Cuts a cell in quotes, without what ends it, from the text. Nothing where there is none.
std::optional<std::string> TakeQuoted(std::string_view& text) {
  if (!text.starts_with(kQuote)) return std::nullopt;
  std::string cell;
  for (std::size_t at = 1; at < text.size(); ++at) {
    if (text[at] != kQuote) {
      cell += text[at];
    } else if (text.substr(at + 1).starts_with(kQuote)) {
      cell += text[++at];
    } else {
      std::string_view behind = text.substr(at + 1);
      if (behind.starts_with('\r')) behind.remove_prefix(1);
      if (!behind.empty() && kCellEnds.find(behind.front()) == std::string_view::npos) break;
      text = behind;
      return WithoutReturns(cell);
    }
  }
  return std::nullopt;
}

std::string TakePlain(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_of(kCellEnds), text.size());
  std::string cell = WithoutReturns(text.substr(0, end));
  text.remove_prefix(end);
  return cell;
}

}  // namespace

std::string TableText(const std::vector<TableRow>& rows) {
  std::string text;
  for (const TableRow& row : rows) {
    for (const std::string& cell : row) {
      if (&cell != &row.front()) text += '\t';
      AppendCell(text, cell);
    }
    text += '\n';
  }
  return text;
}

std::vector<TableRow> TableRows(std::string_view text) {
  std::vector<TableRow> rows(1);
  while (true) {
    auto quoted = TakeQuoted(text);
    rows.back().push_back(quoted ? std::move(*quoted) : TakePlain(text));
    if (text.empty()) return rows;
    const char end = text.front();
    text.remove_prefix(1);
    if (end == '\t') continue;
    if (text.empty()) return rows;
    rows.emplace_back();
  }
}

}  // namespace brindlemoor

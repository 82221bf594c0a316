// Accepting: what was there takes the place of what a scenario file expected.
#include "scenario/accepting.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "scenario/scene.h"
#include "text/encoding.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// True for a text that a line of a scenario file can hold.
bool CanStand(std::string_view text) { return !ScenarioWordFor(text).empty(); }

/// As a word of a line. What stood in quotes stays so.
std::string AsWord(std::string_view text, bool wasQuoted) {
  const std::string word = ScenarioWordFor(text);
  return wasQuoted && !word.starts_with('"') ? Joined("\"", word, "\"") : word;
}

std::string AsCell(std::string_view text) {
  const bool isPlain =
      text.find_first_of("|\"") == text.npos && !text.starts_with(' ') && !text.ends_with(' ');
  return isPlain ? std::string(text) : AsWord(text, true);
}

/// The column of the scenario's table that a word stands for, counted from 0; nothing for others.
std::optional<std::size_t> ColumnOf(const Scene& scene, std::string_view word) {
  if (scene.Row == nullptr || !word.starts_with('{') || !word.ends_with('}')) return std::nullopt;
  const auto& columns = scene.Case.Columns;
  const auto column = std::ranges::find(columns, word.substr(1, word.size() - 2));
  if (column == columns.end()) return std::nullopt;
  return static_cast<std::size_t>(column - columns.begin());
}

AcceptedText ChangeOf(const Scene& scene, ScenarioPlace place, ScenarioSpan span,
                      std::string text) {
  return {scene.Text.Files[static_cast<std::size_t>(place.File)], place.Line, span.Begin, span.End,
          std::move(text)};
}

std::size_t CountOf(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
  return count;
}

/// True when nothing but one word of one line takes a column: another cell would change more than
/// what is expected.
bool IsOnlyExpected(const Scene& scene, std::size_t column) {
  const std::string name = Joined("{", scene.Case.Columns[column], "}");
  std::size_t count = 0;
  for (const auto* lines : {&scene.Text.Head, &scene.Case.Lines}) {
    for (const ScenarioLine& line : *lines) {
      count += CountOf(line.Block, name);
      for (const ScenarioToken& token : line.Tokens) count += CountOf(token.Text, name);
    }
  }
  return count == 1;
}

/// A cell keeps its width where it can, so that the table's bars stay below each other.
std::optional<AcceptedText> CellChange(const Scene& scene, std::size_t column,
                                       std::string_view found) {
  const std::string& cell = scene.Row->Cells[column];
  if (!CanStand(cell) || !IsOnlyExpected(scene, column)) return std::nullopt;
  const ScenarioSpan span = scene.Row->Spans[column];
  std::string text = AsCell(found);
  const std::size_t width = span.End - span.Begin;
  if (text.size() < width) text.append(width - text.size(), ' ');
  return ChangeOf(scene, scene.Row->Place, span, std::move(text));
}

/// The beginning of a line in bytes, line counted from 1; npos behind the last one.
std::size_t BeginOfLine(std::string_view bytes, int line) {
  std::size_t begin = 0;
  for (int at = 1; at < line; ++at) {
    begin = bytes.find('\n', begin);
    if (begin == bytes.npos) return begin;
    ++begin;
  }
  return begin;
}

}  // namespace

std::optional<AcceptedText> Accepted(const Scene& scene, std::string_view found) {
  // What other files include is not this file's to change.
  if (scene.Line->Place.File != 0) return std::nullopt;
  if (scene.Seed != 0 || !scene.Compared || !CanStand(found)) return std::nullopt;
  const auto [first, count] = *scene.Compared;
  const std::vector<ScenarioToken>& tokens = scene.Line->Tokens;
  if (count == 1) {
    if (const auto column = ColumnOf(scene, tokens[first].Text)) {
      return CellChange(scene, *column, found);
    }
  }
  bool quoted = false;
  for (std::size_t token = first; token < first + count; ++token) {
    if (!CanStand(tokens[token].Text)) return std::nullopt;
    quoted = quoted || tokens[token].Quoted;
  }
  // Where nothing stood, the text comes behind the last word.
  const std::size_t end = tokens[count == 0 ? tokens.size() - 1 : first + count - 1].Span.End;
  const ScenarioSpan span = {count == 0 ? end : tokens[first].Span.Begin, end};
  return ChangeOf(scene, scene.Line->Place, span,
                  Joined(count == 0 ? " " : "", AsWord(found, quoted)));
}

std::string WithAccepted(std::string_view bytes, std::vector<AcceptedText*> changes) {
  std::string changed(bytes);
  if (DecodeFileText(changed) != bytes) return changed;  // offsets are those of UTF-8
  const auto key = [](const AcceptedText* one) { return std::tie(one->Line, one->Begin); };
  // From the back, so that what stands before keeps its place.
  std::ranges::stable_sort(
      changes, [&](const AcceptedText* a, const AcceptedText* b) { return key(a) > key(b); });
  for (auto group = changes.begin(); group != changes.end();) {
    const AcceptedText& first = **group;
    const auto end = std::find_if(group, changes.end(),
                                  [&](const AcceptedText* one) { return key(one) != key(&first); });
    const bool agree =
        std::all_of(group, end, [&](const AcceptedText* one) { return one->Text == first.Text; });
    std::size_t line = BeginOfLine(bytes, first.Line);
    if (line != bytes.npos) line = std::min(bytes.find_first_not_of(" \t", line), bytes.size());
    if (agree && line != bytes.npos && line + first.End <= bytes.size()) {
      changed.replace(line + first.Begin, first.End - first.Begin, first.Text);
      std::for_each(group, end, [](AcceptedText* one) { one->IsMade = true; });
    }
    group = end;
  }
  return changed;
}

}  // namespace brindlemoor

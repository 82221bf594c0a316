// Comparing the directives of a card with those that it should have.
#include "editor/card_lines.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "core/replacing.h"
#include "data/field_stream.h"
#include "data/field_text.h"
#include "text/text.h"

namespace brindlemoor {

std::vector<std::string> FieldsOf(std::string_view text, const DirectivePlace& place) {
  std::vector<std::string> fields;
  FieldStream stream(std::string(text.substr(place.Begin, place.End - place.Begin)));
  for (std::string field; stream.Read(field);) fields.push_back(field);
  fields.resize(static_cast<std::size_t>(place.Row->Fields) + 1);
  return fields;
}

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kLineEnds = "\r\n";
/// The directives of a card in the order in which they are written, behind the one that makes it.
constexpr std::array<std::string_view, 5> kKinds = {"#TRAIT", "#TRAITACTIONDESC", "#EFFECT",
                                                    "#EXTRADATA", "#TEMPLATEDATA"};

using Edits = std::vector<TextEdit>;
using Texts = std::vector<std::string>;

bool IsLineEnd(char character) { return character == '\r' || character == '\n'; }

/// Where a directive ends without the comma or line end behind it.
std::size_t EndOfFields(std::string_view text, const DirectivePlace& place) {
  std::size_t end = place.End;
  if (end > place.Begin && text[end - 1] == ',') return end - 1;
  if (end > place.Begin && text[end - 1] == '\n') --end;
  if (end > place.Begin && text[end - 1] == '\r') --end;
  return end;
}

std::size_t BehindBlanks(std::string_view text, std::size_t position) {
  return std::min(text.find_first_not_of(kBlanks, position), text.size());
}

/// Behind the line end at a position, if there is one.
std::size_t BehindLineEnd(std::string_view text, std::size_t position) {
  if (text.substr(position).starts_with("\r\n")) return position + 2;
  return position < text.size() && IsLineEnd(text[position]) ? position + 1 : position;
}

std::size_t LineStart(std::string_view text, std::size_t position) {
  while (position > 0 && !IsLineEnd(text[position - 1])) --position;
  return position;
}

bool BeginsLine(std::string_view text, std::size_t position) {
  return text.find_first_not_of(kBlanks, LineStart(text, position)) >= position;
}

/// Where something can be added behind a directive, and whether a new line begins there.
struct Gap {
  std::size_t Position;
  bool IsLine;
};
Gap GapBehind(std::string_view text, const DirectivePlace& place) {
  if (place.End > 0 && IsLineEnd(text[place.End - 1])) return {place.End, true};
  const std::size_t rest = BehindBlanks(text, place.End);
  const std::size_t next = BehindLineEnd(text, rest);
  return next > rest ? Gap{next, true} : Gap{place.End, false};
}

/// A directive of a written card, without what ends it.
struct WrittenLine {
  std::string_view Word;
  std::string Text;
};

std::vector<WrittenLine> DirectivesOf(const std::string& written) {
  std::vector<WrittenLine> lines;
  FieldStream stream(written);
  for (std::string field; stream.Read(field);) {
    const DirectiveRow* row = field.starts_with('#') ? FindDirective(field) : nullptr;
    if (row == nullptr) continue;
    DirectivePlace place;
    place.Begin = stream.Offset();
    for (int index = 0; index < row->Fields && stream.Read(field);) ++index;
    place.End = stream.Position();
    const std::string& text = stream.Text();
    lines.push_back({row->Word, text.substr(place.Begin, EndOfFields(text, place) - place.Begin)});
  }
  return lines;
}

Texts OfKind(const std::vector<WrittenLine>& lines, std::string_view word) {
  Texts texts;
  for (const WrittenLine& line : lines) {
    if (line.Word == word) texts.push_back(line.Text);
  }
  return texts;
}

DirectivePlaces OfKind(const DirectivePlaces& places, std::string_view word) {
  DirectivePlaces found;
  for (const DirectivePlace& place : places) {
    if (!place.MakesCard && place.Row->Word == word) found.push_back(place);
  }
  return found;
}

TextEdit Cut(std::string_view text, const DirectivePlace& place) {
  const bool endsWithComma = place.End > place.Begin && text[place.End - 1] == ',';
  return {place.Begin, endsWithComma ? place.End : EndOfFields(text, place), ""};
}

/// Adds directives in a gap, each in a line of its own where it is one.
TextEdit Inserted(const StoredText& file, const Gap& gap, const Texts& added) {
  std::string out;
  const bool atEnd = gap.Position == file.Text().size();
  for (const std::string& text : added) {
    if (gap.IsLine) {
      out += Joined(text, file.LineEnd());
    } else {
      out += atEnd ? Joined(file.LineEnd(), text) : Joined(" ", text, ",");
    }
  }
  return {gap.Position, gap.Position, std::move(out)};
}

/// For each text of before its partner in now that says the same, in the same order; -1 for none.
std::vector<int> Partners(const Texts& before, const Texts& now) {
  const std::size_t rows = before.size();
  const std::size_t columns = now.size();
  // Lengths of the longest common subsequence of what follows.
  std::vector<std::vector<int>> lengths(rows + 1, std::vector<int>(columns + 1));
  for (std::size_t row = rows; row-- > 0;) {
    for (std::size_t column = columns; column-- > 0;) {
      lengths[row][column] = before[row] == now[column]
                                 ? lengths[row + 1][column + 1] + 1
                                 : std::max(lengths[row + 1][column], lengths[row][column + 1]);
    }
  }
  std::vector<int> partners(rows, -1);
  for (std::size_t row = 0, column = 0; row < rows && column < columns;) {
    if (before[row] == now[column]) {
      partners[row++] = static_cast<int>(column++);
    } else if (lengths[row + 1][column] >= lengths[row][column + 1]) {
      ++row;
    } else {
      ++column;
    }
  }
  return partners;
}

/// The directives of one kind.
class KindOfLine {
 public:
  KindOfLine(const StoredText& file, DirectivePlaces places, Texts before, Texts now, Gap gap)
      : file_(file),
        places_(std::move(places)),
        before_(std::move(before)),
        now_(std::move(now)),
        gap_(gap) {}

  void Change(Edits& edits) {
    if (before_ == now_) return;
    // Not each of them has come into the card: which is which can't be told.
    const bool isClear = places_.size() == before_.size();
    const std::vector<int> partners =
        isClear ? Partners(before_, now_) : std::vector<int>(places_.size(), -1);
    std::size_t next = 0;
    std::size_t first = 0;
    for (std::size_t place = 0; place < places_.size(); ++place) {
      if (partners[place] < 0) continue;
      Exchange(first, place, next, static_cast<std::size_t>(partners[place]), edits);
      gap_ = GapBehind(file_.Text(), places_[place]);
      first = place + 1;
      next = static_cast<std::size_t>(partners[place]) + 1;
    }
    Exchange(first, places_.size(), next, now_.size(), edits);
  }

 private:
  /// The new ones from next to end take the places from first to last, as far as these reach.
  void Exchange(std::size_t first, std::size_t last, std::size_t next, std::size_t end,
                Edits& edits) {
    for (; first < last; ++first) {
      if (next == end) {
        edits.push_back(Cut(file_.Text(), places_[first]));
        continue;
      }
      edits.push_back(ReplacedLine(file_, places_[first], now_[next++]));
      gap_ = GapBehind(file_.Text(), places_[first]);
    }
    if (next == end) return;
    edits.push_back(Inserted(file_, gap_,
                             Texts(now_.begin() + static_cast<std::ptrdiff_t>(next),
                                   now_.begin() + static_cast<std::ptrdiff_t>(end))));
  }

  const StoredText& file_;
  const DirectivePlaces places_;
  const Texts before_;
  const Texts now_;
  Gap gap_;
};

/// The line that makes a card, in the form that the file has for it.
std::string HeadLine(std::string_view text, const DirectivePlace& place,
                     const std::string& written) {
  constexpr std::size_t kName = 2, kPicture = 5, kDescription = 8, kShortFields = 6;
  DirectivePlace whole;
  whole.Row = FindDirective("#CARD");
  whole.End = written.size();
  Texts now = FieldsOf(written, whole);
  Texts fields = FieldsOf(text, place);
  if (place.Row->Fields == whole.Row->Fields) {
    const std::string location = Joined("#CARD, ", now[1], ",");
    return Joined("#CARD, ", PlainField(fields[1]), ",", written.substr(location.size()));
  }
  // Before the six fields of a short line stands a deck number or nothing.
  const std::size_t first = fields.size() - kShortFields;
  std::string line;
  for (std::size_t field = 0; field < first; ++field) line += Joined(fields[field], ", ");
  return Joined(line, NameField(now[kName]), ", ", PlainField(now[kPicture]), ", ",
                PlainField(now[kPicture + 1]), ", ", PlainField(now[kPicture + 2]), ", ",
                PlainField(fields[first + 4]), ", ", QuotedField(now[kDescription]));
}

/// The line above a card that only shows its name; an empty edit where there is none.
TextEdit BannerAbove(std::string_view text, const DirectivePlace& head) {
  constexpr std::string_view kStars = "**********";
  const std::size_t line = LineStart(text, head.Begin);
  if (line == 0 || !BeginsLine(text, head.Begin)) return {line, line, ""};
  std::size_t end = line - 1;
  if (end > 0 && text[end] == '\n' && text[end - 1] == '\r') --end;
  const std::size_t start = LineStart(text, end);
  const bool isBanner = text.substr(start, end - start).starts_with(kStars) &&
                        text.substr(start, end - start).find_first_not_of('*') != text.npos;
  return isBanner ? TextEdit{start, end, ""} : TextEdit{line, line, ""};
}

std::string FirstLineOf(const std::string& written) {
  return written.substr(0, written.find_first_of(kLineEnds));
}

bool IsReference(const DirectivePlace& place) { return place.Row->Word.starts_with("#REF"); }

const DirectivePlace& LastOf(const CardInFile& card) {
  return *std::ranges::max_element(card.Places, {}, &DirectivePlace::End);
}

std::string InFile(const StoredText& file, std::string written) {
  ReplaceAll(written, "\r\n", file.LineEnd());
  return written;
}

}  // namespace

bool IsLineOfCard(const DirectiveRow& row) {
  return row.Word == "#DUPLICATE" || std::ranges::find(kKinds, row.Word) != kKinds.end();
}

std::vector<TextEdit> ChangedLines(const StoredText& file, const CardInFile& card,
                                   const std::string& written) {
  const std::string& text = file.Text();
  const DirectivePlace& head = card.Places.front();
  Edits edits;
  if (IsReference(head)) {
    for (const DirectivePlace& place : card.Places) edits.push_back(Cut(text, place));
    edits.front().Text = InFile(file, written.substr(0, written.find_last_not_of(kLineEnds) + 1));
    return edits;
  }
  const auto before = DirectivesOf(card.Written);
  const auto now = DirectivesOf(written);
  if (before.front().Text != now.front().Text) {
    edits.push_back(ReplacedLine(file, head, HeadLine(text, head, now.front().Text)));
    TextEdit banner = BannerAbove(text, head);
    if (banner.Begin != banner.End && FirstLineOf(card.Written) != FirstLineOf(written)) {
      banner.Text = FirstLineOf(written);
      edits.push_back(banner);
    }
  }
  Gap gap = GapBehind(text, head);
  for (const std::string_view kind : kKinds) {
    const DirectivePlaces places = OfKind(card.Places, kind);
    KindOfLine(file, places, OfKind(before, kind), OfKind(now, kind), gap).Change(edits);
    if (!places.empty()) gap = GapBehind(text, places.back());
  }
  return edits;
}

std::vector<TextEdit> RemovedLines(const StoredText& file, const CardInFile& card) {
  const std::string& text = file.Text();
  Edits edits;
  for (const DirectivePlace& place : card.Places) edits.push_back(Cut(text, place));
  const TextEdit banner = BannerAbove(text, card.Places.front());
  if (banner.Begin != banner.End) edits.push_back(banner);
  const Gap gap = GapBehind(text, LastOf(card));
  constexpr int kBlankLines = 2;  // as many as are written below a card
  std::size_t end = gap.Position;
  for (int line = 0; line < kBlankLines && gap.IsLine; ++line) {
    const std::size_t blanks = BehindBlanks(text, end);
    if (BehindLineEnd(text, blanks) == blanks) break;
    end = BehindLineEnd(text, blanks);
  }
  if (end > gap.Position) edits.push_back({gap.Position, end, ""});
  return edits;
}

TextEdit AddedLines(const StoredText& file, const DirectivePlace* behind,
                    const std::string& written) {
  const std::string& text = file.Text();
  const bool isPlain = text.find_first_of("#\"") == text.npos;
  const Gap atEnd{text.size(), text.empty() || IsLineEnd(text.back())};
  const Gap gap = behind != nullptr ? GapBehind(text, *behind) : isPlain ? atEnd : Gap{0, true};
  std::size_t position = gap.Position;
  // Something else goes on in the line, or it is the last one.
  if (!gap.IsLine) return {position, position, InFile(file, Joined("\r\n", written))};
  while (true) {
    const std::size_t blanks = BehindBlanks(text, position);
    if (BehindLineEnd(text, blanks) == blanks) break;
    position = BehindLineEnd(text, blanks);
  }
  return {position, position, InFile(file, written)};
}

TextEdit ReplacedLine(const StoredText& file, const DirectivePlace& place,
                      const std::string& line) {
  return {place.Begin, EndOfFields(file.Text(), place), line};
}

std::vector<TextEdit> WithWholeLines(const StoredText& file, std::vector<TextEdit> edits) {
  const std::string_view text = file.Text();
  std::ranges::stable_sort(edits, {}, &TextEdit::Begin);
  Edits out;
  const auto isCut = [](const TextEdit& edit) {
    return edit.Text.empty() && edit.End > edit.Begin;
  };
  for (TextEdit& edit : edits) {
    const bool joins = !out.empty() && isCut(out.back()) && isCut(edit) &&
                       BehindBlanks(text, out.back().End) >= edit.Begin;
    if (joins) {
      out.back().End = std::max(out.back().End, edit.End);
    } else {
      out.push_back(std::move(edit));
    }
  }
  for (TextEdit& edit : out) {
    if (!isCut(edit) || !BeginsLine(text, edit.Begin)) continue;
    const std::size_t rest = BehindBlanks(text, edit.End);
    const std::size_t next = BehindLineEnd(text, rest);
    if (next == rest && rest != text.size()) continue;
    edit.Begin = LineStart(text, edit.Begin);
    edit.End = next;
  }
  return out;
}

}  // namespace brindlemoor

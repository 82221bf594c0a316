// The geometry of sheets, and plain texts for them.
#include "editor/card_sheets.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "text/encoding.h"
#include "text/fold.h"
#include "text/quoting.h"

namespace brindlemoor {

namespace {

constexpr double kMarkGap = 1;  ///< millimetres
constexpr double kMarkLength = 5;

/// The parts of a card, from its upper left corner.
constexpr PrintArea kNameArea{3, 3, 57, 7};
constexpr PrintArea kPictureArea{3, 11, 57, 42};
constexpr PrintArea kLineArea{3, 54, 57, 6};
constexpr PrintArea kTextArea{3, 61, 57, 24};
constexpr double kNamePoints = 11;
constexpr double kLinePoints = 8;
constexpr double kTextPoints = 8;

constexpr int kDarkEnough = 110;  ///< brightness, of 255

PrintArea Within(const PrintArea& place, const PrintArea& part) {
  return {place.X + part.X, place.Y + part.Y, part.Width, part.Height};
}

void AddText(PrintedPage& page, PrintedText text) {
  if (!text.Text.empty()) page.Texts.push_back(std::move(text));
}

void AddCard(PrintedPage& page, const PrintArea& place, const SheetCard& card) {
  AddText(page, {.Area = Within(place, kNameArea),
                 .Text = card.Name,
                 .Points = kNamePoints,
                 .Bold = true,
                 .Centred = true,
                 .Color = DarkTone(card.Color)});
  if (!card.Picture.empty()) page.Pictures.push_back({Within(place, kPictureArea), card.Picture});
  AddText(page, {.Area = Within(place, kLineArea),
                 .Text = card.Line,
                 .Points = kLinePoints,
                 .Centred = true});
  AddText(page,
          {.Area = Within(place, kTextArea), .Text = card.Description, .Points = kTextPoints});
}

void AddMarks(PrintedPage& page, PaperSize paper) {
  const PrintArea first = SheetPlace(paper, 0);
  const double right = first.X + kSheetColumns * kSheetCardWidth;
  const double bottom = first.Y + kSheetRows * kSheetCardHeight;
  for (int column = 0; column <= kSheetColumns; ++column) {
    const double x = first.X + column * kSheetCardWidth;
    page.Lines.push_back({x, first.Y - kMarkGap - kMarkLength, x, first.Y - kMarkGap});
    page.Lines.push_back({x, bottom + kMarkGap, x, bottom + kMarkGap + kMarkLength});
  }
  for (int row = 0; row <= kSheetRows; ++row) {
    const double y = first.Y + row * kSheetCardHeight;
    page.Lines.push_back({first.X - kMarkGap - kMarkLength, y, first.X - kMarkGap, y});
    page.Lines.push_back({right + kMarkGap, y, right + kMarkGap + kMarkLength, y});
  }
}

struct Entity {
  std::string_view Name;
  std::string_view Text;
};
constexpr std::array<Entity, 6> kEntities = {
    {{"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}, {"apos", "'"}, {"nbsp", " "}}};

std::optional<std::string> EntityText(std::string_view name) {
  for (const Entity& entity : kEntities) {
    if (entity.Name == name) return std::string(entity.Text);
  }
  if (!name.starts_with('#')) return std::nullopt;
  name.remove_prefix(1);
  const bool hexadecimal = name.starts_with('x') || name.starts_with('X');
  if (hexadecimal) name.remove_prefix(1);
  std::uint32_t number = 0;
  const auto [end, error] =
      std::from_chars(name.data(), name.data() + name.size(), number, hexadecimal ? 16 : 10);
  const bool isCharacter =
      number >= ' ' && number <= 0x10FFFF && (number < 0xD800 || number > 0xDFFF);
  if (error != std::errc() || end != name.data() + name.size() || !isCharacter) return std::nullopt;
  std::string text;
  AppendCodePoint(text, number);
  return text;
}

/// True for tags between which browsers break the line.
bool BreaksLine(std::string_view tag) {
  constexpr std::array<std::string_view, 7> kBreaks = {"br", "p", "div", "li", "tr", "hr", "table"};
  if (tag.starts_with('/')) tag.remove_prefix(1);
  const std::string_view name = tag.substr(0, tag.find_first_of(" \t\r\n/"));
  return std::ranges::any_of(kBreaks, [&](auto known) { return FoldEquals(known, name); });
}

/// Text as a browser would space it: runs of blanks are one, lines have none at their ends.
class PlainLines {
 public:
  void Add(std::string_view text) {
    for (const char character : text) {
      if (character == ' ' || character == '\t' || character == '\r' || character == '\n') {
        blank_ = true;
      } else {
        if (blank_ && !text_.empty() && !text_.ends_with('\n')) text_ += ' ';
        blank_ = false;
        text_ += character;
      }
    }
  }
  void Break() {
    if (!text_.empty() && !text_.ends_with('\n')) text_ += '\n';
    blank_ = false;
  }
  std::string Take() {
    if (text_.ends_with('\n')) text_.pop_back();
    return std::move(text_);
  }

 private:
  std::string text_;
  bool blank_ = false;
};

}  // namespace

int SheetCount(int cards) { return (cards + kSheetCards - 1) / kSheetCards; }

PrintArea SheetPlace(PaperSize paper, int card) {
  const double left = (paper.Width - kSheetColumns * kSheetCardWidth) / 2;
  const double top = (paper.Height - kSheetRows * kSheetCardHeight) / 2;
  const int column = card % kSheetColumns;
  const int row = card / kSheetColumns;
  return {left + column * kSheetCardWidth, top + row * kSheetCardHeight, kSheetCardWidth,
          kSheetCardHeight};
}

PrintedPage LayOutSheet(PaperSize paper, std::span<const SheetCard> cards) {
  PrintedPage page;
  const int count = std::min(static_cast<int>(cards.size()), kSheetCards);
  for (int card = 0; card < count; ++card) {
    AddCard(page, SheetPlace(paper, card), cards[static_cast<std::size_t>(card)]);
  }
  AddMarks(page, paper);
  return page;
}

std::int32_t DarkTone(std::int32_t color) {
  const int red = color >> 16 & 0xFF;
  const int green = color >> 8 & 0xFF;
  const int blue = color & 0xFF;
  const int brightness = (299 * red + 587 * green + 114 * blue) / 1000;
  if (brightness <= kDarkEnough) return color;
  const auto darker = [&](int part) { return part * kDarkEnough / brightness; };
  return darker(red) << 16 | darker(green) << 8 | darker(blue);
}

std::string WithoutMarkup(std::string_view html) {
  constexpr std::size_t kLongestEntity = 10;
  PlainLines lines;
  bool closed = true;  // there may be another ">"
  while (!html.empty()) {
    std::size_t taken = std::min(html.find_first_of("<&", 1), html.size());
    if (closed && BeginsTag(html)) {
      const std::size_t end = html.find('>');
      closed = end != std::string_view::npos;
      if (closed) {
        if (BreaksLine(html.substr(1, end - 1))) lines.Break();
        html.remove_prefix(end + 1);
        continue;
      }
    }
    if (html[0] == '&') {
      const std::size_t end = html.substr(0, kLongestEntity).find(';');
      const auto text =
          end == std::string_view::npos ? std::nullopt : EntityText(html.substr(1, end - 1));
      if (text) {
        lines.Add(*text);
        html.remove_prefix(end + 1);
        continue;
      }
    }
    lines.Add(html.substr(0, taken));
    html.remove_prefix(taken);
  }
  return lines.Take();
}

}  // namespace brindlemoor

// Sheets of cards for printing: what a card shows there, and where it stands.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/printing.h"

namespace brindlemoor {

inline constexpr PaperSize kA4{210, 297};
inline constexpr PaperSize kLetter{215.9, 279.4};
inline constexpr int kSheetColumns = 3;
inline constexpr int kSheetRows = 3;
inline constexpr int kSheetCards = kSheetColumns * kSheetRows;
inline constexpr double kSheetCardWidth = 63;  ///< millimetres
inline constexpr double kSheetCardHeight = 88;

struct SheetCard {
  std::string Name{};
  std::string Picture{};  ///< absolute path, "" for none
  std::string Line{};     ///< cost and traits
  std::string Description{};
  std::int32_t Color = 0;  ///< of the name, red high and blue low
};

/// How many sheets a number of cards fills.
int SheetCount(int cards);

/// Where the card of a sheet, counted from 0 along the rows, stands: side by side in the middle of
/// the paper.
PrintArea SheetPlace(PaperSize paper, int card);

/// A sheet with up to kSheetCards cards, and marks outside of them that tell where to cut.
PrintedPage LayOutSheet(PaperSize paper, std::span<const SheetCard> cards);

/// The colour where it can be read on white paper, else a darker tone of it.
std::int32_t DarkTone(std::int32_t color);

/// The plain text of a piece of HTML. Paragraphs and breaks begin lines.
std::string WithoutMarkup(std::string_view html);

}  // namespace brindlemoor

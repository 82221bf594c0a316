// Places of texts with letters beyond ASCII, in both ways of counting, and beyond every end.
#include "server/text_positions.h"

#include <gtest/gtest.h>
#include <string>

namespace brindlemoor {
namespace {

// A letter of two bytes, one of three, a picture of four bytes and two units.
constexpr std::string_view kText = "a\u00E9\u20AC\U0001F98Az\r\nb\rc\n\n\u00E9";

TEST(TextPositions, CountInUnitsOrBytesAndLeadBack) {
  struct Row {
    std::size_t Byte;
    TextPosition Utf16;
    TextPosition Utf8;
  };
  const Row rows[] = {
      {0, {0, 0}, {0, 0}},   {1, {0, 1}, {0, 1}},   {3, {0, 2}, {0, 3}},  {6, {0, 3}, {0, 6}},
      {10, {0, 5}, {0, 10}}, {11, {0, 6}, {0, 11}}, {13, {1, 0}, {1, 0}}, {15, {2, 0}, {2, 0}},
      {17, {3, 0}, {3, 0}},  {18, {4, 0}, {4, 0}},  {20, {4, 1}, {4, 2}},
  };
  const TextPositions units(kText, PositionUnits::kUtf16);
  const TextPositions bytes(kText, PositionUnits::kUtf8);
  for (const Row& row : rows) {
    EXPECT_EQ(units.PositionOf(row.Byte), row.Utf16) << row.Byte;
    EXPECT_EQ(bytes.PositionOf(row.Byte), row.Utf8) << row.Byte;
    EXPECT_EQ(units.ByteAt(row.Utf16), row.Byte);
    EXPECT_EQ(bytes.ByteAt(row.Utf8), row.Byte);
  }
}

TEST(TextPositions, StayInTheTextAndAtCharacters) {
  constexpr std::size_t kHuge = ~std::size_t{0};
  const TextPositions units(kText, PositionUnits::kUtf16);
  const TextPositions bytes(kText, PositionUnits::kUtf8);
  EXPECT_EQ(units.ByteAt({0, 4}), 6U);  // in the middle of the picture
  EXPECT_EQ(bytes.ByteAt({0, 8}), 6U);
  for (const TextPositions* positions : {&units, &bytes}) {
    EXPECT_EQ(positions->ByteAt({0, kHuge}), 11U);
    EXPECT_EQ(positions->ByteAt({3, 7}), 17U);
    EXPECT_EQ(positions->ByteAt({5, 0}), kText.size());
    EXPECT_EQ(positions->ByteAt({kHuge, kHuge}), kText.size());
    EXPECT_EQ(positions->PositionOf(kHuge).Line, 4U);
  }
  EXPECT_EQ(TextPositions("", PositionUnits::kUtf16).ByteAt({0, 3}), 0U);
}

TEST(TextPositions, CountLongLinesLikeShortOnes) {
  std::string text;
  for (int letter = 0; letter < 5000; ++letter) text += letter % 3 == 0 ? "\U0001F98A" : "\u00E9";
  const TextPositions units(text, PositionUnits::kUtf16);
  std::size_t byte = 0;
  std::size_t unit = 0;
  for (int letter = 0; letter < 5000; ++letter) {
    ASSERT_EQ(units.ByteAt({0, unit}), byte) << letter;
    ASSERT_EQ(units.PositionOf(byte), (TextPosition{0, unit})) << letter;
    ASSERT_EQ(units.ByteOfCharacter(1, letter + 1), byte) << letter;
    byte += letter % 3 == 0 ? 4 : 2;
    unit += letter % 3 == 0 ? 2 : 1;
  }
}

}  // namespace
}  // namespace brindlemoor

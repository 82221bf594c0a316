// Tables that come from spreadsheets and go to them.
#include "text/table_text.h"

#include <gtest/gtest.h>
#include <random>

namespace brindlemoor {
namespace {

using Rows = std::vector<TableRow>;

TEST(TableTextTest, WhatProgramsCopyIsReadAsTheyMeantIt) {
  const std::pair<const char*, Rows> cases[] = {
      {"", {{""}}},
      {"\n", {{""}}},
      {"a\tb\r\nc\t\r\n", {{"a", "b"}, {"c", ""}}},
      {"a\n\n", {{"a"}, {""}}},
      {"\"one\r\ntwo\"\tx\n\"say \"\"no\"\"\"\n", {{"one\ntwo", "x"}, {"say \"no\""}}},
      {"\"a\tb\"", {{"a\tb"}}},
      // Quotes of prose, of which no spreadsheet knows.
      {"\"Go\" she said\tx", {{"\"Go\" she said", "x"}}},
      {"\"never closed\nx\t5\" wide", {{"\"never closed"}, {"x", "5\" wide"}}},
  };
  for (const auto& [text, rows] : cases) EXPECT_EQ(TableRows(text), rows) << text;
}

TEST(TableTextTest, WhatIsCopiedComesBack) {
  std::mt19937 random(5);
  const auto upTo = [&random](unsigned most) { return random() % (most + 1); };
  for (int round = 0; round < 2000; ++round) {
    Rows rows(1 + upTo(2), TableRow(1 + upTo(2)));
    for (TableRow& row : rows) {
      for (std::string& cell : row) {
        for (unsigned length = upTo(4); length > 0; --length) cell += "ab\"\t\n "[upTo(5)];
      }
    }
    EXPECT_EQ(TableRows(TableText(rows)), rows) << TableText(rows);
  }
}

}  // namespace
}  // namespace brindlemoor

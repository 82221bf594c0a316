// File encodings and case folding: what an author's file in any of them must read as.
#include "text/encoding.h"

#include <gtest/gtest.h>

#include "text/fold.h"

namespace brindlemoor {
namespace {

TEST(EncodingTest, FilesAreUtf8ElseWindows1252) {
  const std::pair<std::string, std::string> cases[] = {
      {"\xEF\xBB\xBFmarked", "marked"},
      {"caf\xC3\xA9", "caf\xC3\xA9"},
      {"caf\xE9", "caf\xC3\xA9"},
      {"\x93quoted\x94 \x80\x81", "\xE2\x80\x9Cquoted\xE2\x80\x9D \xE2\x82\xAC\xEF\xBF\xBD"},
      {"\xF0\x9F\x82\xA1", "\xF0\x9F\x82\xA1"},
      // One broken character makes the whole file Windows-1252, its valid ones as well.
      {"\xC3\xA9\xE9.", "\xC3\x83\xC2\xA9\xC3\xA9."},
      // But a file that ends inside a character was cut.
      {"\xC3\xA9\xE9", "\xC3\xA9"}};
  for (const auto& [bytes, text] : cases) EXPECT_EQ(DecodeFileText(bytes), text);
}

TEST(EncodingTest, OnlyWellFormedBytesAreUtf8) {
  for (const char* bytes : {"\x80", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xC3", "\xE2\x82",
                            "\xED\xA0\x80", "\xED\xBF\xBF", "\xF5\x80", "\xF0\x8F\xBF\xBF",
                            "\xF4\x90\x80\x80", "\xC3\x28", "\xFE", "a\xE2\x82z"}) {
    EXPECT_FALSE(IsUtf8(bytes)) << bytes;
  }
}

TEST(FoldTest, UpperCaseIsSimpleAndKeepsWhatHasNone) {
  const std::pair<std::string, std::string> cases[] = {
      {"Goblin 7:x", "GOBLIN 7:X"},
      {"\xC3\xA9\xC3\xB1\xC3\xBF", "\xC3\x89\xC3\x91\xC5\xB8"},  // é ñ ÿ
      {"a\xC3\x9F", "A\xC3\x9F"},                                // ß has no simple upper case
      {"\xD0\xB6\xD1\x8F", "\xD0\x96\xD0\xAF"},                  // Cyrillic
      {"\xCF\x83\xCF\x82", "\xCE\xA3\xCE\xA3"},                  // both small sigmas
      {"\xC4\x81\xC4\x80", "\xC4\x80\xC4\x80"},                  // pairs that alternate
      {"\xE1\xBE\x80", "\xE1\xBE\x88"},                          // simple though not full
      {"\xF0\x90\x90\xA8", "\xF0\x90\x90\x80"},                  // beyond 16 bits
      {"\xC3\x97\xC3\xB7", "\xC3\x97\xC3\xB7"},                  // × ÷ are no letters
      {"\xE9z", "\xE9Z"},                                        // no UTF-8
  };
  for (const auto& [text, upper] : cases) {
    EXPECT_EQ(FoldUpper(text), upper);
    EXPECT_TRUE(FoldEquals(text, upper)) << text;
    EXPECT_TRUE(FoldStartsWith(text + "!", upper)) << text;
  }
  const std::pair<const char*, const char*> others[] = {
      {"HP", "HPMAX"}, {"HPMAX", "HP"}, {"", "x"}, {"[", "{"}, {"\xE9", "\xC3\xA9"}};
  for (const auto& [a, b] : others) EXPECT_FALSE(FoldEquals(a, b)) << a << " " << b;
  EXPECT_TRUE(FoldEquals("\xC4\xB1", "i")) << "dotless i folds to I";
  EXPECT_FALSE(FoldStartsWith("bon", "BONUS"));
  EXPECT_EQ(FoldPrefixLength("bonusHP", "BONUS"), 5);
  EXPECT_EQ(FoldPrefixLength("BOGUS", "BONUS"), -1);
}

TEST(FoldTest, APartIsFoundWhereverItStands) {
  const std::tuple<const char*, const char*, bool> cases[] = {
      {"Old Lighthouse", "LIGHT", true},
      {"Old Lighthouse", "house", true},
      {"aaab", "AAB", true},
      {"gull", "gulls", false},
      {"gull", "", true},
      {"", "", true},
      {"", "a", false},
      {"caf\xC3\xA9 noir", "\xC3\x89 N", true},
      {"\xC3\xA9t\xC3\xA9", "t\xC3\x89", true},
      {"D\xC4\xB1ng", "ding", true},
      {"cut \xC3", "\xC3\xA9", false},
      {"caf\xC3\xA9", "\xA9", false},
      {"\xE9 bad", "BAD", true},
      {"\xE9 bad", "\xE9 B", true},
      {"caf\xC3\xA9", "\xC3", false}};
  for (const auto& [text, part, occurs] : cases) {
    EXPECT_EQ(FoldContains(text, part), occurs) << text << ": " << part;
  }
}

}  // namespace
}  // namespace brindlemoor

// Delimited strings, replacing, numbers and colours: the edges that scripts and files rely on.
#include "core/strings.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

#include "core/limits.h"
#include "core/replacing.h"
#include "core/state.h"

namespace brindlemoor {
namespace {

TEST(FieldsTest, GivesFieldsAndEmptyTextForMissingOnes) {
  const std::tuple<const char*, int, const char*> colons[] = {
      {"", 1, ""},    {"ABC", 1, "ABC"}, {"ABC", 2, ""}, {"A:", 2, ""},   {":B", 1, ""},
      {":B", 2, "B"}, {"A::C", 3, "C"},  {"A:B", 0, ""}, {"A:B", -1, ""}, {"A:B", 300, ""}};
  for (const auto& [text, n, field] : colons) EXPECT_EQ(GetDS(text, n, ":"), field) << text << n;
  const std::tuple<const char*, int, const char*> scripts[] = {
      {"x$|$y$|$z", 1, "x"}, {"x$|$y$|$z", 3, "z"}, {"x$|$y$|$z", 4, ""},  {"x$|$", 2, ""},
      {"$|$x", 1, ""},       {"$|$x", 2, "x"},      {"one", 1, "one"},     {"one", 2, ""},
      {"a|$b$|$c", 1, "ab"}, {"a|$b", 1, "a|$b"},   {"x$|$a|$b", 2, "ab"}, {"a$|$|$b", 2, "|"},
      {"a$|$|$b", 3, "b"}};
  for (const auto& [text, n, field] : scripts) EXPECT_EQ(GetDS(text, n, "$|$"), field) << text << n;
  EXPECT_EQ(GetDS("A:B", 1, ""), "A:B");
  const std::tuple<const char*, int, const char*> rests[] = {
      {"A:B:C", 1, "A:B:C"}, {"A:B:C", 2, "B:C"}, {"ABC", 1, "ABC"}, {"ABC", 2, ""},
      {"A:B", 3, ""},        {"A:", 2, ""},       {"A::B", 2, ":B"}, {"A:B", 0, ""}};
  for (const auto& [text, n, rest] : rests) EXPECT_EQ(RestDS(text, n, ":"), rest) << text << n;
}

TEST(FieldsTest, TheWalkerAgreesWithTheFieldFunctions) {
  for (const std::string text : {"", "a", ":", "a:", ":a", "a::b", "::", "a:b:", ":a:b::"}) {
    FieldWalker walker(text, ':');
    for (int n = 1; n <= 8; ++n) {
      const bool exists = !walker.AtEnd();
      ASSERT_EQ(walker.Next(), GetDS(text, n, ":")) << text << " field " << n;
      ASSERT_TRUE(!exists || walker.Rest() == RestDS(text, n + 1, ":")) << text << " behind " << n;
    }
  }
}

TEST(ReplaceAllTest, SearchesItsOwnResultAgain) {
  const std::array<const char*, 4> cases[] = {
      {"aab", "ab", "b", "b"},  {"abc", "x", "y", "abc"},
      {"abc", "", "y", "abc"},  {"xaybz", "ay", "", "xbz"},
      {"aabbab", "ab", "", ""}, {"a.b.c", ".", "--", "a--b--c"},
      {"aaaa", "aa", "a", "a"}, {"abab", "ba", "ab", "aabb"},
      {"aa", "a", "a", "aa"},   {"a$N and $N", "$N", "x$N", "ax$N and x$N"}};
  for (const auto& [text, search, replacement, result] : cases) {
    EXPECT_EQ(ReplacedCopy(text, search, replacement), result) << text << ": " << search;
  }
}

TEST(ReplaceAllTest, DoesWhatStartingAgainDoes) {
  std::mt19937 random(1);
  const auto text = [&random](std::size_t longest) {
    std::string made(random() % (longest + 1), 'a');
    for (char& character : made) character = "ab$<"[random() % 4];
    return made;
  };
  int compared = 0;
  for (int round = 0; round < 20000; ++round) {
    const std::string original = text(14);
    const std::string search = text(3);
    const std::string replacement = text(3);
    if (search.empty() || replacement.find(search) != std::string::npos) continue;
    std::string expected = original;
    int steps = 0;
    for (auto at = expected.find(search); at != std::string::npos && steps < 200; ++steps) {
      expected.replace(at, search.size(), replacement);
      at = expected.find(search);
    }
    if (steps == 200) continue;  // it has no end
    ++compared;
    ASSERT_EQ(ReplacedCopy(original, search, replacement), expected)
        << original << ": " << search << " by " << replacement;
  }
  EXPECT_GT(compared, 10000);
}

TEST(ReplaceAllTest, StopsAtItsBoundsAndSaysSo) {
  State() = Session{};
  const auto lines = static_cast<std::size_t>(limits::kReplacements) * 2;
  EXPECT_EQ(ReplacedCopy(std::string(lines, '\n'), "\n", "<").size(), lines);
  EXPECT_EQ(State().PhaseBanner, "") << "many plain replacements are no runaway";
  // Every "a" that passes a "b" doubles it: 2 to the 40th of them, were there no bound.
  EXPECT_LT(ReplacedCopy(std::string(40, 'a') + "b", "ab", "bba").size(), 10U << 20);
  EXPECT_NE(State().PhaseBanner, "");
  State() = Session{};
  const std::string grown = ReplacedCopy(std::string(5000, 'x'), "x", std::string(4000, 'x'));
  EXPECT_LE(grown.size(), static_cast<std::size_t>(limits::kTextBytes) + 5000);
  EXPECT_NE(State().PhaseBanner, "");
  State() = Session{};
}

TEST(NumbersTest, TextsAndNumbersBecomeEachOther) {
  const std::pair<const char*, double> prefixes[] = {
      {"", 0},       {"12abc", 12}, {"abc", 0},    {"  7", 7},     {"-3", -3},  {"+4", 4},
      {"2.5x", 2.5}, {".5", 0.5},   {"5.", 5},     {".", 0},       {"-", 0},    {"--5", 0},
      {"1e3", 1000}, {"1e", 1},     {"12 34", 12}, {"1,5", 1},     {"inf", 0},  {"nan", 0},
      {"-inf", 0},   {"1e999", 0},  {"0x10", 0},   {"1.2.3", 1.2}, {"NONE", 0}, {"\t9", 9}};
  for (const auto& [text, number] : prefixes) EXPECT_EQ(NumericPrefix(text), number) << text;
  for (const char* text : {"0", "-12", "-0.5", "999999999999999", "1000000000000000",
                           "9007199254740992", "100000000000000000000", "123456.75", "0.0000001"}) {
    EXPECT_EQ(NumberText(NumericPrefix(text)), text);
  }
  for (const double none : {-0.0, 1.0 / 0.0, 0.0 / 0.0}) EXPECT_EQ(NumberText(none), "0");
  EXPECT_EQ(NumberText(0.1 + 0.2), "0.3");
  EXPECT_EQ(NumberText(1.0 / 3), "0.333333333333333");
  for (const double huge : {1.5e300, -2e-40, 1e21}) {
    EXPECT_EQ(NumericPrefix(NumberText(huge)), huge) << "extreme numbers are read back";
  }
  EXPECT_EQ(Joined("a", 3, 'c', 2.50, Text("t"), std::string("s"), -1L), "a3c2.5ts-1");
  EXPECT_FALSE(Value(7).IsText("7"));
  EXPECT_EQ(Larger("9", 10).Str(), "10");
  EXPECT_EQ(Larger("RED", -1).Str(), "RED");
  EXPECT_EQ(Smaller("9 lives", 10).Str(), "9 lives");
  EXPECT_EQ(Smaller("first", "second").Str(), "first") << "equal numbers give the first";
  EXPECT_EQ(Distance(-2, 5), 7);
}

TEST(ColorTest, ReadsAndSplitsColourTexts) {
  const std::pair<const char*, std::int32_t> cases[] = {
      {"#FF0080", 0xFF0080}, {"ff0080", 0xFF0080}, {"#", 0},          {"", 0},
      {"#12G", 0xFFFFFF},    {"##00##FF", 0xFF},   {"#-1", 0xFFFFFF}, {"#123456789AB", 0xFFFFFF}};
  for (const auto& [text, value] : cases) EXPECT_EQ(ColorValue(text), value) << text;
  int low = 9;
  int middle = 9;
  int high = 9;
  SplitColor(ColorValue("#112233"), low, middle, high);
  EXPECT_EQ(Joined(high, " ", middle, " ", low), "17 34 51");
}

}  // namespace
}  // namespace brindlemoor

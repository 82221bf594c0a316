// Delimited strings, replacing, numbers and colours: the edges that scripts and files rely on.
#include "core/strings.h"

#include <gtest/gtest.h>
#include <random>

#include "core/limits.h"
#include "core/state.h"

namespace brindlemoor {
namespace {

struct FieldCase {
  const char* Text;
  int Number;
  const char* Delimiter;
  const char* Field;
};

TEST(GetDSTest, GivesFieldsAndEmptyTextForMissingOnes) {
  const FieldCase cases[] = {
      {"", 1, ":", ""},
      {"ABC", 1, ":", "ABC"},
      {"ABC", 2, ":", ""},
      {"A:B", 2, ":", "B"},
      {"A:B", 3, ":", ""},
      {"A:", 2, ":", ""},
      {":B", 1, ":", ""},
      {":B", 2, ":", "B"},
      {"A::C", 2, ":", ""},
      {"A::C", 3, ":", "C"},
      {"A:B", 0, ":", ""},
      {"A:B", -1, ":", ""},
      {"ABC", 0, ":", ""},
      {"A:B", 300, ":", ""},
      {"x$|$y$|$z", 1, "$|$", "x"},
      {"x$|$y$|$z", 2, "$|$", "y"},
      {"x$|$y$|$z", 3, "$|$", "z"},
      {"x$|$y$|$z", 4, "$|$", ""},
      {"x$|$y$|$z", 5, "$|$", ""},
      {"x$|$", 1, "$|$", "x"},
      {"x$|$", 2, "$|$", ""},
      {"$|$x", 1, "$|$", ""},
      {"$|$x", 2, "$|$", "x"},
      {"one", 1, "$|$", "one"},
      {"one", 2, "$|$", ""},
      {"a|$b$|$c", 1, "$|$", "ab"},
      {"a|$b", 1, "$|$", "a|$b"},
      {"x$|$a|$b", 2, "$|$", "ab"},
      {"a$|$|$b", 2, "$|$", "|"},
      {"a$|$|$b", 3, "$|$", "b"},
      {"A:B", 1, "", "A:B"},
  };
  for (const FieldCase& row : cases) {
    EXPECT_EQ(GetDS(row.Text, row.Number, row.Delimiter), row.Field)
        << row.Text << " field " << row.Number << " by " << row.Delimiter;
  }
}

TEST(RestDSTest, GivesTheFieldAndEverythingBehindIt) {
  const FieldCase cases[] = {
      {"A:B:C", 2, ":", "B:C"}, {"A:B:C", 1, ":", "A:B:C"}, {"A:B:C", 3, ":", "C"},
      {"ABC", 1, ":", "ABC"},   {"ABC", 2, ":", ""},        {"A:B", 3, ":", ""},
      {"A:", 2, ":", ""},       {"A::B", 2, ":", ":B"},     {"A:B", 0, ":", ""},
      {"", 1, ":", ""},
  };
  for (const FieldCase& row : cases) {
    EXPECT_EQ(RestDS(row.Text, row.Number, row.Delimiter), row.Field)
        << row.Text << " from " << row.Number;
  }
}

/// The fields by the book: the delimiter is appended and the text walked from delimiter to
/// delimiter.
std::string WalkedField(std::string text, int n) {
  if (text.find(':') == std::string::npos) return n == 1 ? text : "";
  text += ':';
  std::size_t position = 0;
  for (int count = 1; count < n; ++count) {
    position = text.find(':', position) + 1;
    if (position >= text.size()) return "";
  }
  return text.substr(position, text.find(':', position) - position);
}

TEST(FieldWalkerTest, AgreesWithTheFieldFunctionsOnRandomTexts) {
  std::mt19937 random(7);
  for (int round = 0; round < 2000; ++round) {
    std::string text;
    for (auto length = random() % 12; length > 0; --length) text += "ab::"[random() % 4];
    FieldWalker walker(text, ':');
    for (int n = 1; n <= 14; ++n) {
      const bool exists = !walker.AtEnd();
      const std::string field = WalkedField(text, n);
      ASSERT_EQ(GetDS(text, n, ":"), field) << text << " field " << n;
      ASSERT_EQ(FieldAt(text, n, ':'), field) << text << " field " << n;
      ASSERT_EQ(walker.Next(), field) << text << " field " << n;
      if (exists) {
        ASSERT_EQ(walker.Rest(), RestDS(text, n + 1, ":")) << text << " behind " << n;
      }
    }
    ASSERT_TRUE(walker.AtEnd());
  }
}

struct ReplaceCase {
  const char* Text;
  const char* Search;
  const char* Replacement;
  const char* Result;
};

TEST(ReplaceAllTest, SearchesItsOwnResultAgain) {
  const ReplaceCase cases[] = {
      {"aab", "ab", "b", "b"},
      {"abc", "x", "y", "abc"},
      {"abc", "", "y", "abc"},
      {"", "a", "b", ""},
      {"xaybz", "ay", "", "xbz"},
      {"aabbab", "ab", "", ""},
      {"(()())", "()", "", ""},
      {"a.b.c", ".", "--", "a--b--c"},
      {"aaaa", "aa", "a", "a"},
      {"abab", "ba", "ab", "aabb"},
      {"a$N and $N", "$N", "x$N", "ax$N and x$N"},  // holds the search text: one pass
      {"aa", "a", "a", "aa"},
  };
  for (const ReplaceCase& row : cases) {
    std::string text = row.Text;
    EXPECT_EQ(&ReplaceAll(text, row.Search, row.Replacement), &text);
    EXPECT_EQ(text, row.Result) << row.Text << ": " << row.Search << " by " << row.Replacement;
    EXPECT_EQ(ReplacedCopy(row.Text, row.Search, row.Replacement), row.Result);
  }
}

TEST(ReplaceAllTest, AgreesWithRescanningFromTheBeginning) {
  std::mt19937 random(11);
  const auto word = [&random](std::size_t longest) {
    std::string text;
    for (auto length = random() % (longest + 1); length > 0; --length) text += "ab"[random() % 2];
    return text;
  };
  for (int round = 0; round < 3000; ++round) {
    const std::string text = word(10);
    const std::string search = word(2) + "b";
    const std::string replacement = word(2);
    if (replacement.find(search) != std::string::npos) continue;
    std::string expected = text;
    int replacements = 0;
    for (auto found = expected.find(search); found != std::string::npos && ++replacements < 500;
         found = expected.find(search)) {
      expected.replace(found, search.size(), replacement);
    }
    if (replacements >= 500) continue;
    ASSERT_EQ(ReplacedCopy(text, search, replacement), expected)
        << text << ": " << search << " by " << replacement;
  }
}

TEST(ReplaceAllTest, StopsAtItsBoundsAndSaysSo) {
  State() = Session{};
  // Every "a" that passes a "b" doubles it: 2 to the 40th of them, were there no bound.
  const std::string grown = ReplacedCopy(std::string(40, 'a') + "b", "ab", "bba");
  EXPECT_LT(grown.size(), 10U << 20);
  EXPECT_NE(State().PhaseBanner.find("<br><font color=#FF9900>"), std::string::npos);

  State() = Session{};
  const std::string replaced = ReplacedCopy(std::string(5000, 'x'), "x", std::string(4000, 'x'));
  EXPECT_LE(replaced.size(), static_cast<std::size_t>(limits::kTextBytes) + 5000);
  EXPECT_NE(State().PhaseBanner, "");
  State() = Session{};
}

TEST(ReplaceAllTest, ManyPlainReplacementsAreNoRunaway) {
  State() = Session{};
  const auto lines = static_cast<std::size_t>(limits::kReplacements) * 2;
  EXPECT_EQ(ReplacedCopy(std::string(lines, '\n'), "\n", "<").size(), lines);
  EXPECT_EQ(State().PhaseBanner, "");
}

TEST(NumericPrefixTest, ReadsTheNumberThatATextBeginsWith) {
  const std::pair<const char*, double> cases[] = {
      {"", 0},       {"12abc", 12}, {"abc", 0},    {"  7", 7},     {"-3", -3}, {"+4", 4},
      {"2.5x", 2.5}, {".5", 0.5},   {"5.", 5},     {".", 0},       {"-", 0},   {"--5", 0},
      {"1e3", 1000}, {"1e", 1},     {"12 34", 12}, {"1,5", 1},     {"inf", 0}, {"nan", 0},
      {"-inf", 0},   {"1e999", 0},  {"0x10", 0},   {"1.2.3", 1.2}, {"-0", 0},  {"NONE", 0},
      {"\t9", 9},    {"007", 7},
  };
  for (const auto& [text, number] : cases) EXPECT_EQ(NumericPrefix(text), number) << text;
}

TEST(NumberTextTest, PrintsTheShortestPlainForm) {
  const std::pair<double, const char*> cases[] = {
      {0, "0"},
      {-0.0, "0"},
      {5, "5"},
      {-12, "-12"},
      {2.5, "2.5"},
      {-0.5, "-0.5"},
      {0.1, "0.1"},
      {0.1 + 0.2, "0.3"},
      {100000000, "100000000"},
      {1e15, "1000000000000000"},
      {9007199254740992.0, "9007199254740992"},
      {1e20, "100000000000000000000"},
      {123456.75, "123456.75"},
      {0.0000001, "0.0000001"},
      {1.0 / 3, "0.333333333333333"},
      {1.0 / 0.0, "0"},
      {-1.0 / 0.0, "0"},
      {0.0 / 0.0, "0"},
  };
  for (const auto& [number, text] : cases) EXPECT_EQ(NumberText(number), text);
  for (const double huge : {1.5e300, -2e-40, 1e21}) {
    EXPECT_EQ(NumericPrefix(NumberText(huge)), huge) << "extreme numbers are read back";
  }
  EXPECT_EQ(Joined("a", 3, 'c', 2.50, Text("t"), std::string("s"), -1L), "a3c2.5ts-1");
}

TEST(ValueTest, ReadsAndPrintsNumbersAndTexts) {
  EXPECT_EQ(Value("12abc").Number(), 12);
  EXPECT_EQ(Value("RED").Number(), 0);
  EXPECT_EQ(Value().Str(), "");
  EXPECT_EQ(Value(7).Str(), "7");
  EXPECT_EQ(Value(0.5).Str(), "0.5");
  EXPECT_TRUE(Value("NONE").IsText("NONE"));
  EXPECT_FALSE(Value(7).IsText("7"));
  EXPECT_EQ(Larger("9", 10).Str(), "10");
  EXPECT_EQ(Larger("RED", -1).Str(), "RED");
  EXPECT_EQ(Smaller("9 lives", 10).Str(), "9 lives");
  EXPECT_EQ(Smaller("first", "second").Str(), "first") << "equal numbers give the first";
  EXPECT_EQ(Distance(-2, 5), 7);
  EXPECT_EQ(Distance(5, -2), 7);
}

TEST(ColorTest, ReadsAndSplitsColourTexts) {
  const std::pair<const char*, std::int32_t> cases[] = {
      {"#FF0080", 0xFF0080},      {"ff0080", 0xFF0080}, {"#", 0},           {"", 0},
      {"#ZZ", 0xFFFFFF},          {"#12G", 0xFFFFFF},   {"##00##FF", 0xFF}, {"#-1", 0xFFFFFF},
      {"#123456789AB", 0xFFFFFF},
  };
  for (const auto& [text, value] : cases) EXPECT_EQ(ColorValue(text), value) << text;
  int low = 9;
  int middle = 9;
  int high = 9;
  SplitColor(ColorValue("#112233"), low, middle, high);
  EXPECT_EQ(high, 0x11);
  EXPECT_EQ(middle, 0x22);
  EXPECT_EQ(low, 0x33);
  SplitColor(0, low, middle, high);
  EXPECT_EQ(low + middle + high, 0);
}

}  // namespace
}  // namespace brindlemoor

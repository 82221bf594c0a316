// A script split once gives the same fields as the delimited-string routines, at every edge.
#include "script/parsed_script.h"

#include <gtest/gtest.h>
#include <set>

#include "core/strings.h"
#include "script/command_table.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class ParsedScriptTest : public SessionTest {};

TEST_F(ParsedScriptTest, FieldsAndTailsAreThoseOfTheDelimitedText) {
  for (const char* script : {"", "ECHO", ":B", "A:", "A::C:D", "::", "ECHO:a/b:AIECHO:c"}) {
    const Text text(script);
    const ParsedScript& parsed = ParsedScript::Of(text);
    for (int n = 0; n <= 7; ++n) {
      EXPECT_EQ(parsed.Field(n), GetDS(script, n, ":")) << script << " field " << n;
      EXPECT_EQ(parsed.Tail(n), RestDS(script, n, ":")) << script << " tail " << n;
    }
  }
}

TEST_F(ParsedScriptTest, AScriptOfManyFieldsIsSplitInOnePass) {
  std::string script;
  for (int field = 0; field < 200000; ++field) script += "ECHO:";
  const Text text(script);
  EXPECT_EQ(ParsedScript::Of(text).FieldCount(), 200001);
  EXPECT_EQ(ParsedScript::Of(text).Field(199999), "ECHO");
  EXPECT_EQ(ParsedScript::Of(text).Tail(199999), "ECHO:ECHO:");
}

TEST_F(ParsedScriptTest, EveryWordHasOneRowWithAHandlerAndAUsageLine) {
  std::set<std::string_view> words;
  for (const std::span<const Command> family : CommandFamilies()) {
    for (const Command& row : family) {
      EXPECT_TRUE(words.insert(row.Word).second) << row.Word << " stands twice";
      EXPECT_NE(row.Carry, nullptr) << row.Word;
      EXPECT_NE(row.Usage.find("| "), std::string_view::npos) << row.Word;
      EXPECT_FALSE(row.Word.starts_with("AI")) << row.Word << " could never be found";
    }
  }
}

}  // namespace
}  // namespace brindlemoor

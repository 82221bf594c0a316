// How a card file's text falls into fields.
#include "data/field_stream.h"

#include <gtest/gtest.h>
#include <vector>

namespace brindlemoor {
namespace {

TEST(FieldStream, CutsAtCommasAndLineEnds) {
  const std::pair<std::string, std::vector<std::string>> cases[] = {
      {"", {}},
      {"a,b\r\nc\nd\re", {"a", "b", "c", "d", "e"}},
      {" \t a b , c\t\n", {"a b ", "c\t"}},
      {"a,", {"a"}},
      {"a, ", {"a", ""}},
      {"a\n\n\r\nb", {"a", "", "", "b"}},
      {"\"a, b\r\nc\" dropped, d", {"a, b\r\nc", "d"}},
      {"a \"b\", c", {"a \"b\"", "c"}},
      {"\"\",007", {"", "007"}},
      {"\"never, closed\nx", {"never, closed\nx"}},
      {"\xEF\xBB\xBF#CARD,caf\xC3\xA9", {"#CARD", "caf\xC3\xA9"}},
      // A file that was cut inside a character does not turn into another encoding.
      {"caf\xC3\xA9,caf\xC3", {"caf\xC3\xA9", "caf"}},
  };
  for (const auto& [text, expected] : cases) {
    FieldStream stream(text);
    std::vector<std::string> fields;
    for (std::string field; stream.Read(field);) fields.push_back(field);
    EXPECT_EQ(fields, expected) << text;
  }
}

TEST(FieldStream, KnowsTheLineOnWhichAFieldBegan) {
  FieldStream stream("a,b\r\n\"c\nd\r\ne\rf\",g\rh\n\"x");
  std::string lines;
  for (std::string field; stream.Read(field);) {
    lines += std::to_string(stream.Line()) + (stream.Unclosed() ? "!" : " ");
  }
  EXPECT_EQ(lines, "1 1 2 5 6 7!");
}

}  // namespace
}  // namespace brindlemoor

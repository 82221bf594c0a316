// How a card file's text falls into fields.
#include "data/field_stream.h"

#include <gtest/gtest.h>
#include <vector>

namespace brindlemoor {
namespace {

using Fields = std::vector<std::string>;

Fields FieldsOf(const std::string& text) {
  FieldStream stream(text);
  Fields fields;
  for (std::string field; stream.Read(field);) fields.push_back(field);
  return fields;
}

TEST(FieldStream, CutsAtCommasAndLineEnds) {
  const struct {
    std::string Text;
    Fields Expected;
  } cases[] = {
      {"", {}},
      {"a", {"a"}},
      {"a,b\r\nc\nd\re", {"a", "b", "c", "d", "e"}},
      {" \t a b , c\t\n", {"a b ", "c\t"}},
      {"a,\n", {"a", ""}},
      {"a,", {"a"}},
      {"a, ", {"a", ""}},
      {"a\n\n\r\nb", {"a", "", "", "b"}},
      {",,", {"", ""}},
      {"\"a, b\r\nc\" dropped, d", {"a, b\r\nc", "d"}},
      {"a \"b\", c", {"a \"b\"", "c"}},
      {"\"\",007", {"", "007"}},
      {"\"never, closed\nx", {"never, closed\nx"}},
      {"\xEF\xBB\xBF#CARD,caf\xE9", {"\xC3\xAF\xC2\xBB\xC2\xBF#CARD", "caf\xC3\xA9"}},
      {"\xEF\xBB\xBF#CARD,caf\xC3\xA9", {"#CARD", "caf\xC3\xA9"}},
      // A file that was cut inside a character does not turn into another encoding.
      {"caf\xC3\xA9,caf\xC3", {"caf\xC3\xA9", "caf"}},
      {"caf\xC3\xA9,\xE2\x82", {"caf\xC3\xA9"}},
      {"caf\xC3\xA9,\xF0\x9F\x98", {"caf\xC3\xA9"}},
      {"cafe,caf\xC3", {"cafe", "caf\xC3\x83"}},
  };
  for (const auto& c : cases) EXPECT_EQ(FieldsOf(c.Text), c.Expected) << c.Text;
}

TEST(FieldStream, KnowsTheLineOnWhichAFieldBegan) {
  FieldStream stream("a,b\r\n\"c\nd\r\ne\rf\",g\rh\n\"x");
  const std::vector<int> expected = {1, 1, 2, 5, 6, 7};
  std::vector<int> lines;
  bool unclosed = false;
  for (std::string field; stream.Read(field);) {
    EXPECT_FALSE(unclosed);
    lines.push_back(stream.Line());
    unclosed = stream.Unclosed();
  }
  EXPECT_EQ(lines, expected);
  EXPECT_TRUE(unclosed);
}

}  // namespace
}  // namespace brindlemoor

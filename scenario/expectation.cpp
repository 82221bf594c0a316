// Comparing what is there with what was expected.
#include "scenario/expectation.h"

#include <array>
#include <utility>

#include "scenario/accepting.h"
#include "scenario/scene.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

int CountOf(std::string_view text, std::string_view part) {
  int count = 0;
  std::size_t at = part.empty() ? std::string_view::npos : text.find(part);
  for (; at != std::string_view::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

struct ComparisonRow {
  std::string_view Word;
  bool (*Holds)(std::string_view text, std::string_view part);
};
constexpr std::array<ComparisonRow, 4> kComparisons = {{
    {"contains",
     [](std::string_view text, std::string_view part) { return text.find(part) != text.npos; }},
    {"lacks",
     [](std::string_view text, std::string_view part) { return text.find(part) == text.npos; }},
    {"starts", [](std::string_view text, std::string_view part) { return text.starts_with(part); }},
    {"once", [](std::string_view text, std::string_view part) { return CountOf(text, part) == 1; }},
}};

}  // namespace

void ExpectTrue(Scene& scene, bool holds, std::string_view what, std::string_view found) {
  ++scene.Report.Expectations;
  if (!holds) scene.Fail(Joined(ShownText(what), ": ", ShownText(found)));
}

void ExpectEqual(Scene& scene, std::string_view what, std::string_view expected,
                 std::string_view found) {
  ++scene.Report.Expectations;
  if (expected != found) {
    scene.Fail(Joined(ShownText(what), ": expected \"", ShownText(expected), "\", there was \"",
                      ShownText(found), "\""),
               Accepted(scene, found));
  } else if (scene.Report.Accepts) {
    if (auto held = Accepted(scene, found)) scene.Report.Held.push_back(std::move(*held));
  }
  scene.Compared.reset();  // a line that holds a second text against another has no word for it
}

void ExpectText(Scene& scene, WordReader& line, std::string_view what, std::string_view found) {
  for (const ComparisonRow& row : kComparisons) {
    if (!line.TakeIf(row.Word)) continue;
    do {
      const std::string part = line.Take("a text");
      if (!line.Good()) return;
      ExpectTrue(scene, row.Holds(found, part), Joined(what, " ", row.Word, " \"", part, "\""),
                 Joined("there was \"", ShownText(found), "\""));
    } while (!line.AtEnd());
    return;
  }
  line.TakeIf("is");
  const std::string expected = line.Take("a text");
  if (line.Ends()) ExpectEqual(scene, what, expected, found);
}

}  // namespace brindlemoor

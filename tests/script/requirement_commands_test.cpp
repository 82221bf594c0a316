// How often chances hold; the other requirements are in tests/scenarios/requirements.txt.
#include "tests/script/run_test.h"

namespace brindlemoor {
namespace {

class RequirementTest : public RunTest {};

TEST_F(RequirementTest, ChancesMissAtTheirRate) {
  const Rows<const char*, int, int> cases = {
      {"CHANCE:0", 0, 0},        {"CHANCE:100", 2000, 2000},
      {"CHANCE:25", 400, 600},   {"CHANCEABOVE:0", 2000, 2000},
      {"CHANCEABOVE:101", 0, 0}, {"CHANCEABOVE:76", 400, 600}};
  for (const auto& [script, least, most] : cases) {
    int hits = 0;
    for (int run = 0; run < 2000; ++run) hits += RunScript(script) == kRunClean ? 1 : 0;
    EXPECT_GE(hits, least) << script;
    EXPECT_LE(hits, most) << script;
  }
}

}  // namespace
}  // namespace brindlemoor

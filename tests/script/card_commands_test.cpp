// New cards beyond every count; the other commands on cards are in tests/scenarios/cards.txt.
#include "core/limits.h"
#include "tests/script/run_test.h"

namespace brindlemoor {
namespace {

class CardCommandsTest : public RunTest {};

TEST_F(CardCommandsTest, CountsBeyondTheBoundStopInOrder) {
  WriteFile("Many.txt", "#CARDINDECK,\"Drone\",\"\",\"\",\"\",\"\",\"\"\r\n");
  for (const char* script :
       {"DUPLICATE:1000000:0", "DUPLICATEME:1000000:0", "CREATECARD:1000000:Drone:Many.txt"}) {
    State().LimitsReported.clear();
    State().PendingCount = 0;
    EXPECT_EQ(RunScript(script), kRunClean);
    EXPECT_EQ(State().PendingCount, limits::kNewCards) << script;
    EXPECT_NE(TakeBanner().find("too many cards"), std::string::npos) << script;
  }
}

}  // namespace
}  // namespace brindlemoor

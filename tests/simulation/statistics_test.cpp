// Intervals and lengths that the reports show.
#include "simulation/statistics.h"

#include <gtest/gtest.h>

namespace brindlemoor {
namespace {

// Reference values worked out by hand from Wilson's formula with z = 1.959964.
TEST(StatisticsTest, SharesHaveWilsonsInterval) {
  struct Case {
    Count Hits, Of;
    double Value, Low, High;
  };
  for (const Case& c : {Case{0, 10, 0, 0, 0.2775},
                        {5, 10, 0.5, 0.2366, 0.7634},
                        {10, 10, 1, 0.7225, 1},
                        {81, 263, 0.3080, 0.2553, 0.3662},
                        {1, 1, 1, 0.2065, 1}}) {
    const Share share = WilsonShare(c.Hits, c.Of);
    EXPECT_EQ(share.Of, c.Of);
    EXPECT_NEAR(share.Value, c.Value, 5e-5) << c.Hits;
    EXPECT_NEAR(share.Low, c.Low, 5e-5) << c.Hits;
    EXPECT_NEAR(share.High, c.High, 5e-5) << c.Hits;
  }
  EXPECT_EQ(WilsonShare(0, 0).Of, 0) << "nothing is known";
  EXPECT_EQ(WinRate({10, 3, 3}).Value, 0.5) << "undecided matches are no losses";
}

TEST(StatisticsTest, DifferencesHaveNewcombesInterval) {
  const Share difference = Difference(WilsonShare(56, 70), WilsonShare(48, 80));
  EXPECT_NEAR(difference.Value, 0.2, 1e-9);
  EXPECT_NEAR(difference.Low, 0.0524, 5e-5);
  EXPECT_NEAR(difference.High, 0.3339, 5e-5);
  EXPECT_EQ(Difference(WilsonShare(1, 2), {}).Of, 0);
}

TEST(StatisticsTest, LengthsAreFoundByTheShareOfMatches) {
  const std::map<int, Count> lengths = {{3, 1}, {5, 2}, {9, 1}};
  EXPECT_EQ(LengthAt(lengths, 0), 3);
  EXPECT_EQ(LengthAt(lengths, 0.5), 5);
  EXPECT_EQ(LengthAt(lengths, 1), 9);
  EXPECT_EQ(LengthAt({}, 0.5), 0);
}

}  // namespace
}  // namespace brindlemoor

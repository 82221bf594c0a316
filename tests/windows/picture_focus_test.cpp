// Where the focus goes among the pictures of a window, without the window.
#include "platform/qt/picture_focus.h"

#include <gtest/gtest.h>

namespace brindlemoor {
namespace {

constexpr QPoint kLeft(-1, 0);
constexpr QPoint kRight(1, 0);
constexpr QPoint kUp(0, -1);
constexpr QPoint kDown(0, 1);
constexpr int kNone = -1;

int Found(std::optional<std::size_t> index) { return index ? static_cast<int>(*index) : kNone; }

std::vector<FocusSpot> Spots(const std::vector<QPoint>& places) {
  std::vector<FocusSpot> spots;
  spots.reserve(places.size());
  for (const QPoint place : places) spots.push_back({place, ""});
  return spots;
}

TEST(PictureFocus, AnArrowKeyLeadsToWhatAPlayerSeesThatWay) {
  // Rows of the hand, of which the last is not full; a wide gap parts them from the deck.
  const std::vector<FocusSpot> window = Spots({{100, 100},
                                               {200, 100},
                                               {300, 100},  //
                                               {100, 230},
                                               {200, 230},  //
                                               {700, 165}});
  const struct {
    const char* Case;
    int From;
    QPoint Direction;
    int To;
  } moves[] = {
      {"the next of the row, not the one behind it", 0, kRight, 1},
      {"back", 2, kLeft, 1},
      {"the row below", 1, kDown, 4},
      {"the row above", 3, kUp, 0},
      {"no picture right below", 2, kDown, 4},
      {"over the gap", 2, kRight, 5},
      {"a short row: the row above is nearer than the deck", 4, kRight, 2},
      {"back over the gap", 5, kLeft, 2},
      {"the edge: not on to another row", 0, kLeft, kNone},
      {"what is only beside is not above", 0, kUp, kNone},
      {"the last row", 4, kDown, kNone},
  };
  for (const auto& [name, from, direction, to] : moves) {
    EXPECT_EQ(Found(SpotTowards(window, window[static_cast<std::size_t>(from)].Middle, direction)),
              to)
        << name;
  }
}

TEST(PictureFocus, WhatLiesStraightAheadGoesBeforeWhatIsOnlyNear) {
  EXPECT_EQ(Found(SpotTowards(Spots({{60, 40}, {150, 0}}), {0, 0}, kRight)), 1);
  EXPECT_EQ(Found(SpotTowards(Spots({{-40, 60}, {0, 150}}), {0, 0}, kDown)), 1);
  EXPECT_EQ(Found(SpotTowards(Spots({{150, 0}, {60, 20}}), {0, 0}, kRight)), 1)
      << "far ahead is too far";
}

TEST(PictureFocus, TheGroupKeepsTheFocusOfAPictureThatHides) {
  const FocusSpot hidden{{200, 100}, "hand"};
  const struct {
    const char* Case;
    std::vector<FocusSpot> Spots;
    int To;
  } cases[] = {
      {"the nearest", {{{100, 100}, "hand"}, {{210, 190}, "hand"}}, 1},
      {"on any side", {{{300, 100}, "hand"}, {{170, 70}, "hand"}}, 1},
      {"another group is nearer", {{{210, 100}, "deck"}, {{900, 700}, "hand"}}, 1},
      {"as near: the first", {{{100, 100}, "hand"}, {{300, 100}, "hand"}}, 0},
      {"nobody else", {{{210, 100}, "deck"}, {{190, 100}, ""}}, kNone},
  };
  for (const auto& [name, spots, to] : cases)
    EXPECT_EQ(Found(SpotAfter(spots, hidden)), to) << name;
}

}  // namespace
}  // namespace brindlemoor

// The battlefield table, hit points and badges: what the player sees of the table.
#include "pages/battlefield.h"

#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class BattlefieldTest : public SessionTest {
 protected:
  BattlefieldTest() {
    State().Profile.PlayerName = "Ann";
    State().Players[1].Color = "#FFFFFF";
  }
  static std::string Cell(int number, std::string_view shade) {
    return Joined("<td width = 80 bgcolor = ", shade, " valign=top><center><br>",
                  "<font color=\"#FFFFFF\">C", number, "</font><br><td>");
  }
};

TEST_F(BattlefieldTest, RowsHoldSixVisibleCards) {
  PutPlayerCard(1, {"INVISIBLE"});
  PutInPlay(MakeCard("Hidden", 1, {"INVISIBLE"}));
  PutInPlay(MakeCard("C1", 2));
  std::string rows;
  for (int number = 0; number <= 8; ++number) {
    if (number > 0) {
      PutInPlay(MakeCard(Joined("C", number), 1)).InPlay = number == 5 ? 0 : 1;  // waiting ones too
      rows += Joined(number % 6 == 1 ? "<tr>" : "", Cell(number, "202020"),
                     number % 6 == 0 ? "</tr>" : "");
    }
    EXPECT_EQ(PlayerTable(State().Players[1]),
              Joined("<center><table align=center><tr><td colspan=80 bgcolor = 404040>"
                     "<font color = #FFFFFF><center>Ann</font></td></tr>",
                     rows, "</table></center>"));
  }
  EXPECT_EQ(PlayerTable(State().Players[2]), Joined("<tr>", Cell(1, "000000"), "</table></center>"))
      << "a side without a player card has rows only";
}

TEST_F(BattlefieldTest, CellShowsPictureNameBadgesAndHitPoints) {
  WriteFile("goblin.bmp", "");
  Card& goblin = PutPlayerCard(2, {"HP:3", "HPMAX:4", "FLYING"});
  goblin.Thumb = "goblin.bmp";
  goblin.NameColor = "";
  goblin.GlobalID = 77;
  State().Players[2].Color = "#6400FF";
  State().TraitGraphics[1] = {"FLYING", "", "#00AAFF", "up", 0, 1};
  EXPECT_EQ(PlayerTable(State().Players[2]),
            "<center><table align=center><tr><td colspan=80 bgcolor = 190040>"
            "<font color = #6400FF><center>Player 2</font></td></tr>"
            "<tr><td width = 80 bgcolor = 0C0020 valign=top><center>"
            "<a href=\"CARD77\"><img  border = \"0\" src=\"file:///game/goblin.bmp\"></img></a><br>"
            "<font color=\"#FFFFFF\">Player 2</font><br>"
            "<font size=+1 color=#00AAFF>up</font>"
            "<font color=\"#FFFFFF\">HP:</font><font color=\"#00FF00\"> 3</font>"
            "<font color=#FFFFFF>/</font><font color=#DDDDDD>4</font><br>"
            "<td></table></center>");
}

TEST_F(BattlefieldTest, HitPointsAreColouredByTheirShare) {
  const struct {
    std::vector<std::string> traits;
    const char *color, *hp, *maximum;
  } cases[] = {
      {{"HP:4", "HPMAX:4"}, "#00FF00", "4", "4"},
      {{"HP:3", "HPMAX:4"}, "#00FF00", "3", "4"},
      {{"HP:2.5", "HPMAX:4"}, "#FFFF00", "2.5", "4"},
      {{"HP:2", "HPMAX:4"}, "#FFFF00", "2", "4"},
      {{"HP:1", "HPMAX:4"}, "#FF9900", "1", "4"},
      {{"HP:0", "HPMAX:4"}, "#FF0000", "0", "4"},
      {{"HP:-2", "HPMAX:4"}, "#FF0000", "0", "4"},
      {{"HP:6", "HPMAX:4"}, "#FFFFFF", "6", "4"},
      {{"HP:5"}, "#00FF00", "5", "5"},
      {{}, "#FF0000", "0", "0"},
  };
  for (const auto& row : cases) {
    const Card card = MakeCard("C", 1, row.traits);
    EXPECT_EQ(HPText(card, 0), Joined("<font color=\"", row.color, "\"> ", row.hp,
                                      "</font><font color=#FFFFFF>/</font><font color=#DDDDDD>",
                                      row.maximum, "</font>"));
    EXPECT_EQ(HPText(card, 1), "<font color=\"#FFFFFF\">HP:</font>" + HPText(card, 0));
  }
}

TEST_F(BattlefieldTest, BadgesFollowTheRules) {
  WriteFile("wing.gif", "");
  auto& graphics = State().TraitGraphics;
  graphics[1] = {"FLYING", "wing.gif", "#0000FF", "small $MYNAME", 1, 0};
  graphics.Append({"FLYING", "missing.gif", "#FF00FF", "large", 1, 1});
  graphics.Append({"ARMOR", "", "#AAAAAA", "[#MYTRAIT/ARMOR#]", 1, 1});
  graphics.Append({"FAST", "", "#AAAAAA", "never", 0, 0});
  Card card = MakeCard("Bat", 1, {"FLYING", "ARMOR:2", "FAST", "PLAIN"});
  const std::string armor = "<font size=+1 color=#AAAAAA>[2]</font>";
  const std::string small =
      "<font size=+3 color=#0000FF><img src=\"/game/wing.gif\"></img>"
      "small <font color=\"#FFFFFF\">Bat</font></font>";
  const std::string large = "<font size=+3 color=#FF00FF><img src=\"\"></img>large</font>";
  EXPECT_EQ(TraitBadges(card, 0), small + armor);
  EXPECT_EQ(TraitBadges(card, 1), large + armor);
  EXPECT_EQ(TraitBadge(card, "flying", 1), "");
  EXPECT_EQ(TraitBadge(card, "", 1), "");
}

}  // namespace
}  // namespace brindlemoor

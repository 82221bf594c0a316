// Discovery of games and opponents, and the page that lists them.
#include "game/game_list.h"

#include <gtest/gtest.h>

#include "core/limits.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class GameListTest : public SessionTest {
 protected:
  GameListTest() { State().Games.Reset(1); }
  void Discover() {
    State().Games.Reset(1);
    DiscoverGames();
  }
  /// Every game with its opponents, as "Goblins: Gob=2 Hob=3; ".
  static std::string Found() {
    std::string found;
    for (const GameRec& game : State().Games) {
      if (game.Name.empty()) continue;
      found += game.Name.Str() + ":";
      for (int o = 1; o <= game.Opponents.UpperBound(); ++o) {
        if (!IsFree(game.Opponents[o])) found += Joined(" ", game.Opponents[o].Name, "=", o);
      }
      found += "; ";
    }
    return found;
  }
};

TEST_F(GameListTest, GameLineFillsTheRecord) {
  WriteFile("Goblins.TXT", "Words, #CARD\r\n#GAMERULES, \"Gob, lins\", b.jpg, #112233, gob, g.htm");
  WriteFile("gob/Gob.txt", "#PLAYERCARD,Gob,a,b,c,gob.bmp,d,e,\"Big\"\n");
  Discover();
  ASSERT_EQ(State().Games.UpperBound(), 1);
  const GameRec& game = State().Games[1];
  EXPECT_EQ(Joined(game.Name, "|", game.Banner, "|", game.Color, "|", game.Folder, "|",
                   game.HelpPage, "|", game.RulesFile),
            "Gob, lins|b.jpg|#112233|gob|g.htm|Goblins.TXT");
  ASSERT_EQ(game.Opponents.UpperBound(), 2);
  ASSERT_EQ(game.OpponentFiles.UpperBound(), 2);
  const Card& opponent = game.Opponents[2];
  EXPECT_EQ(Joined(opponent.Name, "|", opponent.Thumb, "|", opponent.Description),
            "Gob|gob.bmp|Big");
  EXPECT_TRUE(game.OpponentFiles[2] == "/game/gob/Gob.txt");
}

TEST_F(GameListTest, WhatCountsAsGame) {
  for (const char* word : {"#GAME", "#CARDINDECK", "#PLAYERCARD", "#TRAITACTION", "#RULESCARD"}) {
    WriteFile("a.txt", Joined(word, "\n#GAMERULES,G,b,c,f,h\n"));
    Discover();
    EXPECT_EQ(Found(), "") << word;
    WriteFile("a.txt", Joined("#GAMERULES,G,b,c,f,h\n", word, "\n"));
    Discover();
    EXPECT_EQ(Found(), "G:; ") << word;
  }
  for (const char* word : {"#CARD", "#STARTERDECK", "#PLAYERDECK", "#game", "##RULESCARD"}) {
    WriteFile("a.txt", Joined(word, ",#GAMERULES,G,b,c,f,h\n"));
    Discover();
    EXPECT_EQ(Found(), "G:; ") << word;
  }
  WriteFile("b.txt", "#GAMERULES,G,x,x,x,x\n");
  WriteFile("c.txt", "#GAMERULES,H");
  WriteFile("d.plr", "#GAMERULES,I,b,c,f,h\n");
  WriteFile("e.txt", "#GAMERULES");
  WriteFile("sub/f.txt", "#GAMERULES,J,b,c,f,h\n");
  Discover();
  EXPECT_EQ(Found(), "G:; H:; ");
  EXPECT_TRUE(State().Games[1].Banner == "b");
}

TEST_F(GameListTest, WhereOpponentsAreFound) {
  struct {
    const char* file;
    const char* bytes;
    const char* found;
  } const cases[] = {
      {"gob/x.txt", "#PLAYERCARD,X,1,2,3,t,5,6,d", "G: X=2; "},
      {"gob/x.TXT", "#CARD,INDECK,n,#PLAYERCARD,X\n#PLAYERCARD,Y,1,2,3,t,5,6,d", "G: X=2; "},
      {"gob/x.txt", "#PLAYERCARD,X,1,2,3,t,5,6,d\n#PLAYERCARD,Y", "G: X=2 Y=3; "},
      {"gob/x.txt", "#GAME,Other,#PLAYERCARD,X", "G: X=2; "},
      {"gob/x.txt", "#CARDINDECK,#STARTERDECK\n#PLAYERCARD,X", "G: X=2; "},
      {"gob/x.txt", "#PLAYERDECK\n#PLAYERCARD,X", "G:; "},
      {"gob/x.txt", "#GAMERULES\n#PLAYERCARD,X", "G:; "},
      {"gob/x.txt", "#TRAITACTION\n#PLAYERCARD,X", "G:; "},
      {"gob/x.txt", "#RULESCARD\n#PLAYERCARD,X", "G:; "},
      {"gob/x.dat", "#PLAYERCARD,X", "G:; "},
      {"gob/deep/x.txt", "#PLAYERCARD,X", "G:; "},
      {"other/x.txt", "#PLAYERCARD,X", "G:; "},
      {"x.txt", "#PLAYERCARD,X", "G:; "},
      {"x.txt", "#GAME,G,#PLAYERCARD,X", "G: X=2; "},
      {"x.txt", "#GAME,G\n#PLAYERCARD,X,1,2,3,4,5,6,7,#PLAYERCARD,Y", "G: X=2 Y=3; "},
      {"x.txt", "#GAME,g,#PLAYERCARD,X", "G:; "},
      {"x.txt", "#GAME,Other,#GAME,G,#PLAYERCARD,X", "G:; "},
      {"x.txt", "#GAME,,#PLAYERCARD,X", "G:; "},
      {"x.txt", "#PLAYERCARD,Y,1,2,3,4,5,6,7,#GAME,G,#PLAYERCARD,X", "G:; "},
      {"x.txt", "#CARDINDECK,#GAME,G,#PLAYERCARD,X", "G: X=2; "},
      {"x.txt", "#CARDINDECK,#PLAYERDECK,#GAME,G,#PLAYERCARD,X", "G:; "},
      {"x.txt", "#GAME,G,#RULESCARD,#PLAYERCARD,X", "G:; "},
      {"x.txt", "#GAME", "G:; "},
      {"x.txt", "", "G:; "},
  };
  for (const auto& row : cases) {
    files_->Contents.clear();
    WriteFile("rules.txt", "#GAMERULES,G,b,c,gob,h\n");
    WriteFile(row.file, row.bytes);
    Discover();
    EXPECT_EQ(Found(), row.found) << row.file << ": " << row.bytes;
  }
}

// A game file comes from strangers: its folder can't lead out of the program's folder.
TEST_F(GameListTest, FolderIsADirectSubfolder) {
  struct {
    const char* folder;
    const char* taken;
    const char* found;
  } const cases[] = {
      {"gob", "gob", "G: X=2; "}, {"gob\\", "gob", "G: X=2; "},
      {"GOB", "gob", "G: X=2; "}, {"a/gob", "gob", "G: X=2; "},
      {"..", "", "G:; "},         {".", "", "G:; "},
      {"../out", "out", "G:; "},  {"", "", "G:; "},
      {"/out", "out", "G:; "},
  };
  files_->Contents["/out/x.txt"] = "#PLAYERCARD,Out";
  files_->Contents["/x.txt"] = "#PLAYERCARD,Out";
  WriteFile("gob/x.txt", "#PLAYERCARD,X");
  for (const auto& row : cases) {
    WriteFile("rules.txt", Joined("#GAMERULES,G,b,c,\"", row.folder, "\",h\n"));
    Discover();
    EXPECT_EQ(Found(), row.found) << row.folder;
    EXPECT_EQ(State().Games[1].Folder.View(), row.taken);
  }
}

TEST_F(GameListTest, OpponentsOfOneGameAreBounded) {
  WriteFile("rules.txt", "#GAMERULES,G,b,c,gob,h\n");
  std::string many;
  for (int i = 0; i < limits::kGames + 5; ++i) many += "#PLAYERCARD,X,1,2,3,t,5,6,d\n";
  WriteFile("gob/x.txt", many);
  Discover();
  EXPECT_EQ(State().Games[1].Opponents.UpperBound(), limits::kGames + 1);
  EXPECT_EQ(State().Games[1].OpponentFiles.UpperBound(), limits::kGames + 1);
  EXPECT_NE(State().PhaseBanner, "");
}

TEST_F(GameListTest, PageOfTheList) {
  WriteFile("gob.jpg", "");
  WriteFile("gob/gob.bmp", "");
  WriteFile("a.txt", "#GAMERULES,Goblins,gob.jpg,#112233,gob,g.htm\n");
  WriteFile("b.txt", "#GAMERULES,Empty,,#445566,,\n");
  WriteFile("gob/x.txt", "#PLAYERCARD,Gob,1,2,3,gob.bmp,5,6,d\n#PLAYERCARD,,1,2,3,t,5,6,d\n");
  WriteFile("gob/y.txt", "#PLAYERCARD,Hob,1,2,3,,5,6,d\n");
  Discover();
  const std::string page =
      "<table><tr><td colspan=80 bgcolor=#112233><center><font color=#FFFFFF>"
      "<img src=\"/game/gob.jpg\"></img><br>Goblins</font><font size=-2 color=FFFFFF><br>"
      "(Select an opponent from the portraits below)</font><br>"
      "<a href=\"HELP:g.htm\">Click here for help on this game.</a></td></tr>"
      "<tr><td bgcolor=#112233><center><font color=#FFFFFF>"
      "<a href=\"GAME:1:2\"><img src=\"/game/gob/gob.bmp\"></img><br></a>"
      "<a href=\"GAME:1:2\">Gob</a></font></td>"
      "<td bgcolor=#112233><center><font color=#FFFFFF>"
      "<a href=\"GAME:1:4\">Hob</a></font></td></tr></table>"
      "<table><tr><td colspan=80 bgcolor=#445566><center><font color=#FFFFFF>"
      "Empty</font><font size=-2 color=FFFFFF><br>"
      "(Select an opponent from the portraits below)</font><br>"
      "<a href=\"HELP:\">Click here for help on this game.</a></td></tr><tr></tr></table>";
  EXPECT_EQ(ComposeGameList(), page);
  ShowGameList();
  EXPECT_NE(ReadFile("Display.html").find(page), std::string::npos);
  EXPECT_EQ(desktop_->Pages["WB"], ReadFile("Display.html"));
}

TEST_F(GameListTest, RowsBreakBehindOpponentsEightAndSixteen) {
  GameRec& game = State().Games[1];
  game.Name = "G";
  game.Color = "c";
  game.Opponents.Reset(1);
  for (int opponent = 2; opponent <= 17; ++opponent) {
    game.Opponents.Append(MakeCard(Joined("O", opponent), 2));
  }
  std::string cells;
  for (int opponent = 2; opponent <= 17; ++opponent) {
    cells += Joined("<td bgcolor=c><center><font color=#FFFFFF><a href=\"GAME:1:", opponent, "\">O",
                    opponent, "</a></font></td>");
    if (opponent == 8 || opponent == 16) cells += "</tr><tr>";
  }
  const std::string page = ComposeGameList();
  EXPECT_EQ(page.substr(page.find("<tr><td bgcolor=c>")), Joined("<tr>", cells, "</tr></table>"));
}

}  // namespace
}  // namespace brindlemoor

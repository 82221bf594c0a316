// Discovery of games and opponents, and the page that lists them.
#include "game/game_list.h"

#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class GameListTest : public SessionTest {
 protected:
  /// Every game with its opponents, as "Goblins: Gob=2 Hob=3; ".
  static std::string Found() {
    State().Games.Reset(1);
    DiscoverGames();
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
  WriteFile("gob/Gob.txt", "#PLAYERCARD,Gob,a,b,big.bmp,gob.bmp,d,\"Big\"\n#CARD");
  EXPECT_EQ(Found(), "Gob, lins: Gob=2; ");
  const GameRec& game = State().Games[1];
  const Card& opponent = game.Opponents[2];
  EXPECT_EQ(Joined(game.Banner, "|", game.Color, "|", game.Folder, "|", game.HelpPage, "|",
                   game.RulesFile, "|", opponent.Picture, "|", opponent.Thumb, "|",
                   opponent.Description, "|", game.OpponentFiles[2]),
            "b.jpg|#112233|gob|g.htm|Goblins.TXT|big.bmp|gob.bmp|Big|/game/gob/Gob.txt");
}

TEST_F(GameListTest, WhatCountsAsGame) {
  for (const char* word : {"#GAME", "#CARDINDECK", "#PLAYERCARD", "#TRAITACTION", "#RULESCARD"}) {
    WriteFile("a.txt", Joined(word, "\n#GAMERULES,G,b,c,f,h\n"));
    EXPECT_EQ(Found(), "") << word;
    WriteFile("a.txt", Joined("#GAMERULES,G,b,c,f,h\n", word, "\n"));
    EXPECT_EQ(Found(), "G:; ") << word;
  }
  for (const char* word : {"#CARD", "#STARTERDECK", "#PLAYERDECK", "#game", "##RULESCARD"}) {
    WriteFile("a.txt", Joined(word, ",#GAMERULES,G,b,c,f,h\n"));
    EXPECT_EQ(Found(), "G:; ") << word;
  }
  WriteFile("b.txt", "#GAMERULES,G,x,x,x,x\n");
  WriteFile("c.txt", "#GAMERULES,H");
  WriteFile("d.plr", "#GAMERULES,I,b,c,f,h\n");
  WriteFile("e.txt", "#GAMERULES");
  WriteFile("sub/f.txt", "#GAMERULES,J,b,c,f,h\n");
  EXPECT_EQ(Found(), "G:; H:; ");
  EXPECT_EQ(State().Games[1].Banner, "b");
}

TEST_F(GameListTest, WhereOpponentsAreFound) {
  const char* const cases[][3] = {
      {"gob/x.TXT", "#CARD,INDECK,n,#PLAYERCARD,X\n#PLAYERCARD,Y,1,2,3,t,5,6,d", "G: X=2; "},
      {"gob/x.txt", "#PLAYERCARD,X,1,2,3,t,5,6,d\n#PLAYERCARD,Y", "G: X=2 Y=3; "},
      {"gob/x.txt", "#GAME,Other,#PLAYERCARD,X", "G: X=2; "},
      {"gob/x.txt", "#CARDINDECK,#STARTERDECK\n#PLAYERCARD,X", "G: X=2; "},
      {"gob/x.txt", "#PLAYERDECK\n#PLAYERCARD,X", "G:; "},
      {"gob/x.txt", "#GAMERULES\n#PLAYERCARD,X", "G:; "},
      {"gob/x.dat", "#PLAYERCARD,X", "G:; "},
      {"gob/deep/x.txt", "#PLAYERCARD,X", "G:; "},
      {"other/x.txt", "#PLAYERCARD,X", "G:; "},
      {"x.txt", "#PLAYERCARD,Y,1,2,3,4,5,6,7,#GAME,G,#PLAYERCARD,X", "G:; "},
      {"x.txt", "#GAME,G\n#PLAYERCARD,X,1,2,3,4,5,6,7,#PLAYERCARD,Y", "G: X=2 Y=3; "},
      {"x.txt", "#GAME,g,#PLAYERCARD,X", "G:; "},
      {"x.txt", "#GAME,Other,#GAME,G,#PLAYERCARD,X", "G:; "},
      {"x.txt", "#CARDINDECK,#GAME,G,#PLAYERCARD,X", "G: X=2; "},
      {"x.txt", "#CARDINDECK,#PLAYERDECK,#GAME,G,#PLAYERCARD,X", "G:; "},
      {"x.txt", "#GAME,G,#RULESCARD,#PLAYERCARD,X", "G:; "},
  };
  for (const auto& [file, bytes, found] : cases) {
    files_->Contents.clear();
    WriteFile("rules.txt", "#GAMERULES,G,b,c,gob,h\n");
    WriteFile(file, bytes);
    EXPECT_EQ(Found(), found) << file << ": " << bytes;
  }
}

// A game file comes from strangers: its folder can't lead out of the program's folder.
TEST_F(GameListTest, FolderIsADirectSubfolder) {
  files_->Contents["/out/x.txt"] = files_->Contents["/x.txt"] = "#PLAYERCARD,Out";
  WriteFile("gob/x.txt", "#PLAYERCARD,X");
  const std::pair<const char*, std::string_view> cases[] = {
      {"gob", "gob"}, {"gob\\", "gob"},  {"GOB", "gob"}, {"a/gob", "gob"}, {"..", ""},
      {".", ""},      {"../out", "out"}, {"", ""},       {"/out", "out"}};
  for (const auto& [folder, taken] : cases) {
    WriteFile("rules.txt", Joined("#GAMERULES,G,b,c,\"", folder, "\",h\n"));
    EXPECT_EQ(Found(), taken == "gob" ? "G: X=2; " : "G:; ") << folder;
    EXPECT_EQ(State().Games[1].Folder.View(), taken);
  }
}

TEST_F(GameListTest, PageOfTheList) {
  WriteFile("gob.jpg", "");
  WriteFile("gob/gob.bmp", "");
  WriteFile("a.txt", "#GAMERULES,Goblins,gob.jpg,#112233,gob,g.htm\n");
  WriteFile("b.txt", "#GAMERULES,Empty,,#445566,,\n");
  WriteFile("gob/x.txt", "#PLAYERCARD,Gob,1,2,3,gob.bmp,5,6,d\n#PLAYERCARD,,1,2,3,t,5,6,d\n");
  std::string many, cells;
  for (int o = 4; o <= 17; ++o) {  // rows break behind opponents 8 and 16
    many += Joined("#PLAYERCARD,O", o, ",1,2,3,,5,6,d\n");
    cells += Joined("<td bgcolor=#112233><center><font color=#FFFFFF><a href=\"GAME:1:", o, "\">O",
                    o, "</a></font></td>", o == 8 || o == 16 ? "</tr><tr>" : "");
  }
  WriteFile("gob/y.txt", many);
  Found();
  const std::string page = Joined(
      "<table><tr><td colspan=80 bgcolor=#112233><center><font color=#FFFFFF>"
      "<img src=\"/game/gob.jpg\"></img><br>Goblins</font><font size=-2 color=FFFFFF><br>"
      "(Select an opponent from the portraits below)</font><br>"
      "<a href=\"HELP:g.htm\">Click here for help on this game.</a></td></tr>"
      "<tr><td bgcolor=#112233><center><font color=#FFFFFF>"
      "<a href=\"GAME:1:2\"><img src=\"/game/gob/gob.bmp\"></img><br></a>"
      "<a href=\"GAME:1:2\">Gob</a></font></td>",
      cells,
      "</tr></table><table><tr><td colspan=80 bgcolor=#445566><center><font color=#FFFFFF>"
      "Empty</font><font size=-2 color=FFFFFF><br>"
      "(Select an opponent from the portraits below)</font><br>"
      "<a href=\"HELP:\">Click here for help on this game.</a></td></tr><tr></tr></table>");
  EXPECT_EQ(ComposeGameList(), page);
  ShowGameList();
  EXPECT_NE(ReadFile("Display.html").find(page), std::string::npos);
}

}  // namespace
}  // namespace brindlemoor

// Which files go with a game, and what is said of those that are missing.
#include "sharing/game_contents.h"

#include <algorithm>

#include "game/game_list.h"
#include "sharing/named_files.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

using Names = std::vector<std::string>;

class GameContentsTest : public SessionTest {
 protected:
  GameContentsTest() {
    WriteFile("Goblins.txt",
              "#GAMERULES, Goblins, banner.jpg, #102030, goblins, GoblinHelp.html\n"
              "#RULESCARD\n#TRAIT, TRAITGRAPHIC:FANG:fang.png::#FFFFFF:1:1\n"
              "#EFFECT, ALL, TURNSTART, \"ECHO:#IMG/moon.gif#<br>night\"\n");
    WriteFile("goblins/Cards.txt",
              "#CARDINDECK, Grunt, grunt.jpg, grunt-mini.jpg, #FFFFFF, , <img src=art/scar.png>\n"
              "#EFFECT, SELF, PHASE1, \"CREATECARD:1:Pup:Pups.txt:CHANGEIMG:angry.jpg\"\n");
    WriteFile(
        "goblins/Rival.txt",
        "#INCLUDE, Cards.txt, \n#CARD, PLAYERCARD, Rival, , , r.jpg, r-mini.jpg, #FFFFFF, x\n");
    WriteFile("goblins/notes.txt", "Buy milk.\n");
    WriteFile("Elves.txt", "#GAMERULES, Elves, banner.jpg, #102030, elves, GoblinHelp.html\n");
    WriteFile("elves/Elf.txt", "#CARDINDECK, Elf, elf.jpg, elf.jpg, #FFFFFF, , x\n");
    WriteFile("more/Pups.txt", "#CARDINDECK, Pup, PUP.jpg, pup.jpg, #FFFFFF, , x\n");
    WriteFile("GoblinHelp.html",
              "<link rel=stylesheet href='help/look.css'><img alt=x src=\"art/map%20one.png\">"
              "<a href=\"MainHelp.html\">up</a> <a href=\"help/More.html#top\">more</a>"
              "<!-- <img src=gone.png> --><a href=\"https://example.org/x.png\">far</a>");
    WriteFile("help/More.html", "<a href=\"../GoblinHelp.html\">back</a>");
    WriteFile("help/look.css", "body { background: url('paper.png') }");
    for (const char* picture :
         {"art/banner.jpg", "art/fang.png", "art/moon.gif", "art/grunt.jpg", "art/grunt-mini.jpg",
          "art/scar.png", "art/angry.jpg", "art/r.jpg", "art/r-mini.jpg", "art/map one.png",
          "art/pup.jpg", "help/paper.png", "art/elf.jpg", "art/manacost.jpg"}) {
      WriteFile(picture, "picture");
    }
    for (const char* other : {"MainHelp.html", "Display.html", "Ann_Goblins.plr",
                              "PlayerProfiles.txt", "art/draw.py"}) {
      WriteFile(other, "");
    }
    files_->Contents["/Above.txt"] = "#CARDINDECK, Sky, art.jpg, , #FFFFFF, , x\n";
  }

  static GameContents Contents() {
    State().Games.Reset(1);
    DiscoverGames();
    std::string problem;
    return ContentsOfGame(FindGame("Goblins", problem));
  }
  static Names NamesIn(const GameContents& contents) {
    Names names;
    for (const GameFile& file : contents.Files) names.push_back(file.Name);
    return names;
  }
};

TEST_F(GameContentsTest, FollowsCardsPicturesAndPagesOfOneGame) {
  const GameContents contents = Contents();
  EXPECT_EQ(NamesIn(contents),
            (Names{"GoblinHelp.html", "Goblins.txt", "art/angry.jpg", "art/banner.jpg",
                   "art/fang.png", "art/grunt-mini.jpg", "art/grunt.jpg", "art/map one.png",
                   "art/moon.gif", "art/pup.jpg", "art/r-mini.jpg", "art/r.jpg", "art/scar.png",
                   "goblins/Cards.txt", "goblins/Rival.txt", "help/More.html", "help/look.css",
                   "help/paper.png", "more/Pups.txt"}));
  EXPECT_EQ(contents.Problems, Names{});
  EXPECT_EQ(contents.Remarks, Names{});
  for (const char* left : {"Elves.txt", "elves/Elf.txt", "art/elf.jpg", "goblins/notes.txt"}) {
    EXPECT_TRUE(std::ranges::count(contents.LeftOut, left)) << left;
  }
}

TEST_F(GameContentsTest, TheProgramsOwnPicturesGoWithTheGameWhereTheyAre) {
  WriteFile("art/magiccost.jpg", "drop");
  WriteFile("art/Player2thumb.bmp", "face");
  const Names names = NamesIn(Contents());
  EXPECT_TRUE(std::ranges::count(names, "art/magiccost.jpg"));
  EXPECT_TRUE(std::ranges::count(names, "art/Player2thumb.bmp"));
}

TEST_F(GameContentsTest, WhatIsNamedAndMissingIsToldWithItsPlace) {
  files_->Contents.erase("/game/art/moon.gif");
  files_->Contents.erase("/game/more/Pups.txt");
  files_->Contents.erase("/game/help/paper.png");
  files_->Contents.erase("/game/art/scar.png");
  EXPECT_EQ(Contents().Problems,
            (Names{"Goblins.txt, line 4: the file \"moon.gif\" is not there.",
                   "goblins/Cards.txt, line 1: the file \"art/scar.png\" is not there.",
                   "goblins/Cards.txt, line 2: the file \"Pups.txt\" is not there.",
                   "help/look.css: the file \"paper.png\" is not there."}));
}

TEST_F(GameContentsTest, NamesThatScriptsPutTogetherAreToldOf) {
  WriteFile("goblins/Cards.txt",
            "#CARDINDECK, Grunt, grunt.jpg, grunt-mini.jpg, #FFFFFF, , x\n"
            "#EFFECT, SELF, PHASE1, \"CHANGEIMG:face-%MOOD%.jpg\"\n");
  const GameContents contents = Contents();
  ASSERT_EQ(contents.Remarks.size(), 1U);
  EXPECT_TRUE(contents.Remarks[0].starts_with("goblins/Cards.txt, line 2: \"face-%MOOD%.jpg\""));
  EXPECT_EQ(contents.Problems, Names{});
}

TEST_F(GameContentsTest, AFileFromAboveTheFolderComesIntoIt) {
  WriteFile("goblins/Rival.txt", "#INCLUDE, Above.txt, \n#INCLUDE, Cards.txt, \n");
  WriteFile("art/art.jpg", "picture");
  const GameContents contents = Contents();
  const auto above = std::ranges::find(contents.Files, "Above.txt", &GameFile::Name);
  ASSERT_NE(above, contents.Files.end());
  EXPECT_EQ(above->Path, "/Above.txt");
  EXPECT_TRUE(std::ranges::count(contents.Files, "art/art.jpg", &GameFile::Name));
}

TEST_F(GameContentsTest, TestsGoWithTheGameWhoseRulesTheyRead) {
  WriteFile("tests/goblins.txt", "folder ..\nrules \"Goblins.txt\"\ninclude sides.txt\n");
  WriteFile("tests/sides.txt", "player 1 with HP:3\n");
  WriteFile("tests/elves.txt", "folder ..\nrules Elves.txt\n");
  const Names names = NamesIn(Contents());
  EXPECT_TRUE(std::ranges::count(names, "tests/goblins.txt"));
  EXPECT_TRUE(std::ranges::count(names, "tests/sides.txt"));
  EXPECT_FALSE(std::ranges::count(names, "tests/elves.txt"));
}

TEST(PageAddresses, LeadWhereABrowserWouldGo) {
  const struct {
    const char* Folder;
    const char* Address;
    const char* Place;
  } cases[] = {
      {"", "a.png", "a.png"},
      {"", "art/a.png?x#y", "art/a.png"},
      {"", "./art/a%20b.png", "art/a b.png"},
      {"help", "a.png", "help/a.png"},
      {"help", "../art/a.png", "art/a.png"},
      {"help", "../../a.png", ""},
      {"help", "deep/a.png", ""},
      {"", "../a.png", ""},
      {"", "%2e%2e/a.png", ""},
      {"", "/etc/a.png", ""},
      {"", "a/b/c.png", ""},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(PlaceOfAddress(row.Folder, row.Address), row.Place) << row.Address;
  }
}

}  // namespace
}  // namespace brindlemoor

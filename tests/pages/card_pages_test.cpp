// A card as HTML: links, description page, panel and the player header.
#include "pages/card_pages.h"

#include "game/game_list.h"
#include "pages/battlefield.h"
#include "pages/messages.h"
#include "script/card_setup.h"
#include "tests/support/session_test.h"
#include "ui/card_description.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

class CardPagesTest : public SessionTest {
 protected:
  CardPagesTest() {
    for (const char* file : {"t.bmp", "p.jpg", "magiccost.jpg", "heartcost.jpg"}) {
      WriteFile(file, "");
    }
    State().TraitGraphics[1] = {"FLYING", "", "#0000FF", "flies", 1, 1};
  }
  static Card Goblin(int owner, int inPlay = 0) {
    Card card = MakeCard("Goblin", owner, {"HP:5", "FLYING"});
    card.GlobalID = 42;
    card.Thumb = "t.bmp";
    card.Picture = "p.jpg";
    card.NameColor = "#00FF00";
    card.Description = "$MYNAME bites $MYNAME.";
    card.InPlay = static_cast<std::uint8_t>(inPlay);
    AddEffect(card, "MODTRAIT:HP:1", 7, "PHASE1", 0, "SELF");
    AddEffect(card, "MODTRAIT:HP:2", 7, "MENU:PHASE3:Heal", 0, "SELF");
    return card;
  }
  /// What the program composed of the description page: its third line.
  std::string Described() const {
    std::string page = ReadFile("CardDesc.html");
    for (int line = 1; line < 3; ++line) page.erase(0, page.find('\n') + 1);
    return page.substr(0, page.find('\r'));
  }

  const std::string name_ = "<font color=\"#00FF00\">Goblin</font>";
  const std::string badges_ = "<p><font size=+1 color=#0000FF>flies</font></p>";
  const std::string back_ = Joined("<p>", name_, " bites ", name_, ".</p>");
};

/// What a browser would take for an escape, a query or a mark is escaped in every picture's
/// address.
TEST_F(CardPagesTest, PicturesAreFoundInAFolderOfAnyName) {
  const std::string folder = "/a b%20#c?d";
  State().ProgramFolder = folder;
  for (const char* file : {"t.bmp", "p.jpg", "magiccost.jpg"}) {
    files_->Contents[Joined(folder, "/", file)] = "";
  }
  State().TraitGraphics[1].Picture = "t.bmp";
  State().FullSizeImages = 1;
  State().Games.Reset(1);
  GameRec& game = State().Games[1];
  game.Name = "Goblins";
  game.Banner = "t.bmp";
  game.Opponents.Reset(0);
  game.Opponents.Append(Goblin(2));
  Card goblin = Goblin(1);
  PutPlayerCard(1, {"MANA:3"});
  State().Collection[1] = goblin;
  TheDeckManager().Form_Load();
  TheDeckManager().CollectPic[0]->MouseMove();
  std::string seen = "#IMG/p.jpg#";
  ExpandMessage(goblin, goblin, seen, "", "");
  const std::pair<const char*, std::string> pages[] = {
      {"list", ComposeGameList()},
      {"large picture", CardPictureHtml(goblin, 1, 0)},
      {"thumbnail", CardPictureHtml(goblin, 0, 0)},
      {"panel", CardPanelHtml(goblin, 1)},
      {"header", PlayerHeader(State().Players[1])},
      {"badge", TraitBadges(goblin, 1)},
      {"preview", files_->Contents[folder + "/Display.html"]},
      {"message", seen},
  };
  for (const auto& [what, html] : pages) {
    EXPECT_NE(html.find("/a b%2520%23c%3Fd/"), std::string::npos) << what << ": " << html;
    EXPECT_EQ(html.find(folder), std::string::npos) << what;
  }
}

TEST_F(CardPagesTest, PictureLinks) {
  const std::string thumb = " border = \"0\" src=\"file:///game/t.bmp\"></img></a>";
  const std::string large =
      "hspace=5 width = 150 height = 225 border = \"0\" src=\"file:///game/p.jpg\"></img></a>";
  const struct {
    int owner;
    std::uint8_t fullSize;
    int size, side;
    const char* align;
    std::string rest;
  } cases[] = {
      {1, 1, 0, 0, "", thumb},
      {1, 1, 1, 0, "", large},
      {1, 1, -1, 1, " align = left ", large},
      {2, 1, -1, 1, " align = right ", large},
      {2, 0, 0, 2, " align = left ", thumb},
      {1, 0, 0, 2, " align = right ", thumb},
  };
  for (const auto& row : cases) {
    State().FullSizeImages = row.fullSize;
    EXPECT_EQ(CardPictureHtml(Goblin(row.owner), row.size, row.side),
              Joined("<a href=\"CARD42\"><img ", row.align, row.rest));
  }
}

TEST_F(CardPagesTest, DescriptionPage) {
  const std::string heal = "<p><a href=\"MENUACTION:42:2\">Heal</a><br></p>";
  const std::tuple<int, int, std::string> cases[] = {
      {1, 0, ""}, {1, 1, heal}, {3, 1, heal}, {2, 1, "<p></p>"}};
  for (const auto& [owner, inPlay, menu] : cases) {
    Card card = Goblin(owner, inPlay);
    ShowCardDescription(card, 1);
    EXPECT_EQ(Described(), Joined("<p>", name_, "</p><p></p>", badges_, menu, back_));
    EXPECT_EQ(desktop_->Pages["CardDescWB"], ReadFile("CardDesc.html"));
    EXPECT_EQ(State().PageText, "");
    EXPECT_EQ(TheMainWindow().Picture1.Picture.Get(), "/game/p.jpg");
  }
  Card shown = Goblin(1, 1);
  EXPECT_EQ(CardSummary(shown, 1), Joined("<p>", name_, "</p>", badges_, back_));
  EXPECT_EQ(CardSummary(shown, 0), Joined("<p>", name_, "</p>", back_));
  State().DebugMode = 1;
  Card card = Goblin(1);
  card.Slot = 9;
  card.Effects.Resize(1);
  ShowCardDescription(card, 0);
  EXPECT_EQ(Described(),
            Joined("<p>", name_, "</p><p></p>", back_,
                   "<br><br>Card #9<br>Global ID: 42, HP (5), FLYING, ",
                   "Action #1<br>Trigger: PHASE1<br>Action:<br>MODTRAIT:HP:1<br><br>"));
}

TEST_F(CardPagesTest, PanelOfTheReport) {
  const auto panel = [this](const char* align) {
    return Joined("<table width=100%><tr><td bgcolor=#0><a href=\"CARD42\"><img  align = ", align,
                  " hspace=5 width = 150 height = 225 border = \"0\" src=\"file:///game/p.jpg\">",
                  "</img></a><p>", name_, "</p><p></p>", badges_, back_, "</td></tr></table><br>");
  };
  Card mine = Goblin(1);
  Card enemys = Goblin(2);
  EXPECT_EQ(CardPanelHtml(mine, 1), panel("left"));
  EXPECT_EQ(CardPanelHtml(enemys, 1), panel("right"));
  EXPECT_EQ(CardPanelHtml(enemys, 0), panel("left"));
  mine.Picture = "";
  EXPECT_EQ(CardPanelHtml(mine, 0), "") << "no picture, no panel";
  mine.Name = "";
  EXPECT_EQ(CardPanelHtml(mine, 0), "Non-existant card referenced.<br>");
}

TEST_F(CardPagesTest, HeaderShowsThePlayersResources) {
  EXPECT_EQ(PlayerHeader(State().Players[1]), "");
  PutPlayerCard(1, {"MANA:7", "HP:20", "mana:3", "HEARTS:2", "MONSTERS:0"});
  const auto resource = [](const char* source, const char* color, int number) {
    return Joined("<img src=\"", source, "\"></img><font color=\"", color, "\" size=\"+4\">",
                  number, "</font>  ");
  };
  EXPECT_EQ(PlayerHeader(State().Players[1]),
            Joined("<center><table border=\"1\"><th><font color=\"#FFFFFF\">Player 1</font></th>",
                   "<tr><td><center>HP: <font color=\"#00FF00\">20</font><br>",
                   resource("file:///game/magiccost.jpg", "#00AFFF", 7),
                   resource("file:///game/heartcost.jpg", "#FF0000", 2), resource("", "#00FF00", 0),
                   "</tr></td></table></center>"));
  State().Players[1].PlayerCard = 30000;
  EXPECT_EQ(PlayerHeader(State().Players[1]), "");
}

}  // namespace
}  // namespace brindlemoor

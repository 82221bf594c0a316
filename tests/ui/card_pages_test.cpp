// A card as HTML: links, description page, panel and the player header.
#include "ui/card_pages.h"

#include <gtest/gtest.h>

#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

/// What the program composed of a page that was written as a file: its third line.
std::string PageBody(std::string page) {
  for (int line = 1; line < 3; ++line) page.erase(0, page.find('\n') + 1);
  page.erase(page.find('\n'));
  if (page.ends_with('\r')) page.pop_back();
  return page;
}

class CardPagesTest : public SessionTest {
 protected:
  CardPagesTest() {
    for (const char* file : {"t.bmp", "p.jpg", "manacost.jpg", "magiccost.jpg", "heartcost.jpg"}) {
      WriteFile(file, "");
    }
    State().TraitGraphics[1] = {"FLYING", "", "#0000FF", "flies", 1, 1};
  }
  static Card Goblin(int owner) {
    Card card = MakeCard("Goblin", owner, {"HP:5", "FLYING"});
    card.GlobalID = 42;
    card.Thumb = "t.bmp";
    card.Picture = "p.jpg";
    card.NameColor = "#00FF00";
    card.Description = "$MYNAME bites $MYNAME.";
    return card;
  }
};

constexpr const char* kName = "<font color=\"#00FF00\">Goblin</font>";

TEST_F(CardPagesTest, NameWithoutColourBecomesWhiteInTheCard) {
  Card card;
  card.Name = "Imp";
  EXPECT_EQ(ColoredName(card), "<font color=\"#FFFFFF\">Imp</font>");
  EXPECT_TRUE(card.NameColor == "#FFFFFF");
}

TEST_F(CardPagesTest, PictureLinks) {
  const std::string thumb = "src=\"file:///game/t.bmp\"></img></a>";
  const std::string large =
      "hspace=5 width = 150 height = 225 border = \"0\" src=\"file:///game/p.jpg\"></img></a>";
  struct {
    int owner, fullSize, size, side;
    std::string align, rest;
  } const cases[] = {
      {1, 1, 0, 0, "", " border = \"0\" " + thumb},
      {1, 0, 1, 0, "", " border = \"0\" " + thumb},
      {1, 1, 1, 0, "", large},
      {1, 1, -1, 1, " align = left ", large},
      {2, 1, -1, 1, " align = right ", large},
      {3, 1, -1, 1, " align = right ", large},
      {2, 0, 0, 2, " align = left ", " border = \"0\" " + thumb},
      {1, 0, 0, 2, " align = right ", " border = \"0\" " + thumb},
  };
  for (const auto& row : cases) {
    State().FullSizeImages = static_cast<std::uint8_t>(row.fullSize);
    EXPECT_EQ(CardPictureHtml(Goblin(row.owner), row.size, row.side),
              "<a href=\"CARD42\"><img " + row.align + row.rest);
  }
  State().FullSizeImages = 1;
  Card bare = Goblin(1);
  bare.Thumb = "";
  EXPECT_EQ(CardPictureHtml(bare, 0, 0), "");
  EXPECT_NE(CardPictureHtml(bare, 1, 0), "");
  bare.Picture = "";
  EXPECT_EQ(CardPictureHtml(bare, 1, 0), "");
}

TEST_F(CardPagesTest, DescriptionPage) {
  const std::string front =
      Joined("<p>", kName, "</p><p></p><p><font size=+1 color=#0000FF>flies", "</font></p>");
  const std::string back = Joined("<p>", kName, " bites ", kName, ".</p>");
  struct {
    int owner, inPlay;
    std::string menu;
  } const cases[] = {
      {1, 0, ""},
      {1, 1, "<p><a href=\"MENUACTION:42:2\">Heal</a><br></p>"},
      {3, 1, "<p><a href=\"MENUACTION:42:2\">Heal</a><br></p>"},
      {2, 1, "<p></p>"},
  };
  for (const auto& row : cases) {
    Card card = Goblin(row.owner);
    card.InPlay = static_cast<std::uint8_t>(row.inPlay);
    AddEffect(card, "MODTRAIT:HP:1", 7, "PHASE1", 0, "SELF");
    AddEffect(card, "MODTRAIT:HP:2", 7, "MENU:PHASE3:Heal", 0, "SELF");
    ShowCardDescription(card, 1);
    EXPECT_EQ(PageBody(ReadFile("CardDesc.html")), front + row.menu + back);
    EXPECT_EQ(desktop_->Pages["CardDescWB"], ReadFile("CardDesc.html"));
    EXPECT_EQ(State().PageText, "");
    EXPECT_EQ(TheMainWindow().Picture1.Picture.Get(), "/game/p.jpg");
  }
}

TEST_F(CardPagesTest, DescriptionPageInDebugMode) {
  State().DebugMode = 1;
  Card card = Goblin(1);
  card.Slot = 9;
  AddEffect(card, "MODTRAIT:HP:1", 7, "PHASE1", 0, "SELF");
  ShowCardDescription(card, 0);
  EXPECT_EQ(PageBody(ReadFile("CardDesc.html")),
            Joined("<p>", kName, "</p><p></p><p>", kName, " bites ", kName, ".</p>",
                   "<br><br>Card #9<br>Global ID: 42, HP (5), FLYING, ",
                   "Action #1<br>Trigger: PHASE1<br>Action:<br>MODTRAIT:HP:1<br><br>"));
}

TEST_F(CardPagesTest, SummaryIsAFragmentWithoutMenu) {
  Card card = Goblin(1);
  card.InPlay = 1;
  AddEffect(card, "MODTRAIT:HP:2", 7, "MENU:PHASE3:Heal", 0, "SELF");
  const std::string back = Joined("<p>", kName, " bites ", kName, ".</p>");
  EXPECT_EQ(CardSummary(card, 1),
            Joined("<p>", kName, "</p><p><font size=+1 color=#0000FF>flies", "</font></p>", back));
  EXPECT_EQ(CardSummary(card, 0), Joined("<p>", kName, "</p>", back));
  EXPECT_EQ(ReadFile("CardDesc.html"), "(no such file)");
}

TEST_F(CardPagesTest, PanelOfTheReport) {
  const auto panel = [](std::string_view align) {
    return Joined("<table width=100%><tr><td bgcolor=#0><a href=\"CARD42\"><img ", align,
                  "hspace=5 width = 150 height = 225 border = \"0\" src=\"file:///game/p.jpg\">",
                  "</img></a><p>", kName, "</p><p></p><p><font size=+1 color=#0000FF>flies</font>",
                  "</p><p>", kName, " bites ", kName, ".</p></td></tr></table><br>");
  };
  Card mine = Goblin(1);
  Card enemys = Goblin(2);
  EXPECT_EQ(CardPanelHtml(mine, 1), panel(" align = left "));
  EXPECT_EQ(CardPanelHtml(enemys, 1), panel(" align = right "));
  EXPECT_EQ(CardPanelHtml(enemys, 0), panel(" align = left "));
  EXPECT_EQ(CardPanelHtml(enemys, 2), panel(" align = left "));
  mine.Picture = "";
  EXPECT_EQ(CardPanelHtml(mine, 0), "");
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

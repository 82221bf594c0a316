// The deck manager while cards are sold.
#include "script/stored_cards.h"
#include "script/trait_changes.h"
#include "tests/ui/deck_manager_session.h"

namespace brindlemoor {
namespace {

class DeckSalesTest : public DeckManagerSession {};

TEST_F(DeckSalesTest, SellingPaysByRarityAndTakesTheCard) {
  Own({"Elf", "Orc"});
  State().Collection[1].Rarity = 255;
  State().Decks[1].Cards[1] = MakeCard("Bat", 1);
  State().Decks[1].Cards[1].Rarity = 9;
  Open();
  desktop_->ExpectedMessages = {
      "Click here to switch into sale mode.  Click again to return to normal mode.  To sell a card "
      "in sale mode, simply click on it."};
  for (int click = 0; click < 3; ++click) form_.Command5.Click();  // on, off, on
  const int before = State().Players[1].Tokens;
  form_.CollectPic[0]->MouseMove();
  EXPECT_NE(desktop_->Pages["WB"].find(
                "The ephemeral powers that be offer you <font color=#FFFF00>26 Tokens</font> for "
                "this card.<br>Just click to make the sale..."),
            std::string::npos);
  desktop_->YesNoAnswers = {false, true, true};
  ClickCollection(0);
  EXPECT_EQ(desktop_->YesNoQuestions.back(), "Sell Elf for 26 tokens?");
  EXPECT_EQ(Collection(), "Elf Orc ") << "not sold";
  EXPECT_FALSE(form_.UndoSale.Visible);
  ClickCollection(0);
  EXPECT_NE(desktop_->Pages["WB"].find("<font color=#FF3311>Ha ha ha!  It's mine now!</font>"),
            std::string::npos);
  ClickDeck(0);
  EXPECT_EQ(State().Players[1].Tokens, before + 26 + 1);
  EXPECT_EQ(form_.Label1.Caption.Get(), Joined("Tokens: ", before + 27));
  EXPECT_EQ(Deck(1) + "| " + Collection(), "- | Orc - ");
  EXPECT_EQ(form_.Cardcount.Caption.Get(), "Cards: 0");
  EXPECT_FALSE(form_.QueryClose());
  EXPECT_EQ(State().SaleMode, 0);
}

TEST_F(DeckSalesTest, SalesAreTakenBackUntilTheFormClosesAndTheLastPlayerCardIsAskedForTwice) {
  Own({"Elf", "Orc"});
  SetTrait(State().Collection[1], "PLAYER", "", 1);
  AddToDeck(MakeCard("Bat", 1), 2);
  Open();
  const int before = State().Players[1].Tokens;
  State().SaleMode = 1;
  desktop_->YesNoAnswers = {true, false};
  ClickCollection(0);
  EXPECT_TRUE(desktop_->YesNoQuestions.back().starts_with("Elf is your last card with the trait"));
  EXPECT_EQ(Collection(), "Elf Orc ");
  desktop_->YesNoAnswers = {true, true, true};
  ClickCollection(0);
  form_.Option1[1]->Click();
  ClickDeck(0);
  EXPECT_EQ(Collection() + "| " + Deck(2), "Orc - | - ");
  form_.Option1[0]->Click();
  form_.UndoSale.Click();
  form_.UndoSale.Click();
  EXPECT_EQ(Collection() + "| " + Deck(2), "Orc Elf | Bat ");
  EXPECT_EQ(State().Players[1].Tokens, before);
  EXPECT_FALSE(form_.UndoSale.Visible);
  desktop_->YesNoAnswers = {true};
  ClickCollection(0);
  EXPECT_TRUE(form_.UndoSale.Visible);
  State().SaleMode = 0;
  Open();
  EXPECT_FALSE(form_.UndoSale.Visible) << "what was sold before the form closed is sold";
}

}  // namespace
}  // namespace brindlemoor

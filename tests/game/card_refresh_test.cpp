// Stored cards brought up to date with their source files.
#include "game/card_refresh.h"

#include <set>

#include "data/card_reader.h"
#include "script/trait_actions.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class CardRefreshTest : public SessionTest {
 protected:
  CardRefreshTest() {
    WriteFile("src.txt",
              "#CARD, COLLECTION, New Name, id1, src.txt, new.jpg, newt.jpg, #00FF00, New text\n"
              "#TRAIT, HP:9\n#TRAIT, FLYING\n#EFFECT, SELF, PHASE1, ECHO:new\n"
              "#EXTRADATA, 40, PHASE2, , ,\n"
              "#CARD, INDECK, Elsewhere, id2, other.txt, , , , \n#TRAIT, HP:9\n"
              "#CARDINDECK, Plain, p.jpg, , , , From the file\n#TRAIT, HP:9\n");
    State().TraitActions.Append(MakeCard("FLYING", 0));
    AddEffect(State().TraitActions[2], "ECHO:fly", 7, "PHASE3", 1, "SELF");
  }
  static Card Stored(std::string_view uniqueId, const std::vector<std::string>& traits = {"HP:1"}) {
    Card card = MakeCard("Old Name", 2, traits);
    card.UniqueID = uniqueId;
    card.SourceFile = "src.txt";
    card.Picture = "old.jpg";
    card.Thumb = "oldt.jpg";
    card.NameColor = "#0000FF";
    card.Rarity = 3;
    card.GlobalID = 4711;
    return card;
  }
  /// The card after a refresh of a draw pile that holds it.
  static Card Refreshed(const Card& card) {
    State().Players[2].Deck.Append(card);
    RefreshPlayers();
    return State().Players[2].Deck[State().Players[2].Deck.UpperBound()];
  }
};

TEST_F(CardRefreshTest, TakesTheDefinitionAndKeepsIdentityAndLooks) {
  const Card card = Refreshed(Stored("id1"));
  EXPECT_EQ(card.Name, "Old Name");
  EXPECT_EQ(card.Picture, "old.jpg");
  EXPECT_EQ(card.Thumb, "oldt.jpg");
  EXPECT_EQ(card.NameColor, "#0000FF");
  EXPECT_EQ(card.Owner, 2);
  EXPECT_EQ(card.OwnerBit, 2);
  EXPECT_EQ(card.GlobalID, 4711);
  EXPECT_EQ(card.Description, "New text");
  EXPECT_EQ(card.Rarity, 40);
  EXPECT_EQ(card.ActivateOn, "PHASE2");
  EXPECT_EQ(GetTrait(card, "HP").Str(), "9");
  ASSERT_EQ(card.Effects.UpperBound(), 2);
  EXPECT_EQ(card.Effects[1].Script, "ECHO:new");
  EXPECT_EQ(card.Effects[2].Script, "TRAIT:TRAITEFFECT:FLYING:ECHO:fly");
}

TEST_F(CardRefreshTest, WithoutAMatchingDefinitionACardStaysAsStored) {
  Card elsewhere = Stored("id2");
  Card lostSource = Stored("id1");
  lostSource.SourceFile = "gone.txt";
  Card nameless = Stored("", {"HP:1"});
  nameless.SourceFile = Text();
  for (const Card& stored :
       {Stored("id1", {"HP:1", "NOMRP"}), Stored("unknown"), elsewhere, lostSource, nameless}) {
    const Card card = Refreshed(stored);
    SCOPED_TRACE(card.UniqueID.Str());
    EXPECT_EQ(GetTrait(card, "HP").Str(), "1");
    EXPECT_EQ(card.Rarity, 3);
    EXPECT_EQ(card.Description, "");
  }
}

TEST_F(CardRefreshTest, ACardWithoutUniqueIdBecomesTheOneOfItsName) {
  State().Players[1].Deck.Append(Stored("id1"));  // brings the file in
  Card plain = MakeCard("Plain", 2);
  EXPECT_EQ(Refreshed(plain).Description, "From the file");
}

TEST_F(CardRefreshTest, TheCollectionAndTheDecksAreRefreshedAndOtherwiseKept) {
  WriteFile("src.txt", Joined(files_->Contents["/game/src.txt"],
                              "#COLLECTION, Stray, , , , , \n#CARDINPLAYERDECK, 1, Stray, , , , ,\n"
                              "#TOKENS, 1\n"));
  State().Collection[1] = Stored("id1");
  State().Collection.Append(MakeCard("Second", 1));
  State().Decks[2].Cards.Append(Stored("id1"));
  State().Players[1].Tokens = 30;
  RefreshCollection();
  ASSERT_EQ(State().Collection.UpperBound(), 2);
  EXPECT_EQ(State().Collection[1].Rarity, 40);
  EXPECT_EQ(State().Collection[2].Name, "Second");
  EXPECT_EQ(State().Decks[1].Cards.UpperBound(), 1);
  EXPECT_EQ(State().Decks[2].Cards[2].Rarity, 40);
  EXPECT_EQ(State().Players[1].Tokens, 30);
  EXPECT_EQ(State().MasterCards.UpperBound(), 1);
}

TEST_F(CardRefreshTest, KeysFindTheirPlaceAgainUntilTheTableIsFull) {
  Pile& masters = State().MasterCards;
  EXPECT_EQ(MasterSlot("x"), 0);
  masters.Reset(300);
  std::set<int> slots;
  for (int i = 0; i < 300; ++i) {
    const std::string key = Joined("Card", i, "x");
    const int slot = MasterSlot(key);
    ASSERT_TRUE(masters.Holds(slot));
    masters[slot].UniqueID = key;
    slots.insert(slot);
  }
  EXPECT_EQ(slots.size(), 300U);
  for (int i = 0; i < 300; ++i) {
    const std::string key = Joined("Card", i, "x");
    EXPECT_EQ(masters[MasterSlot(key)].UniqueID, key);
  }
  EXPECT_EQ(MasterSlot("one more"), 0);
}

TEST_F(CardRefreshTest, MoreCardsThanTheTableHoldsAreAProblemAndNoMore) {
  std::string text;
  for (int i = 1; i <= 2001; ++i) text += Joined("#CARD, INDECK, C, c", i, "c, src.txt, , , , \n");
  WriteFile("src.txt", text);
  State().Collection[1] = Stored("c1c");
  RefreshCollection();
  ASSERT_EQ(State().Problems.size(), 1U);
  EXPECT_EQ(State().Problems[0].File, "src.txt");
}

TEST_F(CardRefreshTest, TheSequenceGoesOnFromTheClock) {
  RefreshPlayers();
  const auto first = State().Random.State;
  RefreshPlayers();
  EXPECT_NE(State().Random.State, first);
}

}  // namespace
}  // namespace brindlemoor

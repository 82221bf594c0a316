// Stored cards brought up to date with their source files.
#include "game/card_refresh.h"

#include "script/card_setup.h"
#include "script/trait_changes.h"
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
              "#CARDINDECK, Plain, p.jpg, , , , From the file\n#TRAIT, HP:9\n"
              "#COLLECTION, Stray, , , , , \n#CARDINPLAYERDECK, 1, Stray, , , , ,\n#TOKENS, 1\n");
    State().TraitActions.Append(MakeCard("FLYING", 0));
    AddEffect(State().TraitActions[2], "ECHO:fly", 7, "PHASE3", 1, "SELF");
    State().Players[1].Tokens = 30;
  }
  static Card Stored(std::string_view uniqueId, std::string_view source = "src.txt",
                     const std::vector<std::string>& traits = {"HP:1"}) {
    Card card = MakeCard("Old Name", 2, traits);
    card.UniqueID = uniqueId;
    card.SourceFile = source;
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
  Card stored = Stored("id1");
  stored.EntryScripts = "MODTRAIT:HP:1$|$";
  const Card card = Refreshed(stored);
  EXPECT_EQ(card.EntryScripts, "MODTRAIT:HP:1$|$") << "a modification lasts";
  EXPECT_EQ(Joined(card.Name, "|", card.Picture, "|", card.Thumb, "|", card.NameColor, "|",
                   int{card.Owner}, "|", card.OwnerBit, "|", card.GlobalID),
            "Old Name|old.jpg|oldt.jpg|#0000FF|2|2|4711");
  EXPECT_EQ(Joined(card.Description, "|", int{card.Rarity}, "|", card.ActivateOn, "|",
                   GetTrait(card, "HP").Str()),
            "New text|40|PHASE2|9");
  ASSERT_EQ(card.Effects.UpperBound(), 2);
  EXPECT_EQ(card.Effects[1].Script, "ECHO:new");
  EXPECT_EQ(card.Effects[2].Script, "TRAIT:TRAITEFFECT:FLYING:ECHO:fly");
}

TEST_F(CardRefreshTest, WithoutAMatchingDefinitionACardStaysAsStored) {
  for (const Card& stored : {Stored("id1", "src.txt", {"HP:1", "NOMRP"}), Stored("unknown"),
                             Stored("id2"), Stored("id1", "gone.txt"), Stored("", "")}) {
    const Card card = Refreshed(stored);
    EXPECT_EQ(Joined(GetTrait(card, "HP").Str(), "|", int{card.Rarity}, "|", card.Description),
              "1|3|")
        << stored.UniqueID.View() << " " << stored.SourceFile.View();
  }
  Refreshed(Stored("id1"));  // brings the file in
}

TEST_F(CardRefreshTest, WithoutAnIdentityItIsTheCardOfItsNameOnItsOwnSide) {
  WriteFile("src.txt",
            "#CARDINDECK, Plain, , , , , From the file\n#TRAIT, FLYING\n"
            "#EFFECT, ALL, PHASE1, REQENEMY\n");
  Refreshed(Stored("id1"));  // brings the file in
  Card plain = MakeCard("Plain", 2);
  plain.GlobalID = 4712;
  const Card card = Refreshed(plain);
  EXPECT_EQ(card.Description, "From the file");
  EXPECT_EQ(Joined(int{card.Owner}, "|", card.OwnerBit, "|", card.GlobalID), "2|2|4712");
  EXPECT_EQ(card.Effects[1].OwnerMask, 1) << "its enemies are those of its side";
  EXPECT_EQ(card.Effects[2].Script, "TRAIT:TRAITEFFECT:FLYING:ECHO:fly");
}

TEST_F(CardRefreshTest, TheGameInProgressStaysAsItIs) {
  WriteFile("src.txt",
            ReadFile("src.txt") +
                "#RULESCARD\n#EFFECT, SELF, TURNSTART, WINGAME\n#STARTERDECK\n"
                "#NEUTRALCARD, Intruder, , , , ,\n#TRAITACTION, FLYING\n"
                "#CUSTOMSTRING, SEA, wet\n#DECKRULES, none\n#SIDEBOARDCARD, x, , , , ,\n");
  SetTrait(State().RulesCard, "ROUND", 3, 1);
  const int slots = State().CardTable.UpperBound();
  const int givers = State().TraitActions.UpperBound();
  Refreshed(Stored("id1"));
  EXPECT_EQ(TraitNumber(State().RulesCard, "ROUND"), 3);
  EXPECT_EQ(State().RulesCard.Effects[1].Script, "");
  EXPECT_EQ(State().StarterDeckFlag, 0);
  EXPECT_EQ(State().DeckRules, "");
  EXPECT_EQ(State().CustomStrings.UpperBound(), 0);
  EXPECT_EQ(State().CardTable.UpperBound(), slots);
  EXPECT_EQ(State().TraitActions.UpperBound(), givers);
  EXPECT_EQ(State().Sideboard.UpperBound(), 1);
}

TEST_F(CardRefreshTest, TheCollectionAndTheDecksAreRefreshedAndOtherwiseKept) {
  State().Collection[1] = Stored("id1");
  State().Collection.Append(MakeCard("Second", 1));
  State().Decks[2].Cards.Append(Stored("id1"));
  RefreshCollection();
  ASSERT_EQ(State().Collection.UpperBound(), 2);
  EXPECT_EQ(State().Collection[1].Rarity, 40);
  EXPECT_EQ(State().Collection[2].Name, "Second");
  EXPECT_EQ(State().Decks[1].Cards.UpperBound(), 1);
  EXPECT_EQ(State().Decks[2].Cards[2].Rarity, 40);
  EXPECT_EQ(State().Players[1].Tokens, 30);
}

}  // namespace
}  // namespace brindlemoor

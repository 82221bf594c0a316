// What a card data file brings into the tables.
#include "data/card_reader.h"

#include <set>

#include "core/strings.h"
#include "data/directives.h"
#include "language/target_types.h"
#include "tests/support/saved_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class CardReaderTest : public SessionTest {
 protected:
  /// Reads a text for a side as the file "cards.txt"; the draw pile keeps the file's order.
  void Read(std::string_view text, int side = 1, std::string_view location = "", int keep = 0) {
    WriteFile("cards.txt", text);
    ReadInOrder("cards.txt", State().Players[side], location, keep);
  }
  /// The cards of a pile as "position Name, ", free elements left out.
  static std::string CardsOf(const Pile& pile) {
    std::string names;
    for (int i = 1; i <= pile.UpperBound(); ++i) {
      if (!IsFree(pile[i])) names += Joined(i, " ", pile[i].Name, ", ");
    }
    return names;
  }
  static std::string Problems() {
    std::string all;
    for (const Problem& problem : State().Problems) {
      all += Joined(problem.Line, ": ", problem.Message, "\n");
    }
    return all;
  }
  static Pile& Deck(int side = 1) { return State().Players[side].Deck; }
  static std::string TraitsOf(const Card& card) {
    std::string traits;
    for (const Text& trait : card.Traits) traits += Joined("[", trait, "]");
    return traits;
  }
};

constexpr std::string_view kEveryDirective = R"(***************************************** Fire, Ice
#STARTERDECK
#GAMEFILE, rules.txt
#CUSTOMSTRING, GREETING, "Hello, you"
#DECKRULES, TRAITLIMIT:#ANY#:60
#TOKENS, 120
#PLAYERCARD, Ann, , , , , #FF0000, text
#RULESCARD
#TRAIT, TRAITGRAPHIC:HP:hp.jpg:Health:#00FF00:1:0
#EXTRADATA, 7, PHASE1, x, ,
#COSTCARD
#TRAIT, BASE:2
#EXTRADATA, 8, PHASE1, x, ,
#TRAITACTION, FLYING
#EFFECT, SELF, MENU:PHASE1:Fly, ECHO:up
#TRAITACTIONDESC, FLYING, nothing
#SIDEBOARDCARD, Side, s.jpg, s-mini.jpg, #111111, aux, "A ""?"
#COLLECTION, Coll, , , , ,
#REFCOLLECTION, Ogre, other.txt
#TEMPLATE, Temp, t.jpg, , , ,
#TEMPLATEDATA, back.jpg, border.jpg, 255
#NEUTRALCARD, Store, , , #FFFFFF, , ,
#CARDINPLAY, Tower, , , , ,
#REFINPLAY, Ogre, other.txt
#CARDINPLAYERDECK, 2, Knight, k.jpg, , , ,
#DUPLICATE, 1
#REFINPLAYERDECK, 3, Ogre, other.txt
#CARDINDECK, Goblin, g.jpg, g-mini.jpg, #0000FF, a:b, Small
#TRAIT, HP:3, #TRAIT, "CHARACTER",
#TRAITACTIONDESC, HP, "Its health, today"
#EFFECT, TARGETCARD, "MENU:TURNSTART:Buy", "ECHO:x, y:DESTROY"
#EFFECT, GIDCARD:5/ADD/1, PHASE2, ECHO:007
#EXTRADATA, 50, TURNSTART, MODTRAIT:HP:1$|$, ,
#DUPLICATE, 2
#REFINDECK, Ogre, other.txt
#DECKNAME, 3, Ogres
#CARD, COLLECTION, Last, id1, src.txt, p.jpg, q.jpg, , "Text, long"
#INCLUDE, more.txt, INDECK
)";

TEST_F(CardReaderTest, EveryDirectiveDoesItsWork) {
  for (const DirectiveRow& row : kDirectiveRows) {
    EXPECT_NE(kEveryDirective.find(row.Word), std::string_view::npos) << row.Word;
  }
  WriteFile("other.txt", "#CARDINDECK, Ogre, o.jpg, , #123456, , Big\n#TRAIT, HP:9\n");
  WriteFile("more.txt", "#CARD, COLLECTION, Imp, , , , , , \n#CARD, TEMPLATE, T2, , , , , , \n");
  Read(kEveryDirective);
  EXPECT_EQ(Problems(), "");
  const Session& session = State();
  EXPECT_EQ(Joined(session.StarterDeckFlag, " ", session.GameFileName, " ", session.DeckRules, " ",
                   session.Players[1].Tokens, " ", session.CustomStrings[1].Values[1]),
            "1 rules.txt TRAITLIMIT:#ANY#:60 120 Hello, you");
  const TraitGraphic& g = session.TraitGraphics[1];
  EXPECT_EQ(
      Joined(g.TraitName, g.Picture, g.Label, g.FontColor, int{g.ShowSmall}, int{g.ShowLarge}),
      "HPhp.jpgHealth#00FF0010");
  EXPECT_EQ(session.RulesCard.Rarity, 7);
  EXPECT_EQ(session.RulesCard.ActivateOn, "");
  EXPECT_EQ(TraitsOf(session.CostCard), "[BASE:2]");
  EXPECT_EQ(CardsOf(session.TraitActions), "2 FLYING, ");
  EXPECT_EQ(session.TraitActions[2].Effects[1].Trigger, "MENU:PHASE1:Fly");
  EXPECT_EQ(Described(session.Sideboard),
            "[Side][][][s.jpg][s-mini.jpg][#111111][A ][][]\nrarity 0\n");
  EXPECT_EQ(CardsOf(session.CardTable), "2 Store, 3 Tower, 4 Ogre, ");
  EXPECT_EQ(session.CardTable[2].OwnerBit, 4);
  EXPECT_EQ(CardsOf(session.Decks[2].Cards), "2 Knight, 3 Knight, ");
  EXPECT_EQ(CardsOf(session.Decks[3].Cards), "2 Ogre, ");
  EXPECT_EQ(CardsOf(session.Collection), "1 Coll, 2 Ogre, 3 Last, ");
  EXPECT_EQ(Described(session.Collection[3]),
            "[Last][id1][src.txt][p.jpg][q.jpg][#FFFFFF][Text, long][][]\nrarity 0\n");
  // The included file rewrites the templates from the first.
  EXPECT_EQ(session.Templates[1].Card.Name, "T2");
  EXPECT_EQ(session.Templates[1].BackImage, "");

  ASSERT_EQ(CardsOf(Deck()), "2 Goblin, 3 Goblin, 4 Goblin, 5 Ogre, 6 Imp, ");
  EXPECT_EQ(Described(Deck()[4]),
            "[Goblin][][][g.jpg][g-mini.jpg][#0000FF][Small][TURNSTART][MODTRAIT:HP:1$|$]\n"
            "trait [HP:3][Its health, today]\ntrait [CHARACTER][]\n"
            "action [0][TARGETCARD][TURNSTART][1][Buy][ECHO:x, y:DESTROY]\n"
            "action [11][GIDCARD:5/ADD/1][PHASE2][0][][ECHO:007]\nrarity 50\n");
  EXPECT_EQ((std::set{Deck()[2].GlobalID, Deck()[3].GlobalID, Deck()[4].GlobalID}).size(), 3U);
}

TEST_F(CardReaderTest, LocationsSendCardsToTheirPiles) {
  // Where a card is found, with its owner and InPlay; the locations, some replaced by another.
  // Only the six ordinary words, as they stand, are replaced.
  const std::pair<const char*, const char*> cases[] = {
      {"deck 20", "INDECK indeck #CARDINDECK COLLECTION=INDECK"},
      {"deck2 20", "INPLAYERDECK:2 #inplayerdeck:2"},
      {"deck3 20", "NEUTRAL=INPLAYERDECK:3"},
      {"table 21", "INPLAY #PLAYER INPLAY=INDECK"},
      {"table 31", "NEUTRAL"},
      {"collection 20", "COLLECTION PLAYER=COLLECTION collection=INDECK"},
      {"sideboard 20", "SIDEBOARD PLAYERDECK=SIDEBOARD"},
      {"template 20", "TEMPLATE TEMPLATE=INDECK"},
      {"actions 20", "TRAITACTION"},
      {"cost 20", "#COSTCARD"},
      {"", "PLAYERCARD #PLAYERCARD"},
  };
  const auto place = [this](const std::string& location, const std::string& forced) {
    Session& s = State();
    for (Pile* pile : {&s.CardTable, &s.Sideboard, &s.TraitActions, &s.Collection}) pile->Reset(1);
    for (DeckRec& deck : s.Decks) deck.Cards.Reset(1);
    s.Templates.Reset(1);
    s.CostCard = Card{};
    Deck(2).Reset(1);
    Read(Joined("#CARD, ", location, ", Troll, , , , , #0000FF, \n#TRAIT, HP\n"), 2, forced);
    const std::pair<const char*, const Pile*> piles[] = {
        {"deck", &Deck(2)},          {"deck2", &s.Decks[2].Cards},  {"deck3", &s.Decks[3].Cards},
        {"table", &s.CardTable},     {"collection", &s.Collection}, {"sideboard", &s.Sideboard},
        {"actions", &s.TraitActions}};
    std::string found;
    const auto look = [&found](std::string_view name, const Card& card) {
      if (card.Name == "Troll" && HasTrait(card, "HP"))
        found += Joined(name, " ", int{card.Owner}, int{card.InPlay});
    };
    for (const auto& [name, pile] : piles) look(name, (*pile)[pile->UpperBound()]);
    look("template", s.Templates[s.Templates.UpperBound()].Card);
    look("cost", s.CostCard);
    return found;
  };
  for (const auto& [expected, locations] : cases) {
    for (FieldWalker walker(locations, ' '); !walker.AtEnd();) {
      const std::string word(walker.Next());
      EXPECT_EQ(place(GetDS(word, 1, "="), GetDS(word, 2, "=")), expected) << word;
    }
  }
  EXPECT_EQ(Problems(), "");

  State().Players[2].Color = "#123456";
  Read("#CARD, PLAYER, Ann, , , , , #0000FF, \n#TRAIT, PLAYER\n", 2);
  EXPECT_EQ(CardsOf(State().CardTable), "2 Ann, ") << "a side has one player card";
  EXPECT_EQ(State().Players[2].PlayerCard, 2);
  EXPECT_EQ(State().Players[2].Color, "");
}

TEST_F(CardReaderTest, LinesWithoutACardOfTheirOwnGoToTheCardBefore) {
  Read(
      "#TRAIT, FREE\n"
      "#CARDINDECK, A, , , , ,\n#CARD, PLAYERCARD, Face, , , , , , \n#TRAIT, ONE\n"
      "#CARD, NOWHERE, Lost, , , , , , \n#TRAIT, TWO\n#TOKENS, 4\n#TRAIT, THREE\n"
      "#CARD, COLLECTION, C, , , , , , \n#REFINDECK, None, none.txt\n#TRAIT, FOUR\n");
  EXPECT_EQ(TraitsOf(Deck()[1]), "[FREE]");
  EXPECT_EQ(TraitsOf(Deck()[2]), "[ONE][TWO][THREE]");
  EXPECT_EQ(TraitsOf(State().Collection[1]), "[FOUR]");
  EXPECT_EQ(Deck().UpperBound(), 3) << "a reference that is not found leaves a free element";
  EXPECT_EQ(Problems(),
            "5: \"NOWHERE\" is no location; the card \"Lost\" is left out\n"
            "10: no card \"None\" is found in \"none.txt\"; its place stays free\n");
}

TEST_F(CardReaderTest, OuterCountsDoNotFollowAnInclude) {
  WriteFile("inner.txt",
            "#CARDINDECK, In1, , , , ,\n#CARDINDECK, In2, , , , ,\n#EXTRADATA, 9, , , ,\n");
  Read("#CARDINDECK, A, , , , ,\n#INCLUDE, inner.txt, \n#CARDINDECK, D, , , , ,\n");
  EXPECT_EQ(CardsOf(Deck()), "2 A, 3 D, ");
  EXPECT_EQ(Deck()[3].Rarity, 0) << "nothing of the dropped card shows through";
}

TEST_F(CardReaderTest, OwnedPilesAreEmptiedForTheHumanOnly) {
  const std::tuple<int, int, bool> cases[] = {{1, 0, false}, {1, 1, true}, {2, 0, true}};
  for (const auto& [side, keep, left] : cases) {
    State().Collection[1] = MakeCard("Old", 1);
    State().Decks[1].Cards.Reset(1);
    State().Decks[1].Cards.Append(MakeCard("Old", 1));
    Read("#CARDINDECK, A, , , , ,\n", side, "", keep);
    EXPECT_EQ(CardsOf(State().Collection), left ? "1 Old, " : "");
    EXPECT_EQ(CardsOf(State().Decks[1].Cards), left ? "2 Old, " : "");
  }
  ReadCards("missing.txt", State().Players[1], 0, "", 0);
  EXPECT_EQ(CardsOf(State().Collection), "1 Old, ") << "a missing file loses nothing";
}

TEST_F(CardReaderTest, ReferencesComeFromACacheAndLoseDuplicates) {
  WriteFile("sub/ref.txt", "#CARDINDECK, Elf, , , , ,\n#DUPLICATE, 5\n#REFINDECK, Elf, ref.txt\n");
  files_->Contents["/secret/x.txt"] = "#CARDINDECK, Spy, , , , ,\n";
  const Card elf = GetRefCard("Elf", "some\\ref.txt");
  EXPECT_EQ(elf.Name, "Elf");
  const Pile& cached = State().RefCache[1].Deck;
  EXPECT_EQ(CardsOf(cached), "2 Elf, 3 Elf, ") << "and its own reference";
  EXPECT_NE(cached[2].GlobalID, cached[3].GlobalID) << "each is a card of its own";
  WriteFile("sub/ref.txt", "");
  EXPECT_EQ(GetRefCard("Elf", "ref.txt").GlobalID, elf.GlobalID);
  for (const char* file : {"none.txt", "/secret/x.txt", "../secret/x.txt"}) {
    EXPECT_EQ(GetRefCard("Spy", file).Name, "") << file;
  }
  EXPECT_EQ(GetRefCard("elf", "ref.txt").Name, "");
}

TEST_F(CardReaderTest, BadInputIsSkippedWithAProblem) {
  // Lines from line 2 on, and what is told of them. After an open quote nothing more is read.
  const std::pair<std::string, std::string> cases[] = {
      {"#FOO, x", "2: \"#FOO\" is no directive\n"},
      {"#trait, x", "2: \"#trait\" is no directive; \"#TRAIT\" is written in capitals\n"},
      {"#TRAIT HP:3", "2: a comma is missing behind #TRAIT\n"},
      {"#FFAABB, #12AB34, # note, ####, #GAMERULES, a, #PLAYERDECK, #Note, #NOTE this", ""},
      {"#CARDINPLAYERDECK, 7, K, , , , ,\n#TRAIT, K", "2: deck number 7 is not 1, 2 or 3\n"},
      {"#EXTRADATA, 300, , , ,", "2: the rarity 300 is not between 0 and 255; 0 is taken\n"},
      {"#EFFECT, NOBODY, PHASE1, ECHO:x",
       "2: \"NOBODY\" is no target; a card that the player picks is taken\n"},
      {"#INCLUDE, x\\CARDS.TXT, ", "2: the file \"x\\CARDS.TXT\" is being read already\n"},
      {"#CARD, INDECK, \"K", "2: a double quote in #CARD is never closed\n"},
      {"x, \"K", "2: a double quote is never closed; the rest of the file is not read\n"},
  };
  for (const auto& [text, problem] : cases) {
    SCOPED_TRACE(text);
    State().Problems.clear();
    State().FileList.fill(Text());
    Deck().Reset(1);
    Read(Joined("#CARDINDECK, A, , , , ,\n", text, "\n#CARD, INDECK, Z, , , , , , \n#TRAIT, HP\n"));
    EXPECT_EQ(Problems(), problem);
    const bool open = problem.find("never closed") != std::string::npos;
    ASSERT_EQ(CardsOf(Deck()), open ? "2 A, " : "2 A, 3 Z, ");
    EXPECT_FALSE(HasTrait(Deck()[2], "K")) << "a left-out card's lines go with it";
    EXPECT_TRUE(open || HasTrait(Deck()[3], "HP"));
    for (const DeckRec& deck : State().Decks) EXPECT_EQ(CardsOf(deck.Cards), "");
  }
  desktop_->ExpectedMessages = {
      "Error in reading cards: Goblin references trait FLYING but does not have it."};
  Read("#CARDINDECK, Goblin, , , , ,\n#TRAITACTIONDESC, FLYING, x\n");
}

TEST_F(CardReaderTest, NestedReadsAndPilesAreBounded) {
  for (int i = 1; i <= 60; ++i) {
    WriteFile(Joined("f", i, ".txt"),
              Joined("#CARDINDECK, C", i, ", , , , ,\n#INCLUDE, f", i + 1, ".txt, \n"));
  }
  ReadCards("f1.txt", State().Players[1], 0, "", 0);
  EXPECT_EQ(Deck().UpperBound(), 51);
  ASSERT_EQ(State().Problems.size(), 1U);
  EXPECT_EQ(State().Problems[0].File, "/game/f50.txt");
  EXPECT_EQ(State().Problems[0].Line, 2);
  // Two includes of the next file in each: without a bound this would be 2 to the power 49 reads.
  for (int i = 1; i <= 50; ++i) {
    const std::string next = Joined("#INCLUDE, f", i + 1, ".txt, \n");
    WriteFile(Joined("f", i, ".txt"), next + next);
  }
  ReadCards("f1.txt", State().Players[1], 0, "", 0);
  EXPECT_EQ(State().ReadDepth, 0);

  Read("#CARDINPLAY, A, , , , ,\n#DUPLICATE, 1e300\n");
  EXPECT_EQ(State().CardTable.UpperBound(), 32767);
}

}  // namespace
}  // namespace brindlemoor

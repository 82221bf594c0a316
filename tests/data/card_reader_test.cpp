// What a card data file brings into the tables.
#include "data/card_reader.h"

#include <set>

#include "data/directives.h"
#include "script/target_types.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

/// The cards of a pile as "position Name", free elements left out.
std::vector<std::string> CardsOf(const Pile& pile) {
  std::vector<std::string> names;
  for (int i = 1; i <= pile.UpperBound(); ++i) {
    if (!IsFree(pile[i])) names.push_back(Joined(i, " ", pile[i].Name));
  }
  return names;
}

using Names = std::vector<std::string>;

class CardReaderTest : public SessionTest {
 protected:
  /// Reads a text for a side as the file "cards.txt"; the draw pile keeps the file's order.
  void Read(std::string_view text, int side = 1, std::string_view location = "", int keep = 0) {
    WriteFile("cards.txt", text);
    State().ReadDepth = 1;  // an outer read is in progress: nothing is shuffled
    ReadCards("cards.txt", State().Players[side], 0, location, keep);
    State().ReadDepth = 0;
    State().FilesRead = 0;
  }
  static std::string Problems() {
    std::string all;
    for (const Problem& problem : State().Problems) {
      all += Joined(problem.Line, ": ", problem.Message, "\n");
    }
    return all;
  }
  static Pile& Deck(int side = 1) { return State().Players[side].Deck; }
  static Names TraitsOf(const Card& card) {
    Names traits;
    for (const Text& trait : card.Traits) traits.push_back(trait.Str());
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
#CARD, COLLECTION, Last, id1, src.txt, p.jpg, q.jpg, , "Text, long"
#INCLUDE, more.txt, INDECK
)";

TEST_F(CardReaderTest, EveryDirectiveDoesItsWork) {
  for (const DirectiveRow& row : kDirectiveRows) {
    EXPECT_NE(kEveryDirective.find(row.Word), std::string_view::npos) << row.Word;
  }
  WriteFile("other.txt", "#CARDINDECK, Ogre, o.jpg, , #123456, , Big\n#TRAIT, HP:9\n");
  WriteFile("more.txt", "#CARD, COLLECTION, Imp, , , , , , \n#CARD, TEMPLATE, T2, , , , , , \n");
  Read(kEveryDirective, 1);
  EXPECT_EQ(Problems(), "");
  Session& session = State();
  EXPECT_EQ(session.StarterDeckFlag, 1);
  EXPECT_EQ(session.GameFileName, "rules.txt");
  EXPECT_EQ(session.DeckRules, "TRAITLIMIT:#ANY#:60");
  EXPECT_EQ(session.Players[1].Tokens, 120);
  EXPECT_EQ(session.CustomStrings[1].Values[1], "Hello, you");
  EXPECT_EQ(session.TraitGraphics[1].Label, "Health");
  EXPECT_EQ(session.TraitGraphics[1].FontColor, "#00FF00");
  EXPECT_EQ(session.TraitGraphics[1].ShowSmall, 1);
  EXPECT_EQ(session.TraitGraphics[1].ShowLarge, 0);
  EXPECT_EQ(session.RulesCard.Rarity, 7);
  EXPECT_EQ(session.RulesCard.ActivateOn, "");
  EXPECT_EQ(session.CostCard.Rarity, 8);
  EXPECT_EQ(TraitsOf(session.CostCard), Names{"BASE:2"});

  EXPECT_EQ(CardsOf(session.TraitActions), Names{"2 FLYING"});
  EXPECT_EQ(session.TraitActions[2].Effects[1].Trigger, "MENU:PHASE1:Fly");
  EXPECT_EQ(session.TraitActions[2].Owner, 0);
  EXPECT_EQ(CardsOf(session.Sideboard), Names{"2 Side"});
  EXPECT_EQ(session.Sideboard[2].AuxText, "aux");
  EXPECT_EQ(session.Sideboard[2].Description, "A ");
  EXPECT_EQ(CardsOf(session.CardTable), (Names{"2 Store", "3 Tower", "4 Ogre"}));
  EXPECT_EQ(session.CardTable[2].Owner, 0);
  EXPECT_EQ(session.CardTable[2].OwnerBit, 4);
  EXPECT_EQ(session.CardTable[3].Slot, 0);
  EXPECT_EQ(session.CardTable[4].Owner, 1);
  EXPECT_EQ(CardsOf(session.Decks[2].Cards), (Names{"2 Knight", "3 Knight"}));
  EXPECT_EQ(CardsOf(session.Decks[3].Cards), Names{"2 Ogre"});
  EXPECT_EQ(CardsOf(session.Collection), (Names{"1 Coll", "2 Ogre", "3 Last"}));
  const Card& last = session.Collection[3];
  EXPECT_EQ(last.UniqueID, "id1");
  EXPECT_EQ(last.SourceFile, "src.txt");
  EXPECT_EQ(last.NameColor, "#FFFFFF");
  EXPECT_EQ(last.Description, "Text, long");
  // The included file rewrites the templates from the first.
  EXPECT_EQ(session.Templates[1].Card.Name, "T2");
  EXPECT_EQ(session.Templates[1].BackImage, "");

  ASSERT_EQ(CardsOf(Deck()), (Names{"2 Goblin", "3 Goblin", "4 Goblin", "5 Ogre", "6 Imp"}));
  const Card& goblin = Deck()[2];
  EXPECT_EQ(goblin.Picture, "g.jpg");
  EXPECT_EQ(goblin.Thumb, "g-mini.jpg");
  EXPECT_EQ(goblin.NameColor, "#0000FF");
  EXPECT_EQ(goblin.AuxText, "a:b");
  EXPECT_EQ(TraitsOf(goblin), (Names{"HP:3", "CHARACTER"}));
  EXPECT_EQ(goblin.TraitCaptions[1], "Its health, today");
  EXPECT_EQ(goblin.Effects[1].Trigger, "TURNSTART");
  EXPECT_EQ(goblin.Effects[1].MenuState, kMenuAction);
  EXPECT_EQ(goblin.Effects[1].MenuCaption, "Buy");
  EXPECT_EQ(goblin.Effects[1].Script, "ECHO:x, y:DESTROY");
  EXPECT_EQ(goblin.Effects[2].TargetType, kTargetGidCard);
  EXPECT_EQ(goblin.Effects[2].TargetText, "GIDCARD:5/ADD/1");
  EXPECT_EQ(goblin.Effects[2].Script, "ECHO:007");
  EXPECT_EQ(goblin.Rarity, 50);
  EXPECT_EQ(goblin.ActivateOn, "TURNSTART");
  EXPECT_EQ(goblin.EntryScripts, "MODTRAIT:HP:1$|$");
  EXPECT_TRUE(goblin.Effects[1].Script.SharesStorageWith(Deck()[4].Effects[1].Script));
  EXPECT_EQ((std::set{goblin.GlobalID, Deck()[3].GlobalID, Deck()[4].GlobalID}).size(), 3U);
  EXPECT_EQ(TraitsOf(Deck()[5]), Names{"HP:9"});
}

TEST_F(CardReaderTest, TemplatesTakeTheirData) {
  Read(
      "#TEMPLATE, A, , , , ,\n#TEMPLATE, B, , , , ,\n#CARDINDECK, X, , , , ,\n"
      "#TEMPLATEDATA, back.jpg, border.jpg, 255\n");
  ASSERT_EQ(State().Templates.UpperBound(), 2);
  EXPECT_EQ(State().Templates[1].BackImage, "");
  EXPECT_EQ(State().Templates[2].BackImage, "back.jpg");
  EXPECT_EQ(State().Templates[2].MiniBorder, "border.jpg");
  EXPECT_EQ(State().Templates[2].BorderColor, 255);
}

TEST_F(CardReaderTest, LocationsSendCardsToTheirPiles) {
  const struct {
    std::string_view Location;
    std::string_view Forced;
    std::string_view Pile;  // where the card is found, with its trait
    int Owner;
    int InPlay;
  } cases[] = {
      {"INDECK", "", "deck", 2, 0},
      {"indeck", "", "deck", 2, 0},
      {"INPLAYERDECK:2", "", "deck 2", 2, 0},
      {"#inplayerdeck:2", "", "deck 2", 2, 0},
      {"INPLAY", "", "table", 2, 1},
      {"NEUTRAL", "", "table", 3, 1},
      {"COLLECTION", "", "collection", 2, 0},
      {"SIDEBOARD", "", "sideboard", 2, 0},
      {"#PLAYER", "", "table", 2, 1},
      {"TEMPLATE", "", "template", 2, 0},
      {"TRAITACTION", "", "trait actions", 2, 0},
      {"#CARDINDECK", "", "deck", 2, 0},
      {"#COSTCARD", "", "cost card", 2, 0},
      {"PLAYERCARD", "", "", 0, 0},
      {"#PLAYERCARD", "", "", 0, 0},
      {"COLLECTION", "INDECK", "deck", 2, 0},
      {"PLAYER", "COLLECTION", "collection", 2, 0},
      {"NEUTRAL", "INPLAYERDECK:3", "deck 3", 2, 0},
      {"PLAYERDECK", "SIDEBOARD", "sideboard", 2, 0},
      // Only the six ordinary words, as they stand, are replaced.
      {"collection", "INDECK", "collection", 2, 0},
      {"INPLAY", "INDECK", "table", 2, 1},
      {"TEMPLATE", "INDECK", "template", 2, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(Joined(c.Location, " forced ", c.Forced));
    State().CardTable.Reset(1);
    State().Sideboard.Reset(1);
    State().TraitActions.Reset(1);
    State().Templates.Reset(0);
    State().Collection.Reset(1);
    for (DeckRec& deck : State().Decks) deck.Cards.Reset(1);
    InitPlayer(State().Players[2], 2);
    State().CostCard = Card{};
    Read(Joined("#CARD, ", c.Location, ", Troll, , , , , #0000FF, \n#TRAIT, HP\n"), 2, c.Forced);
    struct Place {
      std::string_view Pile;
      const Card* Found;
    };
    const auto last = [](const Pile& pile) { return &pile[pile.UpperBound()]; };
    static const Card kNone;
    const Place places[] = {
        {"deck", last(Deck(2))},
        {"deck 2", last(State().Decks[2].Cards)},
        {"deck 3", last(State().Decks[3].Cards)},
        {"table", last(State().CardTable)},
        {"collection", last(State().Collection)},
        {"sideboard", last(State().Sideboard)},
        {"trait actions", last(State().TraitActions)},
        {"cost card", &State().CostCard},
        {"template", State().Templates.UpperBound() == 1 ? &State().Templates[1].Card : &kNone}};
    for (const Place& place : places) {
      SCOPED_TRACE(place.Pile);
      const Card& card = *place.Found;
      ASSERT_EQ(card.Name, c.Pile == place.Pile ? "Troll" : "");
      if (c.Pile != place.Pile) continue;
      EXPECT_TRUE(HasTrait(card, "HP", ""));
      EXPECT_EQ(card.Owner, c.Owner);
      EXPECT_EQ(card.InPlay, c.InPlay);
    }
  }
  EXPECT_EQ(Problems(), "");
}

TEST_F(CardReaderTest, PlayerLineMakesThePlayerCard) {
  State().Players[2].Color = "#123456";
  Read("#CARD, PLAYER, Ann, , , , , #0000FF, \n#TRAIT, PLAYER\n", 2);
  EXPECT_EQ(State().Players[2].PlayerCard, 2);
  EXPECT_EQ(State().Players[2].Color, "");
  EXPECT_EQ(State().CardTable[2].NameColor, "");
  EXPECT_EQ(State().CardTable[2].OwnerBit, 2);
  EXPECT_EQ(TraitsOf(State().CardTable[2]), Names{"PLAYER"});
}

TEST_F(CardReaderTest, LinesWithoutACardOfTheirOwnGoToTheCardBefore) {
  Read(
      "#TRAIT, FREE\n"
      "#CARDINDECK, A, , , , ,\n#CARD, PLAYERCARD, Face, , , , , , \n#TRAIT, ONE\n"
      "#CARD, NOWHERE, Lost, , , , , , \n#TRAIT, TWO\n#TOKENS, 4\n#TRAIT, THREE\n"
      "#CARD, COLLECTION, C, , , , , , \n#REFINDECK, None, none.txt\n#TRAIT, FOUR\n");
  EXPECT_EQ(TraitsOf(Deck()[1]), (Names{"FREE"}));
  EXPECT_EQ(TraitsOf(Deck()[2]), (Names{"ONE", "TWO", "THREE"}));
  EXPECT_EQ(TraitsOf(State().Collection[1]), (Names{"FOUR"}));
  EXPECT_EQ(Deck().UpperBound(), 3) << "a reference that is not found leaves a free element";
  EXPECT_EQ(Problems(),
            "5: \"NOWHERE\" is no location; the card \"Lost\" is left out\n"
            "10: no card \"None\" is found in \"none.txt\"; its place stays free\n");
}

TEST_F(CardReaderTest, OuterCountsDoNotFollowAnInclude) {
  WriteFile("inner.txt",
            "#CARDINDECK, In1, , , , ,\n#EXTRADATA, 9, , , ,\n#CARDINDECK, In2, , , , ,\n"
            "#COLLECTION, InC, , , , ,\n");
  Read(
      "#CARDINDECK, A, , , , ,\n#COLLECTION, B, , , , ,\n#COLLECTION, C, , , , ,\n"
      "#INCLUDE, inner.txt, \n#CARDINDECK, D, , , , ,\n#COLLECTION, E, , , , ,\n");
  EXPECT_EQ(CardsOf(Deck()), (Names{"2 A", "3 D"}));
  EXPECT_EQ(Deck()[3].Rarity, 0) << "nothing of the dropped card shows through";
  EXPECT_EQ(CardsOf(State().Collection), (Names{"1 InC", "3 E"}));
}

TEST_F(CardReaderTest, OwnedPilesAreEmptiedForTheHumanOnly) {
  const auto fill = [] {
    State().Collection.Reset(0);
    State().Collection.Append(MakeCard("Old", 1));
    State().Decks[1].Cards.Append(MakeCard("Old", 1));
    InitPlayer(State().Players[1], 1);
  };
  const struct {
    int Side;
    int Keep;
    int Left;
  } cases[] = {{1, 0, 0}, {1, 1, 1}, {2, 0, 1}};
  for (const auto& c : cases) {
    fill();
    Read("#CARDINDECK, A, , , , ,\n", c.Side, "", c.Keep);
    EXPECT_EQ(CardsOf(State().Collection).size(), static_cast<std::size_t>(c.Left));
    EXPECT_EQ(State().Decks[1].Cards.UpperBound(), c.Left == 0 ? 1 : 2);
    State().Decks[1].Cards.Reset(1);
  }
  fill();
  ReadCards("missing.txt", State().Players[1], 0, "", 0);
  EXPECT_EQ(CardsOf(State().Collection), Names{"1 Old"}) << "a missing file loses nothing";
}

TEST_F(CardReaderTest, TheOutermostReadShufflesAndRemembersTheDeck) {
  std::string text;
  for (int i = 0; i < 20; ++i) text += Joined("#CARDINDECK, C", i, ", , , , ,\n");
  WriteFile("Cards.TXT", text);
  ReadCards("cards.txt", State().Players[1], 0, "", 0);
  const PlayerState& player = State().Players[1];
  ASSERT_EQ(player.Deck.UpperBound(), 21);
  EXPECT_EQ(CardsOf(player.StartDeck).front(), "2 C0");
  EXPECT_NE(CardsOf(player.Deck), CardsOf(player.StartDeck));
  std::set<std::string> names;
  for (const Card& card : player.Deck) names.insert(card.Name.Str());
  EXPECT_EQ(names.size(), 21U);
  EXPECT_EQ(State().FileList[1], "");
  EXPECT_EQ(State().ReadDepth, 0);
}

TEST_F(CardReaderTest, ReferencesComeFromACacheAndLoseDuplicates) {
  WriteFile("sub/ref.txt", "#CARDINDECK, Elf, , , , ,\n#DUPLICATE, 5\n#REFINDECK, Elf, ref.txt\n");
  const Card elf = GetRefCard("Elf", "some\\ref.txt");
  EXPECT_EQ(elf.Name, "Elf");
  ASSERT_EQ(State().RefCache.UpperBound(), 1);
  EXPECT_EQ(CardsOf(State().RefCache[1].Deck).size(), 2U) << "one card and its own reference";
  WriteFile("sub/ref.txt", "");
  EXPECT_EQ(GetRefCard("Elf", "ref.txt").GlobalID, elf.GlobalID);
  EXPECT_EQ(GetRefCard("elf", "ref.txt").Name, "");
  EXPECT_EQ(GetRefCard("", "ref.txt").Name, "");
  EXPECT_EQ(GetRefCard("Elf", "none.txt").Name, "");
  files_->Contents["/secret/x.txt"] = "#CARDINDECK, Spy, , , , ,\n";
  EXPECT_EQ(GetRefCard("Spy", "/secret/x.txt").Name, "");
  EXPECT_EQ(GetRefCard("Spy", "../secret/x.txt").Name, "");
}

TEST_F(CardReaderTest, CustomStringsAndGraphicsFillFreeElementsFirst) {
  for (int i = 1; i <= 300; ++i) EXPECT_EQ(AddCustomString("A", std::to_string(i)), i <= 255);
  EXPECT_TRUE(AddCustomString("B", "x"));
  ASSERT_EQ(State().CustomStrings.UpperBound(), 2);
  EXPECT_EQ(State().CustomStrings[1].Values.UpperBound(), 255);
  EXPECT_EQ(State().CustomStrings[1].Values[255], "255");
  AddTraitGraphic("HP", "", "", "", 0, 1);
  AddTraitGraphic("MANA", "", "", "", 1, 0);
  ASSERT_EQ(State().TraitGraphics.UpperBound(), 2);
  EXPECT_EQ(State().TraitGraphics[1].TraitName, "HP");
}

TEST_F(CardReaderTest, BadInputIsSkippedWithAProblem) {
  const std::string_view before = "#CARDINDECK, A, , , , ,\n";  // line 1
  const std::string_view after = "\n#CARD, INDECK, Z, , , , , , \n#TRAIT, HP\n";
  const struct {
    std::string Text;  // from line 2 on
    std::string Problem;
    bool RestIsRead = true;
  } cases[] = {
      {"#FOO, x", "2: \"#FOO\" is no directive\n"},
      {"#trait, x", "2: \"#trait\" is no directive; \"#TRAIT\" is written in capitals\n"},
      {"#TRAIT HP:3", "2: a comma is missing behind #TRAIT\n"},
      {"#FFAABB, #12AB34, # note, ####, #GAMERULES, a, #PLAYERDECK, #Note, #NOTE this", ""},
      {"#CARDINPLAYERDECK, 7, K, , , , ,\n#TRAIT, K", "2: deck number 7 is not 1, 2 or 3\n"},
      {"#CARDINPLAYERDECK, , K, , , , ,", "2: deck number  is not 1, 2 or 3\n"},
      {"#REFINPLAYERDECK, 1e99, K, x.txt", "2: deck number 1e99 is not 1, 2 or 3\n"},
      {"#CARD, INPLAYERDECK:-1, K, , , , , , \n#TRAIT, K", "2: deck number -1 is not 1, 2 or 3\n"},
      {"#CARD, PLAYERDECK, K, , , , , , \n#TRAIT, K",
       "2: the card \"K\" is left out: no deck number was given\n"},
      {"#EXTRADATA, 300, , , ,", "2: the rarity 300 is not between 0 and 255; 0 is taken\n"},
      {"#TOKENS, 1e300",
       "2: the number of tokens 1e300 is not between -2147483648 and 2147483647; 0 is taken\n"},
      {"#TEMPLATEDATA, a, b, 1", "2: there is no template for #TEMPLATEDATA\n"},
      {"#TRAIT, ", "2: a trait has no name\n"},
      {"#EFFECT, NOBODY, PHASE1, ECHO:x",
       "2: \"NOBODY\" is no target; a card that the player picks is taken\n"},
      {"#COLLECTION, C, , , , ,\n#TRAITACTIONDESC, HP, x",
       "3: Error in reading cards: C references trait HP but does not have it.\n"},
      {"#INCLUDE, none.txt, ", "2: the file \"none.txt\" is not there\n"},
      {"#INCLUDE, cards.txt, ", "2: the file \"cards.txt\" is being read already\n"},
      {"#INCLUDE, x\\CARDS.TXT, ", "2: the file \"x\\CARDS.TXT\" is being read already\n"},
      {"#TRAIT\n#TRAIT, ONE",
       "2: \"#TRAIT\" stands where field 1 of #TRAIT belongs; is a field missing?\n"},
      {"#CARD, INDECK, \"K", "2: a double quote in #CARD is never closed\n", false},
      {"x, \"K", "2: a double quote is never closed; the rest of the file is not read\n", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Text);
    State().Problems.clear();
    State().FileList.fill(Text());
    InitPlayer(State().Players[1], 1);
    State().Decks[1].Cards.Reset(1);
    Read(Joined(before, c.Text, after));
    EXPECT_EQ(Problems(), c.Problem);
    ASSERT_EQ(CardsOf(Deck()), (c.RestIsRead ? Names{"2 A", "3 Z"} : Names{"2 A"}));
    EXPECT_FALSE(HasTrait(Deck()[2], "K", "")) << "a left-out card's lines go with it";
    if (c.RestIsRead) {
      EXPECT_TRUE(HasTrait(Deck()[3], "HP", ""));
    }
    for (const DeckRec& deck : State().Decks) EXPECT_EQ(CardsOf(deck.Cards), Names{});
  }
}

TEST_F(CardReaderTest, AMissingTraitOfADeckCardIsTold) {
  desktop_->ExpectedMessages.push_back(
      "Error in reading cards: Goblin references trait FLYING but does not have it.");
  Read("#CARDINDECK, Goblin, , , , ,\n#TRAITACTIONDESC, FLYING, x\n#TRAIT, HP\n");
  EXPECT_EQ(TraitsOf(Deck()[2]), Names{"HP"});
}

TEST_F(CardReaderTest, NestedReadsAreBounded) {
  for (int i = 1; i <= 60; ++i) {
    WriteFile(Joined("f", i, ".txt"),
              Joined("#CARDINDECK, C", i, ", , , , ,\n#INCLUDE, f", i + 1, ".txt, \n"));
  }
  ReadCards("f1.txt", State().Players[1], 0, "", 0);
  EXPECT_EQ(CardsOf(Deck()).size(), 50U);
  ASSERT_EQ(State().Problems.size(), 1U);
  EXPECT_EQ(State().Problems[0].File, "/game/f50.txt");
  EXPECT_EQ(State().Problems[0].Line, 2);
  EXPECT_EQ(State().ReadDepth, 0);

  // Two includes of the next file in each: without a bound this would be 2 to the power 49 reads.
  for (int i = 1; i <= 50; ++i) {
    const std::string next = Joined("#INCLUDE, f", i + 1, ".txt, \n");
    WriteFile(Joined("f", i, ".txt"), next + next);
  }
  ReadCards("f1.txt", State().Players[1], 0, "", 0);
  EXPECT_EQ(State().ReadDepth, 0);
  EXPECT_EQ(State().FilesRead, 0);
}

TEST_F(CardReaderTest, PilesAreBounded) {
  Read("#CARDINPLAY, A, , , , ,\n#DUPLICATE, 1e300\n#CARDINPLAY, B, , , , ,\n#TRAIT, HP\n");
  EXPECT_EQ(State().CardTable.UpperBound(), 32767);
  EXPECT_FALSE(HasTrait(State().CardTable[32767], "HP", ""));
  EXPECT_EQ(Problems(),
            "2: a card is left out: the pile holds 32767 cards already\n"
            "3: a card is left out: the pile holds 32767 cards already\n");
}

TEST_F(CardReaderTest, AFileCutAnywhereKeepsWhatStandsBeforeTheCut) {
  WriteFile("other.txt", "#CARDINDECK, Ogre, , , , ,\n");
  desktop_->AcceptMessages = true;
  const std::string first = "#CARDINDECK, First, , , , ,\n";
  const std::string text = Joined(first, kEveryDirective);
  for (std::size_t size = first.size(); size < text.size(); ++size) {
    InitPlayer(State().Players[1], 1);
    Read(text.substr(0, size));
    ASSERT_GE(Deck().UpperBound(), 2) << size;
    ASSERT_EQ(Deck()[2].Name, "First") << size;
  }
}

}  // namespace
}  // namespace brindlemoor

// What the program writes comes back whole, and is written again byte for byte.
#include <functional>

#include "core/strings.h"
#include "data/card_file_writer.h"
#include "data/card_writer.h"
#include "data/opponent_files.h"
#include "data/player_files.h"
#include "data/profiles.h"
#include "script/target_types.h"
#include "tests/support/saved_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

/// Texts that files hold to the letter in every field.
const std::vector<std::string> kExactTexts = {
    "Goblin",
    "Fire, Ice",
    "\xC3\x89mile \xE2\x82\xAC \xE6\xBC\xA2",
    " leading",
    "\tleading",
    "trailing \t",
    "two\r\nlines",
    "two\nlines, and\r\n\r\nfour",
    "a, #TRAIT, STOLEN",
    "a,\n#TOKENS, 5",
    "#CARD",
    "*****",
    "&quot &amp; 'single' $MYNAME {}\\",
    "-1",
    "007",
    "x,",
};
/// Texts with double quotes, which a quoted field cannot hold.
const std::vector<std::string> kQuotedTexts = {
    "The \"Big\" One", "\"Front\" first", "a, \"b\", c", "a,\"#TRAIT, b", "\"", "two\n\"lines",
};

/// A card that carries a text in every place that files keep.
Card CardHolding(const std::string& text) {
  Card card = MakeCard(text, 1);
  card.UniqueID = card.SourceFile = card.Picture = card.Thumb = card.NameColor = text;
  card.Description = card.ActivateOn = card.EntryScripts = text;
  card.Rarity = 255;
  SetTrait(card, text + "1", "", 1);
  SetTrait(card, text + "2", Text(text), 1);
  card.TraitCaptions.Edit(1) = text;
  card.TraitCaptions.Edit(2) = "OVERRIDE";
  AddEffect(card, text, kTargetAll, text, 0, "ALL");
  AddEffect(card, "ECHO:" + text, kTargetSelf, "MENU:PHASE1:" + text, 0, "SELF");
  AddEffect(card, "ECHO:x", kTargetGidCard, "COST", 0, "GIDCARD:" + text);
  return card;
}

class RoundTripTest : public SessionTest {
 protected:
  RoundTripTest() {
    State().Profile.PlayerName = "Ann";
    State().Profiles.Reset(1);
    State().Profiles[1].PlayerName = "Ann";
    State().CurrentDeck = 2;
  }
  static void EmptyOwnPiles() {
    State().Collection.Reset(1);
    for (DeckRec& deck : State().Decks) deck.Cards.Reset(1);
    State().Templates.Resize(0);
    State().CostCard = Card{};
    for (int side = 1; side <= 2; ++side) InitPlayer(State().Players[side], side);
  }
  /// A card as it comes back from a file of its own.
  Card Returned(Card card) {
    WriteFile("one.txt", CardToText(card, "INDECK"));
    EmptyOwnPiles();
    ReadInOrder("one.txt", State().Players[1]);
    const Pile& deck = State().Players[1].Deck;
    EXPECT_EQ(deck.UpperBound(), 2);
    return deck[deck.UpperBound()];
  }
};

TEST_F(RoundTripTest, EveryFieldKeepsWhatBreaksTheStructure) {
  for (const std::string& text : kExactTexts) {
    const Card card = CardHolding(text);
    EXPECT_EQ(Described(Returned(card)), Described(card));
  }
  for (const std::string& text : kQuotedTexts) {
    SCOPED_TRACE(text);
    Card card = CardHolding(text);
    const std::string written = CardToText(card, "INDECK");
    Card back = Returned(card);
    EXPECT_EQ(CardToText(back, "INDECK"), written);
    const std::string escaped = ReplacedCopy(text, "\"", "&quot");
    EXPECT_EQ(back.Description, escaped);
    EXPECT_EQ(back.TraitCaptions[1], escaped);
    EXPECT_EQ(back.Effects[1].Script, escaped);
    EXPECT_EQ(back.Effects.UpperBound(), 3);
  }
  const Card big = Returned(CardHolding("The \"Big\" One"));
  EXPECT_EQ(big.Name, "The \"Big\" One") << "a name that can stand without quotes keeps its own";
  EXPECT_EQ(big.Picture, "The \"Big\" One");
  for (const Problem& problem : State().Problems) {
    EXPECT_NE(problem.Message.find("stands where field"), std::string::npos) << problem.Message;
  }
}

TEST_F(RoundTripTest, VeryLongTextsComeBack) {
  std::string text;
  while (text.size() < (1 << 20)) text += "An \"endless\" story, line by line\r\n";
  Card card = MakeCard("Saga", 1, {"HP:3"});
  card.Description = text;
  AddEffect(card, "ECHO:" + text, kTargetSelf, "PHASE1", 0, "SELF");
  const Card back = Returned(card);
  const std::string escaped = ReplacedCopy(text, "\"", "&quot");
  EXPECT_TRUE(back.Description == escaped);
  EXPECT_TRUE(back.Effects[1].Script == "ECHO:" + escaped);
  EXPECT_EQ(back.Traits[1], "HP:3");
}

TEST_F(RoundTripTest, BonusTraitsDoNotMultiply) {
  const std::vector<std::vector<std::string>> cases = {
      {"BONUSHP:2", "HP:BONUS"},       {"BONUSHP:2", "HP:BONUS", "FLYING"},
      {"BONUSHP:2", "FLYING", "HP:5"}, {"BONUSHP:2", "FLYING", "HP"},
      {"HP:5", "BONUSHP:2"},           {"HP:BONUS", "HP:4"},
  };
  for (const auto& traits : cases) {
    Card card = MakeCard("Elf", 1);
    card.Traits.Resize(0);
    for (const std::string& trait : traits) card.Traits.Append(trait);
    EXPECT_EQ(Described(Returned(card)), Described(card));
  }
}

/// Fills everything that files are saved from.
void OwnEveryKindOfCard() {
  Session& session = State();
  session.Collection.Reset(0);
  session.Templates.Resize(0);
  for (const auto& texts : {kExactTexts, kQuotedTexts}) {
    for (const std::string& text : texts) {
      Card card = CardHolding(text);
      // Player files are sorted by name: a number in front keeps the order.
      card.Name = Joined("Card ", 10 + session.Collection.UpperBound(), " ", text);
      session.Collection.Append(card);
      for (DeckRec& deck : session.Decks) deck.Cards.Append(card);
      session.Templates.Append({card, text, text, -2147483647 - 1});
    }
  }
  session.Decks[2].Cards.Append(MakeCard("Duke, the", 1, {"PLAYER"}));
  session.CostCard = MakeCard("CostCard", 1, {"BASE:2"});
  AddEffect(session.CostCard, "MODTRAIT:a, \"b\"", kTargetSelf, "MENU:PHASE1:x", 0, "SELF");
  session.CostCard.Rarity = 9;
  session.Players[1].Tokens = -2147483647 - 1;
}

TEST_F(RoundTripTest, EveryFileOfTheProgramIsSavedTheSameAfterARead) {
  const auto read = [](std::string_view file) { ReadInOrder(file, State().Players[1]); };
  const struct {
    std::string_view Kind;
    std::function<void()> Save;
    std::function<void()> Read;
  } files[] = {
      {"player file", [] { WritePlayerFile("saved"); }, [&] { read("saved"); }},
      {"card file", [] { SaveCardFile("saved", "COLLECTION", "", 0); }, [&] { read("saved"); }},
      {"card store", [] { SaveCardFile("saved", "#CARDINDECK", "a, \"store\"", 0); },
       [&] {
         read("saved");
         State().Collection = State().Players[1].Deck;
       }},
      {"starter deck", [] { SaveCardFile("saved", "#CARDINDECK", "#start, deck", 1); },
       [&] {
         read("saved");
         State().Collection = State().Players[1].Deck;
       }},
      {"opponent file", [] { WriteOpponentFile("saved", "Duke"); },
       [&] {
         ReadInOrder("saved", State().Players[2]);
         State().Decks[2].Cards = State().Players[2].Deck;
       }},
  };
  for (const auto& file : files) {
    SCOPED_TRACE(file.Kind);
    EmptyOwnPiles();
    OwnEveryKindOfCard();
    file.Save();
    const std::string first = ReadFile("saved");
    ASSERT_NE(first.find("Duke"), file.Kind == "opponent file" ? std::string::npos : 0);
    EmptyOwnPiles();
    State().Players[1].Tokens = 1;
    file.Read();
    if (file.Kind == "opponent file") State().Players[1].Tokens = 0;
    file.Save();
    EXPECT_EQ(ReadFile("saved"), first);
  }
}

TEST_F(RoundTripTest, ProfilesComeBackAndAreSavedTheSame) {
  const std::vector<std::string> names = {"Ann, B.",           "\xC3\x84nne",    "O'Neil",
                                          "Ann \"the\" First", "#PLAYERPROFILE", " a ",
                                          "\"quoted\", twice"};
  State().Profiles.Resize(0);
  State().Profile = ProfileRec{};
  for (const std::string& name : names) {
    State().Profiles.Append({name, name + "_Goblins.plr", "Caf\xC3\xA9 \"Rules\".txt"});
  }
  SaveProfiles();
  const std::string saved = ReadFile("PlayerProfiles.txt");
  LoadProfiles();
  ASSERT_EQ(State().Profiles.UpperBound(), static_cast<int>(names.size()));
  for (int index = 1; index <= 6; ++index) {
    const std::string& name = names[static_cast<std::size_t>(index) - 1];
    EXPECT_EQ(State().Profiles[index].PlayerName, name);
    EXPECT_EQ(State().Profiles[index].PlayerFile, name + "_Goblins.plr");
  }
  SaveProfiles();
  EXPECT_EQ(ReadFile("PlayerProfiles.txt"), saved);
}

TEST_F(RoundTripTest, OldFilesOfAnotherEncodingAreReadAndSavedAsUtf8) {
  WriteFile(
      "PlayerProfiles.txt",
      "\"#PLAYERPROFILE\",\"\xC4nne\",\"\xC4nne_Spa\xDF.plr:Spa\xDF.txt\",\"\",\"\",\"\"\r\n\r\n");
  WriteFile(
      "\xC3\x84nne_Spa\xC3\x9F.plr",
      "#PLAYERDECK\r\n\r\n\r\n#TOKENS, 5\r\n\r\n***** K\xE4se\r\n"
      "#CARD, COLLECTION, \"K\xE4se\", \"K\xE4se1\", , , , #FFFFFF, \"5 \x80, \x84ja\x93\r\n2\"\r\n"
      "#TRAIT, \"GR\xD6SSE:3\", \r\n#EXTRADATA, 0, , , , \r\n\r\n\r\n");
  LoadProfiles();
  State().Profile = State().Profiles[1];
  ReadInOrder(State().Profile.PlayerFile, State().Players[1]);
  const Card& card = State().Collection[1];
  EXPECT_EQ(card.Name, "K\xC3\xA4se");
  EXPECT_EQ(card.Description, "5 \xE2\x82\xAC, \xE2\x80\x9Eja\xE2\x80\x9C\r\n2");
  EXPECT_EQ(card.Traits[1], "GR\xC3\x96SSE:3");
  State().Games.Reset(1);
  State().Games[1].Name = "Spa\xC3\x9F";
  WritePlayerFile(PlayerFileName(1));
  const std::string saved = ReadFile("\xC3\x84nne_Spa\xC3\x9F.plr");
  EXPECT_NE(saved.find("\"K\xC3\xA4se\", \"K\xC3\xA4se1\""), std::string::npos);
  EXPECT_EQ(ReadFile("PlayerProfiles.txt"),
            "\"#PLAYERPROFILE\",\"\xC3\x84nne\",\"\xC3\x84nne_Spa\xC3\x9F.plr:Spa\xC3\x9F.txt\","
            "\"\",\"\",\"\"\r\n\r\n");
}

TEST_F(RoundTripTest, AStrayByteDoesNotChangeTheOtherCharacters) {
  State().Collection[1] = MakeCard("K\xC3\xA4se", 1);
  State().Collection[1].Picture = "caf\xE9.jpg";
  WritePlayerFile("saved.plr");
  ReadInOrder("saved.plr", State().Players[1]);
  EXPECT_EQ(State().Collection[1].Name, "K\xC3\xA4se");
  EXPECT_EQ(State().Collection[1].Picture, "caf\xC3\xA9.jpg");
}

}  // namespace
}  // namespace brindlemoor

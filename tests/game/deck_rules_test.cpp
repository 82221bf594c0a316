// Deck rules: which cards a deck takes, when it is complete, and what the player is told.
#include "game/deck_rules.h"

#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class DeckRulesTest : public SessionTest {
 protected:
  static Card Named(std::string_view name, const std::vector<std::string>& traits = {},
                    std::string_view uniqueId = "") {
    Card card = MakeCard(name, 1, traits);
    card.UniqueID = uniqueId.empty() ? name : uniqueId;
    return card;
  }
  static void Put(const Card& card, int copies = 1, int deckNo = 2) {
    for (int copy = 0; copy < copies; ++copy) State().Decks[deckNo].Cards.Append(card);
  }
  /// Verdict and message; "-" where the message was not written.
  static std::string Check(const Card& card, std::string_view rules, int deckNo = 2) {
    std::string message = "-";
    const int verdict = CheckDeckRules(card, deckNo, rules, message);
    return Joined(verdict, " ", message);
  }
};

constexpr const char* kFine = "2 -";

TEST_F(DeckRulesTest, SumsCountLiveCardsOfTheDeckOnly) {
  Put(Named("Gull", {"RARE:2"}));
  Put(Named("Gull", {"RARE:2x"}, "Gull2"));
  Put(Named("Crab", {"RARE", "BONUSRARE:3"}));
  Put(Named("Rope", {"RARE:none"}));
  Put(Card{});
  State().Decks[2].Cards[1].Traits.Resize(1);  // a free element that once was a card
  State().Decks[2].Cards[1].Traits.Edit(1) = "RARE:50";
  const std::tuple<const char*, int, const char*, double> cases[] = {
      {"#ANY#", 2, "", 4},    {"#ANY#", 2, "Gull", 1}, {"RARE", 2, "", 8},  {"RARE", 2, "Gull2", 2},
      {"RARE", 2, "gull", 0}, {"FISH", 2, "", 0},      {"", 2, "", 0},      {"RARE", 1, "", 0},
      {"#ANY#", 0, "", 0},    {"#ANY#", 4, "", 0},     {"#ANY#", -1, "", 0}};
  for (const auto& [trait, deckNo, uniqueId, sum] : cases) {
    EXPECT_EQ(DeckTraitSum(trait, deckNo, uniqueId), sum) << trait << deckNo << uniqueId;
  }
}

TEST_F(DeckRulesTest, LimitsCountTheCardThatIsAdded) {
  Put(Named("Gull", {"RARE:2"}), 2);
  Put(Named("Gull", {}, "Gull2"));
  const Card gull = Named("Gull", {"RARE:2"});
  const Card other = Named("Gull", {"RARE:1"}, "Gull2");
  const Card free = Named("Net", {"UNLIMITED", "RARE:9"});
  const std::string noGulls = "0 You can only have 2 \"Gull\" cards in your deck.";
  const std::string noRare = "0 You can only have a total of 4x RARE in your deck.";
  const std::tuple<Card, const char*, std::string> cases[] = {
      {gull, "", kFine},
      {gull, "TRAITLIMIT:#ANY#:4", kFine},
      {gull, "TRAITLIMIT:#ANY#:3", "0 You can only have 3 cards in your deck."},
      {gull, "TRAITLIMIT:RARE:4x", noRare},
      {gull, "TRAITLIMIT:RARE:6", kFine},
      {gull, "SAMENAMELIMIT:#ANY#:2", noGulls},
      {other, "SAMENAMELIMIT:#ANY#:2", kFine},
      {gull, "SAMENAMELIMIT:RARE:5",
       "0 You can only have a total of 5 RARE in your deck from \"Gull\" cards."},
      {other, "SAMENAMELIMIT:RARE:1", kFine},
      {gull, "TRAITLIMIT:RARE:few", "0 You can only have a total of few RARE in your deck."},
      {Named("Rope"), "TRAITLIMIT:FISH:few", kFine},
      {free, "TRAITLIMIT:#ANY#:1:TRAITLIMIT:RARE:1:SAMENAMELIMIT:#ANY#:0", kFine},
      {Card{}, "TRAITLIMIT:#ANY#:1:SAMENAMELIMIT:#ANY#:0", kFine},
  };
  for (const auto& [card, rules, answer] : cases) EXPECT_EQ(Check(card, rules), answer) << rules;
  Put(free);
  EXPECT_EQ(DeckTraitSum("RARE", 2, ""), 13);
  EXPECT_EQ(Check(other, "TRAITLIMIT:RARE:13"),
            "0 You can only have a total of 13 RARE in your deck.")
      << "an unlimited card takes room from the others";
}

TEST_F(DeckRulesTest, MinimumsAreForWholeDecks) {
  Put(Named("Gull", {"FISH:3"}), 3);
  const Card gull = Named("Gull", {"FISH:3"});
  const std::tuple<Card, const char*, const char*> cases[] = {
      {Card{}, "TRAITMINIMUM:#ANY#:3", kFine},
      {Card{}, "TRAITMINIMUM:#ANY#:4", "1 You must have at least 4 cards in your play deck."},
      {gull, "TRAITMINIMUM:#ANY#:4", kFine},
      {gull, "TRAITMINIMUM:FISH:12", kFine},
      {Card{}, "TRAITMINIMUM:FISH:12",
       "1 You must have at least 12 cards in your deck with the FISH trait."},
      {Named("Net", {"UNLIMITED"}), "TRAITMINIMUM:#ANY#:5",
       "1 You must have at least 5 cards in your play deck."},
  };
  for (const auto& [card, rules, answer] : cases) EXPECT_EQ(Check(card, rules), answer) << rules;
}

TEST_F(DeckRulesTest, RulesAreReadInOrderAndToTheFirstEmptyField) {
  Put(Named("Gull"));
  const Card gull = Named("Gull");
  const std::string fewFive = "1 You must have at least 5 cards in your play deck.";
  const std::string tooMany = "0 You can only have 1 cards in your deck.";
  const std::pair<const char*, std::string> cases[] = {
      {"TRAITMINIMUM:#ANY#:5:TRAITLIMIT:#ANY#:1", tooMany},
      {"TRAITLIMIT:#ANY#:1:TRAITMINIMUM:#ANY#:5:TRAITLIMIT:#ANY#:0", tooMany},
      {"TRAITMINIMUM:#ANY#:5:TRAITLIMIT:#ANY#:2", fewFive},
      {"TRAITMINIMUM:#ANY#:9:TRAITMINIMUM:#ANY#:5", fewFive},
      {"TRAITMINIMUM:#ANY#:5:TRAITMINIMUM:#ANY#:2", fewFive},
      {"No:more:than:TRAITLIMIT:#ANY#:1:of:them", tooMany},
      {"TRAITLIMIT:FISH:TRAITLIMIT:TRAITLIMIT:#ANY#:1", tooMany},
      {"TRAITLIMIT::0:TRAITLIMIT:#ANY#:1", tooMany},
      {"traitlimit:#ANY#:1", kFine},
      {":TRAITLIMIT:#ANY#:1", kFine},
      {"words::TRAITLIMIT:#ANY#:1", kFine},
      {"TRAITLIMIT", kFine},
      {"TRAITLIMIT:", kFine},
      {"TRAITMINIMUM:#ANY#", kFine},
      {"TRAITLIMIT:#ANY#", "0 You can only have  cards in your deck."},
  };
  for (const auto& [rules, answer] : cases) EXPECT_EQ(Check(gull, rules), answer) << rules;
  EXPECT_EQ(Check(Card{}, "TRAITLIMIT:#ANY#:0:TRAITMINIMUM:#ANY#:5"), fewFive)
      << "a limit that is not tested is stepped over whole";
  for (const int noDeck : {0, 4, 255, -1}) {
    EXPECT_EQ(Check(gull, "TRAITLIMIT:#ANY#:1:SAMENAMELIMIT:#ANY#:1", noDeck), kFine) << noDeck;
  }
}

}  // namespace
}  // namespace brindlemoor

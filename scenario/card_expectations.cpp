// Expectations on cards and piles, and the two questions: values and messages.
#include <algorithm>
#include <array>

#include "core/cards.h"
#include "core/limits.h"
#include "core/state.h"
#include "game/looking.h"
#include "game/opponent.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "language/values.h"
#include "pages/messages.h"
#include "scenario/accepting.h"
#include "scenario/expectation.h"
#include "scenario/scenario_fields.h"
#include "scenario/scenario_words.h"
#include "scenario/scene.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::array<std::string_view, 3> kMenuStates = {"ordinary", "waiting", "armed"};

std::string TraitsOf(const Card& card) {
  std::string traits;
  for (const Text& item : card.Traits) {
    if (!item.empty()) traits += Joined(traits.empty() ? "" : " ", item);
  }
  return traits;
}

/// A card that an expectation speaks of. A card that has gone fails it; nullptr then.
Card* TakeExpectedCard(Scene& scene, WordReader& line) {
  const std::string reference = line.Take("a card");
  if (!line.Good()) return nullptr;
  Card* card = FindScenarioCard(scene, reference).Record;
  if (card == nullptr) ExpectTrue(scene, false, reference, "there is no such card");
  return card;
}

void TraitIs(Scene& scene, WordReader& line) {
  const Card* card = TakeExpectedCard(scene, line);
  if (card == nullptr) return;
  const std::string trait = line.Take("a trait");
  const bool any = line.AtEnd();
  const std::string value = any ? "" : line.Take("a value");
  if (!line.Ends()) return;
  const std::string what = Joined("trait ", trait, " of ", card->Name);
  if (!HasTrait(*card, trait)) {
    ExpectTrue(scene, false, what, Joined("it is not there; it has \"", TraitsOf(*card), "\""));
  } else if (any) {
    ExpectTrue(scene, true, what, "");
  } else {
    ExpectEqual(scene, what, value, GetTrait(*card, trait).Str());
  }
}

void TraitIsNot(Scene& scene, WordReader& line) {
  const Card* card = TakeExpectedCard(scene, line);
  if (card == nullptr) return;
  do {
    const std::string trait = line.Take("a trait");
    if (!line.Good()) return;
    ExpectTrue(scene, !HasTrait(*card, trait), Joined("no trait ", trait, " of ", card->Name),
               Joined("it has \"", TraitsOf(*card), "\""));
  } while (!line.AtEnd());
}

void TraitsAre(Scene& scene, WordReader& line) {
  const Card* card = TakeExpectedCard(scene, line);
  if (card == nullptr) return;
  ExpectEqual(scene, Joined("traits of ", card->Name), line.TakeRest(), TraitsOf(*card));
}

void CaptionIs(Scene& scene, WordReader& line) {
  Card* card = TakeExpectedCard(scene, line);
  if (card == nullptr) return;
  const std::string trait = line.Take("a trait");
  const std::string text = line.Take("a caption");
  if (!line.Ends()) return;
  const int item = TraitSlot(*card, trait);
  const Text found =
      item != 0 && card->TraitCaptions.Holds(item) ? card->TraitCaptions[item] : Text();
  ExpectEqual(scene, Joined("caption of ", trait, " of ", card->Name), text, found);
}

/// Takes the number of an action; 0 when the line is wrong.
int TakeAction(WordReader& line) {
  const int action = line.TakeWhole("the number of an action", 1, limits::kCardItems);
  return line.Good() ? action : 0;
}

void ActionIs(Scene& scene, WordReader& line) {
  const Card* card = TakeExpectedCard(scene, line);
  if (card == nullptr) return;
  const int action = TakeAction(line);
  const std::string text = line.Take("what the action says");
  if (!line.Ends()) return;
  const CardEffect& effect = card->Effects[action];
  std::string found;
  if (!effect.Script.empty()) {
    found = Joined(effect.TargetText, " ", effect.Trigger, " ", effect.Script);
    const bool aims = effect.TargetType == TargetTypeCode(effect.TargetText);
    if (!aims) found += Joined(" (aims at ", TargetTypeName(effect.TargetType), ")");
  }
  ExpectEqual(scene, Joined("action ", action, " of ", card->Name), text, found);
}

void ActionCountIs(Scene& scene, WordReader& line) {
  const Card* card = TakeExpectedCard(scene, line);
  if (card == nullptr) return;
  const int expected = line.TakeWhole("a number of actions", 0, limits::kCardItems);
  if (!line.Ends()) return;
  const auto count = std::count_if(card->Effects.begin(), card->Effects.end(),
                                   [](const CardEffect& one) { return !one.Script.empty(); });
  ExpectEqual(scene, Joined("actions of ", card->Name), Joined(expected), Joined(count));
}

void MenuIs(Scene& scene, WordReader& line) {
  const Card* card = TakeExpectedCard(scene, line);
  if (card == nullptr) return;
  const int action = TakeAction(line);
  const std::string state = line.Take("ordinary, waiting or armed");
  if (!line.Ends()) return;
  const std::size_t found = card->Effects[action].MenuState;
  ExpectEqual(scene, Joined("menu state of action ", action, " of ", card->Name), state,
              found < kMenuStates.size() ? kMenuStates[found] : "unknown");
}

/// The Global ID of a card that may have gone by now; 0 for one that was never there.
std::int32_t GlobalIdOf(const Scene& scene, const std::string& reference, const Card* card) {
  if (card != nullptr) return card->GlobalID;
  const auto handle = scene.Handles.find(reference);
  return handle != scene.Handles.end() ? handle->second.GlobalID : 0;
}

void WhyIs(Scene& scene, WordReader& line) {
  const std::string reference = line.Take("a card");
  const int action = line.TakeWhole("the number of an action", 0, limits::kCardItems);
  if (!line.Good()) return;
  const Card* card = FindScenarioCard(scene, reference).Record;
  const std::int32_t globalId = GlobalIdOf(scene, reference, card);
  const std::string what = Joined("why action ", action, " of ", reference, " did nothing");
  if (card == nullptr && globalId == 0) {
    ExpectTrue(scene, false, what, "there is no such card");
  } else {
    ExpectText(scene, line, what, WhyNot(scene, globalId, card, action));
  }
}

/// Valued on a copy in a session that is thrown away: an expectation changes nothing.
void WorthIs(Scene& scene, WordReader& line) {
  const Card* card = TakeExpectedCard(scene, line);
  if (card == nullptr) return;
  const Looking looking;
  Card copy = *card;
  const CardWorth worth = ValueCardForAI(copy, WorthDetail::kTrials);
  const std::string what = Joined("worth of ", card->Name);
  if (line.Peek().find_first_not_of("-.0123456789") != std::string_view::npos) {
    ExpectText(scene, line, what, WorthText(copy, worth));
    return;
  }
  const std::string expected = line.Take("a number");
  if (!line.Ends()) return;
  const std::string found = Value(worth.Total()).Str();
  ++scene.Report.Expectations;
  if (found == expected) return;
  scene.Fail(Joined(what, " is ", expected, ": ", ShownText(WorthText(copy, worth))),
             Accepted(scene, found));
}

void TargetIs(Scene& scene, WordReader& line) {
  const Card* card = TakeExpectedCard(scene, line);
  if (card == nullptr) return;
  const int action = TakeAction(line);
  const std::string reference = line.Take("a target, or none,");
  if (!line.Ends()) return;
  const int chosen = card->Effects[action].ChosenTarget;
  const Pile& table = State().CardTable;
  const Card* found = table.Holds(chosen) && !IsFree(table[chosen]) ? &table[chosen] : nullptr;
  const Card* expected = reference == "none" ? nullptr : FindScenarioCard(scene, reference).Record;
  ExpectTrue(scene, found == expected && (reference == "none") == (expected == nullptr),
             Joined("target of action ", action, " of ", card->Name, " is ", reference),
             Joined("it was ", found != nullptr ? found->Name.Str() : Joined("slot ", chosen)));
}

void CardIsThere(Scene& scene, WordReader& line) {
  const std::string reference = line.Take("a card");
  const PlaceRow* place = line.TakeIf("in") ? line.TakePlace() : nullptr;
  if (!line.Ends()) return;
  const PlacedCard card = FindScenarioCard(scene, reference);
  if (card.Record == nullptr || place == nullptr) {
    ExpectTrue(scene, card.Record != nullptr, reference, "there is no such card");
  } else {
    ExpectEqual(scene, Joined("place of ", reference), place->Word,
                card.Place != nullptr ? card.Place->Word : "none");
  }
}

void CardIsGone(Scene& scene, WordReader& line) {
  const std::string reference = line.Take("a card");
  if (!line.Ends()) return;
  const PlacedCard card = FindScenarioCard(scene, reference);
  ExpectTrue(scene, card.Record == nullptr, Joined("no card ", reference),
             Joined("it is in ", card.Place != nullptr ? card.Place->Word : "no pile"));
}

void CardsHaving(Scene& scene, WordReader& line) {
  const std::string trait = line.Take("a trait");
  const std::string names = line.TakeRest();
  if (!line.Ends()) return;
  std::string found;
  for (const Card& card : State().CardTable) {
    if (IsFree(card) || !HasTrait(card, trait)) continue;
    found += Joined(found.empty() ? "" : " ", card.Name);
  }
  ExpectEqual(scene, Joined("cards in play with ", trait), names, found);
}

/// A pile as "hand 2"; nullptr when the line is wrong.
const Pile* TakePile(Scene& scene, WordReader& line, std::string& what) {
  const PlaceRow* place = line.TakePlace();
  if (!line.Good()) return nullptr;
  const int side = place->HasSide ? line.TakeWhole("a side", 1, 3) : 1;
  what = Joined(place->Word, place->HasSide ? Joined(" ", side) : std::string());
  return line.Good() ? &place->Of(scene, side) : nullptr;
}

void PileIs(Scene& scene, WordReader& line) {
  std::string what;
  const Pile* pile = TakePile(scene, line, what);
  if (pile != nullptr)
    ExpectEqual(scene, Joined("cards of ", what), line.TakeRest(), NamesOf(*pile));
}

void CountIs(Scene& scene, WordReader& line) {
  std::string what;
  const Pile* pile = TakePile(scene, line, what);
  const int expected = line.TakeWhole("a number", 0, limits::kPileCards);
  if (!line.Ends()) return;
  const bool waits = pile == &State().PendingCards;
  int count = 0;
  for (int index = 1; index <= pile->UpperBound(); ++index) {
    if (!IsFree((*pile)[index]) && (!waits || index <= State().PendingCount)) ++count;
  }
  ExpectEqual(scene, Joined("number of cards of ", what), Joined(expected), Joined(count));
}

void QueueIs(Scene& scene, WordReader& line) {
  const Session& session = State();
  std::string found;
  for (int entry = 1; entry <= session.PlayQueue.UpperBound(); ++entry) {
    const Pile& hand = session.Players[1].Hand;
    const int place = session.PlayQueue[entry];
    if (!hand.Holds(place)) continue;
    const int target = session.PlayTarget[entry];
    found += Joined(found.empty() ? "" : ", ", target < 0 ? "discard " : "", hand[place].Name);
    if (session.CardTable.Holds(target)) found += Joined(" at ", session.CardTable[target].Name);
  }
  ExpectEqual(scene, "queue", line.TakeRest(), found);
}

void FieldIs(Scene& scene, WordReader& line) {
  const std::string& word = scene.Line->Tokens[1].Text;
  const Card* card = TakeExpectedCard(scene, line);
  if (card == nullptr) return;
  const std::string value = line.Take("a value");
  if (!line.Ends()) return;
  ExpectEqual(scene, Joined(word, " of ", card->Name), value, FindCardField(word)->Read(*card));
}

/// What the two questions begin with. The text behind the cards stands in quotes.
struct Question {
  PlacedCard Source;
  PlacedCard Target;
  std::string Asked;
  std::string Expected;
};

bool TakeQuestion(Scene& scene, WordReader& line, Question& question) {
  question.Source = line.TakeCard();
  question.Target = line.NextIsQuoted() ? question.Source : line.TakeCard();
  question.Asked = line.Take("a text");
  if (line.Good() && !line.TakeIf("=")) scene.Stop("\"=\" is missing.");
  question.Expected = line.Take("what comes out");
  return line.Good();
}

void ValueIs(Scene& scene, WordReader& line) {
  Question question;
  if (!TakeQuestion(scene, line, question)) return;
  const bool anyWay = line.AtEnd();
  const bool expectComputed = line.TakeIf("computed");
  if (!expectComputed) line.TakeIf("plain");
  if (!line.Ends()) return;
  bool computed = false;
  const Value value =
      EvalValue(*question.Source.Record, *question.Target.Record, question.Asked, computed);
  ExpectEqual(scene, Joined("value \"", question.Asked, "\""), question.Expected, value.Str());
  if (anyWay) return;
  ExpectEqual(scene, Joined("value \"", question.Asked, "\""),
              expectComputed ? "computed" : "plain", computed ? "computed" : "plain");
}

void MessageIs(Scene& scene, WordReader& line) {
  Question question;
  if (!TakeQuestion(scene, line, question) || !line.Ends()) return;
  std::string text = question.Asked;
  ExpandMessage(*question.Source.Record, *question.Target.Record, text, "<source>", "<target>");
  ExpectEqual(scene, Joined("message \"", question.Asked, "\""), question.Expected, text);
}

// clang-format off
constexpr std::array<ScenarioWord, 2> kQuestions = {{
    {"value", WordKind::kExpect, ValueIs, "value CARD [CARD] \"EXPRESSION\" = VALUE [computed | plain]",
     "what a value expression comes to for two cards, and whether a keyword took part"},
    {"message", WordKind::kExpect, MessageIs, "message CARD [CARD] \"TEXT\" = TEXT",
     "what a message becomes; the cards' pictures are <source> and <target>"},
}};

constexpr std::array<ScenarioWord, 17> kExpectations = {{
    {"trait", WordKind::kExpect, TraitIs, "expect trait CARD NAME [VALUE]", "the card has the trait, with this value"},
    {"notrait", WordKind::kExpect, TraitIsNot, "expect notrait CARD NAME...", "the card has none of the traits"},
    {"traits", WordKind::kExpect, TraitsAre, "expect traits CARD [TRAIT...]", "the card has these traits, in this order, and no other"},
    {"caption", WordKind::kExpect, CaptionIs, "expect caption CARD TRAIT TEXT", "what the card says of a trait"},
    {"action", WordKind::kExpect, ActionIs, "expect action CARD N \"TARGET TRIGGER SCRIPT\"", "action N of the card, \"\" for none"},
    {"actions", WordKind::kExpect, ActionCountIs, "expect actions CARD N", "how many actions the card has"},
    {"menu", WordKind::kExpect, MenuIs, "expect menu CARD N ordinary | waiting | armed", "how the menu action stands"},
    {"why", WordKind::kExpect, WhyIs, "expect why CARD N TEXT", "why action N did nothing when it was last asked for, \"it acted\" when it did something; 0 is a script of \"run\""},
    {"worth", WordKind::kExpect, WorthIs, "expect worth CARD N | TEXT", "what the computer thinks of the card as if it held it now; TEXT is compared with the worth and its parts: \"22: 20 of its actions, PRIORITY 2; action 1 ENTERPLAY at Crab: 2\""},
    {"target", WordKind::kExpect, TargetIs, "expect target CARD N CARD | none", "the card in play that the action aims at"},
    {"card", WordKind::kExpect, CardIsThere, "expect card CARD [in PLACE]", "the card is there"},
    {"nocard", WordKind::kExpect, CardIsGone, "expect nocard CARD", "the card is nowhere"},
    {"having", WordKind::kExpect, CardsHaving, "expect having TRAIT [NAME...]", "the cards in play that have a trait, in the order of the table"},
    {"pile", WordKind::kExpect, PileIs, "expect pile PLACE [SIDE] [NAME...]", "the cards of a pile in order"},
    {"count", WordKind::kExpect, CountIs, "expect count PLACE [SIDE] N", "the number of cards of a pile"},
    {"queue", WordKind::kExpect, QueueIs, "expect queue [TEXT]", "the queued plays: \"Torch at Crab, discard Moth\""},
    {"FIELD", WordKind::kExpect, FieldIs, "expect FIELD CARD VALUE", "a field of a card, see the fields below"},
}};
// clang-format on

}  // namespace

std::span<const ScenarioWord> QuestionWords() { return kQuestions; }
std::span<const ScenarioWord> CardExpectations() { return kExpectations; }

}  // namespace brindlemoor

// Words that let the engine do something.
#include <array>
#include <utility>

#include "core/cards.h"
#include "core/limits.h"
#include "core/state.h"
#include "game/card_play.h"
#include "game/match_start.h"
#include "game/program_start.h"
#include "game/turn.h"
#include "language/target_types.h"
#include "scenario/scenario_library.h"
#include "scenario/scenario_words.h"
#include "scenario/scene.h"
#include "script/card_entry.h"
#include "script/run_action.h"
#include "script/triggers.h"
#include "text/text.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {

namespace {

constexpr int kMostTurns = 200;

/// A run as a line asks for it. The options refer to texts of the record.
struct RunLine {
  std::string SourceName;
  std::string TargetName;
  std::string Echo;
  int Action = 1;
  double Amount = 0;
  RunOptions Options;
};

void TakeRunOption(WordReader& line, RunLine& run) {
  if (line.NextIsQuoted()) {
    run.Options.ScriptOverride = line.Take("a script");
  } else if (line.TakeIf("on")) {
    run.TargetName = line.Take("a target");
  } else if (line.TakeIf("action")) {
    run.Action = line.TakeWhole("the number of an action", 0, limits::kCardItems);
  } else if (line.TakeIf("test")) {
    run.Options.TestRun = 1;
  } else if (line.TakeIf("cost")) {
    run.Options.CostMode = 1;
  } else if (line.TakeIf("nocounters")) {
    run.Options.NoCounters = 1;
  } else if (line.TakeIf("nested")) {
    run.Options.Nested = 1;
  } else if (line.TakeIf("redirected")) {
    run.Options.Redirected = true;
  } else if (line.TakeIf("amount")) {
    run.Amount = line.TakeNumber("an amount");
  } else if (line.TakeIf("incoming")) {
    run.Options.IncomingScript = line.Take("a script");
  } else if (line.TakeIf("echo")) {
    run.Echo = line.Take("a message");
  } else {
    line.Ends();  // any other word is too much
  }
}

std::string_view ResultWord(int result) {
  switch (result) {
    case kRunClean:
      return "clean";
    case kRunMixed:
      return "mixed";
    case kRunNothing:
      return "nothing";
    default:
      return "failed";
  }
}

/// A test run gets scratch copies, which stay for expectations.
int RunAsTest(Scene& scene, const RunLine& run, const Card& source, const Card& target) {
  const bool same = &source == &target;
  scene.CopiedSource = source;
  scene.CopiedTarget = target;
  scene.CopiedSourceName = same ? "" : run.SourceName;
  scene.CopiedTargetName = run.TargetName;
  Card& actor = same ? scene.CopiedTarget : scene.CopiedSource;
  return RunAction(actor, scene.CopiedTarget, run.Action, run.Options);
}

void RunOne(Scene& scene, WordReader& line) {
  RunLine run;
  run.SourceName = run.TargetName = line.Take("a card");
  while (line.Good() && !line.AtEnd()) TakeRunOption(line, run);
  if (!line.Good()) return;
  const PlacedCard source = FindScenarioCard(scene, run.SourceName);
  const PlacedCard target = FindScenarioCard(scene, run.TargetName);
  for (const auto& [card, name] : {std::pair(source, run.SourceName), {target, run.TargetName}}) {
    if (card.Record == nullptr) scene.Stop(Joined("There is no card ", ShownText(name), "."));
  }
  if (!line.Good()) return;
  run.Options.EchoOverride = run.Echo;
  run.Options.Amount = &run.Amount;
  scene.Last.Result =
      ResultWord(run.Options.TestRun != 0
                     ? RunAsTest(scene, run, *source.Record, *target.Record)
                     : RunAction(*source.Record, *target.Record, run.Action, run.Options));
  scene.Last.Amount = run.Amount;
}

void Fire(Scene& scene, WordReader& line) {
  const PlacedCard card = line.TakeCard();
  const std::string trigger = line.Take("a trigger");
  int value = -1;
  int action = 0;
  int test = 0;
  while (line.Good() && !line.AtEnd()) {
    if (line.TakeIf("by")) {
      const PlacedCard by = line.TakeCard();
      if (line.Good()) value = by.Record->Slot;
    } else if (line.TakeIf("action")) {
      action = line.TakeWhole("the number of an action", 1, limits::kCardItems);
    } else if (line.TakeIf("test")) {
      test = 1;
    } else {
      line.Ends();
    }
  }
  if (line.Good()) scene.Last.Failures = FireTrigger(*card.Record, trigger, value, action, test);
}

void FireAll(Scene&, WordReader& line) {
  const std::string trigger = line.Take("a trigger");
  int value = -1;
  if (line.TakeIf("by")) {
    const PlacedCard by = line.TakeCard();
    if (line.Good()) value = by.Record->Slot;
  }
  if (line.Ends()) FireHit(trigger, value);
}

void Pick(Scene& scene, WordReader& line) {
  const PlacedCard card = line.TakeCard();
  const std::string target = line.Take("a target word");
  const std::string script = line.Take("a script");
  if (!line.Ends()) return;
  int quality = 0;
  scene.Last.Picked = PickTarget(*card.Record, 1, TargetTypeCode(target), script, quality);
  scene.Last.Quality = quality;
}

/// A place of the player's hand, by its number or by the card there.
int TakeHandPlace(Scene& scene, WordReader& line) {
  if (line.NextIsNumber()) return line.TakeWhole("a place of the hand", 1, kHandPositions);
  const PlacedCard card = line.TakeCard();
  if (!line.Good()) return 0;
  const bool inHand = card.Place == FindPlace("hand") && card.Side == 1;
  if (!inHand) scene.Stop("That card is not in the player's hand.");
  return inHand ? card.Index : 0;
}

void Play(Scene& scene, WordReader& line) {
  const int place = TakeHandPlace(scene, line);
  int slot = 0;
  if (line.TakeIf("at")) {
    const PlacedCard target = line.TakeCard("a target");
    if (line.Good()) slot = target.Record->Slot;
  }
  if (!line.Ends()) return;
  if (IsFree(State().Players[1].Hand[place])) {
    scene.Stop(Joined("There is no card at place ", place, " of the hand."));
    return;
  }
  QueuePlay(place, slot);
  State().AwaitingPlayTarget = 0;
}

void Discard(Scene& scene, WordReader& line) {
  const int place = TakeHandPlace(scene, line);
  if (!line.Ends()) return;
  QueuePlay(place, -1);
  State().AwaitingPlayTarget = 0;
}

void Enter(Scene&, WordReader& line) {
  const PlacedCard card = line.TakeCard();
  if (!line.Ends()) return;
  // As a play does it: the card leaves its place when its entry is over.
  const Card entering = *card.Record;
  AddToTable(entering);
  FreeCard(*card.Record);
}

void Kill(Scene&, WordReader& line) {
  const PlacedCard card = line.TakeCard();
  if (line.Ends()) KillCard(*card.Record);
}

void Pay(Scene& scene, WordReader& line) {
  const PlacedCard card = line.TakeCard();
  const Payment payment = line.TakeIf("test") ? Payment::kIsTested : Payment::kIsMade;
  if (!line.Ends()) return;
  const Card paid = *card.Record;
  scene.Last.Result = PayCost(paid, payment) ? "paid" : "refused";
}

void Flush(Scene&, WordReader& line) {
  if (!line.Ends()) return;
  FlushPendingEffect();
  FlushPending();
}

void Turn(Scene& scene, WordReader& line) {
  const int turns = line.NextIsNumber() ? line.TakeWhole("a number of turns", 1, kMostTurns) : 1;
  const int skipPlays = line.TakeIf("noplays") ? 1 : 0;
  if (!line.Ends()) return;
  for (int turn = 0; turn < turns && State().GameOver == 0; ++turn) {
    if (scene.WorkedTooMuch()) return;
    TakeTurn(skipPlays);
  }
}

void Begin(Scene&, WordReader& line) {
  if (line.Ends()) BeginGame();
}

void OpenGames(Scene&, WordReader& line) {
  if (!line.Ends()) return;
  State().Profile.PlayerName = "Player";
  NewGame();
}

void ClickLink(WordReader& line, Scene& scene, bool (*handler)(const std::string&)) {
  const std::string link = line.Take("a link or a card");
  if (!line.Ends()) return;
  const PlacedCard card = FindScenarioCard(scene, link);
  // A card that is named is clicked where it is shown.
  if (card.Record != nullptr) State().Links.Cards.insert(card.Record->GlobalID);
  handler(card.Record != nullptr ? Joined("CARD", card.Record->GlobalID) : link);
}

void ClickHand(Scene& scene, WordReader& line, MouseButton button) {
  const int place = TakeHandPlace(scene, line);
  if (line.Ends()) TheMainWindow().Picture2_MouseUp(place, button);
}

void ClickMenu(Scene&, WordReader& line) {
  const PlacedCard card = line.TakeCard();
  const int action = line.TakeWhole("the number of an action", 1, limits::kCardItems);
  if (!line.Ends()) return;
  State().Links.DescribedCard = card.Record->GlobalID;
  CardDescWB_BeforeNavigate(Joined("menuaction:", card.Record->GlobalID, ":", action));
}

struct ClickRow {
  std::string_view Word;
  void (*Carry)(Scene& scene, WordReader& line);
};
constexpr std::array<ClickRow, 7> kClickRows = {{
    {"WB", [](Scene& scene, WordReader& line) { ClickLink(line, scene, WB_BeforeNavigate); }},
    {"InPlayWB",
     [](Scene& scene, WordReader& line) { ClickLink(line, scene, InPlayWB_BeforeNavigate); }},
    {"CardDescWB",
     [](Scene& scene, WordReader& line) { ClickLink(line, scene, CardDescWB_BeforeNavigate); }},
    {"menu", ClickMenu},
    {"hand", [](Scene& scene, WordReader& line) { ClickHand(scene, line, MouseButton::kLeft); }},
    {"discard",
     [](Scene& scene, WordReader& line) { ClickHand(scene, line, MouseButton::kRight); }},
    {"turn",
     [](Scene& scene, WordReader& line) {
       if (!line.Ends()) return;
       if (!TheMainWindow().TakesTurns()) {
         scene.Stop(
             "No match was chosen in the list of games: a click on the turn button does nothing.");
         return;
       }
       TheMainWindow().Command1_Click();
     }},
}};

void Click(Scene& scene, WordReader& line) {
  const std::string word = line.Take("what is clicked");
  if (!line.Good()) return;
  for (const ClickRow& row : kClickRows) {
    if (row.Word != word) continue;
    row.Carry(scene, line);
    return;
  }
  scene.Stop(Joined("\"", ShownText(word), "\" can't be clicked."));
}

// clang-format off
constexpr std::array<ScenarioWord, 15> kWords = {{
    {"run", WordKind::kAct, RunOne, "run CARD [on CARD] [action N] [\"SCRIPT\"] [test] [cost] [nocounters] [nested] [redirected] [amount N] [incoming SCRIPT] [echo TEXT]",
     "one run of the card's first action, or of action N, or of a script without its mask filter, on another card or on itself. A test runs on scratch copies, which copy:CARD names afterwards"},
    {"fire", WordKind::kAct, Fire, "fire CARD TRIGGER [by CARD] [action N] [test]", "the card's actions of a trigger; \"by\" names the triggering card"},
    {"fireall", WordKind::kAct, FireAll, "fireall TRIGGER [by CARD]", "a trigger on every card that has an action for it"},
    {"pick", WordKind::kAct, Pick, "pick CARD TARGET SCRIPT", "lets the engine choose a target for a script"},
    {"play", WordKind::kAct, Play, "play CARD|PLACE [at CARD]", "queues a card of the player's hand, by its name or place, for the next turn"},
    {"discard", WordKind::kAct, Discard, "discard CARD|PLACE", "queues a card of the hand as a discard"},
    {"enter", WordKind::kAct, Enter, "enter CARD", "the card enters play, as if it had been played and paid"},
    {"kill", WordKind::kAct, Kill, "kill CARD", "the card dies"},
    {"pay", WordKind::kAct, Pay, "pay CARD [test]", "pays the card's price, or tries to"},
    {"flush", WordKind::kAct, Flush, "flush", "actions and cards that wait are brought in"},
    {"turn", WordKind::kAct, Turn, "turn [COUNT] [noplays]", "takes a turn, or several until the game is over"},
    {"begin", WordKind::kAct, Begin, "begin", "begins a game with what lies in the draw piles"},
    {"games", WordKind::kAct, OpenGames, "games", "starts the program: the list of games is shown"},
    {"click", WordKind::kAct, Click, "click WB|InPlayWB|CardDescWB LINK|CARD, click menu CARD N, click hand|discard CARD|PLACE, click turn",
     "a click on a link or a card in a view, on a menu action, on the hand, on the turn button"},
    {"shuffle", WordKind::kAct, [](Scene&, WordReader& line) {
       const int side = line.NextIsNumber() ? line.TakeWhole("a side", 1, 3) : 1;
       if (line.Ends()) ShuffleCards(State().Players[side].Deck);
     }, "shuffle [SIDE]", "shuffles a draw pile"},
}};
// clang-format on

}  // namespace

std::span<const ScenarioWord> ActionWords() { return kWords; }

}  // namespace brindlemoor

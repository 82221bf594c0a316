// The turn driver: both sides' card plays, the scripted steps and the report page.
#include "game/turn.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/mind_levels.h"
#include "core/state.h"
#include "game/card_play.h"
#include "game/match_outcome.h"
#include "game/opponent.h"
#include "game/plan_forecast.h"
#include "game/planned_turn.h"
#include "game/plans.h"
#include "game/turn_changes.h"
#include "game/windows.h"
#include "language/target_types.h"
#include "pages/battlefield.h"
#include "pages/card_pages.h"
#include "pages/page_files.h"
#include "pages/unread_texts.h"
#include "script/card_entry.h"
#include "script/triggers.h"
#include "text/one_line.h"

namespace brindlemoor {

namespace {

constexpr int kDiscard = -1;

std::string PlaysTable(std::string_view title, std::string_view background,
                       std::string_view cells) {
  return Joined("<table width=100%><tr><td colspan=80 ", background, "><font color=#FFFF00>", title,
                "</font></td></tr><tr><td ", background, "><p align=right>", cells,
                "</p></td></tr></table>");
}

void PlayHandCard(Card& card, int target, PlayCells& cells) {
  if (target == kDiscard) {
    FreeCard(card);
    return;
  }
  if (IsFree(card)) return;
  if (!PayCost(card, Payment::kIsMade)) {
    cells.AddText(
        Joined("You do not have enough resources to play ", ColoredName(card), "!<br><br>"));
    if (State().LastTurn.IsTold) NoteRefusal(std::string(OneLine(card.Name)), WhyUnpayable(card));
    return;
  }
  if (target > 0) card.TargetSlot = static_cast<std::int16_t>(target);
  PlayCard(1, card, cells);
}

std::string PlayQueuedCards() {
  Session& session = State();
  PlayCells cells;
  for (int position = 1; position <= session.PlayQueue.UpperBound(); ++position) {
    const int slot = session.PlayQueue[position];
    if (slot == 0) continue;
    Pile& hand = session.Players[1].Hand;
    if (hand.Holds(slot)) PlayHandCard(hand[slot], session.PlayTarget[position], cells);
    session.PlayQueue[position] = 0;
    session.PlayTarget[position] = 0;
  }
  ForgetQueuedPlays();
  return cells.Html();
}

EnemyPlays PlayEnemyTurn() {
  if (const auto plan = TakeEnemyPlan()) return PlayEnemyPlan(*plan);
  PlanEnemyMenuActions();
  return PlayEnemyHand();
}

struct Plays {
  std::string Html;      ///< both plays tables
  std::string Thoughts;  ///< the enemy's reasoning
};

Plays PlayCards() {
  EnemyPlays enemy = PlayEnemyTurn();
  std::string html = PlaysTable("Enemy Card Plays", " bgcolor = #661100 ", enemy.Cells);
  html += PlaysTable("Your Card Plays", " bgcolor = #004400 ", PlayQueuedCards());
  return {std::move(html), std::move(enemy.Thoughts)};
}

enum class StepCall { kNone, kRules, kCards, kFlush, kExpire };

struct TurnStep {
  std::string_view Name;
  std::string_view BannerColor;
  std::array<StepCall, 5> Calls;
};

using enum StepCall;
constexpr std::array<StepCall, 5> kPhase = {kRules, kFlush, kCards, kFlush};
constexpr std::array<TurnStep, 12> kTurnSteps = {{
    {"TURNSTART", "FFFFFF", {kRules, kCards, kFlush}},
    {"PHASE1", "FF0000", kPhase},
    {"PHASE2", "FF9900", kPhase},
    {"PHASE3", "FFFF00", kPhase},
    {"PHASE4", "00FF00", kPhase},
    {"PHASE5", "0000FF", kPhase},
    {"PHASE6", "9900FF", kPhase},
    {"PHASE7", "FF0000", kPhase},
    {"PHASE8", "FFAA00", kPhase},
    {"PHASE9", "FFFF00", kPhase},
    {"PHASE10", "00FF00", {kCards, kFlush}},  // the rules card gets no PHASE10
    {"TURNEND", "FFFFFF", {kCards, kFlush, kExpire, kRules, kFlush}},
}};

void RunStep(const TurnStep& step) {
  if (State().DebugMode == 1) {
    State().PhaseBanner +=
        Joined("<table bgcolor=", step.BannerColor, "><tr><td><p><font color=000000>Starting ",
               step.Name, "</font><p></td></tr></table>");
  }
  const std::uint32_t added = State().ActionsAdded;
  for (const StepCall call : step.Calls) {
    switch (call) {
      case kNone:
        break;
      case kRules:
        FireTrigger(State().RulesCard, step.Name);
        break;
      case kCards:
        FireHit(TriggerCode(step.Name), -1, added);
        break;
      case kFlush:
        FlushPending();
        break;
      case kExpire:
        ExpireBonuses();
        break;
    }
  }
}

std::string DebugCounters() {
  const Session& session = State();
  return Joined("<br><br><font size=+2>Total actions masked: <font color=#FFFFFF>",
                session.StatMasked, "</font></font><br>",
                "<br><br><font size=+2 color=#FF0000>Actions not masked: <font color=#FFFFFF>",
                session.StatNotMasked, "</font></font><br>",
                "<br><br><font size=+2 color=#AA9999>Actions cancelled by counters: ",
                "<font color=#FFFFFF>", session.StatCancelled, "</font></font><br>");
}

/// Everything of a turn that scripts do.
Plays RunScripts(int skipPlays) {
  const WorkAccount account;
  Plays plays;
  if (skipPlays != 1) plays = PlayCards();
  for (const TurnStep& step : kTurnSteps) RunStep(step);
  return plays;
}

void ShowReport(const Plays& plays) {
  Session& session = State();
  const bool debug = session.DebugMode == 1;
  session.PageText.clear();  // events that ran meanwhile may have left a page half composed
  if (LeavesOutReport()) return;
  if (debug) AppendPage(plays.Thoughts);
  AppendPage(PlayerHeader(session.Players[1]));
  AppendPage("<br><br>");
  AppendPage(PlayerTable(session.Players[1]));
  AppendPage(PlayerTable(session.Players[2]));
  AppendPage(plays.Html);
  AppendPage(session.PhaseBanner);
  if (debug) AppendPage(DebugCounters());
  WritePages(std::array<std::string_view, 2>{"Display.html", "LastDiplayed.html"});  // named so
  ShownLinks& links = State().Links;
  links.Games = false;
  links.Cards = std::exchange(links.Composed, {});
  Windows().ShowMain("Display.html");
}

/// Counts the turn of the match, and how little the opponent has thought in it.
void CountTurn() {
  Session& session = State();
  MatchRecord& match = session.Match;
  ++match.Turns;
  const std::uint8_t mind = EnemyThinks() ? session.Minds[2] : std::uint8_t{kPlainMind};
  match.EasiestMind = match.Turns == 1 ? mind : std::min(match.EasiestMind, mind);
}

}  // namespace

void TakeTurn(int skipPlays) {
  Session& session = State();
  const auto outer = std::exchange(session.TurnRunning, std::uint8_t{1});
  session.RulesCard.InPlay = 1;
  session.CostCard.InPlay = 1;
  session.GiverPlaces.clear();
  if (skipPlays != 1) CountTurn();
  session.LastTurn = {.Turn = session.Match.Turns, .IsTold = &Windows() != &kNoWindows};
  const std::string waiting = session.LastTurn.IsTold ? WaitingMenuAction() : std::string();
  if (!waiting.empty()) NoteRefusal(waiting, "no target was chosen");
  std::optional<TurnChanges> changes;
  if (session.LastTurn.IsTold) changes.emplace();
  const Plays plays = RunScripts(skipPlays);
  WithholdTokens();
  if (changes) changes->Record();
  {
    const WorkAccount account;  // a page shows right numbers after a turn that spent its own
    ShowReport(plays);
    Windows().UpdateHand();
  }
  session.StatMasked = 0;
  session.StatNotMasked = 0;
  session.StatCancelled = 0;
  if (session.GameOver == 1) Windows().ShowMatchEnd();
  Windows().RaiseMainWindow();
  session.LastTurn.Said = std::exchange(session.PhaseBanner, {});
  session.LimitsReported.clear();
  session.DiceRolled = 0;
  session.TurnRunning = outer;
}

}  // namespace brindlemoor

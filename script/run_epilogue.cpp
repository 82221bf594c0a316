// The end of a run: its text on the page, deaths, the end of the game, and what it sets going.
#include "script/run_epilogue.h"

#include <algorithm>

#include "core/cards.h"
#include "core/limits.h"
#include "core/match_log.h"
#include "core/state.h"
#include "core/strings.h"
#include "pages/card_pages.h"
#include "script/firing.h"
#include "script/run.h"
#include "script/run_services.h"
#include "script/triggers.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

/// How the text of a side looks.
struct Frame {
  std::string_view Paragraph;
  std::string_view Font;
  std::string_view Color;
};

constexpr Frame kHumanFrame{"<p align=left>", "<font color=\"55FF55\">", " bgcolor = #001100 "};
constexpr Frame kComputerFrame{"<p align=right>", "<font color=\"FF5511\">", " bgcolor = #220000 "};
constexpr Frame kNeutralFrame{"<p align=center>", "<font color=\"AAAAAA\">", " bgcolor = #111111 "};

const Frame& FrameOf(const Run& run) {
  int side = run.Source.Owner;
  if (run.ColorState == 1) side = side == 1 ? 2 : 1;
  if (run.ColorState == 2) side = run.Target.Owner;
  if (run.Source.Owner == 0 || run.Source.Name == "RulesCard") side = 0;
  return side == 1 ? kHumanFrame : side == 2 ? kComputerFrame : kNeutralFrame;
}

/// The run's text in its frame. The outermost run closes its cell, row and table in the odd order
/// that the pages have always had.
std::string FramedText(const Run& run, const Frame& frame) {
  const bool outermost = State().RunDepth <= 1;
  std::string html;
  if (outermost) {
    const std::string_view color = run.FrameColor.empty() ? frame.Color : run.FrameColor;
    html = Joined("<table width=100%><tr><td", color, ">");
  }
  html += Joined(frame.Font, frame.Paragraph, run.RunText, "</font></p>");
  if (!run.EchoFailText.empty() && run.FailCount + run.SoftFailCount > 0) {
    html += Joined("<p>", run.EchoFailText, "</p>");
  }
  if (outermost) html += "</table></tr></td>";
  return html;
}

/// Takes a trait's changes from a position of the list on off it; true when there were any.
bool TakeOwnChanges(Card& card, std::string_view trait, std::size_t from) {
  const Text changed = card.ChangedTraits;
  if (changed.size() <= from) return false;
  std::string others(changed.View().substr(0, from));
  FieldWalker names(changed.View().substr(from), ':');
  for (std::string_view name = names.Next(); !name.empty(); name = names.Next()) {
    if (!FoldEquals(name, trait)) others += Joined(name, ":");
  }
  if (others.size() == changed.size()) return false;
  card.ChangedTraits = others;
  return true;
}

/// The walk over a card's changed traits.
struct ChangeWalk {
  Card& Target;
  const std::int32_t GlobalId = Target.GlobalID;
  std::size_t Position = 0;  ///< in the list: what lies before it has been fired
  std::string Waiting{};     ///< names that wait for the card's next run

  bool CardIsThere() const { return !IsFree(Target) && Target.GlobalID == GlobalId; }
  bool AtEnd() const { return !CardIsThere() || Position >= Target.ChangedTraits.size(); }

  /// Fires the name at the position. A change of the trait that this makes waits.
  void FireNext(int slot) {
    const Text list = Target.ChangedTraits;
    const std::string_view name =
        list.View().substr(Position, list.View().find(':', Position) - Position);
    Position += name.size() + 1;
    FireTrigger(Target, Joined(kTraitChange, name), slot);
    if (CardIsThere() && TakeOwnChanges(Target, name, list.size())) Waiting += Joined(name, ":");
  }

  /// Leaves the list with what waits.
  void Close() {
    const bool nothingWaits = Waiting.empty() && CardIsThere() && AtEnd();
    if (nothingWaits || IsFree(Target)) {
      Target.ChangedTraits = Text();
    } else if (CardIsThere()) {
      const std::string_view list = Target.ChangedTraits;
      Target.ChangedTraits = Waiting + std::string(list.substr(std::min(Position, list.size())));
    }
  }
};

/// Fires the changes of a card's traits in order, those too that come while another trait's fires:
/// what takes the last hit point and what dies without hit points work together. A trait that its
/// own firing changes waits for the card's next run, and so do those beyond the bound of what
/// firings may bring.
void FireTraitChanges(const Card& source, Card& target) {
  if (PassesTraitChanges(target)) {
    target.ChangedTraits = Text();
    return;
  }
  Session& session = State();
  const OwnFiring outer;
  session.TraitChangeBusy = 1;
  const int slot = source.Slot;
  ChangeWalk walk{target};
  const std::size_t own = target.ChangedTraits.size();
  int brought = 0;
  for (; !walk.AtEnd(); walk.FireNext(slot)) {
    if (walk.Position >= own && ++brought > limits::kTraitChanges) {
      limits::ReportLimit("Traits of a card change one another without an end; the rest waits.");
      break;
    }
  }
  walk.Close();
  session.TraitChangeBusy = 0;
}

void Repeat(Run& run) {
  int count = run.RepeatCount;
  if (count > limits::kRepeats) {
    limits::ReportLimit("An action has too many repeats; the rest was left out.");
    count = limits::kRepeats;
  }
  RunOptions options = run.Options;
  options.Nested = 1;
  options.ScriptOverride = Text();
  options.Amount = nullptr;
  options.AnswerTo = &run.Reply;
  for (; count > 0 && State().GameOver == 0; --count) {
    int quality = kNoTarget;
    const int slot = PickTarget(run.Source, run.EffectIndex, run.RepeatTargetType, Text(), quality);
    if (slot > 0 && State().CardTable.Holds(slot)) {
      RunAction(run.Source, State().CardTable[slot], run.EffectIndex, options);
    }
  }
}

}  // namespace

void KeepAnswer(const Answer& answer) {
  Session& session = State();
  if (answer.Cancels) session.CancelState = 1;
  if (answer.RedirectsTo > 0) {
    session.RedirectTarget = answer.RedirectsTo;
    session.RedirectScript = answer.RedirectScript;
  }
}

void AddToBanner(std::string_view html) {
  std::string& banner = State().PhaseBanner;
  if (banner.size() + html.size() > limits::kPageBytes) {
    limits::ReportLimit("The report grew too long: a text was left out.");
    return;
  }
  banner += html;
}

int ResultCode(int applied, int failed, int softFailed) {
  if (failed + softFailed == 0) return kRunClean;
  if (applied > 0) return kRunMixed;
  return failed > 0 ? kRunFailed : kRunNothing;
}

int CloseRun(Run& run) {
  // Before anybody dies of it.
  const Frame* frame = run.ShowRun && !State().Quiet ? &FrameOf(run) : nullptr;
  if (run.Winner != 0) {
    LogMatchEvent(MatchEvent::kWon, run.Winner, run.Source);
    State().Match.Winners |= run.Winner;
    Services().EndGame();
  }
  if (!run.Testing()) {
    if (run.DestroySource) KillCard(run.Source);
    if (run.DestroyTarget) KillCard(run.Target);
    if (frame != nullptr) AddToBanner(FramedText(run, *frame));
    if (State().DebugMode == 1 && run.AppliedCount > 0) {
      AddToBanner(Joined("<br><font size=-2>Action from ", ColoredName(run.Source),
                         " successfully applied to ", ColoredName(run.Target), ".  (Action: \"",
                         run.Script.View(), "\")</font>"));
    }
  }
  return ResultCode(run.AppliedCount, run.FailCount, run.SoftFailCount);
}

void AfterRun(Run& run) {
  Session& session = State();
  const bool real = !run.Testing();
  if (real && session.TraitChangeBusy == 0 && !run.Target.ChangedTraits.empty()) {
    FireTraitChanges(run.Source, run.Target);
  }
  if (session.CancelState == 2) session.CancelState = 1;
  if (real && session.DeleteRunningEffect == 1 && run.Source.Effects.Holds(run.EffectIndex)) {
    run.Source.Effects.Edit(run.EffectIndex).Script = Text();
  }
  if (real && run.RepeatCount > 0 && run.Options.Nested == 0) Repeat(run);
  KeepAnswer(run.Reply);
}

}  // namespace brindlemoor

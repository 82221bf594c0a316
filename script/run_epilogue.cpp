// The end of a run: its text on the page, deaths, the end of the game, and what it sets going.
#include "script/run_epilogue.h"

#include <algorithm>

#include "core/limits.h"
#include "core/match_log.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/player_files.h"
#include "script/run.h"
#include "script/triggers.h"
#include "ui/card_pages.h"

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

/// Changes that the triggered runs make to this card do not fire again: they go with the list.
void FireTraitChanges(const Card& source, Card& target) {
  Session& session = State();
  session.TraitChangeBusy = 1;
  const int slot = source.Slot;
  const Text changed = target.ChangedTraits;
  FieldWalker names(changed, ':');
  for (std::string_view name = names.Next(); !name.empty(); name = names.Next()) {
    FireTrigger(target, Joined("TRAITCHANGE:", name), slot);
  }
  target.ChangedTraits = Text();
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
  for (; count > 0 && State().GameOver == 0; --count) {
    int quality = kNoTarget;
    const int slot = PickTarget(run.Source, run.EffectIndex, run.RepeatTargetType, Text(), quality);
    if (slot > 0 && State().CardTable.Holds(slot)) {
      RunAction(run.Source, State().CardTable[slot], run.EffectIndex, options);
    }
  }
}

/// A reaction's answer reaches the action even when deaths, changed traits or repeats have started
/// runs since, each of which cleared it.
void KeepAnswer(const Run& run) {
  Session& session = State();
  if (run.Cancels) session.CancelState = 1;
  if (run.RedirectsTo > 0) {
    session.RedirectTarget = run.RedirectsTo;
    session.RedirectScript = Text();
  }
}

}  // namespace

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
  const Frame& frame = FrameOf(run);
  if (run.Winner != 0) {
    LogMatchEvent(MatchEvent::kWon, run.Winner, run.Source);
    EndGame();
  }
  if (!run.Testing()) {
    if (run.DestroySource) KillCard(run.Source);
    if (run.DestroyTarget) KillCard(run.Target);
    if (run.ShowRun) AddToBanner(FramedText(run, frame));
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
  KeepAnswer(run);
}

}  // namespace brindlemoor

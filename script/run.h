// Run: the state of one script run, which its commands read and change.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "core/records.h"
#include "core/trait_item.h"
#include "core/value.h"
#include "script/action_trace.h"
#include "script/command_table.h"
#include "script/parsed_script.h"
#include "script/run_action.h"

namespace brindlemoor {

/// Where the walk goes after a command.
enum class Step : int {
  kNext,   ///< past the command's arguments
  kOneOn,  ///< one field on: the arguments are walked as words
  kEnd,    ///< the walk ends, the epilogue runs
  kLeave,  ///< the run ends at once with LeaveResult, without epilogue
};

/// The locals of one run.
struct Run {
  Run(Card& source, Card& target, int effectIndex, const RunOptions& options, Text script,
      const ParsedScript& fields, double& amount, Answer& reply, int noCounters)
      : Source(source),
        Target(target),
        EffectIndex(effectIndex),
        Options(options),
        Script(std::move(script)),
        Fields(fields),
        Amount(amount),
        Reply(reply),
        NoCounters(noCounters) {}

  Card& Source;
  Card& Target;
  const int EffectIndex;
  const RunOptions& Options;
  const Text Script;           ///< the script as run
  const ParsedScript& Fields;  ///< its fields; lives as long as Script
  double& Amount;
  Answer& Reply;  ///< to the action that this run reacts to
  int NoCounters;

  int Position = 1;                 ///< field number of the command being walked
  const Command* Walked = nullptr;  ///< its row
  bool AiMarked = false;            ///< the word had the "AI" prefix
  int AppliedCount = 0;
  int FailCount = 0;
  int SoftFailCount = 0;
  int RepeatCount = 0;
  int RepeatTargetType = 0;
  std::string RunText{};  ///< HTML of the run
  std::string EchoFailText{};
  bool ShowRun = false;  ///< RunText goes to PhaseBanner at the end
  std::string SourcePicture{};
  std::string TargetPicture{};
  int ColorState = 0;  ///< 1 after REVERSECOLOR, 2 after TARGETCOLOR
  std::string FrameColor{};
  bool DestroySource = false;
  bool DestroyTarget = false;
  int Winner = 0;
  int LeaveResult = -1;
  ActionTrace* Trace = nullptr;  ///< who listens why actions do not act

  bool Testing() const { return Options.TestRun != 0; }
  /// The row of the command being walked.
  const Command& Row() const { return *Walked; }
  /// Appends to RunText, within the bound of a page.
  void Show(std::string_view html);
  /// Argument number n (1-based) of the command being walked, "" when it is missing.
  auto Argument(int n) const { return Fields.Field(Position + n); }
  /// The argument as the name of a trait.
  auto TraitArgument(int n) const { return Fields.NameAt(Position + n); }
  /// The argument evaluated with the run's cards.
  Value Evaluated(int n) const;
  /// Its numeric reading.
  double Number(int n) const;
  /// Everything from argument n on, as a script of its own.
  Text Rest(int n) const;
};

/// For who listens: what a requirement or a chance found.
inline void TellOf(const Run& run, std::string_view words) {
  if (run.Trace != nullptr) [[unlikely]]
    run.Trace->Compared(std::string(words));
}
/// The same of a comparison.
template <class Found, class Asked>
void TellCompared(const Run& run, std::string_view what, const Found& found, const Asked& asked) {
  if (run.Trace != nullptr) [[unlikely]] {
    run.Trace->Compared(Joined(what, " is ", found, ", the value ", asked));
  }
}

}  // namespace brindlemoor

// RunAction: one script, run for one pair of cards.
#pragma once

#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// Result codes of a run.
enum RunResults : int {
  kRunFailed = -1,  ///< nothing applied and a requirement failed, or the run was refused
  kRunNothing = 0,  ///< nothing applied and only soft failures
  kRunMixed = 1,    ///< something applied and something failed
  kRunClean = 2,    ///< no failure
};

/// What a reaction answers to the action. Runs that it starts clear the shared state, so the answer
/// is kept here; those that it sends its script to share it.
struct Answer {
  bool Cancels = false;      ///< CANCEL was carried out, or a requirement that cancels has failed
  int RedirectsTo = 0;       ///< slot of REDIRECT or REDIRECTBYGID, 0 none
  bool SourceFails = false;  ///< a requirement failed that no other target could meet
  Text RedirectScript = {};  ///< what is run there; "" the action's own script
};

/// Parameters of a run beside the two cards and the action's index.
struct RunOptions {
  int CostMode = -1;  ///< 1 paying a cost or acting on a card not in play; -1 ordinary
  int TestRun = 0;    ///< 1 a test: the caller gives scratch copies
  std::string_view EchoOverride = {};  ///< replaces ECHOONCE's message when not empty
  int NoCounters = 0;                  ///< 1 no reactions, and CANCEL is inert
  int Nested = 0;                      ///< 1 started by another run or by PickTarget
  Text ScriptOverride = {};            ///< run instead of the action's script when not empty
  double* Amount = nullptr;    ///< the incoming value, shared with the caller; nullptr is a fresh 0
  Text IncomingScript = {};    ///< the script that a reaction answers
  bool Redirected = false;     ///< the re-run of a redirected action
  bool Paying = false;         ///< part of a card's price: reactions to its changes are, too
  bool KeepsActions = false;   ///< ADDEFFECT adds to the target at once, also in a test
  Answer* AnswerTo = nullptr;  ///< where a reaction's answer is kept; nullptr is its own
};

/// Runs action effectIndex of source on target and returns a RunResults code. Both cards may be the
/// same record, scratch copies, or cards of a stored pile. An index outside the card's actions
/// reads as an empty script.
int RunAction(Card& source, Card& target, int effectIndex, const RunOptions& options = {});

/// Carries a test run of an action as far as its masks end it. False, and nothing was done, when
/// the run has to be made.
bool MasksEndTest(const CardEffect& effect, const Card& source, const Card& target);

/// Runs the pieces of EntryScripts in order, the card as actor and target.
void RunEntryScripts(Card& card);

}  // namespace brindlemoor

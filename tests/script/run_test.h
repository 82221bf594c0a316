// RunTest: two cards in play and short ways of running a script on them.
#pragma once

#include <string>
#include <string_view>

#include "language/target_types.h"
#include "script/card_setup.h"
#include "script/run_action.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {

class RunTest : public SessionTest {
 protected:
  /// Runs a script in place of an action, without mask filter.
  static int RunOn(Card& source, Card& target, std::string_view script, RunOptions options = {}) {
    options.ScriptOverride = script;
    return RunAction(source, target, 1, options);
  }
  /// The same from Ada (human) on Bob (computer).
  int RunScript(std::string_view script, const RunOptions& options = {}) {
    return RunOn(ada, bob, script, options);
  }
  /// The same as an action of Ada's, masks and all.
  int RunOwnAction(std::string_view script, const RunOptions& options = {}) {
    ada.Effects = SharedArray<CardEffect>();
    AddEffect(ada, script, kTargetAll, "PHASE1", 0, "ALL");
    return RunAction(ada, bob, 1, options);
  }
  static std::string Trait(const Card& card, std::string_view name) {
    return GetTrait(card, name).Str();
  }
  /// What the run said, and an empty banner for the next.
  static std::string TakeBanner() { return std::exchange(State().PhaseBanner, std::string()); }

  Card& ada = PutInPlay(MakeCard("Ada", 1));
  Card& bob = PutInPlay(MakeCard("Bob", 2));
};

}  // namespace brindlemoor

// Many whole matches of the shipped game: they end, nothing grows without bound, and what is only
// tried out leaves no trace.
#include <gtest/gtest.h>
#include <sstream>

#include "core/state.h"
#include "game/automatic_match.h"
#include "game/card_play.h"
#include "game/opponent.h"
#include "script/command_table.h"
#include "script/target_types.h"
#include "script/triggers.h"
#include "tests/support/session_test.h"
#include "tests/support/state_digest.h"

namespace brindlemoor {
namespace {

class ManyMatchesTest : public ::testing::Test {
 protected:
  ~ManyMatchesTest() override { State() = Session{}; }
  /// Plays a match of the shipped game; the session stays as the match ended.
  static AutomaticMatchResult Play(int opponent, int seed, int maximumTurns) {
    AutomaticMatchOptions options;
    options.Folder = std::string(BRINDLEMOOR_SOURCE_DIR) + "/games";
    options.Seed = static_cast<std::uint64_t>(seed);
    options.Opponent = opponent;
    options.MaximumTurns = maximumTurns;
    std::ostringstream out;
    const AutomaticMatchResult result = AutomaticMatch(options, out);
    EXPECT_EQ(result.Error, "");
    return result;
  }
};

TEST_F(ManyMatchesTest, EndAndStaySmall) {
  constexpr int kSeeds = 50;
  constexpr int kMaximumTurns = 100;
  for (int opponent = 1; opponent <= 2; ++opponent) {
    int wins[3] = {};
    for (int seed = 1; seed <= kSeeds; ++seed) {
      SCOPED_TRACE(Joined("opponent ", opponent, " seed ", seed));
      const AutomaticMatchResult result = Play(opponent, seed, kMaximumTurns);
      ++wins[static_cast<int>(result.Winner)];
      const Session& session = State();
      const bool decided = result.Winner != MatchWinner::kNobody;
      EXPECT_EQ(session.GameOver, decided ? 1 : 0);
      EXPECT_TRUE(decided || result.Turns == kMaximumTurns);
      EXPECT_LE(session.CardTable.UpperBound(), 40);
      for (const auto& hits : session.HitTable) EXPECT_LE(hits.size(), 60U);
      EXPECT_LE(session.WaitingSlots.UpperBound(), 5);
      EXPECT_LE(session.PendingCards.UpperBound(), 5);
      EXPECT_LE(session.TraitBitNames.UpperBound(), 60);
      for (const Card& card : session.CardTable) {
        EXPECT_LE(card.Traits.UpperBound(), 30) << card.Name.View();
        EXPECT_LE(card.Effects.UpperBound(), 20) << card.Name.View();
      }
      EXPECT_EQ(session.RunDepth, 0);
      EXPECT_TRUE(session.Problems.empty());
    }
    // Both sides play: neither only ever wins.
    EXPECT_GE(wins[static_cast<int>(MatchWinner::kPlayer)], kSeeds / 20) << opponent;
    EXPECT_GE(wins[static_cast<int>(MatchWinner::kEnemy)], kSeeds / 20) << opponent;
  }
}

/// The state that every test must leave behind.
class TraceCheck {
 public:
  TraceCheck() : before_(StateDigest()) {}

  template <class Test>
  void Leaves(std::string_view what, const Card& card, Test test) const {
    test();
    const std::string after = StateDigest();
    if (after == before_) return;
    ADD_FAILURE() << what << " " << card.Name.View() << "\n" << FirstDifference(before_, after);
  }

 private:
  const std::string before_;
};

void CheckTargetSearch(const TraceCheck& check, Card& card, int effect, int targetType) {
  check.Leaves(Joined("PickTarget for ", card.Effects[effect].Script, " of"), card, [&] {
    int quality = kNoTarget;
    PickTarget(card, effect, targetType, Text(), quality);
  });
}

/// Tries every action of a hand card, whatever it aims at, on all cards as well.
void CheckHandCard(const TraceCheck& check, Card& card) {
  check.Leaves("PayCost", card, [&] { PayCost(card, 1); });
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    CheckTargetSearch(check, card, effect, card.Effects[effect].TargetType);
    CheckTargetSearch(check, card, effect, kTargetRandom);
  }
  const Card before = card;
  check.Leaves("ValueCardForAI", before, [&] {
    ValueCardForAI(card);
    const int item = TraitSlot(card, "AILOVE");  // the value itself is written to the card
    ASSERT_NE(item, 0);
    card.Traits.Edit(item) = before.Traits[item];
    card.Traits.Resize(before.Traits.UpperBound());
    card.TraitCaptions.Resize(before.TraitCaptions.UpperBound());
    card.ChangedTraits = before.ChangedTraits;
    card.TraitBits = before.TraitBits;
    card.TraitActionsApplied = before.TraitActionsApplied;
  });
}

TEST_F(ManyMatchesTest, TestsLeaveNoTrace) {
  for (int opponent = 1; opponent <= 2; ++opponent) {
    for (const int turns : {1, 6}) {
      const int seed = 10 * opponent + turns;
      SCOPED_TRACE(Joined("opponent ", opponent, " seed ", seed, " turns ", turns));
      Play(opponent, seed, turns);
      ASSERT_EQ(State().GameOver, 0);
      State().PageText = "page";
      State().PhaseBanner = "banner";
      const TraceCheck check;
      int tried = 0;
      for (int side = 1; side <= 2; ++side) {
        for (Card& card : State().Players[side].Hand) {
          if (IsFree(card)) continue;
          ++tried;
          CheckHandCard(check, card);
        }
      }
      for (Card& card : State().CardTable) {
        for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
          if (!IsFree(card)) CheckTargetSearch(check, card, effect, kTargetRandom);
        }
      }
      EXPECT_GT(tried, 0);
    }
  }
}

/// A script that begins with a word of the language.
std::string ScriptWith(const Command& command, std::string_view firstArgument) {
  if (command.Word == "CREATECARD") return "CREATECARD:1:Wick Mouse:WickwaterCards.txt";
  if (command.Word == "ADDEFFECT") return "ADDEFFECT:PHASE1:SELF:MODTRAIT:HP:1";
  std::string script(command.Word);
  for (int argument = 1; argument <= command.Arguments; ++argument) {
    script += Joined(":", argument == 1 ? firstArgument : std::string_view("1"));
  }
  return script + ":MODTRAIT:HP:-1";
}

/// Tries a script as a price and as an action, on every kind of target.
void CheckScript(const TraceCheck& check, std::string_view script) {
  Card card = MakeCard("Hand Card", 2, {"HP:3"});
  check.Leaves(script, card, [&] {
    for (const char* target : {"OWNER", "ENEMYPLAYER", "RANDOM", "ALL", "SELF"}) {
      Card tried = card;
      GiveAction(tried, "COST", target, script);
      PayCost(tried, 1);
      tried = card;
      GiveAction(tried, "PHASE1", target, script);
      ValueCardForAI(tried);
    }
  });
}

// Every word, as a price, as an action, and as a reaction of the cards on the table.
TEST_F(ManyMatchesTest, NoWordLeavesATraceInATest) {
  Play(2, 5, 3);
  const Pile table = State().CardTable;
  for (const auto& family : CommandFamilies()) {
    for (const Command& command : family) {
      const std::string script = ScriptWith(command, "1");
      const TraceCheck check;
      CheckScript(check, script);
      CheckScript(check, ScriptWith(command, "GLOW"));  // a trait that brings an action with it
      for (Card& card : State().CardTable) {
        if (IsFree(card)) continue;
        for (const char* trigger : {"TARGETED", "MYACTION", "BEFORETRAITCHANGE:HP"}) {
          GiveAction(card, trigger, "SELF", script);
        }
      }
      CheckScript(TraceCheck(), Joined("MODTRAIT:HP:-1:REQTRAIT:HP:", command.Word));
      State().CardTable = table;
    }
  }
}

}  // namespace
}  // namespace brindlemoor

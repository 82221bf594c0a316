// ActionTrace: for each action that is asked for, whether it acted, and what kept it from it.
#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/records.h"

namespace brindlemoor {

/// What keeps an action from acting, on all cards or on one.
enum class Obstacle : std::uint8_t {
  kFilter,       ///< its leading requirements, before the script is walked
  kRequirement,  ///< one that the walk came to, or a price
  kNotInPlay,
  kWaits,      ///< it was added a moment ago, for the next time
  kMenu,       ///< nobody chose it in its menu
  kChance,     ///< the roll
  kCancelled,  ///< a reaction
  kNoTarget,
  kBudget,     ///< the steps of the turn are spent
  kNoEffect,   ///< a command that could change nothing
  kNoCommand,  ///< a word that is none
  kEnded,      ///< the match is over, or too many runs have started one another
};

/// One asking for an action. The texts share those of the card.
struct AskedAction {
  Text Name;
  Text UniqueID;
  std::int32_t GlobalID = 0;
  int Owner = 0;
  int Number = 0;  ///< of the action on its card; 0 is a script that is no action of it
  CardEffect Action;
  bool Acted = false;
  std::string Reason{};  ///< why it did not act, "" when it did
};

/// The action as a card file has it: "#EFFECT, SELF, TURNSTART, "MODTRAIT:HP:1"".
std::string ActionAsWritten(const CardEffect& action);
/// "by Shield #1002, #EFFECT, ...", for an action or a change that a reaction of a card cancelled.
std::string CanceledBy(const Card& card, int effect, bool byRequirement);
/// "Crab #1001 (WW-Crab), #EFFECT, ...: filter: the target has no FLY (Goblin)" on one line.
std::string RefusalLine(const AskedAction& asked);

/// What several places say.
inline constexpr std::string_view kStepsAreSpent =
    "the scripts of this turn have taken all their steps";
inline constexpr std::string_view kAddedMeanwhile =
    "it was added while the trigger was being fired";

/// Listens beside the runs of a session that points to it (Session::Trace). A session without one
/// pays for a look at that pointer. What is tried on copies to choose a target counts only when no
/// target is found; trials whose result nobody is asked for are left out (Untraced).
class ActionTrace {
 public:
  /// Is told of every asking when it is over, those within it first.
  using Listener = std::function<void(const AskedAction&)>;
  explicit ActionTrace(Listener listener) : listener_(std::move(listener)) {}

  /// An action is asked for. A script stands in for that of the action where it is not empty; a
  /// test within another asking is left out.
  void Begin(const Card& card, int effect, const Text& script, bool isTest);
  /// The same, and nobody is told of it.
  void BeginUntold(const Card& card, int effect) { Push(card, effect, Text(), false); }
  void End();
  /// True when the innermost asking is for this action.
  bool IsFor(const Card& card, int effect) const;
  /// The innermost asking is only a choice, which is told of only when it fails: as a menu action
  /// that nobody chose.
  void AskForChoice();
  /// The choice was made, or failed for a reason beyond its targets ("" for none).
  void Choose(bool chosen, std::string_view why);

  /// A run of the innermost asking begins; gives a mark for its end.
  int BeginRun() const;
  void EndRun(int mark, int result);
  /// The walk of a run carried out so many commands that changed something.
  void Applied(int commands);
  /// One of them changed nothing after all.
  void Voided(Obstacle obstacle, std::string_view words);

  /// Cards are tried one after the other.
  void BeginSearch();
  void EndSearch(bool found);

  /// What stands in the way. target is the card that it is about, nullptr for none.
  void Note(Obstacle obstacle, std::string_view words, const Card* target = nullptr);
  /// The same where nothing has been noted of this asking.
  void NoteIfNone(Obstacle obstacle, std::string_view words);
  /// The same of an action that is not even begun; of another trigger it is not asked for.
  void NoteSkipped(const Card& card, int effect, std::string_view trigger, Obstacle obstacle,
                   std::string_view words);
  /// The same of a menu action that nobody chose.
  void NoteMenu(const Card& card, int effect, std::string_view trigger);

  /// What a requirement or a chance compared, for the words of its failure.
  void Compared(std::string words) { compared_ = std::move(words); }
  std::string TakeCompared() { return std::exchange(compared_, {}); }

 private:
  /// Obstacles with the same words, and the cards that they are about.
  struct Group {
    Obstacle Kind;
    std::string Words;
    std::vector<Text> Targets{};  ///< the first few
    int Others = 0;
  };
  struct Asking {
    AskedAction Action;
    int Effect = 0;
    bool IsTold = true;
    bool IsChoice = false;
    bool FoundNone = false;  ///< a search ended without a target
    int Applications = 0;
    int Voids = 0;
    int Notes = 0;
    int Searches = 0;  ///< in progress
    int LeftOut = 0;   ///< groups beyond the bound
    std::vector<Group> Groups{};
    std::vector<Group> Tried{};  ///< of the search in progress
  };

  void Push(const Card& card, int effect, const Text& script, bool isTold);
  static void Add(std::vector<Group>& groups, int& leftOut, Group group);
  static std::string ReasonOf(const Asking& asking);
  void Tell(Asking asking);

  Listener listener_;
  std::vector<Asking> askings_;  ///< the innermost one last
  std::string compared_;
  std::set<std::pair<std::int32_t, int>> notChosen_;  ///< told of as choices that failed
};

/// While one exists, an action of a card is asked for, if anybody listens.
class TracedAction {
 public:
  TracedAction(const Card& card, int effect, const Text& script = {}, bool isTest = false);
  ~TracedAction();
  TracedAction(const TracedAction&) = delete;
  TracedAction& operator=(const TracedAction&) = delete;

  /// nullptr when nobody listens.
  ActionTrace* operator->() const { return trace_; }
  explicit operator bool() const { return trace_ != nullptr; }

 private:
  ActionTrace* trace_;
};

/// While one exists, targets are tried for an action; without FoundOne the search has failed.
class TracedSearch {
 public:
  TracedSearch(const Card& card, int effect);
  ~TracedSearch();
  TracedSearch(const TracedSearch&) = delete;
  TracedSearch& operator=(const TracedSearch&) = delete;

  void FoundOne() { found_ = true; }

 private:
  ActionTrace* trace_;
  bool own_ = false;  ///< of no asking in progress
  bool found_ = false;
};

/// While one exists, nobody listens.
class Untraced {
 public:
  Untraced();
  ~Untraced();
  Untraced(const Untraced&) = delete;
  Untraced& operator=(const Untraced&) = delete;

 private:
  ActionTrace* outer_;
};

}  // namespace brindlemoor

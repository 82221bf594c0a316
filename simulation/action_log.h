// ActionLog: what the actions of a match did not do, as lines.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "script/action_trace.h"

namespace brindlemoor {

/// Gathers what an ActionTrace tells.
class ActionLog {
 public:
  void Note(const AskedAction& asked);
  /// Remembers the actions of the rules and of the cards in play, of which some are never asked
  /// for.
  void NoteCardsInPlay();

  /// A line for each action that did not act since the last call, in the order of the askings. What
  /// happened several times is told once, with how often.
  std::vector<std::string> TakeLines();
  /// A line for each action that has never acted, cards of the same name and number together.
  std::vector<std::string> NeverActed() const;

 private:
  /// What became of an action of one kind of card.
  struct Record {
    std::string Trigger;
    int Asked = 0;
    bool Acted = false;
    std::string LastReason;
  };

  Record& RecordOf(const Text& name, const Text& id, const CardEffect& action);

  std::map<std::string, Record> records_;  ///< by card and action
  std::vector<std::string> lines_;
  std::map<std::string, int> counts_;  ///< of the lines
};

}  // namespace brindlemoor

// Gathering the askings of a match.
#include "simulation/action_log.h"

#include <utility>

#include "core/cards.h"
#include "core/state.h"
#include "text/joined.h"
#include "text/one_line.h"

namespace brindlemoor {

namespace {

std::string CardAndAction(const Text& name, const Text& id, const CardEffect& action) {
  std::string card = Joined(OneLine(name));
  if (!id.empty()) card += Joined(" (", OneLine(id), ")");
  return Joined(card, ", ", ActionAsWritten(action));
}

std::string Times(int count) { return count == 1 ? "" : Joined(" (", count, " times)"); }

}  // namespace

ActionLog::Record& ActionLog::RecordOf(const Text& name, const Text& id, const CardEffect& action) {
  // The state of a menu action is no part of what it is called.
  Record& record = records_[CardAndAction(name, id, action)];
  if (record.Trigger.empty()) record.Trigger = action.Trigger.Str();
  return record;
}

void ActionLog::Note(const AskedAction& asked) {
  Record& record = RecordOf(asked.Name, asked.UniqueID, asked.Action);
  ++record.Asked;
  if (asked.Acted) {
    record.Acted = true;
    return;
  }
  record.LastReason = asked.Reason;
  std::string line = RefusalLine(asked);
  if (counts_[line]++ == 0) lines_.push_back(std::move(line));
}

void ActionLog::NoteCardsInPlay() {
  const auto note = [this](const Card& card) {
    for (const CardEffect& action : card.Effects) {
      if (!action.Script.empty()) RecordOf(card.Name, card.UniqueID, action);
    }
  };
  note(State().RulesCard);
  for (const Card& card : State().CardTable) {
    if (!IsFree(card)) note(card);
  }
}

std::vector<std::string> ActionLog::TakeLines() {
  std::vector<std::string> lines = std::exchange(lines_, {});
  for (std::string& line : lines) line += Times(counts_[line]);
  counts_.clear();
  return lines;
}

std::vector<std::string> ActionLog::NeverActed() const {
  std::vector<std::string> lines;
  for (const auto& [action, record] : records_) {
    if (record.Acted) continue;
    lines.push_back(
        record.Asked == 0
            ? Joined(action, ": waits for its trigger: ", record.Trigger, " has not come")
            : Joined(action, ": asked for ", record.Asked, record.Asked == 1 ? " time" : " times",
                     ", at last: ", record.LastReason));
  }
  return lines;
}

}  // namespace brindlemoor

// Listening beside the runs.
#include "script/action_trace.h"

#include <algorithm>
#include <array>

#include "core/state.h"
#include "language/target_types.h"
#include "script/run_action.h"
#include "text/joined.h"
#include "text/one_line.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kGroups = 4;       // of an asking that are told one by one
constexpr std::size_t kTargets = 3;      // of a group
constexpr std::size_t kWordBytes = 240;  // of a reason, and of an action
constexpr std::string_view kNobodyChose = "nobody chose it this turn";

constexpr std::array<std::string_view, 12> kObstacleNames = {
    "filter",         "requirement", "not in play", "waits for its trigger",
    "menu not armed", "chance",      "cancelled",   "no target",
    "budget",         "no effect",   "no command",  "ended"};

std::string_view NameOf(Obstacle obstacle) {
  return kObstacleNames[static_cast<std::size_t>(obstacle)];
}

std::string Shortened(std::string_view text) {
  if (text.size() <= kWordBytes) return std::string(OneLine(text));
  std::size_t end = kWordBytes;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return Joined(OneLine(text.substr(0, end)), "...");
}

std::string TargetsOf(const std::vector<Text>& targets, int others) {
  std::string names;
  for (const Text& target : targets) names += Joined(names.empty() ? "" : ", ", target.View());
  if (others > 0) names += Joined(" and ", others, " more");
  return names;
}

/// The word of a file for the target.
std::string_view TargetWord(const CardEffect& action) {
  const bool isWritten =
      !action.TargetText.empty() && TargetTypeCode(action.TargetText) == action.TargetType;
  return isWritten ? action.TargetText.View() : TargetTypeName(action.TargetType);
}

}  // namespace

std::string ActionAsWritten(const CardEffect& action) {
  if (action.Trigger.empty()) return Joined("\"", Shortened(action.Script), "\"");
  std::string trigger = action.Trigger.Str();
  if (action.MenuState != kOrdinaryAction) {
    trigger = Joined("MENU:", action.Trigger, ":", action.MenuCaption);
  }
  return Joined("#EFFECT, ", OneLine(TargetWord(action)), ", ", OneLine(trigger), ", \"",
                Shortened(action.Script), "\"");
}

std::string CanceledBy(const Card& card, int effect, bool byRequirement) {
  return Joined("by ", card.Name, " #", card.GlobalID, ", ", ActionAsWritten(card.Effects[effect]),
                byRequirement ? ", which cancels when that requirement is not met" : "");
}

std::string RefusalLine(const AskedAction& asked) {
  std::string line(OneLine(asked.Name));
  line += Joined(" #", asked.GlobalID);
  if (!asked.UniqueID.empty()) line += Joined(" (", OneLine(asked.UniqueID), ")");
  return Joined(line, ", ", ActionAsWritten(asked.Action), ": ", asked.Reason);
}

void ActionTrace::Push(const Card& card, int effect, const Text& script, bool isTold) {
  Asking asking{.Action = {card.Name, card.UniqueID, card.GlobalID, card.Owner, effect,
                           card.Effects[effect]}};
  if (!script.empty()) {
    asking.Action.Number = 0;
    asking.Action.Action = {};
    asking.Action.Action.Script = script;
  }
  asking.Effect = effect;
  asking.IsTold = isTold;
  askings_.push_back(std::move(asking));
}

void ActionTrace::Begin(const Card& card, int effect, const Text& script, bool isTest) {
  bool isTold = true;
  if (!askings_.empty()) {
    const Asking& outer = askings_.back();
    isTold = outer.IsTold && outer.Searches == 0 && !isTest;
  }
  Push(card, effect, script, isTold);
}

void ActionTrace::End() {
  Asking asking = std::move(askings_.back());
  askings_.pop_back();
  compared_.clear();
  if (asking.IsTold) Tell(std::move(asking));
}

bool ActionTrace::IsFor(const Card& card, int effect) const {
  return !askings_.empty() && askings_.back().Effect == effect &&
         askings_.back().Action.GlobalID == card.GlobalID;
}

void ActionTrace::AskForChoice() { askings_.back().IsChoice = true; }

void ActionTrace::Choose(bool chosen, std::string_view why) {
  Asking& asking = askings_.back();
  asking.Action.Acted = chosen;
  if (!chosen && asking.Groups.empty() && !asking.FoundNone) {
    Note(Obstacle::kNoTarget, why);
  }
}

int ActionTrace::BeginRun() const { return askings_.back().Notes; }

void ActionTrace::EndRun(int mark, int result) {
  Asking& asking = askings_.back();
  if (asking.Searches > 0 || asking.IsChoice) return;
  if (result == kRunClean && asking.Notes == mark) asking.Action.Acted = true;
}

void ActionTrace::Applied(int commands) {
  if (askings_.empty() || askings_.back().Searches > 0) return;
  askings_.back().Applications += commands;
}

void ActionTrace::Voided(Obstacle obstacle, std::string_view words) {
  if (askings_.empty() || askings_.back().Searches > 0) return;
  ++askings_.back().Voids;
  Note(obstacle, words);
}

void ActionTrace::BeginSearch() { ++askings_.back().Searches; }

void ActionTrace::EndSearch(bool found) {
  Asking& asking = askings_.back();
  if (--asking.Searches > 0) return;
  asking.FoundNone = !found;
  if (!found) {
    for (Group& group : asking.Tried) Add(asking.Groups, asking.LeftOut, std::move(group));
  }
  asking.Tried.clear();
}

void ActionTrace::Add(std::vector<Group>& groups, int& leftOut, Group group) {
  const auto same = std::ranges::find_if(groups, [&](const Group& known) {
    return known.Kind == group.Kind && known.Words == group.Words;
  });
  if (same == groups.end()) {
    if (groups.size() < kGroups) {
      groups.push_back(std::move(group));
    } else {
      ++leftOut;
    }
    return;
  }
  same->Others += group.Others;
  for (Text& target : group.Targets) {
    if (same->Targets.size() < kTargets) {
      same->Targets.push_back(std::move(target));
    } else {
      ++same->Others;
    }
  }
}

void ActionTrace::Note(Obstacle obstacle, std::string_view words, const Card* target) {
  if (askings_.empty() || !askings_.back().IsTold) return;
  Asking& asking = askings_.back();
  ++asking.Notes;
  Group group{obstacle, Shortened(words)};
  if (target != nullptr && target->GlobalID != asking.Action.GlobalID && !target->Name.empty()) {
    group.Targets.emplace_back(target->Name);
  }
  Add(asking.Searches > 0 ? asking.Tried : asking.Groups, asking.LeftOut, std::move(group));
}

void ActionTrace::NoteIfNone(Obstacle obstacle, std::string_view words) {
  if (askings_.empty() || askings_.back().Notes > 0 || askings_.back().FoundNone) return;
  Note(obstacle, words);
}

void ActionTrace::NoteSkipped(const Card& card, int effect, std::string_view trigger,
                              Obstacle obstacle, std::string_view words) {
  const CardEffect& action = card.Effects[effect];
  if (action.Script.empty() || action.Trigger != trigger) return;
  Begin(card, effect, Text(), false);
  Note(obstacle, words);
  End();
}

void ActionTrace::NoteMenu(const Card& card, int effect, std::string_view trigger) {
  if (card.Effects[effect].MenuState != kMenuAction) return;
  if (notChosen_.erase({card.GlobalID, effect}) > 0) return;
  NoteSkipped(card, effect, trigger, Obstacle::kMenu, kNobodyChose);
}

std::string ActionTrace::ReasonOf(const Asking& asking) {
  std::string reason;
  if (asking.IsChoice) reason = Joined(NameOf(Obstacle::kMenu), ": ");
  if (asking.FoundNone) reason += Joined(NameOf(Obstacle::kNoTarget), ": ");
  if (asking.Groups.empty()) {
    return reason + (asking.FoundNone ? "no card was there to be tried" : "its script did nothing");
  }
  Obstacle kind{};
  for (const Group& group : asking.Groups) {
    const bool first = &group == asking.Groups.data();
    if (!first) reason += "; ";
    if (first || group.Kind != kind) reason += Joined(NameOf(group.Kind), ": ");
    kind = group.Kind;
    reason += group.Words;
    if (!group.Targets.empty()) reason += Joined(" (", TargetsOf(group.Targets, group.Others), ")");
  }
  if (asking.LeftOut > 0) reason += Joined("; and ", asking.LeftOut, " more");
  return reason;
}

void ActionTrace::Tell(Asking asking) {
  AskedAction& action = asking.Action;
  if (asking.Applications > asking.Voids) action.Acted = true;
  if (asking.IsChoice) {
    if (action.Acted) return;
    notChosen_.insert({action.GlobalID, asking.Effect});
  }
  if (!action.Acted) action.Reason = ReasonOf(asking);
  listener_(action);
}

TracedAction::TracedAction(const Card& card, int effect, const Text& script, bool isTest)
    : trace_(State().Trace) {
  if (trace_ != nullptr) [[unlikely]]
    trace_->Begin(card, effect, script, isTest);
}

TracedAction::~TracedAction() {
  if (trace_ != nullptr) [[unlikely]]
    trace_->End();
}

TracedSearch::TracedSearch(const Card& card, int effect) : trace_(State().Trace) {
  if (trace_ == nullptr) [[likely]]
    return;
  own_ = !trace_->IsFor(card, effect);
  if (own_) trace_->BeginUntold(card, effect);
  trace_->BeginSearch();
}

TracedSearch::~TracedSearch() {
  if (trace_ == nullptr) [[likely]]
    return;
  trace_->EndSearch(found_);
  if (own_) trace_->End();
}

Untraced::Untraced() : outer_(std::exchange(State().Trace, nullptr)) {}

Untraced::~Untraced() { State().Trace = outer_; }

}  // namespace brindlemoor

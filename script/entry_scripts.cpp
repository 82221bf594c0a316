// RunEntryScripts: a card's permanent modifications, run when it goes into a table.
#include "core/replacing.h"
#include "core/state.h"
#include "core/strings.h"
#include "script/run_action.h"
#include "script/triggers.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kBetween = "$|$";

void RunEntryScript(Card& card, const std::string& script) {
  RunOptions options;
  options.CostMode = 1;
  options.NoCounters = 1;
  options.ScriptOverride = InternText(script);
  Session& session = State();
  const Text waiting = session.PendingEffectText;
  const std::int32_t waitingCard = session.PendingEffectCard;
  RunAction(card, card, 1, options);
  if (IsTableRecord(card)) {
    FlushPendingEffect();  // before the next modification may add another action
  } else {
    // A card that is only looked at leaves nothing behind.
    session.PendingEffectText = waiting;
    session.PendingEffectCard = waitingCard;
  }
}

}  // namespace

// The pieces are what GetDS gives for 1, 2, 3 and so on, found in one pass: the search goes on one
// character behind the start of a delimiter, and the rest of it is taken out of every piece.
void RunEntryScripts(Card& card) {
  const Text list = card.EntryScripts;
  SpendWorkOnText(list.size());
  if (list.View().find(kBetween) == std::string_view::npos) {
    if (!list.empty()) RunEntryScript(card, list.Str());
    return;
  }
  const std::string scripts = Joined(list.View(), kBetween);
  std::size_t start = 0;
  for (std::size_t end = scripts.find(kBetween); end != std::string::npos && !WorkIsSpent();
       end = scripts.find(kBetween, start)) {
    std::string piece = scripts.substr(start, end - start);
    ReplaceAll(piece, kBetween.substr(1), "");
    if (piece.empty()) return;
    RunEntryScript(card, piece);
    start = end + 1;
  }
}

}  // namespace brindlemoor

// Targets of the script language: scripts, value expressions, messages.
#include <algorithm>

#include "core/cards.h"
#include "core/state.h"
#include "data/card_reader.h"
#include "fuzz/fuzz_session.h"
#include "fuzz/fuzz_targets.h"
#include "game/card_play.h"
#include "game/turn.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "language/values.h"
#include "pages/card_pages.h"
#include "pages/messages.h"
#include "script/card_setup.h"
#include "script/trait_changes.h"
#include "script/triggers.h"
#include "text/text.h"
#include "ui/card_description.h"

namespace brindlemoor {

namespace {

constexpr std::int64_t kSteps = 1'000;

/// Gives the lines to the cards of the table in turn, one for each trigger. A digit at the
/// beginning of a line, as a letter of the target types from 'a' on, says whom it aims at.
void SpreadScripts(const std::vector<std::string>& lines) {
  if (lines.empty()) return;
  Pile& table = State().CardTable;
  std::size_t next = 0;
  for (const TriggerRow& trigger : kTriggerRows) {
    for (int slot = 0; slot <= table.UpperBound(); ++slot) {
      if (slot % 3 != static_cast<int>(next % 3)) continue;
      std::string_view line = lines[next++ % lines.size()];
      std::size_t type = next % kTargetTypeRows.size();
      if (!line.empty() && line[0] >= 'a' && line[0] <= 'n') {
        type = static_cast<std::size_t>(line[0] - 'a') % kTargetTypeRows.size();
        line.remove_prefix(1);
      }
      Card& card = slot == 0 ? State().RulesCard : table[slot];
      const std::string word = Joined(trigger.Word, trigger.Word.ends_with(':') ? "HP" : "");
      AddEffect(card, line, kTargetTypeRows[type].Code, word, 0, kTargetTypeRows[type].Word);
    }
  }
  Card& held = State().Players[1].Hand[1];
  AddEffect(held, lines[0], kTargetOwner, "COST", 0, "OWNER");
  AddEffect(State().Players[2].Hand[1], lines.back(), kTargetAll, "ENTERPLAY", 0, "ALL");
  RebuildHitTable();
}

}  // namespace

void FuzzScript(std::string_view bytes) {
  FuzzSession session;
  LayOutSmallTable();
  SpreadScripts(LinesOf(bytes));
  State().Work.Limit = kSteps;  // every trigger has scripts: each of them gets little
  for (const TriggerRow& trigger : kTriggerRows) {
    const WorkAccount account;
    const std::string word = Joined(trigger.Word, trigger.Word.ends_with(':') ? "HP" : "");
    FireTrigger(State().CardTable[3], word, 4);
  }
  for (int turn = 0; turn < 2 && State().GameOver == 0; ++turn) {
    State().PlayQueue[1] = 1;
    State().PlayTarget[1] = 4;
    TakeTurn(0);
  }
}

void FuzzValue(std::string_view bytes) {
  FuzzSession session;
  LayOutSmallTable();
  const Pile& table = State().CardTable;
  Card source = table[3];
  SetTrait(source, "BONUSHP", bytes, 1);
  const WorkAccount account;
  EvalValue(source, table[4], bytes);
  EvalValue(table[4], table[6], bytes);
  TraitNumber(source, "HP");
}

void FuzzMessage(std::string_view bytes) {
  FuzzSession session;
  LayOutSmallTable();
  const std::vector<std::string> lines = LinesOf(bytes);
  if (lines.empty()) return;
  for (std::size_t line = 1; line < lines.size(); ++line) {
    const std::size_t equals = lines[line].find('=');
    if (equals == std::string::npos) continue;
    AddCustomString(lines[line].substr(0, equals), lines[line].substr(equals + 1));
  }
  Card& source = State().CardTable[3];
  Card& target = State().CardTable[4];
  source.Name = lines.back();
  source.Description = lines[0];
  source.TraitCaptions.Edit(1) = lines[0];
  std::string text = lines[0];
  ExpandMessage(source, target, text, "<img>", "<img>");
  ShowCardDescription(source, 1);
  MustBeHarmless(session.ReadFile("CardDesc.html"));
  CardSummary(source, 1);
  CardPanelHtml(source, 1);
}

}  // namespace brindlemoor

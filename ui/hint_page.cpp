// The hint: which cards of the hand are worth playing now.
#include "ui/hint_page.h"

#include <utility>

#include "core/cards.h"
#include "core/mind_levels.h"
#include "core/state.h"
#include "game/card_play.h"
#include "game/hints.h"
#include "game/looking.h"
#include "pages/card_pages.h"
#include "pages/page_files.h"
#include "platform/platform.h"
#include "text/one_line.h"
#include "ui/forms.h"

namespace brindlemoor {

namespace {

std::string_view ValueText(const HandValue& play) {
  if (!play.Payable) return "can't be paid now";
  return play.IsWorthPlaying() ? "worth playing now" : "better kept for later";
}

std::string HintOfCard(Hint& hint) {
  std::string html = Joined("<p><b>", ColoredName(hint.Card), "</b>, ", ValueText(hint.Play));
  for (const std::string& trial : hint.Trials) html += Joined("<br>", trial);
  if (hint.Play.Payable && hint.Trials.empty()) html += "<br>It does nothing at once.";
  return html + "</p>";
}

std::string AimInWords(int slot) {
  Pile& table = State().CardTable;
  return table.Holds(slot) && !IsFree(table[slot]) ? Joined(" on ", ColoredName(table[slot])) : "";
}

/// The plan as far as it can be paid now, in its order.
TurnPlan PayablePart(TurnPlan plan) {
  const Looking nothingLasts;
  const WorkAccount account;
  const Pile& hand = State().Players[1].Hand;
  std::erase_if(plan.Plays, [&hand](const PlannedPlay& play) {
    return !PayCost(hand[play.Position], Payment::kIsMade);
  });
  return plan;
}

/// What a plan does, as "play Elf, then Bolt on Troll, use "Shine" of Lamp".
std::string InWords(const TurnPlan& plan) {
  Pile& hand = State().Players[1].Hand;
  Pile& table = State().CardTable;
  std::string words;
  for (const PlannedPlay& play : plan.Plays) {
    words += Joined(words.empty() ? "play " : ", then ", "<b>", ColoredName(hand[play.Position]),
                    "</b>", AimInWords(play.Target));
  }
  for (const PlannedAction& action : plan.Actions) {
    Card& card = table[action.Slot];
    words += Joined(words.empty() ? "" : ", ", "use \"",
                    OneLine(card.Effects[action.Effect].MenuCaption), "\" of <b>",
                    ColoredName(card), "</b>", AimInWords(action.Target));
  }
  return words.empty() ? "play nothing" : words;
}

/// The plan of who looks ahead; "" where nobody can.
std::string LookAhead() {
  Session& state = State();
  if (state.ThinkOfTurn == nullptr) return "";
  const std::uint8_t outer = std::exchange(state.Minds[1], std::uint8_t{kThoughtfulMind});
  const auto plan = state.ThinkOfTurn(1);
  state.Minds[1] = outer;
  return Joined("<p>Looking some turns ahead, the thoughtful computer would ",
                plan ? InWords(PayablePart(*plan)) : "do nothing else than this", ".</p>");
}

}  // namespace

std::string HintPage() {
  std::string html =
      "<p><font color=\"#FFFF00\"><b>Hint</b></font><br>Your hand as the computer would play it, "
      "the best card first, and what each card would do now.</p>";
  std::vector<Hint> hints = HandHints();
  if (hints.empty()) html += "<p>Your hand is empty.</p>";
  html += LookAhead();
  for (Hint& hint : hints) html += HintOfCard(hint);
  return html;
}

void ShowHint() {
  Session& state = State();
  // At the list of games there is no hand, and while a turn runs none to decide on.
  if (state.TurnRunning == 1 || state.GameOver == 1) return;
  if (state.CurrentGame == 0 && state.TestFromEditor == 0) return;
  std::string outer = std::exchange(state.PageText, HintPage());
  State().Links.DescribedCard = 0;
  PaintImage("");  // of whatever card was looked at before
  WritePage("CardDesc.html", "#000000");
  ShowInView(TheMainWindow().CardDescWB, "CardDesc.html");
  state.PageText = std::move(outer);
}

}  // namespace brindlemoor

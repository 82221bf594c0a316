// The hint: which cards of the hand are worth playing now.
#include "ui/hint_page.h"

#include <utility>

#include "core/state.h"
#include "game/hints.h"
#include "pages/card_pages.h"
#include "pages/page_files.h"
#include "platform/platform.h"
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

}  // namespace

std::string HintPage() {
  std::string html =
      "<p><font color=\"#FFFF00\"><b>Hint</b></font><br>Your hand as the computer would play it, "
      "the best card first, and what each card would do now.</p>";
  std::vector<Hint> hints = HandHints();
  if (hints.empty()) html += "<p>Your hand is empty.</p>";
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

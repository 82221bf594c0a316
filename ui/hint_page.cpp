// The hint: which cards of the hand are worth playing now.
#include "ui/hint_page.h"

#include <utility>

#include "core/cards.h"
#include "core/mind_levels.h"
#include "core/state.h"
#include "game/hints.h"
#include "game/looking.h"
#include "game/plan_forecast.h"
#include "game/planned_turn.h"
#include "pages/card_pages.h"
#include "pages/page_files.h"
#include "platform/platform.h"
#include "text/quoting.h"
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

/// What a plan does as things stand now, a line each; cards that can't be paid and menu actions
/// that would not work are left out.
std::string InWords(const TurnPlan& plan) {
  const Looking nothingLasts;
  LineUp(plan);
  const PlanForecast forecast = ForecastPlan();
  std::string words;
  for (const PlannedStep& step : forecast.Steps) {
    const bool works = step.Entry == 0 ? step.Problem.empty() && step.Advice.empty()
                                       : forecast.Hand[State().PlayQueue[step.Entry]].IsPayable;
    if (works) words += Joined("<br>", HtmlText(step.Words));
  }
  return words;
}

/// The plan of who looks ahead; "" where nobody can.
std::string LookAhead() {
  Session& state = State();
  if (state.ThinkOfTurn == nullptr) return "";
  const std::uint8_t outer = std::exchange(state.Minds[1], std::uint8_t{kThoughtfulMind});
  const auto plan = state.ThinkOfTurn(1);
  state.Minds[1] = outer;
  const std::string words = plan ? InWords(*plan) : "";
  std::string_view verb = words.empty() ? "would wait." : "would do this:";
  if (!plan) verb = "finds nothing better than this.";
  return Joined("<p>Looking some turns ahead, the thoughtful computer ", verb, words, "</p>");
}

}  // namespace

std::string HintPage() {
  std::string html = Joined("<p><font color=\"#FFFF00\"><b>Hint</b></font></p>", LookAhead(),
                            "<p>Your hand as the computer would play it, the best card first, and "
                            "what each card would do now.</p>");
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

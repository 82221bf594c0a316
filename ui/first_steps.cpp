// The words beside the list of games.
#include "ui/first_steps.h"

#include <algorithm>

#include "core/cards.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "game/players.h"
#include "pages/card_pages.h"
#include "pages/page_files.h"
#include "text/one_line.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kPage = "FirstSteps.html";

constexpr std::string_view kForNewPlayers =
    "<p>1. Begin with a <b>starter deck</b>: the portraits of a game show some, mostly the first "
    "ones. It gives you cards of your own.</p>"
    "<p>2. Then choose an <b>opponent</b>. You put a deck together from your cards, and the match "
    "begins.</p>"
    "<p>3. Victories earn <b>tokens</b>. The stores of a game sell more cards for them.</p>";

void Show(const std::string& html) {
  State().PageText = html;
  WritePage(kPage, "");
  ShowInView(TheMainWindow().CardDescWB, kPage);
}

}  // namespace

void ShowFirstSteps() {
  PaintImage("");
  const std::string name = State().Profile.PlayerName.Str();
  const std::string holdings = HoldingsOf(name);
  std::string html = Joined("<p><b>Welcome, ", OneLine(name), "!</b></p>");
  if (holdings.empty()) {
    html += kForNewPlayers;
  } else {
    html += "<p>You own:";
    for (std::string_view rest = holdings; !rest.empty();) {
      const std::size_t end = std::min(rest.find('\n'), rest.size());
      html += Joined("<br>", OneLine(rest.substr(0, end)));
      rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    html += "</p><p>Choose an opponent, or a store where your tokens buy more cards.</p>";
  }
  Show(html + "<p>F1 shows the help. Each game has its own under its picture.</p>");
  TheMainWindow().Kept.Show();
}

void ShowOpponent(const std::string& address) {
  const auto [game, opponent] = OpponentOfLink(address);
  const Session& state = State();
  if (!state.Links.Games || !state.Games.Holds(game)) return;
  const GameRec& record = state.Games[game];
  if (opponent < 2 || !record.Opponents.Holds(opponent)) return;
  Card shown = record.Opponents[opponent];
  PaintImage(shown.Picture.empty() ? std::string() : ResolvePath(shown.Picture, 0));
  Show(Joined("<p><b>", ColoredName(shown), "</b><br>", OneLine(record.Name), "</p><p>",
              OneLine(shown.Description), "</p>"));
}

}  // namespace brindlemoor

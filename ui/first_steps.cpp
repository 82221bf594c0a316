// The words beside the list of games.
#include "ui/first_steps.h"

#include <algorithm>
#include <array>

#include "core/cards.h"
#include "core/mind_levels.h"
#include "core/state.h"
#include "core/strings.h"
#include "game/game_list.h"
#include "game/match_results.h"
#include "game/players.h"
#include "pages/card_pages.h"
#include "pages/page_files.h"
#include "text/one_line.h"
#include "ui/card_description.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"
#include "ui/opponent_trial.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kPage = "FirstSteps.html";
/// Milliseconds on a portrait until it is told of: who clicks at once means the match, and a click
/// that comes while something else is done is not taken.
constexpr int kPortraitRest = 150;

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

/// How hard a match is by how many of a hundred trials were won.
struct HardnessRow {
  int WonOfHundred;  ///< at least
  std::string_view Words;
};
constexpr std::array<HardnessRow, 3> kHardness = {
    {{70, "An easy match"}, {30, "An even match"}, {0, "A hard match"}}};
/// Fewer trials tell nothing.
constexpr int kLeastTrials = 5;

std::string HardnessWords(const TrialMatches& trial) {
  if (trial.Matches < kLeastTrials) return "";
  const int share = trial.Won * 100 / trial.Matches;
  const auto* row = std::ranges::find_if(
      kHardness, [&](const HardnessRow& entry) { return share >= entry.WonOfHundred; });
  return Joined("<p><b>", row->Words, "</b> for ", trial.IsOwn ? "your deck " : "the cards of ",
                OneLine(trial.Deck), ": the computer tried it ", trial.Matches, " times",
                State().Minds[2] == kPlainMind ? "" : " against the plain opponent", " and won ",
                trial.Won, ".</p>");
}

std::string ResultsWords(const MatchResults& results) {
  return Joined(results.Won > 0 ? "Beaten" : "Not beaten yet", ": you won ", results.Won, " of ",
                results.Played(), results.Played() == 1 ? " match." : " matches.");
}

/// A paragraph for each mind of the opponent that was played against.
std::string AllResultsWords(int game, int opponent) {
  std::string words;
  for (int mind = kPlainMind; mind <= kHardestMind; ++mind) {
    const MatchResults results = ResultsAgainst(game, opponent, mind);
    if (results.Played() == 0) continue;
    words += Joined("<p>", mind == kPlainMind ? "" : Joined(MindName(mind), ". "),
                    ResultsWords(results), "</p>");
  }
  return words.empty() ? "<p>Not beaten yet.</p>" : words;
}

/// A star for a beaten opponent, one more for each harder mind.
std::vector<LinkMark> MarksOfBeaten() {
  std::vector<LinkMark> marks;
  for (int game = 1; game <= State().Games.UpperBound(); ++game) {
    for (const BeatenOpponent& beaten : BeatenOpponents(game)) {
      LinkMark& mark = marks.emplace_back();
      mark.Link = Joined("GAME:", game, ":", beaten.Opponent);
      for (int mind = kPlainMind; mind <= beaten.Mind; ++mind) mark.Mark += "\u2605";
      mark.Words = Joined("Beaten (", MindName(beaten.Mind), ")");
    }
  }
  return marks;
}

/// What is known of an opponent beside the picture and the words of the file.
std::string ProspectsAgainst(int game, int opponent) {
  const Table<Text>& files = State().Games[game].OpponentFiles;
  {
    const WorkAccount account;
    if (!files.Holds(opponent) || files[opponent].empty() || IsStarterDeck(files[opponent].Str())) {
      return "";
    }
  }
  auto& trials = TheMainWindow().Trials;
  const auto [entry, isNew] = trials.try_emplace({game, opponent});
  if (isNew && State().TryOpponent != nullptr) entry->second = State().TryOpponent(game, opponent);
  return AllResultsWords(game, opponent) + HardnessWords(entry->second);
}

}  // namespace

void ShowFirstSteps() {
  TheMainWindow().Trials.clear();
  TheMainWindow().Opponent.Update();
  TheMainWindow().WB.LinkMarks = MarksOfBeaten();
  TheMainWindow().WB.PointDelay = kPortraitRest;
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
  if (!State().Links.Games || !State().Games.Holds(game) || opponent < 2 ||
      !State().Games[game].Opponents.Holds(opponent)) {
    return;
  }
  const std::string prospects = ProspectsAgainst(game, opponent);
  const GameRec& record = State().Games[game];
  Card shown = record.Opponents[opponent];
  PaintPicture(shown);
  Show(Joined("<p><b>", ColoredName(shown), "</b><br>", OneLine(record.Name), "</p><p>",
              OneLine(shown.Description), "</p>", prospects));
}

}  // namespace brindlemoor

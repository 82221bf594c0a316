// The end of a match: its panel and the ways on from there.
#include "ui/match_end.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "core/desktop.h"
#include "core/mind_levels.h"
#include "core/state.h"
#include "game/match_outcome.h"
#include "platform/arrangement.h"
#include "text/one_line.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {

namespace {

constexpr std::int32_t kWonColor = 0xF0C060;
constexpr std::int32_t kLostColor = 0xE09080;
constexpr std::int32_t kCalmColor = 0xE6E4DF;

struct VerdictRow {
  MatchEnd End;
  std::string_view Words;
  std::int32_t Color;
};
constexpr std::array<VerdictRow, 3> kVerdicts = {
    {{MatchEnd::kWon, "You won!", kWonColor},
     {MatchEnd::kLost, "You lost.", kLostColor},
     {MatchEnd::kNobodyWon, "Nobody won.", kCalmColor}}};

std::string Counted(int count, std::string_view one) {
  return Joined(count, " ", one, count == 1 ? "" : "s");
}

std::string FactsOf(const MatchOutcome& outcome) {
  const MatchRecord& match = State().Match;
  std::string facts;
  if (!match.IsVisit) {
    const std::string mind =
        match.EasiestMind == kPlainMind ? "" : Joined(" (", MindName(match.EasiestMind), ")");
    facts = Joined("Against ", OneLine(match.Opponent), mind, ".  ");
  }
  if (outcome.Turns > 0) facts += Counted(outcome.Turns, "turn") + ".  ";
  if (outcome.Tokens != 0) {
    facts += Joined(Counted(std::abs(outcome.Tokens), "token"),
                    outcome.Tokens > 0 ? " earned.  " : " lost.  ");
  }
  return facts + Joined("You have ", Counted(State().Players[1].Tokens, "token"), ".");
}

/// A portrait of the list of games.
struct Portrait {
  int Game = 0;
  int Opponent = 0;
};

/// Where the opponent of a match stands in the list now; 0 where it has gone.
Portrait FindPortrait(const MatchRecord& match) {
  const Table<GameRec>& games = State().Games;
  for (int game = 1; game <= games.UpperBound(); ++game) {
    if (games[game].RulesFile != match.RulesFile) continue;
    for (int opponent = 1; opponent <= games[game].OpponentFiles.UpperBound(); ++opponent) {
      if (games[game].OpponentFiles[opponent] == match.OpponentFile &&
          games[game].Opponents[opponent].Name == match.Opponent) {
        return {game, opponent};
      }
    }
  }
  return {};
}

}  // namespace

std::string NewCardsText() {
  constexpr std::size_t kNamed = 8;
  const auto cards = OutcomeOfMatch().NewCards;
  std::string words;
  for (std::size_t index = 0; index < std::min(kNamed, cards.size()); ++index) {
    const auto& [name, count] = cards[index];
    words += Joined(index == 0 ? "New cards: " : ", ", OneLine(name));
    if (count > 1) words += Joined(" (", count, ")");
  }
  if (cards.size() > kNamed) words += Joined(" and ", cards.size() - kNamed, " more");
  return words.empty() ? words : words + ".";
}

MatchEndPanel::MatchEndPanel() {
  Verdict.Headline = true;
  Panel.Visible = false;
  PlayAgain.Caption = "Play Again";
  PlayAgain.ToolTip = "Plays the same opponent once more.  You choose your deck first.";
  PlayAgain.Click = [this] { PlayAgain_Click(); };
  GameList.Caption = "Game List";
  GameList.ToolTip = "Back to the list of games and opponents.";
  GameList.Click = [this] { GameList_Click(); };
  SeeReport.Caption = "See the Report";
  SeeReport.ToolTip = "Hides this and leaves the report of the last turn to read.";
  SeeReport.Click = [this] { SeeReport_Click(); };
}

Layout MatchEndPanel::Arrangement() {
  Layout layout =
      Column({Cell(Verdict), Cell(Facts), Cell(NewCards),
              Row({Cell(PlayAgain), Cell(GameList), Cell(SeeReport), Layout{.Stretch = 1}})});
  layout.Group = &Panel;
  return layout;
}

void MatchEndPanel::Show() {
  const MatchOutcome outcome = OutcomeOfMatch();
  const auto* row = std::ranges::find(kVerdicts, outcome.End, &VerdictRow::End);
  Verdict.Caption =
      State().Match.IsVisit ? std::string("This visit is over.") : std::string(row->Words);
  Verdict.TextColor = State().Match.IsVisit ? kCalmColor : row->Color;
  Facts.Caption = FactsOf(outcome);
  NewCards.Caption = NewCardsText();
  NewCards.Visible = !NewCards.Caption.Get().empty();
  Panel.Visible = true;
  PlayAgain.TakeFocus();
}

void MatchEndPanel::PlayAgain_Click() {
  if (State().TurnRunning == 1) return;
  const MatchRecord match = State().Match;
  if (!LeaveEndedGame() || Desktop().Ending()) return;
  const Portrait portrait = FindPortrait(match);
  if (portrait.Game == 0) {
    Desktop().MessageBox(Joined(match.Opponent, " is not in the list of games any more."));
    return;
  }
  PlayOpponent(portrait.Game, portrait.Opponent);
}

void MatchEndPanel::GameList_Click() {
  if (State().TurnRunning == 0) LeaveEndedGame();
}

void MatchEndPanel::SeeReport_Click() {
  Hide();
  TheMainWindow().Command1.TakeFocus();
}

void ShowMatchEnd() {
  if (State().TestFromEditor == 0 && !State().Match.RulesFile.empty()) TheMainWindow().End.Show();
}

}  // namespace brindlemoor

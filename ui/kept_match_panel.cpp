// Going on with matches that were kept, and keeping the present one.
#include "ui/kept_match_panel.h"

#include <optional>
#include <string>
#include <vector>

#include "core/desktop.h"
#include "core/state.h"
#include "game/game_list.h"
#include "game/kept_matches.h"
#include "game/match_outcome.h"
#include "game/match_results.h"
#include "platform/arrangement.h"
#include "text/one_line.h"
#include "ui/first_steps.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {

namespace {

std::string WordsOf(const KeptMatch& kept) {
  const std::string opponent(OneLine(kept.Opponent));
  return kept.Turns == 0 ? opponent : Joined(opponent, ", turn ", kept.Turns);
}

std::string CaptionOf(const KeptMatch& kept, int game) {
  if (kept.Opponent.empty()) return Joined("Continue: ", OneLine(State().Games[game].Name));
  return Joined("Continue: ", WordsOf(kept));
}

/// Whether a match goes on although files of its game have changed.
bool GoesOnDespite(const std::vector<std::string>& changes, int game) {
  std::string list;
  for (const std::string& change : changes) list += Joined(list.empty() ? "" : ", ", change);
  const std::vector<std::string> captions = {"Go On", "Give Up", "Not Now"};
  const std::size_t chosen =
      Desktop().AskChoice(Joined("Since the match was saved, ", list,
                                 ".  It can go on with its cards as they were, or you give it up."),
                          captions);
  if (chosen == 1) RemoveKeptMatchOrTell(game);
  return chosen == 0;
}

bool CanGoOn(const KeptMatch& kept, int game) {
  if (kept.Problem.empty()) {
    return kept.ChangedFiles.empty() || GoesOnDespite(kept.ChangedFiles, game);
  }
  if (Desktop().AskYesNo(Joined(kept.Problem, "  Remove the saved match?")))
    RemoveKeptMatchOrTell(game);
  return false;
}

}  // namespace

KeptMatchPanel::KeptMatchPanel() {
  Panel.Visible = false;
  for (std::size_t index = 0; index < kMost; ++index) {
    Buttons[index] = std::make_unique<Button>(Joined("Continue(", index, ")"));
    Buttons[index]->Click = [this, index] { ContinueKeptMatch(games_[index]); };
  }
}

Layout KeptMatchPanel::Arrangement() {
  Layout layout = Column({});
  for (const auto& button : Buttons) layout.Children.push_back(Cell(*button));
  layout.Group = &Panel;
  return layout;
}

void KeptMatchPanel::Show() {
  games_ = {};
  std::size_t shown = 0;
  const Table<GameRec>& games = State().Games;
  for (int game = 1; game <= games.UpperBound() && shown < kMost; ++game) {
    const std::optional<KeptMatch> kept = NameOfKeptMatch(game);
    if (!kept) continue;
    Buttons[shown]->Caption = CaptionOf(*kept, game);
    Buttons[shown]->ToolTip = Joined("A match of ", OneLine(games[game].Name), ".");
    games_[shown++] = game;
  }
  for (std::size_t index = 0; index < kMost; ++index) Buttons[index]->Visible = index < shown;
  Panel.Visible = shown > 0;
  if (shown > 0) Buttons[0]->TakeFocus();
}

namespace {

bool MatchHasEnded() {
  const Session& session = State();
  return session.GameOver == 1 && session.TestFromEditor == 0 && !session.Match.IsVisit;
}

}  // namespace

void UncountMatch() {
  if (State().DebugMode == 0 && MatchHasEnded()) UncountEndedMatch();
}

void KeepMatchAfterTurn() {
  const Session& session = State();
  if (session.DebugMode == 1) return;
  std::string problem;
  if (MatchIsRunning()) {
    problem = KeepMatch();
  } else if (MatchHasEnded()) {
    const std::string uncounted = CountEndedMatch();
    problem = RemoveKeptMatch(session.CurrentGame);
    if (problem.empty()) problem = uncounted;
  }
  std::string& told = TheMainWindow().KeepingTold;
  if (!problem.empty() && problem != told) Desktop().MessageBox(problem);
  told = problem;
}

void ContinueKeptMatch(int gameIndex) {
  if (State().TurnRunning == 1) return;
  const std::optional<KeptMatch> kept = KeptMatchOf(gameIndex);
  if (!kept || !CanGoOn(*kept, gameIndex)) {
    TheMainWindow().Kept.Show();
    return;
  }
  BlankSideViews();
  const std::string problem = ContinueMatch(gameIndex);
  if (!problem.empty()) {
    Desktop().MessageBox(problem);
    ShowFirstSteps();
    return;
  }
  ShowOwnCard();
  ShowPlayMenu();
}

bool MayBeginMatch(int gameIndex, int opponentIndex) {
  const Session& session = State();
  const bool isThere =
      session.Games.Holds(gameIndex) && session.Games[gameIndex].OpponentFiles.Holds(opponentIndex);
  if (!isThere || session.DebugMode == 1) return true;
  const std::optional<KeptMatch> kept = NameOfKeptMatch(gameIndex);
  if (!kept) return true;
  const WorkAccount account;
  if (IsStarterDeck(session.Games[gameIndex].OpponentFiles[opponentIndex].Str())) return true;
  if (!kept->Problem.empty()) return true;
  const std::vector<std::string> captions = {"Continue", "New Match", "Cancel"};
  const std::size_t chosen =
      Desktop().AskChoice(Joined("Your match against ", WordsOf(*kept), kept->Turns == 0 ? "" : ",",
                                 " is saved.  A new match takes its place."),
                          captions);
  if (chosen == 0) ContinueKeptMatch(gameIndex);
  return chosen == 1;
}

}  // namespace brindlemoor

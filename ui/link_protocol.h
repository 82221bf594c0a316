// Clicks on links in the views, and the play menu.
#pragma once

#include <string>
#include <utility>

namespace brindlemoor {

/// The handlers of the three views; true cancels the navigation.
bool WB_BeforeNavigate(const std::string& url);
bool InPlayWB_BeforeNavigate(const std::string& url);
bool CardDescWB_BeforeNavigate(const std::string& url);

/// The slot of the table card that a link of the report leads to, 0 for none.
int TableSlotOfLink(const std::string& url);

/// Numbers of the game and the opponent that a link of the list leads to; 0 for other links.
std::pair<int, int> OpponentOfLink(const std::string& url);

/// Begins a match against an opponent of the list, or opens a store: its page is shown.
void PlayOpponent(int gameIndex, int opponentIndex);

/// Shows the player's own card of a match beside the report, until another one is pointed at.
void ShowOwnCard();

/// Lists the planned plays and menu actions in the side view.
void ShowPlayMenu();

}  // namespace brindlemoor

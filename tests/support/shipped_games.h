// ShippedGamesTest: the games that come with the program, on files in memory, and a player.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "game/match_start.h"
#include "game/player_files.h"
#include "game/program_start.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {

class ShippedGamesTest : public SessionTest {
 protected:
  ShippedGamesTest() {
    const std::filesystem::path games = std::string(BRINDLEMOOR_SOURCE_DIR) + "/games";
    for (const auto& entry : std::filesystem::recursive_directory_iterator(games)) {
      if (!entry.is_regular_file()) continue;
      std::ifstream stream(entry.path(), std::ios::binary);
      WriteFile(entry.path().lexically_relative(games).generic_string(),
                std::string(std::istreambuf_iterator<char>(stream), {}));
    }
    State().Profile.PlayerName = "Ann";
    NewGame();
  }

  /// Index of an opponent of the first game, 0 for none.
  static int OpponentNamed(std::string_view name) {
    const Pile& opponents = State().Games[1].Opponents;
    for (int index = 1; index <= opponents.UpperBound(); ++index) {
      if (opponents[index].Name == name) return index;
    }
    return 0;
  }
  /// The next deck manager: the user puts every card of the collection into the deck and plays.
  void ExpectWholeDeck() {
    desktop_->ModalForms.emplace_back([](Form&) {
      DeckManager& manager = TheDeckManager();
      manager.AddAll.Click();
      manager.Command2.Click();
    });
  }
  /// Takes the cards of the starter chest and goes back to the list.
  static void OpenStarterChest() {
    ChooseGame(1, OpponentNamed("Starter Chest"));
    EndGame();
    NewGame();
  }
};

}  // namespace brindlemoor

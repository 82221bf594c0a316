// The word of a level in the player's file.
#include "game/opponent_option.h"

#include "core/desktop.h"
#include "core/mind_levels.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/field_text.h"
#include "data/saving.h"
#include "game/player_file_names.h"

namespace brindlemoor {

namespace {

/// "" while nobody plays.
std::string OptionFileName() {
  const Text& player = State().Profile.PlayerName;
  if (player.empty()) return "";
  return Joined(BeginningOfPlayerFiles(player), "Opponent", kSettingsFileEnding);
}

}  // namespace

void TakeChosenMind() {
  int level = kPlainMind;
  const std::string name = OptionFileName();
  if (!name.empty()) {
    std::string word = Desktop().Files().Read(InProgramFolder(name)).value_or("");
    word.erase(word.find_last_not_of("\r\n") + 1);
    FindMindLevel(word, level);
  }
  State().Minds[2] = static_cast<std::uint8_t>(level);
}

std::string ChooseMind(int level) {
  State().Minds[2] = static_cast<std::uint8_t>(level);
  const std::string name = OptionFileName();
  if (name.empty()) return "";
  const std::string failure = SaveText(InProgramFolder(name), Joined(MindWord(level), kLineEnd));
  return failure.empty() ? "" : Joined("Can't save ", name, ": ", failure);
}

}  // namespace brindlemoor

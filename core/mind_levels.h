// How hard a side may think.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brindlemoor {

/// A level of thinking; its place in the table is its number (Session::Minds).
struct MindLevel {
  std::string_view Word;   ///< on the command line and in files
  std::string_view Name;   ///< in menus and sentences
  std::int64_t Steps = 0;  ///< that one turn may be thought about (core/work_budget.h)
};

/// The mind that judges its cards one by one on the present table (game/opponent.h).
inline constexpr int kPlainMind = 0;
/// One that looks ahead while somebody waits.
inline constexpr int kThoughtfulMind = 1;

inline constexpr std::array<MindLevel, 3> kMindLevels = {{
    {"plain", "Plain", 0},
    {"thoughtful", "Thoughtful", 4'000'000},
    {"deep", "Deep", 40'000'000},
}};

inline constexpr int kHardestMind = static_cast<int>(kMindLevels.size()) - 1;

constexpr std::string_view MindWord(int level) {
  return kMindLevels[static_cast<std::size_t>(level)].Word;
}

constexpr std::string_view MindName(int level) {
  return kMindLevels[static_cast<std::size_t>(level)].Name;
}

/// Finds the level of that word; false for none, and the level stays.
constexpr bool FindMindLevel(std::string_view word, int& level) {
  for (std::size_t index = 0; index < kMindLevels.size(); ++index) {
    if (kMindLevels[index].Word != word) continue;
    level = static_cast<int>(index);
    return true;
  }
  return false;
}

}  // namespace brindlemoor

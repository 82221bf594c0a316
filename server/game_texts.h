// GameTexts: the card files of a game as they are open or on the disk, and the names in them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "check/check_session.h"
#include "check/checked_file.h"

namespace brindlemoor {

/// A card of a file.
struct CardLine {
  const CheckedFile* File = nullptr;
  const CheckedDirective* Directive = nullptr;
  std::string_view Name;
  std::string_view UniqueId;               ///< "" for none
  std::string_view Description;            ///< with its markup
  std::vector<std::string_view> Traits{};  ///< as their lines have them

  /// False for a line that copies a card of another file.
  bool IsInOwnFile() const;
};

/// While it lives the session is one of its own, in the program's folder of the game.
class GameTexts {
 public:
  static constexpr std::size_t kMostBytes = 64 << 20;  ///< that are read

  /// Reads the files of every game that has the file of this path; of one that no game has, the
  /// file and what it includes. Reads through the desktop of the session.
  explicit GameTexts(const std::string& path);
  GameTexts(const GameTexts&) = delete;
  GameTexts& operator=(const GameTexts&) = delete;

  const std::vector<CheckedFile>& Files() const { return files_; }
  /// The file of this path, nullptr for none.
  const CheckedFile* File(std::string_view path) const;
  /// The games of the folder.
  struct Game {
    std::string Name;
    std::string RulesFile;  ///< path
  };
  const std::vector<Game>& Games() const { return games_; }
  /// The path of the file that a reference means, in the program's folder and those beside it; ""
  /// for none.
  std::string PathOfReference(std::string_view reference) const;

  std::vector<CardLine> Cards() const;
  /// Those with a name or unique ID, exactly; those that stand in their own file come first.
  std::vector<CardLine> CardsCalled(std::string_view name) const;
  /// Every name once, in the order of the alphabet. Of traits the spelling that comes first.
  std::vector<std::string> CardNames() const;
  std::vector<std::string> TraitNames() const;
  /// Without folders.
  std::vector<std::string> FileNames() const;

 private:
  void FindGames(const std::string& path);
  void ReadFiles(const std::vector<std::string>& paths);

  CheckSession session_;
  std::vector<std::string> paths_;
  std::vector<CheckedFile> files_;
  std::vector<Game> games_;
};

}  // namespace brindlemoor

// What the targets work in: a session on files in memory, a small table, a small game.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/desktop.h"
#include "core/records.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/memory_files.h"

namespace brindlemoor {

inline constexpr std::string_view kFuzzFolder = "/game";

/// A fresh session; its scripts may do so little that an input takes a moment.
HeadlessPlatform& OpenFuzzProgram(std::unique_ptr<FileSystem> files, std::string folder);

/// The same of the player Ann; what an input leaves behind goes with it.
class FuzzProgram {
 public:
  FuzzProgram(std::unique_ptr<FileSystem> files, std::string folder);
  ~FuzzProgram();
  FuzzProgram(const FuzzProgram&) = delete;
  FuzzProgram& operator=(const FuzzProgram&) = delete;

  HeadlessPlatform& Desktop() { return *desktop_; }

 private:
  HeadlessPlatform* desktop_;
};

/// The same on files in memory.
class FuzzSession : public FuzzProgram {
 public:
  FuzzSession() : FuzzProgram(std::make_unique<MemoryFileSystem>(), std::string(kFuzzFolder)) {}

  /// A file of the program's folder.
  void WriteFile(std::string_view name, std::string_view bytes);
  /// Its bytes, "" when it is not there.
  std::string ReadFile(std::string_view name);
};

/// Ends the program with a word: something that must hold does not.
[[noreturn]] void FuzzFailure(std::string_view what);
inline void MustHold(bool holds, std::string_view what) {
  if (!holds) FuzzFailure(what);
}

/// Ends the program when a page file holds more than text and the markup that is shown.
void MustBeHarmless(const std::string& page);

/// Two player cards and some others with traits, trait actions, hands and decks. Nothing has run.
void LayOutSmallTable();
/// The files of a small game with a starter deck, a store and an opponent, as FolderText.
std::string SmallGame();

/// Files as one text: each begins behind a line "@@ NAME". Names lie in the program's folder.
struct FolderFile {
  std::string Name;
  std::string Bytes;
};
std::string FolderText(const std::vector<FolderFile>& files);
std::vector<FolderFile> FilesOfText(std::string_view text);

/// Puts all cards into the deck and plays, whenever the deck manager comes up.
void PlayDeckManagers(HeadlessPlatform& desktop);
/// The first opponent of a game's list; the element before it is free.
inline constexpr int kFirstOpponent = 2;

/// Plays a few turns against the first opponents of the first game of the folder. Decks are made of
/// all cards.
void PlayOpponents(HeadlessPlatform& desktop);

/// The lines of a text, without their ends.
std::vector<std::string> LinesOf(std::string_view text);

}  // namespace brindlemoor

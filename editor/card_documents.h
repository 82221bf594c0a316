// CardDocuments: the card files whose cards are in the editor.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/records.h"
#include "editor/card_document.h"

namespace brindlemoor {

/// One file, or several: those of a game, or a file and those that it includes. Of several,
/// SourceFile of a card in the list, or the Card of a template, names the file that it stands in; a
/// name that is none of them means the main file.
class CardDocuments {
 public:
  /// A file, of whose cards the list consists.
  void Read(const std::string& path, const Pile& cards);
  /// Fills State().Collection, Templates and CostCard with those of a game's files, sorted by file
  /// and name. What the rules file declares beside cards stays in the session. The names of the
  /// files that can't be read to their end: they are not opened.
  std::vector<std::string> OpenGame(const GameRec& game);
  /// True when the list of the only file is not made of its own cards alone.
  bool IsMixed() const { return documents_.size() == 1 && documents_.front().IsMixed(); }
  /// The same as OpenGame for a file and all that it includes. New cards belong to this file.
  std::vector<std::string> OpenWithIncluded(const std::string& path);

  /// True for several files, of a game or of a file that includes others.
  bool IsOfGame() const { return !game_.empty(); }
  /// The file that new cards belong to, the one with most cards; "" when there is none.
  const std::string& MainFile() const { return mainFile_; }
  /// The files of a game, without folders.
  std::vector<std::string> FileNames() const;
  /// The name of the file that a card stands in, or will when it is saved.
  std::string FileOf(const Card& card) const;
  /// Where unsaved changes of a game are kept: a path beside its rules file that no card file has.
  std::string PathOfCopy() const;
  /// Sorts by file, then by name.
  void Sort(Pile& cards) const;

  /// A file that a save writes.
  struct Change {
    std::string Path;
    std::optional<std::string> Bytes;  ///< nothing where its lines can't be exchanged
  };
  /// The files of a game that would not be the same after a save.
  std::vector<Change> Changes(const Pile& cards, const Table<Template>& templates) const;
  /// The only file with the cards as they are now; nothing when it is to be written anew.
  std::optional<std::string> BytesWith(const Pile& cards, const Table<Template>& templates) const;
  /// False when others have written the file since it was read.
  bool IsAsLeft(const std::string& path) const;
  /// True for a file that was read or saved as a document.
  bool Knows(const std::string& path) const;
  /// A file of the game has been saved.
  void ReadAgain(const std::string& path, const Pile& cards);

 private:
  std::vector<std::string> Open(const std::vector<std::string>& files);
  std::size_t IndexOf(const Text& sourceFile) const;

  std::vector<CardDocument> documents_;
  std::string game_;  // path of the rules file, or of the one that includes the others
  std::string mainFile_;
};

}  // namespace brindlemoor

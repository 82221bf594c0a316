// CardDocument: the card file in the editor as its author wrote it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/records.h"
#include "data/directives.h"
#include "data/stored_text.h"
#include "editor/card_lines.h"

namespace brindlemoor {

/// True for a card that is only brought into a deck here: the file that it names as its own is
/// another one, which is there.
bool IsDeckLine(const Card& card, std::string_view path);

/// Knows where each card of the list stands in its file, so that a save changes the lines of those
/// cards only that have changed. A file that the editor wrote is written anew by SaveCardFile.
class CardDocument {
 public:
  /// Reads a file for the places of its cards. Nothing of it comes into the session. cards are
  /// those that the editor has of it.
  void Read(const std::string& path, const Pile& cards);
  /// The same for a file among others, without those that it includes and without its deck lines.
  /// It is never written anew: see IsRead.
  void ReadAlone(const std::string& path, const Pile& cards);

  const std::string& Path() const { return path_; }
  const std::string& Bytes() const { return file_.Bytes(); }
  /// True when single cards of it can be changed.
  bool IsRead() const { return keepsText_; }
  /// True when the list holds cards of files that this one includes, or lacks cards for them.
  bool IsMixed() const { return isMixed_; }

  /// False when others have written the file since it was read.
  bool IsAsLeft() const;
  /// The bytes of the file with the cards and templates as they are now; nothing when it is to be
  /// written anew. Cards that change or are new belong to the file and get a unique ID.
  std::optional<std::string> BytesWith(const Pile& cards, const Table<Template>& templates) const;

 private:
  /// A card or template of the file.
  struct Entry {
    PileCode Pile = kCollectionPile;
    Template Record;  ///< of a card only Card counts
    CardInFile Lines;
    std::string Key;            ///< what it is compared by
    std::int32_t GlobalID = 0;  ///< of the card in the list
  };
  using Records = std::vector<Template>;
  /// What an entry has become.
  struct Match {
    int Card = -1;  ///< its number among the cards, -1 when it is none of them
    bool IsSame = false;
  };

  void Open(const std::string& path, const Pile& cards, bool alone);
  bool ReadAside(const std::string& bytes, DirectivePlaces* places) const;
  void ReadEntries();
  Records CardsOfFile(const Pile& cards) const;
  void TakeEntries(const DirectivePlaces& places);
  void FollowCards(const Pile& cards);
  std::vector<Match> Find(PileCode pile, const Records& now) const;
  /// Which of the cards that changed are written behind the others, or all, not where they stand.
  enum class Moved : std::uint8_t { kNone, kReferences, kAll, kAllToEnd };
  std::vector<TextEdit> EditsFor(PileCode pile, const Records& now, Moved moved) const;
  bool Says(const std::string& bytes, const Pile& cards, const Table<Template>& templates) const;
  void AddGameFile(std::vector<TextEdit>& edits) const;
  std::string Stamped(Template record, PileCode pile, std::size_t number, const Entry* entry) const;
  std::string_view LocationOfNewCards() const;

  std::string path_;
  StoredText file_;
  std::vector<Entry> entries_;
  std::optional<DirectivePlace> gamePlace_;  ///< of #GAMEFILE
  std::optional<DirectivePlace> lastPlace_;  ///< of the last directive that could be read
  Text gameFile_;                            ///< as the file names it
  bool isAlone_ = false;                     ///< its includes and deck lines are left aside
  bool keepsText_ = false;
  bool isMixed_ = false;
};

}  // namespace brindlemoor

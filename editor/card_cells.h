// CardCells: the cards of the list as rows, with their fields and traits as columns.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/records.h"

namespace brindlemoor {

/// Rows and columns count from 1. Rows are the named cards of State().Collection.
class CardCells {
 public:
  /// What stands in the cell of a trait that has no value; an empty cell is no trait.
  static constexpr std::string_view kBareTrait = "+";

  /// Takes the cards of the list, in its order, and a column for each trait that one of them has,
  /// the most frequent first. files are those that cards can be moved to, none without a game.
  void Load(std::vector<std::string> files);

  int Rows() const { return static_cast<int>(places_.size()); }
  std::vector<std::string> Headings() const;
  std::string Text(int row, int column) const;
  bool CanEdit(int column) const;
  /// Where the card of a row lies in Collection; 0 for no row.
  int PlaceOf(int row) const;
  /// The row of a place; 0 for none.
  int RowOf(int place) const;

  /// Sorts the rows by a column: numbers before texts, empty cells last; once more, the other way.
  void SortBy(int column);
  /// The column of a trait, added when it is new; 0 for a name that no trait can have.
  int AddTrait(std::string_view name);
  /// Puts texts (text/table_text.h) into the cell and those behind and below it: one step of undo.
  /// Only descriptions keep line ends. What was left out and why, "" for nothing.
  std::string Put(int row, int column, std::string_view texts);

  bool CanUndo() const { return steps_ > 0; }
  bool CanRedo() const { return steps_ < static_cast<int>(history_.size()); }
  void Undo();
  void Redo();
  /// True when cards are not as they were when they were loaded.
  bool Changed() const { return steps_ != 0; }

 private:
  enum class Field : std::uint8_t {
    kName,
    kFile,
    kUniqueID,
    kRarity,
    kEntersPlay,
    kTrait,
    kDescription
  };
  struct Column {
    Field What;
    std::string Heading;  ///< of a trait its name
  };
  /// A card before and after a change.
  struct Change {
    int Place;
    Card Before;
    Card After;
  };
  using Step = std::vector<Change>;

  std::string TextOf(const Card& card, const Column& column) const;
  /// "" or why the field can't hold the text.
  std::string Set(Card& card, const Column& column, const std::string& text) const;
  void Keep(Step step);

  std::vector<std::string> files_;
  std::vector<Column> columns_;
  std::vector<int> places_;
  std::vector<Step> history_;
  int steps_ = 0;     // of the history that are done
  int sortedBy_ = 0;  // column, negative the other way
};

}  // namespace brindlemoor

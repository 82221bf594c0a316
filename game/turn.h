// The turn driver.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// One whole turn: card plays of both sides (unless skipPlays is 1), the triggers from TURNSTART to
/// TURNEND in their fixed order, and the report page.
void TakeTurn(int skipPlays);

/// The cells of a side's plays table, five to a row.
class PlayCells {
 public:
  /// A card that was played, by its picture link.
  void AddCard(std::string_view picture);
  /// Text between the cells.
  void AddText(std::string_view html) { html_ += html; }
  const std::string& Html() const { return html_; }

 private:
  std::string html_;
  int column_ = 0;
};

}  // namespace brindlemoor

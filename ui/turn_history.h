// TurnHistory: the reports of the last turns, and the way back before the last one.
#pragma once

#include <deque>
#include <string>

#include "platform/controls.h"

namespace brindlemoor {

/// The reports are kept while the match is on the table; they are not saved with it.
struct TurnHistory {
  TurnHistory();

  static constexpr std::size_t kMostTurns = 10;

  Button Back{"Back"};
  Button Forward{"Forward"};
  MenuItem TakeTurnBack{"taketurnbackmen", "Take the Last Turn Back"};
  MenuItem Allowed{"takingbackmen", "Turns Can Be Taken Back"};  ///< not checked at first

  Layout Arrangement();
  /// Notes the report of the last turn, once.
  void Note();
  /// The coming turn can be taken back to what is on the table now, where the player wants that.
  void NoteBefore();
  /// The match has left the table.
  void Clear();
  /// Another page has come into the main view.
  void StopLooking();
  /// True while an earlier report is shown: its cards are not those of the table.
  bool LooksBack() const { return shown_ + 1 < turns_.size(); }
  /// What the player is told meanwhile, "" at other times.
  std::string WhatIsShown() const;
  void Update();

  void Back_Click();
  void Forward_Click();
  void TakeTurnBack_Click();

 private:
  struct Turn {
    int Number = 0;
    std::string Page;    // bytes of its report
    std::string Before;  // a saved match, "" where it can't be taken back
  };
  void ShowReport(std::size_t index);

  std::deque<Turn> turns_;
  std::size_t shown_ = 0;  // index of the report in the main view
  std::string before_;     // the saved match of the coming turn
};

}  // namespace brindlemoor

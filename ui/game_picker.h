// GamePicker: chooses one of the games in the program's folder.
#pragma once

#include <string_view>

#include "platform/controls.h"

namespace brindlemoor {

struct GamePicker : Form {
  GamePicker();

  Label Label1{"Label1"};
  ListBox List1{"List1"};
  Button Command1{"Command1"};  ///< "OK"
  Button Command2{"Command2"};  ///< "Cancel"
  bool Accepted = false;

  void Command1_Click();
  void Command2_Click();
};

/// Finds the games anew. Index of the one that the user chooses, without a question where there is
/// one only; 0 for none, after a message when there is none to choose.
int AskGame(std::string_view question);

}  // namespace brindlemoor

// ChoiceForm: chooses one item of a list.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"

namespace brindlemoor {

struct ChoiceForm : Form {
  ChoiceForm();

  Label Label1{"Label1"};       ///< the question
  ListBox List1{"List1"};       ///< what there is to choose from
  Button Command1{"Command1"};  ///< "OK"
  Button Command2{"Command2"};  ///< "Cancel"
  bool Accepted = false;

  void Command1_Click();
  void Command2_Click();
};

/// Number of the item that the user chooses, from 1; 0 when nothing was chosen.
int AskChoice(std::string_view question, std::vector<std::string> items);

/// Finds the games anew. Index of the one that the user chooses, without a question where there is
/// one only; 0 for none, after a message when there is none to choose.
int AskGame(std::string_view question);

}  // namespace brindlemoor

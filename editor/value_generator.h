// ValGen: builds a value expression with buttons.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/controls.h"

namespace brindlemoor {

struct ValGen : Form {
  ValGen();

  Label Label1{"Label1"};                           ///< the question
  TextBox Text1{"Text1"};                           ///< the expression
  std::array<std::unique_ptr<Button>, 5> Command1;  ///< 0 to 4: traits and dice
  Button Command2{"Command2"};                      ///< my Global ID
  Button Command3{"Command3"};                      ///< the target's
  Button Command4{"Command4"};                      ///< any amount
  Button Command5{"Command5"};                      ///< "DONE"
  Button CancelButton{"CancelButton"};

  bool Done = false;  ///< the expression is wanted
};

/// Shows the generator modally with a question and an empty box; returns what the box holds when
/// it is done. Nothing when the question was cancelled or the window closed.
std::optional<std::string> AskValue(std::string_view prompt);

}  // namespace brindlemoor

// ValGen: builds a value expression with buttons.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "platform/controls.h"

namespace brindlemoor {

struct ValGen : Form {
  ValGen();

  Label Label1{"Label1"};                           ///< the question
  TextBox Text1{"Text1"};                           ///< the expression, kept while hidden
  std::array<std::unique_ptr<Button>, 5> Command1;  ///< 0 to 4: traits and dice
  Button Command2{"Command2"};                      ///< my Global ID
  Button Command3{"Command3"};                      ///< the target's
  Button Command4{"Command4"};                      ///< any amount
  Button Command5{"Command5"};                      ///< "DONE"
};

/// Shows the generator modally with a question; returns the text of its box when it has been
/// hidden. What the box holds from an earlier use stands before what is added.
std::string AskValue(std::string_view prompt);

}  // namespace brindlemoor

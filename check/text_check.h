// What the texts of cards say against what their scripts and traits do.
#pragma once

#include <string_view>
#include <vector>

#include "check/file_check.h"

namespace brindlemoor {

/// A claim of a text: a number, with the word before it.
struct NumberInText {
  std::string_view Word;    ///< "" where none stands directly before
  std::string_view Number;  ///< digits; a part of the text
  bool IsLimit = false;     ///< "up to 9", "less than 3"
};

/// The numbers that players see in a card's text, but for those in italics: they are mood.
std::vector<NumberInText> NumbersInText(std::string_view text);

/// Remarks on numbers that neither the card's lines nor those of the cards that it makes know, and
/// on traits with a number that they do not name. A limit may be one more or less in a script.
void CheckCardTexts(const SetFacts& facts, std::vector<Finding>& findings);

}  // namespace brindlemoor

// An example for every word of card files, for the reference and for the tests that carry it out.
#pragma once

#include <span>
#include <string_view>

namespace brindlemoor {

/// An action that shows a word at work: #EFFECT, Target, Trigger, "Script".
struct ActionExample {
  std::string_view Word;
  std::string_view Target;
  std::string_view Trigger;
  std::string_view Script;
};

/// A text that shows a word at work: lines of a card file, an expression or a message.
struct TextExample {
  std::string_view Word;
  std::string_view Text;
};

// One row for each word of the table that the name says, in any order.
std::span<const ActionExample> CommandExamples();  // command_examples.cpp
std::span<const ActionExample> TriggerExamples();  // action_examples.cpp
std::span<const ActionExample> TargetExamples();   // action_examples.cpp
std::span<const TextExample> ValueExamples();      // text_examples.cpp
std::span<const TextExample> MessageExamples();    // text_examples.cpp
std::span<const TextExample> DirectiveExamples();  // file_examples.cpp
std::span<const TextExample> LocationExamples();   // file_examples.cpp

/// The row of a word, nullptr for one without an example.
const ActionExample* FindExample(std::span<const ActionExample> rows, std::string_view word);
const TextExample* FindExample(std::span<const TextExample> rows, std::string_view word);

}  // namespace brindlemoor

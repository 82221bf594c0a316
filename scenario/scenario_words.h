// The words of scenario files: a row each. What a reader, the list of words and the document share.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace brindlemoor {

class WordReader;
struct Scene;

enum class WordKind : std::uint8_t {
  kScenario,  ///< begins a scenario
  kInclude,   ///< the lines of another file
  kSeeds,     ///< the scenario is carried out for many seeds
  kSetUp,     ///< lays something out; no script runs
  kBlock,     ///< the same, with the lines up to "end"
  kAct,       ///< lets the engine do something
  kExpect,    ///< says what is there now
};

struct ScenarioWord {
  std::string_view Word;  ///< of an expectation: the word behind "expect"
  WordKind Kind;
  void (*Carry)(Scene& scene, WordReader& line);
  std::string_view Usage;  ///< the whole line, for authors
  std::string_view Help;   ///< one line for authors
};

/// The words that lines begin with, and those that stand behind "expect".
std::span<const ScenarioWord> LayOutWords();
std::span<const ScenarioWord> CardWords();
std::span<const ScenarioWord> ActionWords();
std::span<const ScenarioWord> QuestionWords();
std::span<const ScenarioWord> CardExpectations();
std::span<const ScenarioWord> PageExpectations();

/// The row of a line's first word, or of the word behind "expect"; nullptr for an unknown one.
const ScenarioWord* FindScenarioWord(std::string_view word);
const ScenarioWord* FindExpectation(std::string_view word);

/// Every row, in the order of the document.
struct ScenarioWordGroup {
  std::string_view Title;
  std::span<const ScenarioWord> Rows;
};
std::span<const ScenarioWordGroup> ScenarioWordGroups();

/// The known word of that kind which a mistyped one was most likely meant to be, "" for none.
std::string NearestScenarioWord(std::string_view word, bool expectation);

}  // namespace brindlemoor

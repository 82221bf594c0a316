// Looking words up.
#include "scenario/scenario_words.h"

#include <array>
#include <vector>

#include "lint/word_distance.h"
#include "scenario/scenario_fields.h"

namespace brindlemoor {

namespace {

const ScenarioWord* FindIn(std::span<const ScenarioWord> rows, std::string_view word) {
  for (const ScenarioWord& row : rows) {
    if (row.Word == word) return &row;
  }
  return nullptr;
}

/// The rows for all fields of a card and for all values of the session.
constexpr std::string_view kFieldRow = "FIELD";
constexpr std::string_view kValueRow = "VALUE";

}  // namespace

std::span<const ScenarioWordGroup> ScenarioWordGroups() {
  static const std::array<ScenarioWordGroup, 6> kGroups = {{
      {"Files, rules and the user", LayOutWords()},
      {"Cards", CardWords()},
      {"Actions", ActionWords()},
      {"Questions", QuestionWords()},
      {"Expectations on cards", CardExpectations()},
      {"Expectations on everything else", PageExpectations()},
  }};
  return kGroups;
}

const ScenarioWord* FindScenarioWord(std::string_view word) {
  for (const auto& rows : {LayOutWords(), CardWords(), ActionWords(), QuestionWords()}) {
    if (const ScenarioWord* row = FindIn(rows, word); row != nullptr) return row;
  }
  return nullptr;
}

const ScenarioWord* FindExpectation(std::string_view word) {
  if (word == kFieldRow || word == kValueRow) return nullptr;
  for (const auto& rows : {CardExpectations(), PageExpectations()}) {
    if (const ScenarioWord* row = FindIn(rows, word); row != nullptr) return row;
  }
  if (FindCardField(word) != nullptr) return FindIn(CardExpectations(), kFieldRow);
  return FindSessionValue(word) != nullptr ? FindIn(PageExpectations(), kValueRow) : nullptr;
}

std::string NearestScenarioWord(std::string_view word, bool expectation) {
  std::vector<std::string_view> known;
  for (const ScenarioWordGroup& group : ScenarioWordGroups()) {
    for (const ScenarioWord& row : group.Rows) {
      if (row.Usage.starts_with("expect") != expectation || row.Word == kFieldRow ||
          row.Word == kValueRow) {
        continue;
      }
      known.push_back(row.Word);
    }
  }
  if (expectation) {
    for (const CardFieldRow& row : CardFieldRows()) known.push_back(row.Word);
    for (const SessionValueRow& row : SessionValueRows()) known.push_back(row.Word);
  } else {
    known.push_back("expect");
  }
  return NearestWord(word, known);
}

}  // namespace brindlemoor

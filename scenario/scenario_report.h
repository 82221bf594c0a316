// What scenarios came to: failed expectations and lines that could not be read.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace brindlemoor {

/// A text that takes the place of another in a line of a file: what was there, for what was
/// expected.
struct AcceptedText {
  std::string File;
  int Line = 0;           ///< from 1
  std::size_t Begin = 0;  ///< bytes, from the first one of the line that is no blank
  std::size_t End = 0;
  std::string Text;
  bool IsMade = false;  ///< the file has it now
};

/// Something to tell, with the place of the line that it belongs to.
struct ScenarioFinding {
  bool Unreadable = false;  ///< else a failed expectation
  std::string File;
  int Line = 0;  ///< 0 is the file as a whole
  std::string Text;
  std::string Scenario;                    ///< name, "" for one without
  int Row = 0;                             ///< line of the table's row, 0 for none
  int Seed = 0;                            ///< of "random seeds", 0 for none
  std::optional<AcceptedText> Accepted{};  ///< the change after which it would hold
};

struct ScenarioReport {
  std::vector<ScenarioFinding> Findings;  ///< bounded
  bool Accepts = false;                   ///< Held is wanted
  std::vector<AcceptedText> Held;         ///< what holds now: no change may contradict it
  bool Traces = false;                    ///< Trace is wanted
  std::vector<std::string> Trace;         ///< actions that did nothing, a line each; bounded
  int Line = 0;                           ///< that is being carried out
  int Files = 0;
  int Scenarios = 0;  ///< rows counted one by one
  int Expectations = 0;
  int Failed = 0;
  int Unreadable = 0;

  void Add(ScenarioFinding finding);
};

/// "FILE:LINE: failed: TEXT [SCENARIO, row at line N]" on one line.
std::string ScenarioFindingLine(const ScenarioFinding& finding);

/// A text for a message: on one line, without control characters, and not too long.
std::string ShownText(std::string_view text);

}  // namespace brindlemoor

// Scenario files as lines: what stands in a file before any of it is carried out.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

class MachineFiles;
struct ScenarioWord;

/// Bytes of a line, counted from its first one that is no blank; End is behind the last.
struct ScenarioSpan {
  std::size_t Begin = 0;
  std::size_t End = 0;
};

/// A word of a line, or a text in double quotes.
struct ScenarioToken {
  std::string Text;
  bool Quoted = false;
  ScenarioSpan Span{};  ///< with the quotes
};

/// A line of a file; File is an index in ScenarioText::Files, Line counts from 1.
struct ScenarioPlace {
  int File = 0;
  int Line = 0;
};

struct ScenarioLine {
  ScenarioPlace Place;
  const ScenarioWord* Word = nullptr;
  std::vector<ScenarioToken> Tokens;  ///< the word included
  std::string Block;                  ///< the lines up to "end" of a word that has such
  bool Watched = false;               ///< "expect unchanged" follows before the next action
};

struct ScenarioRow {
  ScenarioPlace Place;
  std::vector<std::string> Cells;
  std::vector<ScenarioSpan> Spans{};  ///< of the cells, with the blanks before the next bar
};

/// One scenario. With a table it is carried out once for each row.
struct ScenarioCase {
  std::string Name;
  ScenarioPlace Place;
  std::vector<ScenarioLine> Lines;
  std::vector<std::string> Columns;
  std::vector<ScenarioRow> Rows;
  int Seeds = 0;  ///< of "random seeds": it is carried out for each of them; 0 without
};

struct ScenarioFault {
  ScenarioPlace Place;
  std::string Text;
};

/// A file and those that it includes.
struct ScenarioText {
  std::vector<std::string> Files;  ///< as named, the file itself first
  std::vector<ScenarioLine> Head;  ///< what every scenario begins with
  std::vector<ScenarioCase> Cases;
  int Seeds = 0;                      ///< of "random seeds" in Head
  std::vector<ScenarioFault> Faults;  ///< bounded
};

/// The lines of a file. A file without a "scenario" line is one scenario without a name.
ScenarioText ReadScenarioText(const std::string& path, MachineFiles& files);

/// Takes a line apart at its blanks. A text in double quotes is one token; two double quotes in it
/// are one. "" or what is wrong.
std::string SplitScenarioLine(std::string_view line, std::vector<ScenarioToken>& tokens);

/// A text as a word of a line: in double quotes unless it is plain. "" for a text that no line can
/// hold: one with line ends, or with braces, in which something could be filled in.
std::string ScenarioWordFor(std::string_view text);

/// True for what can stand in braces: letters, digits, "_" and "-".
bool IsScenarioName(std::string_view text);

}  // namespace brindlemoor

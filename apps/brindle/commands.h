// The commands of the terminal program: a row each, and what they share.
#pragma once

#include <charconv>
#include <iostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

class JournalWriter;

using Arguments = std::span<const std::string_view>;

enum ExitCodes : int {
  kSuccess = 0,
  kFailure = 1,     ///< findings, failed expectations, a match that could not be played
  kWrongUsage = 2,  ///< of the command line, or what was named could not be read
};

struct ToolCommand {
  std::string_view Name;
  std::string_view Usage;
  std::string_view Summary;
  int (*Run)(Arguments arguments);
};

int RunAuto(Arguments arguments);       // auto_command.cpp
int RunCheck(Arguments arguments);      // check_command.cpp
int RunMerge(Arguments arguments);      // merge_command.cpp
int RunNew(Arguments arguments);        // new_command.cpp
int RunPack(Arguments arguments);       // pack_command.cpp
int RunReference(Arguments arguments);  // reference_command.cpp
int RunReplay(Arguments arguments);     // replay_command.cpp
int RunScenario(Arguments arguments);   // scenario_command.cpp
int RunServe(Arguments arguments);      // serve_command.cpp
int RunSim(Arguments arguments);        // sim_command.cpp
int RunUnpack(Arguments arguments);     // unpack_command.cpp
int RunWatch(Arguments arguments);      // watch_command.cpp

int WrongUsage(std::string_view problem, std::string_view text);
/// Tells a problem and returns the code.
int Refuse(std::string_view problem, int code);

/// Begins a journal; it tells on the terminal when it can't go on. "" or why there can be none.
std::string OpenJournal(const std::string& path, JournalWriter& journal);

template <class Number>
bool ReadNumber(std::string_view text, Number& number) {
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  return failure == std::errc() && end == text.data() + text.size();
}

/// An option of a command. Store puts its value away; false when the text is no such value. A flag
/// takes no value: it is stored with "". A value may also stand behind "=" in the same word; a flag
/// takes one only there, and only with MayHaveValue.
template <class Options>
struct Option {
  std::string_view Name;
  bool (*Store)(Options& options, std::string_view value);
  bool IsFlag = false;
  bool MayHaveValue = false;
};

/// Reads options into a record and the other words into operands. kSuccess, or kWrongUsage, which
/// has been told.
template <class Options>
int ReadOptions(Arguments arguments, std::span<const Option<Options>> rows, Options& options,
                std::vector<std::string>& operands) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view word = arguments[i];
    if (!word.starts_with("--")) {
      operands.emplace_back(word);
      continue;
    }
    const std::size_t equals = word.find('=');
    const Option<Options>* found = nullptr;
    for (const Option<Options>& row : rows) {
      if (row.Name == word.substr(0, equals)) found = &row;
    }
    if (found == nullptr) return WrongUsage("unknown option ", word);
    if (equals != word.npos) {
      if (found->IsFlag && !found->MayHaveValue) return WrongUsage("takes no value: ", found->Name);
      const std::string_view value = word.substr(equals + 1);
      if (value.empty() || !found->Store(options, value)) return WrongUsage("not a value: ", word);
      continue;
    }
    if (found->IsFlag) {
      found->Store(options, "");
      continue;
    }
    if (++i == arguments.size()) return WrongUsage("a value is missing behind ", word);
    if (!found->Store(options, arguments[i])) return WrongUsage("not a value: ", arguments[i]);
  }
  return kSuccess;
}

}  // namespace brindlemoor

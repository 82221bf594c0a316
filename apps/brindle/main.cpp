// brindle: the engine on the terminal.
#include <array>
#include <charconv>
#include <iostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "game/automatic_match.h"

namespace {

using brindlemoor::AutomaticMatchOptions;
using Arguments = std::span<const std::string_view>;

enum ExitCodes : int { kSuccess = 0, kFailure = 1, kWrongUsage = 2 };

struct Command {
  std::string_view Name;
  std::string_view Usage;
  std::string_view Summary;
  int (*Run)(Arguments arguments);
};

int WrongUsage(std::string_view problem, std::string_view text) {
  std::cerr << "brindle: " << problem << text << "\nTry: brindle --help\n";
  return kWrongUsage;
}

template <class Number>
bool ReadNumber(std::string_view text, Number& number) {
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  return failure == std::errc() && end == text.data() + text.size();
}

/// A place for the value of an option; false when the text is no such value.
struct Option {
  std::string_view Name;
  bool (*Store)(AutomaticMatchOptions& options, std::string_view value);
};
constexpr std::array<Option, 4> kAutoOptions = {{
    {"--seed", [](AutomaticMatchOptions& o, std::string_view v) { return ReadNumber(v, o.Seed); }},
    {"--turns",
     [](AutomaticMatchOptions& o, std::string_view v) {
       return ReadNumber(v, o.MaximumTurns) && o.MaximumTurns >= 1;
     }},
    {"--opponent", [](AutomaticMatchOptions& o,
                      std::string_view v) { return ReadNumber(v, o.Opponent) && o.Opponent >= 1; }},
    {"--pages",
     [](AutomaticMatchOptions& o, std::string_view v) {
       o.PagesFolder = v;
       return !v.empty();
     }},
}};

int ReadOptions(Arguments arguments, AutomaticMatchOptions& options) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view word = arguments[i];
    if (!word.starts_with("--")) {
      if (!options.Folder.empty()) return WrongUsage("one folder only: ", word);
      options.Folder = word;
      continue;
    }
    const Option* found = nullptr;
    for (const Option& option : kAutoOptions) {
      if (option.Name == word) found = &option;
    }
    if (found == nullptr) return WrongUsage("unknown option ", word);
    if (++i == arguments.size()) return WrongUsage("a value is missing behind ", word);
    if (!found->Store(options, arguments[i])) return WrongUsage("not a value: ", arguments[i]);
  }
  return kSuccess;
}

int RunAuto(Arguments arguments) {
  AutomaticMatchOptions options;
  options.PagesFolder = "brindle-pages";
  if (const int wrong = ReadOptions(arguments, options); wrong != kSuccess) return wrong;
  if (options.Folder.empty()) options.Folder = ".";
  const auto result = brindlemoor::AutomaticMatch(options, std::cout);
  if (!result.Error.empty()) {
    std::cerr << "brindle: " << result.Error << '\n';
    return kFailure;
  }
  std::cout << "Pages: " << options.PagesFolder << '\n';
  return kSuccess;
}

constexpr std::array<Command, 1> kCommands = {{
    {"auto", "auto [FOLDER] [--seed N] [--pages DIR] [--turns N] [--opponent K]",
     "Plays a match of the folder's first game by itself and keeps its report pages.", RunAuto},
}};

void PrintHelp() {
  std::cout << "brindle plays card games on the terminal.\n\n";
  for (const Command& command : kCommands) {
    std::cout << "  brindle " << command.Usage << "\n      " << command.Summary << '\n';
  }
  std::cout << "  brindle --help\n      Shows this.\n";
}

}  // namespace

int main(int count, char** words) {
  std::vector<std::string_view> arguments(words + (count > 0 ? 1 : 0), words + count);
  if (arguments.empty()) {
    PrintHelp();
    return kWrongUsage;
  }
  if (arguments[0] == "--help" || arguments[0] == "help") {
    PrintHelp();
    return kSuccess;
  }
  for (const Command& command : kCommands) {
    if (command.Name == arguments[0]) return command.Run(Arguments(arguments).subspan(1));
  }
  return WrongUsage("unknown command ", arguments[0]);
}

// Reading the command line.
#include "apps/brindlemoor/options.h"

#include <charconv>

namespace brindlemoor {

namespace {

std::optional<std::uint64_t> ReadNumber(const std::string& text) {
  std::uint64_t number = 0;
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (text.empty() || error != std::errc{} || rest != end) return std::nullopt;
  return number;
}

}  // namespace

Options ReadOptions(const std::vector<std::string>& arguments) {
  constexpr std::string_view kSeed = "--seed";
  Options options;
  bool onlyFolders = false;
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    const std::string& argument = arguments[index];
    if (onlyFolders || !argument.starts_with("-")) {
      if (!options.Folder.empty()) options.Error = "More than one folder was given.";
      if (argument.empty()) options.Error = "The folder's name is empty.";
      options.Folder = argument;
    } else if (argument == "--") {
      onlyFolders = true;
    } else if (argument == "--help" || argument == "-h") {
      options.Help = true;
    } else if (argument == "--version") {
      options.Version = true;
    } else if (argument == "--debug") {
      options.Debug = true;
    } else if (argument == kSeed || argument.starts_with("--seed=")) {
      std::string number;
      if (argument != kSeed) {
        number = argument.substr(kSeed.size() + 1);
      } else if (index + 1 < arguments.size()) {
        number = arguments[++index];
      }
      options.Seed = ReadNumber(number);
      if (!options.Seed) options.Error = "--seed needs a number, 0 or above.";
    } else {
      options.Error = "There is no option \"" + argument + "\".";
    }
  }
  return options;
}

const char* HelpText() {
  return R"(Usage: brindlemoor [FOLDER] [--seed N] [--debug]

Plays the card games whose files lie in FOLDER. Without FOLDER that is the
program's own folder if it holds games, else $XDG_DATA_HOME/brindlemoor (or
~/.local/share/brindlemoor), which the first start fills with the games that
come with the program.

  --seed N    the same cards and rolls every time
  --debug     extra lines on pages; players are not saved
  --help      this text
  --version   the version
)";
}

}  // namespace brindlemoor

// Reading the command line.
#include "apps/brindlemoor/options.h"

#include <charconv>
#include <limits>
#include <string_view>

namespace brindlemoor {

namespace {

std::optional<std::uint64_t> ReadNumber(const std::string& text) {
  std::uint64_t number = 0;
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (text.empty() || error != std::errc{} || rest != end) return std::nullopt;
  return number;
}

/// An option with a number, in the next argument or behind "=".
struct NumberOption {
  std::string_view Name;
  std::optional<std::uint64_t> Options::*Value;
  std::uint64_t Most;
  const char* Wanted;
};
constexpr NumberOption kNumberOptions[] = {
    {"--seed", &Options::Seed, std::numeric_limits<std::uint64_t>::max(), "a number, 0 or above"},
    {"--quality", &Options::Quality, 100, "a number from 0 to 100"},
};

/// The row of an argument such as "--seed" or "--seed=7".
const NumberOption* FindNumberOption(std::string_view argument) {
  const std::string_view name = argument.substr(0, argument.find('='));
  for (const NumberOption& option : kNumberOptions) {
    if (option.Name == name) return &option;
  }
  return nullptr;
}

}  // namespace

Options ReadOptions(const std::vector<std::string>& arguments) {
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
    } else if (argument == "--compose") {
      options.Compose = true;
    } else if (const NumberOption* option = FindNumberOption(argument)) {
      std::string number;
      if (argument.size() > option->Name.size()) {
        number = argument.substr(option->Name.size() + 1);
      } else if (index + 1 < arguments.size()) {
        number = arguments[++index];
      }
      auto& value = options.*option->Value;
      value = ReadNumber(number);
      if (!value || *value > option->Most) {
        options.Error = std::string(option->Name) + " needs " + option->Wanted + ".";
      }
    } else {
      options.Error = "There is no option \"" + argument + "\".";
    }
  }
  if (options.Error.empty() && options.Compose && options.Folder.empty()) {
    options.Error = "--compose needs a folder.";
  }
  if (options.Error.empty() && options.Quality && !options.Compose) {
    options.Error = "--quality goes with --compose.";
  }
  return options;
}

const char* HelpText() {
  return R"(Usage: brindlemoor [FOLDER] [--seed N] [--debug]
       brindlemoor FOLDER --compose [--quality N]

Plays the card games whose files lie in FOLDER. Without FOLDER that is the
program's own folder if it holds games, else $XDG_DATA_HOME/brindlemoor (or
~/.local/share/brindlemoor), which the first start fills with the games that
come with the program.

  --seed N    the same cards and rolls every time
  --debug     extra lines on pages; players are not saved
  --compose   composes the card images that the lists "CardImages.list" of
              FOLDER and the folders directly below record, and ends; needs
              no display
  --quality N of the large images, from 0 to 100, else 100
  --help      this text
  --version   the version
)";
}

}  // namespace brindlemoor

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

/// An option with a number.
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

/// The value of an option that stands at an index: behind "=" or in the next argument, to which the
/// index moves; "" when there is none. Nothing for any other argument.
std::optional<std::string> TakeValue(std::string_view option,
                                     const std::vector<std::string>& arguments,
                                     std::size_t& index) {
  const std::string& argument = arguments[index];
  if (!argument.starts_with(option)) return std::nullopt;
  if (argument.size() > option.size()) {
    if (argument[option.size()] != '=') return std::nullopt;
    return argument.substr(option.size() + 1);
  }
  return index + 1 < arguments.size() ? arguments[++index] : std::string();
}

/// Takes a number option that stands at an index; false when there is none.
bool TakeNumber(Options& options, const std::vector<std::string>& arguments, std::size_t& index) {
  for (const NumberOption& option : kNumberOptions) {
    const auto number = TakeValue(option.Name, arguments, index);
    if (!number) continue;
    auto& value = options.*option.Value;
    value = ReadNumber(*number);
    if (!value || *value > option.Most) {
      options.Error = std::string(option.Name) + " needs " + option.Wanted + ".";
    }
    return true;
  }
  return false;
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
    } else if (const auto journal = TakeValue("--journal", arguments, index)) {
      options.Journal = *journal;
      if (journal->empty()) options.Error = "--journal needs a file or a folder.";
    } else if (const auto archive = TakeValue("--open", arguments, index)) {
      options.Archive = *archive;
      if (archive->empty()) options.Error = "--open needs an archive.";
    } else if (TakeNumber(options, arguments, index)) {
      continue;
    } else {
      options.Error = "There is no option \"" + argument + "\".";
    }
  }
  if (options.Error.empty() && options.Compose && options.Folder.empty()) {
    options.Error = "--compose needs a folder.";
  }
  if (options.Error.empty() && !options.Archive.empty() &&
      (options.Compose || !options.Journal.empty())) {
    options.Error = "--open goes neither with --compose nor with --journal.";
  }
  if (options.Error.empty() && options.Quality && !options.Compose) {
    options.Error = "--quality goes with --compose.";
  }
  return options;
}

const char* HelpText() {
  return R"(Usage: brindlemoor [FOLDER] [--open ARCHIVE] [--seed N] [--debug]
                   [--journal FILE]
       brindlemoor ARCHIVE
       brindlemoor FOLDER --compose [--quality N]

Plays the card games whose files lie in FOLDER. Without FOLDER that is the
program's own folder if it holds games, else $XDG_DATA_HOME/brindlemoor (or
~/.local/share/brindlemoor), which the first start fills with the games that
come with the program.

  --open ARCHIVE  shows the game of an archive and asks whether to put it into
                  FOLDER; an archive in place of FOLDER means the same
  --seed N        the same cards and rolls every time
  --debug         extra lines on pages; players are not saved
  --journal FILE  writes down the session for "brindle replay FILE", even if it
                  ends in a crash; in a folder the journal gets a name of its own
  --compose       composes the card images that the lists "CardImages.list" of
                  FOLDER and the folders directly below record, and ends; needs
                  no display
  --quality N     of the large images, from 0 to 100, else 100
  --help          shows these options
  --version       shows the version
)";
}

}  // namespace brindlemoor

// brindle auto: a match that plays itself.
#include <array>

#include "apps/brindle/commands.h"
#include "game/automatic_match.h"

namespace brindlemoor {

namespace {

using Options = AutomaticMatchOptions;
constexpr std::array<Option<Options>, 5> kOptions = {{
    {"--game",
     [](Options& o, std::string_view v) {
       o.Game = v;
       return !v.empty();
     }},
    {"--seed", [](Options& o, std::string_view v) { return ReadNumber(v, o.Seed); }},
    {"--turns",
     [](Options& o, std::string_view v) {
       return ReadNumber(v, o.MaximumTurns) && o.MaximumTurns >= 1;
     }},
    {"--opponent",
     [](Options& o, std::string_view v) { return ReadNumber(v, o.Opponent) && o.Opponent >= 1; }},
    {"--pages",
     [](Options& o, std::string_view v) {
       o.PagesFolder = v;
       return !v.empty();
     }},
}};

}  // namespace

int RunAuto(Arguments arguments) {
  AutomaticMatchOptions options;
  options.PagesFolder = "brindle-pages";
  std::vector<std::string> folders;
  const int wrong = ReadOptions<Options>(arguments, kOptions, options, folders);
  if (wrong != kSuccess) return wrong;
  if (folders.size() > 1) return WrongUsage("one folder only: ", folders[1]);
  options.Folder = folders.empty() ? "." : folders[0];
  const auto result = AutomaticMatch(options, std::cout);
  if (!result.Error.empty()) {
    std::cerr << "brindle: " << result.Error << '\n';
    return kFailure;
  }
  std::cout << "Pages: " << options.PagesFolder << '\n';
  return kSuccess;
}

}  // namespace brindlemoor

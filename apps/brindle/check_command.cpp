// brindle check: what is wrong in card files.
#include <algorithm>
#include <array>

#include "apps/brindle/commands.h"
#include "check/game_check.h"
#include "core/state.h"
#include "platform/headless/headless_platform.h"
#include "simulation/automatic_match.h"

namespace brindlemoor {

namespace {

struct CheckOptions {
  bool Json = false;
  bool Codes = false;
};
constexpr std::array<Option<CheckOptions>, 2> kOptions = {{
    {"--json", [](CheckOptions& o, std::string_view) { return o.Json = true; }, true},
    {"--codes", [](CheckOptions& o, std::string_view) { return o.Codes = true; }, true},
}};

constexpr std::size_t kLevelWidth = 9;

void PrintCodes() {
  for (const FindingRow& row : FindingRows()) {
    const std::string_view level = WordOf(row.Level);
    std::cout << level << std::string(kLevelWidth - level.size(), ' ') << row.Word << ": "
              << row.Meaning << '\n';
  }
}

/// Findings name files as they were given; inside, paths are absolute.
struct GivenPath {
  std::string Absolute;
  std::string Given;
};

void NameAsGiven(std::vector<Finding>& findings, const std::vector<GivenPath>& paths) {
  for (Finding& finding : findings) {
    for (const GivenPath& path : paths) {
      if (!finding.File.starts_with(path.Absolute)) continue;
      finding.File = path.Given + finding.File.substr(path.Absolute.size());
      break;
    }
  }
}

}  // namespace

int RunCheck(Arguments arguments) {
  CheckOptions options;
  std::vector<std::string> operands;
  const int wrong = ReadOptions<CheckOptions>(arguments, kOptions, options, operands);
  if (wrong != kSuccess) return wrong;
  if (options.Codes) {
    PrintCodes();
    return kSuccess;
  }
  if (operands.empty()) return WrongUsage("a folder or file is missing behind ", "check");
  std::vector<GivenPath> given;
  std::vector<std::string> paths;
  for (std::string& operand : operands) {
    while (operand.size() > 1 && operand.back() == '/') operand.pop_back();
    paths.push_back(AbsoluteFolder(operand));
    given.push_back({paths.back(), operand});
  }
  State().Desktop = std::make_shared<HeadlessPlatform>(std::make_unique<LocalFileSystem>());
  CheckResult result = CheckPaths(paths);
  NameAsGiven(result.Findings, given);
  if (options.Json) {
    std::cout << FindingsAsJson(result.Findings);
  } else {
    for (const Finding& finding : result.Findings) std::cout << FindingLine(finding) << '\n';
    std::cerr << result.Files << " files, " << result.Findings.size() << " findings\n";
  }
  if (!result.CouldRead) return kWrongUsage;
  if (result.Files == 0) {
    std::cerr << "brindle: there are no card files\n";
    return kWrongUsage;
  }
  const bool onlyRemarks = std::ranges::all_of(result.Findings, [](const Finding& finding) {
    return RowOf(finding.Code).Level == Severity::kRemark;
  });
  return onlyRemarks ? kSuccess : kFailure;
}

}  // namespace brindlemoor

// brindle scenario: tests of cards, written as small text files.
#include <algorithm>
#include <array>
#include <filesystem>
#include <map>

#include "apps/brindle/commands.h"
#include "apps/brindle/output_file.h"
#include "core/strings.h"
#include "platform/files.h"
#include "scenario/accepting.h"
#include "scenario/card_places.h"
#include "scenario/scenario_fields.h"
#include "scenario/scenario_run.h"
#include "scenario/scenario_words.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

struct ScenarioOptions {
  bool Words = false;
  bool Trace = false;
  bool Accept = false;
};
constexpr std::array<Option<ScenarioOptions>, 3> kOptions = {{
    {"--accept", [](ScenarioOptions& o, std::string_view) { return o.Accept = true; }, true},
    {"--trace", [](ScenarioOptions& o, std::string_view) { return o.Trace = true; }, true},
    {"--words", [](ScenarioOptions& o, std::string_view) { return o.Words = true; }, true},
}};

template <class Rows>
void PrintNames(std::string_view title, const Rows& rows) {
  std::cout << title << ":\n";
  for (const auto& row : rows) std::cout << "  " << row.Word << "\n      " << row.Meaning << '\n';
}

void PrintWords() {
  for (const ScenarioWordGroup& group : ScenarioWordGroups()) {
    std::cout << group.Title << ":\n";
    for (const ScenarioWord& row : group.Rows) {
      std::cout << "  " << row.Usage << "\n      " << row.Help << '\n';
    }
  }
  PrintNames("Places", PlaceRows());
  PrintNames("Fields of a card", CardFieldRows());
  PrintNames("Values of the session", SessionValueRows());
}

/// A file, or the text files of a folder by name.
std::vector<std::string> FilesOf(const std::string& operand) {
  std::error_code failure;
  if (!fs::is_directory(operand, failure)) return {operand};
  std::vector<std::string> files;
  fs::directory_iterator entry(operand, failure);
  for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
    if (entry->path().extension() == ".txt") files.push_back(entry->path().generic_string());
  }
  std::ranges::sort(files);
  return files;
}

/// Writes into the files what was there in place of what they expected, and takes those findings
/// out of the report. False when a file could not be written.
bool Accept(ScenarioReport& report) {
  std::map<std::string, std::vector<AcceptedText*>> changes;
  for (ScenarioFinding& finding : report.Findings) {
    if (finding.Accepted) changes[finding.Accepted->File].push_back(&*finding.Accepted);
  }
  for (AcceptedText& held : report.Held) {
    const auto ofFile = changes.find(held.File);
    if (ofFile != changes.end()) ofFile->second.push_back(&held);
  }
  for (const auto& [path, ofFile] : changes) {
    const auto bytes = LocalFileSystem().Read(path);
    const std::string changed = WithAccepted(bytes.value_or(""), ofFile);
    const std::string problem = bytes && changed != *bytes ? WriteOutput(path, changed) : "";
    if (!problem.empty()) {
      Refuse(problem, kFailure);
      return false;
    }
  }
  std::erase_if(report.Findings, [&](const ScenarioFinding& finding) {
    if (!finding.Accepted || !finding.Accepted->IsMade) return false;
    const AcceptedText& made = *finding.Accepted;
    std::cout << made.File << ':' << made.Line << ": accepted: " << Trimmed(made.Text) << '\n';
    --report.Failed;
    return true;
  });
  report.Held.clear();
  return true;
}

/// What a file came to, at once: a later one may take long.
void Print(ScenarioReport& report) {
  for (const std::string& line : report.Trace) std::cout << line << '\n';
  report.Trace.clear();
  for (const ScenarioFinding& finding : report.Findings) {
    std::cout << ScenarioFindingLine(finding) << '\n';
  }
  std::cout.flush();
  report.Findings.clear();
}

}  // namespace

int RunScenario(Arguments arguments) {
  ScenarioOptions options;
  std::vector<std::string> operands;
  const int wrong = ReadOptions<ScenarioOptions>(arguments, kOptions, options, operands);
  if (wrong != kSuccess) return wrong;
  if (options.Words) {
    PrintWords();
    return kSuccess;
  }
  if (operands.empty()) return WrongUsage("a file is missing behind ", "scenario");
  ScenarioLibrary library;
  ScenarioReport report;
  report.Traces = options.Trace;
  report.Accepts = options.Accept;
  for (const std::string& operand : operands) {
    const std::vector<std::string> files = FilesOf(operand);
    if (files.empty()) return WrongUsage("there are no text files in ", operand);
    for (const std::string& file : files) {
      RunScenarioFile(file, library, report);
      if (options.Accept && !Accept(report)) return kFailure;
      Print(report);
    }
  }
  std::cerr << report.Files << " files, " << report.Scenarios << " scenarios, "
            << report.Expectations << " expectations: " << report.Failed << " failed, "
            << report.Unreadable << " could not be read\n";
  if (report.Unreadable > 0) return kWrongUsage;
  return report.Failed > 0 ? kFailure : kSuccess;
}

}  // namespace brindlemoor

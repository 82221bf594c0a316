// brindle scenario: tests of cards, written as small text files.
#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <set>

#include "apps/brindle/commands.h"
#include "apps/brindle/journal_file.h"
#include "apps/brindle/output_file.h"
#include "archive/zip_library.h"
#include "core/strings.h"
#include "journal/turn_scenario.h"
#include "platform/files.h"
#include "scenario/accepting.h"
#include "scenario/card_places.h"
#include "scenario/scenario_fields.h"
#include "scenario/scenario_run.h"
#include "scenario/scenario_words.h"
#include "simulation/automatic_match.h"
#include "text/encoding.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

struct ScenarioOptions {
  bool Words = false;
  bool Trace = false;
  bool Accept = false;
  std::string From;  ///< a journal; the operand is the folder of its game then
  int Turn = 0;
  std::string Out;
};
constexpr std::array<Option<ScenarioOptions>, 6> kOptions = {{
    {"--accept", [](ScenarioOptions& o, std::string_view) { return o.Accept = true; }, true},
    {"--from",
     [](ScenarioOptions& o, std::string_view v) {
       o.From = v;
       return !v.empty();
     }},
    {"--out",
     [](ScenarioOptions& o, std::string_view v) {
       o.Out = v;
       return !v.empty();
     }},
    {"--trace", [](ScenarioOptions& o, std::string_view) { return o.Trace = true; }, true},
    {"--turn",
     [](ScenarioOptions& o, std::string_view v) { return ReadNumber(v, o.Turn) && o.Turn >= 1; }},
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
    std::error_code failure;
    const std::string real = fs::canonical(path, failure).generic_string();
    const auto bytes = LocalFileSystem().Read(real);
    if (bytes && DecodeFileText(*bytes) != *bytes) {
      std::cout << path << ": is not changed: it begins with a mark, or is no UTF-8\n";
      continue;
    }
    const std::string changed = WithAccepted(bytes.value_or(""), ofFile);
    const std::string problem = bytes && changed != *bytes ? WriteOutput(real, changed) : "";
    if (!problem.empty()) {
      Refuse(problem, kFailure);
      return false;
    }
  }
  std::set<std::string> told;
  std::erase_if(report.Findings, [&](const ScenarioFinding& finding) {
    if (!finding.Accepted || !finding.Accepted->IsMade) return false;
    const AcceptedText& made = *finding.Accepted;
    const std::string line =
        Joined(made.File, ":", made.Line, ": accepted: ", Trimmed(made.Text), "\n");
    if (told.insert(line).second) std::cout << line;
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

/// The folder as seen from the one that a file goes to.
std::string SeenFrom(const fs::path& file, const std::string& folder) {
  const std::string seen = fs::path(folder).lexically_relative(file.parent_path()).generic_string();
  return seen.empty() ? folder : seen;
}

/// Writes a turn of a journal as a scenario, with the match beside it.
int TakeFromJournal(const ScenarioOptions& options, const std::vector<std::string>& operands) {
  if (options.Turn == 0) return WrongUsage("the number of a turn is missing: ", "--turn N");
  if (operands.size() > 1) return WrongUsage("one folder only: ", operands[1]);
  Journal journal;
  const std::string unread = ReadJournalFile(options.From, journal);
  if (!unread.empty()) return Refuse(unread, kWrongUsage);
  const std::string name =
      options.Out.empty() ? Joined("turn-", options.Turn, ".txt") : options.Out;
  const fs::path file = AbsoluteFolder(name);
  const fs::path match = fs::path(file).replace_extension(".match");
  if (match == file) return WrongUsage("the match goes to this file: ", name);
  std::error_code failure;
  for (const fs::path& path : {file, match}) {
    if (fs::exists(path, failure)) {
      return Refuse(Joined(path.generic_string(), " is there already"), kWrongUsage);
    }
  }
  ReplayOptions replay;
  replay.Archives = std::make_shared<ZipLibrary>();
  replay.Folder = operands.empty() ? journal.Folder : AbsoluteFolder(operands[0]);
  const TurnScenario scenario =
      ScenarioOfTurn(journal, replay, options.Turn, match.filename().generic_string(),
                     SeenFrom(file, replay.Folder));
  if (!scenario.Problem.empty()) return Refuse(scenario.Problem, kFailure);
  std::string problem = WriteOutput(match.generic_string(), scenario.Match);
  if (problem.empty()) problem = WriteOutput(file.generic_string(), scenario.Text);
  if (!problem.empty()) return Refuse(problem, kFailure);
  std::cout << name << '\n';
  return kSuccess;
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
  if (!options.From.empty()) return TakeFromJournal(options, operands);
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

// brindle scenario: tests of cards, written as small text files.
#include <algorithm>
#include <array>
#include <charconv>
#include <csignal>
#include <filesystem>
#include <unistd.h>

#include "apps/brindle/commands.h"
#include "core/text.h"
#include "scenario/card_places.h"
#include "scenario/scenario_fields.h"
#include "scenario/scenario_run.h"
#include "scenario/scenario_words.h"

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

struct ScenarioOptions {
  bool Words = false;
};
constexpr std::array<Option<ScenarioOptions>, 1> kOptions = {{
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

/// The engine bounds each run of a script, but not how many a turn is made of: a file whose turn
/// does not end is stopped by the clock. A signal's handler reaches nothing but what is static.
class Watchdog {
 public:
  Watchdog(const std::string& file, const ScenarioReport& report) {
    file_ = file.c_str();
    report_ = &report;
    std::signal(SIGALRM, Bark);
    alarm(kSeconds);
  }
  ~Watchdog() { alarm(0); }
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

 private:
  static constexpr unsigned kSeconds = 90;

  static void Say(std::string_view text) {
    if (write(STDOUT_FILENO, text.data(), text.size()) < 0) _exit(kWrongUsage);
  }
  static void Bark(int) {
    std::array<char, 16> line{};
    const auto end = std::to_chars(line.data(), line.data() + line.size(), report_->Line).ptr;
    Say(file_);
    Say(":");
    Say({line.data(), static_cast<std::size_t>(end - line.data())});
    Say(": error: This line takes too long. Nothing behind it was carried out.\n");
    _exit(kWrongUsage);
  }

  static inline const char* file_ = nullptr;
  static inline const ScenarioReport* report_ = nullptr;
};

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

/// What a file came to, at once: a later one may be stopped.
void Print(ScenarioReport& report) {
  if (report.Findings.empty()) return;
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
  for (const std::string& operand : operands) {
    const std::vector<std::string> files = FilesOf(operand);
    if (files.empty()) return WrongUsage("there are no text files in ", operand);
    for (const std::string& file : files) {
      const Watchdog watchdog(file, report);
      RunScenarioFile(file, library, report);
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

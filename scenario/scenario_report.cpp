// Findings as lines.
#include "scenario/scenario_report.h"

#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kFindings = 1000;
constexpr std::size_t kShownBytes = 4000;

}  // namespace

void ScenarioReport::Add(ScenarioFinding finding) {
  ++(finding.Unreadable ? Unreadable : Failed);
  if (Findings.size() < kFindings) Findings.push_back(std::move(finding));
}

std::string ShownText(std::string_view text) {
  const bool tooLong = text.size() > kShownBytes;
  std::size_t end = tooLong ? kShownBytes : text.size();
  while (tooLong && end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  std::string shown(text.substr(0, end));
  for (char& character : shown) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte < 0x20 || byte == 0x7F) character = ' ';
  }
  return tooLong ? Joined(shown, "... (", text.size(), " bytes)") : shown;
}

std::string ScenarioFindingLine(const ScenarioFinding& finding) {
  std::string line = ShownText(finding.File);
  if (finding.Line > 0) line += Joined(":", finding.Line);
  line += Joined(finding.Unreadable ? ": error: " : ": failed: ", finding.Text);
  std::string where = ShownText(finding.Scenario);
  if (finding.Row > 0) where += Joined(where.empty() ? "" : ", ", "row at line ", finding.Row);
  if (finding.Seed > 0) where += Joined(where.empty() ? "" : ", ", "seed ", finding.Seed);
  return where.empty() ? line : Joined(line, " [", where, "]");
}

}  // namespace brindlemoor

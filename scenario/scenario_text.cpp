// Reading scenario files into lines, scenarios and tables.
#include "scenario/scenario_text.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

#include "core/replacing.h"
#include "core/strings.h"
#include "scenario/machine_files.h"
#include "scenario/scenario_report.h"
#include "scenario/scenario_words.h"
#include "text/encoding.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kFileBytes = 4U << 20;
constexpr int kIncludes = 100;
constexpr int kSeeds = 10000;
constexpr std::size_t kLines = 200000;
constexpr std::size_t kFaults = 20;  // of a file; more would tell nothing new
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kBlockEnd = "end";

/// Where the text in quotes ends that a cell begins with; 0 when it begins otherwise, or when more
/// than blanks stand between that text and the next bar.
std::size_t EndOfQuotedCell(std::string_view line) {
  std::size_t at = line.find_first_not_of(kBlanks);
  if (at == std::string_view::npos || line[at] != '"') return 0;
  while (true) {
    at = line.find('"', at + 1);
    if (at == std::string_view::npos) return 0;
    ++at;
    if (at == line.size() || line[at] != '"') break;
  }
  const std::size_t next = line.find_first_not_of(kBlanks, at);
  return next == std::string_view::npos || line[next] == '|' ? at : 0;
}

/// What a cell says: a text in quotes is written as everywhere, in others quotes are characters.
std::string CellText(std::string_view cell) {
  if (EndOfQuotedCell(cell) != cell.size() || cell.empty()) return std::string(cell);
  return ReplacedCopy(cell.substr(1, cell.size() - 2), "\"\"", "\"");
}

/// What of a cell another text may take: all but a blank at each end.
ScenarioSpan SpanOfCell(std::string_view cell, std::size_t begin) {
  const auto isBlank = [](char character) { return kBlanks.find(character) != kBlanks.npos; };
  const std::size_t first = !cell.empty() && isBlank(cell.front()) ? 1 : 0;
  const std::size_t last =
      cell.size() > first && isBlank(cell.back()) ? cell.size() - 1 : cell.size();
  return {begin + first, begin + last};
}

/// The cells between the bars of a table's line. A bar divides where blanks stand around it.
ScenarioRow RowOf(ScenarioPlace place, std::string_view line) {
  ScenarioRow row{place, {}, {}};
  const char* const begin = line.data();
  line.remove_prefix(1);
  while (true) {
    std::size_t bar = line.find('|', EndOfQuotedCell(line));
    while (bar != std::string_view::npos &&
           ((bar > 0 && kBlanks.find(line[bar - 1]) == std::string_view::npos) ||
            (bar + 1 < line.size() && kBlanks.find(line[bar + 1]) == std::string_view::npos))) {
      bar = line.find('|', bar + 1);
    }
    if (bar == std::string_view::npos && Trimmed(line).empty()) return row;
    const std::string_view cell = line.substr(0, bar);
    row.Cells.push_back(CellText(Trimmed(cell)));
    row.Spans.push_back(SpanOfCell(cell, static_cast<std::size_t>(cell.data() - begin)));
    if (bar == std::string_view::npos) return row;
    line.remove_prefix(bar + 1);
  }
}

class ScenarioParser {
 public:
  ScenarioParser(ScenarioText& out, MachineFiles& machine) : out_(out), machine_(machine) {}

  /// False when the file can't be read.
  bool Read(const std::string& path) {
    const std::string* bytes = machine_.Read(path);
    if (bytes == nullptr || bytes->size() > kFileBytes) return false;
    const int file = static_cast<int>(out_.Files.size());
    out_.Files.push_back(path);
    const std::string text = DecodeFileText(*bytes);
    open_.push_back(path);
    ReadLines(file, text);
    open_.pop_back();
    return true;
  }

  void Finish() {
    if (out_.Cases.empty()) {
      whole_.Lines = std::move(out_.Head);
      out_.Head.clear();
      out_.Cases.push_back(std::move(whole_));
    } else if (!whole_.Columns.empty()) {
      Fault(whole_.Place, "A table before the first scenario belongs to none.");
    }
    for (const ScenarioCase& one : out_.Cases) {
      if (!one.Columns.empty() && one.Rows.empty()) Fault(one.Place, "The table has no rows.");
    }
  }

 private:
  void Fault(ScenarioPlace place, std::string text) {
    if (out_.Faults.size() < kFaults) out_.Faults.push_back({place, std::move(text)});
  }

  ScenarioCase& Present() { return out_.Cases.empty() ? whole_ : out_.Cases.back(); }

  void ReadLines(int file, std::string_view text) {
    ScenarioPlace place{file, 0};
    ScenarioLine* block = nullptr;
    while (!text.empty()) {
      ++place.Line;
      const std::size_t end = text.find('\n');
      std::string_view line = text.substr(0, end);
      text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
      if (line.ends_with('\r')) line.remove_suffix(1);
      if (++lines_ > kLines) {
        Fault(place, Joined("There are more than ", kLines, " lines."));
        return;
      }
      if (block == nullptr) {
        block = ReadLine(place, Trimmed(line));
      } else if (Trimmed(line) == kBlockEnd) {
        block = nullptr;
      } else {
        block->Block += Joined(line, "\r\n");
      }
    }
    if (block != nullptr) Fault(block->Place, "No \"end\" follows.");
  }

  /// Returns the line when the lines behind it belong to it.
  ScenarioLine* ReadLine(ScenarioPlace place, std::string_view text) {
    if (text.empty() || text.front() == '#') return nullptr;
    if (text.front() == '|') {
      ReadTableLine(place, text);
      return nullptr;
    }
    ScenarioLine line;
    line.Place = place;
    if (const std::string wrong = SplitScenarioLine(text, line.Tokens); !wrong.empty()) {
      Fault(place, wrong);
      return nullptr;
    }
    line.Word = FindWord(line);
    if (line.Word == nullptr) return nullptr;
    switch (line.Word->Kind) {
      case WordKind::kScenario:
        BeginScenario(place, Trimmed(text.substr(line.Word->Word.size())));
        return nullptr;
      case WordKind::kSeeds:
        return KeepSeeds(std::move(line));
      case WordKind::kInclude:
        Include(line);
        return nullptr;
      default:
        return Keep(std::move(line));
    }
  }

  const ScenarioWord* FindWord(const ScenarioLine& line) {
    const std::string& word = line.Tokens[0].Text;
    const bool expects = word == "expect";
    if (expects && line.Tokens.size() < 2) {
      Fault(line.Place, "What is expected is missing behind \"expect\".");
      return nullptr;
    }
    const std::string& key = expects ? line.Tokens[1].Text : word;
    const ScenarioWord* row = expects ? FindExpectation(key) : FindScenarioWord(key);
    if (row != nullptr) return row;
    const std::string nearest = NearestScenarioWord(key, expects);
    Fault(line.Place, Joined("\"", ShownText(key),
                             expects ? "\" can't be expected." : "\" is no word of scenarios.",
                             nearest.empty() ? "" : Joined(" Did you mean \"", nearest, "\"?")));
    return nullptr;
  }

  ScenarioLine* KeepSeeds(ScenarioLine line) {
    int seeds = 0;
    const std::string number = line.Tokens.size() == 3 ? line.Tokens[2].Text : "";
    const auto [end, failure] =
        std::from_chars(number.data(), number.data() + number.size(), seeds);
    const bool isNumber = failure == std::errc() && end == number.data() + number.size();
    if (line.Tokens.size() != 3 || line.Tokens[1].Text != "seeds" || !isNumber || seeds < 1 ||
        seeds > kSeeds) {
      Fault(line.Place, Joined("Usage: ", line.Word->Usage, ", with N from 1 to ", kSeeds, "."));
      return nullptr;
    }
    (out_.Cases.empty() ? out_.Seeds : out_.Cases.back().Seeds) = seeds;
    return Keep(std::move(line));
  }

  ScenarioLine* Keep(ScenarioLine line) {
    auto& lines = out_.Cases.empty() ? out_.Head : out_.Cases.back().Lines;
    if (line.Word->Kind == WordKind::kExpect && line.Word->Word == "unchanged") {
      for (auto before = lines.rbegin(); before != lines.rend(); ++before) {
        if (before->Word->Kind != WordKind::kAct) continue;
        before->Watched = true;
        break;
      }
    }
    const bool isBlock = line.Word->Kind == WordKind::kBlock;
    lines.push_back(std::move(line));
    return isBlock ? &lines.back() : nullptr;
  }

  void BeginScenario(ScenarioPlace place, std::string_view name) {
    if (open_.size() > 1) {
      Fault(place, "An included file holds no scenarios.");
      return;
    }
    if (name.empty()) Fault(place, "The scenario has no name.");
    out_.Cases.push_back({std::string(name), place, {}, {}, {}, 0});
  }

  void ReadTableLine(ScenarioPlace place, std::string_view text) {
    if (open_.size() > 1) {
      Fault(place, "An included file holds no tables.");
      return;
    }
    ScenarioRow row = RowOf(place, text);
    std::vector<std::string>& cells = row.Cells;
    ScenarioCase& present = Present();
    if (present.Columns.empty()) {
      if (cells.empty()) Fault(place, "The table has no columns.");
      for (const std::string& column : cells) {
        if (IsScenarioName(column)) continue;
        Fault(place, Joined("\"", ShownText(column), "\" can't be the name of a column."));
      }
      present.Columns = std::move(cells);
      if (out_.Cases.empty()) present.Place = place;
    } else if (cells.size() != present.Columns.size()) {
      Fault(place, Joined("The row has ", cells.size(), " cells, the table has ",
                          present.Columns.size(), " columns."));
    } else {
      present.Rows.push_back(std::move(row));
    }
  }

  void Include(const ScenarioLine& line) {
    namespace fs = std::filesystem;
    if (line.Tokens.size() != 2) {
      Fault(line.Place, "\"include\" is followed by the name of one file.");
    } else if (++included_ > kIncludes) {
      Fault(line.Place, Joined("There are more than ", kIncludes, " included files."));
    } else {
      const std::string& here = out_.Files[static_cast<std::size_t>(line.Place.File)];
      const std::string path =
          (fs::path(here).parent_path() / line.Tokens[1].Text).lexically_normal().generic_string();
      if (std::ranges::find(open_, path) != open_.end()) {
        Fault(line.Place, Joined("\"", ShownText(line.Tokens[1].Text), "\" includes itself."));
        return;
      }
      if (!Read(path))
        Fault(line.Place, Joined("\"", ShownText(line.Tokens[1].Text), "\" can't be read."));
    }
  }

  ScenarioText& out_;
  MachineFiles& machine_;
  ScenarioCase whole_;
  std::vector<std::string> open_;  ///< the files in the making
  int included_ = 0;
  std::size_t lines_ = 0;
};

}  // namespace

bool IsScenarioName(std::string_view text) {
  const auto fits = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '-';
  };
  return !text.empty() && std::ranges::all_of(text, fits);
}

std::string ScenarioWordFor(std::string_view text) {
  constexpr std::string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_.-";
  const bool canStand = std::ranges::none_of(text, [](char character) {
    return static_cast<unsigned char>(character) < 0x20 || character == '\x7F' || character == '{';
  });
  if (!canStand) return "";
  if (!text.empty() && text.find_first_not_of(kPlain) == text.npos) return std::string(text);
  return Joined("\"", ReplacedCopy(text, "\"", "\"\""), "\"");
}

std::string SplitScenarioLine(std::string_view line, std::vector<ScenarioToken>& tokens) {
  const char* const begin = line.data();
  const auto offset = [&] { return static_cast<std::size_t>(line.data() - begin); };
  while (!(line = line.substr(std::min(line.find_first_not_of(kBlanks), line.size()))).empty()) {
    ScenarioToken token;
    token.Span.Begin = offset();
    if (line.front() != '"') {
      const std::size_t end = std::min(line.find_first_of(kBlanks), line.size());
      token.Text = line.substr(0, end);
      line.remove_prefix(end);
      token.Span.End = offset();
      tokens.push_back(std::move(token));
      continue;
    }
    token.Quoted = true;
    line.remove_prefix(1);
    while (true) {
      const std::size_t quote = line.find('"');
      if (quote == std::string_view::npos) return "A text in double quotes is not closed.";
      token.Text += line.substr(0, quote);
      line.remove_prefix(quote + 1);
      if (!line.starts_with('"')) break;
      token.Text += '"';
      line.remove_prefix(1);
    }
    if (!line.empty() && kBlanks.find(line.front()) == std::string_view::npos) {
      return "A blank is missing behind a text in double quotes.";
    }
    token.Span.End = offset();
    tokens.push_back(std::move(token));
  }
  return "";
}

ScenarioText ReadScenarioText(const std::string& path, MachineFiles& files) {
  ScenarioText text;
  files.TakeChoice(path);
  ScenarioParser parser(text, files);
  if (parser.Read(path)) {
    parser.Finish();
  } else {
    text.Files.push_back(path);
    text.Faults.push_back({{0, 0}, "This can't be read."});
  }
  return text;
}

}  // namespace brindlemoor

// Charts drawn as SVG inside a page.
#include "simulation/charts.h"

#include <algorithm>
#include <cmath>

#include "simulation/report.h"
#include "text/quoting.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr double kWidth = 760;
constexpr double kLabels = 250;  ///< room for labels on the left
constexpr double kRight = 60;    ///< and for numbers on the right
constexpr double kLine = 22;     ///< height of a line
constexpr double kTop = 8;
constexpr double kAxis = 26;
constexpr std::size_t kLabelCharacters = 34;
constexpr int kMostColumns = 60;

std::string Number(double number) { return FixedText(number, 1); }

std::string Open(std::string_view title, double height) {
  return Joined("<svg viewBox=\"0 0 ", Number(kWidth), " ", Number(height),
                "\" role=\"img\">\n<title>", HtmlText(title), "</title>\n");
}

std::string TextAt(double x, double y, std::string_view anchor, std::string_view text) {
  return Joined("<text x=\"", Number(x), "\" y=\"", Number(y), "\" text-anchor=\"", anchor, "\">",
                HtmlText(text), "</text>\n");
}

std::string LineAt(double x1, double y1, double x2, double y2, std::string_view style) {
  return Joined("<line class=\"", style, "\" x1=\"", Number(x1), "\" y1=\"", Number(y1), "\" x2=\"",
                Number(x2), "\" y2=\"", Number(y2), "\"/>\n");
}

std::string BoxAt(double x, double y, double width, double height, std::string_view tip) {
  return Joined("<rect class=\"bar\" x=\"", Number(x), "\" y=\"", Number(y), "\" width=\"",
                Number(width), "\" height=\"", Number(height), "\"><title>", HtmlText(tip),
                "</title></rect>\n");
}

/// A label that fits into its room; the whole one is its tip elsewhere on the page.
std::string Shortened(std::string_view label) {
  std::size_t characters = 0;
  for (std::size_t at = 0; at < label.size(); ++at) {
    const bool begins = (static_cast<unsigned char>(label[at]) & 0xC0) != 0x80;
    if (begins && ++characters > kLabelCharacters) return Joined(label.substr(0, at), "…");
  }
  return std::string(label);
}

double Middle(std::size_t line) { return kTop + kLine * (static_cast<double>(line) + 0.5); }

std::string Interval(const Share& share, double y, std::string_view style) {
  if (share.Of == 0) return "";
  const auto x = [](double part) { return kLabels + part * (kWidth - kLabels - kRight); };
  return Joined(LineAt(x(share.Low), y, x(share.High), y, style), "<circle class=\"", style,
                "\" cx=\"", Number(x(share.Value)), "\" cy=\"", Number(y), "\" r=\"4\"><title>",
                PercentText(share), ", 95 % interval ", IntervalText(share), "</title></circle>\n");
}

}  // namespace

std::string IntervalChart(std::string_view title, const std::vector<IntervalLine>& lines) {
  const double bottom = kTop + kLine * static_cast<double>(lines.size());
  std::string out = Open(title, bottom + kAxis);
  for (const int percent : {0, 25, 50, 75, 100}) {
    const double x = kLabels + percent / 100.0 * (kWidth - kLabels - kRight);
    out += LineAt(x, kTop, x, bottom, percent == 50 ? "half" : "grid");
    out += TextAt(x, bottom + 17, "middle", Joined(percent, " %"));
  }
  for (std::size_t line = 0; line < lines.size(); ++line) {
    const bool two = lines[line].Second.Of != 0;
    const double y = Middle(line);
    out += TextAt(kLabels - 10, y + 4, "end", Shortened(lines[line].Label));
    out += Interval(lines[line].First, two ? y - 4 : y, "first");
    out += Interval(lines[line].Second, y + 5, "second");
  }
  return out + "</svg>\n";
}

std::string LengthChart(std::string_view title, const std::map<int, Count>& lengths) {
  constexpr double kHeight = 160;
  if (lengths.empty()) return "";
  const int first = lengths.begin()->first;
  const int turnsOfColumn = (lengths.rbegin()->first - first) / kMostColumns + 1;
  const int columns = (lengths.rbegin()->first - first) / turnsOfColumn + 1;
  std::vector<Count> counts(static_cast<std::size_t>(columns));
  for (const auto& [turns, count] : lengths) {
    counts[static_cast<std::size_t>((turns - first) / turnsOfColumn)] += count;
  }
  const double highest = static_cast<double>(std::ranges::max(counts));
  const double width = (kWidth - 20) / columns;
  const int labelled = std::max(1, static_cast<int>(std::ceil(34 / width)));
  std::string out = Open(title, kTop + kHeight + kAxis);
  for (int column = 0; column < columns; ++column) {
    const Count count = counts[static_cast<std::size_t>(column)];
    const int from = first + column * turnsOfColumn;
    const std::string turns =
        turnsOfColumn == 1 ? Joined(from) : Joined(from, "-", Count{from} + turnsOfColumn - 1);
    const double height = kHeight * static_cast<double>(count) / highest;
    out += BoxAt(10 + column * width, kTop + kHeight - height, std::max(1.0, width - 2), height,
                 Joined(turns, " turns: ", count, " matches"));
    if (column % labelled == 0) {
      out += TextAt(10 + (column + 0.5) * width, kTop + kHeight + 17, "middle", Joined(from));
    }
  }
  return out + "</svg>\n";
}

std::string BarChart(std::string_view title, const std::vector<BarLine>& lines) {
  double highest = 0;
  for (const BarLine& line : lines) highest = std::max(highest, line.Value);
  std::string out = Open(title, kTop * 2 + kLine * static_cast<double>(lines.size()));
  for (std::size_t line = 0; line < lines.size(); ++line) {
    const double value = std::max(0.0, lines[line].Value);
    const double width = highest > 0 ? value / highest * (kWidth - kLabels - kRight) : 0;
    const double y = Middle(line);
    out += TextAt(kLabels - 10, y + 4, "end", Shortened(lines[line].Label));
    out += BoxAt(kLabels, y - 7, width, 14, lines[line].Label);
    out += TextAt(kLabels + width + 6, y + 4, "start", FixedText(lines[line].Value, 1));
  }
  return out + "</svg>\n";
}

}  // namespace brindlemoor

// Charts drawn as SVG inside a page.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "simulation/statistics.h"

namespace brindlemoor {

/// A line of an interval chart: a label and one or two shares with their intervals.
struct IntervalLine {
  std::string Label;
  Share First;
  Share Second;  ///< of 0 observations is not drawn
};

/// Shares from 0 to 100 % as points on bars, a line each. The class names of the shapes are "first"
/// and "second".
std::string IntervalChart(std::string_view title, const std::vector<IntervalLine>& lines);

/// How many matches had so many turns, as columns.
std::string LengthChart(std::string_view title, const std::map<int, Count>& lengths);

/// A label with a value from 0 on.
struct BarLine {
  std::string Label;
  double Value = 0;
};
std::string BarChart(std::string_view title, const std::vector<BarLine>& lines);

}  // namespace brindlemoor

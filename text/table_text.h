// TableText: cells as programs exchange them: tabs between those of a row, a line end behind it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

using TableRow = std::vector<std::string>;

/// The rows of cells as a spreadsheet copies them. A cell that holds a tab or a line end, or begins
/// with a double quote, stands in double quotes, in which its own are doubled.
std::string TableText(const std::vector<TableRow>& rows);

/// The rows of a text from anywhere, at least one cell. LF and CR LF end a row, and what stands
/// behind the last one is a row too. Quotes of a cell count only where nothing but its end follows
/// the closing one; else they are characters like others. Line ends in cells become LF.
std::vector<TableRow> TableRows(std::string_view text);

}  // namespace brindlemoor

// The forms in which sim and merge report, and where each goes.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "apps/brindle/commands.h"
#include "simulation/report.h"

namespace brindlemoor {

/// Which forms are wanted: nothing for one that is not, "" for the standard output, else a file.
struct ReportOutput {
  std::array<std::optional<std::string>, 3> Forms;  ///< CSV, JSON, HTML
};

/// Keeps that a form is wanted.
template <std::size_t Form, class Options>
bool StoreForm(Options& options, std::string_view value) {
  options.Output.Forms[Form] = std::string(value);
  return true;
}

/// "" or why the forms can't go where they should.
std::string OutputProblem(const ReportOutput& output);

/// Writes the report in its forms; as a table on the standard output unless another form goes
/// there. kSuccess, or a code for the failure, which has been told.
int WriteReport(const Report& report, const ReportOutput& output);

}  // namespace brindlemoor

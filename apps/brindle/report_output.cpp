// The forms in which sim and merge report, and where each goes.
#include "apps/brindle/report_output.h"

#include <algorithm>

#include "apps/brindle/output_file.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::array<std::string (*)(const Report& report), 3> kForms = {ReportAsCsv, ReportAsJson,
                                                                         ReportAsHtml};

}  // namespace

std::string OutputProblem(const ReportOutput& output) {
  int onOutput = 0;
  for (const auto& form : output.Forms) {
    if (!form) continue;
    if (form->empty() && ++onOutput > 1) {
      return "only one form can go to the output; give the others a file, such as --csv=FILE";
    }
    if (!form->empty() && std::ranges::count(output.Forms, form) > 1) {
      return Joined("only one form can go to ", *form);
    }
    if (std::string problem = OutputProblem(*form); !problem.empty()) return problem;
  }
  return "";
}

int WriteReport(const Report& report, const ReportOutput& output) {
  bool table = true;
  for (std::size_t form = 0; form < kForms.size(); ++form) {
    const auto& path = output.Forms[form];
    if (!path) continue;
    if (path->empty()) table = false;
    const std::string problem = WriteOutput(*path, kForms[form](report));
    if (problem.empty()) continue;
    std::cerr << "brindle: " << problem << '\n';
    return kWrongUsage;
  }
  if (table) std::cout << ReportAsText(report);
  return kSuccess;
}

}  // namespace brindlemoor

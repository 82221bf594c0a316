// brindle reference: the page of every word of card files and scripts.
#include "apps/brindle/commands.h"
#include "apps/brindle/output_file.h"
#include "reference/reference_page.h"

namespace brindlemoor {

int RunReference(Arguments arguments) {
  if (arguments.size() > 1) return WrongUsage("one file only: ", arguments[1]);
  const std::string file(arguments.empty() ? kReferenceFile : arguments[0]);
  if (file.starts_with("--")) return WrongUsage("unknown option ", file);
  std::string problem = OutputProblem(file);
  if (problem.empty()) problem = WriteOutput(file, ReferencePage());
  if (problem.empty()) return kSuccess;
  std::cerr << "brindle: " << problem << '\n';
  return kWrongUsage;
}

}  // namespace brindlemoor

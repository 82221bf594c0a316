// Counting work.
#include "core/work_budget.h"

#include <algorithm>
#include <exception>

#include "core/desktop.h"
#include "core/limits.h"
#include "core/paths.h"
#include "core/state.h"
#include "text/one_line.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

void TellWhatWasStopped(const WorkBudget& work) {
  if (!work.StoppedFile.empty()) {
    limits::ReportLimit(Joined("Files took too many steps to read: the rest of \"",
                               OneLine(FileNameOf(work.StoppedFile)), "\" was left out."));
  }
  if (work.SearchStopped) {
    limits::ReportLimit("Looking for files took too many steps: some were not found.");
  }
  if (work.StoppedCard.empty()) return;
  limits::ReportLimit(Joined(
      "Scripts took too many steps, and those of this turn that were left did not run. It was ",
      "a script of \"", OneLine(work.StoppedCard), "\" that took the last step."));
}

}  // namespace

WorkAccount::WorkAccount() {
  WorkBudget& work = State().Work;
  if (work.Accounts++ > 0) return;
  work.Done = 0;
  work.LeftOut = 0;
  work.StoppedCard.clear();
  work.StoppedFile.clear();
  work.SearchStopped = false;
  work.NextStop = std::min(work.Bound(), WorkBudget::kStepsBetweenLooks);
  State().Lists.Forget();
}

WorkAccount::~WorkAccount() {
  // The session may be another one by now.
  WorkBudget& work = State().Work;
  if (work.Accounts == 0 || --work.Accounts > 0) return;
  work.NextStop = WorkBudget::kNever;
  work.Most = std::max(work.Most, work.Done);
  work.MostAloud = std::max(work.MostAloud, work.Done + work.LeftOut * WorkBudget::kStepsOfText);
  State().Lists.Forget();
  try {
    TellWhatWasStopped(work);
  } catch (const std::exception&) {  // no memory for the sentence: the work is bounded all the same
  }
}

bool WorkBudget::StopsHere() noexcept {
  if (Done >= Bound()) return true;
  NextStop = std::min(Bound(), Done + kStepsBetweenLooks);
  Desktop().ServeWindows();
  return false;
}

}  // namespace brindlemoor

// Jobs: work that is shared among processes.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace brindlemoor {

inline constexpr int kMostJobs = 1000;

/// What a job made, or what went wrong.
struct JobAnswer {
  std::string Problem;
  std::string Text;
};

/// The work of a job, numbered from 0. It says with the call that another piece is done.
using JobWork = std::function<JobAnswer(int job, const std::function<void()>& pieceDone)>;

/// Does the work of every job, each in a process of its own (one alone in this process). piecesDone
/// hears meanwhile how many more pieces are done. Returns "" and the texts in the order of the
/// jobs, or what went wrong; then every process has been ended.
std::string RunJobs(int jobs, const JobWork& work, const std::function<void(int)>& piecesDone,
                    std::vector<std::string>& texts);

}  // namespace brindlemoor

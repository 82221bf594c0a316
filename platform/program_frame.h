// What every program does around its work: its standard streams, and an end in order.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace brindlemoor {

inline constexpr std::string_view kNoMemory = "there is not enough memory";

/// Opens the standard streams that a caller has closed on nothing: a file that is opened later
/// would take their numbers, and what is printed would land in it. Comes before all else.
void OpenStandardStreams();

/// Lets a write to a pipe that nobody reads, or beyond the size that files may have, fail like any
/// other write, so that it is told of instead of ending the program.
void LetWritesFail();

/// What went wrong, for an exception that is being handled.
std::string ProblemInHand();

/// Runs a program's work. What it throws is told on the error output, and by tell where there is
/// another way; the result is failed then.
int RunProgram(std::string_view program, const std::function<int()>& work, int failed,
               const std::function<void(const std::string& problem)>& tell = {});

}  // namespace brindlemoor

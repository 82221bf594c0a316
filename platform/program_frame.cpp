// What every program does around its work.
#include "platform/program_frame.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <fcntl.h>
#include <new>
#include <stdexcept>
#include <unistd.h>

namespace brindlemoor {

void OpenStandardStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) != -1 || errno != EBADF) continue;
    // The lowest free number is taken, which is that of the stream.
    static_cast<void>(::open("/dev/null", stream == STDIN_FILENO ? O_RDONLY : O_WRONLY));
  }
}

void LetWritesFail() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

std::string ProblemInHand() {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    return std::string(kNoMemory);
  } catch (const std::length_error&) {  // a text longer than any memory
    return std::string(kNoMemory);
  } catch (const std::exception& failure) {
    return failure.what();
  } catch (...) {
    return "an unknown failure";
  }
}

int RunProgram(std::string_view program, const std::function<int()>& work, int failed,
               const std::function<void(const std::string& problem)>& tell) {
  std::string problem;
  try {
    return work();
  } catch (...) {
    problem = ProblemInHand();
  }
  std::fprintf(stderr, "%.*s: %s\n", static_cast<int>(program.size()), program.data(),
               problem.c_str());
  if (!tell) return failed;
  try {
    tell(problem);
  } catch (...) {  // it was told on the error output
  }
  return failed;
}

}  // namespace brindlemoor

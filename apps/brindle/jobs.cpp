// Work that is shared among processes. A process writes one dot for each piece into its pipe, then
// a line end, a letter for good or bad, and its text.
#include "apps/brindle/jobs.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <iostream>
#include <poll.h>
#include <string_view>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "platform/program_frame.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr char kGood = '+';
constexpr char kBad = '-';
constexpr int kPollMilliseconds = 250;

std::string Reason() { return std::generic_category().message(errno); }

bool WriteAll(int pipe, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(pipe, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

/// What a job throws is its answer: the way out of the program is not its own.
JobAnswer AnswerOf(int job, const std::function<void()>& pieceDone, const JobWork& work) {
  try {
    return work(job, pieceDone);
  } catch (...) {
    return {ProblemInHand(), ""};
  }
}

/// The other process. It ends without the ways of this program's end: what this process has not
/// written yet is not its own.
[[noreturn]] void BeJob(int job, int pipe, const JobWork& work) {
  const auto pieceDone = [pipe] {
    if (!WriteAll(pipe, ".")) ::_exit(1);  // nobody listens any more
  };
  const JobAnswer answer = AnswerOf(job, pieceDone, work);
  const bool good = answer.Problem.empty();
  const std::string text = Joined("\n", good ? kGood : kBad, good ? answer.Text : answer.Problem);
  ::_exit(WriteAll(pipe, text) ? 0 : 1);
}

/// The processes; those that still run are ended with the object.
class Processes {
 public:
  Processes() = default;
  Processes(const Processes&) = delete;
  Processes& operator=(const Processes&) = delete;
  ~Processes() {
    for (Process& process : list_) {
      if (process.Id > 0) ::kill(process.Id, SIGTERM);
      Finish(process);
    }
  }

  std::string Start(int job, const JobWork& work) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) return Joined("can't start a job: ", Reason());
    std::cout.flush();
    const pid_t id = ::fork();
    if (id < 0) {
      const std::string reason = Reason();
      ::close(ends[0]);
      ::close(ends[1]);
      return Joined("can't start a job: ", reason);
    }
    if (id == 0) {
      ::close(ends[0]);
      for (const Process& other : list_) ::close(other.Pipe);
      BeJob(job, ends[1], work);
    }
    ::close(ends[1]);
    list_.push_back({id, ends[0], {}});
    return "";
  }

  /// Waits for news until every process has closed its pipe. "" or what went wrong.
  std::string Listen(const std::function<void(int)>& piecesDone) {
    while (true) {
      std::vector<pollfd> waiting;
      std::vector<Process*> of;
      for (Process& process : list_) {
        if (process.Pipe < 0) continue;
        waiting.push_back({process.Pipe, POLLIN, 0});
        of.push_back(&process);
      }
      if (waiting.empty()) return "";
      const int ready = ::poll(waiting.data(), waiting.size(), kPollMilliseconds);
      if (ready < 0 && errno != EINTR) return Joined("can't hear the jobs: ", Reason());
      int pieces = 0;
      for (std::size_t at = 0; ready > 0 && at < waiting.size(); ++at) {
        if (waiting[at].revents == 0) continue;
        if (std::string problem = Hear(*of[at], pieces); !problem.empty()) return problem;
      }
      piecesDone(pieces);
    }
  }

  std::vector<std::string> TakeTexts() {
    std::vector<std::string> texts;
    for (Process& process : list_) texts.push_back(std::move(process.Text).substr(2));
    return texts;
  }

 private:
  struct Process {
    pid_t Id = 0;
    int Pipe = -1;
    std::string Text;  ///< from the line end on
  };

  static int Finish(Process& process) {
    if (process.Pipe >= 0) ::close(std::exchange(process.Pipe, -1));
    int status = 0;
    if (process.Id > 0) {
      while (::waitpid(process.Id, &status, 0) < 0 && errno == EINTR) {
      }
      process.Id = 0;
    }
    return status;
  }

  std::string Hear(Process& process, int& pieces) {
    std::array<char, 1 << 16> buffer{};
    const ssize_t count = ::read(process.Pipe, buffer.data(), buffer.size());
    if (count < 0) return errno == EINTR ? "" : Joined("can't hear a job: ", Reason());
    std::string_view news(buffer.data(), static_cast<std::size_t>(count));
    while (process.Text.empty() && !news.empty() && news[0] == '.') {
      ++pieces;
      news.remove_prefix(1);
    }
    process.Text += news;
    return count == 0 ? EndOf(process) : "";
  }

  static std::string EndOf(Process& process) {
    const int status = Finish(process);
    if (WIFSIGNALED(status)) {
      return Joined("a job was ended: ", ::strsignal(WTERMSIG(status)));
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0 || process.Text.size() < 2) {
      return "a job ended without an answer";
    }
    return process.Text[1] == kBad ? process.Text.substr(2) : "";
  }

  std::vector<Process> list_;
};

}  // namespace

std::string RunJobs(int jobs, const JobWork& work, const std::function<void(int)>& piecesDone,
                    std::vector<std::string>& texts) {
  if (jobs <= 1) {
    JobAnswer answer = work(0, [&] { piecesDone(1); });
    texts = {std::move(answer.Text)};
    return answer.Problem;
  }
  Processes processes;
  for (int job = 0; job < jobs; ++job) {
    if (std::string problem = processes.Start(job, work); !problem.empty()) return problem;
  }
  if (std::string problem = processes.Listen(piecesDone); !problem.empty()) return problem;
  texts = processes.TakeTexts();
  return "";
}

}  // namespace brindlemoor

// Saves that are killed or fail on a real disk: the target holds the old or the new bytes.
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/files.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

class TornSaveTest : public ::testing::Test {
 protected:
  TornSaveTest() {
    std::string pattern = (fs::temp_directory_path() / "brindlemoor-torn-XXXXXX").string();
    folder_ = ::mkdtemp(pattern.data());
    target_ = folder_ + "/Ann_Goblins.txt";
  }
  ~TornSaveTest() override {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  std::vector<std::string> TextFiles() const {
    std::vector<std::string> names = files_.ListFiles(folder_);
    std::erase_if(names, [](const std::string& name) { return !name.ends_with(".txt"); });
    return names;
  }

  std::string folder_;
  std::string target_;
  LocalFileSystem files_;
};

enum class Ending { kKilled, kFinished, kNoTracing };

/// Saves in a child that is killed at its nth stop before or behind a system call.
Ending SaveKilledAt(int stop, const std::string& path, const std::string& bytes) {
  const pid_t child = ::fork();
  if (child == 0) {
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(2);
    ::raise(SIGSTOP);
    LocalFileSystem files;
    ::_exit(files.Write(path, bytes).empty() ? 0 : 1);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  for (int done = 0; done < stop && WIFSTOPPED(status); ++done) {
    if (::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr) != 0) break;
    ::waitpid(child, &status, 0);
  }
  if (WIFEXITED(status)) return WEXITSTATUS(status) == 0 ? Ending::kFinished : Ending::kNoTracing;
  ::kill(child, SIGKILL);
  ::waitpid(child, &status, 0);
  return Ending::kKilled;
}

TEST_F(TornSaveTest, AKillAtAnyMomentLeavesTheOldOrTheNewFile) {
  const std::string older = "old\r\n";
  const std::string newer(200000, 'n');
  int keptOld = 0;
  int keptNew = 0;
  for (int stop = 1; stop < 1000; ++stop) {
    SCOPED_TRACE(stop);
    ASSERT_EQ(files_.Write(target_, older), "") << "what a killed save left is in the way";
    const Ending ending = SaveKilledAt(stop, target_, newer);
    if (ending == Ending::kNoTracing) GTEST_SKIP() << "this system lets no process be traced";
    const auto present = files_.Read(target_);
    ASSERT_TRUE(present == older || present == newer);
    EXPECT_EQ(TextFiles(), std::vector<std::string>{"Ann_Goblins.txt"});
    if (ending == Ending::kFinished) {
      EXPECT_TRUE(present == newer);
      break;
    }
    ++(present == older ? keptOld : keptNew);
  }
  EXPECT_GT(keptOld, 5) << "the save was stopped before its rename";
  EXPECT_GT(keptNew, 0) << "and behind it";
}

TEST_F(TornSaveTest, ADiskThatTakesNoMoreLeavesTheOldFile) {
  ASSERT_EQ(files_.Write(target_, "old"), "");
  struct rlimit before {};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const struct rlimit small { 1000, before.rlim_max };
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  const std::string error = files_.Write(target_, std::string(5000, 'n'));
  ::setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_NE(error, "");
  EXPECT_EQ(files_.Read(target_), "old");
  EXPECT_EQ(files_.ListFiles(folder_), std::vector<std::string>{"Ann_Goblins.txt"});
}

}  // namespace
}  // namespace brindlemoor

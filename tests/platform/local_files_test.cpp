// The machine's file system: whole reads, and writes that never lose the old file, even when they
// are killed or the disk is full.
#include <csignal>
#include <filesystem>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/files.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class LocalFilesTest : public ::testing::Test {
 protected:
  LocalFilesTest() {
    std::string pattern = (fs::temp_directory_path() / "brindlemoor-test-XXXXXX").string();
    folder_ = ::mkdtemp(pattern.data());
    files_.Write(In("file"), "old");
  }
  ~LocalFilesTest() override {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  std::string In(const std::string& name) const { return folder_ + "/" + name; }

  std::string folder_;
  LocalFileSystem files_;
};

TEST_F(LocalFilesTest, WritesAndReadsAnyBytesAndKeepsRights) {
  ::chmod(In("file").c_str(), 0640);
  for (const std::string& bytes :
       {std::string("a\0b\r\n\xFF", 6), std::string(3 << 20, 'x'), std::string()}) {
    EXPECT_EQ(files_.Write(In("file"), bytes), "");
    EXPECT_TRUE(files_.Read(In("file")) == bytes);
  }
  EXPECT_EQ(static_cast<int>(fs::status(In("file")).permissions()), 0640);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 1) << "nothing is left beside it";
}

TEST_F(LocalFilesTest, OneProgramAtATimeHoldsAName) {
  LocalFileSystem other;
  EXPECT_EQ(files_.Hold(In("lock")), HoldResult::kHeld);
  EXPECT_EQ(files_.Hold(In("lock")), HoldResult::kHeld);
  EXPECT_EQ(other.Hold(In("lock")), HoldResult::kByAnother);
  EXPECT_EQ(other.Hold(In("missing/lock")), HoldResult::kImpossible);
  const pid_t child = ::fork();
  if (child == 0) {
    LocalFileSystem killed;
    ::_exit(killed.Hold(In("second")) == HoldResult::kHeld ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(fs::exists(In("second"))) << "a killed program takes nothing away";
  EXPECT_EQ(other.Hold(In("second")), HoldResult::kHeld);
  files_.LetGo(In("lock"));
  EXPECT_EQ(other.Hold(In("lock")), HoldResult::kHeld);
  other.LetGo(In("lock"));
  EXPECT_FALSE(fs::exists(In("lock")));
}

TEST_F(LocalFilesTest, AFailedWriteSaysWhyAndLeavesEverythingAsItWas) {
  fs::create_directory(In("folder"));
  ASSERT_EQ(::mkfifo(In("pipe").c_str(), 0600), 0);
  for (const std::string& path :
       {In("missing/file"), In("folder"), In("file/below"), In(std::string(300, 'n')),
        std::string(), In("file") + '\0', In("pipe")}) {
    EXPECT_NE(files_.Write(path, "new"), "") << path;
  }
  EXPECT_TRUE(fs::is_fifo(In("pipe"))) << "a file does not take its place";
  struct rlimit before {};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const struct rlimit small { 1000, before.rlim_max };
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  EXPECT_NE(files_.Write(In("file"), std::string(5000, 'n')), "") << "the disk takes no more";
  ::setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(files_.Read(In("file")), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 3);
}

constexpr uid_t kNobody = 65534;

/// Saves in a child that is no super user; true when the save was made.
bool SaveWithoutPrivileges(const std::string& path, const std::string& bytes) {
  const pid_t child = ::fork();
  if (child == 0) {
    if (::geteuid() == 0 &&
        (::setgroups(0, nullptr) != 0 || ::setresgid(kNobody, kNobody, kNobody) != 0 ||
         ::setresuid(kNobody, kNobody, kNobody) != 0)) {
      ::_exit(2);
    }
    LocalFileSystem files;
    ::_exit(files.Write(path, bytes).empty() ? 0 : 1);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) != 2) << "the child kept its privileges";
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST_F(LocalFilesTest, AFileWithoutTheRightToReadOrWriteItIsNotReplaced) {
  if (::geteuid() == 0) {  // the super user may do everything; the child is the owner
    ASSERT_EQ(::chown(folder_.c_str(), kNobody, kNobody), 0);
    ASSERT_EQ(::chown(In("file").c_str(), kNobody, kNobody), 0);
  }
  const struct {
    mode_t rights;
    bool saved;
  } rows[] = {{0444, false}, {0222, false}, {0000, false}, {0600, true}};
  for (const auto& [rights, saved] : rows) {
    ASSERT_EQ(::chmod(In("file").c_str(), rights), 0);
    EXPECT_EQ(SaveWithoutPrivileges(In("file"), "new"), saved) << std::oct << rights;
    ASSERT_EQ(::chmod(In("file").c_str(), 0644), 0);
    EXPECT_EQ(files_.Read(In("file")), saved ? "new" : "old") << std::oct << rights;
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 1) << "nothing is left beside it";
}

TEST_F(LocalFilesTest, ARemovedFileIsGoneAndOneThatIsNotThereIsNoError) {
  fs::create_symlink("file", In("link"));
  EXPECT_EQ(files_.Remove(In("link")), "");
  EXPECT_EQ(files_.Read(In("file")), "old") << "a link goes alone";
  EXPECT_EQ(files_.Remove(In("file")), "");
  EXPECT_EQ(files_.Remove(In("file")), "");
  EXPECT_FALSE(files_.Exists(In("file")));
  fs::create_directory(In("folder"));
  for (const std::string& path : {In("folder"), In("folder") + '\0'}) {
    EXPECT_NE(files_.Remove(path), "");
  }
  EXPECT_TRUE(files_.FolderExists(In("folder")));
}

TEST_F(LocalFilesTest, ARenamedFileReplacesAndAFailureChangesNothing) {
  EXPECT_EQ(files_.Write(In("new"), "new"), "");
  for (int time = 0; time < 2; ++time) EXPECT_EQ(files_.AddFolder(In("sub")), "");
  EXPECT_EQ(files_.Rename(In("new"), In("sub/file")), "");
  EXPECT_EQ(files_.Rename(In("sub/file"), In("file")), "");
  EXPECT_EQ(files_.Read(In("file")), "new");
  for (const char* target : {"sub", "missing/file"}) {
    EXPECT_NE(files_.Rename(In("file"), In(target)), "") << target;
  }
  EXPECT_NE(files_.Rename(In("gone"), In("file")), "");
  EXPECT_NE(files_.Rename(In("sub"), In("other")), "") << "no file";
  EXPECT_NE(files_.AddFolder(In("file")), "");
  EXPECT_EQ(files_.Read(In("file")), "new");
  fs::create_directory(In("sub/below"));
  EXPECT_NE(files_.RemoveFolderOfFiles(In("sub")), "");
  fs::remove(In("sub/below"));
  EXPECT_EQ(files_.Write(In("sub/a"), "a"), "");
  EXPECT_EQ(files_.RemoveFolderOfFiles(In("sub")), "");
  EXPECT_FALSE(files_.FolderExists(In("sub")));
}

TEST_F(LocalFilesTest, OnlyPlainFilesExistAndFoldersAreListedByName) {
  for (const char* name : {"sub2", "sub1"}) fs::create_directory(In(name));
  for (const char* name : {"b", "B", "\xC3\xA9", "sub1/deep"}) files_.Write(In(name), "");
  EXPECT_EQ(files_.ListFiles(folder_), (Names{"B", "b", "file", "\xC3\xA9"}));
  EXPECT_EQ(files_.ListFolders(folder_), (Names{"sub1", "sub2"}));
  EXPECT_TRUE(files_.ListFiles(In("missing")).empty());
  EXPECT_TRUE(files_.Exists(In("file")));
  EXPECT_TRUE(files_.FolderExists(In("sub1")));
  EXPECT_FALSE(files_.FolderExists(In("file")));
  ASSERT_EQ(::mkfifo(In("pipe").c_str(), 0600), 0);
  for (const std::string& path : {In("sub1"), In("pipe"), In("missing"), In("file") + '\0'}) {
    EXPECT_FALSE(files_.Exists(path)) << path;
    EXPECT_FALSE(files_.Read(path).has_value()) << path;
  }
}

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

TEST_F(LocalFilesTest, AKillAtAnyMomentLeavesTheOldOrTheNewFile) {
  const std::string newer(200000, 'n');
  int keptOld = 0;
  Ending ending = Ending::kKilled;
  for (int stop = 1; stop < 1000 && ending == Ending::kKilled; ++stop) {
    ASSERT_EQ(files_.Write(In("file"), "old"), "") << "what a killed save left is in the way";
    ending = SaveKilledAt(stop, In("file"), newer);
    if (ending == Ending::kNoTracing) GTEST_SKIP() << "this system lets no process be traced";
    const auto present = files_.Read(In("file"));
    ASSERT_TRUE(present == "old" || present == newer) << stop;
    if (present == "old") ++keptOld;
  }
  EXPECT_EQ(ending, Ending::kFinished);
  EXPECT_TRUE(files_.Read(In("file")) == newer);
  EXPECT_GT(keptOld, 5) << "the save was stopped before its rename";
}

}  // namespace
}  // namespace brindlemoor

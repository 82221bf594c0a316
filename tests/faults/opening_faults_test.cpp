// Opening a game archive on a machine whose files fail, or that is switched off in the middle.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/files.h"
#include "sharing/game_opening.h"
#include "tests/faults/system_calls.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

const GameArchive kArchive = {{{"Pebbles.txt", "new rules"},
                               {"art/zinc.jpg", std::string(10'000, 'z')},
                               {"pebbles/Cards.txt", "new cards"}},
                              {"Pebbles"},
                              10'018,
                              ""};
const Files kBefore = {{"Pebbles.txt", "my rules"}, {"Ann_Pebbles.plr", "owned"}};
const Files kBehind = {{"Pebbles.txt", "new rules"},
                       {"Pebbles.txt.old~", "my rules"},
                       {"Ann_Pebbles.plr", "owned"},
                       {"art/zinc.jpg", std::string(10'000, 'z')},
                       {"pebbles/Cards.txt", "new cards"}};

class OpeningFaultsTest : public testing::Test {
 protected:
  OpeningFaultsTest() {
    std::string pattern = (fs::temp_directory_path() / "brindlemoor-opening-XXXXXX").string();
    folder_ = ::mkdtemp(pattern.data());
  }
  ~OpeningFaultsTest() override { fs::remove_all(folder_); }

  void Begin() const {
    for (const auto& entry : fs::directory_iterator(folder_)) fs::remove_all(entry.path());
    for (const auto& [name, bytes] : kBefore) {
      std::ofstream(fs::path(folder_) / name, std::ios::binary) << bytes;
    }
  }
  /// The files that are there; of a save that was broken off something may lie beside.
  Files There() const {
    Files files;
    for (const auto& entry : fs::recursive_directory_iterator(folder_)) {
      const std::string name = entry.path().lexically_relative(folder_).string();
      if (entry.is_directory() || name.ends_with(".part~") || name.ends_with(".lock")) continue;
      std::ifstream stream(entry.path(), std::ios::binary);
      files[name] = std::string(std::istreambuf_iterator<char>(stream), {});
    }
    return files;
  }
  OpeningResult Open() const {
    LocalFileSystem files;
    files.KeepTo(folder_);
    const OpeningPlan plan = PlanOpening(kArchive, files, folder_);
    return OpenInFolder(kArchive, plan, Differing::kReplace, files, folder_);
  }
  std::string Finish() const {
    LocalFileSystem files;
    files.KeepTo(folder_);
    return FinishOpening(files, folder_);
  }

  std::string folder_;
};

TEST_F(OpeningFaultsTest, AKillBeforeAnyCallLeavesTheOldGameOrTheNewOne) {
  Begin();
  ArmFault(0, Fault::kNone);
  ASSERT_EQ(Open().Problem, "");
  const int calls = DisarmFault();
  ASSERT_GT(calls, 20);
  EXPECT_EQ(There(), kBehind);
  EXPECT_FALSE(fs::exists(folder_ + "/.brindlemoor-opening"));
  int old = 0;
  for (int call = 1; call <= calls; ++call) {
    Begin();
    const pid_t child = ::fork();
    if (child == 0) {
      ArmFault(call, Fault::kKill);
      Open();
      ::_exit(1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "not killed";
    Finish();
    const Files there = There();
    EXPECT_TRUE(there == kBefore || there == kBehind) << "killed before call " << call;
    old += there == kBefore ? 1 : 0;
    EXPECT_FALSE(fs::exists(folder_ + "/.brindlemoor-opening"));
  }
  EXPECT_GT(old, 5);
  EXPECT_LT(old, calls);
}

TEST_F(OpeningFaultsTest, AFaultIsToldOfAndLeavesTheOldGame) {
  Begin();
  ArmFault(0, Fault::kNone);
  Open();
  const int calls = DisarmFault();
  for (const Fault fault : {Fault::kNoSpace, Fault::kPartWritten, Fault::kInputError}) {
    for (int call = 1; call <= calls; ++call) {
      Begin();
      ArmFault(call, fault);
      const OpeningResult result = Open();
      DisarmFault();
      const std::string finished = Finish();
      const bool isOpened = result.Problem.empty() || finished.find("is there") != finished.npos;
      EXPECT_EQ(There(), isOpened ? kBehind : kBefore)
          << "fault " << static_cast<int>(fault) << " at call " << call << ": " << result.Problem;
    }
  }
}

}  // namespace
}  // namespace brindlemoor

// An update of the shipped games on a machine whose files fail, or that is switched off in the
// middle, and in folders with links and guarded files.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/files.h"
#include "sharing/games_update.h"
#include "sharing/shipped_list.h"
#include "tests/faults/system_calls.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

const std::string kList(kShippedList);

std::string Line(int edition, const std::string& name, const std::string& bytes) {
  return Joined(edition, " ", bytes.empty() ? "-" : HashOf(bytes), " ", name, "\n");
}

class UpdateFaultsTest : public testing::Test {
 protected:
  UpdateFaultsTest() {
    std::string pattern = (fs::temp_directory_path() / "brindlemoor-update-XXXXXX").string();
    root_ = fs::canonical(::mkdtemp(pattern.data()));
    const std::string picture(10'000, 'z');
    before_ = {{"Pebbles.txt", "old rules"},
               {"pebbles/Cards.txt", "my cards"},
               {"pebbles/Old.txt", "old cards"},
               {"Ann_Pebbles.plr", "owned"}};
    before_[kList] =
        "The files that came with Brindlemoor\n" + Line(1, "Pebbles.txt", "old rules") +
        Line(1, "pebbles/Cards.txt", "old cards") + Line(1, "pebbles/Old.txt", "old cards");
    shipped_ = {{"Pebbles.txt", "new rules"},
                {"art/zinc.jpg", picture},
                {"pebbles/Cards.txt", "new cards"}};
    shipped_[kList] = before_[kList] + Line(2, "Pebbles.txt", "new rules") +
                      Line(2, "art/zinc.jpg", picture) + Line(2, "pebbles/Cards.txt", "new cards") +
                      Line(2, "pebbles/Old.txt", "");
    behind_ = shipped_;
    behind_["pebbles/Cards.txt"] = "my cards";
    behind_["Ann_Pebbles.plr"] = "owned";
    Put("shipped", shipped_);
  }
  ~UpdateFaultsTest() override { fs::remove_all(root_); }

  void Put(const std::string& folder, const Files& files) const {
    for (const auto& [name, bytes] : files) {
      fs::create_directories((root_ / folder / name).parent_path());
      std::ofstream(root_ / folder / name, std::ios::binary) << bytes;
    }
  }
  void Begin() const {
    fs::remove_all(root_ / "mine");
    Put("mine", before_);
  }
  /// The files that are there; of a write that was broken off something may lie beside.
  Files There() const {
    Files files;
    for (const auto& entry : fs::recursive_directory_iterator(root_ / "mine")) {
      const std::string name = entry.path().lexically_relative(root_ / "mine").string();
      if (entry.is_directory() || name.ends_with(".part~") || name.ends_with(".lock")) continue;
      std::ifstream stream(entry.path(), std::ios::binary);
      files[name] = std::string(std::istreambuf_iterator<char>(stream), {});
    }
    return files;
  }
  std::string Update() const {
    LocalFileSystem files;
    files.KeepTo((root_ / "mine").string());
    return UpdateGames(files, (root_ / "mine").string(), (root_ / "shipped").string());
  }
  int CallsOfUpdate() const {
    Begin();
    ArmFault(0, Fault::kNone);
    EXPECT_NE(Update().find("updated: 3 files"), std::string::npos);
    const int calls = DisarmFault();
    EXPECT_EQ(There(), behind_);
    return calls;
  }

  fs::path root_;
  Files before_;
  Files shipped_;
  Files behind_;
};

TEST_F(UpdateFaultsTest, IsFinishedByTheNextStartAfterAnyKill) {
  const int calls = CallsOfUpdate();
  ASSERT_GT(calls, 30);
  RecordProperty("calls", calls);
  for (int call = 1; call <= calls; ++call) {
    SCOPED_TRACE(testing::Message() << "killed before call " << call);
    Begin();
    const pid_t child = ::fork();
    if (child == 0) {
      ArmFault(call, Fault::kKill);
      Update();
      ::_exit(1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "not killed";
    Update();
    EXPECT_EQ(There(), behind_);
    EXPECT_FALSE(fs::exists(root_ / "mine/.brindlemoor-update"));
    EXPECT_EQ(Update(), "");
    if (HasFailure()) return;
  }
}

TEST_F(UpdateFaultsTest, AFaultIsToldOfAndLeavesTheOldGamesUntilTheNextStart) {
  const int calls = CallsOfUpdate();
  for (const Fault fault : {Fault::kNoSpace, Fault::kPartWritten, Fault::kInputError}) {
    for (int call = 1; call <= calls; ++call) {
      SCOPED_TRACE(testing::Message()
                   << "fault " << static_cast<int>(fault) << " at call " << call);
      Begin();
      ArmFault(call, fault);
      const std::string told = Update();
      DisarmFault();
      const bool isUpdated = told.find("updated: 3 files") != told.npos;
      Files there = There();
      std::erase_if(
          there, [](const auto& file) { return file.first.starts_with(".brindlemoor-update/"); });
      EXPECT_EQ(there, isUpdated ? behind_ : before_) << told;
      Update();
      EXPECT_EQ(There(), behind_);
      if (HasFailure()) return;
    }
  }
}

TEST_F(UpdateFaultsTest, LinksAndGuardedFilesAreTheUsers) {
  Begin();
  before_["pebbles/Cards.txt"] = "old cards";
  Put("mine", before_);
  fs::permissions(root_ / "mine/pebbles/Cards.txt", fs::perms::owner_read);
  Put("elsewhere", {{"Pebbles.txt", "old rules"}});
  fs::remove(root_ / "mine/Pebbles.txt");
  fs::create_symlink(root_ / "elsewhere/Pebbles.txt", root_ / "mine/Pebbles.txt");
  const std::string told = Update();
  EXPECT_NE(told.find("as they are:\nPebbles.txt\npebbles/Cards.txt\n"), told.npos) << told;
  EXPECT_TRUE(fs::is_symlink(root_ / "mine/Pebbles.txt"));
  EXPECT_EQ(There()["Pebbles.txt"], "old rules");
  EXPECT_EQ(There()["pebbles/Cards.txt"], "old cards");
  EXPECT_TRUE(fs::exists(root_ / "mine/art/zinc.jpg"));
  EXPECT_FALSE(fs::exists(root_ / "mine/pebbles/Old.txt"));
}

TEST_F(UpdateFaultsTest, AFolderBehindALinkOutOfTheUsersIsNotTouched) {
  Begin();
  Put("elsewhere", {{"Cards.txt", "old cards"}, {"Old.txt", "old cards"}});
  fs::remove_all(root_ / "mine/pebbles");
  fs::create_directory_symlink(root_ / "elsewhere", root_ / "mine/pebbles");
  const std::string told = Update();
  EXPECT_NE(told.find("updated: 2 files"), told.npos) << told;
  std::ifstream cards(root_ / "elsewhere/Cards.txt");
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(cards), {}), "old cards");
  EXPECT_TRUE(fs::exists(root_ / "elsewhere/Old.txt"));
}

}  // namespace
}  // namespace brindlemoor

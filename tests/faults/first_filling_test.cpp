// The first filling of the user's folder, on a machine whose files fail.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "apps/brindlemoor/program_folder.h"
#include "platform/program_frame.h"
#include "tests/faults/system_calls.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

/// In whatever order a folder lists them, something is missing behind the first game.
const Files kShipped = {{"Adit.txt", "#GAMERULES, Adit\n"},
                        {"Pebbles.txt", "#GAMERULES, Pebbles\n"},
                        {"pebbles/Miller.txt", "#CARD, the miller's"},
                        {"pebbles/Reeve.txt", std::string(10'000, 'r')},
                        {"pebbles/deep/Sluice.txt", "#CARD, the sluice"},
                        {"zinc.jpg", "picture"}};

bool IsPassing(const std::string& name) { return name.ends_with(".part~"); }

struct Start {
  const char* Name;
  Files Own;  ///< what the user has in the folder before
  bool HasFolder = true;
};

class FirstFillingTest : public testing::TestWithParam<Start> {
 protected:
  FirstFillingTest() {
    std::string pattern = (fs::temp_directory_path() / "brindlemoor-filling-XXXXXX").string();
    root_ = ::mkdtemp(pattern.data());
    Put(root_ / "shipped", kShipped);
    choice_.DataHome = (root_ / "data").string();
    choice_.ShippedGames = {(root_ / "shipped").string()};
    wanted_ = kShipped;
    for (const auto& [name, bytes] : GetParam().Own) wanted_[name] = bytes;
  }
  ~FirstFillingTest() override { fs::remove_all(root_); }

  static void Put(const fs::path& folder, const Files& files) {
    fs::create_directories(folder);
    for (const auto& [name, bytes] : files) {
      fs::create_directories((folder / name).parent_path());
      std::ofstream(folder / name, std::ios::binary) << bytes;
    }
  }
  /// As before the first start.
  void Begin() const {
    fs::remove_all(root_ / "data");
    if (GetParam().HasFolder) Put(Folder(), GetParam().Own);
  }
  Files There() const {
    Files files;
    for (const auto& entry : fs::recursive_directory_iterator(Folder())) {
      const std::string name = entry.path().lexically_relative(Folder()).string();
      if (entry.is_directory() || IsPassing(name)) continue;
      std::ifstream stream(entry.path(), std::ios::binary);
      files[name] = std::string(std::istreambuf_iterator<char>(stream), {});
    }
    return files;
  }
  void ExpectOwnUnchanged() const {
    for (const auto& [name, bytes] : GetParam().Own) {
      std::ifstream stream(Folder() / name, std::ios::binary);
      EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), bytes) << name;
    }
  }
  /// A start with nothing in its way gives the whole set, and leaves nothing beside.
  void ExpectMended() const {
    ASSERT_EQ(FindProgramFolder(choice_).Error, "");
    EXPECT_TRUE(There() == wanted_);
    for (const auto& entry : fs::directory_iterator(root_ / "data")) {
      EXPECT_EQ(entry.path().filename(), "brindlemoor");
    }
  }
  int Fill(int call, Fault fault, std::string* told = nullptr) const {
    ArmFault(call, fault);
    const ProgramFolderResult result = FindProgramFolder(choice_);
    const int calls = DisarmFault();
    if (told != nullptr) *told = result.Error;
    return calls;
  }

  fs::path Folder() const { return root_ / "data" / "brindlemoor"; }

  fs::path root_;
  FolderChoice choice_;
  Files wanted_;
};

TEST_P(FirstFillingTest, IsWholeAfterAnyKill) {
  Begin();
  const int calls = Fill(0, Fault::kNone);
  ASSERT_GT(calls, 20);
  RecordProperty("calls", calls);
  for (int call = 1; call <= calls; ++call) {
    SCOPED_TRACE(testing::Message() << "killed before call " << call);
    Begin();
    const pid_t child = ::fork();
    if (child == 0) {
      Fill(call, Fault::kKill);
      ::_exit(1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "not killed";
    ExpectOwnUnchanged();
    ExpectMended();
    if (HasFailure()) return;
  }
}

TEST_P(FirstFillingTest, IsToldOfAndMendedAfterAnyFault) {
  Begin();
  const int calls = Fill(0, Fault::kNone);
  for (const Fault fault : {Fault::kNoSpace, Fault::kPartWritten, Fault::kInputError}) {
    for (int call = 1; call <= calls; ++call) {
      SCOPED_TRACE(testing::Message()
                   << "fault " << static_cast<int>(fault) << " at call " << call);
      Begin();
      std::string told;
      Fill(call, fault, &told);
      ExpectOwnUnchanged();
      EXPECT_TRUE(!told.empty() || There() == wanted_) << "nobody was told of missing files";
      ExpectMended();
      if (HasFailure()) return;
    }
  }
}

TEST_P(FirstFillingTest, SaysThatFilesMayNotBeAsLarge) {
  Begin();
  const pid_t child = ::fork();
  if (child == 0) {
    LetWritesFail();
    const rlimit small{4096, 4096};
    ::setrlimit(RLIMIT_FSIZE, &small);
    const std::string error = FindProgramFolder(choice_).Error;
    ::_exit(error.find("can't be copied") != error.npos && error.ends_with("too large.") ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  ExpectOwnUnchanged();
  ExpectMended();
}

TEST_P(FirstFillingTest, SeveralAtTheSameTimeDoNoHarm) {
  Begin();
  std::vector<pid_t> children;
  for (int start = 0; start < 4; ++start) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(FindProgramFolder(choice_).Error.empty() ? 0 : 1);
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  }
  ExpectMended();
}

INSTANTIATE_TEST_SUITE_P(Everything, FirstFillingTest,
                         testing::Values(Start{"no_folder", {}, false}, Start{"empty_folder", {}},
                                         Start{"players_and_changed_cards",
                                               {{"Ann_Pebbles.plr", "Ann's"},
                                                {"pebbles/Miller.txt", "changed by the user"}}}),
                         [](const auto& row) { return std::string(row.param.Name); });

}  // namespace
}  // namespace brindlemoor

// Putting games into a folder: what is replaced, and what a stop in the middle leaves.
#include "sharing/game_opening.h"

#include <gtest/gtest.h>

#include "platform/headless/memory_files.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

/// Files that stop working after so many changes: for good, as when the program is killed or the
/// disk is full, or for one change only.
class StoppingFiles : public MemoryFileSystem {
 public:
  int ChangesLeft = 1'000'000;
  bool OnlyOnce = false;

  std::string Write(const std::string& path, std::string_view bytes) override {
    return Stops() ? "the disk is full" : MemoryFileSystem::Write(path, bytes);
  }
  std::string Remove(const std::string& path) override {
    return Stops() ? "the disk is full" : MemoryFileSystem::Remove(path);
  }
  /// In one step, as on a disk.
  std::string Rename(const std::string& from, const std::string& to) override {
    if (Stops()) return "the disk is full";
    auto file = Contents.extract(from);
    if (file.empty()) return "there is no such file";
    file.key() = to;
    Contents.erase(to);
    Contents.insert(std::move(file));
    return "";
  }

 private:
  bool Stops() {
    if (ChangesLeft > 0) {
      --ChangesLeft;
      return false;
    }
    if (OnlyOnce) ChangesLeft = 1'000'000;
    return true;
  }
};

using Folder = std::map<std::string, std::string>;

const Folder kMine = {
    {"/g/Goblins.txt", "my rules"}, {"/g/art/a.png", "same"}, {"/g/Ann_Goblins.plr", "owned"}};

GameArchive Archive() {
  return {{{"Goblins.txt", "new rules"}, {"art/a.png", "same"}, {"goblins/Cards.txt", "cards"}},
          {"Goblins"},
          18,
          ""};
}

Folder Opened() {
  Folder folder = kMine;
  folder["/g/Goblins.txt"] = "new rules";
  folder["/g/Goblins.txt.old~"] = "my rules";
  folder["/g/goblins/Cards.txt"] = "cards";
  return folder;
}

class GameOpeningTest : public ::testing::Test {
 protected:
  GameOpeningTest() { files_.Contents = kMine; }
  OpeningResult Open(Differing differing) {
    return OpenInFolder(Archive(), PlanOpening(Archive(), files_, "/g"), differing, files_, "/g");
  }
  StoppingFiles files_;
};

TEST_F(GameOpeningTest, ThePlanSaysWhatIsNewTheSameAndDifferent) {
  const OpeningPlan plan = PlanOpening(Archive(), files_, "/g");
  EXPECT_EQ(plan.Fates, (std::vector{FileFate::kDiffers, FileFate::kSame, FileFate::kNew}));
  EXPECT_EQ(plan.Problem, "");
  EXPECT_TRUE(plan.Remarks.empty());
  EXPECT_EQ(files_.Contents, kMine);
}

TEST_F(GameOpeningTest, NamesThatOtherFoldersHaveAreToldOf) {
  files_.Contents["/g/elves/CARDS.txt"] = "elves";
  files_.Contents["/g/tests/a.png"] = "";
  const OpeningPlan plan = PlanOpening(Archive(), files_, "/g");
  ASSERT_EQ(plan.Remarks.size(), 1U);
  EXPECT_TRUE(plan.Remarks[0].starts_with("\"goblins/Cards.txt\" has the same name as \"elves/"));
}

TEST_F(GameOpeningTest, AGameOfTheSameNameIsToldOf) {
  files_.Contents["/g/Other.txt"] = "#GAMERULES, Goblins, , #102030, other, \n";
  files_.Contents["/g/Elves.txt"] = "#GAMERULES, Elves, , #102030, elves, \n";
  const OpeningPlan plan = PlanOpening(Archive(), files_, "/g");
  ASSERT_EQ(plan.Remarks.size(), 1U);
  EXPECT_NE(plan.Remarks[0].find("a game \"Goblins\" already, in \"Other.txt\""),
            std::string::npos);
}

TEST_F(GameOpeningTest, AFolderInTheWayOfAFileStopsIt) {
  files_.Contents["/g/goblins/Cards.txt/x"] = "";
  EXPECT_NE(PlanOpening(Archive(), files_, "/g").Problem.find("there is a folder of that name"),
            std::string::npos);
}

TEST_F(GameOpeningTest, ReplacedFilesAreKeptUnderANewNameEachTime) {
  const OpeningResult result = Open(Differing::kReplace);
  EXPECT_EQ(result.Problem, "");
  EXPECT_EQ(result.Written, 2U);
  EXPECT_EQ(result.Kept, std::vector<std::string>{"Goblins.txt.old~"});
  EXPECT_EQ(files_.Contents, Opened());
  files_.Contents["/g/Goblins.txt"] = "changed again";
  EXPECT_EQ(Open(Differing::kReplace).Kept, std::vector<std::string>{"Goblins.txt.old2~"});
  EXPECT_EQ(files_.Contents["/g/Goblins.txt.old~"], "my rules");
  EXPECT_EQ(files_.Contents["/g/Goblins.txt.old2~"], "changed again");
}

TEST_F(GameOpeningTest, MineStayWhereTheAnswerSaysSo) {
  EXPECT_EQ(Open(Differing::kKeepMine).Written, 1U);
  Folder expected = kMine;
  expected["/g/goblins/Cards.txt"] = "cards";
  EXPECT_EQ(files_.Contents, expected);
  EXPECT_EQ(Open(Differing::kKeepMine).Written, 0U) << "nothing is left to do";
  EXPECT_EQ(files_.Contents, expected);
}

TEST_F(GameOpeningTest, AStopAtAnyChangeLeavesTheOldGameOrTheNewOne) {
  int finished = 0;
  int takenBack = 0;
  for (int changes = 0;; ++changes) {
    files_.Contents = kMine;
    files_.ChangesLeft = changes;
    const OpeningResult result = Open(Differing::kReplace);
    const bool stopped = files_.ChangesLeft == 0;
    files_.ChangesLeft = 1'000'000;
    const std::string done = FinishOpening(files_, "/g");
    EXPECT_EQ(files_.Contents, done.find("is finished now") != std::string::npos || !stopped ||
                                       result.Problem.empty()
                                   ? Opened()
                                   : kMine)
        << "after " << changes << " changes: " << result.Problem << " / " << done;
    finished += done.find("is finished now") != std::string::npos ? 1 : 0;
    takenBack += done.find("nothing of it was put") != std::string::npos ? 1 : 0;
    EXPECT_EQ(FinishOpening(files_, "/g"), "");
    if (!stopped) break;
  }
  EXPECT_GT(finished, 1);
  EXPECT_GT(takenBack, 0);
}

TEST_F(GameOpeningTest, AChangeThatFailsTakesAllBackAtOnce) {
  files_.OnlyOnce = true;
  for (int changes = 0;; ++changes) {
    files_.Contents = kMine;
    files_.ChangesLeft = changes;
    const OpeningResult result = Open(Differing::kReplace);
    if (result.Problem.empty()) break;
    EXPECT_EQ(files_.Contents, kMine) << "after " << changes << " changes: " << result.Problem;
    EXPECT_TRUE(result.Problem.starts_with("The game was not put into the folder: "));
  }
}

TEST_F(GameOpeningTest, AListThatNamesFilesOutsideIsNotCarriedOut) {
  const Folder before = files_.Contents;
  files_.Contents["/g/.brindlemoor-opening/list"] =
      "The files of a game, to be moved to their places:\n../x.txt\n";
  files_.Contents["/g/.brindlemoor-opening/~1.txt"] = "evil";
  EXPECT_NE(FinishOpening(files_, "/g"), "");
  EXPECT_EQ(files_.Contents, before);
}

TEST_F(GameOpeningTest, TwoProgramsDoNotOpenAtTheSameTime) {
  files_.OthersHold = true;
  EXPECT_NE(Open(Differing::kReplace).Problem, "");
  EXPECT_EQ(FinishOpening(files_, "/g"), "");
  EXPECT_EQ(files_.Contents, kMine);
}

}  // namespace
}  // namespace brindlemoor

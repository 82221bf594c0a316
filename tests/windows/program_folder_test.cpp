// Which folder the program takes.
#include "apps/brindlemoor/program_folder.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <thread>
#include <unistd.h>

#include "apps/brindlemoor/folder_filling.h"
#include "platform/machine_file.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

class ProgramFolderTest : public testing::Test {
 protected:
  ProgramFolderTest() {
    root_ = fs::canonical(fs::temp_directory_path()) /
            ("brindlemoor-folders-" + std::to_string(getpid()));
    Write("shipped/Pebbles.txt", "remark\n#GAMERULES, Pebbles\n");
    Write("shipped/pebbles/Miller.txt", "#CARD");
    Write("shipped/README.md", "for those who make games");
    Write("program/notes.txt", "no game");
    choice_.ExecutableFolder = Path("program");
    choice_.DataHome = Path("data");
    choice_.Home = Path("home");
    choice_.ShippedGames = {Path("nowhere"), Path("shipped")};
  }
  ~ProgramFolderTest() override { fs::remove_all(root_); }

  std::string Path(const std::string& name) const { return (root_ / name).string(); }
  void Write(const std::string& name, const std::string& text) const {
    fs::create_directories((root_ / name).parent_path());
    std::ofstream(root_ / name) << text;
  }
  std::string Read(const std::string& name) const {
    std::ifstream stream(root_ / name);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  fs::path root_;
  FolderChoice choice_;
};

TEST_F(ProgramFolderTest, TheCommandLineGoesFirstThenTheProgramThenTheUser) {
  for (const char* dataHome : {"", "relative/data"}) {
    choice_.DataHome = dataHome;
    EXPECT_EQ(FindProgramFolder(choice_).Folder, Path("home/.local/share/brindlemoor"));
    EXPECT_EQ(FindProgramFolder(choice_).Shipped, Path("shipped"));
  }
  fs::create_directory(Path("links"));
  fs::create_directory_symlink(Path("shipped"), Path("links/brindlemoor"));
  choice_.DataHome = Path("links");
  EXPECT_EQ(FindProgramFolder(choice_).Folder, Path("shipped"));
  EXPECT_EQ(FindProgramFolder(choice_).Shipped, "") << "they would be updated by themselves";
  Write("program/Pebbles.txt", "#GAMERULES, Pebbles");
  EXPECT_EQ(FindProgramFolder(choice_).Folder, Path("program"));
  EXPECT_EQ(FindProgramFolder(choice_).Shipped, "");
  fs::create_directories(Path("empty"));
  choice_.Argument = Path("program/../empty/");
  EXPECT_EQ(FindProgramFolder(choice_).Folder, Path("empty"));
  EXPECT_EQ(FindProgramFolder(choice_).Shipped, "");
  EXPECT_EQ(FindProgramFolder(choice_).Error, "");
}

TEST_F(ProgramFolderTest, TheFirstStartCopiesTheGamesAndLaterOnesLeaveThemAlone) {
  Write("data/brindlemoor/pebbles/Miller.txt", "mine");
  ASSERT_EQ(FindProgramFolder(choice_).Folder, Path("data/brindlemoor"));
  EXPECT_EQ(Read("data/brindlemoor/Pebbles.txt"), Read("shipped/Pebbles.txt"));
  EXPECT_EQ(Read("data/brindlemoor/pebbles/Miller.txt"), "mine");
  EXPECT_FALSE(fs::exists(Path("data/brindlemoor/README.md")));

  Write("data/brindlemoor/Pebbles.txt", "#GAMERULES, Changed");
  fs::remove(Path("data/brindlemoor/pebbles/Miller.txt"));
  ASSERT_EQ(FindProgramFolder(choice_).Folder, Path("data/brindlemoor"));
  EXPECT_EQ(Read("data/brindlemoor/Pebbles.txt"), "#GAMERULES, Changed");
  EXPECT_FALSE(fs::exists(Path("data/brindlemoor/pebbles/Miller.txt")));
}

TEST_F(ProgramFolderTest, WhatKilledStartsLeftIsTakenAwayAndNothingElse) {
  const std::string digits(32, 'a');
  const std::string half = "data/.brindlemoor-" + digits + ".new~";
  Write(half + "/Pebbles.txt", "half");
  Write("data/.brindlemoor-mine.new~/Pebbles.txt", "the user's");
  Write("elsewhere/file", "behind a link");
  fs::create_directory_symlink(Path("elsewhere"), root_ / half / "link");
  ASSERT_EQ(FindProgramFolder(choice_).Error, "");
  EXPECT_FALSE(fs::exists(Path(half)));
  EXPECT_TRUE(fs::exists(Path("data/.brindlemoor-mine.new~/Pebbles.txt")));
  EXPECT_TRUE(fs::exists(Path("elsewhere/file")));

  // A start that another one has begun meanwhile holds its folder.
  Write(half + "/Pebbles.txt", "half");
  {
    HeldFile other;
    ASSERT_EQ(other.Take(Path("data/.brindlemoor-filling.lock")), HoldResult::kHeld);
    Write("data/brindlemoor/.brindlemoor-filling", "begun");
    std::thread end([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(200));
      EXPECT_TRUE(fs::exists(Path(half)));
      fs::remove(Path("data/brindlemoor/.brindlemoor-filling"));
      fs::remove_all(Path(half));
      fs::remove(Path("data/.brindlemoor-filling.lock"));
    });
    EXPECT_EQ(FindProgramFolder(choice_).Error, "");
    end.join();
  }
}

TEST_F(ProgramFolderTest, OnlyOldPartsOfSavesAreRemoved) {
  const std::string names[] = {"data/.brindlemoor-aa.part~", "data/low/.brindlemoor-bb.part~",
                               "data/.brindlemoor-cc.part~", "data/Ann.part~",
                               "data/.brindlemoor-1.lock"};
  for (const std::string& name : names) {
    Write(name, "");
    const auto age = std::chrono::hours(name.find("cc") == name.npos ? 25 : 23);
    fs::last_write_time(Path(name), fs::file_time_type::clock::now() - age);
  }
  RemoveOldParts(Path("data"));
  for (const std::string& name : names) {
    const bool isOldPart = name == names[0] || name == names[1];
    EXPECT_EQ(fs::exists(Path(name)), !isOldPart) << name;
  }
}

TEST_F(ProgramFolderTest, WhatIsWrongIsSaid) {
  Write("data/file", "");
  Write("taken/brindlemoor", "a file");
  const struct {
    std::string Argument, DataHome, Home;
    bool Shipped;
    const char* Words;
  } cases[] = {
      {Path("nowhere"), "", "", true, "There is no folder"},
      {Path("data/file"), "", "", true, "is not a folder"},
      {"", "", "", true, "no home folder"},
      {"", Path("data/file"), "", true, "can't be copied"},
      {"", Path("data"), "", false, "There are no games"},
      {"", Path("taken"), "", true, "is not a folder"},
  };
  for (const auto& row : cases) {
    choice_.Argument = row.Argument;
    choice_.DataHome = row.DataHome;
    choice_.Home = row.Home;
    choice_.ShippedGames.clear();
    if (row.Shipped) choice_.ShippedGames = {Path("shipped")};
    const ProgramFolderResult result = FindProgramFolder(choice_);
    EXPECT_EQ(result.Folder, "");
    EXPECT_NE(result.Error.find(row.Words), std::string::npos) << result.Error;
  }
}

}  // namespace
}  // namespace brindlemoor

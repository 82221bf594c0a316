// Which folder the program takes.
#include "apps/brindlemoor/program_folder.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <unistd.h>

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
  }
  Write("program/Pebbles.txt", "#GAMERULES, Pebbles");
  EXPECT_EQ(FindProgramFolder(choice_).Folder, Path("program"));
  fs::create_directories(Path("empty"));
  choice_.Argument = Path("program/../empty/");
  EXPECT_EQ(FindProgramFolder(choice_).Folder, Path("empty"));
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

TEST_F(ProgramFolderTest, WhatIsWrongIsSaid) {
  Write("data/file", "");
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
  };
  for (const auto& row : cases) {
    choice_.Argument = row.Argument;
    choice_.DataHome = row.DataHome;
    choice_.Home = row.Home;
    if (!row.Shipped) choice_.ShippedGames.clear();
    const ProgramFolderResult result = FindProgramFolder(choice_);
    EXPECT_EQ(result.Folder, "");
    EXPECT_NE(result.Error.find(row.Words), std::string::npos) << result.Error;
  }
}

}  // namespace
}  // namespace brindlemoor

// An update of the shipped games in a user's folder: what goes, what comes and what stays.
#include "sharing/games_update.h"

#include <gtest/gtest.h>

#include "platform/headless/memory_files.h"
#include "sharing/shipped_list.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

using Folder = std::map<std::string, std::string>;

const Folder kFirst = {{"Goblins.txt", "rules 1"},
                       {"goblins/Cards.txt", "cards 1"},
                       {"goblins/Old.txt", "Old card with old.png"},
                       {"art/old.png", "old picture"},
                       {"art/moth.png", "moth"}};
const Folder kSecond = {{"Goblins.txt", "rules 2"},
                        {"goblins/Cards.txt", "cards 2"},
                        {"goblins/New.txt", "new cards"},
                        {"art/moth.png", "moth"},
                        {"elves/Elf.txt", "an elf"}};

/// Lists what two editions ship, the second only where it is wanted.
std::string ListOf(bool both) {
  std::string list = "The files that came with Brindlemoor\n";
  const auto add = [&list](int edition, const std::string& name, const std::string& hash) {
    list += Joined(edition, " ", hash, " ", name, "\n");
  };
  for (const auto& [name, bytes] : kFirst) add(1, name, HashOf(bytes));
  if (!both) return list;
  for (const auto& [name, bytes] : kSecond) {
    if (!kFirst.contains(name) || kFirst.at(name) != bytes) add(2, name, HashOf(bytes));
  }
  for (const auto& [name, bytes] : kFirst) {
    if (!kSecond.contains(name)) add(2, name, "-");
  }
  return list;
}

class GamesUpdateTest : public ::testing::Test {
 protected:
  GamesUpdateTest() {
    Put("/shipped/", kSecond);
    Put("/g/", kFirst);
    files_.Contents["/shipped/ShippedFiles.list"] = ListOf(true);
    files_.Contents["/g/ShippedFiles.list"] = ListOf(false);
  }
  void Put(const std::string& folder, const Folder& files) {
    for (const auto& [name, bytes] : files) files_.Contents[folder + name] = bytes;
  }
  void Empty() {
    std::erase_if(files_.Contents, [](const auto& file) { return file.first.starts_with("/g/"); });
  }
  Folder Mine() const {
    Folder mine;
    for (const auto& [path, bytes] : files_.Contents) {
      if (path.starts_with("/g/")) mine[path.substr(3)] = bytes;
    }
    return mine;
  }
  std::string Update() { return UpdateGames(files_, "/g", "/shipped"); }
  /// The second edition, and what a test has changed.
  static Folder Updated(const Folder& changes, const std::vector<std::string>& without = {}) {
    Folder folder = kSecond;
    folder["ShippedFiles.list"] = ListOf(true);
    for (const auto& [name, bytes] : changes) folder[name] = bytes;
    for (const std::string& name : without) folder.erase(name);
    return folder;
  }

  MemoryFileSystem files_;
};

TEST_F(GamesUpdateTest, WhatNobodyTouchedBecomesTheNewEditionAndThatIsToldOnce) {
  for (const bool hasRecord : {true, false}) {
    Empty();
    Put("/g/", kFirst);
    if (hasRecord) files_.Contents["/g/ShippedFiles.list"] = ListOf(false);
    EXPECT_EQ(Update(), "The games that come with the program have been updated: 6 files.");
    EXPECT_EQ(Mine(), Updated({}));
    EXPECT_EQ(Update(), "");
    EXPECT_EQ(Mine(), Updated({}));
  }
}

TEST_F(GamesUpdateTest, WhatTheUserHasStays) {
  const struct {
    const char* Case;
    Folder Changes;
    std::vector<std::string> Deleted;
    Folder Expected;
    std::vector<std::string> Without;
    const char* Told;
  } cases[] = {
      {"a changed card file",
       {{"goblins/Cards.txt", "mine"}},
       {},
       {{"goblins/Cards.txt", "mine"}},
       {},
       "5 files.\n\nThese files are yours and stayed as they are:\ngoblins/Cards.txt\n"},
      {"a deleted file", {}, {"goblins/Cards.txt"}, {}, {"goblins/Cards.txt"}, "5 files."},
      {"a deleted folder gets no new files",
       {},
       {"goblins/Cards.txt", "goblins/Old.txt"},
       {},
       {"goblins/Cards.txt", "goblins/New.txt"},
       "3 files."},
      {"an own file of a new one's name, elsewhere and in another case",
       {{"mine/NEW.TXT", "mine"}},
       {},
       {{"mine/NEW.TXT", "mine"}},
       {"goblins/New.txt"},
       "5 files.\n\nThese files are yours and stayed as they are:\ngoblins/New.txt\n"},
      {"a file in the place of a new folder",
       {{"elves", "mine"}},
       {},
       {{"elves", "mine"}},
       {"elves/Elf.txt"},
       "These files are yours and stayed as they are:\nelves/Elf.txt\n"},
      {"a changed file that is shipped no more",
       {{"goblins/Old.txt", "mine"}},
       {},
       {{"goblins/Old.txt", "mine"}},
       {},
       "5 files."},
      {"what only the user has",
       {{"Ann_Goblins.plr", "owned"}, {"Mine.txt", "rules"}, {"Display.html", "page: old.png"}},
       {},
       {{"Ann_Goblins.plr", "owned"}, {"Mine.txt", "rules"}, {"Display.html", "page: old.png"}},
       {},
       "6 files."},
      {"the new edition already", {{"goblins/Cards.txt", "cards 2"}}, {}, {}, {}, "5 files."},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.Case);
    Empty();
    Put("/g/", kFirst);
    Put("/g/", row.Changes);
    files_.Contents["/g/ShippedFiles.list"] = ListOf(false);
    for (const std::string& name : row.Deleted) files_.Contents.erase("/g/" + name);
    const std::string told = Update();
    EXPECT_NE(told.find(row.Told), told.npos) << told;
    EXPECT_EQ(Mine(), Updated(row.Expected, row.Without));
    EXPECT_EQ(Update(), "");
    EXPECT_EQ(Mine(), Updated(row.Expected, row.Without));
  }
}

TEST_F(GamesUpdateTest, AFileThatAUsersDeckNamesStaysWithWhatItNeeds) {
  files_.Contents["/g/Ann_Goblins.plr"] = "#CARD, Gob, GOBLINS\\OLD.TXT";
  const std::string told = Update();
  EXPECT_NE(told.find("updated: 4 files."), told.npos) << told;
  EXPECT_NE(told.find("as your files name them:\ngoblins/Old.txt\nart/old.png"), told.npos) << told;
  EXPECT_EQ(files_.Contents.at("/g/goblins/Old.txt"), kFirst.at("goblins/Old.txt"));
  EXPECT_EQ(files_.Contents.at("/g/art/old.png"), "old picture");
  EXPECT_EQ(Update(), "");
}

TEST_F(GamesUpdateTest, WithoutARecordWhatTheFirstEditionHadAndIsGoneStaysAway) {
  files_.Contents.erase("/g/ShippedFiles.list");
  files_.Contents.erase("/g/goblins/Cards.txt");
  files_.Contents["/g/Goblins.txt"] = "mine";
  Update();
  EXPECT_EQ(Mine(), Updated({{"Goblins.txt", "mine"}}, {"goblins/Cards.txt"}));
}

TEST_F(GamesUpdateTest, OtherFoldersAndOtherProgramsAreLeftAlone) {
  const auto expectUnchanged = [this](const char* what) {
    const Folder before = Mine();
    EXPECT_EQ(Update(), "") << what;
    EXPECT_EQ(Mine(), before) << what;
  };
  files_.OthersHold = true;
  expectUnchanged("another program updates");
  files_.OthersHold = false;
  const std::string list = files_.Contents["/shipped/ShippedFiles.list"];
  files_.Contents["/shipped/ShippedFiles.list"] = list + "no line";
  expectUnchanged("a list that is none");
  files_.Contents["/shipped/ShippedFiles.list"] = list;
  Empty();
  files_.Contents["/g/Goblins.txt"] = "the user's game, never filled";
  expectUnchanged("a folder with games of the user only");
}

TEST_F(GamesUpdateTest, AnInstallationThatIsNotWholeChangesNothing) {
  const Folder before = Mine();
  files_.Contents["/shipped/goblins/New.txt"] = "half";
  const std::string told = Update();
  EXPECT_NE(told.find("could not be updated: /shipped/goblins/New.txt is not"), told.npos) << told;
  EXPECT_EQ(Mine(), before);
}

TEST_F(GamesUpdateTest, WhatTheUserChangedAfterABrokenOffUpdateStays) {
  files_.Contents["/g/.brindlemoor-update/list"] =
      "The files of an update, to be moved to their places:\n"
      "Goblins.txt\ngoblins/Cards.txt\nremove:art/old.png\nShippedFiles.list\n";
  files_.Contents["/g/.brindlemoor-update/~1.txt"] = "rules 2";
  files_.Contents["/g/.brindlemoor-update/~2.txt"] = "cards 2";
  files_.Contents["/g/.brindlemoor-update/~4.list"] = ListOf(true);
  files_.Contents["/g/goblins/Cards.txt"] = "mine";
  files_.Contents["/g/art/old.png"] = "mine, too";
  EXPECT_EQ(Update(), "The games that come with the program have been updated.");
  EXPECT_EQ(files_.Contents.at("/g/Goblins.txt"), "rules 2");
  EXPECT_EQ(files_.Contents.at("/g/goblins/Cards.txt"), "mine");
  EXPECT_EQ(files_.Contents.at("/g/art/old.png"), "mine, too");
  EXPECT_FALSE(files_.FolderExists("/g/.brindlemoor-update"));
}

}  // namespace
}  // namespace brindlemoor

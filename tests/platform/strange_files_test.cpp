// What a stranger's folder may hold in place of files: links that lead out of it, pipes, devices
// and files without end. None is followed, waited for or written through.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/files.h"
#include "platform/machine_file.h"
#include "platform/program_copy.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSecret = "the user's own";

/// "home" with a user's file; "home/games" with the program's folder "game" in it.
class StrangeFilesTest : public ::testing::Test {
 protected:
  StrangeFilesTest() {
    std::string pattern = (fs::temp_directory_path() / "brindlemoor-strange-XXXXXX").string();
    root_ = fs::canonical(::mkdtemp(pattern.data()));
    for (const char* folder : {"secrets", "games/game/sub/deep", "games/other"}) {
      fs::create_directories(root_ / folder);
    }
    Put("secrets/key", kSecret);
    Put("games/beside.txt", "beside");
    Put("games/other/card.txt", "other");
    Put("games/game/sub/card.txt", "card");
    Put("games/game/sub/deep/card.txt", "deep");
    files_.KeepTo(In(""));
  }
  ~StrangeFilesTest() override {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
  }

  void Put(const std::string& name, const std::string& bytes) const {
    std::ofstream(root_ / name, std::ios::binary) << bytes;
  }
  std::string BytesOf(const std::string& name) const {
    std::ifstream stream(root_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  /// A path of the program's folder.
  std::string In(const std::string& name) const {
    return (root_ / "games/game").string() + (name.empty() ? "" : "/" + name);
  }
  void Link(const std::string& name, const std::string& target) const {
    fs::create_symlink(target, In(name));
  }

  fs::path root_;
  LocalFileSystem files_;
};

TEST_F(StrangeFilesTest, ReadingFollowsLinksOnlyWithinTheFoldersThatNamesAreLookedUpIn) {
  const struct {
    const char* Name;
    const char* Target;
    const char* Path;   ///< that is read
    const char* Bytes;  ///< nullptr when it is not
  } rows[] = {
      {"inside.txt", "sub/card.txt", "inside.txt", "card"},
      {"two.txt", "inside.txt", "two.txt", "card"},
      {"deep.txt", "sub/deep/card.txt", "deep.txt", "deep"},
      {"up.txt", "../beside.txt", "up.txt", "beside"},
      {"subs", "sub", "subs/card.txt", "card"},
      {"sub/across.txt", "../inside.txt", "sub/across.txt", "card"},
      {"out.txt", "../../secrets/key", "out.txt", nullptr},
      {"again.txt", "out.txt", "again.txt", nullptr},
      {"sub/out.txt", "/proc/self/status", "sub/out.txt", nullptr},
      {"secrets", "../../secrets", "secrets/key", nullptr},
      {"other", "../other", "other/card.txt", nullptr},
      {"behind", "../../secrets", "behind/../secrets/key", nullptr},
      {"../out.txt", "../secrets/key", "../out.txt", nullptr},
      {"root", "/", "root/proc/self/status", nullptr},
      {"sub/up", "..", "sub/up/sub/../out.txt", nullptr},
  };
  for (const auto& row : rows) {
    Link(row.Name, row.Target);
    const std::string path = In(row.Path);
    const bool reads = row.Bytes != nullptr;
    EXPECT_EQ(files_.Exists(path), reads) << row.Path;
    EXPECT_EQ(files_.Read(path).value_or("-"), reads ? row.Bytes : "-") << row.Path;
    EXPECT_EQ(files_.WhyUnread(path).find("leads out") != std::string::npos, !reads) << row.Path;
  }
  for (const char* folder : {"secrets", "other", "root"}) {
    EXPECT_FALSE(files_.FolderExists(In(folder))) << folder;
    EXPECT_TRUE(files_.ListFiles(In(folder)).empty() && files_.ListFolders(In(folder)).empty());
  }
  EXPECT_TRUE(files_.FolderExists(In("subs")));
  EXPECT_EQ(files_.Read((root_ / "games/other/card.txt").string()), "other") << "no name of a card";
}

TEST_F(StrangeFilesTest, WritingReplacesLinksAndNeverLeavesTheFolder) {
  Link("Display.html", "../../secrets/key");
  Link("CardImages.list", In("sub/card.txt"));
  Link("nowhere.plr", "../../secrets/new");
  Link("round.txt", "round.txt");
  for (const char* name : {"Display.html", "CardImages.list", "nowhere.plr", "round.txt"}) {
    EXPECT_EQ(files_.Write(In(name), "page"), "") << name;
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(In(name)))) << name;
    EXPECT_EQ(BytesOf(Joined("games/game/", name)), "page");
  }
  EXPECT_EQ(BytesOf("games/game/sub/card.txt"), "card");
  Link("secrets", "../../secrets");
  Link("other", "../other");
  Link("subs", "sub");
  for (const char* path :
       {"secrets/key", "secrets/new", "other/card.txt", "../beside.txt", "../new.txt",
        "sub/../../new.txt", "sub/../secrets/new", "secrets/../new"}) {
    EXPECT_NE(files_.Write(In(path), "page"), "") << path;
    EXPECT_NE(files_.Remove(In(path)), "") << path;
    EXPECT_NE(files_.Rename(In("sub/card.txt"), In(path)), "") << path;
    EXPECT_NE(files_.Rename(In(path), In("sub/taken.txt")), "") << path;
  }
  for (const char* path : {"secrets/new", "other/new", "../new"}) {
    EXPECT_NE(files_.AddFolder(In(path)), "") << path;
  }
  EXPECT_NE(files_.RemoveFolderOfFiles((root_ / "secrets").string()), "");
  EXPECT_EQ(files_.Write((root_ / "secrets/key").string(), "page"),
            "It lies outside of the program's folder");
  EXPECT_EQ(files_.Write(In("subs/card.txt"), "new"), "");
  EXPECT_EQ(BytesOf("games/game/sub/card.txt"), "new");
  EXPECT_EQ(BytesOf("secrets/key"), kSecret);
  EXPECT_EQ(std::distance(fs::directory_iterator(root_ / "secrets"), {}), 1);
  EXPECT_EQ(BytesOf("games/beside.txt") + BytesOf("games/other/card.txt"), "besideother");
}

TEST_F(StrangeFilesTest, WhatTheUserChoseIsReadAndWrittenWhereverItLies) {
  Link("mine.txt", "../../secrets/key");
  Link("theirs.txt", "../../secrets/key");
  files_.TakeChoice(In("mine.txt"));
  EXPECT_EQ(files_.Read(In("mine.txt")), kSecret);
  EXPECT_FALSE(files_.Read(In("theirs.txt"))) << "only the one that was chosen";
  const std::string chosen = (root_ / "games/other/card.txt").string();
  EXPECT_NE(files_.Write(chosen, "new"), "");
  files_.TakeChoice(chosen);
  EXPECT_EQ(files_.Write(chosen, "new"), "");
  EXPECT_EQ(files_.Write(chosen + ".unsaved", "beside it"), "");
  files_.TakeChoice((root_ / "secrets").string());
  EXPECT_EQ(files_.Write((root_ / "secrets/new").string(), "in a chosen folder"), "");
  files_.KeepTo(In("sub"));
  files_.KeepTo(In(""));
  EXPECT_EQ(files_.Write(chosen, "newer"), "") << "a choice holds to the end of the program";
}

TEST_F(StrangeFilesTest, WhatIsNoFileIsRefusedAtOnceWithAWord) {
  ASSERT_EQ(::mkfifo(In("pipe.txt").c_str(), 0600), 0);
  fs::create_directory(In("folder.txt"));
  { std::ofstream large(In("large.txt")); }
  std::error_code full;
  fs::resize_file(In("large.txt"), std::uintmax_t{5} << 30, full);
  const struct {
    std::string Path;
    const char* Word;
  } rows[] = {
      {In("pipe.txt"), "it is a pipe"},
      {In("folder.txt"), "it is a folder"},
      {In("large.txt"), "it is larger than 256 MB"},
      {"/dev/zero", "it is a device, no file"},
      {"/proc/self/status", "it grows while it is read, or gives more than its size says"},
      {In("missing.txt"), ""},
      {In("sub/card.txt/below"), ""},
  };
  for (const auto& [path, word] : rows) {
    if (full && path == In("large.txt")) continue;
    EXPECT_FALSE(files_.Read(path)) << path;
    EXPECT_EQ(files_.WhyUnread(path), word) << path;
  }
  Link("pipe", "pipe.txt");
  EXPECT_FALSE(files_.Read(In("pipe")));
  for (const char* name : {"pipe.txt", "folder.txt"}) EXPECT_NE(files_.Write(In(name), "x"), "");
  EXPECT_EQ(files_.Write(In("pipe"), "x"), "") << "the link goes, not the pipe";
  EXPECT_TRUE(fs::is_fifo(In("pipe.txt")));
}

TEST_F(StrangeFilesTest, AJournalBeginsWhereNothingIs) {
  Link("session.journal", "../../secrets/key");
  Link("next.journal", "../../secrets/new");
  ASSERT_EQ(::mkfifo(In("pipe.journal").c_str(), 0600), 0);
  for (const char* name : {"session.journal", "next.journal", "pipe.journal", "sub"}) {
    EXPECT_NE(GrowingFile().Create(In(name)), "") << name;
  }
  EXPECT_EQ(BytesOf("secrets/key"), kSecret);
  EXPECT_FALSE(fs::exists(root_ / "secrets/new"));
}

TEST_F(StrangeFilesTest, ProgramsOnOneFolderHaveNumbersOfTheirOwn) {
  {
    const ProgramCopy first(In(""));
    const ProgramCopy second(In(""));
    EXPECT_EQ(Joined(first.Number(), " ", second.Number()), "1 2");
    const ProgramCopy elsewhere(In("sub"));
    EXPECT_EQ(elsewhere.Number(), 1);
  }
  EXPECT_EQ(files_.ListFiles(In("")).size(), 0U) << "nothing is left";
  // What a crashed program left, and what a stranger put in its place.
  Put("games/game/.brindlemoor-1.lock", "");
  EXPECT_EQ(ProgramCopy(In("")).Number(), 1);
  Link(".brindlemoor-1.lock", "../../secrets/key");
  fs::create_directory(In(".brindlemoor-2.lock"));
  EXPECT_EQ(ProgramCopy(In("")).Number(), 3);
  EXPECT_EQ(BytesOf("secrets/key"), kSecret);
}

}  // namespace
}  // namespace brindlemoor

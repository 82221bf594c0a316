// What archives of strangers are refused for.
#include "sharing/game_archive.h"

#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

constexpr std::string_view kRules = "#GAMERULES, Goblins, , #102030, goblins, \n";

/// An entry in the plain format of archives.
std::string Entry(std::string_view kind, std::string_view name, std::string_view bytes = "") {
  return Joined(kind, " ", bytes.size(), " ", name, "\n", bytes);
}
std::string ArchiveOf(const std::string& entries) { return Joined("FILES\n", entries); }
std::string Rules() { return Entry("FILE", "Goblins.txt", kRules); }

class GameArchiveTest : public SessionTest {};

TEST_F(GameArchiveTest, GivesFilesInTheOrderOfTheirNamesAndTheGames) {
  const GameArchive archive = ReadGameArchive(
      ArchiveOf(Entry("FOLDER", "goblins/") + Entry("FILE", "goblins/M\xC3\xB6we.txt", "#CARD") +
                Rules() + Entry("FILE", "art/a.PNG", "123")));
  EXPECT_EQ(archive.Problem, "");
  EXPECT_EQ(archive.Files, (std::vector<ArchiveFile>{{"Goblins.txt", std::string(kRules)},
                                                     {"art/a.PNG", "123"},
                                                     {"goblins/M\xC3\xB6we.txt", "#CARD"}}));
  EXPECT_EQ(archive.Games, std::vector<std::string>{"Goblins"});
  EXPECT_EQ(archive.Bytes, kRules.size() + 8);
}

TEST_F(GameArchiveTest, OneBadEntryRefusesTheWhole) {
  const struct {
    std::string Entry;
    const char* Reason;
  } cases[] = {
      {Entry("LINK", "art/a.png", "/etc/passwd"), "\"art/a.png\", which is a link"},
      {Entry("OTHER", "art/a.png"), "neither a file nor a folder"},
      {Entry("LOCKED", "art/a.png", "xx"), "is encrypted"},
      {Entry("FILE", "/etc/a.txt"), "is absolute"},
      {Entry("FILE", "../a.txt"), "leads to another folder"},
      {Entry("FILE", "art/../../a.txt"), "leads to another folder"},
      {Entry("FOLDER", "../art/"), "leads to another folder"},
      {Entry("FILE", "art/./a.png"), "leads to another folder"},
      {Entry("FILE", "art//a.png"), "a folder without a name"},
      {Entry("FILE", "C:a.txt"), "has a drive letter"},
      {Entry("FILE", "art\\a.png"), "has a backslash"},
      {Entry("FILE", "a\xFF.txt"), "\"a?.txt\", which is no UTF-8 text"},
      {Entry("FILE", "a\tb.txt"), "has control characters"},
      {Entry("FILE",
             "a\xC2\x9B"
             "b.txt"),
       "has control characters"},
      {Entry("FILE", "a\xE2\x80\xAEtxt.b.txt"), "has control characters"},
      {Entry("FILE", "what?.txt"), "characters that some systems can't keep"},
      {Entry("FILE", "art/Nul.png"), "is a device on some systems"},
      {Entry("FILE", "art./a.png"), "ends with a blank or a full stop"},
      {Entry("FILE", ".hidden.txt"), "is hidden"},
      {Entry("FILE", ".brindlemoor-opening/list.txt"), "is hidden"},
      {Entry("FILE", std::string(300, 'x') + ".txt"), "is too long"},
      {Entry("FILE", "a/b/c.png"), "lies in a folder of a folder"},
      {Entry("FILE", "goblins.TXT"), "is there twice"},
      {Entry("FILE", "art/a.png") + Entry("FILE", "ART/A.png"), "is there twice"},
      {Entry("FILE", "x.txt") + Entry("FILE", "X.TXT/a.png"), "is there twice"},
      {Entry("FILE", "a.png/b.png") + Entry("FILE", "a.png"), "is there twice"},
      {Entry("FILE", "run.sh"), "of no kind that games have"},
      {Entry("FILE", "txt"), "of no kind that games have"},
      {Entry("FILE", "Debug.on"), "of no kind that games have"},
      {Entry("FILE", "Ann_Goblins.plr"), "that the program or a player has"},
      {Entry("FILE", "art/Ann_Goblins.MATCH"), "that the program or a player has"},
      {Entry("FILE", "playerprofiles.TXT"), "that the program or a player has"},
      {Entry("FILE", "display-2.HTML"), "that the program or a player has"},
      {Entry("FOLDER", "goblins/", "bytes"), "a folder with bytes of its own"},
      {"NONSENSE", "is damaged"},
  };
  for (const auto& row : cases) {
    for (const std::string& entries : {row.Entry + Rules(), Rules() + row.Entry}) {
      const GameArchive archive = ReadGameArchive(ArchiveOf(entries));
      EXPECT_NE(archive.Problem.find(row.Reason), std::string::npos)
          << row.Entry << ": " << archive.Problem;
      EXPECT_TRUE(archive.Files.empty()) << row.Entry;
    }
  }
}

TEST_F(GameArchiveTest, HoldsAGameAtItsTop) {
  for (const std::string& entries :
       {std::string(), Entry("FILE", "a.png", "x"), Entry("FILE", "in/Goblins.txt", kRules),
        Entry("FILE", "Goblins.txt", "#GAMERULES")}) {
    EXPECT_NE(ReadGameArchive(ArchiveOf(entries)).Problem.find("holds no game"), std::string::npos);
  }
}

/// Unpacks to as many entries and bytes as it is told, whatever the archive.
class BottomlessLibrary : public ArchiveLibrary {
 public:
  std::size_t Entries = 1;
  std::size_t Blocks = 1;
  mutable std::size_t Taken = 0;

  std::string Read(std::string_view, ArchiveVisitor& visitor) const override {
    const std::string block(std::size_t{1} << 20, 'x');
    for (std::size_t entry = 0; entry < Entries; ++entry) {
      if (!visitor.Begin({Joined("art/", entry, ".png")})) return "";
      for (std::size_t count = 0; count < Blocks; ++count) {
        ++Taken;
        if (!visitor.Take(block)) return "";
      }
    }
    return "";
  }
  std::string Write(std::span<const ArchiveFile>, std::string&) const override { return ""; }
};

TEST_F(GameArchiveTest, WhatIsUnpackedIsCountedAndEndsAtABound) {
  const auto library = std::make_shared<BottomlessLibrary>();
  desktop_->SetArchives(library);
  library->Blocks = 1'000'000;
  const std::string small(1000, 'z');
  EXPECT_EQ(ReadGameArchive(small).Problem, "The archive holds more than 100 times its own size.");
  EXPECT_LT(library->Taken, 20U);
  library->Taken = 0;
  const std::string large(std::size_t{8} << 20, 'z');
  EXPECT_EQ(ReadGameArchive(large).Problem, "The archive holds more than 256.0 MB.");
  EXPECT_EQ(library->Taken, 257U);
  library->Blocks = 0;
  library->Entries = 1'000'000;
  EXPECT_EQ(ReadGameArchive(small).Problem, "The archive has more than 10000 entries.");
}

}  // namespace
}  // namespace brindlemoor

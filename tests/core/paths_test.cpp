// File references: where they are looked for, and that none leads out of the searched folders.
#include "core/paths.h"

#include "tests/support/session_test.h"
#include "text/addresses.h"

namespace brindlemoor {
namespace {

class PathsTest : public SessionTest {
 protected:
  PathsTest() { State().ProgramFolder = "/home/x"; }
  /// Where a name is found once there is one more file.
  std::string FoundWith(const std::string& path, std::string_view name, int asUrl = 0) {
    files_->Contents[path] = "";
    return ResolvePath(name, asUrl);
  }
};

TEST_F(PathsTest, OnlyTheLastComponentOfANameCounts) {
  for (const char* path :
       {"Cards\\Orc.jpg", "a/b\\Orc.jpg", "Orc.jpg\\\\b", "Orc.jpg//b", "Orc.jpg/", "\\Orc.jpg"}) {
    EXPECT_EQ(FileNameOf(path), "Orc.jpg") << path;
  }
}

TEST_F(PathsTest, LooksInTheFolderItsParentAndItsSubfoldersInOrder) {
  for (const char* far : {"/home/x/a/deep/1.jpg", "/home/y/1.jpg", "/1.jpg"}) {
    EXPECT_EQ(FoundWith(far, "1.jpg"), "") << "neither two deep, nor beside, nor two up";
  }
  EXPECT_EQ(FoundWith("/home/x/b/1.JPG", "1.jpg"), "/home/x/b/1.JPG");
  EXPECT_EQ(FoundWith("/home/x/b/1.jpg", "1.jpg"), "/home/x/b/1.jpg");
  EXPECT_EQ(FoundWith("/home/x/a/1.jpg", "1.jpg"), "/home/x/a/1.jpg");
  EXPECT_EQ(FoundWith("/home/1.jpg", "1.jpg"), "/home/1.jpg");
  EXPECT_EQ(FoundWith("/home/x/1.JPG", "1.jpg"), "/home/1.jpg") << "the exact case comes first";
  EXPECT_EQ(FoundWith("/home/x/1.jpg", "Pictures\\1.jpg"), "/home/x/1.jpg");
  EXPECT_EQ(FoundWith("/home/x/1.jpg", "1.jpg", 1), "file:///home/x/1.jpg");
}

TEST_F(PathsTest, APageReachesPicturesInFoldersOfAnyName) {
  const std::pair<std::string, std::string> rows[] = {
      {"/home/x/My Orc & co's (1)+;,=@!~.jpg", "/home/x/My Orc & co's (1)+;,=@!~.jpg"},
      {"/a b%20#c?d/x.jpg", "/a b%2520%23c%3Fd/x.jpg"},
      {"/M\xC3\xBChle/x.jpg", "/M%C3%BChle/x.jpg"},
      {"/\"\\\t\n\x7F/x.jpg", "/%22%5C%09%0A%7F/x.jpg"},
      {"/R&amp;D/&copy.jpg", "/R%26amp;D/%26copy.jpg"},
      {"/a<b>c/x.jpg", "/a%3Cb>c/x.jpg"},
      {"", ""},
  };
  for (const auto& [path, address] : rows) EXPECT_EQ(PageAddress(path), address);
  State().ProgramFolder = "/50%/#1";
  EXPECT_EQ(FoundWith("/50%/#1/1.jpg", "1.jpg", 0), "/50%/#1/1.jpg");
  EXPECT_EQ(FoundWith("/50%/#1/1.jpg", "1.jpg", 1), "file:///50%25/%231/1.jpg");
  EXPECT_EQ(FoundWith("/50%/#1/1.jpg", "2.jpg", 1), "");
  for (const char* path : {"/a b/50%#?\"<\xC3\xA9", "/%20%2", "/x%zz"}) {
    EXPECT_EQ(PathOfUrl(FileUrl(path)), path);
  }
  EXPECT_EQ(PathOfUrl("help:x"), "");
}

TEST_F(PathsTest, NoReferenceLeadsOutOfTheFolders) {
  using namespace std::string_view_literals;
  files_->Contents["/home/x/a.jpg"] = "";
  for (const std::string_view reference :
       {""sv, "."sv, ".."sv, "a\\.."sv, "/etc/passwd"sv, "..\\..\\etc\\passwd"sv, "x/"sv, "\\"sv,
        "*"sv, "..\0.jpg"sv}) {
    EXPECT_EQ(FoundWith("/etc/passwd", reference), "") << reference;
  }
}

TEST_F(PathsTest, ResolvingMakesTheProgramFolderTheCurrentOne) {
  State().CurrentFolder = "/elsewhere";
  EXPECT_EQ(InCurrentFolder("deck.txt"), "/elsewhere/deck.txt");
  EXPECT_EQ(InCurrentFolder("/abs/deck.txt"), "/abs/deck.txt");
  EXPECT_EQ(InProgramFolder("Sub\\deck.txt"), "/home/x/Sub/deck.txt");
  ResolvePath("a.jpg", 0);
  EXPECT_EQ(InCurrentFolder("deck.txt"), "/home/x/deck.txt");
  EXPECT_EQ(FileUrl("/a b/50%#?\"<\xC3\xA9"), "file:///a%20b/50%25%23%3F%22%3C%C3%A9");
}

}  // namespace
}  // namespace brindlemoor

// File references: where they are looked for, and that none leads out of the searched folders.
#include "core/paths.h"

#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class PathsTest : public SessionTest {
 protected:
  PathsTest() { State().ProgramFolder = "/home/x"; }
  void Put(const std::string& path) { files_->Contents[path] = ""; }
};

TEST_F(PathsTest, OnlyTheLastComponentOfANameCounts) {
  const std::pair<const char*, const char*> cases[] = {
      {"Goblin.jpg", "Goblin.jpg"},
      {"Cards\\Goblin.jpg", "Goblin.jpg"},
      {"C:\\G\\X\\a.jpg", "a.jpg"},
      {"a/b\\c", "c"},
      {"a\\\\b", "a"},
      {"a//b", "a"},
      {"a\\", "a"},
      {"\\b", "b"},
      {"", ""},
      {"..\\..\\etc/passwd", "passwd"},
  };
  for (const auto& [path, name] : cases) EXPECT_EQ(FileNameOf(path), name) << path;
  std::string inPlace = "Cards\\Goblin.jpg";
  EXPECT_EQ(FileNameOnly(inPlace), "Goblin.jpg");
  EXPECT_EQ(inPlace, "Goblin.jpg");
}

TEST_F(PathsTest, LooksInTheFolderItsParentAndItsSubfoldersInOrder) {
  Put("/home/x/b/one.jpg");
  Put("/home/x/a/one.jpg");
  EXPECT_EQ(ResolvePath("one.jpg", 0), "/home/x/a/one.jpg");
  Put("/home/one.jpg");
  EXPECT_EQ(ResolvePath("one.jpg", 0), "/home/one.jpg");
  Put("/home/x/one.jpg");
  EXPECT_EQ(ResolvePath("Pictures\\one.jpg", 0), "/home/x/one.jpg");
  EXPECT_EQ(ResolvePath("one.jpg", 1), "file:///home/x/one.jpg");

  Put("/home/x/a/deep/two.jpg");
  Put("/home/y/two.jpg");
  Put("/two.jpg");
  EXPECT_EQ(ResolvePath("two.jpg", 0), "") << "neither two deep, nor beside, nor two up";
  EXPECT_EQ(ResolvePath("two.jpg", 1), "");
}

TEST_F(PathsTest, AnExactNameAnywhereComesBeforeAnotherCase) {
  Put("/home/x/GOBLIN.JPG");
  EXPECT_EQ(ResolvePath("goblin.jpg", 0), "/home/x/GOBLIN.JPG");
  Put("/home/x/pictures/goblin.jpg");
  EXPECT_EQ(ResolvePath("goblin.jpg", 0), "/home/x/pictures/goblin.jpg");
}

TEST_F(PathsTest, NoReferenceLeadsOutOfTheFolders) {
  Put("/etc/passwd");
  Put("/home/x/a.jpg");
  for (const char* reference :
       {"", ".", "..", "a\\..", "/etc/passwd", "..\\..\\etc\\passwd", "x/", "\\", "pass", "*"}) {
    EXPECT_EQ(ResolvePath(reference, 0), "") << reference;
  }
  EXPECT_EQ(ResolvePath(std::string_view("..\0.jpg", 7), 0), "");
}

TEST_F(PathsTest, ResolvingMakesTheProgramFolderTheCurrentOne) {
  State().CurrentFolder = "/elsewhere";
  EXPECT_EQ(InCurrentFolder("deck.txt"), "/elsewhere/deck.txt");
  EXPECT_EQ(InCurrentFolder("/abs/deck.txt"), "/abs/deck.txt");
  EXPECT_EQ(InProgramFolder("Sub\\deck.txt"), "/home/x/Sub/deck.txt");
  ResolvePath("a.jpg", 0);
  EXPECT_EQ(InCurrentFolder("deck.txt"), "/home/x/deck.txt");
}

TEST_F(PathsTest, UrlsEscapeWhatWouldEndThem) {
  EXPECT_EQ(FileUrl("/home/x/Display.html"), "file:///home/x/Display.html");
  EXPECT_EQ(FileUrl("/a b/50%#?\"<\xC3\xA9"), "file:///a%20b/50%25%23%3F%22%3C%C3%A9");
}

}  // namespace
}  // namespace brindlemoor

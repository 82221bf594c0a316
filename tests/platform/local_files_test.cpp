// The machine's file system: whole reads, and writes that never lose the old file.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/files.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

class LocalFilesTest : public ::testing::Test {
 protected:
  LocalFilesTest() {
    std::string pattern = (fs::temp_directory_path() / "brindlemoor-test-XXXXXX").string();
    folder_ = ::mkdtemp(pattern.data());
  }
  ~LocalFilesTest() override {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  std::string In(const std::string& name) const { return folder_ + "/" + name; }
  void Put(const std::string& name, const std::string& bytes) const {
    std::ofstream(In(name), std::ios::binary) << bytes;
  }
  /// Every entry of the folder, hidden ones as well.
  std::vector<std::string> Entries() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  std::string folder_;
  LocalFileSystem files_;
};

TEST_F(LocalFilesTest, WritesAndReadsAnyBytes) {
  const std::string bytes("a\0b\r\n\xFF", 6);
  EXPECT_EQ(files_.Write(In("one"), bytes), "");
  EXPECT_EQ(files_.Read(In("one")), bytes);
  const std::string big(3 << 20, 'x');
  EXPECT_EQ(files_.Write(In("one"), big), "");
  EXPECT_EQ(files_.Read(In("one")), big);
  EXPECT_EQ(files_.Write(In("one"), ""), "");
  EXPECT_EQ(files_.Read(In("one")), "");
  EXPECT_EQ(Entries(), std::vector<std::string>{"one"}) << "nothing is left beside the file";
}

TEST_F(LocalFilesTest, AFailedWriteSaysWhyAndLeavesEverythingAsItWas) {
  EXPECT_NE(files_.Write(In("missing/file"), "new"), "");
  fs::create_directory(In("folder"));
  EXPECT_NE(files_.Write(In("folder"), "new"), "");
  Put("file", "old");
  EXPECT_NE(files_.Write(In("file/below"), "new"), "");
  EXPECT_NE(files_.Write(In(std::string(300, 'n')), "new"), "");
  EXPECT_NE(files_.Write("", "new"), "");
  EXPECT_NE(files_.Write(std::string(In("file") + '\0' + "x"), "new"), "");
  EXPECT_EQ(files_.Read(In("file")), "old");
  EXPECT_EQ(Entries(), (std::vector<std::string>{"file", "folder"}));
}

TEST_F(LocalFilesTest, AWriteProtectedFileOrFolderIsNotReplaced) {
  if (::geteuid() == 0) GTEST_SKIP() << "the super user may write everywhere";
  Put("file", "old");
  ::chmod(In("file").c_str(), 0444);
  EXPECT_NE(files_.Write(In("file"), "new"), "");
  EXPECT_EQ(files_.Read(In("file")), "old");
  ::chmod(In("file").c_str(), 0644);
  ::chmod(folder_.c_str(), 0555);
  EXPECT_NE(files_.Write(In("file"), "new"), "");
  ::chmod(folder_.c_str(), 0755);
  EXPECT_EQ(files_.Read(In("file")), "old");
}

TEST_F(LocalFilesTest, AReplacedFileKeepsItsRightsAndALinkStaysALink) {
  Put("file", "old");
  ::chmod(In("file").c_str(), 0640);
  fs::create_symlink("file", In("link"));
  EXPECT_EQ(files_.Write(In("link"), "new"), "");
  EXPECT_TRUE(fs::is_symlink(In("link")));
  EXPECT_EQ(files_.Read(In("file")), "new");
  struct stat status {};
  ASSERT_EQ(::stat(In("file").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_F(LocalFilesTest, ListsByNameFilesApartFromFolders) {
  for (const char* name : {"b", "B", "a", "\xC3\xA9", "c.txt"}) Put(name, "");
  fs::create_directory(In("sub2"));
  fs::create_directory(In("sub1"));
  Put("sub1/deep", "");
  EXPECT_EQ(files_.ListFiles(folder_),
            (std::vector<std::string>{"B", "a", "b", "c.txt", "\xC3\xA9"}));
  EXPECT_EQ(files_.ListFolders(folder_), (std::vector<std::string>{"sub1", "sub2"}));
  EXPECT_TRUE(files_.ListFiles(In("missing")).empty());
  EXPECT_TRUE(files_.ListFolders(In("a")).empty());
}

TEST_F(LocalFilesTest, OnlyPlainFilesExistAndAreRead) {
  Put("file", "x");
  fs::create_directory(In("folder"));
  ASSERT_EQ(::mkfifo(In("pipe").c_str(), 0600), 0);
  EXPECT_TRUE(files_.Exists(In("file")));
  EXPECT_TRUE(files_.FolderExists(In("folder")));
  EXPECT_FALSE(files_.FolderExists(In("file")));
  for (const std::string& name : {std::string("folder"), std::string("pipe"),
                                  std::string("missing"), std::string("file\0x", 6)}) {
    EXPECT_FALSE(files_.Exists(In(name))) << name;
    EXPECT_FALSE(files_.Read(In(name)).has_value()) << name;
  }
}

}  // namespace
}  // namespace brindlemoor

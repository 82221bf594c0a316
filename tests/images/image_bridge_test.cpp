// Pictures to files and back.
#include "images/image_bridge.h"

#include "game/program_start.h"
#include "platform/controls.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

Raster Checkers(int width, int height) {
  Raster picture(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) picture.SetPixel(x, y, (x + y) % 2 == 0 ? 0x123456 : 0xFEDCBA);
  }
  return picture;
}

class ImageBridgeTest : public SessionTest {
 protected:
  ImageBridgeTest() {
    box_.Drawing = std::make_shared<const Raster>(Checkers(3, 2));
    bridge_.Error = [this](int status, const std::string& text) {
      errors_ += Joined(status, " ", text, "; ");
    };
  }
  /// Comment of a written file, which is its quality; "(none)" without one.
  std::string QualityOf(const std::string& name) const {
    const std::string bytes = ReadFile(name);
    if (!bytes.starts_with("P6\n")) return bytes;
    return bytes[3] == '#' ? bytes.substr(5, bytes.find('\n', 3) - 5) : "(none)";
  }

  PictureBox box_{"Box"};
  cGdiPlus bridge_;
  std::string errors_;
};

TEST_F(ImageBridgeTest, TheExtensionIsBehindTheLastDotOfTheName) {
  const std::pair<const char*, const char*> names[] = {
      {"a.jpg", "jpg"}, {"a.b.JPEG", "JPEG"}, {"a", ""},         {"a.", ""}, {".png", "png"},
      {"a.b/c", ""},    {"C:\\a.b\\c", ""},   {"a.b\\c.d", "d"}, {"", ""},
  };
  for (const auto& [name, extension] : names) {
    EXPECT_EQ(cGdiPlus::FileExtension(name), extension) << name;
  }
}

TEST_F(ImageBridgeTest, EncodersAreFoundByPatternWithoutRegardToCase) {
  const int jpeg = bridge_.FindEncoder("*.jpg");
  const int bitmap = bridge_.FindEncoder("*.BMP");
  EXPECT_EQ(bridge_.FindEncoder("*.JPEG"), jpeg);
  EXPECT_EQ(bridge_.FindEncoder("*.Jfif"), jpeg);
  EXPECT_EQ(bridge_.FindEncoder("*.rle"), bitmap);
  EXPECT_GE(jpeg, 0);
  EXPECT_GE(bitmap, 0);
  EXPECT_NE(jpeg, bitmap);
  for (const char* key : {"*.", "*.gif", "jpg", "", "*.BMP;*.DIB"}) {
    EXPECT_EQ(bridge_.FindEncoder(key), -1) << key;
  }
}

TEST_F(ImageBridgeTest, PatternsAreTrimmedAndTheLastEncoderKeepsACommonOne) {
  desktop_->Images().Known = {{{1}, " *.One ; *.both;; "}, {{2}, "*.BOTH;*.two"}};
  const cGdiPlus bridge;
  EXPECT_EQ(bridge.FindEncoder("*.one"), 0);
  EXPECT_EQ(bridge.FindEncoder("*.two"), 1);
  EXPECT_EQ(bridge.FindEncoder("*.both"), 1);
  EXPECT_EQ(bridge.FindEncoder(""), -1);
}

TEST_F(ImageBridgeTest, WhatIsDrawnIsWrittenWithAQualityWhereTheExtensionBeginsWithJ) {
  const struct {
    const char* Name;
    int Quality;
    const char* Written;
  } rows[] = {
      {"a.jpg", 100, "quality 100"}, {"b.JPEG", 85, "quality 85"}, {"c.jfif", 0, "quality 0"},
      {"d.jpe", 101, "quality 100"}, {"e.jpg", -5, "quality 0"},   {"f.bmp", 85, "(none)"},
      {"g.png", 85, "(none)"},
  };
  for (const auto& row : rows) {
    EXPECT_TRUE(bridge_.PictureBoxToFile(box_, row.Name, row.Quality)) << row.Name;
    EXPECT_EQ(QualityOf(row.Name), row.Written) << row.Name;
    EXPECT_EQ(bridge_.FilenameToIPicture(row.Name), Checkers(3, 2)) << row.Name;
  }
  State().CurrentFolder = "/game/cards";
  EXPECT_TRUE(bridge_.PictureBoxToFile(box_, "sub\\h.bmp", 85));
  EXPECT_TRUE(files_->Contents.contains("/game/cards/sub/h.bmp"));
  EXPECT_EQ(errors_, "");
}

TEST_F(ImageBridgeTest, NamesWithoutAnEncoderWriteNothingAndSayNothing) {
  for (const char* name : {"a", "a.", "a.txt", "a.b\\c", "a.b/c"}) {
    EXPECT_FALSE(bridge_.PictureBoxToFile(box_, name, 100)) << name;
  }
  desktop_->Images().Known.clear();
  EXPECT_FALSE(cGdiPlus().PictureBoxToFile(box_, "a.jpg", 100));
  EXPECT_TRUE(files_->Contents.empty());
  EXPECT_EQ(errors_, "");
}

TEST_F(ImageBridgeTest, ABoxWithAFileGivesItsPictureAndAnEmptyOneAnError) {
  WriteFile("shown.bmp", MemoryImageLibrary::PixmapBytes(Checkers(5, 4)));
  box_.Drawing = std::shared_ptr<const Raster>();
  box_.Picture = "/game/shown.bmp";
  EXPECT_TRUE(bridge_.PictureBoxToFile(box_, "a.jpg", 100));
  EXPECT_EQ(bridge_.SizeOfFile("a.jpg"), (PictureSize{5, 4}));
  for (const char* file : {"/game/none.bmp", ""}) {
    box_.Picture = file;
    EXPECT_FALSE(bridge_.PictureBoxToFile(box_, "b.jpg", 100)) << file;
  }
  box_.Drawing = std::make_shared<const Raster>();
  EXPECT_FALSE(bridge_.PictureBoxToFile(box_, "b.jpg", 100));
  EXPECT_FALSE(files_->Exists("/game/b.jpg"));
  EXPECT_EQ(errors_, "10 File Not Found; 2 Invalid Parameter; 2 Invalid Parameter; ");
}

TEST_F(ImageBridgeTest, AFailedWriteTellsWhyAndKeepsTheOldFile) {
  WriteFile("a.jpg", "old");
  const std::pair<std::string, std::string> rows[] = {
      {std::make_error_code(std::errc::no_space_on_device).message(), "7 Win32 Error: "},
      {std::make_error_code(std::errc::permission_denied).message(), "12 Access Denied: "},
      {std::make_error_code(std::errc::read_only_file_system).message(), "12 Access Denied: "},
  };
  for (const auto& [reason, said] : rows) {
    errors_.clear();
    files_->WriteError = reason;
    EXPECT_FALSE(bridge_.PictureBoxToFile(box_, "a.jpg", 100));
    EXPECT_EQ(errors_, Joined(said, reason, "; "));
    EXPECT_EQ(ReadFile("a.jpg"), "old");
  }
}

TEST_F(ImageBridgeTest, FilesThatAreNoPicturesGiveNothingAndAnError) {
  const std::string whole = MemoryImageLibrary::PixmapBytes(Checkers(3, 2));
  const struct {
    std::string Bytes;
    const char* Said;
  } rows[] = {
      {"", "13 Unknown Image Format; "},
      {"GIF89a", "13 Unknown Image Format; "},
      {whole.substr(0, whole.size() - 1), "1 Generic Error; "},
      {"P6 0 5 255\n", "2 Invalid Parameter; "},
      {"P6 30000 30000 255\n", "3 Out Of Memory; "},
  };
  for (const auto& row : rows) {
    errors_.clear();
    WriteFile("bad.jpg", row.Bytes);
    EXPECT_EQ(bridge_.FilenameToIPicture("bad.jpg"), std::nullopt) << row.Said;
    EXPECT_EQ(errors_, row.Said);
  }
  errors_.clear();
  EXPECT_EQ(bridge_.FilenameToIPicture("none.jpg"), std::nullopt);
  EXPECT_EQ(bridge_.SizeOfFile("none.jpg"), std::nullopt);
  EXPECT_EQ(errors_, "10 File Not Found; 10 File Not Found; ");
  bridge_.Error = nullptr;
  EXPECT_EQ(bridge_.SizeOfFile("none.jpg"), std::nullopt) << "nobody need listen";
}

TEST_F(ImageBridgeTest, EveryStatusHasItsText) {
  const std::pair<int, const char*> rows[] = {
      {1, "Generic Error"},
      {2, "Invalid Parameter"},
      {3, "Out Of Memory"},
      {4, "Object Busy"},
      {5, "Insufficient Buffer"},
      {6, "Not Implemented"},
      {7, "Win32 Error"},
      {8, "Wrong State"},
      {9, "Aborted"},
      {10, "File Not Found"},
      {11, "Value Overflow"},
      {12, "Access Denied"},
      {13, "Unknown Image Format"},
      {14, "FontFamily Not Found"},
      {15, "FontStyle Not Found"},
      {16, "Not TrueType Font"},
      {17, "Unsupported Gdiplus Version"},
      {18, "Gdiplus Not Initialized"},
      {19, "Property Not Found"},
      {20, "Property Not Supported"},
      {0, "Unknown GDI+ Error"},
      {21, "Unknown GDI+ Error"},
      {-1, "Unknown GDI+ Error"},
  };
  for (const auto& [status, text] : rows) EXPECT_EQ(cGdiPlus::GdiErrorString(status), text);
}

TEST_F(ImageBridgeTest, WithoutADesktopTheLibraryDoesNotStart) {
  const std::shared_ptr<Platform> desktop = std::exchange(State().Desktop, nullptr);
  cGdiPlus bridge(bridge_.Error);
  EXPECT_EQ(bridge.FilenameToIPicture("a.jpg"), std::nullopt);
  EXPECT_FALSE(bridge.PictureBoxToFile(box_, "a.jpg", 100));
  EXPECT_EQ(errors_, "18 Gdiplus Not Initialized; 18 Gdiplus Not Initialized; ");
  State().Desktop = desktop;
}

TEST_F(ImageBridgeTest, ANewGameMakesTheSharedOne) {
  State().Profile.PlayerName = "Ann";
  NewGame();
  ASSERT_NE(State().ImageBridge, nullptr);
  EXPECT_GE(State().ImageBridge->FindEncoder("*.jpg"), 0);
}

}  // namespace
}  // namespace brindlemoor

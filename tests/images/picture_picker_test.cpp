// The picture picker: which files a page shows, how they load, folders, the crop's four clicks.
#include "images/picture_picker.h"

#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

const std::string kPhotos = "/photos";

class PicturePickerTest : public SessionTest {
 protected:
  static std::string Bytes(int width, int height) {
    return MemoryImageLibrary::PixmapBytes(Raster(width, height));
  }
  void Put(const std::string& path, int width = 2, int height = 2) {
    files_->Contents[path] = Bytes(width, height);
  }
  /// A folder with pictures 1001.jpg, 1002.jpg and so on.
  std::string FolderOf(int count) {
    const std::string folder = Joined("/many", count);
    files_->Contents[folder + "/readme.txt"] = "";
    for (int number = 1; number <= count; ++number) {
      Put(Joined(folder, "/", 1000 + number, ".jpg"));
    }
    return folder;
  }
  PicPick& Picker() {
    if (picker_ == nullptr) {
      picker_ = std::make_unique<PicPick>();
      picker_->Form_Load();
      picker_->Shown = true;
    }
    return *picker_;
  }
  PictureBox& Cell(int cell) { return Picker().Image1[cell]; }
  std::string Name(int cell) { return Picker().PicNameLabel[cell].Caption; }
  int ShownCells() {
    int shown = 0;
    for (int cell = 0; cell < PicPick::kCells; ++cell) {
      const bool visible = Cell(cell).Visible;
      EXPECT_EQ(Picker().PicNameLabel[cell].Visible, visible);
      EXPECT_TRUE(!visible || cell == shown) << "no gap before cell " << cell;
      if (visible) ++shown;
    }
    return shown;
  }
  void Scroll(int value) {
    Picker().VScroll1.Value = value;
    Picker().VScroll1.Change();
  }
  void LoadAll() {
    for (int tick = 0; tick < PicPick::kCells && Picker().LoadTimer.Enabled; ++tick) {
      Picker().LoadTimer.Tick();
    }
    EXPECT_FALSE(Picker().LoadTimer.Enabled);
  }
  void Open(int item) {
    Picker().Dirbox.Selected = item;
    Picker().Dirbox.Open();
  }

  std::unique_ptr<PicPick> picker_;
};

TEST_F(PicturePickerTest, FilesStandPatternAfterPatternAndBitmapsTwice) {
  for (const char* name : {"a.JPG", "b.bmp", "c.gif", "d.jpeg", "e.png", "f.webp", "g.Bmp", "h.txt",
                           "i.jpg.txt", "j.jpg", "k"}) {
    Put(Joined(kPhotos, "/", name));
  }
  std::string names;
  Picker().ShowFolder(kPhotos + "/");
  for (const std::string& file : Picker().FileList) {
    EXPECT_TRUE(file.empty() || file.starts_with(kPhotos + "/")) << file;
    names += file.substr(std::min(file.size(), kPhotos.size() + 1)) + " ";
  }
  EXPECT_EQ(names, "b.bmp g.Bmp a.JPG j.jpg c.gif d.jpeg b.bmp g.Bmp e.png f.webp  ");
  EXPECT_EQ(Picker().FileCount, 9);
  EXPECT_EQ(ShownCells(), 10);
}

TEST_F(PicturePickerTest, APageShowsTwentyAndTheBarReachesTheLast) {
  const struct {
    int Files, Maximum, Shown, LastFirst;
    const char* Count;
  } cases[] = {
      {0, -3, 0, 0, "No pictures in this folder"},
      {1, -3, 1, 0, "Pictures 1 to 1 of 1"},
      {3, -2, 3, 0, "Pictures 1 to 3 of 3"},
      {20, 1, 20, 0, "Pictures 1 to 20 of 20"},
      {22, 1, 20, 2, "Pictures 1 to 20 of 22"},
      {23, 2, 20, 3, "Pictures 1 to 20 of 23"},
      {1040, 205, 20, 1020, "Pictures 1 to 20 of 1,040"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.Files);
    Picker().ShowFolder(FolderOf(row.Files));
    LoadAll();
    EXPECT_EQ(Picker().VScroll1.Maximum, row.Maximum);
    EXPECT_EQ(Picker().VScroll1.Enabled, row.Maximum > 0);
    EXPECT_EQ(ShownCells(), row.Shown);
    EXPECT_EQ(Picker().CountLabel.Caption.Get(), row.Count);
    Scroll(std::max(row.Maximum, 1));
    EXPECT_EQ(Picker().FirstShown, row.LastFirst);
    EXPECT_EQ(ShownCells(), row.Shown);
    if (row.Files > 0) {
      EXPECT_EQ(Name(row.Shown - 1), Joined(1000 + row.Files, ".jpg"));
    }
    Picker().Command1.Click();
    EXPECT_LE(Picker().VScroll1.Value, std::max(row.Maximum, 1));
    EXPECT_EQ(ShownCells(), row.Shown);
  }
}

TEST_F(PicturePickerTest, KeysScrollTheGridByRowsAndPages) {
  Picker().ShowFolder(FolderOf(103));
  const struct {
    int Cell;
    PictureKey Key;
    int First;  // -1 the key moves the focus instead
  } steps[] = {
      {16, PictureKey::kDown, 5},     {9, PictureKey::kDown, -1}, {4, PictureKey::kUp, 0},
      {4, PictureKey::kUp, 0},        {7, PictureKey::kUp, -1},   {7, PictureKey::kLeft, -1},
      {0, PictureKey::kPageDown, 20}, {0, PictureKey::kEnd, 83},  {19, PictureKey::kDown, 83},
      {9, PictureKey::kPageUp, 70},   {9, PictureKey::kHome, 0},
  };
  for (const auto& [cell, key, first] : steps) {
    EXPECT_EQ(Cell(cell).KeyDown(key), first >= 0);
    if (first >= 0) {
      EXPECT_EQ(Picker().FirstShown, first) << static_cast<int>(key);
    }
  }
}

TEST_F(PicturePickerTest, NamesComeAtOnceAndPicturesOneByOne) {
  const std::string folder = FolderOf(40);
  files_->Contents[folder + "/1007.jpg"] = "no picture";
  files_->Contents[folder + "/1022.jpg"] = "no picture";
  Picker().ShowFolder(folder);
  EXPECT_EQ(Name(19), "1020.jpg");
  EXPECT_EQ(Picker().CountLabel.Caption.Get(), "Pictures 1 to 20 of 40, loading 1 of 20");
  for (int tick = 0; tick < 6; ++tick) Picker().LoadTimer.Tick();
  EXPECT_EQ(Cell(5).Picture.Get(), folder + "/1006.jpg");
  EXPECT_EQ(Cell(5).ToolTip.Get(), "1006.jpg (2 by 2)");
  EXPECT_EQ(Cell(6).Picture.Get(), "");
  EXPECT_EQ(Picker().CountLabel.Caption.Get(), "Pictures 1 to 20 of 40, loading 7 of 20");
  LoadAll();
  EXPECT_EQ(Cell(6).Picture.Get() + Cell(6).Caption.Get(), "unreadable") << "there was none before";
  EXPECT_EQ(Cell(19).Picture.Get(), folder + "/1020.jpg") << "the loop goes on";
  Scroll(1);
  EXPECT_EQ(Cell(0).Picture.Get(), folder + "/1006.jpg") << "what was seen needs no loading";
  EXPECT_EQ(Cell(15).Picture.Get(), "") << "no other picture over a name";
  LoadAll();
  EXPECT_EQ(Cell(16).Picture.Get(), folder + "/1017.jpg") << "an unreadable file keeps the last";
  EXPECT_EQ(Name(16) + Cell(16).Badge.Get(), "1022.jpgunreadable");
  Scroll(2);
  LoadAll();
  EXPECT_EQ(Cell(16).Picture.Get() + Cell(16).Badge.Get(), folder + "/1027.jpg");
}

TEST_F(PicturePickerTest, FoldersAreChosenByDrivesAndLists) {
  Put("/photos/a/one.jpg");
  Put("/photos/a/deep/two.jpg");
  Put("/photos/a/.hidden/three.jpg");
  Put("/top.jpg");
  EXPECT_EQ(Picker().Folder(), "/game/") << "the program's own comes first";
  EXPECT_EQ(Picker().Drive1.Text.Get(), "/");
  Picker().ShowFolder("/photos/a");
  EXPECT_EQ(Picker().Dirbox.Items.Get(),
            (std::vector<std::string>{"/", "    photos", "        a", "            deep"}));
  EXPECT_EQ(Picker().Dirbox.Selected, 3);
  Open(4);
  EXPECT_EQ(Picker().Folder(), "/photos/a/deep/");
  EXPECT_EQ(Name(0), "two.jpg");
  Open(2);
  EXPECT_EQ(Picker().Folder(), "/photos/");
  EXPECT_EQ(ShownCells(), 0);
  Picker().Drive1.Text = "/";
  Picker().Drive1.Change();
  EXPECT_EQ(Picker().Folder() + Name(0), "/top.jpg");
  desktop_->ExpectedMessages = {"The folder \"/gone\" is no longer there."};
  Picker().ShowFolder("/gone");
  EXPECT_EQ(Picker().Folder(), "/");

  Picker().ShowFolder(FolderOf(60));
  Scroll(3);
  Picker().Dirbox.Click();
  EXPECT_EQ(Picker().FirstShown, 0);
  EXPECT_EQ(Name(0), "1001.jpg") << "what is seen is what a click would choose";
  EXPECT_EQ(Picker().VScroll1.Value, 0);
  Picker().ShowFolder(FolderOf(60));
  EXPECT_EQ(Picker().VScroll1.Value, 0);
  Scroll(3);
  EXPECT_EQ(Name(0), "1016.jpg") << "the place in another folder does not count";
}

TEST_F(PicturePickerTest, AFileThatCameWhileItWasHiddenIsSeen) {
  const std::string folder = FolderOf(60);
  Picker().ShowFolder(folder);
  Scroll(4);
  LoadAll();
  Picker().Activate();
  EXPECT_FALSE(Picker().LoadTimer.Enabled) << "nothing has changed";
  Put(folder + "/1000.jpg");
  Picker().Activate();
  EXPECT_EQ(Name(0), "1020.jpg");
  for (int number = 1011; number <= 1060; ++number) {
    files_->Contents.erase(Joined(folder, "/", number, ".jpg"));
  }
  Picker().Activate();
  EXPECT_EQ(Picker().FirstShown, 0);
  EXPECT_EQ(ShownCells(), 11);
}

TEST_F(PicturePickerTest, AClickChoosesAndClosingDoesNot) {
  const std::string folder = FolderOf(30);
  Picker().ShowFolder(folder);
  Scroll(1);
  Cell(2).MouseUp(MouseButton::kRight);
  EXPECT_TRUE(Picker().Shown);
  Cell(2).MouseUp(MouseButton::kLeft);
  EXPECT_FALSE(Picker().Shown);
  EXPECT_EQ(Picker().PicName, folder + "/1008.jpg");
  Picker().Shown = true;
  Picker().CloseButton.Click();
  EXPECT_FALSE(Picker().Shown || Picker().QueryClose());
  EXPECT_EQ(Picker().PicName, folder + "/1008.jpg");
}

constexpr const char* kPrompts[] = {"Choose Upper Left Coordinates of Main Card Picture",
                                    "Choose Lower Right Coordinates of Main Card Picture",
                                    "Choose Upper Left Coordinates of Thumbnail Picture",
                                    "Choose Lower Right Coordinates of Thumbnail Picture"};

class CropTest : public PicturePickerTest {
 protected:
  /// Chooses a picture of a size with cropping on.
  void Choose(int width, int height) {
    files_->Contents.erase("/photos/p.jpg");
    Put("/photos/p.jpg", width, height);
    State().Crop = {};
    Picker().PicSizeOn(true);
    Picker().Shown = true;
    Picker().ShowFolder(kPhotos);
    Cell(0).MouseUp(MouseButton::kLeft);
  }
  int Prompt() {
    for (int prompt = 0; prompt < 4; ++prompt) {
      if (Picker().Label1.Caption.Get() == kPrompts[prompt]) return prompt;
    }
    return -1;
  }
};

TEST_F(CropTest, LargePicturesAreShrunkToFiveHundredBySixHundred) {
  const struct {
    int Width, Height;
    float Ratio;
    int ViewWidth, ViewHeight, ClickX, X;
  } cases[] = {
      {500, 600, 1.0F, 500, 600, 499, 499},
      {1000, 600, 0.5F, 500, 300, 100, 200},
      {501, 10, 500 / 501.0F, 500, 10, 250, 250},
      {100, 1200, 0.5F, 50, 600, 49, 98},
      {1500, 300, 500 / 1500.0F, 500, 100, 100, 300},
      {40000, 1, 500 / 40000.0F, 500, 1, 499, 32767},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(Joined(row.Width, " by ", row.Height));
    Choose(row.Width, row.Height);
    EXPECT_EQ(Picker().ViewRatio, row.Ratio);
    EXPECT_EQ(Picker().Image2.ViewWidth, row.ViewWidth);
    EXPECT_EQ(Picker().Image2.ViewHeight, row.ViewHeight);
    EXPECT_EQ(Picker().Image2.Picture.Get(), "/photos/p.jpg");
    EXPECT_TRUE(Picker().Image2.Visible && Picker().LargeFrame.Visible &&
                !Picker().GridFrame.Visible);
    EXPECT_EQ(Prompt(), 0);
    Picker().Image2.PointUp(row.ClickX, 0);
    EXPECT_EQ(State().Crop.MainX1, row.X);
  }
}

TEST_F(CropTest, FourClicksChooseTheTwoPieces) {
  const struct {
    const char* Case;
    int X, Y, Prompt;  // -1 the form hides
    CropCoordinates Crop;
  } clicks[] = {
      {"the first corner", 10, 20, 1, {.MainX1 = 20, .MainY1 = 40}},
      {"left of it", 9, 30, 1, {.MainX1 = 20, .MainY1 = 40}},
      {"no height", 30, 20, 1, {.MainX1 = 20, .MainY1 = 40}},
      {"the second", 30, 50, 2, {.MainX1 = 20, .MainX2 = 60, .MainY1 = 40, .MainY2 = 100}},
      {"the thumbnail, at the upper edge",
       5,
       0,
       3,
       {.MainX1 = 20, .MainX2 = 60, .MainY1 = 40, .MainY2 = 100, .MiniX1 = 10}},
      {"no width",
       5,
       9,
       3,
       {.MainX1 = 20, .MainX2 = 60, .MainY1 = 40, .MainY2 = 100, .MiniX1 = 10}},
      {"the last", 25, 9, -1, {20, 60, 40, 100, 10, 50, 0, 18}},
      {"nothing is left to choose", 1, 1, -1, {20, 60, 40, 100, 10, 50, 0, 18}},
  };
  Picker().Label1.Caption = "before";
  Choose(1000, 600);
  for (const auto& row : clicks) {
    SCOPED_TRACE(row.Case);
    Picker().Image2.PointUp(row.X, row.Y);
    EXPECT_TRUE(State().Crop == row.Crop);
    if (row.Prompt >= 0) {
      EXPECT_EQ(Prompt(), row.Prompt);
    }
    EXPECT_EQ(Picker().Image2.Visible, row.Prompt >= 0);
    EXPECT_EQ(Picker().Shown, row.Prompt >= 0);
  }
  EXPECT_EQ(Picker().PicName, "/photos/p.jpg");
  EXPECT_EQ(Picker().Label1.Caption.Get(), "before") << "the next use must not begin with a corner";

  // Both pieces may begin at the left edge.
  Choose(1000, 600);
  for (const auto& [x, y] : {std::pair(0, 0), {30, 50}, {0, 5}, {0, 9}, {20, 25}}) {
    EXPECT_TRUE(Picker().Shown);
    Picker().Image2.PointUp(x, y);
  }
  EXPECT_TRUE(State().Crop == (CropCoordinates{0, 60, 0, 100, 0, 40, 10, 50}));
  EXPECT_FALSE(Picker().Shown);

  Choose(1000, 600);
  for (const int place : {1, 2, 3, 4}) {
    EXPECT_TRUE(Picker().Shown);
    Picker().Picture1.PointUp(place, 10 * place);
  }
  EXPECT_TRUE(State().Crop == (CropCoordinates{1, 2, 10, 20, 3, 4, 30, 40})) << "as they are";
  EXPECT_TRUE(!Picker().Shown && Picker().Image2.Visible);
  Picker().QueryClose();
  EXPECT_FALSE(Picker().Image2.Visible || Picker().LargeFrame.Visible);
}

TEST_F(CropTest, LinesShowThePieceAndItsProportion) {
  Choose(1000, 600);
  const auto marksAt = [this](int x, int y) {
    Picker().Image2.PointMove(x, y);
    return Picker().Image2.Marks.Get();
  };
  using Marks = std::vector<PictureMark>;
  const PictureMark main{10, 20, 64, 120};
  EXPECT_EQ(marksAt(30, 30), Marks{});
  Picker().Image2.PointUp(10, 20);
  EXPECT_EQ(marksAt(64, 120), (Marks{main, {10, 20, 64, 104, true}}));
  EXPECT_EQ(marksAt(200, 62), (Marks{{10, 20, 200, 62}, {10, 20, 37, 62, true}}));
  EXPECT_EQ(marksAt(5, 120), (Marks{{7, 17, 13, 23}})) << "no piece";
  Picker().Image2.PointUp(64, 120);
  EXPECT_EQ(marksAt(30, 30), Marks{main});
  Picker().Image2.PointUp(100, 100);
  EXPECT_EQ(marksAt(130, 120), (Marks{main, {100, 100, 130, 120}, {100, 100, 120, 120, true}}));
}

TEST_F(CropTest, AnotherPictureCanBeTakenAndBrokenOnesAreRefused) {
  Put("/photos/p.jpg");
  files_->Contents["/photos/q.jpg"] = "no picture";
  Picker().ShowFolder(kPhotos);
  Picker().PicSizeOn(true);
  Picker().Label1.Caption = "";
  Picker().PicName = "/before.jpg";
  desktop_->ExpectedMessages = {"The file \"q.jpg\" can't be read as a picture."};
  Cell(1).MouseUp(MouseButton::kLeft);
  EXPECT_TRUE(Picker().GridFrame.Visible && !Picker().Image2.Visible && Picker().Shown);
  EXPECT_EQ(Picker().PicName, "/before.jpg");
  Cell(0).MouseUp(MouseButton::kLeft);
  Picker().Image2.PointUp(1, 1);
  Picker().BackButton.Click();
  EXPECT_TRUE(State().Crop == CropCoordinates{});
  EXPECT_TRUE(Picker().GridFrame.Visible && Picker().Shown);
  EXPECT_EQ(Picker().Label1.Caption.Get(), "");
}

TEST_F(PicturePickerTest, ARandomFileComesFromTheFolderReadLast) {
  Put("/photos/a.jpg");
  Put("/photos/b.JPG");
  Put("/photos/c.png");
  Put("/other/d.png");
  Put("/game/e.jpg");
  const auto drawn = [](const std::string& folder, std::string_view pattern) {
    std::set<std::string> files;
    for (int draw = 0; draw < 64; ++draw) files.insert(PickRandomFile(folder, pattern));
    return files;
  };
  using Files = std::set<std::string>;
  EXPECT_EQ(drawn("/none/", "*.jpg"), Files{""});
  EXPECT_EQ(drawn("/photos/", "*.jpg"), (Files{"/photos/a.jpg", "/photos/b.JPG"}));
  files_->Contents.erase("/photos/a.jpg");
  EXPECT_EQ(drawn("/photos/", "*.png"), (Files{"/photos/a.jpg", "/photos/b.JPG"})) << "kept";
  EXPECT_EQ(drawn("/other/", "*.jpg"), Files{""});
  EXPECT_EQ(drawn("/other/", "*.png"), Files{"/other/d.png"}) << "nothing is not kept";
  EXPECT_EQ(drawn("/photos/", "*.jpg"), Files{"/photos/b.JPG"});
  EXPECT_EQ(drawn("", "*.jpg"), Files{"e.jpg"});
}

TEST(PicturePatterns, MatchWholeNames) {
  for (const char* name : {"A.JPG", ".JPG", "A.JPG.JPG", "AXB.JPG"}) {
    EXPECT_TRUE(MatchesPattern(name, "*.JPG") && MatchesPattern(name, "*?JPG")) << name;
  }
  for (const char* name : {"", "AJPG", "A.JPGX", "A.JP", ".JPG."}) {
    EXPECT_FALSE(MatchesPattern(name, "*.JPG")) << name;
  }
  EXPECT_FALSE(MatchesPattern(std::string(200, 'A'), "*AAAA*AAAA*AAAAB")) << "and in no time";
}

}  // namespace
}  // namespace brindlemoor

// The images of the edited card without a window: what is seen, kept, written and recorded.
#include "editor/edited_image.h"

#include "editor/image_composer.h"
#include "images/card_images.h"
#include "tests/support/played_pictures.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

constexpr const char* kRed = "/game/art/red.jpg";
constexpr std::int32_t kRedColor = 0xC80000;
constexpr std::int32_t kGreenColor = 0x00C800;
constexpr std::int32_t kBlueColor = 0x0000C8;

class EditedImageTest : public SessionTest {
 protected:
  EditedImageTest() {
    WriteFile("backs-generic.bmp", PictureBytes(kMainWidth, kMainHeight, kBlueColor));
    WriteFile("old.jpg", PictureBytes(2, 3, 0));
    WriteFile("old-mini.jpg", PictureBytes(2, 2, 0));
    files_->Contents[kRed] = PictureBytes(200, 300, kRedColor);
    image_.Begin();
    card_ = MakeCard("Ape", 1);
    card_.UniqueID = "Ape1";
  }
  void GiveOldImage() {
    card_.Picture = "old.jpg";
    card_.Thumb = "old-mini.jpg";
    image_.Redraw();
  }
  void Choose(const std::string& file, CropCoordinates crop = {}) {
    const auto pick = [&] {
      State().Crop = crop;
      return file;
    };
    image_.ChooseForeground(pick, false);
  }
  /// What the card names, and the foreground.
  std::string Named() const {
    return Joined(card_.Picture, "|", card_.Thumb, "|", image_.ForeFile());
  }
  std::string Recipes() const { return ReadFile("CardImages.list"); }
  std::int32_t Middle() const {
    return image_.Main().Drawing == nullptr ? -2 : image_.Main().Drawing->Pixel(150, 225);
  }

  EditedImage image_;
  Card& card_ = State().EditCard;
};

TEST_F(EditedImageTest, ARecipeStandsBesideEveryComposedImage) {
  const std::string kept = "what another program wrote\n";
  const std::string parts = "\tred.jpg\tbacks-generic.bmp\t\t0\t200\t0\t300\t0\t200\t0\t300\n";
  WriteFile("CardImages.list", kept);
  Choose(kRed);
  // A copy elsewhere is in another folder's hands.
  EXPECT_TRUE(image_.SaveAs("/art/mine.jpg"));
  EXPECT_EQ(Recipes(), kept);
  card_.Picture = Text();
  EXPECT_TRUE(image_.SaveAs("/game/mine.jpg"));
  EXPECT_EQ(Named(), "mine.jpg|mine-mini.jpg|/game/art/red.jpg");
  EXPECT_EQ(Recipes(), kept + "mine.jpg" + parts);
  // What is copied now is a finished image: nobody knows its parts any more.
  EXPECT_TRUE(image_.SaveAs("/game/copy.jpg"));
  EXPECT_EQ(Recipes(), kept + "mine.jpg" + parts);
  Choose(kRed);
  EXPECT_TRUE(image_.Store(1));
  EXPECT_EQ(Recipes(), kept + "mine.jpg" + parts + "Card-Ape1.jpg" + parts);
}

TEST_F(EditedImageTest, PartsFromElsewhereAreFoundAgainByTheirNames) {
  // Two of one name in two folders, of which the game finds the first, and one that it has already.
  files_->Contents["/game/back.bmp"] = PictureBytes(3, 3, kRedColor);
  files_->Contents["/game/sea/back.bmp"] = PictureBytes(3, 3, kGreenColor);
  files_->Contents["/art/back.bmp"] = PictureBytes(3, 3, kRedColor);
  files_->Contents["/art/red.jpg"] = PictureBytes(100, 100, kBlueColor);
  files_->Contents["/art/new.bmp"] = PictureBytes(30, 45, 0x808080);
  struct Row {
    const char* Foreground;
    const char* Background;
    const char* Recorded;
    const char* Copied;
  };
  const Row rows[] = {
      {kRed, "/game/back.bmp", "red.jpg\tback.bmp", ""},
      {kRed, "", "red.jpg\t", ""},
      {"/art/red.jpg", "/game/sea/back.bmp", "red-2.jpg\tback-2.bmp",
       "red.jpg as red-2.jpg, back.bmp as back-2.bmp"},
      {"/art/red.jpg", "/art/back.bmp", "red-2.jpg\tback.bmp", ""},
      {"/game/red-2.jpg", "/art/new.bmp", "red-2.jpg\tnew.bmp", "new.bmp"},
  };
  for (const Row& row : rows) {
    image_.NotePicked(row.Background);
    image_.ChooseBackground(row.Background);
    Choose(row.Foreground);
    std::string told;
    image_.OnNote = [&told](const std::string& note) { told = note; };
    EXPECT_TRUE(image_.SaveAs("/game/made.jpg"));
    image_.OnNote = {};
    EXPECT_EQ(told.empty() ? told : told.substr(told.find(": ") + 2),
              *row.Copied == '\0' ? "" : Joined(row.Copied, "."));
    EXPECT_TRUE(Recipes().starts_with(Joined("made.jpg\t", row.Recorded, "\t"))) << Recipes();
    // Another day, when nothing is known of what was picked, the same image comes out.
    const std::string made = ReadFile("made.jpg");
    WriteFile("made.jpg", "");
    ImageComposer("/game/").Compose(card_);
    EXPECT_TRUE(ReadFile("made.jpg") == made) << row.Recorded;
  }
}

TEST_F(EditedImageTest, WhatCantBeCopiedLeavesNoRecipeOfAnotherImage) {
  files_->Contents["/art/wide.jpg"] = PictureBytes(100, 10, kBlueColor);
  Choose(kRed);
  EXPECT_TRUE(image_.SaveAs("/game/made.jpg"));
  EXPECT_TRUE(Recipes().starts_with("made.jpg\tred.jpg\t"));
  Choose("/art/wide.jpg");
  files_->Contents.erase("/art/wide.jpg");
  desktop_->ExpectedMessages = {"Can't copy wide.jpg beside the cards: it can't be read."};
  EXPECT_TRUE(image_.SaveAs("/game/made.jpg"));
  EXPECT_EQ(Recipes(), "");
}

TEST_F(EditedImageTest, WhatCantBeComposedLeavesAllAsItWas) {
  files_->Contents["/game/art/bad.jpg"] = "no picture";
  GiveOldImage();
  Choose(kRed, {10, 100, 10, 150, 20, 60, 20, 60});
  const auto drawn = image_.Main().Drawing;
  ASSERT_EQ(Middle(), kRedColor);
  // The parts that are being tried give way to none: no file, no picture, an empty piece.
  desktop_->ExpectedMessages = {"Can't use bad.jpg: Unknown Image Format",
                                "Can't use red.jpg: the chosen piece of it is empty"};
  for (const auto& [file, crop] :
       {std::pair("", CropCoordinates{}), std::pair("/game/art/bad.jpg", CropCoordinates{}),
        std::pair(kRed, CropCoordinates{10, 10, 10, 50, 0, 0, 0, 0})}) {
    Choose(file, crop);
    EXPECT_EQ(Named(), "||/game/art/red.jpg") << file;
    EXPECT_EQ(State().Crop, (CropCoordinates{10, 100, 10, 150, 20, 60, 20, 60})) << file;
    EXPECT_EQ(*image_.Main().Drawing, *drawn) << file;
    EXPECT_TRUE(image_.IsUnsaved()) << file;
  }
  // The card that is kept meanwhile has the image that it had in a file.
  Card kept = card_;
  image_.KeepReplaced(kept);
  EXPECT_EQ(Joined(kept.Picture, kept.Thumb), "old.jpgold-mini.jpg");
  image_.ForgetForeground();
  kept = card_;
  image_.KeepReplaced(kept);
  EXPECT_EQ(kept.Picture, "") << "it belongs to another card";
}

TEST_F(EditedImageTest, AnImageIsNamedOnlyWhenItIsWritten) {
  GiveOldImage();
  Choose(kRed);
  files_->WriteError = "disk full";
  desktop_->ExpectedMessages = {"Can't save Card-Ape1.jpg: Win32 Error: disk full"};
  EXPECT_FALSE(image_.Store(1));
  EXPECT_EQ(Named(), "||/game/art/red.jpg");
  EXPECT_TRUE(image_.IsUnsaved());
  files_->WriteError = "";
  EXPECT_EQ(Recipes(), "(no such file)");

  // The file may be seen on other cards; on the same one in its own place it always may be new.
  Card other = card_;
  other.Picture = "Card-Ape1.jpg";
  State().Collection[1] = other;
  State().Collection.Append(other);
  State().Collection[2].UniqueID = "Bat1";
  desktop_->YesNoAnswers = {false};
  EXPECT_FALSE(image_.Store(1));
  EXPECT_FALSE(files_->Contents.contains("/game/Card-Ape1.jpg"));
  EXPECT_TRUE(image_.Store(2));
  EXPECT_EQ(Named(), "Card-Ape1.jpg|Card-Ape1-mini.jpg|");
  EXPECT_FALSE(image_.IsUnsaved());
}

TEST_F(EditedImageTest, AFailureIsToldOnceForEachFile) {
  image_.BackFile = "lost.bmp";
  desktop_->ExpectedMessages = {"The background lost.bmp is not there; the image has a black one.",
                                "The background gone.bmp is not there; the image has a black one.",
                                "Can't use red.jpg: Access Denied",
                                "Can't use red.jpg: Access Denied"};
  Choose(kRed);
  EXPECT_TRUE(image_.Redraw());
  image_.BackFile = "gone.bmp";
  EXPECT_TRUE(image_.Redraw());
  desktop_->Images().LoadErrors[kRed] = kImageAccessDenied;
  EXPECT_FALSE(image_.Redraw());
  EXPECT_FALSE(image_.Redraw());
  EXPECT_EQ(Middle(), kRedColor) << "what was composed goes on being seen";
  desktop_->Images().LoadErrors.clear();
  EXPECT_TRUE(image_.Redraw());
  desktop_->Images().LoadErrors[kRed] = kImageAccessDenied;
  EXPECT_FALSE(image_.Redraw()) << "it could be used in between";
}

TEST_F(EditedImageTest, WhoShowsTheImagesHearsOfAFileOfTheSameName) {
  std::vector<std::string> seen;
  image_.OnChange = [&] { seen.push_back(image_.Main().File + image_.Mini().File); };
  GiveOldImage();
  // Written anew: the box keeps the picture that it has read, unless it was told of another.
  image_.ShowNothing();
  image_.Redraw();
  const std::string both = "/game/old.jpg/game/old-mini.jpg";
  EXPECT_EQ(seen, (std::vector<std::string>{both, "", both}));
  // A file that is gone leaves what is seen.
  card_.Picture = "lost.jpg";
  EXPECT_TRUE(image_.Redraw());
  EXPECT_EQ(seen.back(), both);
}

}  // namespace
}  // namespace brindlemoor

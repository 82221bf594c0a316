// The images of the edited card: chosen, composed, saved, and what happens when that fails.
#include "images/card_images.h"
#include "tests/editor/card_edit_test.h"
#include "tests/support/played_pictures.h"

namespace brindlemoor {
namespace {

constexpr std::int32_t kRed = 0xC80000;
constexpr std::int32_t kBlue = 0x0000C8;

Card ImageCard(const std::string& name, const std::string& id) {
  Card card = MakeCard(name, 1);
  card.UniqueID = id;
  card.NameColor = "#00FF00";
  return card;
}

class CardImagesTest : public CardEditTest {
 protected:
  CardImagesTest() {
    WriteFile("backs-generic.bmp", PictureBytes(kMainWidth, kMainHeight, kBlue));
    files_->Contents["/game/art/red.jpg"] = PictureBytes(200, 300, kRed);
    files_->Contents["/game/art/white.bmp"] = PictureBytes(30, 45, 0xFFFFFF);
    files_->Contents["/game/art/bad.jpg"] = "no picture";
    Load({ImageCard("Ape", "Ape1"), ImageCard("Bat", "Bat1")});
    Choose(1);
  }
  void Load(const std::vector<Card>& cards) { LoadCards(cards); }
  /// Clicks the large image and chooses a foreground.
  void Compose(const std::string& path, std::vector<std::pair<int, int>> corners = kCorners) {
    desktop_->ModalForms = {Pick(path, std::move(corners))};
    form_.MainPic.MouseUp(MouseButton::kLeft);
  }
  std::string Images() const {
    return Joined(Edited().Picture, "|", Edited().Thumb, "|", form_.Image.ForeFile());
  }
  static std::int32_t PixelOf(const PictureBox& box, int x, int y) {
    return box.Drawing.Get() == nullptr ? -2 : box.Drawing.Get()->Pixel(x, y);
  }
  /// The files of composed images, wherever they are.
  std::string Written() const {
    std::string names;
    for (const auto& [path, bytes] : files_->Contents) {
      if (path.find("Card-") != std::string::npos) names += path + "|";
    }
    return names;
  }

  static const std::vector<std::pair<int, int>> kCorners;
};
const std::vector<std::pair<int, int>> CardImagesTest::kCorners = {
    {10, 10}, {100, 150}, {20, 20}, {60, 60}};

TEST_F(CardImagesTest, AnImageIsComposedAndWrittenWithTheCard) {
  EXPECT_EQ(PixelOf(form_.MainPic, 0, 0), kBlue) << "a card without an image shows the background";
  Compose("/game/art/red.jpg");
  EXPECT_EQ(State().Crop, (CropCoordinates{10, 100, 10, 150, 20, 60, 20, 60}));
  EXPECT_EQ(PixelOf(form_.MainPic, 150, 225), kRed);
  EXPECT_EQ(PixelOf(form_.MainPic, 5, 5), kBlue);
  EXPECT_EQ(PixelOf(form_.MiniPic, 32, 32), kRed);
  EXPECT_EQ(form_.MiniPic.Drawing.Get()->Width(), kMiniSize);
  EXPECT_EQ(form_.Caption.Get(), "Card Editor *");
  EXPECT_EQ(State().CurrentFolder, "/game/");
  EXPECT_EQ(Written(), "");

  // Another colour frames the same crop.
  const auto drawn = form_.MainPic.Drawing.Get();
  desktop_->ColorAnswers.emplace_back(0x4080FF);
  form_.ColorLabel.Click();
  EXPECT_EQ(PixelOf(form_.MainPic, 150, 225), kRed);
  EXPECT_NE(*form_.MainPic.Drawing.Get(), *drawn);
  EXPECT_EQ(State().Crop.MiniX2, 60);

  form_.savedeckmen.Click();
  EXPECT_EQ(Written(), "/game/Card-Ape1-mini.jpg|/game/Card-Ape1.jpg|");
  EXPECT_TRUE(ReadFile("Card-Ape1.jpg").starts_with("P6\n# quality 100\n300 450\n"));
  EXPECT_TRUE(ReadFile("Card-Ape1-mini.jpg").starts_with("P6\n# quality 85\n65 65\n"));
  EXPECT_EQ(Images(), "Card-Ape1.jpg|Card-Ape1-mini.jpg|");
  EXPECT_EQ(form_.Caption.Get(), "Card Editor");
  EXPECT_EQ(ReadFile("CardImages.list"),
            "Card-Ape1.jpg\tred.jpg\tbacks-generic.bmp\t\t10\t100\t10\t150\t20\t60\t20\t60\n");
  // Nothing takes the stored image away again.
  Type(form_.DescText, "typed");
  form_.undomen.Click();
  form_.undomen.Click();
  Choose(2);
  EXPECT_EQ(Joined(Stored(1).Picture, Stored(1).Thumb), "Card-Ape1.jpgCard-Ape1-mini.jpg");
  Choose(1);
  EXPECT_EQ(form_.MainPic.Picture.Get(), "/game/Card-Ape1.jpg");
  EXPECT_EQ(form_.MiniPic.Picture.Get(), "/game/Card-Ape1-mini.jpg");
  EXPECT_EQ(form_.MainPic.Drawing.Get(), nullptr);
  // A finished image is not drawn again.
  desktop_->ColorAnswers.emplace_back(0x102030);
  form_.ColorLabel.Click();
  EXPECT_EQ(form_.MainPic.Drawing.Get(), nullptr);
}

TEST_F(CardImagesTest, AFinishedImageIsReplacedOnlyWhenWanted) {
  Edited().Picture = "old.jpg";
  Edited().Thumb = "old-mini.jpg";
  desktop_->YesNoAnswers = {false};
  form_.loadformen.Click();
  EXPECT_EQ(Images(), "old.jpg|old-mini.jpg|");
  // What can't be read is no new image, and the old one stays.
  desktop_->YesNoAnswers = {true, true, true, true, true};
  desktop_->ExpectedMessages = {"Can't use bad.jpg: Unknown Image Format",
                                "Can't use red.jpg: the chosen piece of it is empty"};
  for (const char* file : {"/game/art/bad.jpg", "/game/art/red.jpg"}) {
    desktop_->ModalForms = {[file](Form& form) {
      auto& picker = dynamic_cast<PicPick&>(form);
      picker.PicName = file;
      picker.Clicked = true;
      State().Crop = {10, 10, 10, 50, 0, 0, 0, 0};
    }};
    form_.loadformen.Click();
    EXPECT_EQ(Images(), "old.jpg|old-mini.jpg|");
  }
  EXPECT_EQ(State().Crop, CropCoordinates{});
  form_.Command6.Click();
  EXPECT_EQ(Written(), "");
  // Without any crop the whole picture is taken; a picker that is closed offers its last one.
  Compose("/game/art/red.jpg", {});
  EXPECT_EQ(Images(), "||/game/art/red.jpg");
  EXPECT_EQ(State().Crop, (CropCoordinates{0, 200, 0, 300, 0, 200, 0, 300}));
  form_.UnsavedTimer.Tick();
  EXPECT_NE(ReadFile("cards.txt.unsaved").find("old.jpg"), std::string::npos)
      << "the new image is in no file";
  form_.undomen.Click();
  EXPECT_EQ(Images(), "old.jpg|old-mini.jpg|/game/art/red.jpg");
  form_.Command6.Click();
  EXPECT_EQ(Joined(Written(), Images()), "old.jpg|old-mini.jpg|");
  desktop_->ModalForms = {[](Form&) {}};
  form_.loadformen.Click();
  EXPECT_EQ(Images(), "||/game/art/red.jpg");
  // A file names the old image as long as the new one can't be written.
  form_.Image.BackFile = "";
  const std::string message = "The image is not saved: choose a background image first.";
  desktop_->ExpectedMessages = {message};
  form_.savedeckmen.Click();
  EXPECT_NE(ReadFile("cards.txt").find("old.jpg"), std::string::npos);
  EXPECT_EQ(Images(), "||/game/art/red.jpg");
  // What was stored stays through a redo.
  form_.undomen.Click();
  form_.Command6.Click();
  form_.redomen.Click();
  form_.savedeckmen.Click();
  EXPECT_NE(ReadFile("cards.txt").find("old.jpg"), std::string::npos);
}

TEST_F(CardImagesTest, AForegroundThatIsGoneIsToldOnce) {
  Compose("/game/art/red.jpg");
  const auto drawn = form_.MainPic.Drawing.Get();
  desktop_->Images().LoadErrors["/game/art/red.jpg"] = kImageAccessDenied;
  desktop_->ExpectedMessages = {"Can't use red.jpg: Access Denied"};
  desktop_->ColorAnswers = {0x102030, 0x405060};
  form_.ColorLabel.Click();
  form_.ColorLabel.Click();
  EXPECT_EQ(form_.MainPic.Drawing.Get(), drawn);
  form_.Command6.Click();
  EXPECT_EQ(Images(), "Card-Ape1.jpg|Card-Ape1-mini.jpg|");
}

TEST_F(CardImagesTest, AFailedWriteKeepsTheForegroundForThisCardOnly) {
  Compose("/game/art/red.jpg");
  files_->WriteError = "disk full";
  desktop_->ExpectedMessages = {"Can't save Card-Ape1.jpg: Win32 Error: disk full",
                                "Can't write CardPreview.html: disk full",
                                "Can't save Card-Ape1.jpg: Win32 Error: disk full"};
  form_.Command6.Click();
  EXPECT_EQ(Images(), "||/game/art/red.jpg");
  EXPECT_EQ(Stored(1).Picture, "");
  EXPECT_EQ(PixelOf(form_.MainPic, 150, 225), kRed);
  // A save that was wanted on leaving keeps the form open.
  desktop_->SaveAnswers = {SaveAnswer::kSave};
  EXPECT_TRUE(form_.QueryClose());
  files_->WriteError = "";
  form_.Command6.Click();
  EXPECT_EQ(Images(), "Card-Ape1.jpg|Card-Ape1-mini.jpg|");

  Choose(2);
  form_.Image.BackFile = "";
  Compose("/game/art/red.jpg");
  for (const bool goOn : {false, true}) {
    desktop_->ExpectedMessages = {"The image is not saved: choose a background image first."};
    desktop_->YesNoAnswers = {goOn};
    Choose(1);
    EXPECT_EQ(Images(), goOn ? "Card-Ape1.jpg|Card-Ape1-mini.jpg|" : "||/game/art/red.jpg");
    EXPECT_EQ(form_.CardCombo.Selected, goOn ? 1 : 2);
  }
  Choose(2);
  EXPECT_EQ(Images(), "||");
  EXPECT_EQ(form_.MiniPic.Drawing.Get(), nullptr);
  // A card without a name is none: its image holds nobody up.
  desktop_->YesNoAnswers = {true};
  desktop_->SaveAnswers = {SaveAnswer::kSave};
  form_.Command4.Click();
  Compose("/game/art/red.jpg");
  EXPECT_FALSE(form_.QueryClose());
}

TEST_F(CardImagesTest, ANewImageThatWasNotWrittenStaysOnTheForm) {
  for (const char* file : {"old.jpg", "old-mini.jpg"}) WriteFile(file, PictureBytes(2, 3, kBlue));
  Card ape = ImageCard("Ape", "Ape1");
  ape.Picture = "old.jpg";
  ape.Thumb = "old-mini.jpg";
  Card other = ImageCard("Bat", "Bat1");
  other.Picture = "Card-Ape1.jpg";
  desktop_->YesNoAnswers = {true};
  Load({ape, other});
  Choose(1);
  State().CostCard = MakeCard("CostCard", 1);
  Compose("/game/art/red.jpg");
  const std::pair<const char*, std::function<void()>> stores[] = {
      {"a price", [this] { form_.CostButton.Click(); }},
      {"the same card again", [this] { Choose(1); }},
      {"Save Card", [this] { form_.Command6.Click(); }},
      {"a save of all", [this] { form_.savedeckmen.Click(); }}};
  for (const auto& [name, store] : stores) {
    desktop_->YesNoAnswers = {false};  // Bat's image is not replaced
    store();
    EXPECT_EQ(Images(), "||/game/art/red.jpg") << name;
    EXPECT_EQ(Joined(Stored(1).Picture, "|", Stored(1).Thumb), "old.jpg|old-mini.jpg") << name;
    EXPECT_EQ(PixelOf(form_.MainPic, 150, 225), kRed) << name;
  }
  EXPECT_EQ(Written(), "");
  desktop_->YesNoAnswers = {true};
  form_.savedeckmen.Click();
  EXPECT_EQ(Images(), "Card-Ape1.jpg|Card-Ape1-mini.jpg|");
  EXPECT_NE(ReadFile("cards.txt").find("Card-Ape1-mini.jpg"), std::string::npos);
}

TEST_F(CardImagesTest, OtherCardsAreNotLoadedOverANewImageUnasked) {
  Card other = ImageCard("Yak", "Yak1");
  WriteFile("others.txt", "CARD DATA FILE\r\n" + CardToText(other, "COLLECTION"));
  const auto loadOthers = [this](bool saveFirst) {
    desktop_->YesNoAnswers = {saveFirst, false};  // nothing that was kept is opened
    CardEditTest::Load("others.txt");
  };
  Compose("/game/art/red.jpg");
  form_.Image.BackFile = "";
  desktop_->ExpectedMessages = {"The image is not saved: choose a background image first."};
  loadOthers(true);
  EXPECT_EQ(Stored(1).Name, "Ape");
  form_.Image.BackFile = "backs-generic.bmp";
  loadOthers(true);
  EXPECT_EQ(Stored(1).Name, "Yak");
  EXPECT_EQ(Written(), "/game/Card-Ape1-mini.jpg|/game/Card-Ape1.jpg|");
  EXPECT_NE(ReadFile("cards.txt.unsaved").find("Card-Ape1.jpg"), std::string::npos);

  Choose(1);
  Compose("/game/art/red.jpg");
  loadOthers(false);
  EXPECT_EQ(Written(), "/game/Card-Ape1-mini.jpg|/game/Card-Ape1.jpg|");
}

TEST_F(CardImagesTest, NoUniqueIDLeadsOutOfTheFolder) {
  const std::pair<const char*, const char*> names[] = {
      {"A pe 1", "Card-Ape1"},       {"../../etc/x", "Card-_2E_2E_2F_2E_2E_2Fetc_2Fx"},
      {". ./x", "Card-_2E_2E_2Fx"},  {"a\\b:c#d", "Card-a_5Cb_3Ac_23d"},
      {"a\nb\x01", "Card-a_0Ab_01"}, {"\xC3\x84rger.2", "Card-\xC3\x84rger.2"},
  };
  for (const auto& [id, name] : names) {
    Edited().UniqueID = id;
    Edited().Picture = Text();
    Compose("/game/art/red.jpg");
    form_.Command6.Click();
    EXPECT_EQ(Written(), Joined("/game/", name, "-mini.jpg|/game/", name, ".jpg|")) << id;
    EXPECT_EQ(Edited().Picture, Joined(name, ".jpg"));
    files_->Contents.erase(Joined("/game/", name, ".jpg"));
    files_->Contents.erase(Joined("/game/", name, "-mini.jpg"));
  }
}

TEST_F(CardImagesTest, NewCardsAndDuplicatesTakeNoImageAway) {
  Compose("/game/art/red.jpg");
  form_.DuplicateButton.Click();
  EXPECT_EQ(Edited().Name, "Copy of Ape");
  EXPECT_EQ(Images(), "Card-Ape1.jpg|Card-Ape1-mini.jpg|");
  Choose(2);
  Compose("/game/art/red.jpg");
  State().Templates.Append({ImageCard("Kind", "K"), "white.bmp", "border.bmp", kBlue});
  form_.LoadCombos();
  form_.TemplateCombo.Select(3);
  form_.NewCardButton.Click();
  EXPECT_EQ(Stored(2).Picture, "Card-Bat1.jpg");
  EXPECT_EQ(Joined(Edited().Name, Images(), form_.Image.BackFile, form_.Image.MiniBorderFile),
            "New Kind||white.bmpborder.bmp");
}

TEST_F(CardImagesTest, ImagesOfACardFileElsewhereLieBesideIt) {
  files_->Contents["/mine/cards.txt"] = ReadFile("cards.txt");
  desktop_->FileAnswers = {"/mine/cards.txt"};
  form_.loaddeckmen.Click();
  Choose(1);
  Compose("/game/art/red.jpg");
  Choose(2);
  EXPECT_EQ(Written(), "/mine/Card-Ape1-mini.jpg|/mine/Card-Ape1.jpg|");
  Choose(1);
  EXPECT_EQ(form_.MainPic.Picture.Get(), "/mine/Card-Ape1.jpg");
}

TEST_F(CardImagesTest, TheMenusChooseTheParts) {
  Compose("/game/art/red.jpg");
  desktop_->ModalForms = {Pick("/game/art/white.bmp")};
  form_.loadbackmen.Click();
  EXPECT_EQ(form_.Image.BackFile, "/game/art/white.bmp");
  EXPECT_EQ(PixelOf(form_.MainPic, 5, 5), 0xFFFFFF) << "chosen where no reference leads";
  desktop_->ModalForms = {Pick("/game/art/white.bmp")};
  form_.loadminimen.Click();
  EXPECT_EQ(PixelOf(form_.MiniPic, 29, 44), 0xFFFFFF);
  EXPECT_EQ(PixelOf(form_.MiniPic, 31, 44), kRed);
  // A picture that can't be read changes nothing.
  desktop_->ModalForms = {Pick("/game/art/bad.jpg")};
  desktop_->ExpectedMessages = {"Can't use bad.jpg: Unknown Image Format"};
  form_.loadbackmen.Click();
  EXPECT_EQ(form_.Image.BackFile, "/game/art/white.bmp");

  desktop_->FileAnswers = {"/game/mine.jpg"};
  form_.saveimagemen.Click();
  EXPECT_EQ(Images(), "mine.jpg|mine-mini.jpg|/game/art/red.jpg");
  EXPECT_EQ(form_.MiniPic.Picture.Get(), "/game/mine-mini.jpg");
  EXPECT_TRUE(ReadFile("mine.jpg").starts_with("P6\n# quality 100\n"));
  EXPECT_TRUE(ReadFile("CardImages.list").starts_with("mine.jpg\tred.jpg\twhite.bmp\t"));
  desktop_->FileAnswers = {"/game/mine.xyz"};
  desktop_->ExpectedMessages = {
      "Can't save mine.xyz: pictures are not written to files of this kind"};
  form_.saveimagemen.Click();
  EXPECT_EQ(Edited().Picture, "mine.jpg");

  std::vector<std::string> prompts;
  const auto noting = [&prompts](const std::string& path) {
    return [&prompts, path](Form& form) {
      prompts.push_back(dynamic_cast<PicPick&>(form).Label1.Caption);
      Pick(path)(form);
    };
  };
  // Chosen elsewhere, one of them under the name of another picture of the game.
  files_->Contents["/art/blue.jpg"] = PictureBytes(20, 30, kBlue);
  files_->Contents["/art/white.bmp"] = PictureBytes(2, 2, 0xFFFFFF);
  desktop_->ModalForms = {noting("/art/blue.jpg"), noting("/art/white.bmp")};
  form_.loadgraphicmen.Click();
  EXPECT_EQ(
      form_.FindNote.Caption.Get(),
      "Copied beside the cards, where the game finds it: blue.jpg, white.bmp as white-2.bmp.");
  EXPECT_EQ(Images(), "blue.jpg|white-2.bmp|/game/art/red.jpg");
  EXPECT_EQ(ReadFile("white-2.bmp"), files_->Contents["/art/white.bmp"]);
  EXPECT_EQ(prompts[0] + prompts[1], "Choose the main card pic.Choose the thumbnail pic.");
}

TEST_F(CardImagesTest, AnImageSavedWhereNoGameFindsItIsToldOf) {
  Compose("/game/art/red.jpg");
  WriteFile("taken.jpg", "another picture");
  desktop_->ExpectedMessages = {
      "mine.jpg lies where no game looks for it.  Copy it into the game's folder.",
      "The game finds another taken.jpg, in /game.  Save this one under another name."};
  for (const char* path : {"/far/mine.jpg", "/game/art/own.jpg", "/far/taken.jpg"}) {
    desktop_->FileAnswers = {path};
    form_.saveimagemen.Click();
  }
  EXPECT_TRUE(desktop_->ExpectedMessages.empty());
}

TEST_F(CardImagesTest, ARandomPictureIsOneOfThePickersFolder) {
  ThePicPick().ShowFolder("/game");
  desktop_->ExpectedMessages = {"There is no .jpg picture in /game/."};
  form_.Command3.Click();
  EXPECT_EQ(Images(), "||");
  files_->Contents.erase("/game/art/bad.jpg");
  ThePicPick().ShowFolder("/game/art");
  State().Crop = {1, 2, 3, 4, 5, 6, 7, 8};
  form_.Command3.Click();
  EXPECT_EQ(Images(), "||/game/art/red.jpg");
  EXPECT_EQ(State().Crop.MainX2, 200);
  form_.Command6.Click();
  form_.Command3.Click();
  EXPECT_EQ(Images(), "Card-Ape1.jpg|Card-Ape1-mini.jpg|/game/art/red.jpg");
  EXPECT_EQ(form_.MainPic.Drawing.Get(), nullptr) << "the finished image goes on being shown";
  const std::string before = ReadFile("Card-Ape1.jpg");
  files_->Contents["/game/Card-Ape1.jpg"] = "kept";
  form_.Command6.Click();
  EXPECT_EQ(ReadFile("Card-Ape1.jpg"), "kept");
}

TEST_F(CardImagesTest, TheReducedFormKeepsTheOldImageWhenTheNewOneCantBeWritten) {
  State().SingleCardEdit = 1;
  State().EditCard = ImageCard("Own", "Own1");
  State().EditCard.Picture = "old.jpg";
  form_.Form_Load();
  desktop_->YesNoAnswers = {true};
  Compose("/game/art/red.jpg");
  files_->WriteError = "disk full";
  desktop_->ExpectedMessages.assign(2, "Can't save Card-Own1.jpg: Win32 Error: disk full");
  desktop_->YesNoAnswers = {false, true, false};
  EXPECT_TRUE(form_.QueryClose());
  EXPECT_EQ(Images(), "||/game/art/red.jpg");
  EXPECT_FALSE(form_.QueryClose());
  EXPECT_EQ(Images(), "old.jpg||");
  State().SingleCardEdit = 0;
}

}  // namespace
}  // namespace brindlemoor

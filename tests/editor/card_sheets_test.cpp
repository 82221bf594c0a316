// Work on many images and cards: "Fix Images", "Compose All Images" and printing.
#include "editor/card_sheets.h"

#include "editor/compose_folder.h"
#include "editor/image_recipes.h"
#include "images/card_images.h"
#include "tests/editor/card_edit_test.h"
#include "tests/support/played_pictures.h"

namespace brindlemoor {
namespace {

class ManyImagesTest : public CardEditTest {
 protected:
  ManyImagesTest() {
    files_->Contents["/art/red.jpg"] = PictureBytes(40, 60, 0xC80000);
    WriteFile("back.bmp", PictureBytes(30, 45, 0x0000C8));
  }
  /// Cards of these names, whose images are named after them.
  void LoadNamed(const std::vector<std::string>& names) {
    std::vector<Card> cards;
    for (const std::string& name : names) {
      Card card = MakeCard(name, 1);
      card.UniqueID = name;
      card.Picture = Joined("Card-", name, ".jpg");
      card.Thumb = Joined("Card-", name, "-mini.jpg");
      WriteFile(card.Picture.Str(), "old");
      WriteFile(card.Thumb.Str(), "old");
      cards.push_back(card);
    }
    LoadCards(cards);
  }
  static std::string Recipe(const std::string& file, const std::string& foreground,
                            const std::string& rest = "back.bmp\t\t0\t40\t0\t60\t0\t40\t0\t60") {
    return Joined(file, "\t", foreground, "\t", rest, "\n");
  }
  /// Which of the images have been composed: M the large one, m the thumbnail.
  std::string Composed(const std::vector<std::string>& names) const {
    std::string composed;
    for (const std::string& name : names) {
      composed += name;
      if (ReadFile("Card-" + name + ".jpg").starts_with("P6")) composed += "M";
      if (ReadFile("Card-" + name + "-mini.jpg").starts_with("P6")) composed += "m";
    }
    return composed;
  }
};

TEST_F(ManyImagesTest, FixImagesAsksForItsFolderOnce) {
  for (const char* name : {"a.jpg", "b.JPG", "c.jpg", "d.bmp"}) {
    files_->Contents[Joined("/fix/", name)] = PictureBytes(4, 4, 0xC80000);
  }
  files_->Contents["/fix/c.jpg"] = "broken";
  WriteFile("none/x.txt", "");
  form_.Command7.Click();
  desktop_->UnexpectedDialogs.clear();  // the folder was asked for, and not told

  desktop_->FolderAnswers = {"/art", "/game/none", "/fix"};
  desktop_->YesNoAnswers = {false, true};
  desktop_->ExpectedMessages = {"There are no .jpg files in /game/none.",
                                "2 images written anew.  Not read or written: c.jpg."};
  desktop_->ModalForms = {LetWork()};
  form_.MainPic.Picture = "shown";
  form_.Command7.Click();
  EXPECT_TRUE(files_->Contents["/fix/b.JPG"].starts_with("P6\n# quality 85\n"));
  EXPECT_EQ(files_->Contents["/fix/c.jpg"], "broken");
  EXPECT_EQ(files_->Contents["/fix/d.bmp"].find('#'), std::string::npos);
  EXPECT_EQ(form_.MainPic.Picture.Get(), "shown");
  EXPECT_EQ(form_.MainPic.Drawing.Get(), nullptr);

  files_->Contents["/fix/b.JPG"] = PictureBytes(4, 4, 0);
  desktop_->YesNoAnswers = {true};
  desktop_->ExpectedMessages = {"1 image written anew."};
  desktop_->ModalForms = {LetWork(1)};
  form_.Command7.Click();
  EXPECT_EQ(files_->Contents["/fix/b.JPG"].find('#'), std::string::npos);
}

TEST_F(ManyImagesTest, RecipesOfAStrangerAreReadWithCare) {
  const std::string bad[] = {
      Recipe("../x.jpg", "/art/red.jpg"),
      Recipe("..", "/art/red.jpg"),
      Recipe("b.jpg", ""),
      Recipe("c.jpg", "/art/red.jpg", "back.bmp\t\t1\t2"),
      Recipe("d.jpg", "/art/red.jpg", "back.bmp\t\t0\t40\t0\t60\t0\t40\t0\t99999"),
      "what is this\n"};
  std::string text = "\xEF\xBB\xBF" + Recipe("a.jpg", "old.jpg");
  for (const std::string& line : bad) text += line;
  WriteFile("CardImages.list", text + Recipe("a.jpg", "new.jpg") + "no end");
  ImageRecipes recipes("/game/");
  for (const char* file : {"../x.jpg", "..", "b.jpg", "c.jpg", "d.jpg"}) {
    EXPECT_EQ(recipes.Find(file), nullptr) << file;
  }
  ASSERT_NE(recipes.Find("a.jpg"), nullptr);
  EXPECT_EQ(recipes.Find("a.jpg")->Foreground, "new.jpg");
  recipes.Set({"tab\t.jpg", "/art/red.jpg", "", "", {}});
  recipes.Set({"e.jpg", "two\nlines", "", "", {}});
  recipes.Set({"f.jpg", "/art/f.jpg", "", "b.bmp", {1, 2, 3, 4, 5, 6, 7, -8}});
  EXPECT_EQ(recipes.Write(), "");
  std::string kept;
  for (const std::string& line : bad) kept += line;
  EXPECT_EQ(ReadFile("CardImages.list"),
            kept + Recipe("a.jpg", "new.jpg") +
                "no end\nf.jpg\t/art/f.jpg\t\tb.bmp\t1\t2\t3\t4\t5\t6\t7\t-8\n");
}

TEST_F(ManyImagesTest, AllImagesAreComposedAnewWhereTheirPartsAreThere) {
  const std::vector<std::string> names = {"A", "B", "C", "D", "E", "F", "G"};
  LoadNamed(names);
  form_.composeallmen.Click();
  EXPECT_EQ(desktop_->UnexpectedDialogs[0],
            "message box: There is no card with an image whose parts are recorded.");
  desktop_->UnexpectedDialogs.clear();
  Stored(7).Thumb = "other.jpg";
  files_->Contents["/art/key.pem"] = PictureBytes(40, 60, 0);
  WriteFile("CardImages.list",
            Recipe("Card-A.jpg", "/art/red.jpg") + Recipe("Card-B.jpg", "/art/gone.jpg") +
                Recipe("Card-C.jpg", "/art/red.jpg", "back.bmp\t\t0\t41\t0\t60\t0\t40\t0\t60") +
                Recipe("Card-D.jpg", "/art/key.pem") +
                Recipe("Card-E.jpg", "/art/red.jpg", "lost.bmp\t\t0\t40\t0\t60\t0\t40\t0\t60") +
                Recipe("Card-G.jpg", "/art/red.jpg"));
  desktop_->YesNoAnswers = {false, true, false};
  form_.composeallmen.Click();
  EXPECT_EQ(Composed(names), "ABCDEFG") << "not wanted";
  desktop_->ModalForms = {LetWork()};
  desktop_->ExpectedMessages = {
      "2 images composed.  No parts are recorded for 1 card.  Not read or written: gone.jpg, "
      "red.jpg, key.pem, lost.bmp."};
  form_.composeallmen.Click();
  EXPECT_EQ(Composed(names), "AMmBCDEFGM");
  EXPECT_TRUE(ReadFile("Card-A.jpg").starts_with("P6\n# quality 100\n300 450\n"));
}

TEST_F(ManyImagesTest, TheFormsPartsAreTakenForAllAndCancelStops) {
  LoadNamed({"A", "B", "C"});
  WriteFile("CardImages.list", Recipe("Card-A.jpg", "/art/red.jpg") +
                                   Recipe("Card-B.jpg", "/art/red.jpg") +
                                   Recipe("Card-C.jpg", "/art/red.jpg"));
  WriteFile("new.bmp", PictureBytes(kMainWidth, kMainHeight, 0x00C800));
  Choose(1);
  desktop_->ColorAnswers = {0x102030};
  form_.ColorLabel.Click();
  form_.Image.BackFile = "lost.bmp";
  desktop_->YesNoAnswers = {true, true, true, true};
  desktop_->ExpectedMessages = {"The background or the border can't be read: nothing is composed.",
                                "2 images composed.  Copied beside the cards, where the game "
                                "finds it: red.jpg."};
  form_.composeallmen.Click();
  EXPECT_EQ(Composed({"A", "B", "C"}), "ABC");
  form_.Image.BackFile = "new.bmp";
  desktop_->ModalForms = {LetWork(2)};
  form_.composeallmen.Click();
  EXPECT_EQ(Composed({"A", "B", "C"}), "AMmBMmC");
  Raster image;
  desktop_->Images().Load("/game/Card-A.jpg", image);
  EXPECT_EQ(image.Pixel(2, 2), 0x00C800);
  EXPECT_EQ(image.Pixel(150, 225), 0xC80000);
  Raster other;
  desktop_->Images().Load("/game/Card-B.jpg", other);
  EXPECT_NE(image, other) << "the colour that was just chosen frames the edited card";
  EXPECT_EQ(ImageRecipes("/game/").Find("Card-B.jpg")->Background, "new.bmp");
  EXPECT_EQ(ImageRecipes("/game/").Find("Card-B.jpg")->Foreground, "red.jpg");
  EXPECT_EQ(ImageRecipes("/game/").Find("Card-C.jpg")->Background, "back.bmp");

  files_->WriteError = "disk full";
  desktop_->YesNoAnswers = {true, false};
  desktop_->ModalForms = {LetWork()};
  desktop_->ExpectedMessages = {
      "Can't write CardPreview.html: disk full",
      "0 images composed.  Not read or written: Card-A.jpg, Card-B.jpg, Card-C.jpg."};
  form_.composeallmen.Click();
}

TEST_F(ManyImagesTest, ImagesOfAFolderAreComposedInTheColoursOfItsCards) {
  EXPECT_EQ(ComposeFolderImages().Images, 0) << "nothing is recorded";
  Card card = MakeCard("Ape", 1);
  card.UniqueID = "Ape1";
  card.Picture = "ape.jpg";
  card.Thumb = "ape-mini.jpg";
  card.NameColor = "#00FF00";
  Card other = card;  // shows the same image, which is named after neither
  other.UniqueID = "Bat1";
  other.NameColor = "#FF0000";
  const std::string head = "CARD DATA FILE\r\n";
  WriteFile("Pebbles.txt", head + "#GAMERULES, Pebbles, , #203040, pebbles, Help.html\r\n");
  WriteFile("pebbles/1_Cards.txt", head + CardToText(card, "INDECK"));
  WriteFile("pebbles/2_Others.txt", head + CardToText(other, "INDECK"));
  WriteFile("Ann.plr", head + CardToText(other, "COLLECTION"));
  WriteFile("art/CardImages.list",
            Recipe("ape.jpg", "/art/red.jpg") + Recipe("nobody.jpg", "/art/red.jpg"));
  const FolderComposition composed = ComposeFolderImages(60);
  EXPECT_EQ(composed.Images, 1);
  EXPECT_EQ(composed.Failed, "");
  EXPECT_TRUE(ReadFile("art/ape.jpg").starts_with("P6\n# quality 60\n300 450\n"));
  EXPECT_TRUE(ReadFile("art/ape-mini.jpg").starts_with("P6\n# quality 85\n65 65\n"));
  EXPECT_FALSE(files_->Exists("/game/art/nobody.jpg"));
  Raster mini;
  desktop_->Images().Load("/game/art/ape-mini.jpg", mini);
  const std::int32_t edge = mini.Pixel(0, 30);
  EXPECT_GT(edge >> 8 & 0xFF, edge >> 16 & 0xFF) << "green like the first card";

  WriteFile("CardImages.list", Recipe("ape.jpg", "/art/gone.jpg"));
  files_->Contents.erase("/game/back.bmp");
  const FolderComposition failed = ComposeFolderImages();
  EXPECT_EQ(failed.Images, 0);
  EXPECT_EQ(failed.Failed, "gone.jpg, back.bmp");
}

TEST(CardSheetsTest, CardsStandSideBySideInsideThePaper) {
  EXPECT_EQ(SheetCount(0), 0);
  EXPECT_EQ(SheetCount(9), 1);
  EXPECT_EQ(SheetCount(10), 2);
  const std::vector<SheetCard> cards(12, {"Name", "/a.jpg", "line", "text", 0xFFFFFF});
  for (const PaperSize paper : {kA4, kLetter}) {
    const PrintedPage page = LayOutSheet(paper, cards);
    ASSERT_EQ(page.Pictures.size(), 9U);
    const PrintArea last = SheetPlace(paper, 8);
    const PrintArea first = SheetPlace(paper, 0);
    EXPECT_DOUBLE_EQ(last.X, first.X + 126);
    EXPECT_DOUBLE_EQ(last.Y, first.Y + 176);
    EXPECT_NEAR(first.X, paper.Width - last.X - 63, 0.001);
    EXPECT_NEAR(first.Y, paper.Height - last.Y - 88, 0.001);
    const auto isWithin = [](const PrintArea& part, const PrintArea& place) {
      return part.X >= place.X && part.Y >= place.Y && part.Width > 0 && part.Height > 0 &&
             part.X + part.Width <= place.X + place.Width &&
             part.Y + part.Height <= place.Y + place.Height;
    };
    for (std::size_t text = 0; text < page.Texts.size(); ++text) {
      EXPECT_TRUE(isWithin(page.Texts[text].Area, SheetPlace(paper, static_cast<int>(text / 3))));
      EXPECT_FALSE(text > 0 && isWithin(page.Texts[text].Area, page.Texts[text - 1].Area));
    }
    EXPECT_EQ(page.Lines.size(), 16U);
    for (const PrintedLine& line : page.Lines) {
      const bool outside =
          line.X2 < first.X || line.X1 > last.X + 63 || line.Y2 < first.Y || line.Y1 > last.Y + 88;
      EXPECT_TRUE(outside && line.X1 > 0 && line.Y1 > 0 && line.X2 < paper.Width &&
                  line.Y2 < paper.Height);
    }
  }
}

TEST(CardSheetsTest, TextsCanBeReadOnPaper) {
  EXPECT_EQ(DarkTone(0xFFFFFF), 0x6E6E6E);
  EXPECT_EQ(DarkTone(0x0000FF), 0x0000FF);
  EXPECT_EQ(DarkTone(0), 0);
  const std::pair<const char*, const char*> texts[] = {
      {"<p>a <b>b</b></p><p>c<br/>d</p>", "a b\nc\nd"},
      {"1 < 2 &amp;&#38;&#x26; 3 &gt; &lt;b&gt; &nope; &", "1 < 2 &&& 3 > <b> &nope; &"},
      {"<img src=\"x.jpg\">a\n\n  b<b", "a b<b"},
      {"&#0;&#xD800;", "&#0;&#xD800;"},
      {"", ""},
  };
  for (const auto& [html, plain] : texts) EXPECT_EQ(WithoutMarkup(html), plain);
  EXPECT_EQ(WithoutMarkup(std::string(1 << 20, '<')).size(), 1U << 20);
  EXPECT_EQ(WithoutMarkup([] {
              std::string tags;
              for (int tag = 0; tag < 200000; ++tag) tags += "<b";
              return tags;
            }())
                .size(),
            400000U);
}

TEST_F(ManyImagesTest, TheCardsOfTheFileArePrinted) {
  form_.printa4men.Click();
  EXPECT_EQ(desktop_->UnexpectedDialogs[0], "message box: There are no cards to print.");
  desktop_->UnexpectedDialogs.clear();
  std::vector<std::string> names;
  for (char name = 'A'; name <= 'J'; ++name) names.emplace_back(1, name);
  LoadNamed(names);
  Choose(10);
  Type(form_.CardText[1], "5 gold");
  Type(form_.DescText, "<b>$MYNAME</b> sleeps");
  Type(form_.TraitText[0], "HP");
  Type(form_.ValueText[0], "3");
  desktop_->FileAnswers = {"/game/cards.pdf", std::nullopt, "/game/other.pdf", "/game/full.pdf"};
  desktop_->ModalForms = {LetWork()};
  desktop_->ExpectedMessages = {"10 cards on 2 sheets.  Print them at their full size.",
                                "Can't save full.pdf: disk full"};
  form_.printlettermen.Click();
  EXPECT_EQ(ReadFile("cards.pdf"), "2 pages");
  EXPECT_EQ(desktop_->PrintedOn.Width, kLetter.Width);
  ASSERT_EQ(desktop_->Printed.size(), 2U);
  EXPECT_EQ(desktop_->Printed[0].Pictures[8].File, "/game/Card-I.jpg");
  ASSERT_EQ(desktop_->Printed[1].Texts.size(), 3U);
  const auto printedTexts = [this] {
    std::string texts;
    for (const PrintedText& text : desktop_->Printed.back().Texts) texts += text.Text + "|";
    return texts;
  };
  EXPECT_EQ(printedTexts(), "J|5 gold, HP 3|J sleeps|");

  form_.printa4men.Click();  // no file is chosen
  desktop_->ModalForms = {LetWork(1), LetWork()};
  form_.printa4men.Click();
  EXPECT_EQ(ReadFile("other.pdf"), "(no such file)");
  TraitGraphic health;
  health.TraitName = "HP";
  health.Picture = "hp.png";
  health.Label = "9";
  health.ShowSmall = 1;
  State().TraitGraphics.Append(health);
  files_->WriteError = "disk full";
  form_.printa4men.Click();
  EXPECT_EQ(printedTexts(), "J|5 gold, HP 9|J sleeps|");
}

}  // namespace
}  // namespace brindlemoor

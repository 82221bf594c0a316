// Documents for printing: their pages, their paper and what they do with pictures.
#include <QByteArray>
#include <QImage>
#include <QRegularExpression>
#include <cmath>

#include "tests/windows/desktop_test.h"

namespace brindlemoor {
namespace {

constexpr PaperSize kA4 = {210, 297};

class PdfDocumentTest : public DesktopTest {
 protected:
  std::string Save(const QString& name, int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    // Noise, so that each pixel costs bytes.
    std::uint32_t number = 1;
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) image.setPixel(x, y, number = number * 1664525 + 1013904223);
    }
    EXPECT_TRUE(image.save(folder_.filePath(name)));
    return folder_.filePath(name).toStdString();
  }
  QByteArray Made(PaperSize paper, const std::vector<PrintedPage>& pages) {
    const std::unique_ptr<PdfDocument> document = desktop_->NewPdf(paper);
    for (const PrintedPage& page : pages) document->AddPage(page);
    return QByteArray::fromStdString(document->Finish());
  }
  static PrintedPage With(std::vector<PrintedPicture> pictures) {
    return {.Pictures = std::move(pictures)};
  }
  static qsizetype Images(const QByteArray& document) { return document.count("/Subtype /Image"); }
};

TEST_F(PdfDocumentTest, PagesHaveTheSizeOfThePaper) {
  constexpr double kMillimetresPerPoint = 25.4 / 72;
  const QRegularExpression box(R"(/MediaBox \[0 0 ([\d.]+) ([\d.]+)\])");
  for (const PaperSize paper : {kA4, PaperSize{215.9, 279.4}, PaperSize{297, 210}}) {
    const QByteArray document = Made(paper, {{}, {}, {}});
    EXPECT_TRUE(document.startsWith("%PDF-"));
    QRegularExpressionMatchIterator match = box.globalMatch(QString::fromLatin1(document));
    int pages = 0;
    for (; match.hasNext(); ++pages) {
      const QRegularExpressionMatch found = match.next();
      EXPECT_NEAR(found.captured(1).toDouble() * kMillimetresPerPoint, paper.Width, 0.1);
      EXPECT_NEAR(found.captured(2).toDouble() * kMillimetresPerPoint, paper.Height, 0.1);
    }
    EXPECT_EQ(pages, 3) << paper.Width;
  }
  EXPECT_TRUE(Made(kA4, {}).isEmpty()) << "a document has at least one page";
}

TEST_F(PdfDocumentTest, BrokenPicturesLeaveTheirAreasEmpty) {
  const PrintArea area = {10, 10, 63, 88};
  const std::string whole = Save("whole.png", 20, 30);
  const std::string broken = Save("broken.png", 20, 30);
  ASSERT_TRUE(QFile::resize(QString::fromStdString(broken), 60));
  EXPECT_EQ(Images(Made(kA4, {With({{area, whole}})})), 1);
  EXPECT_EQ(Images(Made(kA4, {With({{area, broken}, {area, "/none.png"}, {area, ""}})})), 0);
  EXPECT_EQ(Images(Made(kA4, {With({{area, broken}, {area, whole}})})), 1);
  EXPECT_EQ(Images(Made(kA4, {With({{{10, 10, 0, 88}, whole}})})), 0);
}

TEST_F(PdfDocumentTest, PicturesTakeNoMoreRoomThanTheirPrintNeeds) {
  // An inch is 300 dots.
  const PrintArea inch = {10, 10, 25.4, 25.4};
  const qsizetype fitting = Made(kA4, {With({{inch, Save("300.png", 300, 300)}})}).size();
  for (const char* name : {"large.png", "large.jpg"}) {
    const std::string large = Save(name, 1500, 1500);
    const QByteArray document = Made(kA4, {With({{inch, large}})});
    EXPECT_LT(document.size(), fitting * 3 / 2) << name;
    EXPECT_TRUE(document.contains("/Width 300")) << name;
    const QByteArray twice =
        Made(kA4, {With({{inch, large}, {inch, large}}), With({{inch, large}})});
    EXPECT_EQ(Images(twice), 1) << "copies of a card share their picture";
  }
  EXPECT_TRUE(Made(kA4, {With({{inch, Save("small.png", 30, 60)}})}).contains("/Width 30\n"));
}

TEST_F(PdfDocumentTest, TextsOfAnySizeAreMade) {
  const std::string word(5000, 'W');
  std::string story;
  for (int line = 0; line < 3000; ++line) story += "Draw a card & discard <b>two</b>.\n";
  PrintedPage page;
  for (const std::string& text : {std::string(), std::string("Zoë"), word, story}) {
    page.Texts.push_back({.Area = {10, 10, 60, 20}, .Text = text, .Centred = true});
    page.Texts.push_back({.Area = {10, 40, 0, 0}, .Text = text, .Points = 0});
  }
  page.Lines = {{0, 0, 210, 297}};
  const QByteArray document = Made(kA4, {page, page});
  EXPECT_GT(document.size(), Made(kA4, {{}, {}}).size() + 1000);
  EXPECT_LT(document.size(), 1'000'000);
}

}  // namespace
}  // namespace brindlemoor

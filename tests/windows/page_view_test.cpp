// Pages in a real browser view: what a click delivers, and what a page can't do.
#include "platform/qt/page_view.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QImage>
#include <QVariant>
#include <QWebEnginePage>
#include <QWebEngineScript>

#include "tests/windows/desktop_test.h"

namespace brindlemoor {
namespace {

class PageViewTest : public DesktopTest {
 protected:
  PageViewTest() {
    view_.BeforeNavigate = [this](const std::string& url) {
      asked_.push_back(url);
      return true;
    };
    Show(form_, {Cell(view_)});
  }
  ~PageViewTest() override { desktop_->CloseWindows(); }

  void Write(const QString& name, const QByteArray& text) const {
    QDir().mkpath(QFileInfo(Path(name)).path());
    QFile file(Path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }
  QString Path(const QString& name) const { return folder_.path() + "/" + name; }
  void Open(const QString& name) {
    desktop_->Navigate(view_, QUrl::fromLocalFile(Path(name)).toEncoded().toStdString());
  }
  /// Runs a script beside the page, as no page can.
  QVariant Look(const QString& script) {
    QVariant answer;
    QEventLoop loop;
    Find<PageView>(form_, view_)
        ->page()
        ->runJavaScript(script, QWebEngineScript::ApplicationWorld, [&](const QVariant& result) {
          answer = result;
          loop.quit();
        });
    loop.exec();
    return answer;
  }
  /// Clicks on the n-th link and serves events until the click has been handed on.
  void Click(int link) {
    const QVariantList place = Look(QString("(function() {"
                                            "const box = document.links[%1].getClientRects()[0];"
                                            "return [box.left + 2, box.top + 2]; })()")
                                        .arg(link))
                                   .toList();
    const std::size_t before = asked_.size();
    QTest::mouseClick(Find<PageView>(form_, view_)->focusProxy(), Qt::LeftButton, {},
                      {place[0].toInt(), place[1].toInt()});
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked_.size() > before; }, 3000)) << link;
  }
  QString Shown() { return Look("document.body.innerText").toString().trimmed(); }

  Form form_{"Form"};
  BrowserView view_{"View"};
  std::vector<std::string> asked_;
};

/// A place of the page that is shown already is gone to at once: no page is read then, so that no
/// end of reading can be waited for.
TEST_F(PageViewTest, AnotherPlaceOfTheShownPageIsShownWithoutAWait) {
  Write("Reference.html",
        "<p style='height:3000px'>Top</p><p id='A#'>A</p>"
        "<p style='height:3000px'></p><p id=B>B</p>");
  bool waits = false;
  QTimer::singleShot(8000, &*Find<PageView>(form_, view_), [&waits] { waits = true; });
  double before = -1;
  for (const char* place : {"", "#A%23", "#B", "#B"}) {
    const QUrl page = QUrl::fromLocalFile(Path("Reference.html"));
    desktop_->Navigate(view_, page.toEncoded().toStdString() + place);
    const double top = Look("document.scrollingElement.scrollTop").toDouble();
    EXPECT_TRUE(top > before || (top == before && top > 3000)) << place << " shows " << top;
    before = top;
  }
  EXPECT_FALSE(waits);
}

TEST_F(PageViewTest, ClicksArriveAsTheLogicReadsThem) {
  const std::string folder = "file://" + folder_.path().toStdString() + "/";
  const std::pair<const char*, std::string> cases[] = {
      {"CARD123", folder + "CARD123"},
      {"CARDRulesCard", folder + "CARDRulesCard"},
      {"GAME:1:2", "game:1:2"},
      {"MENUACTION:-2147483648:10", "menuaction:-2147483648:10"},
      {"HELP:Two Words.html", "help:Two Words.html"},
      {"HELP:M\xc3\xbchle.html", "help:M\xc3\xbchle.html"},
      {"http://example.com/CARD5", "http://example.com/CARD5"},
  };
  QByteArray page = "<html><head><meta charset=utf-8></head><body>";
  for (const auto& [link, url] : cases) page += QByteArray("<a href=\"") + link + "\">x</a> ";
  Write("Display.html", page);
  Open("Display.html");
  std::vector<std::string> expected;
  for (const auto& [link, url] : cases) {
    Click(static_cast<int>(expected.size()));
    expected.push_back(url);
    EXPECT_EQ(asked_, expected);
  }
}

TEST_F(PageViewTest, TheLinkUnderThePointerOrTheFocusIsToldOnceItRests) {
  Write("Display.html",
        "<body style='margin:0'><a href=CARD1 style='position:absolute;top:10px;left:10px'>one</a>"
        "<a href=CARD2 style='position:absolute;top:40px;left:10px'>two</a>");
  std::vector<std::string> told;
  view_.LinkPointed = [&](const std::string& url) { told.push_back(url.substr(url.rfind('/'))); };
  Open("Display.html");
  QWidget& face = *Find<PageView>(form_, view_)->focusProxy();
  const auto point = [&](int y) { QTest::mouseMove(&face, {14, y}); };
  const auto comes = [&](const char* link) {
    return QTest::qWaitFor([&] { return !told.empty() && told.back() == link; }, 2000);
  };
  point(80);
  point(15);
  EXPECT_TRUE(comes("/CARD1"));
  point(80);
  QTest::qWait(100);
  EXPECT_EQ(told.size(), 1) << "nothing is told of leaving it";
  view_.PointDelay = 400;
  told.clear();
  point(45);
  QTest::qWait(100);
  point(15);
  EXPECT_TRUE(comes("/CARD1"));
  EXPECT_EQ(told.size(), 1) << "what was only crossed is not told of";
  point(80);
  view_.PointDelay = 0;
  told.clear();
  QTest::keyClick(&face, Qt::Key_Tab);
  EXPECT_TRUE(comes("/CARD1"));
  QTest::keyClick(&face, Qt::Key_Tab);
  EXPECT_TRUE(comes("/CARD2"));
  EXPECT_TRUE(asked_.empty()) << "looking is no click";
}

TEST_F(PageViewTest, PicturesOfEachPageGetTheirToolTips) {
  Write("Display.html", "<img src='art/Magic%20Cost.jpg'><img src='%zz.jpg'><img src=other.jpg>");
  const auto titles = [this] { return Look("[...document.images].map(i => i.title).join()"); };
  Open("Display.html");
  view_.PictureTips = {{"magic cost.JPG", "Oil's \"price\"</script>"}};
  EXPECT_EQ(titles().toString(), "Oil's \"price\"</script>,,");
  Open("Display.html");
  EXPECT_TRUE(QTest::qWaitFor([&] { return titles().toString().startsWith("Oil's"); }, 2000));
}

TEST_F(PageViewTest, OnlyTheLinksThatAreAskedForAreOutlined) {
  Write("Display.html", "<a href=CARD1><img></a><a href=CARD12><img></a><a href='\"]{}'><img></a>");
  const auto outlined = [this] {
    return Look("[...document.images].map(i => getComputedStyle(i).outlineStyle).join()");
  };
  Open("Display.html");
  view_.OutlinedLinks = {"CARD1", "\"]{}"};
  EXPECT_EQ(outlined().toString(), "solid,none,solid");
  Open("Display.html");
  EXPECT_TRUE(QTest::qWaitFor([&] { return outlined() == "solid,none,solid"; }, 2000));
  view_.OutlinedLinks = {};
  EXPECT_EQ(outlined().toString(), "none,none,none");
}

TEST_F(PageViewTest, ALinkIsMarkedBehindItsWords) {
  Write("Display.html",
        "<a href=GAME:1:2><img></a><a href=GAME:1:2>Ogre</a> <a href=GAME:1:3>Imp</a>"
        "<a href='\"]' data-mark=9>Elf</a>");
  const auto marks = [this] {
    return Look(
        "[...document.links].map(a => getComputedStyle(a, '::after').content + a.title).join()");
  };
  Open("Display.html");
  view_.LinkMarks = {{"GAME:1:2", "*\"", "Beaten"}, {"\"]", "**", "<b>"}, {"GAME:1:9", "*", ""}};
  const char* const marked = R"(none," *\""Beaten,none," **"<b>)";
  EXPECT_EQ(marks().toString(), marked);
  view_.LinkMarks = {};
  EXPECT_EQ(marks().toString(), "none,none,none,none");
}

/// The page itself has a link only around a card's thumbnail.
TEST_F(PageViewTest, NamesWithoutAPictureAreLinksInTheOrderOfTheCells) {
  Write("Display.html",
        "<table><tr><td width = 80><a href=\"CARD1\"><img src=a.jpg></a><font>Crab</font><td>"
        "<td width = 80><br><font>Crab</font><font>1</font><td><td width = 80>"
        "<a href=\"CARD3\"><img src=\"\"></a><font>Crab</font><td><td width = 80>"
        "<font>Eel</font><td></table>");
  const auto links = [this] {
    return Look(
        "[...document.querySelectorAll('td a')].map(a => a.getAttribute('href') + ' ' + "
        "a.textContent).join()");
  };
  view_.CellLinks = {{"Crab", "CARD9"}, {"Crab", "CARD8"}};
  Open("Display.html");
  view_.CellLinks = {{"Crab", "CARD2"}, {"Crab", "CARD3"}};
  view_.OutlinedLinks = {"CARD2"};
  EXPECT_EQ(links().toString(), "CARD1 ,CARD2 Crab,CARD3 ,CARD3 Crab");
  EXPECT_EQ(Look("getComputedStyle(document.querySelector('a.named')).outlineStyle"), "solid");
  std::string told;
  view_.LinkPointed = [&](const std::string& url) { told = url; };
  Click(1);
  EXPECT_TRUE(asked_.back().ends_with("/CARD2")) << asked_.back();
  EXPECT_TRUE(QTest::qWaitFor([&] { return told.ends_with("/CARD2"); }, 2000));
}

TEST_F(PageViewTest, APageHasBeenReadWhenNavigateReturns) {
  for (int number = 0; number < 3; ++number) {
    const QByteArray text = "Page " + QByteArray::number(number);
    Write("Display.html", text);
    Open("Display.html");
    Write("Display.html", "written again");
    EXPECT_EQ(Shown(), QString(text));
  }
  EXPECT_TRUE(asked_.empty()) << "the program's own navigation is not a click";
  Open("Missing.html");
  Open("Display.html");
  EXPECT_EQ(Shown(), "written again") << "a missing page does not hang";
}

TEST_F(PageViewTest, PagesRunNoScriptsAndReachNothingOutside) {
  for (const char* name : {"near.png", "art/near.png", "art/deep/far.png"}) {
    QDir().mkpath(QFileInfo(Path(name)).path());
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(Path(name)));
  }
  Write("Inner.html", "inner");
  Write("Display.html",
        "<meta http-equiv=refresh content='0;url=Inner.html'><p id=p>plain</p>"
        "<script>document.getElementById('p').textContent = 'changed'</script>"
        "<img src=near.png onload=\"document.getElementById('p').textContent = 'changed'\">"
        "<img src=art/near.png><img src=art/deep/far.png><img src=http://localhost/a.png>");
  Open("Display.html");
  QTest::qWait(500);
  EXPECT_EQ(Shown(), "plain");
  EXPECT_EQ(Look("Array.from(document.images).map(i => i.naturalWidth)").toList(),
            (QVariantList{4, 4, 0, 0}));
}

}  // namespace
}  // namespace brindlemoor

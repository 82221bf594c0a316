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
      return handled_;
    };
    Show(form_, {Cell(before_), Cell(view_), Cell(after_)});
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
  Button before_{"Before"};
  BrowserView view_{"View"};
  Button after_{"After"};
  std::vector<std::string> asked_;
  bool handled_ = true;
};

TEST_F(PageViewTest, ClicksArriveAsTheLogicReadsThem) {
  const std::string folder = "file://" + folder_.path().toStdString() + "/";
  const struct {
    const char* Link;
    std::string Url;
  } kCases[] = {
      {"CARD123", folder + "CARD123"},
      {"CARDRulesCard", folder + "CARDRulesCard"},
      {"GAME:1:2", "game:1:2"},
      {"MENUACTION:-2147483648:10", "menuaction:-2147483648:10"},
      {"HELP:Two Words.html", "help:Two Words.html"},
      {"HELP:M\xc3\xbchle.html", "help:M\xc3\xbchle.html"},
      {"http://example.com/CARD5", "http://example.com/CARD5"},
  };
  QByteArray page = "<html><head><meta charset=utf-8></head><body>";
  for (const auto& row : kCases) page += QByteArray("<a href=\"") + row.Link + "\">x</a> ";
  Write("Display.html", page);
  Open("Display.html");
  int link = 0;
  for (const auto& row : kCases) {
    asked_.clear();
    Click(link++);
    EXPECT_EQ(asked_, std::vector<std::string>{row.Url});
  }
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
}

TEST_F(PageViewTest, OnlyAnUnhandledClickOnALocalPageIsFollowed) {
  Write("Display.html",
        "<a href='Next.html'>Next</a> <a href='http://localhost/a.html'>Away</a>"
        "<a href='art/deep/Deep.html'>Deep</a> <a href='Ann.plr'>File</a>");
  Write("Next.html", "Next page");
  Write("art/deep/Deep.html", "Deep page");
  Write("Ann.plr", "secret");
  Open("Display.html");
  const QString first = Shown();
  Click(0);
  QTest::qWait(200);
  EXPECT_EQ(Shown(), first) << "the handler took the click";
  handled_ = false;
  for (const int refused : {1, 2, 3}) {
    Click(refused);
    QTest::qWait(200);
    EXPECT_EQ(Shown(), first) << refused;
  }
  Click(0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Shown() == "Next page"; }, 3000));
}

TEST_F(PageViewTest, AHandlerMayShowAnotherPageInTheSameView) {
  Write("Display.html", "<a href='CARD1'>card</a>");
  Write("Other.html", "Other page");
  view_.BeforeNavigate = [this](const std::string& url) {
    asked_.push_back(url);
    Open("Other.html");
    return true;
  };
  Open("Display.html");
  Click(0);
  EXPECT_EQ(Shown(), "Other page");
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

TEST_F(PageViewTest, TheTabKeyLeadsThroughTheLinksOfAPage) {
  Write("Display.html", "<a href='GAME:1:2'>one</a> <a href='GAME:1:3'>two</a>");
  Open("Display.html");
  Window(form_)->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(Window(form_)));
  Find(form_, before_)->setFocus();
  for (const char* link : {"game:1:2", "game:1:3"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    const auto focused = [&] { return Look("document.activeElement.href") == QVariant(link); };
    ASSERT_TRUE(QTest::qWaitFor(focused, 3000)) << link;
    asked_.clear();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !asked_.empty(); }, 3000)) << link;
    EXPECT_EQ(asked_, std::vector<std::string>{link});
  }
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  const auto left = [&] { return QApplication::focusWidget() == Find(form_, after_); };
  EXPECT_TRUE(QTest::qWaitFor(left, 3000));
}

TEST_F(PageViewTest, AMissingPageDoesNotHang) {
  Write("Display.html", "here");
  Open("Missing.html");
  Open("Display.html");
  EXPECT_EQ(Shown(), "here");
}

TEST_F(DesktopTest, APageNavigatedBeforeTheFirstShowIsThereAfterwards) {
  Form form("Form");
  BrowserView view("View");
  QFile file(folder_.path() + "/blank.htm");
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("early");
  file.close();
  desktop_->Navigate(view, "file://" + file.fileName().toStdString());
  Show(form, {Cell(view)});
  QString text;
  Find<PageView>(form, view)->page()->toPlainText([&](const QString& got) { text = got; });
  EXPECT_TRUE(QTest::qWaitFor([&] { return text == "early"; }, 3000));
  desktop_->CloseWindows();
}

}  // namespace
}  // namespace brindlemoor

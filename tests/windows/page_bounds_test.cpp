// Pages that are too much for a browser: what is shown then, and that the next page is shown as
// ever.
#include <QElapsedTimer>
#include <QFile>
#include <QPlainTextEdit>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <csignal>

#include "platform/qt/page_text.h"
#include "platform/qt/page_view.h"
#include "platform/qt/renderer_guard.h"
#include "tests/windows/desktop_test.h"

namespace brindlemoor {
namespace {

constexpr int kPatience = 60'000;  // milliseconds

/// Four times as many pictures with every line.
QByteArray SvgBomb() {
  QByteArray page = "Before<svg><g id=a0><rect width=9 height=9 /></g>";
  for (int level = 1; level < 25; ++level) {
    const QByteArray use = "<use href=#a" + QByteArray::number(level - 1) + " />";
    page += "<g id=a" + QByteArray::number(level) + ">" + use.repeated(4) + "</g>";
  }
  return page + "<use href=#a24 /></svg><p>Behind";
}

QByteArray StyleBomb() {
  return "Before<style>p::before{content:'" + QByteArray(2'000'000, 'x') + "'}</style>" +
         QByteArray("<p>").repeated(20'000) + "Behind";
}

QByteArray WideTable() {
  return "Before<table>" + QByteArray("<tr>").repeated(50'000) +
         QByteArray("<td colspan=1000>x").repeated(100'000);
}

QByteArray NestedTables() {
  const QByteArray nest =
      QByteArray("<table><tr><td>a<td>b<td>").repeated(100) + QByteArray("</table>").repeated(100);
  return "Before" + nest.repeated(2'400);
}

class PageBoundsTest : public DesktopTest {
 protected:
  PageBoundsTest() { Show(form_, {Cell(view_, 600, 400)}); }
  ~PageBoundsTest() override { desktop_->CloseWindows(); }

  void Open(const QByteArray& page) {
    QFile file(folder_.filePath("Display.html"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(page);
    file.close();
    desktop_->Navigate(view_, QUrl::fromLocalFile(file.fileName()).toEncoded().toStdString());
  }
  qint64 Renderer() const { return Find<PageView>(form_, view_)->page()->renderProcessPid(); }
  /// The text that stands in for the page; "" while the page itself is shown.
  QString StandIn() const {
    const auto* text = Find<PageView>(form_, view_)->findChild<QPlainTextEdit*>("PageText");
    return text != nullptr && text->isVisible() ? text->toPlainText() : "";
  }
  void ExpectStandIn(const char* reason, const QString& begin) {
    ASSERT_TRUE(QTest::qWaitFor([this] { return !StandIn().isEmpty(); }, kPatience)) << reason;
    EXPECT_TRUE(StandIn().startsWith(QString(reason) + "\n\n" + begin))
        << StandIn().left(200).toStdString();
  }
  void ExpectPagesAreShownAgain() {
    Open("<p>An ordinary page");
    EXPECT_EQ(StandIn(), "");
    QVariant shown;
    Find<PageView>(form_, view_)
        ->page()
        ->runJavaScript("document.body.innerText", QWebEngineScript::ApplicationWorld,
                        [&](const QVariant& text) { shown = text; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.isValid(); }, kPatience));
    EXPECT_EQ(shown.toString().trimmed(), "An ordinary page");
  }

  Form form_{"Form"};
  BrowserView view_{"View"};
};

TEST_F(PageBoundsTest, APageThatTakesTooMuchMemoryIsShownAsText) {
  for (const auto& [name, page, begin] : {std::tuple{"svg", SvgBomb(), "Before\nBehind"},
                                          {"style", StyleBomb(), "Before"},
                                          {"wide table", WideTable(), "Before\n"},
                                          {"nested tables", NestedTables(), "Before\n"}}) {
    SCOPED_TRACE(name);
    qint64 most = 0;
    QTimer measure;
    QObject::connect(&measure, &QTimer::timeout,
                     [&] { most = std::max(most, MemoryOfProcess(Renderer())); });
    measure.start(10);
    QElapsedTimer time;
    time.start();
    Open(page);
    ExpectStandIn("This page needed too much memory and is shown as text.", begin);
    RecordProperty(std::string(name) + " KiB", std::to_string(most));
    RecordProperty(std::string(name) + " ms", std::to_string(time.elapsed()));
    ExpectPagesAreShownAgain();
    if (HasFailure()) return;
  }
}

TEST_F(PageBoundsTest, APageWhoseRendererDiesIsShownAsText) {
  Open("<b>Here</b> it<br>stands");
  EXPECT_EQ(StandIn(), "");
  EXPECT_GT(MemoryOfProcess(Renderer()), 1'000);
  EXPECT_LT(MemoryOfProcess(Renderer()), kRendererMemory / 4);
  ASSERT_GT(Renderer(), 0);
  ::kill(static_cast<pid_t>(Renderer()), SIGKILL);
  ExpectStandIn("This page could not be shown and stands here as text.", "Here it\nstands");
  ExpectPagesAreShownAgain();
}

TEST_F(PageBoundsTest, APageFileThatIsTooLongIsShownAsText) {
  Open("first line<br>" + QByteArray(kLongestPage, 'x'));
  ExpectStandIn("This page is too long and is shown as text.", "first line\nxxx");
  EXPECT_LT(StandIn().size(), 500'000);
  EXPECT_TRUE(StandIn().endsWith("\n..."));
  ExpectPagesAreShownAgain();
}

TEST_F(PageBoundsTest, TheTextOfAPageIsWhatCanBeRead) {
  const auto textOf = [this](const QByteArray& html) {
    QFile file(folder_.filePath("Page.html"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(html);
    file.close();
    return TextOfPage(file.fileName());
  };
  EXPECT_EQ(textOf("<html><style>p{}</style><p>one<table><tr><td>two\r\n 2<TD>3<TR>four</table>"),
            "one\ntwo 2 3\nfour");
  EXPECT_EQ(textOf("<!-- x -->5 &lt; 6 &amp;lt; <b x='1'>M\xC3\xBChle</b><script>x"),
            QString("5 < 6 &lt; M\u00FChle") + "x");
  EXPECT_EQ(TextOfPage(folder_.filePath("missing.html")), "");
  for (const char* piece : {"<svg ", "<!--", "&nbsp;", "<br> ", "<p"}) {
    textOf(QByteArray(piece).repeated(50'000));  // a moment each, not minutes
  }
}

}  // namespace
}  // namespace brindlemoor

// A game that a stranger wrote to do harm, shown in the real views: no script runs, nothing is
// asked for outside of the program's folders, and no click does what the player could not do
// anyway.
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QTcpServer>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineUrlRequestInterceptor>
#include <algorithm>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/state.h"
#include "data/card_reader.h"
#include "editor/program_session.h"
#include "game/game_list.h"
#include "game/program_start.h"
#include "game/turn.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "pages/card_pages.h"
#include "pages/page_files.h"
#include "platform/qt/page_view.h"
#include "script/card_entry.h"
#include "script/card_setup.h"
#include "script/trait_changes.h"
#include "tests/windows/desktop_test.h"
#include "ui/card_description.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {
namespace {

/// Keeps the requests that the program's own filter has let through.
class Recorder : public QWebEngineUrlRequestInterceptor {
 public:
  using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;
  void interceptRequest(QWebEngineUrlRequestInfo& request) override {
    Requests.push_back(request.requestUrl());
  }
  QList<QUrl> Requests;
};

/// What is put into every text of the game. $PORT is a server that waits on this machine, $OUT a
/// file outside of the program's folders.
constexpr const char* kHostileTexts[] = {
    "<script>document.documentElement.setAttribute('ran','script')</script>",
    "<img src=x onerror=\"document.documentElement.setAttribute('ran','onerror')\">",
    "<svg onload=\"document.documentElement.setAttribute('ran','svg')\"></svg>",
    "<svg><script>document.documentElement.setAttribute('ran','svg script')</script></svg>",
    "<b onmouseover=\"document.documentElement.setAttribute('ran','over')\" autofocus tabindex=0 "
    "onfocus=\"document.documentElement.setAttribute('ran','focus')\">x</b>",
    "<details open ontoggle=\"document.documentElement.setAttribute('ran','toggle')\">x</details>",
    "<iframe srcdoc=\"<script>top.document.documentElement.setAttribute('ran','frame')</script>\">"
    "</iframe>",
    "<iframe src=\"javascript:top.document.documentElement.setAttribute('ran','url')\"></iframe>",
    "<iframe src=http://127.0.0.1:$PORT/frame></iframe><iframe src=\"file://$OUT\"></iframe>",
    "<frameset><frame src=http://127.0.0.1:$PORT/frameset></frameset>",
    "<object data=http://127.0.0.1:$PORT/object></object><embed src=http://127.0.0.1:$PORT/embed>",
    "<form action=http://127.0.0.1:$PORT/form><input name=a value=b><input type=submit></form>",
    "<meta http-equiv=refresh content=\"0;url=http://127.0.0.1:$PORT/refresh\">",
    "<meta http-equiv=refresh content=\"0;url=GAME:1:2\">",
    "<style>@import url(http://127.0.0.1:$PORT/import); body { background: "
    "url(http://127.0.0.1:$PORT/background) } p { content: url(file://$OUT) }</style>",
    "<link rel=stylesheet href=http://127.0.0.1:$PORT/style.css>"
    "<link rel=preconnect href=http://127.0.0.1:$PORT><link rel=dns-prefetch href=//a.invalid>"
    "<link rel=prefetch href=http://127.0.0.1:$PORT/prefetch>"
    "<link rel=icon href=http://127.0.0.1:$PORT/icon.png>"
    "<link rel=preload as=image href=http://127.0.0.1:$PORT/preload.png>",
    "<img src=http://127.0.0.1:$PORT/image.png><img src=\"file://$OUT\">"
    "<img srcset=\"http://127.0.0.1:$PORT/set.png 2x\"><video src=http://127.0.0.1:$PORT/video "
    "autoplay poster=http://127.0.0.1:$PORT/poster.png></video>"
    "<audio src=http://127.0.0.1:$PORT/audio autoplay></audio>",
    "<img src=\"data:image/svg+xml,<svg xmlns='http://www.w3.org/2000/svg'><image "
    "href='http://127.0.0.1:$PORT/data'/></svg>\"><body background=http://127.0.0.1:$PORT/body>",
    "<base href=http://127.0.0.1:$PORT/base/ target=_top><img src=relative.png>",
    "<a ping=http://127.0.0.1:$PORT/ping href=\"javascript:document.documentElement.setAttribute("
    "'ran','link')\">x</a><a href=GAME:1:2 target=_top>x</a>",
};

class PageSafetyTest : public DesktopTest {
 protected:
  PageSafetyTest() {
    EXPECT_TRUE(server_.listen(QHostAddress::LocalHost));
    QObject::connect(&server_, &QTcpServer::newConnection, [this] { ++connections_; });
    OpenProgramSession(std::shared_ptr<Platform>(std::move(desktop_)),
                       folder_.path().toStdString());
    State().Profile.PlayerName = "Ann";
    Write("art/deep/outside.png", "x");  // too deep to belong to a page
    Write("blank.htm", "blank");
  }
  ~PageSafetyTest() override {
    Qt().CloseWindows();
    State() = Session{};
  }

  static QtPlatform& Qt() { return static_cast<QtPlatform&>(*State().Desktop); }
  QString Path(const QString& name) const { return folder_.path() + "/" + name; }
  void Write(const QString& name, const QByteArray& text) const {
    QDir().mkpath(QFileInfo(Path(name)).path());
    QFile file(Path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }
  std::string Hostile(const char* text) const {
    return QString(text)
        .replace("$PORT", QString::number(server_.serverPort()))
        .replace("$OUT", Path("art/deep/outside.png"))
        .toStdString();
  }
  /// The whole of them.
  std::string AllHostile() const {
    std::string all;
    for (const char* text : kHostileTexts) all += Hostile(text);
    return all;
  }
  static std::vector<PageView*> Views() {
    std::vector<PageView*> views;
    for (BrowserView* view :
         {&TheMainWindow().WB, &TheMainWindow().InPlayWB, &TheMainWindow().CardDescWB}) {
      views.push_back(Find<PageView>(TheMainWindow(), *view));
    }
    return views;
  }
  void ShowMainWindow() {
    Desktop().ShowForm(TheMainWindow(), false);
    for (PageView* view : Views()) view->page()->setUrlRequestInterceptor(&recorder_);
  }
  static QVariant Look(PageView* view, const QString& script) {
    QVariant answer;
    QEventLoop loop;
    view->page()->runJavaScript(script, QWebEngineScript::ApplicationWorld,
                                [&](const QVariant& result) {
                                  answer = result;
                                  loop.quit();
                                });
    QTimer::singleShot(5000, &loop, &QEventLoop::quit);
    loop.exec();
    return answer;
  }
  /// Keeps the links that the views hand on.
  void RecordClicks() {
    for (BrowserView* view :
         {&TheMainWindow().WB, &TheMainWindow().InPlayWB, &TheMainWindow().CardDescWB}) {
      view->BeforeNavigate = [this, handler = view->BeforeNavigate](const std::string& url) {
        asked_.push_back(url);
        return handler(url);
      };
    }
  }
  /// Lets the pages do what they would do, and looks at what they did.
  void ExpectHarmless(const std::string& what) {
    QTest::qWait(150);
    for (PageView* view : Views()) {
      EXPECT_EQ(Look(view, "document.documentElement.getAttribute('ran')").toString(), QString())
          << what << ": a script ran";
      EXPECT_EQ(view->url().scheme(), QString("file")) << what;
      EXPECT_TRUE(view->url().toLocalFile().startsWith(Path(""))) << what;
    }
    EXPECT_EQ(connections_, 0) << what << ": something was asked for over the network";
    EXPECT_FALSE(recorder_.Requests.isEmpty());
    for (const QUrl& url : recorder_.Requests) {
      const bool data = url.scheme() == "data" || url.scheme() == "about";
      EXPECT_TRUE(data || url.toLocalFile().startsWith(Path("")))
          << what << url.toString().toStdString();
      EXPECT_FALSE(url.toLocalFile().contains("outside")) << what;
    }
  }
  Card HostileCard(const std::string& text, int owner) const {
    Card card;
    InitCard(card, owner, 0);
    card.Name = "Imp " + text;
    card.Description = text;
    card.NameColor = "#FFFFFF\">" + text;
    card.Thumb = "thumb.jpg\">" + text;
    card.Picture = "picture.jpg\">" + text;
    SetTrait(card, "HP", std::string_view(text), 1);
    SetTrait(card, "SHOWN", std::string_view(text), 1);
    card.TraitCaptions.Edit(1) = text;
    AddEffect(card, "ECHO:%TEXT%", kTargetSelf, "MENU:PHASE1:" + text, 0, "SELF");
    AddEffect(card, "ECHO:$MYNAME %TEXT% #MYTRAIT/SHOWN#", kTargetSelf, "PHASE1", 0, "SELF");
    return card;
  }

  QTcpServer server_;
  int connections_ = 0;
  Recorder recorder_;
  std::vector<std::string> asked_;
};

TEST_F(PageSafetyTest, EveryTextOfAGameIsHarmlessInEveryView) {
  NewGame();
  ShowMainWindow();
  std::vector<std::string> texts{AllHostile()};
  for (const char* text : kHostileTexts) texts.push_back(Hostile(text));
  for (const std::string& text : texts) {
    NewGame();
    AddCustomString("%TEXT%", text);
    AddTraitGraphic("SHOWN", "badge.png\">" + text, "#FFFFFF>" + text, text, 1, 1);
    for (const int side : {1, 2}) {
      const int slot = AddToTable(HostileCard(text, side));
      State().Players[side].PlayerCard = slot;
      State().Players[side].Color = "#FF0000>" + text;
    }
    State().Players[1].Hand[1] = HostileCard(text, 1);
    State().CurrentGame = 1;
    TakeTurn(1);
    ShowCardDescription(State().CardTable[State().Players[1].PlayerCard], 1);
    State().PlayQueue[1] = 1;
    ShowPlayMenu();
    ExpectHarmless(text);
    State().Games.Reset(1);
    GameRec& game = State().Games[1];
    game.Name = game.Banner = game.Color = game.HelpPage = text;
    game.Opponents.Reset(1);
    game.OpponentFiles.Reset(1);
    game.Opponents[1] = HostileCard(text, 2);
    ShowGameList();
    ExpectHarmless(text);
    if (HasFailure()) return;
  }
}

TEST_F(PageSafetyTest, ALinkInATextThatImitatesACommandDoesNothing) {
  NewGame();
  ShowMainWindow();
  State().Games.Reset(1);
  State().Games[1].Name = "Evil";
  State().Games[1].OpponentFiles.Reset(2);
  State().Games[1].OpponentFiles[2] = "/nowhere.txt";
  State().CurrentGame = 1;
  Card shop;
  InitCard(shop, 1, 0);
  shop.Name = "Shop";
  SetTrait(shop, "INVISIBLE", "", 1);
  AddEffect(shop, "MODTOKENS:-100", kTargetSelf, "MENU:PHASE1:Pay", 0, "SELF");
  Card& hidden = State().CardTable[AddToTable(shop)];
  const std::string links = Joined(
      "<base href=http://127.0.0.1:", server_.serverPort(),
      "/><a href=GAME:1:2>x</a> <a href=MENUACTION:", hidden.GlobalID, ":1>x</a> <a href=CARD",
      hidden.GlobalID, ">x</a> <a href=\"javascript:1\">x</a> <a href=\"file://",
      folder_.path().toStdString(),
      "/outside.png\">x</a> <a href=http://127.0.0.1:", server_.serverPort(), "/>x</a> ");
  Card evil = HostileCard(links, 1);
  evil.Thumb = Text();
  evil.NameColor = "#FFFFFF";
  Card& shown = State().CardTable[AddToTable(evil)];
  State().Players[1].PlayerCard = shown.Slot;
  TakeTurn(1);
  ShowCardDescription(shown, 1);
  State().PlayQueue[1] = 1;
  State().Players[1].Hand[1] = evil;
  ShowPlayMenu();
  const auto state = [&] {
    return Joined(State().CurrentGame, " ", State().SelectedSlot, " ", State().Players[1].Tokens,
                  " ", int{hidden.Effects[1].MenuState}, " ", TheMainWindow().WB.Url.Get(), " ",
                  TheMainWindow().CardDescWB.Url.Get());
  };
  const std::string before = state();
  constexpr int kCommands = 3;  // other links of texts are not let through
  RecordClicks();
  for (PageView* view : Views()) {
    const int count = Look(view, "document.links.length").toInt();
    EXPECT_GE(count, kCommands);
    for (int link = 0; link < std::min(count, kCommands); ++link) {
      const QVariantList place =
          Look(view,
               QString("(function() { const link = document.links[%1]; link.scrollIntoView(); "
                       "const box = link.getClientRects()[0];"
                       "return [box.left + 2, box.top + 2]; })()")
                   .arg(link))
              .toList();
      if (place.size() != 2) continue;
      QTest::mouseClick(view->focusProxy(), Qt::LeftButton, {},
                        {place[0].toInt(), place[1].toInt()});
      QTest::qWait(100);
    }
  }
  EXPECT_EQ(state(), before);
  EXPECT_EQ(std::count(asked_.begin(), asked_.end(), "game:1:2"), 3) << "every view was clicked";
  EXPECT_EQ(std::count(asked_.begin(), asked_.end(), Joined("menuaction:", hidden.GlobalID, ":1")),
            3);
  EXPECT_EQ(std::count(asked_.begin(), asked_.end(),
                       Joined("file://", folder_.path().toStdString(), "/CARD", hidden.GlobalID)),
            3)
      << "a base tag leads no link of the page elsewhere";
  ExpectHarmless("links");
}

}  // namespace
}  // namespace brindlemoor

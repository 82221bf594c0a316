// Program folders of any name: the pictures of pages show, and clicks on links arrive.
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QImage>
#include <QVariant>
#include <QWebEnginePage>
#include <QWebEngineScript>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "editor/card_preview.h"
#include "editor/editor_forms.h"
#include "editor/program_session.h"
#include "game/game_list.h"
#include "game/program_start.h"
#include "game/turn.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "pages/card_pages.h"
#include "platform/qt/page_view.h"
#include "script/card_entry.h"
#include "script/card_setup.h"
#include "script/trait_changes.h"
#include "tests/windows/desktop_test.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {
namespace {

class OddFolderTest : public DesktopTest, public testing::WithParamInterface<const char*> {
 protected:
  OddFolderTest() : path_(folder_.path() + "/" + GetParam()) {
    EXPECT_TRUE(QDir().mkpath(path_));
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(Qt::red);
    EXPECT_TRUE(picture.save(path_ + "/p.png") && picture.save(path_ + "/magiccost.jpg"));
    Write("blank.htm", "blank");
    Write("Help.html", "<img src=p.png><a href=More.html>more</a>");
    Write("More.html", "<a href=Help.html>back</a> more help");
    desktop_ =
        std::make_unique<QtPlatform>(std::make_unique<LocalFileSystem>(), path_.toStdString(), 1);
    OpenProgramSession(std::shared_ptr<Platform>(std::move(desktop_)), path_.toStdString());
    State().Profile.PlayerName = "Ann";
    NewGame();
    Desktop().ShowForm(TheMainWindow(), false);
  }
  ~OddFolderTest() override {
    static_cast<QtPlatform&>(*State().Desktop).CloseWindows();
    State() = Session{};
  }

  void Write(const QString& name, const QByteArray& text) const {
    QFile file(path_ + "/" + name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }
  static Card& PutInPlay(const char* name, int owner) {
    Card card;
    InitCard(card, owner, 0);
    card.Name = name;
    card.Thumb = card.Picture = "p.png";
    SetTrait(card, "MANA", "1", 1);
    SetTrait(card, "LIT", "", 1);
    AddEffect(card, "ECHO:lit", kTargetSelf, "MENU:PHASE1:Light", 0, "SELF");
    return State().CardTable[AddToTable(card)];
  }
  static QVariant Look(const Form& form, const BrowserView& view, const QString& script) {
    QVariant answer;
    QEventLoop loop;
    Find<PageView>(form, view)
        ->page()
        ->runJavaScript(script, QWebEngineScript::ApplicationWorld, [&](const QVariant& result) {
          answer = result;
          loop.quit();
        });
    QTimer::singleShot(5000, &loop, &QEventLoop::quit);
    loop.exec();
    return answer;
  }
  /// Waits until a view shows a page with so many pictures, all of them read. Cards without a
  /// picture file leave an empty address.
  static void ExpectPictures(const Form& form, const BrowserView& view, int count) {
    const QString script =
        "(function() { const images = Array.from(document.querySelectorAll('img:not([src=\"\"])'));"
        "return images.filter(i => i.naturalWidth == 8).length + ' of ' + images.length; })()";
    const QString wanted = QString("%1 of %1").arg(count);
    QString found;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return (found = Look(form, view, script).toString()) == wanted; }, 5000))
        << view.Name << ": " << found.toStdString() << " pictures, wanted " << count;
  }
  /// Clicks on the first link of a view whose address ends so, once the page has the view's size
  /// and the link stays where it is: windows are laid out again behind a new page.
  static void Click(const Form& form, const BrowserView& view, const std::string& ending) {
    QWidget* target = Find<PageView>(form, view)->focusProxy();
    const QString script = QString(
                               "(function() { const link = Array.from(document.links).find("
                               "l => l.getAttribute('href').endsWith('%1'));"
                               "link.scrollIntoView(); const box = link.getClientRects()[0];"
                               "return [box.left + 2, box.top + 2, innerWidth, innerHeight]; })()")
                               .arg(QString::fromStdString(ending));
    QVariantList place;
    ASSERT_TRUE(Comes([&] {
      const QVariantList before = std::exchange(place, Look(form, view, script).toList());
      return place.size() == 4 && place == before && place[2].toInt() == target->width() &&
             place[3].toInt() == target->height();
    })) << view.Name
        << " has no link " << ending;
    QTest::mouseClick(target, Qt::LeftButton, {}, {place[0].toInt(), place[1].toInt()});
  }
  static bool Comes(const std::function<bool()>& what) { return QTest::qWaitFor(what, 3000); }

  const QString path_;
};

TEST_P(OddFolderTest, AMatchShowsItsPicturesAndTakesClicks) {
  Session& state = State();
  MainWindow& main = TheMainWindow();
  state.Games.Reset(1);
  state.Games[1].Name = "Lamps";
  state.Games[1].Banner = "p.png";
  state.Games[1].Opponents.Reset(0);
  state.Games[1].Opponents.Append(PutInPlay("Crab", 2));
  ShowGameList();
  ExpectPictures(main, main.WB, 2);

  state.CurrentGame = 1;
  state.FullSizeImages = 1;
  state.TraitGraphics[1] = {"LIT", "p.png", "#FFFFFF", "", 1, 1};
  Card& lamp = PutInPlay("Lamp", 1);
  state.Players[1].PlayerCard = lamp.Slot;
  state.PhaseBanner = CardPanelHtml(lamp, 1);
  TakeTurn(1);
  // The player's resource, thumbnail and badge of each card, and a panel with a badge.
  ExpectPictures(main, main.WB, 7);
  Click(main, main.WB, Joined("CARD", lamp.GlobalID));
  ASSERT_TRUE(Comes([&] { return state.SelectedSlot == lamp.Slot; }));
  ExpectPictures(main, main.CardDescWB, 1);
  EXPECT_EQ(main.Picture1.Picture.Get(), (path_ + "/p.png").toStdString());
  Click(main, main.CardDescWB, ":1");
  EXPECT_TRUE(Comes([&] { return lamp.Effects[1].MenuState == kArmedMenuAction; }));

  state.SelectedSlot = 0;
  lamp.Name = Joined("Lamp <a href=CARD", lamp.GlobalID, ">look</a>");
  ShowPlayMenu();
  Click(main, main.InPlayWB, Joined("CARD", lamp.GlobalID));
  EXPECT_TRUE(Comes([&] { return state.SelectedSlot == lamp.Slot; }));
}

TEST_P(OddFolderTest, TheOtherWindowsShowTheirPictures) {
  ShowHelp("Help.html");
  HelpForm& help = TheHelpForm();
  ExpectPictures(help, help.HelpWB, 1);
  Click(help, help.HelpWB, "More.html");
  const auto text = [&help] {
    return Look(help, help.HelpWB, "document.body.innerText").toString().contains("more help");
  };
  EXPECT_TRUE(Comes(text));
  const Card card = PutInPlay("Lamp", 1);
  State().Collection[1] = card;
  DeckManager& decks = TheDeckManager();
  decks.Form_Load();
  Desktop().ShowForm(decks, false);
  decks.CollectPic[0]->MouseMove();
  ExpectPictures(decks, decks.WB, 1);
  CardEdit& editor = TheCardEdit();
  editor.Form_Load();
  Desktop().ShowForm(editor, false);
  std::string shown;
  ShowCardPreview(card, editor.PreviewWB, shown, true);
  ExpectPictures(editor, editor.PreviewWB, 1);
}

INSTANTIATE_TEST_SUITE_P(Folders, OddFolderTest,
                         testing::Values("plain", "a b%20#c?d", "a b%20#c?d/100%",
                                         "M\xc3\xbchle \xe6\xb0\xb4/R&amp;D",
                                         "!$'()*+,-.;<=>@[]^_`{|}~:\"&\\ "));

}  // namespace
}  // namespace brindlemoor

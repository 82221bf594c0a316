// Pages reach the files of the game and nothing else.
#include "platform/qt/page_policy.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QUrl>
#include <gtest/gtest.h>

namespace brindlemoor {
namespace {

class PagePolicyTest : public testing::Test {
 protected:
  PagePolicyTest() {
    for (const char* file :
         {"outside.png", "games/parent.png", "games/other/near.png", "games/mine/page.html",
          "games/mine/card.JPG", "games/mine/style.css", "games/mine/Ann.plr",
          "games/mine/art/card.bmp", "games/mine/art/page.htm", "games/mine/art/deep/card.png"}) {
      QDir().mkpath(QFileInfo(Path(file)).path());
      EXPECT_TRUE(QFile(Path(file)).open(QIODevice::WriteOnly));
    }
    QFile::link(Path("outside.png"), Path("games/mine/link.png"));
    QFile::link(Path("games/mine/card.JPG"), Path("games/mine/art/back.jpg"));
  }
  QString Path(const QString& name) const { return root_.path() + "/" + name; }

  QTemporaryDir root_;
};

TEST_F(PagePolicyTest, FilesAreJudgedByKindAndByWhereTheyReallyLie) {
  const PagePolicy policy(Path("games/mine"));
  const PagePolicy missing(Path("nowhere"));
  const struct {
    const char* File;
    bool AsPart, AsPage;
  } cases[] = {
      {"games/mine/page.html", true, true},
      {"games/mine/missing.html", true, true},
      {"games/mine/card.JPG", true, false},
      {"games/mine/style.css", true, false},
      {"games/mine/Ann.plr", false, false},
      {"games/mine/art/card.bmp", true, false},
      {"games/mine/art/page.htm", true, true},
      {"games/mine/art/back.jpg", true, false},
      {"games/parent.png", true, false},
      {"games/mine/art/deep/card.png", false, false},
      {"games/other/near.png", false, false},
      {"outside.png", false, false},
      {"games/mine/link.png", false, false},
      {"games/mine/art/../../../outside.png", false, false},
      {"games/mine/nowhere/card.png", false, false},
  };
  for (const auto& [file, asPart, asPage] : cases) {
    const QUrl url = QUrl::fromLocalFile(Path(file));
    EXPECT_EQ(policy.AllowsResource(url), asPart) << file;
    EXPECT_EQ(policy.AllowsPage(url), asPage) << file;
    EXPECT_FALSE(missing.AllowsPage(url)) << file;
  }
  const QString file = Path("games/mine/page.html");
  for (const QString& url :
       {"http://example.com" + file, "https://example.com" + file, "ws://example.com" + file,
        "ftp://example.com" + file, "file://example.com" + file, "qrc:" + file,
        QString("data:image/png;base64,AAAA.png"), QString("about:blank")}) {
    EXPECT_FALSE(policy.AllowsResource(QUrl(url))) << url.toStdString();
    EXPECT_FALSE(policy.AllowsPage(QUrl(url))) << url.toStdString();
  }
}

}  // namespace
}  // namespace brindlemoor

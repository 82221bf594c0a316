// Pages reach the files of the game and nothing else.
#include "platform/qt/page_policy.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>
#include <gtest/gtest.h>

namespace brindlemoor {
namespace {

class PagePolicyTest : public testing::Test {
 protected:
  PagePolicyTest() {
    for (const char* folder : {"games/mine/art/deep", "games/other"})
      QDir(root_.path()).mkpath(folder);
    for (const char* file :
         {"outside.png", "games/parent.png", "games/other/near.png", "games/mine/page.html",
          "games/mine/card.JPG", "games/mine/style.css", "games/mine/Ann.plr",
          "games/mine/art/card.bmp", "games/mine/art/page.htm", "games/mine/art/deep/card.png"}) {
      QFile created(Path(file));
      EXPECT_TRUE(created.open(QIODevice::WriteOnly));
    }
    QFile::link(Path("outside.png"), Path("games/mine/link.png"));
    QFile::link(Path("games/mine/card.JPG"), Path("games/mine/art/back.jpg"));
  }
  QString Path(const QString& name) const { return root_.path() + "/" + name; }

  QTemporaryDir root_;
};

TEST_F(PagePolicyTest, FilesAreJudgedByKindAndByWhereTheyReallyLie) {
  const PagePolicy policy(Path("games/mine"));
  const struct {
    const char* File;
    bool AsPart;
    bool AsPage;
  } kCases[] = {
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
  for (const auto& [file, asPart, asPage] : kCases) {
    const QUrl url = QUrl::fromLocalFile(Path(file));
    EXPECT_EQ(policy.AllowsResource(url), asPart) << file;
    EXPECT_EQ(policy.AllowsPage(url), asPage) << file;
  }
}

TEST_F(PagePolicyTest, NothingButFilesOfThisMachineIsReached) {
  const PagePolicy policy(Path("games/mine"));
  const QString file = Path("games/mine/page.html");
  const QStringList urls{"http://example.com" + file,      "https://example.com/card.png",
                         "ws://example.com/a.png",         "ftp://example.com/a.png",
                         "data:image/png;base64,AAAA.png", "qrc:" + file,
                         "file://example.com" + file,      "about:blank"};
  for (const QString& url : urls) {
    EXPECT_FALSE(policy.AllowsResource(QUrl(url))) << url.toStdString();
    EXPECT_FALSE(policy.AllowsPage(QUrl(url))) << url.toStdString();
  }
}

TEST_F(PagePolicyTest, AFolderThatIsMissingAllowsNothing) {
  const PagePolicy policy(Path("nowhere"));
  EXPECT_FALSE(policy.AllowsPage(QUrl::fromLocalFile(Path("games/mine/page.html"))));
  EXPECT_FALSE(policy.AllowsPage(QUrl::fromLocalFile("/page.html")));
}

}  // namespace
}  // namespace brindlemoor

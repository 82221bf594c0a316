// What a file dialog lists, and what it makes of the name that is typed.
#include <QFileDialog>
#include <QLineEdit>

#include "tests/windows/desktop_test.h"

namespace brindlemoor {
namespace {

TEST_F(DesktopTest, FileDialogsTakePatternsAndCompleteNames) {
  for (const char* name : {"old.plr", "notes.txt", "page.htm"}) {
    QFile file(folder_.path() + "/" + name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  }
  const struct {
    FileDialogRequest Request;
    const char* Typed;  // the preset name stays where nothing is typed
    QStringList Listed;
    std::string Chosen;
  } cases[] = {
      {{.FileName = "*.plr;*.txt"}, "old.plr", {"notes.txt", "old.plr"}, "old.plr"},
      {{.FileName = "*.txt", .DefaultExtension = "txt"}, "notes", {"notes.txt"}, "notes.txt"},
      {{.FileName = "old.plr"}, nullptr, {"notes.txt", "old.plr", "page.htm"}, "old.plr"},
      {{true, "*.plr;*.txt", "plr"}, "new", {"notes.txt", "old.plr"}, "new.plr"},
      {{true, "Deck", "txt"}, nullptr, {"notes.txt"}, "Deck.txt"},
      {{true, "", "txt"}, "Deck.lst", {"notes.txt"}, "Deck.lst"},
      {{true, "", ""}, "Deck", {"notes.txt", "old.plr", "page.htm"}, "Deck"},
  };
  for (const auto& row : cases) {
    QStringList listed;
    Later([&] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      const QStringList patterns = dialog->nameFilters().constFirst().split(' ');
      listed = QDir(dialog->directory()).entryList(patterns, QDir::Files, QDir::Name);
      if (row.Typed != nullptr) dialog->findChild<QLineEdit*>("fileNameEdit")->setText(row.Typed);
      static_cast<QDialog*>(dialog)->accept();
    });
    EXPECT_EQ(desktop_->AskFile(row.Request), folder_.path().toStdString() + "/" + row.Chosen);
    EXPECT_EQ(listed, row.Listed) << row.Chosen;
  }
}

TEST_F(DesktopTest, FolderDialogsGiveAFolderThatIsThere) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir("sub"));
  const std::string sub = folder_.path().toStdString() + "/sub";
  for (const char* typed : {"sub", "sub/", ""}) {
    Later([&] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      EXPECT_EQ(dialog->windowTitle(), "Where to?");
      if (*typed == '\0') return dialog->reject();
      dialog->findChild<QLineEdit*>("fileNameEdit")->setText(folder_.path() + "/" + typed);
      static_cast<QDialog*>(dialog)->accept();
    });
    const std::optional<std::string> chosen = desktop_->AskFolder("Where to?");
    EXPECT_EQ(chosen, *typed == '\0' ? std::nullopt : std::optional(sub)) << typed;
  }
  const std::vector<std::string> drives = desktop_->Drives();
  EXPECT_EQ(drives.front(), QDir::homePath().toStdString());
  EXPECT_EQ(drives.back(), "/");
}

}  // namespace
}  // namespace brindlemoor

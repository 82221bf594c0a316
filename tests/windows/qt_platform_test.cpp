// Modal windows, dialogs and the end of the program.
#include "platform/qt/qt_platform.h"

#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "tests/windows/desktop_test.h"

namespace brindlemoor {
namespace {

template <class Dialog>
Dialog* OpenDialog() {
  return qobject_cast<Dialog*>(QApplication::activeModalWidget());
}

TEST_F(DesktopTest, AModalFormReturnsWhenItHidesOrIsClosed) {
  Form form("Form");
  form.Activate = [&] { desktop_->HideForm(form); };
  desktop_->ShowForm(form, true);  // hides itself when activated
  EXPECT_FALSE(form.Shown);
  form.Activate = nullptr;
  int asked = 0;
  form.QueryClose = [&asked] { return ++asked == 1; };
  Later([&] {
    EXPECT_TRUE(Window(form)->isVisible());
    Window(form)->close();
    EXPECT_TRUE(form.Shown) << "the form wanted to stay";
    Window(form)->close();
  });
  desktop_->ShowForm(form, true);
  EXPECT_EQ(asked, 2);
  EXPECT_FALSE(form.Shown || Window(form)->isVisible());
  desktop_->CloseWindows();
}

TEST_F(DesktopTest, EndingLeavesEveryLoopAndShowsNothingMore) {
  Form outer("Outer"), inner("Inner"), late("Late");
  bool activated = false;
  late.Activate = [&] { activated = true; };
  Later([&] {
    Later([&] {
      Later([&] { desktop_->EndProgram(); });
      desktop_->MessageBox("Stay?");
    });
    desktop_->ShowForm(inner, true);
    EXPECT_TRUE(desktop_->Ending());
    EXPECT_FALSE(desktop_->AskYesNo("More?"));
    EXPECT_FALSE(desktop_->AskText("More?").has_value());
    EXPECT_FALSE(desktop_->AskFile({}).has_value());
    EXPECT_FALSE(desktop_->AskColor(0).has_value());
    desktop_->ShowForm(late, true);
  });
  desktop_->ShowForm(outer, true);
  desktop_->Run();
  EXPECT_TRUE(desktop_->Ending());
  EXPECT_FALSE(outer.Shown || inner.Shown || late.Shown || activated);
  desktop_->CloseWindows();
}

TEST_F(DesktopTest, TheProgramEndsWhenNoWindowIsLeft) {
  Form form("Form");
  desktop_->ShowForm(form, false);
  Later([&] { Window(form)->close(); });
  desktop_->Run();
  EXPECT_TRUE(desktop_->Ending());
  desktop_->CloseWindows();
}

TEST_F(DesktopTest, DialogsShowTheirTextAsItIsAndTakeButtonsAndKeys) {
  const std::string text = "<b>Bold</b> & \"quoted\"";
  Later([&] {
    auto* box = OpenDialog<QMessageBox>();
    EXPECT_EQ(box->text().toStdString(), text);
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    box->accept();
  });
  desktop_->MessageBox(text);
  for (const auto& [key, answer] : {std::pair{Qt::Key_Return, true}, {Qt::Key_Escape, false}}) {
    Later([key = key] { QTest::keyClick(QApplication::activeModalWidget(), key); });
    EXPECT_EQ(desktop_->AskYesNo("Really?"), answer);
  }
  Later([] { OpenDialog<QMessageBox>()->button(QMessageBox::No)->click(); });
  EXPECT_FALSE(desktop_->AskYesNo("Really?"));
  const struct {
    const char* Typed;
    bool Accept;
    std::optional<std::string> Answer;
  } cases[] = {{"Ann", true, "Ann"}, {"", true, ""}, {"Ann", false, std::nullopt}};
  for (const auto& row : cases) {
    Later([&row] {
      auto* dialog = OpenDialog<QInputDialog>();
      EXPECT_EQ(dialog->findChild<QLabel*>()->textFormat(), Qt::PlainText);
      dialog->setTextValue(row.Typed);
      row.Accept ? dialog->accept() : dialog->reject();
    });
    EXPECT_EQ(desktop_->AskText("<i>Name?</i>"), row.Answer);
  }
}

TEST_F(DesktopTest, AWildPointerDoesNotNestHandlers) {
  PictureBox first("First"), second("Second"), third("Third");
  Form form("Form");
  form.Arrangement = {.Children = {Cell(first), Cell(second), Cell(third)}};
  std::string order;
  first.MouseMove = [&] {
    order += "first ";
    desktop_->Hover(form, {.Kind = UserEventKind::kHover, .Control = second.Name});
    desktop_->Hover(form, {.Kind = UserEventKind::kHover, .Control = third.Name});
    order += "first-end ";
  };
  second.MouseMove = [&] { order += "second "; };
  third.MouseMove = [&] { order += "third "; };
  desktop_->Hover(form, {.Kind = UserEventKind::kHover, .Control = first.Name});
  EXPECT_EQ(order, "first first-end third ");
}

}  // namespace
}  // namespace brindlemoor

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

TEST_F(DesktopTest, AModalFormReturnsWhenItIsHidden) {
  Form form("Form");
  bool activated = false;
  form.Activate = [&] { activated = true; };
  Later([&] {
    EXPECT_TRUE(form.Shown);
    EXPECT_TRUE(Window(form)->isVisible());
    desktop_->HideForm(form);
  });
  desktop_->ShowForm(form, true);
  EXPECT_TRUE(activated);
  EXPECT_FALSE(form.Shown);
  EXPECT_FALSE(Window(form)->isVisible());
  desktop_->CloseWindows();
}

TEST_F(DesktopTest, AFormThatHidesItselfWhenActivatedDoesNotBlock) {
  Form form("Form");
  form.Activate = [&] { desktop_->HideForm(form); };
  desktop_->ShowForm(form, true);
  EXPECT_FALSE(form.Shown);
  desktop_->CloseWindows();
}

TEST_F(DesktopTest, TheCloseButtonAsksTheForm) {
  Form form("Form");
  bool keep = true;
  int asked = 0;
  form.QueryClose = [&] {
    ++asked;
    return keep;
  };
  Later([&] {
    Window(form)->close();
    EXPECT_TRUE(form.Shown) << "the form wanted to stay";
    keep = false;
    Window(form)->close();
  });
  desktop_->ShowForm(form, true);
  EXPECT_EQ(asked, 2);
  EXPECT_FALSE(form.Shown);
  desktop_->CloseWindows();
}

TEST_F(DesktopTest, ModalFormsNest) {
  Form outer("Outer"), inner("Inner");
  std::string order;
  Later([&] {
    Later([&] {
      desktop_->HideForm(outer);  // its call returns only after the inner one's
      order += "outer hidden, ";
      Later([&] { desktop_->HideForm(inner); });
    });
    desktop_->ShowForm(inner, true);
    order += "inner done, ";
  });
  desktop_->ShowForm(outer, true);
  order += "outer done";
  EXPECT_EQ(order, "outer hidden, inner done, outer done");
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

TEST_F(DesktopTest, MessagesShowTheirTextAsItIs) {
  const std::string text = "<b>Bold</b> & \"quoted\"";
  bool seen = false;
  Later([&] {
    auto* box = OpenDialog<QMessageBox>();
    ASSERT_NE(box, nullptr);
    seen = box->text().toStdString() == text && box->textFormat() == Qt::PlainText;
    box->accept();
  });
  desktop_->MessageBox(text);
  EXPECT_TRUE(seen);
}

TEST_F(DesktopTest, QuestionsAreAnsweredByButtonsAndKeys) {
  const struct {
    Qt::Key Key;
    bool Answer;
  } kCases[] = {{Qt::Key_Return, true}, {Qt::Key_Escape, false}};
  for (const auto& [key, answer] : kCases) {
    Later([key = key] { QTest::keyClick(QApplication::activeModalWidget(), key); });
    EXPECT_EQ(desktop_->AskYesNo("Really?"), answer);
  }
  Later([] { OpenDialog<QMessageBox>()->button(QMessageBox::No)->click(); });
  EXPECT_FALSE(desktop_->AskYesNo("Really?"));
}

TEST_F(DesktopTest, InputTellsAnEmptyAnswerFromNone) {
  const struct {
    const char* Typed;
    bool Accept;
    std::optional<std::string> Answer;
  } kCases[] = {{"Ann", true, "Ann"}, {"", true, ""}, {"Ann", false, std::nullopt}};
  for (const auto& row : kCases) {
    Later([&row] {
      auto* dialog = OpenDialog<QInputDialog>();
      ASSERT_NE(dialog, nullptr);
      for (const QLabel* label : dialog->findChildren<QLabel*>()) {
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
      }
      dialog->setTextValue(row.Typed);
      row.Accept ? dialog->accept() : dialog->reject();
    });
    EXPECT_EQ(desktop_->AskText("<i>Name?</i>"), row.Answer);
  }
}

TEST_F(DesktopTest, AWildPointerDoesNotNestHandlers) {
  PictureBox first("First"), second("Second"), third("Third");
  std::string order;
  first.MouseMove = [&] {
    order += "first ";
    desktop_->Hover(second);
    desktop_->Hover(third);
    order += "first-end ";
  };
  second.MouseMove = [&] { order += "second "; };
  third.MouseMove = [&] { order += "third "; };
  desktop_->Hover(first);
  EXPECT_EQ(order, "first first-end third ");
}

TEST_F(DesktopTest, AFixedSeedGivesTheSameClockEveryTime) {
  QtPlatform other(std::make_unique<LocalFileSystem>(), folder_.path().toStdString(), 1);
  const std::uint64_t first = desktop_->ClockSeed();
  EXPECT_EQ(other.ClockSeed(), first);
  EXPECT_NE(other.ClockSeed(), first);
}

}  // namespace
}  // namespace brindlemoor

// Windows that are opened again and again: nothing grows. BRINDLEMOOR_LONG_LIFE=30 opens each 300
// times.
#include <QDir>
#include <QFile>
#include <iostream>

#include "core/desktop.h"
#include "core/state.h"
#include "editor/editor_forms.h"
#include "editor/program_session.h"
#include "game/program_start.h"
#include "tests/support/process_size.h"
#include "tests/windows/desktop_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

constexpr std::int64_t kMostGrowth = 4096;  // KiB, from the first third to the end

class WindowLifeTest : public DesktopTest {
 protected:
  WindowLifeTest() {
    for (const char* name : {"blank.htm", "MainHelp.html"}) {
      QFile file(folder_.path() + "/" + name);
      EXPECT_TRUE(file.open(QIODevice::WriteOnly));
      file.write("page");
    }
    OpenProgramSession(std::shared_ptr<Platform>(std::move(desktop_)),
                       folder_.path().toStdString());
    State().Profile.PlayerName = "Ann";
    NewGame();
  }
  ~WindowLifeTest() override {
    static_cast<QtPlatform&>(*State().Desktop).CloseWindows();
    State() = Session{};
  }
};

TEST_F(WindowLifeTest, EveryWindowOpensManyTimes) {
  const int times = LongLife(10);
  Desktop().ShowForm(TheMainWindow(), false);
  ShowHelp("MainHelp.html");
  TheCardEdit().Form_Load();
  for (Form* form : std::initializer_list<Form*>{
           &TheHelpForm(), &TheDeckManager(), &TheProfileMenu(), &TheProgressForm(), &TheCardEdit(),
           &ThePicPick(), &TheEffectPicker(), &TheCounterPicker(), &TheValGen(),
           &TheMainWindow()}) {
    ProcessSize early;
    for (int opening = 0; opening < times; ++opening) {
      Desktop().ShowForm(*form, false);
      Desktop().PumpEvents();
      Desktop().HideForm(*form);
      Desktop().PumpEvents();
      if (opening == times / 3) early = SizeOfProcess();
    }
    const ProcessSize late = SizeOfProcess();
    std::cout << times << " openings of " << form->Name << ": " << early.Memory << " to "
              << late.Memory << " KiB, open files " << early.Files << " to " << late.Files
              << std::endl;
    EXPECT_LE(late.Memory, early.Memory + kMostGrowth) << form->Name;
    // The browser engine opens a file of its own now and then.
    EXPECT_LT(late.Files, early.Files + times / 2) << form->Name;
  }
}

}  // namespace
}  // namespace brindlemoor

// Page files: their exact bytes, when the text being composed goes, and what a failed write says.
#include "core/pages.h"

#include "core/limits.h"
#include "platform/controls.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

using PagesTest = SessionTest;

TEST_F(PagesTest, APageHasFourLinesAndKeepsItsTextUntilItIsShown) {
  AppendPage("one\r\ntwo");
  AppendPage("\nthree");
  WritePage("Display.html", "#000000");
  EXPECT_EQ(ReadFile("Display.html"),
            "<HTML>\r\n"
            "<body bgcolor=\"#000000\" text=\\\"#FFFFFF\\\" link=\\\"#99FF33\\\" "
            "alink=\\\"#00CC00\\\" vlink=\\\"#FFFF00\\\">\r\n"
            "one<br>two\nthree\r\n"
            "</body></HTML>\r\n");
  EXPECT_EQ(State().PageText, "one<br>two\nthree");

  BrowserView view{"WB"};
  std::string during;
  desktop_->OnPump = [&] { during = Joined(State().OwnNavigation, State().PageText.empty()); };
  ShowInView(view, "Display.html");
  EXPECT_EQ(during, "10") << "events run while the program's own navigation is marked";
  EXPECT_EQ(State().OwnNavigation, 0);
  EXPECT_EQ(State().PageText, "");
  EXPECT_EQ(desktop_->Navigations, std::vector<std::string>{"WB file:///game/Display.html"});
  EXPECT_EQ(desktop_->Pages["WB"], ReadFile("Display.html"));
}

TEST_F(PagesTest, TheMainViewShowsThePage) {
  AppendPage("report");
  WritePage("Display.html", "");
  ShowMain("Display.html");
  EXPECT_EQ(TheMainWindow().WB.Url.Get(), "file:///game/Display.html");
  EXPECT_EQ(State().PageText, "");
}

TEST_F(PagesTest, AFailedWriteIsToldOnce) {
  files_->WriteError = "No space left on device";
  desktop_->ExpectedMessages = {"Can't write Display.html: No space left on device"};
  AppendPage("text");
  WritePage("Display.html", "");
  WritePage("Display.html", "");
  EXPECT_EQ(desktop_->Messages.size(), 1U);
  EXPECT_EQ(State().PageText, "text");
}

TEST_F(PagesTest, AnEndlessPageIsCutBetweenCharacters) {
  const std::string piece(1 << 20, 'x');
  for (int n = 0; n < 40; ++n) AppendPage(piece);
  EXPECT_EQ(State().PageText.size(), static_cast<std::size_t>(limits::kPageBytes));
  State().PageText.pop_back();
  AppendPage("\xC3\xA9");
  EXPECT_EQ(State().PageText.back(), 'x');
  EXPECT_NE(State().PhaseBanner.find("<br><font color=#FF9900>"), std::string::npos);
}

TEST_F(PagesTest, ABoundIsNamedOnceForEachText) {
  limits::ReportLimit("Enough.");
  limits::ReportLimit("Enough.");
  limits::ReportLimit("More.");
  EXPECT_EQ(State().PhaseBanner,
            "<br><font color=#FF9900>Enough.</font><br><br><font color=#FF9900>More.</font><br>");
}

}  // namespace
}  // namespace brindlemoor

// Page files: their exact bytes, when the text being composed goes, and what a failed write says.
#include "core/limits.h"
#include "pages/page_files.h"
#include "platform/controls.h"
#include "tests/support/session_test.h"

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
  EXPECT_EQ(desktop_->Pages["WB"], ReadFile("Display.html"));
}

TEST_F(PagesTest, WhatIsWrittenIsCleanAndStaysComposed) {
  State().PageText = "<base href=http://a.invalid/>one<img src=x.png onerror=y>\r\n<b>two";
  WritePage("Display.html", "");
  EXPECT_EQ(State().PageText, "one<img src=x.png><br><b>two");
  EXPECT_NE(ReadFile("Display.html").find("\r\none<img src=x.png><br><b>two\r\n"),
            std::string::npos);
}

TEST_F(PagesTest, AFailedWriteIsToldOnce) {
  files_->WriteError = "no space";
  desktop_->ExpectedMessages = {"Can't write Display.html: no space"};
  for (int n = 1; n <= 2; ++n) WritePage("Display.html", "");
  EXPECT_EQ(desktop_->Messages.size(), 1U);
}

TEST_F(PagesTest, AnEndlessPageIsCutBetweenCharacters) {
  const std::string piece(1 << 20, 'x');
  for (int n = 0; n < 40; ++n) AppendPage(piece);
  EXPECT_EQ(State().PageText.size(), static_cast<std::size_t>(limits::kPageBytes));
  State().PageText.pop_back();
  AppendPage("\xC3\xA9");
  EXPECT_EQ(State().PageText.back(), 'x');
  State().PhaseBanner.clear();
  for (const char* text : {"Enough.", "Enough.", "More."}) limits::ReportLimit(text);
  EXPECT_EQ(State().PhaseBanner,
            "<br><font color=#FF9900>Enough.</font><br><br><font color=#FF9900>More.</font><br>");
}

}  // namespace
}  // namespace brindlemoor

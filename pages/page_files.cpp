// Composing, writing and showing page files.
#include "pages/page_files.h"

#include <algorithm>

#include "core/desktop.h"
#include "core/limits.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "pages/markup.h"
#include "platform/controls.h"
#include "text/addresses.h"

namespace brindlemoor {

namespace {

// All pages of existing games have these bytes, the backslashes in front of the quotes among them;
// browsers take the attributes all the same.
constexpr std::string_view kBodyLine =
    R"(<body bgcolor="#000000" text=\"#FFFFFF\" link=\"#99FF33\" alink=\"#00CC00\" vlink=\"#FFFF00\">)";

constexpr std::string_view kHead = "<HTML>\r\n";
constexpr std::string_view kFoot = "\r\n</body></HTML>\r\n";

/// The longest beginning of a text within the bound that cuts no character in two.
std::string_view CutAtBound(std::string_view text, std::size_t bound) {
  if (text.size() <= bound) return text;
  limits::ReportLimit("The page is too long and was cut.");
  while (bound > 0 && (static_cast<unsigned char>(text[bound]) & 0xC0) == 0x80) --bound;
  return text.substr(0, bound);
}

/// Line ends as "<br>", in one pass: a page may hold more of them than ReplaceAll would treat.
std::string WithBreaks(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  while (true) {
    const std::size_t end = text.find("\r\n");
    out += text.substr(0, end);
    if (end == std::string_view::npos) return out;
    out += "<br>";
    text.remove_prefix(end + 2);
  }
}

}  // namespace

void AppendPage(std::string_view text) {
  std::string& page = State().PageText;
  const std::size_t room = page.size() < limits::kPageBytes ? limits::kPageBytes - page.size() : 0;
  page += CutAtBound(text, room);
}

std::string PagePath(std::string_view file) {
  const Session& session = State();
  if (session.CopyOfProgram <= 1 || !session.PagesWritten.contains(file)) {
    return InProgramFolder(file);
  }
  const std::size_t dot = std::min(file.rfind('.'), file.size());
  return InProgramFolder(Joined(file.substr(0, dot), "-", session.CopyOfProgram, file.substr(dot)));
}

void WritePage(std::string_view file, std::string_view /*color*/) { WritePages({&file, 1}); }

void WritePages(std::span<const std::string_view> files) {
  std::string& page = State().PageText;
  if (page.size() > limits::kPageBytes || page.find("\r\n") != std::string::npos) {
    page = WithBreaks(CutAtBound(page, limits::kPageBytes));
  }
  page = CleanMarkup(std::move(page));
  const std::string bytes = Joined(kHead, kBodyLine, "\r\n", page, kFoot);
  for (const std::string_view file : files) {
    State().PagesWritten.emplace(file);
    const std::string problem = Desktop().Files().Write(PagePath(file), bytes);
    if (problem.empty()) continue;
    // A page is written many times in a turn; one message is enough.
    const std::string message = Joined("Can't write ", file, ": ", problem);
    if (State().LimitsReported.insert(message).second) Desktop().MessageBox(message);
  }
}

void RewritePages(std::string_view page, std::span<const std::string_view> files) {
  const std::string head = Joined(kHead, kBodyLine, "\r\n");
  if (page.starts_with(head)) page.remove_prefix(head.size());
  if (page.ends_with(kFoot)) page.remove_suffix(kFoot.size());
  State().PageText = page;
  WritePages(files);
}

void ShowInView(BrowserView& view, std::string_view file, std::string_view anchor) {
  State().OwnNavigation = 1;
  Desktop().Navigate(view, FileUrl(PagePath(file), anchor));
  Desktop().PumpEvents();
  State().OwnNavigation = 0;
  State().PageText.clear();
}

}  // namespace brindlemoor

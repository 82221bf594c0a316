// Composing, writing and showing page files.
#include "pages/page_files.h"

#include <algorithm>

#include "core/desktop.h"
#include "core/limits.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "platform/controls.h"
#include "text/addresses.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

// The backslashes in front of the quotes are meant; browsers take the attributes all the same.
constexpr std::string_view kBodyLine =
    R"(<body bgcolor="#000000" text=\"#FFFFFF\" link=\"#99FF33\" alink=\"#00CC00\" vlink=\"#FFFF00\">)";

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

/// Where the next base tag of a page opens, npos when there is none.
std::size_t FindBaseTag(std::string_view page, std::size_t from) {
  constexpr std::string_view kTag = "<base";
  constexpr std::string_view kNameEnds = " \t\n\f\r/>";
  for (std::size_t at = page.find('<', from); at != std::string_view::npos;
       at = page.find('<', at + 1)) {
    const std::string_view rest = page.substr(at);
    if (rest.size() <= kTag.size() || AsciiUpper(rest[1]) != 'B') continue;
    const bool ends = kNameEnds.find(rest[kTag.size()]) != std::string_view::npos;
    if (ends && FoldEquals(rest.substr(0, kTag.size()), kTag)) return at;
  }
  return std::string_view::npos;
}

/// A base tag in the text of a card would lead the program's own links on the page elsewhere. With
/// a mark behind its name it is a tag that no browser knows; everything else stays as it is.
std::string WithoutBaseTags(std::string page) {
  std::size_t tag = FindBaseTag(page, 0);
  if (tag == std::string::npos) return page;
  std::string out;
  out.reserve(page.size());
  std::size_t passed = 0;
  for (; tag != std::string::npos; tag = FindBaseTag(page, passed)) {
    const std::size_t nameEnd = page.find_first_of("eE", tag) + 1;
    out.append(page, passed, nameEnd - passed) += '-';
    passed = nameEnd;
  }
  return out.append(page, passed);
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

void WritePage(std::string_view file, std::string_view /*color*/) {
  std::string& page = State().PageText;
  if (page.size() > limits::kPageBytes || page.find("\r\n") != std::string::npos) {
    page = WithBreaks(CutAtBound(page, limits::kPageBytes));
  }
  page = WithoutBaseTags(std::move(page));
  const std::string bytes =
      Joined("<HTML>\r\n", kBodyLine, "\r\n", page, "\r\n", "</body></HTML>\r\n");
  State().PagesWritten.emplace(file);
  const std::string problem = Desktop().Files().Write(PagePath(file), bytes);
  if (problem.empty()) return;
  // A page is written many times in a turn; one message is enough.
  const std::string message = Joined("Can't write ", file, ": ", problem);
  if (State().LimitsReported.insert(message).second) Desktop().MessageBox(message);
}

void ShowInView(BrowserView& view, std::string_view file) {
  State().OwnNavigation = 1;
  Desktop().Navigate(view, FileUrl(PagePath(file)));
  Desktop().PumpEvents();
  State().OwnNavigation = 0;
  State().PageText.clear();
}

}  // namespace brindlemoor

// Pages as browsers read them: what strangers' texts leave on a page is text and markup of the
// list.
#include <algorithm>
#include <string>

#include "core/state.h"
#include "fuzz/fuzz_session.h"
#include "fuzz/fuzz_targets.h"
#include "pages/markup.h"
#include "pages/page_files.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

/// Reads a page step by step as browsers have agreed to, which is another way than that of the
/// program. Ends the program at what is no text and not in the list.
class BrowserReading {
 public:
  explicit BrowserReading(std::string_view page) : page_(page) {}

  void Read() {
    while (!AtEnd()) {
      const char c = Take();
      MustHold(static_cast<unsigned char>(c) >= ' ' || IsBlank(c), "a page has control characters");
      MustHold(c != '\x7F' && c != '\f', "a page has control characters");
      if (c == '<') TagOpen();
    }
  }

 private:
  bool AtEnd() const { return at_ == page_.size(); }
  char Take() {
    MustHold(!AtEnd(), "a page ends in a tag");
    return page_[at_++];
  }
  void TagOpen() {
    MustHold(!AtEnd(), "a page ends with what may open a tag");
    char c = page_[at_];
    MustHold(c != '!' && c != '?', "a page has a comment");
    const bool end = c == '/';
    if (end) {
      ++at_;
      c = AtEnd() ? ' ' : page_[at_];
      MustHold(IsLetter(c), "a page has a comment in the form of an end tag");
    }
    if (IsLetter(c)) TagName(end);
  }
  void TagName(bool end) {
    std::string name;
    char c = Take();
    for (; !IsBlank(c) && c != '/' && c != '>'; c = Take()) name += c;
    const auto tags = ShownTags();
    const auto tag = std::ranges::find(tags, Lower(name), &ShownTag::Name);
    MustHold(tag != tags.end(), "a page has a tag that is not shown");
    while (c != '>') {
      while (IsBlank(c) || c == '/') c = Take();
      if (c == '>') break;
      c = AttributeName(*tag, c);
      MustHold(!end, "an end tag has attributes");
    }
  }
  /// Returns the character behind the attribute.
  char AttributeName(const ShownTag& tag, char c) {
    std::string name(1, c);
    for (c = Take(); !IsBlank(c) && c != '/' && c != '>' && c != '='; c = Take()) name += c;
    while (IsBlank(c)) c = Take();
    std::string value;
    if (c == '=') c = AttributeValueEnd(value);
    Judge(tag, Lower(name), value);
    return c;
  }
  char AttributeValueEnd(std::string& value) {
    char c = Take();
    while (IsBlank(c)) c = Take();
    if (c == '>') return c;
    if (c == '"' || c == '\'') {
      const char quote = c;
      for (c = Take(); c != quote; c = Take()) value += c;
      return Take();
    }
    for (; !IsBlank(c) && c != '>'; c = Take()) value += c;
    return c;
  }
  static void Judge(const ShownTag& tag, const std::string& name, const std::string& value) {
    const auto attributes = ShownAttributes();
    const auto row = std::ranges::find(attributes, name, &ShownAttribute::Name);
    MustHold(row != attributes.end(), "a page has an attribute that is not shown");
    MustHold(HasAttribute(tag, *row), "a tag has an attribute of another tag");
    MustHold(value.find('<') == std::string::npos, "the value of an attribute has a tag");
    if (name == "src") {
      const std::string address = Lower(value);
      const std::size_t colon = address.find(':');
      const bool scheme = colon < address.find_first_of("/?#");
      MustHold(!scheme || address == "file://" || address.starts_with("file:///"),
               "a picture comes from elsewhere");
      MustHold(address.find("&#") == std::string::npos && !address.starts_with("//") &&
                   address.find_first_of("\\\t\r\n") == std::string::npos,
               "the address of a picture has two readings");
    }
    if (name == "href") {
      const bool known = value.starts_with("CARD") || value.starts_with("MENUACTION:") ||
                         value.starts_with("GAME:") || value.starts_with("HELP:");
      MustHold(known, "a link is no command");
    }
  }

  std::string_view page_;
  std::size_t at_ = 0;
};

/// What stands on a page that has been written, without its first and last lines.
std::string ContentOf(const std::string& page) {
  constexpr std::string_view kEnd = "\r\n</body></HTML>\r\n";
  MustHold(page.ends_with(kEnd), "a page has no end");
  const std::size_t begin = page.find("\r\n", page.find("<body")) + 2;
  return page.substr(begin, page.size() - kEnd.size() - begin);
}

}  // namespace

void MustBeHarmless(const std::string& page) { BrowserReading(ContentOf(page)).Read(); }

void FuzzPage(std::string_view bytes) {
  FuzzSession session;
  State().PageText = bytes;
  WritePage("Display.html", "");
  const std::string page = session.ReadFile("Display.html");
  MustBeHarmless(page);
  const std::string content = ContentOf(page);
  MustHold(CleanMarkup(content) == content, "cleaning twice is not the same as once");
}

}  // namespace brindlemoor

// Reading and cleaning the markup of pages.
#include "pages/markup.h"

#include <algorithm>
#include <array>

#include "text/fold.h"

namespace brindlemoor {

namespace {

// Classes of characters.
constexpr std::uint8_t kLetter = 1;
constexpr std::uint8_t kOfName = 2;       // letters and digits
constexpr std::uint8_t kOfAttribute = 4;  // the name of an attribute
constexpr std::uint8_t kOfBare = 8;       // a value without quotes
constexpr std::uint8_t kBlank = 16;
constexpr std::uint8_t kInDouble = 64;   // a value in double quotes
constexpr std::uint8_t kInSingle = 128;  // and in single ones
constexpr std::uint8_t kAfterText = 32;  // a "<" before it is text to every browser

constexpr auto kClasses = [] {
  std::array<std::uint8_t, 256> classes{};
  for (unsigned code = 0; code < classes.size(); ++code) {
    const char byte = static_cast<char>(code);
    const bool letter = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    const bool digit = byte >= '0' && byte <= '9';
    const bool blank = byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r';
    const bool printable = code > ' ' && code < 0x7F;
    const auto noneOf = [byte](std::string_view these) {
      return these.find(byte) == std::string_view::npos;
    };
    std::uint8_t& bits = classes[code];
    if (letter) bits |= kLetter;
    if (letter || digit) bits |= kOfName;
    if (printable && noneOf("\"'<>/=")) bits |= kOfAttribute;
    if ((printable || code >= 0x80) && noneOf("\"'<>=`")) bits |= kOfBare;
    // A value with a "<" has most likely lost its closing quote.
    if (noneOf("\"<")) bits |= kInDouble;
    if (noneOf("'<")) bits |= kInSingle;
    if (blank) bits |= kBlank;
    if (blank || (printable && !letter && noneOf("</!?"))) bits |= kAfterText;
  }
  return classes;
}();

bool Is(char character, std::uint8_t classes) {
  return (kClasses[static_cast<unsigned char>(character)] & classes) != 0;
}

/// The first place from there on whose character is not of the class; the end if all are.
std::size_t EndOf(std::string_view text, std::size_t from, std::uint8_t characters) {
  while (from < text.size() && Is(text[from], characters)) ++from;
  return from;
}

struct Attribute {
  std::string_view Source;
  std::string_view Name;
  std::string_view Value;
};

/// Goes through the attributes of a tag, as far as they are written so that there is one reading.
class AttributeWalker {
 public:
  /// at is behind the tag's name.
  AttributeWalker(std::string_view text, std::size_t at) : text_(text), at_(at) {}

  /// The next attribute; false at the end of the tag and at what can't be read.
  bool Next(Attribute& attribute) {
    const std::size_t blanks = at_;
    at_ = EndOf(text_, at_, kBlank);
    if (at_ == blanks || AtEnd()) return false;
    const std::size_t begin = at_;
    at_ = EndOf(text_, at_, kOfAttribute);
    if (at_ == begin) return false;
    attribute.Name = text_.substr(begin, at_ - begin);
    attribute.Value = {};
    const std::size_t equals = EndOf(text_, at_, kBlank);
    if (equals < text_.size() && text_[equals] == '=') {
      at_ = EndOf(text_, equals + 1, kBlank);
      if (!Value(attribute.Value)) return false;
    }
    attribute.Source = text_.substr(begin, at_ - begin);
    return true;
  }
  /// Behind the ">"; 0 when the tag can't be read to its end.
  std::size_t End() const { return AtEnd() ? text_.find('>', at_) + 1 : 0; }

 private:
  bool AtEnd() const {
    const std::string_view rest = text_.substr(std::min(at_, text_.size()));
    return rest.starts_with('>') || rest.starts_with("/>");
  }
  bool Value(std::string_view& value) {
    if (at_ == text_.size()) return false;
    const char quote = text_[at_];
    if (quote == '"' || quote == '\'') return QuotedValue(quote, value);
    const std::size_t begin = at_;
    at_ = EndOf(text_, at_, kOfBare);
    value = text_.substr(begin, at_ - begin);
    // "color=>" has an empty value; "color= size=3" has the value "size=3" to a browser.
    return !value.empty() || AtEnd();
  }
  bool QuotedValue(char quote, std::string_view& value) {
    const std::size_t end = EndOf(text_, at_ + 1, quote == '"' ? kInDouble : kInSingle);
    if (end == text_.size() || text_[end] != quote) return false;
    value = text_.substr(at_ + 1, end - at_ - 1);
    at_ = end + 1;
    return true;
  }

  std::string_view text_;
  std::size_t at_;
};

/// What is no tag that can be read goes up to its first ">", unless another "<" comes before.
Markup Broken(std::string_view text) {
  const std::size_t end = text.find_first_of("<>", 1);
  if (end == std::string_view::npos || text[end] == '<') return {.Source = text.substr(0, 1)};
  return {.Fate = MarkupFate::kHidden, .Source = text.substr(0, end + 1)};
}

/// Reads the attributes of a tag whose name ends there.
Markup ReadTag(std::string_view text, std::size_t nameBegin, std::size_t nameEnd) {
  Markup markup{.Name = text.substr(nameBegin, nameEnd - nameBegin), .IsEnd = nameBegin == 2};
  markup.Tag = FindShownTag(markup.Name);
  bool hasShown = false;
  AttributeWalker walker(text, nameEnd);
  for (Attribute attribute; walker.Next(attribute);) {
    const ShownAttribute* row =
        markup.Tag == nullptr || markup.IsEnd ? nullptr : FindShownAttribute(attribute.Name);
    const bool shown = row != nullptr && Shows(*markup.Tag, *row, attribute.Value);
    hasShown = hasShown || (shown && row->Value != AttributeValue::kAny);
    if (!shown && markup.Attribute.empty()) markup.Attribute = attribute.Name;
  }
  const std::size_t end = walker.End();
  const bool bare = markup.Tag != nullptr && markup.Tag->NeedsThem && !markup.IsEnd && !hasShown;
  if (end == 0) {
    markup = Broken(text);
  } else {
    markup.Source = text.substr(0, end);
    markup.Fate = markup.Tag == nullptr || bare ? MarkupFate::kHidden
                  : markup.Attribute.empty()    ? MarkupFate::kShown
                                                : MarkupFate::kTrimmed;
  }
  return markup;
}

void AppendTrimmed(std::string& out, const Markup& markup) {
  out += markup.IsEnd ? "</" : "<";
  out += markup.Name;
  const std::size_t nameEnd = markup.Name.size() + (markup.IsEnd ? 2 : 1);
  AttributeWalker walker(markup.Source, nameEnd);
  for (Attribute attribute; !markup.IsEnd && walker.Next(attribute);) {
    const ShownAttribute* row = FindShownAttribute(attribute.Name);
    if (row == nullptr || !Shows(*markup.Tag, *row, attribute.Value)) continue;
    (out += ' ') += attribute.Source;
  }
  out += '>';
}

struct Bracket {
  std::string_view Opening;
  std::string_view Closing;
};
constexpr std::array<Bracket, 2> kBrackets = {{{"<!--", "-->"}, {"<![CDATA[", "]]>"}}};

/// Where the end tag of a name begins, npos when there is none.
std::size_t FindEndTag(std::string_view page, std::string_view name, std::size_t from) {
  for (std::size_t at = page.find("</", from); at != std::string_view::npos;
       at = page.find("</", at + 2)) {
    const std::string_view rest = page.substr(at + 2);
    if (rest.size() <= name.size() || Is(rest[name.size()], kOfName)) continue;
    if (FoldEquals(rest.substr(0, name.size()), name)) return at;
  }
  return std::string_view::npos;
}

/// Cleans one page. What is clean is copied in as large pieces as there are, and not at all when
/// that is the whole page.
class Cleaner {
 public:
  explicit Cleaner(std::string_view page) : page_(page) {}

  /// False when the page is clean already.
  bool Clean() {
    for (std::size_t at = page_.find('<'); at != std::string_view::npos; at = page_.find('<', at)) {
      if (const std::size_t end = EndOfKnownTag(at)) {
        at = end;
        continue;
      }
      const std::size_t bracketEnd = EndOfBracket(at);
      if (bracketEnd > 0) {
        Skip(at, bracketEnd);
        at = bracketEnd;
        continue;
      }
      const Markup markup = ReadMarkup(page_.substr(at));
      std::size_t end = at + markup.Source.size();
      if (markup.Fate == MarkupFate::kShown) {
        if (markup.Tag != nullptr) known_[PlaceOf(markup.Source)] = markup.Source;
      } else {
        if (markup.Fate == MarkupFate::kHidden) end = EndOfContent(markup, end);
        Skip(at, end);
        if (markup.Fate == MarkupFate::kEscaped) out_ += "&lt;";
        if (markup.Fate == MarkupFate::kTrimmed) AppendTrimmed(out_, markup);
      }
      at = end;
    }
    return copied_ > 0;
  }
  std::string Take() { return std::move(out_ += page_.substr(copied_)); }

 private:
  /// Where a tag is kept that has been read.
  static std::size_t PlaceOf(std::string_view tag) {
    const auto code = [tag](std::size_t at) -> std::size_t {
      return static_cast<unsigned char>(tag[at]);
    };
    const std::size_t sum = tag.size() + code(tag.size() / 2) * 5 + code(tag.size() - 2) * 11;
    return sum % kKnownTags;
  }
  /// Behind a tag that stood on the page before and is clean: most tags of a page stand there many
  /// times. 0 for others.
  std::size_t EndOfKnownTag(std::size_t at) {
    if (nextClose_ < at) nextClose_ = std::min(page_.find('>', at), page_.size());
    if (nextClose_ - at < 2 || nextClose_ - at > kKnownLength) return 0;
    const std::string_view tag = page_.substr(at, nextClose_ + 1 - at);
    return known_[PlaceOf(tag)] == tag ? nextClose_ + 1 : 0;
  }
  /// Copies what is clean up to a place, and leaves out what stands there.
  void Skip(std::size_t from, std::size_t to) {
    if (out_.empty()) out_.reserve(page_.size());
    out_ += page_.substr(copied_, from - copied_);
    copied_ = to;
  }
  /// Behind the comment or the like that begins there; 0 where none does.
  std::size_t EndOfBracket(std::size_t at) {
    const std::string_view rest = page_.substr(at);
    for (std::size_t row = 0; row < kBrackets.size(); ++row) {
      const auto& [opening, closing] = kBrackets[row];
      if (rest.size() < 2 || rest[1] != '!' || unclosed_[row] || !rest.starts_with(opening))
        continue;
      const std::size_t end = rest.find(closing, 2);  // "<!-->" is a whole comment
      if (end != std::string_view::npos) return at + end + closing.size();
      unclosed_[row] = true;
    }
    return 0;
  }
  /// Behind the content that goes with a hidden tag, or just behind the tag.
  std::size_t EndOfContent(const Markup& markup, std::size_t end) {
    for (std::size_t tag = 0; tag < kSilentTags.size() && !markup.IsEnd; ++tag) {
      bool& unclosed = unclosed_[kBrackets.size() + tag];
      if (unclosed || !FoldEquals(markup.Name, kSilentTags[tag])) continue;
      const std::size_t endTag = FindEndTag(page_, markup.Name, end);
      if (endTag != std::string_view::npos) return endTag;
      unclosed = true;
    }
    return end;
  }

  std::string_view page_;
  std::string out_;
  std::size_t copied_ = 0;
  static constexpr std::size_t kKnownTags = 64;
  static constexpr std::size_t kKnownLength = 64;
  std::array<std::string_view, kKnownTags> known_{};
  std::size_t nextClose_ = 0;  // the first ">" from where the page is read
  /// What is not closed from here on is searched to the end of the page only once.
  std::array<bool, kBrackets.size() + kSilentTags.size()> unclosed_{};
};

/// Browsers pass over some control characters, and some encodings give them another meaning.
bool IsUnreadable(char character) {
  const auto code = static_cast<unsigned char>(character);
  return ((code < ' ') & (code != '\t') & (code != '\n') & (code != '\r')) | (code == 0x7F);
}

/// Looks at every character in one byte of results, which compilers make many times faster than a
/// search for what is hardly ever there.
bool HasUnreadable(std::string_view page) {
  unsigned char found = 0;
  for (const char character : page) {
    found = static_cast<unsigned char>(found | (IsUnreadable(character) ? 1 : 0));
  }
  return found != 0;
}

}  // namespace

Markup ReadMarkup(std::string_view text) {
  const char next = text.size() > 1 ? text[1] : '\0';
  if (Is(next, kLetter)) return ReadTag(text, 1, EndOf(text, 1, kOfName));
  if (Is(next, kAfterText)) return {.Fate = MarkupFate::kShown, .Source = text.substr(0, 1)};
  if (next == '/' && text.size() > 2 && Is(text[2], kLetter)) {
    return ReadTag(text, 2, EndOf(text, 2, kOfName));
  }
  if (next == '/' || next == '!' || next == '?') return Broken(text);
  return {.Source = text.substr(0, 1)};
}

std::string CleanMarkup(std::string page) {
  if (HasUnreadable(page)) std::erase_if(page, IsUnreadable);
  Cleaner cleaner(page);
  if (cleaner.Clean()) return cleaner.Take();
  return page;
}

std::string WithValues(std::string_view page, AttributeValue kind,
                       const std::function<std::string(std::string_view value)>& other) {
  std::string out;
  std::size_t copied = 0;
  for (std::size_t at = page.find('<'); at != std::string_view::npos; at = page.find('<', at)) {
    const Markup markup = ReadMarkup(page.substr(at));
    AttributeWalker walker(markup.Source, markup.Name.size() + 1);
    for (Attribute attribute; !markup.IsEnd && !markup.Name.empty() && walker.Next(attribute);) {
      const ShownAttribute* row = FindShownAttribute(attribute.Name);
      if (row == nullptr || row->Value != kind || attribute.Value.empty()) continue;
      const auto begin = static_cast<std::size_t>(attribute.Source.data() - page.data());
      out += page.substr(copied, begin - copied);
      ((out += attribute.Name) += "=\"") += other(attribute.Value);
      out += '"';
      copied = begin + attribute.Source.size();
    }
    at += markup.Source.size();
  }
  return out += page.substr(copied);
}

}  // namespace brindlemoor

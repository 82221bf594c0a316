// Messages under check: placeholders and "#...#" fields that stay in the text as they are.
#include "lint/message_check.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/state.h"
#include "lint/value_check.h"
#include "lint/word_distance.h"
#include "pages/markup.h"
#include "pages/messages.h"

namespace brindlemoor {
namespace {

bool IsUpper(char character) { return character >= 'A' && character <= 'Z'; }
bool IsLetter(char character) {
  return IsUpper(character) || (character >= 'a' && character <= 'z');
}

std::vector<std::string_view> Marks(bool fields) {
  std::vector<std::string_view> marks;
  for (const MessageMark& row : MessageMarks()) {
    if (row.OpensField == fields) marks.push_back(row.Mark);
  }
  return marks;
}

/// True when the text's byte lies in the key of a custom string.
bool InCustomString(std::string_view text, std::size_t at) {
  for (const CustomStringRec& entry : State().CustomStrings) {
    const std::string_view key = entry.Key;
    for (std::size_t in = key.find(text[at]); in != std::string_view::npos;
         in = key.find(text[at], in + 1)) {
      if (in <= at && text.substr(at - in).starts_with(key)) return true;
    }
  }
  return false;
}

/// Custom strings are filled in before anything else and can bring in anything.
bool HoldsCustomString(std::string_view text) {
  for (const CustomStringRec& entry : State().CustomStrings) {
    if (!entry.Key.empty() && text.find(entry.Key) != std::string_view::npos) return true;
  }
  return false;
}

/// The letters behind a "$" or "#", with it.
std::string_view MarkedWord(std::string_view text) {
  std::size_t end = 1;
  while (end < text.size() && IsLetter(text[end])) ++end;
  return text.substr(0, end);
}

/// Text that stays as it is, such as "$5", is only told of when it looks like a placeholder.
void CheckPlaceholder(FindingList& findings, std::string_view text, std::size_t at) {
  static const std::vector<std::string_view> placeholders = Marks(false);
  const std::string_view rest = text.substr(at);
  for (const std::string_view mark : placeholders) {
    if (rest.starts_with(mark)) return;
  }
  const std::string_view word = MarkedWord(rest);
  if (word.size() < 3) return;
  std::string nearest = NearestWord(word, placeholders);
  const bool loud = std::ranges::all_of(word.substr(1), IsUpper);
  if ((!loud && nearest.empty()) || InCustomString(text, at)) return;
  findings.Add(FindingKind::kUnknownPlaceholder, word,
               Joined(Quoted(word), " is no placeholder; it stays in the text as it is."),
               std::move(nearest));
}

std::vector<std::string_view> CustomStringKeys() {
  std::vector<std::string_view> keys;
  for (const CustomStringRec& entry : State().CustomStrings) keys.emplace_back(entry.Key);
  return keys;
}

/// Games name their custom strings in any way; one between two "%" is meant as such.
void CheckCustomString(FindingList& findings, std::string_view text, std::size_t at) {
  const std::size_t closes = text.find('%', at + 1);
  if (closes == std::string_view::npos) return;
  const std::string_view word = text.substr(at, closes + 1 - at);
  const auto isInName = [](char character) { return IsUpper(character) || character == '_'; };
  const std::string_view name = word.substr(1, word.size() - 2);
  if (name.size() < 2 || !std::ranges::all_of(name, isInName) || InCustomString(text, at)) return;
  findings.Add(FindingKind::kUnknownPlaceholder, word,
               Joined("No #CUSTOMSTRING gives ", Quoted(word), "; it stays in the text as it is."),
               NearestWord(word, CustomStringKeys()));
}

bool IsColor(std::string_view word) {
  return word.find_first_not_of("ABCDEFabcdef", 1) == std::string_view::npos;
}

/// A field from its "#" up to the closing one, or the end of the text.
void CheckUnknownField(FindingList& findings, std::string_view text, std::string_view field,
                       bool closed) {
  static const std::vector<std::string_view> keywords = Marks(true);
  static const std::vector<std::string_view> placeholders = Marks(false);
  const std::string_view word = MarkedWord(field);
  const std::size_t at = static_cast<std::size_t>(field.data() - text.data());
  const bool takesArgument = field.substr(word.size()).starts_with('/');
  if (word.size() < 3 || IsColor(word) || InCustomString(text, at)) return;
  if (!closed) {
    if (!takesArgument || FindFieldMark(word) == nullptr) return;
    findings.Add(FindingKind::kUnknownPlaceholder, word,
                 Joined(Quoted(word), " has no closing \"#\"; it stays in the text as it is."));
    return;
  }
  const bool whole = word.size() == field.size() && std::ranges::all_of(word.substr(1), IsUpper);
  const std::string marked = Joined(word, '#');
  if (!takesArgument && !whole) return;
  if (std::ranges::find(placeholders, marked) != placeholders.end()) return;
  findings.Add(FindingKind::kUnknownPlaceholder, word,
               Joined(Quoted(word), " is no placeholder; it stays in the text as it is."),
               whole ? NearestWord(marked, placeholders) : NearestWord(word, keywords));
}

/// A field whose keyword is known.
void CheckField(FindingList& findings, const MessageMark& mark, std::string_view field) {
  const std::string_view argument = field.substr(std::min(field.size(), mark.Mark.size() + 1));
  if (argument.empty()) {
    findings.Add(FindingKind::kMissingArgument, field.substr(field.size()),
                 Joined(mark.Mark, " needs \"/\" and something behind it."));
  } else if (mark.TakesValue && !HoldsCustomString(argument)) {
    CheckValuePart(findings, argument);
  }
}

/// Files hold "&quot" for a quote, which a browser shows as one in text but not in a tag.
void ReportQuote(FindingList& findings, std::string_view quote) {
  findings.Add(FindingKind::kQuoteInText, quote,
               "Files hold \"&quot\" for a quote, which breaks this tag; leave the quotes out.");
}

/// Checks what opens with a "#"; the position behind what belongs to it.
std::size_t CheckHash(FindingList& findings, std::string_view text, std::size_t opens) {
  const std::size_t closes = text.find('#', opens + 1);
  const std::string_view field = text.substr(opens, closes - opens);
  const bool closed = closes != std::string_view::npos;
  const MessageMark* mark = closed ? FindFieldMark(field) : nullptr;
  if (mark == nullptr) {
    CheckUnknownField(findings, text, field, closed);
    return opens + 1;
  }
  CheckField(findings, *mark, field);
  return closes + 1;
}

bool OpensTag(std::string_view text) {
  return text.size() > 1 && text[0] == '<' && (IsLetter(text[1]) || text[1] == '/');
}

/// Placeholders and fields are filled in before a page is composed.
bool HoldsMark(std::string_view text) {
  return text.find('$') != text.npos || std::ranges::count(text, '#') > 1 ||
         HoldsCustomString(text);
}

/// A tag that is known and yet not shown as it is, or not at all.
void CheckShownTag(FindingList& findings, const Markup& markup) {
  if (HoldsMark(markup.Source)) return;
  if (markup.Fate == MarkupFate::kTrimmed) {
    findings.Add(
        FindingKind::kHiddenMarkup, markup.Attribute,
        Joined("Pages show ", Quoted(markup.Name), " without ", Quoted(markup.Attribute), "."));
  } else {
    findings.Add(FindingKind::kHiddenMarkup, markup.Source.substr(0, 1),
                 markup.Name.size() == 1
                     ? "Pages show no links but CARD, MENUACTION, GAME and HELP."
                     : "Pages show pictures of the game's folders only.");
  }
}

void CheckTag(FindingList& findings, std::string_view text) {
  const Markup markup = ReadMarkup(text);
  if (markup.Fate == MarkupFate::kShown || markup.IsEnd) return;
  const std::string_view at = text.substr(0, 1);
  if (markup.Tag != nullptr) {
    CheckShownTag(findings, markup);
  } else if (!markup.Name.empty() && !HoldsMark(markup.Name)) {
    findings.Add(FindingKind::kHiddenMarkup, at,
                 Joined("No page shows the tag ", Quoted(markup.Name), "."));
  } else if (markup.Name.empty() && !HoldsMark(text.substr(0, text.find('>')))) {
    findings.Add(FindingKind::kHiddenMarkup, at, "No browser could read this tag for sure.");
  }
}

}  // namespace

void CheckMarkupPart(FindingList& findings, std::string_view text) {
  for (std::size_t at = text.find('<'); at != std::string_view::npos && !findings.Full();
       at = text.find('<', at + 1)) {
    const std::string_view rest = text.substr(at);
    if (OpensTag(rest) || rest.starts_with("<!") || rest.starts_with("<?"))
      CheckTag(findings, rest);
  }
}

void CheckMessagePart(FindingList& findings, std::string_view text) {
  bool inTag = false;
  bool quoted = false;
  std::size_t at = text.find_first_of("$#<%");
  while (at < text.size() && !findings.Full()) {
    const char character = text[at];
    if (character == '#') {
      at = CheckHash(findings, text, at);
    } else {
      if (character == '$') CheckPlaceholder(findings, text, at);
      if (character == '%') CheckCustomString(findings, text, at);
      if (character == '<') inTag = OpensTag(text.substr(at));
      if (character == '>') inTag = false;
      if (character == '"' && inTag && !std::exchange(quoted, true)) {
        ReportQuote(findings, text.substr(at, 1));
      }
      ++at;
    }
    at = text.find_first_of("$#<>\"%", at);
  }
  CheckMarkupPart(findings, text);
}

std::vector<ScriptFinding> CheckMessage(std::string_view text) {
  FindingList findings(text);
  CheckMessagePart(findings, text);
  return findings.Take();
}

std::vector<ScriptFinding> CheckMarkup(std::string_view text) {
  FindingList findings(text);
  CheckMarkupPart(findings, text);
  return findings.Take();
}

}  // namespace brindlemoor

// The search box over a collection.
#include "ui/card_search.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "core/cards.h"
#include "core/strings.h"
#include "language/traits.h"
#include "text/fold.h"

namespace brindlemoor {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kTraitEnds = " \t\r\n<>=";
constexpr std::string_view kQuote = "\"";

/// The sign of a condition and when it holds; the longer signs stand first.
struct SignRow {
  std::string_view Sign;
  bool (*Holds)(double value, double wanted);
};
constexpr std::array<SignRow, 5> kSigns = {{
    {">=", [](double value, double wanted) { return value >= wanted; }},
    {"<=", [](double value, double wanted) { return value <= wanted; }},
    {">", [](double value, double wanted) { return value > wanted; }},
    {"<", [](double value, double wanted) { return value < wanted; }},
    {"=", [](double value, double wanted) { return value == wanted; }},
}};
bool AlwaysHolds(double /*value*/, double /*wanted*/) { return true; }

/// Takes the text up to the next of some characters, or to the end, off the front of rest.
std::string_view TakeUntil(std::string_view& rest, std::string_view ends) {
  const std::string_view taken = rest.substr(0, rest.find_first_of(ends));
  rest.remove_prefix(taken.size());
  return taken;
}

/// Takes a phrase with its quotes; the closing one may be missing.
std::string_view TakePhrase(std::string_view& rest) {
  rest.remove_prefix(1);
  const std::string_view phrase = TakeUntil(rest, kQuote);
  if (!rest.empty()) rest.remove_prefix(1);
  return phrase;
}

/// True when the whole text is a number.
bool IsNumberText(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const auto result =
      std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
  return !text.empty() && result.ec == std::errc() && result.ptr == text.data() + text.size() &&
         text.find_first_of("0123456789") != std::string_view::npos;
}

/// True when what follows a "<" makes it the beginning of a tag.
bool BeginsTag(std::string_view behind) {
  if (behind.empty()) return false;
  const char next = AsciiUpper(behind.front());
  return (next >= 'A' && next <= 'Z') || next == '/' || next == '!';
}

std::string WithoutTags(std::string_view html) {
  std::string plain;
  plain.reserve(html.size());
  while (true) {
    const std::size_t open = html.find('<');
    plain += html.substr(0, open);
    if (open == std::string_view::npos) break;
    html.remove_prefix(open);
    const std::size_t close = BeginsTag(html.substr(1)) ? html.find('>') : 0;
    if (close == std::string_view::npos) break;  // cut off inside its last tag
    if (close == 0) plain += '<';
    html.remove_prefix(close + 1);
  }
  return plain;
}

/// The texts of a card that words are looked for in. The description is cleaned when it is first
/// needed, and only if it has tags.
class SearchedTexts {
 public:
  explicit SearchedTexts(const Card& card) : card_(card) {}

  bool Contain(std::string_view word) {
    if (FoldContains(card_.Name, word)) return true;
    for (const Text& item : card_.Traits) {
      if (FoldContains(FieldAt(item, 1, ':'), word)) return true;
    }
    return FoldContains(Description(), word);
  }

 private:
  std::string_view Description() {
    const std::string_view html = card_.Description;
    if (html.find('<') == std::string_view::npos) return html;
    if (plain_.empty()) plain_ = WithoutTags(html);
    return plain_;
  }

  const Card& card_;
  std::string plain_;
};

}  // namespace

CardSearch::CardSearch(std::string_view text) {
  while (true) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    if (text.empty()) return;
    if (text.starts_with(kQuote)) {
      const std::string_view phrase = TakePhrase(text);
      if (!phrase.empty()) words_.push_back(FoldUpper(phrase));
      continue;
    }
    if (!TakeCondition(text)) words_.push_back(FoldUpper(TakeUntil(text, kBlanks)));
  }
}

bool CardSearch::TakeCondition(std::string_view& text) {
  const std::string_view trait = text.substr(0, text.find_first_of(kTraitEnds));
  std::string_view behind = text.substr(trait.size());
  const auto* row = std::ranges::find_if(
      kSigns, [behind](const SignRow& sign) { return behind.starts_with(sign.Sign); });
  if (trait.empty() || row == kSigns.end()) return false;
  behind.remove_prefix(row->Sign.size());
  const std::string_view wanted =
      behind.starts_with(kQuote) ? TakePhrase(behind) : TakeUntil(behind, kBlanks);
  text = behind;

  Condition condition{std::string(trait), row->Holds, NumericPrefix(wanted), std::string(wanted)};
  if (wanted.empty()) {
    condition.Holds = AlwaysHolds;
  } else if (row->Sign == "=" && !IsNumberText(wanted)) {
    condition.Holds = nullptr;
  }
  conditions_.push_back(std::move(condition));
  return true;
}

bool CardSearch::Fulfils(const Card& card, const Condition& condition) {
  if (!HasTrait(card, condition.Trait)) return false;
  if (condition.Holds == nullptr) {
    return FoldEquals(GetTrait(card, condition.Trait).Print(), condition.Wanted);
  }
  return condition.Holds(TraitNumber(card, condition.Trait), condition.Number);
}

bool CardSearch::Matches(const Card& card) const {
  if (IsFree(card)) return false;
  for (const Condition& condition : conditions_) {
    if (!Fulfils(card, condition)) return false;
  }
  SearchedTexts texts(card);
  return std::ranges::all_of(words_,
                             [&texts](const std::string& word) { return texts.Contain(word); });
}

}  // namespace brindlemoor

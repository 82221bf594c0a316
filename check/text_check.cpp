// What the texts of cards say against what their scripts and traits do.
#include "check/text_check.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "core/strings.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kLongestNumber = 9;

/// The words before a number that a script may write with one more or less.
constexpr std::array<std::string_view, 10> kLimitWords = {
    "TO", "THAN", "LEAST", "MOST", "BELOW", "ABOVE", "UNDER", "OVER", "BEYOND", "UNTIL"};

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

bool IsLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

/// Walks over a text and leaves out what players do not read as a rule.
class TextWalker {
 public:
  explicit TextWalker(std::string_view text) : text_(text) {}

  bool AtEnd() const { return at_ >= text_.size(); }
  char Letter() const { return text_[at_]; }
  /// A word or a number from here on.
  template <class Test>
  std::string_view Take(Test test) {
    const std::size_t begin = at_;
    while (at_ < text_.size() && test(text_[at_])) ++at_;
    return text_.substr(begin, at_ - begin);
  }
  void Skip() {
    if (text_[at_] == '<') {
      SkipTag();
    } else if (text_[at_] == '&') {
      at_ = std::min(text_.find(';', at_), text_.size() - 1) + 1;
    } else if (text_[at_] == '#' || text_[at_] == '%') {
      SkipFilledIn();
    } else {
      ++at_;
    }
  }

 private:
  void SkipTag() {
    const bool isMood = FoldEquals(text_.substr(at_, 3), "<i>");
    const std::size_t end = isMood ? FindEndOfMood() : text_.find('>', at_);
    at_ = std::min(end, text_.size() - 1) + 1;
  }
  std::size_t FindEndOfMood() const {
    for (const std::string_view tag : {"</i>", "</I>"}) {
      const std::size_t end = text_.find(tag, at_);
      if (end != text_.npos) return end + tag.size() - 1;
    }
    return text_.npos;
  }
  /// "#MYTRAIT/HP#" and "%NAME%" stand for what is only known later.
  void SkipFilledIn() {
    const std::size_t end = text_.find(text_[at_], at_ + 1);
    at_ = end == text_.npos ? at_ + 1 : end + 1;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

/// By name, the words of all cards called so.
using WordsByName = std::unordered_map<std::string_view, std::vector<const CardClaims*>>;

bool Knows(const CardClaims& card, const std::string& word) { return card.Words.contains(word); }

bool KnowsNumber(const CardClaims& card, const TextClaim& claim) {
  if (claim.Number.size() > kLongestNumber || Knows(card, claim.Number)) return true;
  const int value = static_cast<int>(NumericPrefix(claim.Number));
  return claim.IsLimit && (Knows(card, Joined(value + 1)) || Knows(card, Joined(value - 1)));
}

/// False for a trait that the card's lines name with other numbers only.
bool KnowsTrait(const CardClaims& card, const TextClaim& claim) {
  if (!Knows(card, claim.Word)) return false;
  return !Knows(card, Joined(claim.Word, ":")) ||
         Knows(card, Joined(claim.Word, ":", claim.Number));
}

/// Asks a card and those that it makes.
template <class Test>
bool AnyKnows(const CardClaims& card, const WordsByName& cards, Test knows) {
  if (knows(card)) return true;
  return std::ranges::any_of(card.Makes, [&](const std::string& name) {
    const auto made = cards.find(name);
    return made == cards.end() ||
           std::ranges::any_of(made->second, [&](const CardClaims* one) { return knows(*one); });
  });
}

}  // namespace

std::vector<NumberInText> NumbersInText(std::string_view text) {
  std::vector<NumberInText> numbers;
  std::string_view word;
  bool isLimit = false;
  for (TextWalker walker(text); !walker.AtEnd();) {
    if (IsLetter(walker.Letter())) {
      word = walker.Take(IsLetter);
      isLimit = std::ranges::find(kLimitWords, FoldUpper(word)) != kLimitWords.end();
    } else if (IsDigit(walker.Letter())) {
      numbers.push_back({word, walker.Take(IsDigit), isLimit});
      word = {};
      isLimit = false;
      walker.Take(IsLetter);  // "2nd"
    } else {
      if (walker.Letter() != ' ') word = {};
      walker.Skip();
    }
  }
  return numbers;
}

void CheckCardTexts(const SetFacts& facts, std::vector<Finding>& findings) {
  WordsByName cards;
  for (const CardClaims& card : facts.Cards) cards[card.Name].push_back(&card);
  for (const CardClaims& card : facts.Cards) {
    if (Knows(card, "PLAYER")) continue;  // what the rules do stands with who plays
    for (const TextClaim& claim : card.Claims) {
      const bool known =
          AnyKnows(card, cards, [&](const CardClaims& one) { return KnowsNumber(one, claim); });
      const bool isTrait = facts.GivenTraits.contains(claim.Word);
      const bool named = !isTrait || AnyKnows(card, cards, [&](const CardClaims& one) {
        return KnowsTrait(one, claim);
      });
      if (known && named) continue;
      findings.push_back({claim.File, claim.Place, FindingCode::kCardText,
                          named ? Joined("The text of ", card.Name, " says ", claim.Number,
                                         ", which stands in none of its scripts and traits.")
                                : Joined("The text of ", card.Name, " names ", claim.Word, " ",
                                         claim.Number, "; its scripts and traits do not."),
                          ""});
    }
  }
}

}  // namespace brindlemoor

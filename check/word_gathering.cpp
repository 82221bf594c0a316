// The words of a file's lines, for checks across files.
#include <algorithm>
#include <array>
#include <functional>

#include "check/field_checks.h"
#include "check/text_check.h"
#include "lint/script_arguments.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

bool IsWordLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         (character >= '0' && character <= '9') || character == '_' ||
         static_cast<unsigned char>(character) >= 0x80;
}

/// Visits what words and numbers are made of: "MODTRAIT:HP:R2Die6" has the numbers 2 and 6, too.
void VisitWords(std::string_view text, const std::function<void(std::string_view)>& visit) {
  for (std::size_t at = 0; at < text.size();) {
    if (!IsWordLetter(text[at])) {
      ++at;
      continue;
    }
    const std::size_t begin = at;
    while (at < text.size() && IsWordLetter(text[at])) ++at;
    visit(text.substr(begin, at - begin));
  }
}

void VisitNumbers(std::string_view word, const std::function<void(std::string_view)>& visit) {
  constexpr std::string_view kDigits = "0123456789";
  for (std::size_t at = word.find_first_of(kDigits); at != word.npos;) {
    const std::size_t end = std::min(word.find_first_not_of(kDigits, at), word.size());
    visit(word.substr(at, end - at));
    at = word.find_first_of(kDigits, end);
  }
}

/// The text of a script with blanks where it gives traits.
std::string WithoutGivenTraits(std::string_view script) {
  std::string text(script);
  VisitArguments(script, [&](const ScriptArgument& argument) {
    if (argument.Name != "TRAIT" || argument.Role != CommandRole::kActs) return;
    text.replace(static_cast<std::size_t>(argument.Text.data() - script.data()),
                 argument.Text.size(), argument.Text.size(), ' ');
  });
  return text;
}

/// A line with so many fields is a card.
constexpr std::size_t kCardFields = 6;

/// The lines that say what the card before has and does.
constexpr std::array<std::string_view, 4> kCardLines = {"#TRAIT", "#EFFECT", "#EXTRADATA",
                                                        "#TRAITACTIONDESC"};

}  // namespace

void FileCheck::GatherLine(const CheckedDirective& directive) {
  const bool isCardLine = std::ranges::find(kCardLines, directive.Word) != kCardLines.end();
  for (std::size_t number = 0; number < directive.Fields.size(); ++number) {
    const std::string& text = directive.Fields[number].Text;
    // Only what is filled into a text is asked for.
    if (directive.Row != nullptr && !isCardLine && directive.Fields.size() >= kCardFields &&
        text.find_first_of("#%") == text.npos) {
      continue;
    }
    const bool isTrait = directive.Word == "#TRAIT";
    std::string read = text;
    if (isTrait) read = text.substr(std::min(text.find(':'), text.size()));
    if (directive.Word == "#EFFECT" && number == 2) read = WithoutGivenTraits(text);
    VisitWords(read, [&](std::string_view word) { facts_.Words.insert(FoldUpper(word)); });
    const bool isRarity = directive.Word == "#EXTRADATA" && number == 0;
    if (!isCardLine || isRarity || claims_ == nullptr) continue;
    VisitWords(text, [&](std::string_view word) {
      claims_->Words.insert(FoldUpper(word));
      const std::size_t behind = static_cast<std::size_t>(word.data() - text.data()) + word.size();
      GatherPair(std::string_view(text).substr(behind), FoldUpper(word));
      VisitNumbers(word, [&](std::string_view digits) { claims_->Words.emplace(digits); });
    });
  }
}

/// "COAT:5" as a pair, and "COAT:" for a trait that is given or compared with some number.
void FileCheck::GatherPair(std::string_view behind, const std::string& word) {
  constexpr std::string_view kDigits = "0123456789";
  if (!behind.starts_with(':')) return;
  const std::size_t digits = behind.substr(1).starts_with('-') ? 2 : 1;
  const std::size_t end = std::min(behind.find_first_not_of(kDigits, digits), behind.size());
  if (end == digits) return;
  claims_->Words.insert(Joined(word, ":"));
  claims_->Words.insert(Joined(word, ":", behind.substr(digits, end - digits)));
}

void FileCheck::BeginClaims(std::string_view name, const CheckedField& description) {
  claims_ = &facts_.Cards.emplace_back();
  claims_->Name = name;
  for (const NumberInText& number : NumbersInText(description.Text)) {
    const std::size_t offset =
        description.Offset +
        static_cast<std::size_t>(number.Number.data() - description.Text.data());
    claims_->Claims.push_back({FoldUpper(number.Word), std::string(number.Number), number.IsLimit,
                               file_.Path(), file_.PlaceOf(offset)});
  }
}

}  // namespace brindlemoor

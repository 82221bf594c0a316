// Choosing the table that the place asks for, and its words that fit.
#include "editor/script_suggestions.h"

#include <algorithm>

#include "editor/script_parts.h"
#include "language/target_types.h"
#include "language/value_keywords.h"
#include "language/values.h"
#include "reference/script_sentence.h"
#include "script/command_table.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

constexpr std::size_t kMostItems = 200;

/// Takes words that begin as the typed text does.
class Choice {
 public:
  explicit Choice(std::string_view typed) : typed_(typed) {}

  void Offer(std::string word, std::string_view note) {
    if (FoldStartsWith(word, typed_)) items_.push_back({std::move(word), std::string(note)});
  }
  void OfferNames(std::span<const std::string> names, std::string_view note) {
    AllowOthers();
    for (const std::string& name : names) {
      if (items_.size() == kMostItems) return;
      // What divides scripts and values can't stand in them.
      if (!name.empty() && name.find_first_of(":/\"") == std::string::npos &&
          FoldStartsWith(name, typed_))
        items_.push_back({name, std::string(note)});
    }
  }
  /// Other texts may stand there as well: names that no card has yet, any text that is stored.
  void AllowOthers() { isOpen_ = true; }
  bool IsOpen() const { return isOpen_; }
  std::vector<TextSuggestion> Take() {
    std::ranges::sort(items_, {}, &TextSuggestion::Text);
    items_.erase(std::unique(items_.begin(), items_.end()), items_.end());
    if (items_.size() > kMostItems) items_.resize(kMostItems);
    return std::move(items_);
  }

 private:
  std::string_view typed_;
  std::vector<TextSuggestion> items_;
  bool isOpen_ = false;
};

void OfferCommands(Choice& choice, std::string_view typed) {
  // "AI" before a word is offered to those who began with it.
  const std::string_view mark = typed.starts_with("AI") ? "AI" : "";
  for (const auto& family : CommandFamilies()) {
    for (const Command& row : family) {
      const bool goesOn = row.Arguments > 0 || row.TakesRest;
      choice.Offer(Joined(mark, row.Word, goesOn ? ":" : ""), MeaningOf(row.Usage));
    }
  }
}

/// Only the targets of an action can name a card.
void OfferTargets(Choice& choice, bool ofAction) {
  for (const TargetTypeRow& row : kTargetTypeRows) {
    const bool names = row.Code == kTargetGidCard;
    if (names && !ofAction) continue;
    choice.Offer(Joined(row.Word, names ? ":" : ""), row.Meaning);
  }
}

/// At the trigger of a menu action no name can stand.
void OfferTriggers(Choice& choice, bool ofMenu) {
  for (const TriggerRow& row : kTriggerRows) {
    if (row.Runs && !(ofMenu && row.Word.ends_with(':')))
      choice.Offer(std::string(row.Word), row.FiredBy);
  }
}

void OfferValueWords(Choice& choice) {
  for (const ValueKeyword& row : ValueKeywords()) {
    if (std::ranges::find(OwnerWords(), row.Word) != OwnerWords().end()) continue;
    // The number of an operator, or of dice, is typed behind its word.
    std::string word(row.Word.substr(0, row.Word.find('#')));
    if (row.Usage.starts_with('/')) word += '/';
    choice.Offer(word, MeaningOf(row.Usage));
  }
}

void OfferOwnerWords(Choice& choice) {
  for (const std::string_view word : OwnerWords()) {
    choice.Offer(std::string(word), "whose cards count");
  }
}

void OfferFor(Choice& choice, const ScriptPart& part, std::string_view typed,
              const KnownNames& names) {
  constexpr std::string_view kTraitNote = "a trait of these cards";
  if (part.Name.empty()) return OfferCommands(choice, typed);
  if (part.Name == "NAME") return choice.OfferNames(names.Cards, "a card");
  if (part.Name == "FILE") return choice.OfferNames(names.Files, "a card file");
  if (part.Name == kNeededName || part.Name == kOwnerName) OfferOwnerWords(choice);
  if (part.Name == kNeededName) choice.OfferNames(names.Traits, kTraitNote);
  switch (KindOfArgument(part.Name)) {
    case ArgumentKind::kTrait:
      return choice.OfferNames(names.Traits, kTraitNote);
    case ArgumentKind::kValue:
      return OfferValueWords(choice);
    case ArgumentKind::kContent:
    case ArgumentKind::kSetting:
      choice.AllowOthers();
      return OfferValueWords(choice);
    case ArgumentKind::kTarget:
      return OfferTargets(choice, part.Row == nullptr || part.Row->Arguments == 0);
    case ArgumentKind::kTrigger:
      return OfferTriggers(choice, part.Continues);
    default:
      return;
  }
}

TextSuggestions SuggestAmong(const std::vector<ScriptPart>& parts, std::string_view script,
                             std::size_t caret, const KnownNames& names) {
  caret = std::min(caret, script.size());
  const auto found =
      std::ranges::find_if(parts, [caret](const ScriptPart& part) { return part.Reaches(caret); });
  if (found == parts.end()) return {};
  const std::string_view typed = found->Text.substr(0, caret - found->Offset);
  Choice choice(typed);
  OfferFor(choice, *found, typed, names);
  // The number behind a word of a value stays.
  const std::size_t replaced =
      found->Style == TextStyle::kValue || found->Style == TextStyle::kUnknown
          ? std::min(found->Text.find_first_of("0123456789", typed.size()), found->Text.size())
          : found->Text.size();
  TextSuggestions all{found->Offset, replaced, choice.Take(), choice.IsOpen()};
  const std::size_t end = found->Offset + replaced;
  for (TextSuggestion& item : all.Items) {
    // A mark that follows already is not written twice.
    if (end < script.size() && item.Text.ends_with(script[end])) item.Text.pop_back();
  }
  return all;
}

}  // namespace

TextSuggestions SuggestForScript(std::string_view script, std::size_t caret,
                                 const KnownNames& names) {
  std::vector<ScriptPart> parts = PartsOfScript(script);
  // Where nothing stands yet a command can begin.
  if (parts.empty()) parts.push_back({0, script, TextStyle::kUnknown, nullptr, ""});
  return SuggestAmong(parts, script, caret, names);
}

TextSuggestions SuggestForArgument(std::string_view name, std::string_view text, std::size_t caret,
                                   const KnownNames& names) {
  return SuggestAmong(PartsOfArgument(name, text), text, caret, names);
}

}  // namespace brindlemoor

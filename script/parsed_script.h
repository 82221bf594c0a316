// ParsedScript: a script split once, with the command of each field looked up.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "core/records.h"
#include "core/trait_item.h"
#include "core/value.h"
#include "text/text.h"

namespace brindlemoor {

struct Command;

/// The fields of a script and what each is as a command. Made on first use and kept with the text
/// that it came from; views point into that text.
class ParsedScript final : public TextAttachment {
 public:
  struct FieldRow {
    std::string_view Text;
    const Command* Row = nullptr;        ///< nullptr for a word that is no command
    std::uint32_t Key = kEmptyTraitKey;  ///< of the text as a trait's name (core/trait_item.h)
    bool AiMarked = false;               ///< the word without its "AI" prefix is looked up
    bool IsNumber = false;               ///< as a value, the text is this number
    double Number = 0;
    std::string_view ValueTrait;  ///< as a value, the text is this trait; "" for other values
    std::uint32_t ValueTraitKey = kEmptyTraitKey;
    bool ValueOfTarget = false;  ///< and the target's, not the acting card's
  };

  explicit ParsedScript(std::string_view script);

  /// Field n (1-based), "" beyond the end.
  std::string_view Field(int n) const noexcept { return RowAt(n).Text; }
  const FieldRow& RowAt(int n) const noexcept {
    return n >= 1 && n <= count_ ? fields_[static_cast<std::size_t>(n) - 1] : kMissing;
  }
  /// Field n as the name of a trait.
  TraitName NameAt(int n) const noexcept { return {RowAt(n).Text, RowAt(n).Key}; }
  /// The row of field n, when its value is a number or a trait and nothing else; nullptr for other
  /// values.
  const FieldRow* SimpleValueAt(int n) const noexcept {
    const FieldRow& row = RowAt(n);
    return row.IsNumber || !row.ValueTrait.empty() ? &row : nullptr;
  }
  int FieldCount() const noexcept { return count_; }
  /// Field n and everything behind it, as a script of its own. The first few that are asked for are
  /// kept, so that their parsed form serves every run.
  Text Tail(int n) const;
  /// The script with the trait declared before it that brings it to a card. The first few that are
  /// asked for are kept.
  Text BroughtBy(std::string_view trait) const;
  /// Bytes of Tail(n), without making it.
  std::size_t TailSize(int n) const noexcept;
  /// The value of "TRAIT:name:value" in the script, "NONE" if there is none (exact case). What
  /// stands behind ADDEFFECT is not looked at.
  std::string_view DeclaredTrait(std::string_view name) const noexcept;
  /// True when the first declared trait whose name is this one in upper case has another value than
  /// "NONE".
  bool DeclaresFolded(std::string_view name) const noexcept;
  /// True when a field of the script, before the first empty one, is exactly this text.
  bool HasField(std::string_view text) const noexcept;
  /// The value of the declared trait "TRAITEFFECT": the trait that brought the action, or "NONE".
  std::string_view Bringer() const noexcept { return bringer_; }
  /// True when the script lends its run the trait "NOCOUNTERS".
  bool DeclaresNoCounters() const noexcept { return declaresNoCounters_; }
  /// True when one of the commands may show the run's card pictures.
  bool WantsPictures() const noexcept { return wantsPictures_; }
  /// True when none of them makes anything else of the pictures.
  bool OnlyShowsPictures() const noexcept { return onlyShowsPictures_; }

  /// The parsed form of a script. Valid as long as the text is.
  static const ParsedScript& Of(const Text& script) {
    const TextAttachment* form = script.Attachment();
    return form != nullptr ? *static_cast<const ParsedScript*>(form) : Parse(script);
  }

 private:
  static const ParsedScript& Parse(const Text& script);
  static const FieldRow kMissing;

  std::string_view script_;
  std::vector<FieldRow> fields_;
  int count_ = 0;  ///< of the fields: asking the vector divides by the size of a row
  bool wantsPictures_ = false;
  bool onlyShowsPictures_ = true;
  bool declaresNoCounters_ = false;
  std::string_view bringer_ = "NONE";
  std::vector<std::pair<std::string_view, std::string_view>> declared_;  ///< name and value
  mutable std::vector<std::pair<int, Text>> tails_;
  mutable std::vector<std::pair<Text, Text>> brought_;  ///< trait and script
};

/// The value of a row that is a number or a trait and nothing else, as EvalNumber has it.
double SimpleNumber(const ParsedScript::FieldRow& row, const Card& source, const Card& target);

/// True when the card has the trait or the script declares it, in upper case, as the action's own.
bool HasTrait(const Card& card, const TraitName& name, const Text& script);

}  // namespace brindlemoor

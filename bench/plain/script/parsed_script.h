// ParsedScript for the plain engine: the script as it is, split again for every field.
#pragma once

#include <string>
#include <string_view>

#include "core/records.h"
#include "core/trait_item.h"
#include "core/value.h"
#include "text/text.h"

namespace brindlemoor {

struct Command;

/// The engine's ParsedScript without anything kept. Valid as long as the text is.
class ParsedScript {
 public:
  struct FieldRow {
    std::string Text;
    const Command* Row = nullptr;
    bool AiMarked = false;
  };

  explicit ParsedScript(std::string_view script) : script_(script) {}

  std::string Field(int n) const;
  FieldRow RowAt(int n) const;
  static const FieldRow* SimpleValueAt(int) { return nullptr; }
  Text Tail(int n) const;
  Text BroughtBy(std::string_view trait) const {
    return Joined("TRAIT:TRAITEFFECT:", trait, ":", script_);
  }
  std::size_t TailSize(int n) const;
  std::string NameAt(int n) const { return Field(n); }
  std::string_view DeclaredTrait(std::string_view name) const;
  bool DeclaresFolded(std::string_view name) const;
  bool HasField(std::string_view text) const;
  std::string_view Bringer() const { return DeclaredTrait("TRAITEFFECT"); }
  bool DeclaresNoCounters() const { return DeclaredTrait("NOCOUNTERS") != "NONE"; }

  static ParsedScript Of(const Text& script) { return ParsedScript(script.View()); }

 private:
  std::string_view script_;
};

/// Never asked: no value is known before.
double SimpleNumber(const ParsedScript::FieldRow& row, const Card& source, const Card& target);
/// As the engine's.
bool HasTrait(const Card& card, const TraitName& name, const Text& script);

}  // namespace brindlemoor

// The lists of a card as the editor's form shows and changes them.
#pragma once

#include <string>

#include "core/table.h"

namespace brindlemoor {

/// A row without a name or script is free.
struct TraitRow {
  std::string Name;
  std::string Value;
  bool operator==(const TraitRow&) const = default;
};
struct EffectRow {
  std::string Trigger;
  std::string Target;
  std::string Script;
  bool operator==(const EffectRow&) const = default;
};
struct CaptionRow {
  std::string Trait;
  std::string Caption;
  bool operator==(const CaptionRow&) const = default;
};

constexpr int kCardRows = 50;  ///< of each table
using TraitTable = FixedTable<TraitRow, kCardRows>;
using EffectTable = FixedTable<EffectRow, kCardRows>;
using CaptionTable = FixedTable<CaptionRow, kCardRows>;

}  // namespace brindlemoor

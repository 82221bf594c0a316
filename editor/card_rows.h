// CardRows: the lists of a card as the editor shows and changes them.
#pragma once

#include <cstdint>
#include <string>

#include "core/records.h"
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

constexpr int kCardRows = 50;    ///< of each table
constexpr int kVisibleRows = 3;  ///< of each table
constexpr int kLastTopRow = kCardRows - kVisibleRows + 1;
using TraitTable = FixedTable<TraitRow, kCardRows>;
using EffectTable = FixedTable<EffectRow, kCardRows>;
using CaptionTable = FixedTable<CaptionRow, kCardRows>;

/// The table row in the first visible row of each table.
struct RowTops {
  std::uint8_t Trait = 1;
  std::uint8_t Effect = 1;
  std::uint8_t Caption = 1;
};

/// The traits, actions and captions of a card in three tables, of which a few rows each are seen.
struct CardRows {
  TraitTable Traits;  ///< row n is item n of the card when they were made
  EffectTable Effects;
  CaptionTable Captions;
  RowTops Tops;

  /// The rows of a card, seen from the first.
  static CardRows Of(const Card& card);

  /// Visible rows, counted from 0.
  TraitRow& Trait(int row) { return Traits[Tops.Trait + row]; }
  EffectRow& Effect(int row) { return Effects[Tops.Effect + row]; }
  CaptionRow& Caption(int row) { return Captions[Tops.Caption + row]; }

  bool SameContent(const CardRows& other) const;

  /// The card with the rows as its lists. What the rows can't show of it is kept: items behind the
  /// last row, and the actions of traits that are still there.
  Card AppliedTo(const Card& card) const;

 private:
  void BuildTraits(Card& result) const;
  void BuildEffects(Card& result) const;
};

/// Says how much of a card stands behind the last rows; "" for nothing.
std::string BehindTheRows(const Card& card);

}  // namespace brindlemoor

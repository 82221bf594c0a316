// Cards that benchmarks are made of.
#pragma once

#include <string>
#include <string_view>

#include "core/cards.h"
#include "core/state.h"
#include "game/program_start.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "script/card_entry.h"
#include "script/card_setup.h"
#include "script/trait_changes.h"
#include "text/text.h"

namespace brindlemoor {

inline Card MakeCard(std::string_view name, int owner) {
  Card card;
  InitCard(card, owner, 0);
  card.Name = name;
  card.Thumb = "thumb.bmp";
  return card;
}

inline void Act(Card& card, std::string_view trigger, int target, std::string_view script) {
  AddEffect(card, script, target, trigger, 0, TargetTypeName(target));
}

/// A card with so many traits, HP the middle one of them, and as many actions.
inline Card SizedCard(int size) {
  Card card = MakeCard("Sized", 1);
  for (int item = 1; item <= size; ++item) {
    SetTrait(card, item == size / 2 + 1 ? std::string("HP") : Joined("TRAIT", item), 5, 1);
    Act(card, "PHASE3", kTargetRandomEnemy, Joined("REQTRAIT:PREY:MODTRAIT:HP:-", item));
  }
  return card;
}

/// Leaves a table without cards, with the tables of a new game around it.
inline void StartEmptyTable() {
  State().Profile.PlayerName = "Bench";
  NewGame();
  State().CardTable.Resize(0);
}

/// Cards of both sides in turn, one of ten PREY for actions that ask for it, the others HUNTER.
inline void FillTable(int cards) {
  for (int slot = 1; slot <= cards; ++slot) {
    Card card = MakeCard("Table Card", slot % 2 + 1);
    SetTrait(card, "HP", 9, 1);
    SetTrait(card, slot % 10 == 0 ? "PREY" : "HUNTER", 1, 1);
    Act(card, "PHASE3", kTargetRandomEnemy, "REQTRAIT:PREY:MODTRAIT:HP:-1");
    AddToTable(card);
  }
  for (int side = 1; side <= 2; ++side) {
    Card card = MakeCard("Player", side);
    SetTrait(card, "PLAYER", 1, 1);
    SetTrait(card, "MANA", 5, 1);
    AddToTable(card);
  }
}

/// A definition as game authors write them: six traits, three actions, a description.
inline Card AuthoredCard(int number, std::string_view file) {
  constexpr std::size_t kDescriptionLength = 200;
  Card card = MakeCard(Joined("Creature of the ", number, "th Hollow"), 1);
  card.UniqueID = Joined("Creature", number);
  card.SourceFile = file;
  card.Picture = Joined("Card-Creature", number, ".jpg");
  card.Thumb = Joined("Card-Creature", number, "-mini.jpg");
  std::string description = Joined("Creature number ", number, " says: ");
  while (description.size() < kDescriptionLength) description += "deep in the hollow, it waits; ";
  card.Description = description.substr(0, kDescriptionLength);
  const std::string traits[] = {Joined("HP:", number % 20),
                                Joined("ATTACK:", number % 7),
                                "CREATURE",
                                Joined("TRIBE", number % 12),
                                "COST:3",
                                "FLYING"};
  for (const std::string& trait : traits) SetTrait(card, trait, "", 1);
  card.TraitCaptions.Edit(1) = "Its health";
  Act(card, "PHASE3", kTargetRandomEnemy,
      Joined("REQENEMY:REQTRAIT:CREATURE:MODTRAIT:HP:-", number % 7, ":ECHO:$MYNAME hits."));
  Act(card, "COST", kTargetSelf,
      Joined("REQOWNERTRAITRANGE:MANA:3:99:MODOWNERTRAIT:MANA:-", number % 9));
  Act(card, "MENU:PHASE1:Rest", kTargetSelf,
      Joined("ECHO:The ", number, "th hollow, it falls silent."));
  card.Rarity = static_cast<std::uint8_t>(number % 100);
  return card;
}

}  // namespace brindlemoor

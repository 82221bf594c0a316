// What files keep of cards, as text, for comparing cards before a save with those read back.
#pragma once

#include <string>

#include "core/cards.h"
#include "core/state.h"
#include "data/card_reader.h"

namespace brindlemoor {

/// Every field that is written to files, free items left out.
inline std::string Described(const Card& card) {
  std::string text =
      Joined("[", card.Name, "][", card.UniqueID, "][", card.SourceFile, "][", card.Picture, "][",
             card.Thumb, "][", card.NameColor, "][", card.Description, "][", int{card.Rarity}, "][",
             card.ActivateOn, "][", card.EntryScripts, "]");
  for (int item = 1; item <= card.Traits.UpperBound(); ++item) {
    if (card.Traits[item].empty()) continue;
    text += Joined("\ntrait [", card.Traits[item], "][", card.TraitCaptions[item], "]");
  }
  for (const CardEffect& effect : card.Effects) {
    if (effect.Script.empty()) continue;
    text += Joined("\naction [", effect.TargetType, "][", effect.TargetText, "][", effect.Trigger,
                   "][", int{effect.MenuState}, "][", effect.MenuCaption, "][", effect.Script, "]");
  }
  return text + "\n";
}

inline std::string Described(const Pile& pile) {
  std::string text;
  for (const Card& card : pile) {
    if (!IsFree(card)) text += Described(card);
  }
  return text;
}

/// Reads a file for a side without the shuffle at its end.
inline void ReadInOrder(std::string_view file, PlayerState& player) {
  State().ReadDepth = 1;
  ReadCards(file, player, 0, "", 0);
  State().ReadDepth = 0;
  State().FilesRead = 0;
}

}  // namespace brindlemoor

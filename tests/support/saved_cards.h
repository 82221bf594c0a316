// Cards as files hold them: for comparing what was saved with what is written and read back.
#pragma once

#include <string>

#include "core/cards.h"
#include "core/state.h"
#include "data/card_reader.h"

namespace brindlemoor {

inline const std::string kStars(41, '*');

/// A card without pictures to the byte, with the lines of its traits and actions.
inline std::string CardLines(std::string_view location, std::string_view name,
                             std::string_view lines = "") {
  return Joined(kStars, " ", name, "\r\n#CARD, ", location, ", \"", name,
                "\", \"\", , , , #FFFFFF, \"\"\r\n", lines, "#EXTRADATA, 0, , , , \r\n\r\n\r\n");
}

/// Every field that is written to files, free items left out.
inline std::string Described(const Card& card) {
  std::string text;
  for (const Text& field : {card.Name, card.UniqueID, card.SourceFile, card.Picture, card.Thumb,
                            card.NameColor, card.Description, card.ActivateOn, card.EntryScripts}) {
    text += Joined("[", field, "]");
  }
  for (int item = 1; item <= card.Traits.UpperBound(); ++item) {
    if (card.Traits[item].empty()) continue;
    text += Joined("\ntrait [", card.Traits[item], "][", card.TraitCaptions[item], "]");
  }
  for (const CardEffect& effect : card.Effects) {
    if (effect.Script.empty()) continue;
    text += Joined("\naction [", effect.TargetType, "][", effect.TargetText, "][", effect.Trigger,
                   "][", int{effect.MenuState}, "][", effect.MenuCaption, "][", effect.Script, "]");
  }
  return text + Joined("\nrarity ", int{card.Rarity}, "\n");
}

inline std::string Described(const Pile& pile) {
  std::string text;
  for (const Card& card : pile) text += IsFree(card) ? "" : Described(card);
  return text;
}

/// Reads a file for a side without the shuffle at its end.
inline void ReadInOrder(std::string_view file, PlayerState& player, std::string_view location = "",
                        int keep = 0) {
  State().ReadDepth = 1;
  ReadCards(file, player, 0, location, keep);
  State().ReadDepth = 0;
  State().FilesRead = 0;
}

}  // namespace brindlemoor

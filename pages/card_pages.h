// A card as HTML: its name, picture link and panel, and the player header.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// A resource of the player card that has a place of its own in the header.
struct HeaderResource {
  std::string_view Trait;
  std::string_view Image;
  std::string_view Color;
};
inline constexpr std::array<HeaderResource, 3> kHeaderResources = {
    {{"MONSTERS", "monstercost.jpg", "#00FF00"},
     {"MANA", "magiccost.jpg", "#00AFFF"},
     {"HEARTS", "heartcost.jpg", "#FF0000"}}};

/// The name in its colour. An empty NameColor becomes "#FFFFFF" in the card.
std::string ColoredName(Card& card);
/// The image link: the thumbnail for large 0 or without full sized images, else the picture. side 0
/// aligns nothing, 1 puts the human's cards left, 2 right.
std::string CardPictureHtml(const Card& card, int large, int side);
/// The card as a panel of the report.
std::string CardPanelHtml(Card& card, int side);
/// The header line with a player's resources.
std::string PlayerHeader(const PlayerState& player);

}  // namespace brindlemoor

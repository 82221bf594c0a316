// A card as HTML: its name, picture link and panel, and the player header.
#include "pages/card_pages.h"

#include "core/cards.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/traits.h"
#include "pages/battlefield.h"
#include "pages/messages.h"
#include "pages/page_files.h"
#include "text/addresses.h"
#include "text/one_line.h"

namespace brindlemoor {

namespace {

/// Side 0 aligns nothing; otherwise that side's cards stand on the left.
std::string_view Alignment(const Card& card, int side) {
  if (side != 1 && side != 2) return "";
  return card.Owner == side ? " align = left " : " align = right ";
}

/// Size and border of a large picture, up to its source.
constexpr std::string_view kLargeImage = "hspace=5 width = 150 height = 225 border = \"0\" src=\"";
constexpr std::string_view kThumbnail = " border = \"0\" src=\"";

std::string ImageLink(const Card& card, std::string_view alignment, std::string_view attributes,
                      std::string_view source) {
  State().Links.Composed.insert(card.GlobalID);
  return Joined("<a href=\"CARD", card.GlobalID, "\"><img ", alignment, attributes, source,
                "\"></img></a>");
}

std::string ResourceHtml(std::string_view trait) {
  for (const HeaderResource& resource : kHeaderResources) {
    if (FieldAt(trait, 1, ':') != resource.Trait) continue;
    return Joined("<img src=\"", ResolvePath(resource.Image, 1), "\"></img><font color=\"",
                  resource.Color, "\" size=\"+4\">", FieldAt(trait, 2, ':'), "</font>  ");
  }
  return "";
}

}  // namespace

std::string ColoredName(Card& card) {
  if (card.NameColor.empty()) card.NameColor = "#FFFFFF";
  return Joined("<font color=\"", OneLine(card.NameColor), "\">", OneLine(card.Name), "</font>");
}

std::string CardPictureHtml(const Card& card, int large, int side) {
  if (large == 0 || State().FullSizeImages == 0) {
    if (card.Thumb.empty()) return "";
    return ImageLink(card, Alignment(card, side), kThumbnail, ResolvePath(card.Thumb, 1));
  }
  if (card.Picture.empty()) return "";
  return ImageLink(card, Alignment(card, side), kLargeImage, ResolvePath(card.Picture, 1));
}

std::string CardPanelHtml(Card& card, int side) {
  if (IsFree(card)) return "Non-existant card referenced.<br>";  // spelled so on every page
  const std::string_view alignment = side == 1 ? Alignment(card, 1) : " align = left ";
  const std::string address = PageAddress(ResolvePath(card.Picture, 0));
  std::string html =
      Joined("<table width=100%><tr><td bgcolor=#0>",
             ImageLink(card, alignment, kLargeImage, Joined("file://", address)), "<p>",
             ColoredName(card), "</p><p>", "</p><p>", TraitBadges(card, 0), "</p>");
  std::string description = card.Description.Str();
  ExpandMessage(card, card, description, "", "");
  html += Joined("<p>", description, "</p></td></tr></table><br>");
  return card.Picture.empty() ? std::string() : html;  // no picture, no panel
}

std::string PlayerHeader(const PlayerState& player) {
  Pile& table = State().CardTable;
  if (!table.Holds(player.PlayerCard)) return "";
  Card& card = table[player.PlayerCard];
  std::string html = Joined("<center><table border=\"1\"><th>", ColoredName(card),
                            "</th><tr><td><center>HP: <font color=\"#00FF00\">",
                            GetTrait(card, "HP").Print(), "</font><br>");
  for (const Text& trait : card.Traits) html += ResourceHtml(trait);
  html += "</tr></td></table></center>";  // closed in this order, as the pages always had it
  return html;
}

}  // namespace brindlemoor

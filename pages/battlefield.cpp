// The battlefield table of one side, hit points and trait badges.
#include "pages/battlefield.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "core/cards.h"
#include "core/limits.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/traits.h"
#include "pages/card_pages.h"
#include "pages/messages.h"
#include "text/addresses.h"
#include "text/one_line.h"

namespace brindlemoor {

namespace {

constexpr int kCardsPerRow = 6;

/// A side's colour with every channel divided, without a "#".
std::string Shade(std::string_view color, int divisor) {
  int low = 0;
  int middle = 0;
  int high = 0;
  SplitColor(ColorValue(color), low, middle, high);
  const auto channel = [divisor](int value) {
    return static_cast<unsigned>(std::nearbyint(static_cast<double>(value) / divisor));
  };
  std::array<char, 16> digits{};
  std::snprintf(digits.data(), digits.size(), "%02X%02X%02X", channel(high), channel(middle),
                channel(low));
  return digits.data();
}

std::string TitleRow(const PlayerState& player) {
  const Pile& table = State().CardTable;
  Text title = table.Holds(player.PlayerCard) ? table[player.PlayerCard].Name : Text();
  if (player.PlayerNo == 1) title = State().Profile.PlayerName;
  return Joined("<center><table align=center><tr><td colspan=80 bgcolor = ", Shade(player.Color, 4),
                "><font color = ", OneLine(player.Color), "><center>", OneLine(title),
                "</font></td></tr>");
}

std::string CardCell(Card& card, std::string_view shade) {
  State().Links.Composed.insert(card.GlobalID);  // without a thumbnail the view links its name
  std::string cell =
      Joined("<td width = 80 bgcolor = ", shade, " valign=top><center>",
             CardPictureHtml(card, 0, 0), "<br>", ColoredName(card), "<br>", TraitBadges(card, 1));
  if (TraitNumber(card, "HP") > 0) cell += Joined(HPText(card, 1), "<br>");
  cell += "<td>";  // an opening tag, as the pages always had it
  return cell;
}

struct HPShade {
  double Below;
  std::string_view Color;
};
constexpr std::array<HPShade, 3> kHPShades = {
    {{0.75, "#FFFF00"}, {0.5, "#FF9900"}, {0.25, "#FF0000"}}};

std::string_view HPColor(double ratio) {
  std::string_view color = ratio > 1 ? "#FFFFFF" : "#00FF00";
  for (const HPShade& shade : kHPShades) {
    if (ratio < shade.Below) color = shade.Color;
  }
  return color;
}

}  // namespace

std::string PlayerTable(const PlayerState& player) {
  // Without a player card the rows follow with no table around them.
  std::string html = player.PlayerCard != 0 ? TitleRow(player) : std::string();
  const std::string shade = Shade(player.Color, 8);
  Pile& table = State().CardTable;
  int column = 0;
  // What no page would hold need not be composed.
  for (int slot = 1; slot <= table.UpperBound() && html.size() <= limits::kPageBytes; ++slot) {
    Card& card = table[slot];
    if (IsFree(card) || card.Owner != player.PlayerNo || HasTrait(card, "INVISIBLE")) continue;
    if (column % kCardsPerRow == 0) html += "<tr>";
    html += CardCell(card, shade);
    if (++column % kCardsPerRow == 0) html += "</tr>";
  }
  html += "</table></center>";
  return html;
}

std::string HPText(const Card& card, int withLabel) {
  const double present = TraitNumber(card, "HP");
  const double hp = present > 0 ? present : 0;
  double maximum = TraitNumber(card, "HPMAX");
  if (maximum == 0) maximum = hp;
  const double ratio = maximum != 0 ? hp / maximum : 0;
  return Joined(withLabel == 1 ? "<font color=\"#FFFFFF\">HP:</font>" : "", "<font color=\"",
                HPColor(ratio), "\"> ", hp, "</font><font color=#FFFFFF>/</font>",
                "<font color=#DDDDDD>", maximum, "</font>");
}

std::string TraitBadges(Card& card, int mode) {
  if (State().TraitGraphics.UpperBound() == 0) return "";
  std::string badges;
  for (int item = 1; item <= card.Traits.UpperBound(); ++item) {
    const Text trait = card.Traits[item];
    if (!trait.empty()) badges += TraitBadge(card, FieldAt(trait, 1, ':'), mode);
  }
  return badges;
}

std::string TraitBadge(Card& card, std::string_view traitName, int mode) {
  for (const TraitGraphic& graphic : State().TraitGraphics) {
    const bool allowed = (mode == 1 ? graphic.ShowLarge : graphic.ShowSmall) != 0;
    if (!allowed || !(graphic.TraitName == traitName)) continue;
    std::string label = graphic.Label.Str();
    ExpandMessage(card, card, label, "", "");
    if (graphic.Picture.empty()) {
      return Joined("<font size=+1 color=", OneLine(graphic.FontColor), ">", label, "</font>");
    }
    return Joined("<font size=+3 color=", OneLine(graphic.FontColor), "><img src=\"",
                  PageAddress(ResolvePath(graphic.Picture, 0)), "\"></img>", label, "</font>");
  }
  return "";
}

}  // namespace brindlemoor

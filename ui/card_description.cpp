// Describing a card.
#include "ui/card_description.h"

#include "core/cards.h"
#include "core/paths.h"
#include "core/replacing.h"
#include "core/state.h"
#include "core/strings.h"
#include "pages/battlefield.h"
#include "pages/card_pages.h"
#include "pages/page_files.h"
#include "text/one_line.h"
#include "ui/forms.h"

namespace brindlemoor {

namespace {

std::string MenuLinks(const Card& card) {
  std::string links;
  if (card.Owner == 2) return links;  // the enemy's menu is not the player's to use
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    if (card.Effects[effect].MenuState == kOrdinaryAction) continue;
    links += Joined("<a href=\"MENUACTION:", card.GlobalID, ":", effect, "\">",
                    OneLine(card.Effects[effect].MenuCaption), "</a><br>");
  }
  return links;
}

std::string DebugText(const Card& card) {
  std::string html = Joined("<br><br>Card #", card.Slot, "<br>Global ID: ", card.GlobalID, ", ");
  for (const Text& trait : card.Traits) {
    if (trait.empty()) continue;
    const std::string_view value = FieldAt(trait, 2, ':');
    html += FieldAt(trait, 1, ':');
    html += value.empty() ? std::string(", ") : Joined(" (", value, "), ");
  }
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    const CardEffect& action = card.Effects[effect];
    html += Joined("Action #", effect, "<br>Trigger: ", action.Trigger, "<br>Action:<br>",
                   action.Script, "<br><br>");
  }
  return html;
}

}  // namespace

void PaintPicture(const Card& card) {
  PaintImage(card.Picture.empty() ? std::string() : ResolvePath(card.Picture, 0));
}

bool HasMenu(const Card& card) { return card.InPlay == 1 && !MenuLinks(card).empty(); }

void ShowCardDescription(Card& card, int withBadges) {
  PaintPicture(card);
  TheMainWindow().WB.PointDelay = 0;
  std::string html = Joined("<p>", ColoredName(card), "</p><p>", "</p>");
  if (withBadges == 1) html += Joined("<p>", TraitBadges(card, 0), "</p>");
  if (card.InPlay == 1) html += Joined("<p>", MenuLinks(card), "</p>");
  State().Links.DescribedCard = card.InPlay == 1 && card.Owner != 2 ? card.GlobalID : 0;
  html += Joined("<p>", card.Description, "</p>");
  ReplaceAll(html, "$MYNAME", ColoredName(card));
  if (State().DebugMode == 1) html += DebugText(card);
  State().PageText.clear();
  AppendPage(html);
  WritePage("CardDesc.html", "#000000");
  ShowInView(TheMainWindow().CardDescWB, "CardDesc.html");
  State().PageText.clear();
}

std::string CardSummary(Card& card, int withBadges) {
  PaintPicture(card);
  std::string html = Joined("<p>", ColoredName(card), "</p>");
  if (withBadges == 1) html += Joined("<p>", TraitBadges(card, 0), "</p>");
  html += Joined("<p>", card.Description, "</p>");
  return ReplaceAll(html, "$MYNAME", ColoredName(card));
}

}  // namespace brindlemoor

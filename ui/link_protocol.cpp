// Clicks on links in the views, and the play menu.
#include "ui/link_protocol.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/replacing.h"
#include "core/state.h"
#include "core/strings.h"
#include "game/match_start.h"
#include "game/plans.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "pages/card_pages.h"
#include "pages/page_files.h"
#include "text/addresses.h"
#include "text/fold.h"
#include "text/one_line.h"
#include "ui/card_description.h"
#include "ui/first_steps.h"
#include "ui/forms.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kCardLink = "CARD";

/// What follows a folder whose characters may be escaped; the whole address where it lies
/// elsewhere.
std::string_view BehindEscaped(std::string_view folder, std::string_view address) {
  std::string_view rest = address;
  for (const char character : folder) {
    if (rest.empty() || TakeUrlCharacter(rest) != character) return address;
  }
  return rest;
}

/// The body of a link: the address without the scheme and the folder that a relative link gets.
std::string CleanUrl(std::string url, bool decodeBlanks) {
  constexpr std::string_view kScheme = "file://";
  if (url.starts_with(kScheme)) url.erase(0, kScheme.size());
  // The folder goes before anything is decoded: its name may look like an escape.
  const std::string folder = State().ProgramFolder + "/";
  if (url.starts_with(folder)) {
    url.erase(0, folder.size());
  } else {
    url = std::string(BehindEscaped(folder, url));
  }
  if (decodeBlanks) ReplaceAll(url, "%20", " ");
  ReplaceAll(url, folder, "");
  return url;
}

int NumberField(std::string_view url, int field) {
  constexpr double kMost = std::numeric_limits<std::int16_t>::max();
  return static_cast<int>(std::clamp(NumericPrefix(FieldAt(url, field, ':')), -1.0, kMost));
}

/// Slot of the card that a "CARD" link names, 0 for none and for one that the report does not show.
int LinkedSlot(std::string_view url) {
  const int slot = FindSlot(url.substr(kCardLink.size()));
  const bool shown = slot != 0 && State().Links.Cards.contains(State().CardTable[slot].GlobalID);
  return shown ? slot : 0;
}

void AimQueuedPlay(int slot) {
  Session& state = State();
  const int entry = state.AwaitingPlayTarget;
  const int position = state.PlayQueue.Holds(entry) ? state.PlayQueue[entry] : 0;
  if (state.Players[1].Hand.Holds(position)) {
    Card& card = state.Players[1].Hand[position];
    card.TargetSlot = card.StoredTarget = static_cast<std::int16_t>(slot);
    state.PlayTarget[entry] = static_cast<std::int16_t>(slot);
    ShowPlayMenu();
  }
  state.AwaitingPlayTarget = 0;
}

void AimMenuAction(int slot) {
  Session& state = State();
  if (!state.CardTable.Holds(state.SelectedSlot)) return;
  Card& card = state.CardTable[state.SelectedSlot];
  if (card.Effects.Holds(state.MenuEffect)) {
    CardEffect& effect = card.Effects.Edit(state.MenuEffect);
    effect.ChosenTarget = slot;
    effect.MenuState = kArmedMenuAction;
  }
  state.AwaitingMenuTarget = 0;
  ShowPlayMenu();
}

/// So long the pointer rests on another card before that one takes the place of a menu.
constexpr int kMenuKept = 300;  // milliseconds

void CardClicked(int slot) {
  Session& state = State();
  if (state.AwaitingMenuTarget != 0) {
    if (state.SelectedSlot >= 1) AimMenuAction(slot);
  } else if (state.AwaitingPlayTarget != 0) {
    AimQueuedPlay(slot);
  } else {
    ShowCardDescription(state.CardTable[slot], 1);
    state.SelectedSlot = static_cast<std::int16_t>(slot);
    if (!HasMenu(state.CardTable[slot])) return;
    // The way to the links of its menu leads over other cards, also that of the keyboard.
    TheMainWindow().WB.PointDelay = kMenuKept;
    TheMainWindow().CardDescWB.TakeFocus();
  }
}

bool IsStore(const Card& card) {
  const auto sells = [](const CardEffect& effect) { return effect.MenuState == kMenuAction; };
  return card.Owner == 0 && card.InPlay == 1 && HasTrait(card, "STORE") &&
         std::any_of(card.Effects.begin(), card.Effects.end(), sells);
}

/// A card store that belongs to no side is in no table of the report: its own page shows it.
void ShowStore() {
  for (Card& card : State().CardTable) {
    if (!IsStore(card)) continue;
    ShowCardDescription(card, 1);
    State().SelectedSlot = card.Slot;
    return;
  }
}

/// Lets the player pick the owned card that a menu action changes. Without a pick it goes on
/// waiting.
void AimAtOwnedCard(int slot, int index) {
  Session& state = State();
  if (!HoldsCards(state.Collection)) {
    Desktop().MessageBox("You don't own any cards to modify!");
    return;
  }
  if (!PickOwnedCard() || !state.CardTable.Holds(slot)) return;
  if (!state.CardTable[slot].Effects.Holds(index)) return;
  CardEffect& effect = state.CardTable[slot].Effects.Edit(index);
  effect.MenuState = kArmedMenuAction;
  effect.ChosenTarget = state.PickedCard;
  effect.PickedPile = state.PickedPile;
  // The picked position counts as the selected slot too: players' plans go on from there, so that
  // the hand card clicked next is aimed at the table card of that number.
  state.SelectedSlot = static_cast<std::int16_t>(state.PickedCard);
  ShowPlayMenu();
}

/// A menu action that waits was clicked: arms it, or first asks for what it needs.
void ChooseMenuAction(int slot, int index) {
  Session& state = State();
  CardEffect& effect = state.CardTable[slot].Effects.Edit(index);
  switch (effect.TargetType) {
    case kTargetCollection:
      AimAtOwnedCard(slot, index);
      return;
    case kTargetCard:
      state.AwaitingMenuTarget = 1;
      state.SelectedSlot = static_cast<std::int16_t>(slot);
      TheMainWindow().WB.TakeFocus();  // where its target is clicked
      break;
    default:
      effect.MenuState = kArmedMenuAction;
      state.AwaitingMenuTarget = 0;
  }
  ShowPlayMenu();
}

}  // namespace

std::pair<int, int> OpponentOfLink(const std::string& address) {
  const std::string url = CleanUrl(address, true);
  if (!FoldEquals(FieldAt(url, 1, ':'), "GAME")) return {0, 0};
  return {NumberField(url, 2), NumberField(url, 3)};
}

int TableSlotOfLink(const std::string& url) {
  const std::string body = CleanUrl(url, true);
  return body.starts_with(kCardLink) ? LinkedSlot(body) : 0;
}

void PlayOpponent(int gameIndex, int opponentIndex) {
  if (State().TurnRunning == 1 || !MayBeginMatch(gameIndex, opponentIndex)) return;
  TheMainWindow().Kept.Hide();
  ChooseGame(gameIndex, opponentIndex);
  ShowStore();
  if (State().Links.Games) {
    ShowFirstSteps();
  } else {
    KeepMatchAfterTurn();
  }
}

bool WB_BeforeNavigate(const std::string& address) {
  if (State().OwnNavigation == 1) return false;
  const std::string url = CleanUrl(address, true);
  const std::string_view form = FieldAt(url, 1, ':');
  if (FoldEquals(form, "HELP")) {
    ShowHelp(FieldAt(url, 2, ':'));
    return true;
  }
  // Views hand the scheme over in lower case.
  if (FoldEquals(form, "GAME")) {
    if (!State().Links.Games) return true;
    PlayOpponent(NumberField(url, 2), NumberField(url, 3));
    return true;
  }
  if (!url.starts_with(kCardLink)) return false;
  if (url == "CARDRulesCard" || TheMainWindow().History.LooksBack()) return true;
  if (const int slot = LinkedSlot(url); slot != 0) CardClicked(slot);
  return true;
}

bool InPlayWB_BeforeNavigate(const std::string& address) {
  const std::string url = CleanUrl(address, false);
  if (!url.starts_with(kCardLink)) return false;
  if (const int slot = LinkedSlot(url); slot != 0) {
    ShowCardDescription(State().CardTable[slot], 1);
    State().SelectedSlot = static_cast<std::int16_t>(slot);
  }
  return true;
}

bool CardDescWB_BeforeNavigate(const std::string& address) {
  Session& state = State();
  const std::string url = CleanUrl(address, true);
  if (!FoldEquals(FieldAt(url, 1, ':'), "MENUACTION")) return false;
  const int slot = FindSlot(FieldAt(url, 2, ':'));
  if (slot == 0) return true;
  Card& card = state.CardTable[slot];
  if (card.GlobalID != State().Links.DescribedCard) return true;
  const int index = NumberField(url, 3);
  if (!card.Effects.Holds(index) || index > 255) return true;
  const bool again =
      state.AwaitingMenuTarget != 0 && state.SelectedSlot == slot && state.MenuEffect == index;
  state.MenuEffect = static_cast<std::uint8_t>(index);
  const std::uint8_t menuState = card.Effects[index].MenuState;
  if (menuState == kArmedMenuAction) {
    card.Effects.Edit(index).MenuState = kMenuAction;
    state.AwaitingMenuTarget = 0;
    ShowPlayMenu();
  } else if (again) {
    ForgetSelection();
    ShowPlayMenu();
  } else if (menuState == kMenuAction) {
    ChooseMenuAction(slot, index);
  }
  return true;
}

namespace {

void ListPlays() {
  Session& state = State();
  for (int entry = 1; entry <= state.PlayQueue.UpperBound(); ++entry) {
    const int position = state.PlayQueue[entry];
    if (!state.Players[1].Hand.Holds(position)) continue;
    const std::string name = ColoredName(state.Players[1].Hand[position]);
    const int target = state.PlayTarget[entry];
    if (target < 0) {
      AppendPage(Joined("Discard ", name, "<br>"));
    } else if (state.CardTable.Holds(target)) {
      AppendPage(Joined("Play ", name, " on ", ColoredName(state.CardTable[target]), "<br>"));
    } else {
      AppendPage(Joined("Play ", name, "<br>"));
    }
  }
}

std::string MenuActionLine(Card& card, const CardEffect& effect) {
  const std::string name = ColoredName(card);
  if (effect.TargetType == kTargetCollection) {
    return Joined(name, " uses special action \"", OneLine(effect.MenuCaption),
                  "\" on one of the cards in their collection.");
  }
  if (State().CardTable.Holds(effect.ChosenTarget)) {
    return Joined(name, " uses special action \"", OneLine(effect.MenuCaption), "\" on \"",
                  // The plan page has these bytes: no quote behind the name.
                  OneLine(State().CardTable[effect.ChosenTarget].Name), ".<br>");
  }
  return Joined(name, " uses special action \"", OneLine(effect.MenuCaption), "\".");
}

void ListMenuActions() {
  for (Card& card : State().CardTable) {
    if (IsFree(card)) continue;
    for (const CardEffect& effect : card.Effects) {
      if (effect.MenuState == kArmedMenuAction) AppendPage(MenuActionLine(card, effect));
    }
  }
}

}  // namespace

void ShowPlayMenu() {
  State().PageText.clear();
  ListPlays();
  ListMenuActions();
  WritePage("Display.html", "#000000");
  ShowPlan();
  Desktop().PumpEvents();
  ShowInView(TheMainWindow().InPlayWB, "Display.html");
}

}  // namespace brindlemoor

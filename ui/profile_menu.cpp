// The profile chooser: who plays, new players, other names.
#include "ui/profile_menu.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/profiles.h"
#include "game/player_files.h"
#include "game/players.h"
#include "game/program_start.h"
#include "platform/arrangement.h"
#include "ui/choice_form.h"
#include "ui/forms.h"

namespace brindlemoor {

namespace {

constexpr int kButtons = 8;

}  // namespace

ProfileMenu::ProfileMenu() : Form("ProfileMenu") {
  Caption = "Choose a Player Profile";
  Width = 380;
  Height = 470;  // the players and what can be done with them
  Layout buttons{.Direction = Layout::Kind::kColumn, .Stretch = 1};
  for (int index = 0; index < kButtons; ++index) {
    auto& button = Command1[static_cast<std::size_t>(index)];
    button = std::make_unique<Button>("Command1(" + std::to_string(index) + ")");
    button->Caption = "New Player Profile";
    button->Click = [this, index] { Command1_Click(index); };
    buttons.Children.push_back(
        {.Direction = Layout::Kind::kControl, .Leaf = button.get(), .Height = 40});
  }
  VScroll1.Visible = false;
  VScroll1.Spoken = "More players";
  VScroll1.Change = [this] { VScroll1_Change(); };
  // The form has a second button that nothing is bound to; it is not shown.
  Command2.Visible = false;
  RenamePlayer.Caption = "Rename a Player";
  RenamePlayer.ToolTip = "Gives a player another name.  Cards and tokens stay.";
  RenamePlayer.Click = [this] { RenamePlayer_Click(); };
  DeletePlayer.Caption = "Delete a Player";
  DeletePlayer.ToolTip = "Takes a player and all their cards away.";
  DeletePlayer.Click = [this] { DeletePlayer_Click(); };
  Arrangement = Column({Row({std::move(buttons), Cell(VScroll1)}, 1),
                        Row({Cell(RenamePlayer, 1), Cell(DeletePlayer, 1)})});
  QueryClose = [this] { return Form_QueryClose(); };
}

void ProfileMenu::Form_Load() { LoadButtons(); }

void ProfileMenu::LoadButtons() {
  for (auto& button : Command1) button->Caption = "";
  LoadProfiles();
  UpdateButtons();
  BringLastPlayer();
}

void ProfileMenu::BringLastPlayer() {
  const Table<ProfileRec>& profiles = State().Profiles;
  const std::string last = LastPlayer();
  int place = 0;  // that of "New Player"
  for (int profile = 1; profile <= profiles.UpperBound(); ++profile) {
    if (!last.empty() && profiles[profile].PlayerName == last) place = profile;
  }
  if (place < ScrollOffset || place >= ScrollOffset + kButtons) {
    VScroll1.Value = std::clamp(place, VScroll1.Minimum.Get(), VScroll1.Maximum.Get());
    VScroll1_Change();
  }
  Command1[static_cast<std::size_t>(place - ScrollOffset)]->TakeFocus();
}

void ProfileMenu::UpdateButtons() {
  const Table<ProfileRec>& profiles = State().Profiles;
  const int beyond = profiles.UpperBound() - (kButtons - 1);
  VScroll1.Maximum = std::max(beyond, 0);
  VScroll1.Visible = beyond > 0;
  bool hasPlayers = false;
  for (const ProfileRec& profile : profiles) hasPlayers |= !profile.PlayerName.empty();
  RenamePlayer.Enabled = hasPlayers;
  DeletePlayer.Enabled = hasPlayers;
  for (int index = 0; index < kButtons; ++index) {
    const int profile = ScrollOffset + index;
    std::string caption;
    if (profile == 0) {
      caption = "New Player";
    } else if (profiles.Holds(profile)) {
      caption = profiles[profile].PlayerName.Str();
    }
    Button& button = *Command1[static_cast<std::size_t>(index)];
    button.Visible = !caption.empty();
    button.Caption = caption;
  }
}

void ProfileMenu::VScroll1_Change() {
  ScrollOffset = VScroll1.Value;
  UpdateButtons();
}

namespace {

/// The line of a player as it stands now: the list that the chooser shows may be old.
ProfileRec PresentLine(const ProfileRec& shown) {
  LoadProfiles();
  for (const ProfileRec& line : State().Profiles) {
    if (line.PlayerName == shown.PlayerName) return line;
  }
  return shown;
}

/// False, with a message, for a player of another program.
bool TakeProfile(const ProfileRec& shown) {
  Session& state = State();
  if (!HoldPlayer(shown.PlayerName)) {
    Desktop().MessageBox(Joined(shown.PlayerName,
                                " is playing in another window of the program on this folder.  "
                                "Choose another player, or end that one first."));
    return false;
  }
  const ProfileRec profile = PresentLine(shown);
  state.Profile = profile;
  if (!ResolvePath(profile.PlayerFile, 0).empty()) {
    ReadPlayerFile(profile.PlayerFile);
  }
  return true;
}

/// Asks until the name can be part of a file name or the box is cancelled; "" then.
std::string AskNewName(std::string_view question) {
  while (true) {
    std::string name = Desktop().AskText(question).value_or("");
    if (name.empty()) return name;
    LoadProfiles();  // another program may have added one
    std::string refusal = RefusePlayerName(name);
    if (refusal.empty() && !HoldPlayer(name)) refusal = "There is a player of this name already.";
    if (refusal.empty()) return name;
    Desktop().MessageBox(refusal);
  }
}

/// The player that the user chooses from a list; "" for none.
std::string AskPlayer(std::string_view question) {
  LoadProfiles();
  std::vector<std::string> names;
  for (const ProfileRec& profile : State().Profiles) {
    if (!profile.PlayerName.empty()) names.push_back(profile.PlayerName.Str());
  }
  if (names.empty()) {
    Desktop().MessageBox("There are no players yet.");
    return "";
  }
  const int chosen = AskChoice(question, names);
  return chosen == 0 ? "" : names[static_cast<std::size_t>(chosen) - 1];
}

/// A new player starts afresh: what an earlier profile left in these fields is not theirs. False
/// when the name was cancelled.
bool TakeNewPlayer() {
  const std::string name = AskNewName("New Player Name?");
  if (name.empty()) return false;
  Session& state = State();
  state.Profile = ProfileRec{};
  state.Profile.PlayerName = name;
  state.Profiles.Append(state.Profile);
  state.Players[1].Tokens = kFirstTokens;
  return true;
}

}  // namespace

void ProfileMenu::Command1_Click(int index) {
  Session& state = State();
  const int profile = ScrollOffset + index;
  if (profile >= 1 && state.Profiles.Holds(profile)) {
    const ProfileRec shown = state.Profiles[profile];
    if (!TakeProfile(shown)) return;
  } else if (!TakeNewPlayer()) {
    LoadButtons();
    return;
  }
  SaveProfiles();
  NoteLastPlayer(state.Profile.PlayerName);
  Desktop().HideForm(*this);
}

void ProfileMenu::RenamePlayer_Click() {
  const std::string player = AskPlayer("Which player is to have another name?");
  if (player.empty()) return;
  const std::string name = AskNewName(Joined("New name for ", player, "?"));
  if (name.empty()) return;
  const std::string refusal = brindlemoor::RenamePlayer(player, name);
  if (!refusal.empty()) Desktop().MessageBox(refusal);
  LoadButtons();
  if (refusal.empty() && Before.PlayerName == player) Before.PlayerName = name;
}

void ProfileMenu::DeletePlayer_Click() {
  const std::string player = AskPlayer("Which player is to be deleted?");
  if (player.empty()) return;
  const std::string holdings = HoldingsOf(player);
  const bool isSure = Desktop().AskYesNo(
      holdings.empty() ? Joined("Delete ", player, "?  This player owns no cards yet.")
                       : Joined("Delete ", player, "?  These are lost for good:\n\n", holdings));
  if (!isSure) return;
  const std::string failure = brindlemoor::DeletePlayer(player);
  if (!failure.empty()) Desktop().MessageBox(failure);
  if (failure.empty() && Before.PlayerName == player) Before = {};
  LoadButtons();
}

bool ProfileMenu::Form_QueryClose() {
  Session& state = State();
  if (state.Profile.PlayerName.empty() && !Before.PlayerName.empty()) {
    state.Profile = PresentLine(Before);
  }
  if (state.Profile.PlayerName.empty()) Desktop().EndProgram();
  return false;
}

void SwitchPlayer() {
  Session& state = State();
  TheProfileMenu().Before = state.Profile;
  state.Profile = {};
  OwnNothing();
  state.PageText.clear();
  NewGame();
  const ProfileRec before = std::exchange(TheProfileMenu().Before, {});
  if (state.Profile.PlayerName != before.PlayerName) ReleasePlayer(before.PlayerName);
}

void ChooseProfile() {
  ProfileMenu& form = TheProfileMenu();
  form.Form_Load();
  Desktop().ShowForm(form, true);
}

}  // namespace brindlemoor

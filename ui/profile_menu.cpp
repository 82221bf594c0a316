// The profile chooser of the program's start.
#include "ui/profile_menu.h"

#include <algorithm>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/profiles.h"
#include "game/player_files.h"
#include "ui/forms.h"

namespace brindlemoor {

namespace {

constexpr int kButtons = 8;

}  // namespace

ProfileMenu::ProfileMenu() : Form("ProfileMenu") {
  Caption = "Choose a Player Profile";
  Width = 380;
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
  VScroll1.Change = [this] { VScroll1_Change(); };
  // The form has a second button that nothing is bound to; it is not shown.
  Command2.Visible = false;
  Arrangement = {
      .Direction = Layout::Kind::kRow,
      .Children = {std::move(buttons), {.Direction = Layout::Kind::kControl, .Leaf = &VScroll1}}};
  QueryClose = [this] { return Form_QueryClose(); };
}

void ProfileMenu::Form_Load() { LoadButtons(); }

void ProfileMenu::LoadButtons() {
  for (auto& button : Command1) button->Caption = "";
  LoadProfiles();
  UpdateButtons();
}

void ProfileMenu::UpdateButtons() {
  const Table<ProfileRec>& profiles = State().Profiles;
  const int beyond = profiles.UpperBound() - (kButtons - 1);
  VScroll1.Maximum = std::max(beyond, 0);
  VScroll1.Visible = beyond > 0;
  for (int index = 0; index < kButtons; ++index) {
    const int profile = ScrollOffset + index;
    std::string caption;
    if (profile == 0) {
      caption = "New Player";
    } else if (profiles.Holds(profile)) {
      caption = profiles[profile].PlayerName.Str();
    }
    Command1[static_cast<std::size_t>(index)]->Caption = caption;
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
std::string AskNewName() {
  while (true) {
    std::string name = Desktop().AskText("New Player Name?").value_or("");
    if (name.empty()) return name;
    LoadProfiles();  // another program may have added one
    std::string refusal = RefusePlayerName(name);
    if (refusal.empty() && !HoldPlayer(name)) refusal = "There is a player of this name already.";
    if (refusal.empty()) return name;
    Desktop().MessageBox(refusal);
  }
}

}  // namespace

void ProfileMenu::Command1_Click(int index) {
  Session& state = State();
  const int profile = ScrollOffset + index;
  if (profile >= 1 && state.Profiles.Holds(profile)) {
    const ProfileRec shown = state.Profiles[profile];
    if (!TakeProfile(shown)) return;
  } else {
    // A new player starts afresh: what an earlier profile left in these fields is not theirs.
    state.Profile = ProfileRec{};
    state.Profile.PlayerName = AskNewName();
    state.Profiles.Append(state.Profile);
    state.Players[1].Tokens = kFirstTokens;
  }
  SaveProfiles();
  Desktop().HideForm(*this);
}

bool ProfileMenu::Form_QueryClose() {
  if (State().Profile.PlayerName.empty()) Desktop().EndProgram();
  return false;
}

void ChooseProfile() {
  ProfileMenu& form = TheProfileMenu();
  form.Form_Load();
  Desktop().ShowForm(form, true);
}

}  // namespace brindlemoor

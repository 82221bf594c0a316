// ProfileMenu: the profile chooser, at the program's start and when another player takes over.
#pragma once

#include <array>
#include <memory>

#include "core/records.h"
#include "platform/controls.h"

namespace brindlemoor {

struct ProfileMenu : Form {
  ProfileMenu();

  std::array<std::unique_ptr<Button>, 8> Command1;  ///< 0 to 7
  Button Command2{"Command2"};
  ScrollBar VScroll1{"VScroll1"};
  Button RenamePlayer{"RenamePlayer"};
  Button DeletePlayer{"DeletePlayer"};

  int ScrollOffset = 0;
  /// Who goes on playing when the window is closed; nobody at the program's start.
  ProfileRec Before;

  void Form_Load();
  void LoadButtons();
  void UpdateButtons();
  /// Scrolls to who played last, with the keyboard there.
  void BringLastPlayer();
  void Command1_Click(int index);
  void VScroll1_Change();
  void RenamePlayer_Click();
  void DeletePlayer_Click();
  bool Form_QueryClose();
};

/// Shows the chooser and returns when a profile was chosen or the window closed.
void ChooseProfile();

/// Another player takes over; closing the chooser leaves the present one. What is owned must have
/// been saved.
void SwitchPlayer();

}  // namespace brindlemoor

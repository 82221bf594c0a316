// ProfileMenu: the profile chooser of the program's start.
#pragma once

#include <array>
#include <memory>

#include "platform/controls.h"

namespace brindlemoor {

struct ProfileMenu : Form {
  ProfileMenu();

  std::array<std::unique_ptr<Button>, 8> Command1;  ///< 0 to 7
  Button Command2{"Command2"};
  ScrollBar VScroll1{"VScroll1"};

  int ScrollOffset = 0;

  void Form_Load();
  void LoadButtons();
  void UpdateButtons();
  void Command1_Click(int index);
  void VScroll1_Change();
  bool Form_QueryClose();
};

/// Shows the chooser and returns when a profile was chosen or the window closed.
void ChooseProfile();

}  // namespace brindlemoor

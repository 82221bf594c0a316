// HelpForm: the window of the help pages.
#pragma once

#include <string_view>

#include "platform/controls.h"

namespace brindlemoor {

struct HelpForm : Form {
  HelpForm();
  BrowserView HelpWB{"HelpWB"};
  Button Close{"CloseHelp"};  ///< the Escape key presses it
};

/// Shows a help page of the program's folder in the help window, which stays usable beside the
/// game, from the element with this id on. Writes the reference page that help pages lead to
/// before.
void ShowHelp(std::string_view file, std::string_view anchor = {});

}  // namespace brindlemoor

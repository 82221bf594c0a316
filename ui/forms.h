// The program's windows.
#pragma once

#include <memory>

#include "ui/archive_form.h"
#include "ui/choice_form.h"
#include "ui/deck_manager.h"
#include "ui/help_window.h"
#include "ui/main_window.h"
#include "ui/profile_menu.h"
#include "ui/progress_form.h"

namespace brindlemoor {

/// Every window of the program; each is made at its first use.
struct Forms {
  std::unique_ptr<MainWindow> Main;
  std::unique_ptr<ProfileMenu> Profiles;
  std::unique_ptr<HelpForm> Help;
  std::unique_ptr<DeckManager> Decks;
  std::unique_ptr<ProgressForm> Progress;
  std::unique_ptr<ChoiceForm> Choice;
  std::unique_ptr<ArchiveForm> Archive;
};

/// The windows, each made at its first use; the main window is loaded then.
MainWindow& TheMainWindow();
ProfileMenu& TheProfileMenu();
HelpForm& TheHelpForm();
DeckManager& TheDeckManager();
ProgressForm& TheProgressForm();
ChoiceForm& TheChoiceForm();
ArchiveForm& TheArchiveForm();

}  // namespace brindlemoor

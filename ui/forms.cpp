// Making the program's windows at their first use.
#include "ui/forms.h"

#include "core/state.h"

namespace brindlemoor {

namespace {

Forms& TheForms() {
  auto& forms = State().OpenForms;
  if (forms == nullptr) forms = std::make_shared<Forms>();
  return *forms;
}

}  // namespace

MainWindow& TheMainWindow() {
  Forms& forms = TheForms();
  if (forms.Main == nullptr) {
    forms.Main = std::make_unique<MainWindow>();
    forms.Main->Form_Load();
  }
  return *forms.Main;
}

ProfileMenu& TheProfileMenu() {
  Forms& forms = TheForms();
  if (forms.Profiles == nullptr) forms.Profiles = std::make_unique<ProfileMenu>();
  return *forms.Profiles;
}

HelpForm& TheHelpForm() {
  Forms& forms = TheForms();
  if (forms.Help == nullptr) forms.Help = std::make_unique<HelpForm>();
  return *forms.Help;
}

DeckManager& TheDeckManager() {
  Forms& forms = TheForms();
  if (forms.Decks == nullptr) forms.Decks = std::make_unique<DeckManager>();
  return *forms.Decks;
}

ProgressForm& TheProgressForm() {
  Forms& forms = TheForms();
  if (forms.Progress == nullptr) forms.Progress = std::make_unique<ProgressForm>();
  return *forms.Progress;
}

}  // namespace brindlemoor

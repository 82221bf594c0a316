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

template <class Window>
Window& Made(std::unique_ptr<Window>& window) {
  if (window == nullptr) window = std::make_unique<Window>();
  return *window;
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

ProfileMenu& TheProfileMenu() { return Made(TheForms().Profiles); }

HelpForm& TheHelpForm() { return Made(TheForms().Help); }

DeckManager& TheDeckManager() { return Made(TheForms().Decks); }

ProgressForm& TheProgressForm() { return Made(TheForms().Progress); }

ChoiceForm& TheChoiceForm() { return Made(TheForms().Choice); }

ArchiveForm& TheArchiveForm() { return Made(TheForms().Archive); }

}  // namespace brindlemoor

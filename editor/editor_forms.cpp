// Making the editor's windows at their first use.
#include "editor/editor_forms.h"

#include "core/state.h"

namespace brindlemoor {

namespace {

EditorForms& TheForms() {
  auto& forms = State().OpenEditorForms;
  if (forms == nullptr) forms = std::make_shared<EditorForms>();
  return *forms;
}

template <class Window>
Window& Made(std::unique_ptr<Window>& window) {
  if (window == nullptr) window = std::make_unique<Window>();
  return *window;
}

/// Pickers stay loaded while they are hidden.
template <class Picker>
Picker& Loaded(std::unique_ptr<Picker>& picker) {
  if (picker == nullptr) {
    picker = std::make_unique<Picker>();
    picker->Form_Load();
  }
  return *picker;
}

}  // namespace

CardEdit& TheCardEdit() { return Made(TheForms().Cards); }

EffectPicker& TheEffectPicker() { return Loaded(TheForms().Effects); }

CounterPicker& TheCounterPicker() { return Loaded(TheForms().Counters); }

PicPick& ThePicPick() { return Loaded(TheForms().Pictures); }

ValGen& TheValGen() { return Made(TheForms().Values); }

CardGrid& TheCardGrid() { return Made(TheForms().Grid); }

TrialForm& TheTrialForm() { return Made(TheForms().Trial); }

}  // namespace brindlemoor

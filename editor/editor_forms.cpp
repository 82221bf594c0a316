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

CardEdit& TheCardEdit() {
  auto& cards = TheForms().Cards;
  if (cards == nullptr) cards = std::make_unique<CardEdit>();
  return *cards;
}

EffectPicker& TheEffectPicker() { return Loaded(TheForms().Effects); }

CounterPicker& TheCounterPicker() { return Loaded(TheForms().Counters); }

PicPick& ThePicPick() { return Loaded(TheForms().Pictures); }

ValGen& TheValGen() {
  auto& values = TheForms().Values;
  if (values == nullptr) values = std::make_unique<ValGen>();
  return *values;
}

WordPicker& TheWordPicker() {
  auto& words = TheForms().Words;
  if (words == nullptr) words = std::make_unique<WordPicker>();
  return *words;
}

}  // namespace brindlemoor

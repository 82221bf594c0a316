// The wizard that writes action scripts.
#include "editor/effect_picker.h"

#include "core/desktop.h"
#include "core/strings.h"
#include "editor/editor_forms.h"
#include "editor/value_generator.h"

namespace brindlemoor {

namespace {

constexpr int kLists = 8;

}  // namespace

EffectPicker::EffectPicker()
    : CommandPicker("EffectPicker", kLists, EffectPickerRows(), EffectPickerNotes()) {}

std::optional<std::string> EffectPicker::Answer(const std::string& prompt,
                                                const PickerArgument& argument) {
  if (FieldAt(prompt, 1, ':') == "VALBOX") return AskValue(FieldAt(prompt, 2, ':'));
  return CommandPicker::Answer(prompt, argument);
}

std::optional<std::string> AskEffects() {
  EffectPicker& form = TheEffectPicker();
  form.BeginEmpty();
  Desktop().ShowForm(form, true);
  return form.Done || !form.Value.empty() ? std::optional(form.Value) : std::nullopt;
}

}  // namespace brindlemoor

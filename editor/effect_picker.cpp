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

EffectPicker::EffectPicker() : CommandPicker("EffectPicker", kLists, EffectPickerRows()) {}

void EffectPicker::AnswerSpecially(std::string& prompt, std::string& answer) {
  if (FieldAt(prompt, 1, ':') != "VALBOX") return;
  answer = AskValue(FieldAt(prompt, 2, ':'));
  prompt.clear();
}

std::string AskEffects() {
  EffectPicker& form = TheEffectPicker();
  Desktop().ShowForm(form, true);
  return form.Value;
}

}  // namespace brindlemoor

// The wizard that writes the scripts of COUNTER actions.
#include "editor/counter_picker.h"

#include "editor/effect_picker.h"

namespace brindlemoor {

namespace {

constexpr int kLists = 14;

}  // namespace

CounterPicker::CounterPicker()
    : CommandPicker("CounterPicker", kLists, CounterPickerRows(), CounterPickerNotes()) {
  Command2.Caption = "Command2";
  // The form has a second button that nothing is bound to; it is not shown.
  Command2.Visible = false;
}

std::optional<std::string> CounterPicker::Answer(const std::string& prompt,
                                                 const PickerArgument& argument) {
  return prompt == "#EFFECTPICKER" ? AskEffects() : CommandPicker::Answer(prompt, argument);
}

}  // namespace brindlemoor

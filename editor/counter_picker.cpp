// The wizard that writes the scripts of COUNTER actions.
#include "editor/counter_picker.h"

#include "editor/effect_picker.h"

namespace brindlemoor {

namespace {

constexpr int kLists = 14;

}  // namespace

CounterPicker::CounterPicker() : CommandPicker("CounterPicker", kLists, CounterPickerRows()) {
  Command2.Caption = "Command2";
  // The form has a second button that nothing is bound to; it is not shown.
  Command2.Visible = false;
}

void CounterPicker::AnswerSpecially(std::string& prompt, std::string& answer) {
  if (prompt != "#EFFECTPICKER") return;
  prompt.clear();
  answer = AskEffects();
}

}  // namespace brindlemoor

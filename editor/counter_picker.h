// CounterPicker: the wizard that writes the scripts of COUNTER actions.
#pragma once

#include "editor/command_picker.h"

namespace brindlemoor {

struct CounterPicker : CommandPicker {
  CounterPicker();

  Button Command2{"Command2"};

 protected:
  /// "#EFFECTPICKER" is answered with the effect picker.
  void AnswerSpecially(std::string& prompt, std::string& answer) override;
};

}  // namespace brindlemoor

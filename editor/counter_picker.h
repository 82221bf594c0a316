// CounterPicker: the wizard that writes the scripts of COUNTER actions.
#pragma once

#include "editor/command_picker.h"

namespace brindlemoor {

struct CounterPicker : CommandPicker {
  CounterPicker();

  Button Command2{"Command2"};

 protected:
  /// "#EFFECTPICKER" is answered with the effect picker.
  std::optional<std::string> Answer(const std::string& prompt,
                                    const PickerArgument& argument) override;
};

}  // namespace brindlemoor

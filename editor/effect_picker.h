// EffectPicker: the wizard that writes action scripts.
#pragma once

#include <string>

#include "editor/command_picker.h"

namespace brindlemoor {

struct EffectPicker : CommandPicker {
  EffectPicker();

 protected:
  /// "VALBOX:question" is answered with the value generator.
  void AnswerSpecially(std::string& prompt, std::string& answer) override;
};

/// Shows the picker modally; returns the generated script, "" when the window was closed.
std::string AskEffects();

}  // namespace brindlemoor

// EffectPicker: the wizard that writes action scripts.
#pragma once

#include <optional>
#include <string>

#include "editor/command_picker.h"

namespace brindlemoor {

struct EffectPicker : CommandPicker {
  EffectPicker();

 protected:
  /// "VALBOX:question" is answered with the value generator.
  std::optional<std::string> Answer(const std::string& prompt,
                                    const PickerArgument& argument) override;
};

/// Shows the picker modally, with nothing picked; returns the generated script, nothing when the
/// window was closed.
std::optional<std::string> AskEffects();

}  // namespace brindlemoor

// ControlArray: several controls of a form under one name.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>

#include "text/text.h"

namespace brindlemoor {

/// A control array of a form; its controls are numbered from 0.
template <class Kind, int N>
class ControlArray {
 public:
  explicit ControlArray(std::string_view name) {
    for (int index = 0; index < N; ++index) {
      controls_[static_cast<std::size_t>(index)] =
          std::make_unique<Kind>(Joined(name, "(", index, ")"));
    }
  }
  Kind& operator[](int index) const { return *controls_[static_cast<std::size_t>(index)]; }

 private:
  std::array<std::unique_ptr<Kind>, static_cast<std::size_t>(N)> controls_;
};

}  // namespace brindlemoor

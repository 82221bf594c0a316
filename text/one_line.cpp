// Taking control characters out of a name.
#include "text/one_line.h"

#include <algorithm>

namespace brindlemoor {

namespace {

bool IsControl(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return byte < 0x20 || byte == 0x7F;
}

}  // namespace

OneLine::OneLine(std::string_view text) : text_(text) {
  if (std::ranges::none_of(text, IsControl)) return;
  changed_ = text;
  std::ranges::replace_if(changed_, IsControl, ' ');
  text_ = changed_;
}

}  // namespace brindlemoor

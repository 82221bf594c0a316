// The rarer half of assigning and ending texts.
#include "text/text.h"

namespace brindlemoor {

void Text::Replace(const Text& other) noexcept {
  Text copy(other);
  std::swap(rep_, copy.rep_);
}

void Text::Delete(Rep* rep) noexcept {
  const std::size_t bytes = sizeof(Rep) + rep->size + rep->room;
  rep->~Rep();
  SmallBlocks::Give(rep, bytes);
}

}  // namespace brindlemoor

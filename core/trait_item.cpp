// Working out what a trait item is searched and read by.
#include "core/trait_item.h"

#include <algorithm>

#include "core/fold.h"
#include "core/strings.h"

namespace brindlemoor {

TraitItem::TraitItem(Text text) : text_(std::move(text)) {
  if (text_.empty()) return;
  nameSize_ = static_cast<std::uint32_t>(std::min(View().find(':'), View().size()));
  const std::string_view name = Name();
  const std::string_view rest = View().substr(std::min(name.size() + 1, View().size()));
  // The number ends before the ":" of a further field by itself.
  if (!rest.empty() && rest.front() != ':') number_ = NumericPrefix(rest);
  key_ = TraitKey(name);
  const int bonus = FoldPrefixLength(name, "BONUS");
  if (bonus <= 0) return;
  bonusSize_ = static_cast<std::uint32_t>(bonus);
  bonusKey_ = TraitKey(name.substr(bonusSize_));
}

std::string_view TraitItem::Value() const noexcept { return FieldAt(View(), 2, ':'); }

}  // namespace brindlemoor

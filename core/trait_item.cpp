// Working out what a trait item is searched and read by.
#include "core/trait_item.h"

#include <algorithm>

#include "core/fold.h"
#include "core/strings.h"

namespace brindlemoor {

TraitItem::TraitItem(Text text) : text_(std::move(text)) {
  if (text_.empty()) return;
  const std::string_view name = Name();
  const std::string_view value = Value();
  if (!value.empty()) number_ = NumericPrefix(value);
  key_ = TraitKey(name);
  const int bonus = FoldPrefixLength(name, "BONUS");
  if (bonus <= 0) return;
  bonusSize_ = static_cast<std::uint32_t>(bonus);
  bonusKey_ = TraitKey(name.substr(bonusSize_));
}

std::string_view TraitItem::Name() const noexcept { return View().substr(0, View().find(':')); }

std::string_view TraitItem::Value() const noexcept { return FieldAt(View(), 2, ':'); }

bool TraitItem::FoldsLike(std::string_view item, std::string_view name) noexcept {
  if (item.starts_with(name)) {
    const bool whole = item.size() == name.size() || item[name.size()] == ':';
    return whole && name.find(':') == std::string_view::npos;
  }
  for (std::size_t index = 0; index < name.size(); ++index) {
    if (index == item.size() || name[index] == ':') return false;
    if (!IsAscii(item[index]) || !IsAscii(name[index])) {
      return FoldEquals(item.substr(0, item.find(':')), name);
    }
    if (AsciiUpper(item[index]) != AsciiUpper(name[index])) return false;
  }
  return item.size() == name.size() || item[name.size()] == ':';
}

}  // namespace brindlemoor

// Working out what a trait item is searched and read by.
#include "core/trait_item.h"

#include <algorithm>
#include <cmath>

#include "core/strings.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

std::uint32_t KeyOfFolded(std::string_view name) noexcept {
  constexpr std::size_t kLetters = 3;
  constexpr unsigned kCaseBit = 0x20;
  std::uint32_t key = static_cast<std::uint8_t>(name.size()) | kEmptyTraitKey;
  for (std::size_t index = 0; index < std::min(name.size(), kLetters); ++index) {
    key |= (static_cast<unsigned char>(name[index]) & ~kCaseBit) << (8 * (index + 1));
  }
  return key;
}

}  // namespace

std::uint32_t TraitKey(std::string_view name) noexcept {
  bool isAscii = true;
  for (const char character : name) {
    if (character == ':') return kNoTraitKey;
    isAscii = isAscii && IsAscii(character);
  }
  // The key passes over the case of ASCII by itself.
  return isAscii ? KeyOfFolded(name) : KeyOfFolded(FoldUpper(name));
}

TraitItem::TraitItem(Text text) : text_(std::move(text)) {
  const std::size_t nameSize = std::min(View().find(':'), View().size());
  TakeApart(nameSize, TraitKey(View().substr(0, nameSize)));
}

TraitItem::TraitItem(const TraitName& name, std::string_view value)
    : text_(value.empty() ? Text(name.View()) : Text::Of(name.View(), ":", value)) {
  if (name.Key() == kNoTraitKey) {
    *this = TraitItem(text_);
  } else {
    TakeApart(name.View().size(), name.Key());
  }
}

void TraitItem::TakeApart(std::size_t nameSize, std::uint32_t key) {
  if (text_.empty()) return;
  nameSize_ = static_cast<std::uint32_t>(nameSize) & 0x7FFFFFFF;  // limits::kTextBytes is less
  key_ = key;
  const std::string_view rest = View().substr(std::min(nameSize + 1, View().size()));
  // The number ends before the ":" of a further field by itself.
  if (!rest.empty() && rest.front() != ':') number_ = NumericPrefix(rest);
  const int bonus = FoldPrefixLength(Name(), "BONUS");
  if (bonus <= 0) return;
  bonusSize_ = static_cast<std::uint32_t>(bonus);
  bonusKey_ = TraitKey(Name().substr(bonusSize_));
}

bool TraitItem::IsWhole(double number) noexcept {
  constexpr double kExactlyPrinted = 1e15;
  return number == std::trunc(number) && std::fabs(number) < kExactlyPrinted;
}

TraitItem TraitItem::WithWhole(double number) const {
  TraitItem item(*this);
  item.number_ = number + 0.0;  // no negative zero: its text has none
  if (waits_ == 0) item.text_ = Text(Name());
  item.waits_ = 1;
  return item;
}

void TraitItem::MakeText() const {
  text_ = Text::Of(text_.View(), ":", NumberText(number_));
  waits_ = 0;
}

std::string_view TraitItem::Value() const { return FieldAt(View(), 2, ':'); }

bool TraitItem::IsWritten(std::string_view name, std::string_view value) const {
  if (!View().starts_with(name)) return false;
  const std::string_view rest = View().substr(name.size());
  return rest.empty() ? value.empty() : rest.front() == ':' && rest.substr(1) == value;
}

}  // namespace brindlemoor

// The fields of a trait, looked for anew each time.
#include "core/trait_item.h"

#include "core/strings.h"

namespace brindlemoor {

std::string_view TraitItem::Name() const noexcept { return FieldAt(View(), 1, ':'); }

std::string_view TraitItem::Value() const noexcept { return FieldAt(View(), 2, ':'); }

double TraitItem::Number() const { return Value().empty() ? 1 : NumericPrefix(Value()); }

}  // namespace brindlemoor

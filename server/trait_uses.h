// Every place of a card file where a trait is named.
#pragma once

#include <functional>
#include <string_view>

namespace brindlemoor {

class CheckedFile;

/// In place of a trait's name: the line says how the trait behind it is drawn.
inline constexpr std::string_view kTraitGraphic = "TRAITGRAPHIC";

/// Visits the names of traits: of #TRAIT and #TRAITACTION lines and captions, in triggers, scripts,
/// values, deck rules and the marks of messages. Each is a part of a field of the file; begin is
/// the byte of the file's text at which it begins.
void VisitTraitUses(const CheckedFile& file,
                    const std::function<void(std::string_view trait, std::size_t begin)>& visit);

}  // namespace brindlemoor

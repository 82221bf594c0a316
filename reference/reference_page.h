// The reference for authors: one page of every word of card files, made of the engine's own tables.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// The page's file in the program's folder. Help pages link to it.
inline constexpr std::string_view kReferenceFile = "ScriptReference.html";

/// The page: every directive, location, target type, trigger, command, value keyword and mark of
/// messages with what it takes, what it does and an example. Each has its word as an anchor.
std::string ReferencePage();

/// Writes the page into the program's folder when it is missing there or differs. "" or what went
/// wrong.
std::string WriteReferencePage();

}  // namespace brindlemoor

// What a script does, said in a sentence.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// A sentence for authors, put together from the lines that the reference has for the commands:
/// "If the target has UNDEAD: takes 2 from the target's HP." Empty for a script in which no command
/// is known. Values stand as they are written; long texts are cut.
std::string SentenceOfScript(std::string_view script);

/// What a usage line says of a word, behind its bar.
std::string_view MeaningOf(std::string_view usage);

}  // namespace brindlemoor

// The placeholders of messages, such as "$MYNAME".
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/records.h"

namespace brindlemoor {

struct MessageCards {
  Card& Source;
  Card& Target;
  std::string_view SourcePicture;
  std::string_view TargetPicture;
};

using Replacement = std::optional<std::string>;

struct Placeholder {
  std::string_view Mark;
  std::string_view Meaning;                        ///< one line for authors
  Replacement (*Make)(const MessageCards& cards);  ///< nothing: the mark stays in the text
  bool NamesOthers = false;                        ///< it shows a card that is none of the two
};

/// In the order of replacing, since one replacement can bring in a later mark.
std::span<const Placeholder> Placeholders();

/// ReplaceAll, unless the text is too long or would become so: then it stays as it is.
bool Fill(std::string& text, std::string_view search, std::string_view replacement);

}  // namespace brindlemoor

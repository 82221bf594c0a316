// Filling a message in: custom strings, "#...#" fields and placeholders, in their fixed order.
#include "core/state.h"
#include "script/messages.h"
#include "script/placeholders.h"

namespace brindlemoor {
namespace {

constexpr int kCustomStringPasses = 2;

void ExpandCustomStrings(std::string& text) {
  for (int pass = 1; pass <= kCustomStringPasses; ++pass) {
    SpendWorkOnSearch(static_cast<std::size_t>(State().CustomStrings.UpperBound()));
    for (const CustomStringRec& entry : State().CustomStrings) {
      if (WorkIsSpent()) return;
      SpendWorkOnText(text.size());
      if (entry.Key.empty() || text.find(entry.Key) == std::string::npos) continue;
      Fill(text, entry.Key, CustomStringPick(entry.Key));
    }
  }
}

}  // namespace

void ExpandMessage(Card& source, Card& target, std::string& text, std::string_view sourcePicture,
                   std::string_view targetPicture) {
  const WorkAccount account;
  SpendWorkOnText(text.size());
  ExpandCustomStrings(text);
  if (text.find_first_of("$#&") == std::string::npos) return;
  ExpandHashFields(source, target, text);
  const MessageCards cards{source, target, sourcePicture, targetPicture};
  for (const Placeholder& row : Placeholders()) {
    if (text.find(row.Mark) == std::string::npos) continue;
    if (const Replacement replacement = row.Make(cards)) Fill(text, row.Mark, *replacement);
  }
}

}  // namespace brindlemoor

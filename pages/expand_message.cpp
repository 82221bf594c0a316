// Filling a message in: custom strings, "#...#" fields and placeholders, in their fixed order.
#include <cstdint>

#include "core/state.h"
#include "pages/key_search.h"
#include "pages/messages.h"
#include "pages/placeholders.h"
#include "pages/unread_texts.h"

namespace brindlemoor {
namespace {

constexpr int kCustomStringPasses = 2;

void ExpandCustomStrings(std::string& text) {
  for (int pass = 1; pass <= kCustomStringPasses; ++pass) {
    SpendWorkOnSearch(static_cast<std::size_t>(State().CustomStrings.UpperBound()));
    KeySearch search(text);
    for (const CustomStringRec& entry : State().CustomStrings) {
      if (WorkIsSpent()) return;
      SpendWorkOnText(text.size());
      if (!search.Finds(entry.Key)) continue;
      Fill(text, entry.Key, CustomStringPick(entry.Key));
      search = KeySearch(text);
    }
  }
}

/// The characters that follow a "$" in a text, as bits 0 to 31 of their codes: what says that a
/// mark is not there says so for sure.
std::uint32_t LettersOfMarks(std::string_view text) {
  std::uint32_t letters = 0;
  for (std::size_t at = text.find('$'); at != std::string_view::npos && at + 1 < text.size();
       at = text.find('$', at + 1)) {
    letters |= 1U << (static_cast<unsigned char>(text[at + 1]) % 32U);
  }
  return letters;
}

void ExpandMarks(const MessageCards& cards, std::string& text) {
  if (text.find_first_of("$#&") == std::string::npos) return;
  ExpandHashFields(cards.Source, cards.Target, text);
  std::uint32_t letters = LettersOfMarks(text);
  for (const Placeholder& row : Placeholders()) {
    const bool mayBe = row.Mark.front() != '$' || (letters >> (row.Mark[1] % 32U) & 1U) != 0;
    if (!mayBe || text.find(row.Mark) == std::string::npos) continue;
    if (const Replacement replacement = row.Make(cards)) {
      Fill(text, row.Mark, *replacement);
      letters = LettersOfMarks(text);
    }
  }
}

}  // namespace

void ExpandMessage(Card& source, Card& target, std::string& text, std::string_view sourcePicture,
                   std::string_view targetPicture) {
  const WorkAccount account;
  SpendWorkOnText(text.size());
  ExpandCustomStrings(text);
  ExpandMarks({source, target, sourcePicture, targetPicture}, text);
}

bool ExpandShownMessage(Card& source, Card& target, std::string& text,
                        std::string_view sourcePicture, std::string_view targetPicture) {
  const WorkAccount account;
  SpendWorkOnText(text.size());
  ExpandCustomStrings(text);
  if (LeavesOutMarks(source, target, text)) return false;
  ExpandMarks({source, target, sourcePicture, targetPicture}, text);
  return true;
}

}  // namespace brindlemoor

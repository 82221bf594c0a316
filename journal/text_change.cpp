// Finding and telling where two texts part.
#include "journal/text_change.h"

#include <algorithm>

#include "journal/journal_text.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kShownBefore = 40;  // bytes
constexpr std::size_t kShownBehind = 60;

bool ContinuesCharacter(std::string_view text, std::size_t place) {
  return place < text.size() && (static_cast<unsigned char>(text[place]) & 0xC0U) == 0x80;
}

/// How many bytes two texts have in common from the front, whole characters.
std::size_t CommonFront(std::string_view a, std::string_view b) {
  const auto [end, other] = std::ranges::mismatch(a, b);
  auto front = static_cast<std::size_t>(end - a.begin());
  while (front > 0 && (ContinuesCharacter(a, front) || ContinuesCharacter(b, front))) --front;
  return front;
}

std::size_t CommonBack(std::string_view a, std::string_view b) {
  const std::size_t most = std::min(a.size(), b.size());
  std::size_t back = 0;
  while (back < most && a[a.size() - back - 1] == b[b.size() - back - 1]) ++back;
  while (back > 0 && ContinuesCharacter(a, a.size() - back)) --back;
  return back;
}

std::string Piece(std::string_view text, std::size_t place) {
  std::size_t begin = place > kShownBefore ? place - kShownBefore : 0;
  while (ContinuesCharacter(text, begin)) ++begin;
  std::size_t end = std::min(place + kShownBehind, text.size());
  while (ContinuesCharacter(text, end)) ++end;
  return Joined(begin > 0 ? "..." : "", JournalField(text.substr(begin, end - begin)),
                end < text.size() ? "..." : "");
}

}  // namespace

TextChange ChangeBetween(std::string_view before, std::string_view after) {
  TextChange change;
  change.Front = CommonFront(before, after);
  change.Back = CommonBack(before.substr(change.Front), after.substr(change.Front));
  change.Middle = after.substr(change.Front, after.size() - change.Front - change.Back);
  return change;
}

std::optional<std::string> Changed(std::string_view before, const TextChange& change) {
  if (change.Front > before.size() || change.Back > before.size() - change.Front) {
    return std::nullopt;
  }
  return Joined(before.substr(0, change.Front), change.Middle,
                before.substr(before.size() - change.Back));
}

std::string TextDifference(std::string_view journal, std::string_view replay) {
  const std::size_t place = CommonFront(journal, replay);
  const auto line = 1 + std::ranges::count(journal.substr(0, place), '\n');
  return Joined("line ", line, ", byte ", place + 1, "\n  journal: ", Piece(journal, place),
                "\n  replay:  ", Piece(replay, place));
}

}  // namespace brindlemoor

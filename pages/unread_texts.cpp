// What may be left out of a match that nobody looks at.
#include "pages/unread_texts.h"

#include <algorithm>

#include "core/cards.h"
#include "core/state.h"
#include "language/values.h"
#include "pages/key_search.h"
#include "pages/messages.h"
#include "pages/placeholders.h"

namespace brindlemoor {
namespace {

// Bounds of what is left out, so that it would have cost less than WorkBudget::kStepsOfText.
constexpr std::size_t kLongestMessage = 4096;
constexpr std::ptrdiff_t kMostMarks = 16;
constexpr std::size_t kLongestPiece = 512;  ///< a name, a colour, a trait

std::ptrdiff_t CountOf(char character, std::string_view text) {
  std::ptrdiff_t count = 0;
  for (std::size_t at = text.find(character); at != std::string_view::npos;
       at = text.find(character, at + 1)) {
    ++count;
  }
  return count;
}

std::ptrdiff_t CountOfMarks(std::string_view text) {
  return CountOf('$', text) + CountOf('#', text) + CountOf('&', text);
}

bool IsShortAndPlain(std::string_view piece) {
  return piece.size() <= kLongestPiece && CountOfMarks(piece) == 0;
}

/// A bonus is worked out whenever the trait is read that it raises, with the dice and the steps
/// that it takes; a plain number takes none.
bool IsWorkedOut(const TraitItem& item) {
  double number = 0;
  return item.IsBonus() && !item.IsWholeNumber() && !IsPlainInteger(item.Value(), number);
}

bool IsReadAsItStands(const Card& card) { return std::ranges::none_of(card.Traits, IsWorkedOut); }

/// True when no trait brings anything in that would be filled in again.
bool HasPlainTraits(const Card& card) {
  return std::ranges::all_of(card.Traits, [](const TraitItem& item) {
    return item.IsWholeNumber() || IsShortAndPlain(item.View());
  });
}

bool HasPlainName(const Card& card) {
  return IsShortAndPlain(card.Name) && card.NameColor.size() <= kLongestPiece;
}

/// A third card is named, which may be called anything.
bool NamesOthers(std::string_view message) {
  if (message.find('$') == std::string_view::npos) return false;
  return std::ranges::any_of(Placeholders(), [message](const Placeholder& row) {
    return row.NamesOthers && message.find(row.Mark) != std::string_view::npos;
  });
}

bool HoldsCustomString(std::string_view text) {
  KeySearch search(text);
  for (const CustomStringRec& entry : State().CustomStrings) {
    if (search.Finds(entry.Key)) return true;
  }
  return false;
}

/// False for a "#" that can't begin the word of a field, whatever is filled in behind it.
bool MayOpenField(std::string_view fromHash) {
  const char next = fromHash.size() > 1 ? fromHash[1] : '#';
  return next == '#' || (next >= 'A' && next <= 'Z');
}

enum class Fields { kNone, kTraits, kOthers };

/// What fields between two "#" the text has. Beside another "#" the value of a trait could make up
/// the word of a new field.
Fields FieldsOf(std::string_view text) {
  int traits = 0;
  int others = 0;
  for (std::size_t opens = text.find('#'); opens != std::string_view::npos;) {
    const std::size_t closes = text.find('#', opens + 1);
    const MessageMark* mark = closes == std::string_view::npos
                                  ? nullptr
                                  : FindFieldMark(text.substr(opens, closes - opens));
    if (mark != nullptr && !mark->ReadsTrait) return Fields::kOthers;
    if (mark != nullptr) {
      ++traits;
    } else if (MayOpenField(text.substr(opens))) {
      ++others;
    }
    opens = mark != nullptr ? text.find('#', closes + 1) : closes;
  }
  if (traits == 0) return Fields::kNone;
  return others == 0 ? Fields::kTraits : Fields::kOthers;
}

/// True when nothing but fields can roll dice for the message, and it is short.
bool IsShortAndSure(std::string_view message) {
  return message.size() <= kLongestMessage && CountOfMarks(message) <= kMostMarks &&
         !NamesOthers(message);
}

bool OnlySays(const Card& source, const Card& target, std::string_view message) {
  if (!IsShortAndSure(message) || !HasPlainName(source) || !HasPlainName(target)) return false;
  const Fields fields = FieldsOf(message);
  if (fields == Fields::kNone) return true;
  return fields == Fields::kTraits && HasPlainTraits(source) && HasPlainTraits(target);
}

}  // namespace

bool LeavesOutMarks(const Card& source, const Card& target, std::string_view message) {
  if (!State().Quiet || !IsReadAsItStands(source) || !IsReadAsItStands(target) ||
      !OnlySays(source, target, message)) {
    return false;
  }
  ++State().Work.LeftOut;
  return true;
}

bool LeavesOutPicture(const Card& card) {
  if (!State().Quiet || card.Picture.size() + card.Thumb.size() > kLongestMessage) return false;
  ++State().Work.LeftOut;
  return true;
}

bool LeavesOutReport() {
  const Session& session = State();
  if (!session.Quiet) return false;
  Fields fields = Fields::kNone;
  for (const TraitGraphic& graphic : session.TraitGraphics) {
    if (!IsShortAndSure(graphic.Label) || HoldsCustomString(graphic.Label)) return false;
    fields = std::max(fields, FieldsOf(graphic.Label));
  }
  if (fields == Fields::kOthers) return false;
  for (const Card& card : session.CardTable) {
    if (IsFree(card)) continue;
    if (!IsReadAsItStands(card) || !HasPlainName(card)) return false;
    if (fields == Fields::kTraits && !HasPlainTraits(card)) return false;
  }
  return true;
}

}  // namespace brindlemoor

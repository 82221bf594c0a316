// Fields of a card and values of the session, a row each.
#include "scenario/scenario_fields.h"

#include <array>
#include <charconv>
#include <concepts>
#include <limits>
#include <type_traits>

#include "core/cards.h"
#include "core/state.h"
#include "script/card_setup.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

template <auto Member>
std::string Read(const Card& card) {
  if constexpr (std::same_as<std::remove_cvref_t<decltype(card.*Member)>, Text>) {
    return (card.*Member).Str();
  } else {
    return Joined(int{card.*Member});
  }
}

template <auto Member>
bool Write(Card& card, const std::string& text) {
  using Field = std::remove_cvref_t<decltype(card.*Member)>;
  if constexpr (std::same_as<Field, Text>) {
    card.*Member = text;
    return true;
  } else {
    const auto [end, failure] =
        std::from_chars(text.data(), text.data() + text.size(), card.*Member);
    return failure == std::errc() && end == text.data() + text.size();
  }
}

bool WriteName(Card& card, const std::string& text) {
  card.Name = text;
  return !text.empty();  // a card without a name is none
}

bool WriteOwner(Card& card, const std::string& text) {
  Card read;
  if (!Write<&Card::Owner>(read, text)) return false;
  SetOwner(card, 1);  // as a file is read: a card of owner 3 keeps the bit of side 1
  SetOwner(card, read.Owner);
  return true;
}

template <auto Member>
double Value() {
  return static_cast<double>(State().*Member);
}
template <auto Member>
void SetValue(double value) {
  using Field = std::remove_cvref_t<decltype(State().*Member)>;
  State().*Member = static_cast<Field>(value);
}

void SetRunDepth(double value) { State().RunDepth = static_cast<int>(value); }

constexpr double kByte = 255;
constexpr double kSlot = 32767;
constexpr double kLong = std::numeric_limits<std::int32_t>::max();
constexpr double kExact = 9007199254740992.0;  // above, not every whole number is a double

// clang-format off
constexpr std::array<CardFieldRow, 16> kCardFields = {{
    {"name", Read<&Card::Name>, WriteName, "what stands on it"},
    {"owner", Read<&Card::Owner>, WriteOwner, "1 the player, 2 the computer, 0 or 3 neither"},
    {"gid", Read<&Card::GlobalID>, nullptr, "its GlobalID"},
    {"slot", Read<&Card::Slot>, nullptr, "its place in the table, counted from 1"},
    {"inplay", Read<&Card::InPlay>, Write<&Card::InPlay>, "1 once it has entered play"},
    {"picture", Read<&Card::Picture>, Write<&Card::Picture>, "file of the large picture"},
    {"thumb", Read<&Card::Thumb>, Write<&Card::Thumb>, "file of the thumbnail"},
    {"color", Read<&Card::NameColor>, Write<&Card::NameColor>, "#RRGGBB of its name"},
    {"description", Read<&Card::Description>, Write<&Card::Description>, "its text"},
    {"entry", Read<&Card::EntryScripts>, Write<&Card::EntryScripts>, "permanent modifications, \"$|$\" behind each"},
    {"activates", Read<&Card::ActivateOn>, Write<&Card::ActivateOn>, "the trigger that brings it into play"},
    {"rarity", Read<&Card::Rarity>, Write<&Card::Rarity>, "0 to 255"},
    {"id", Read<&Card::UniqueID>, Write<&Card::UniqueID>, "its unique ID"},
    {"source", Read<&Card::SourceFile>, Write<&Card::SourceFile>, "the file of its definition"},
    {"aim", Read<&Card::TargetSlot>, Write<&Card::TargetSlot>, "slot of the target chosen while it was queued"},
    {"storedaim", Read<&Card::StoredTarget>, Write<&Card::StoredTarget>, "the second copy of that choice"},
}};

constexpr std::array<SessionValueRow, 18> kSessionValues = {{
    {"seed", [] { return double(State().Random.State); }, [](double value) { State().Random.State = static_cast<std::uint64_t>(value); }, 0, kExact, "state of the random source"},
    {"tokens", [] { return double(State().Players[1].Tokens); }, [](double value) { State().Players[1].Tokens = static_cast<std::int32_t>(value); }, -kLong - 1, kLong, "the player's tokens"},
    {"lastvalue", Value<&Session::LastValue>, SetValue<&Session::LastValue>, -kExact, kExact, "what $AMT and LASTVAL read"},
    {"lastcard", Value<&Session::LastEntered>, SetValue<&Session::LastEntered>, 0, kSlot, "slot of the card that entered last"},
    {"roll", Value<&Session::SharedChanceRoll>, SetValue<&Session::SharedChanceRoll>, 0, 100, "the roll that ONECHANCE shares, 0 for none"},
    {"echoed", Value<&Session::EchoedOnce>, SetValue<&Session::EchoedOnce>, 0, 1, "1 once an ECHOONCE has spoken"},
    {"cancel", Value<&Session::CancelState>, SetValue<&Session::CancelState>, 0, 2, "1 after a reaction cancelled"},
    {"redirect", Value<&Session::RedirectTarget>, SetValue<&Session::RedirectTarget>, 0, kSlot, "slot that a redirect chose"},
    {"report", Value<&Session::HpReport>, SetValue<&Session::HpReport>, 0, 2, "1 a sentence on the target's HP is due, 2 on the source's"},
    {"depth", Value<&Session::RunDepth>, SetRunDepth, 0, 100, "runs in progress"},
    {"gameover", Value<&Session::GameOver>, SetValue<&Session::GameOver>, 0, 1, "1 when the game has ended"},
    {"debug", Value<&Session::DebugMode>, SetValue<&Session::DebugMode>, 0, 1, "1 in debug mode"},
    {"fullsize", Value<&Session::FullSizeImages>, SetValue<&Session::FullSizeImages>, 0, 1, "1 when pictures are shown in full size"},
    {"deck", Value<&Session::CurrentDeck>, SetValue<&Session::CurrentDeck>, 1, kDecks, "the deck in use"},
    {"playercard1", [] { return double(State().Players[1].PlayerCard); }, [](double value) { State().Players[1].PlayerCard = static_cast<std::int32_t>(value); }, 0, kSlot, "slot of the player's player card"},
    {"playercard2", [] { return double(State().Players[2].PlayerCard); }, [](double value) { State().Players[2].PlayerCard = static_cast<std::int32_t>(value); }, 0, kSlot, "slot of the computer's player card"},
    {"selected", Value<&Session::SelectedSlot>, SetValue<&Session::SelectedSlot>, -1, kSlot, "slot of the card clicked last"},
    {"sale", Value<&Session::SaleMode>, SetValue<&Session::SaleMode>, 0, kByte, "1 while cards are sold"},
}};
// clang-format on

template <class Rows>
auto Find(const Rows& rows, std::string_view word) -> decltype(rows.data()) {
  for (const auto& row : rows) {
    if (row.Word == word) return &row;
  }
  return nullptr;
}

}  // namespace

std::span<const CardFieldRow> CardFieldRows() { return kCardFields; }
const CardFieldRow* FindCardField(std::string_view word) { return Find(kCardFields, word); }
std::span<const SessionValueRow> SessionValueRows() { return kSessionValues; }
const SessionValueRow* FindSessionValue(std::string_view word) {
  return Find(kSessionValues, word);
}

}  // namespace brindlemoor

// What messages are filled in with: custom strings, "#...#" fields and placeholders.
#include "pages/messages.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "core/cards.h"
#include "core/limits.h"
#include "core/paths.h"
#include "core/replacing.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/traits.h"
#include "language/values.h"
#include "pages/card_pages.h"
#include "pages/placeholders.h"

namespace brindlemoor {
namespace {

std::size_t Occurrences(std::string_view text, std::string_view search) {
  std::size_t count = 0;
  for (std::size_t at = text.find(search); at != std::string_view::npos;
       at = text.find(search, at + search.size())) {
    ++count;
  }
  return count;
}

Card* CardOfIdentity(double globalId) {
  Pile& table = State().CardTable;
  const int slot = FindSlot(globalId);
  return table.Holds(slot) && !IsFree(table[slot]) ? &table[slot] : nullptr;
}

// Custom strings.

const CustomStringRec* FindCustomString(std::string_view key) {
  for (const CustomStringRec& entry : State().CustomStrings) {
    if (!entry.Key.empty() && entry.Key == key) return &entry;
  }
  return nullptr;
}

// Fields between two "#".

/// The caption with the two cards' names exchanged: it was written from the other card's side.
std::string ExchangedCaption(Card& card, std::string_view trait) {
  std::string caption = TraitCaptionText(card, trait);
  Fill(caption, "$MYNAME", "$SWAPME");
  Fill(caption, "$TARGETNAME", "$MYNAME");
  Fill(caption, "$SWAPME", "$TARGETNAME");
  return caption;
}

struct HashKeyword {
  std::string_view Word;
  std::string_view Meaning;  ///< one line for authors
  std::string (*Make)(Card& source, Card& target, std::string_view argument);
  bool TakesValue = false;  ///< the argument is a value expression
  bool ReadsTrait = false;  ///< it is a trait of one of the two cards
};

constexpr std::array kHashKeywords{
    HashKeyword{"#MYTRAIT", "a trait of the acting card",
                [](Card& source, Card&, std::string_view argument) {
                  return GetTrait(source, argument).Str();
                },
                false, true},
    HashKeyword{"#TRAIT", "a trait of the target",
                [](Card&, Card& target, std::string_view argument) {
                  return GetTrait(target, argument).Str();
                },
                false, true},
    HashKeyword{"#CARD", "the name of the card with the Global ID that the expression gives",
                [](Card& source, Card& target, std::string_view argument) {
                  Card* card = CardOfIdentity(EvalNumber(source, target, argument));
                  return card != nullptr ? ColoredName(*card) : std::string("(Dead Card)");
                },
                true},
    HashKeyword{"#TRANSVAL", "what a value expression comes to",
                [](Card& source, Card& target, std::string_view argument) {
                  return EvalValue(source, target, argument).Str();
                },
                true},
    HashKeyword{"#IMG", "a picture of the game's folders",
                [](Card&, Card&, std::string_view argument) {
                  return Joined("<img src=\"", ResolvePath(argument, 1), "\" align=default></img>");
                }},
    HashKeyword{"#MYTRAITACTIONDESC",
                "what the acting card says of a trait, with the two names exchanged",
                [](Card& source, Card&, std::string_view argument) {
                  return ExchangedCaption(source, argument);
                }},
    HashKeyword{"#TARGETTRAITACTIONDESC",
                "what the target says of a trait, with the two names exchanged",
                [](Card&, Card& target, std::string_view argument) {
                  return ExchangedCaption(target, argument);
                }},
    HashKeyword{"#MYTRAITACTIONDESCREVERSE", "what the acting card says of a trait",
                [](Card& source, Card&, std::string_view argument) {
                  return TraitCaptionText(source, argument);
                }},
    HashKeyword{"#TARGETTRAITACTIONDESCREVERSE", "what the target says of a trait",
                [](Card&, Card& target, std::string_view argument) {
                  return TraitCaptionText(target, argument);
                }},
};

const HashKeyword* FindHashKeyword(std::string_view word) {
  const auto* row = std::ranges::find(kHashKeywords, word, &HashKeyword::Word);
  return row != kHashKeywords.end() ? row : nullptr;
}

std::string_view WordOf(std::string_view field) { return field.substr(0, field.find('/')); }

std::string_view ArgumentOf(std::string_view field) {
  return field.substr(std::min(field.size(), WordOf(field).size() + 1));
}

/// What filling the fields of one message has cost; fields can bring in others without end.
struct ExpansionState {
  int Expansions = 0;
  std::size_t Searched = 0;        ///< bytes
  std::size_t Nested = 0;          ///< bytes that replacements with a "#" of their own added
  std::vector<std::string> Spent;  ///< fields that hold themselves: filled in once

  bool Bearable() const {
    return Expansions < limits::kExpansions && Searched < limits::kExpansionBytes &&
           Nested < limits::kNestedTextBytes;
  }
  bool HoldsItself(std::string_view field) const {
    return std::ranges::find(Spent, field) != Spent.end();
  }
};

/// Fills in a field wherever it stands in the text; false when the text would become too long.
bool FillField(std::string& text, const std::string& field, std::string_view replacement,
               ExpansionState& state) {
  const std::string marked = Joined(field, '#');
  const std::size_t sizeBefore = text.size();
  if (!Fill(text, marked, replacement)) return false;
  ++state.Expansions;
  state.Searched += sizeBefore;
  SpendWorkOnText(sizeBefore);
  if (replacement.find('#') != std::string_view::npos && text.size() > sizeBefore) {
    state.Nested += text.size() - sizeBefore;
  }
  if (replacement.find(marked) != std::string_view::npos) {
    limits::ReportLimit("A field of a message holds itself and was filled in once.");
    state.Spent.push_back(field);
  }
  return true;
}

// Placeholders.

Replacement NameOf(Card* card) {
  return card != nullptr ? Replacement(ColoredName(*card)) : std::nullopt;
}

Replacement TargetOwnerName(const MessageCards& cards) {
  const int side = cards.Source.Owner;
  if ((side != 1 && side != 2) || State().Players[side].PlayerCard == 0) return std::nullopt;
  return NameOf(OwnerCard(cards.Target));
}

std::string LastAmount() { return NumberText(std::fabs(State().LastValue)); }

// In the order of replacing, since one replacement can bring in a later mark.
constexpr std::array kPlaceholders{
    Placeholder{"$MYIMG", "the acting card's picture, in ECHO and its kin",
                [](const MessageCards& m) { return Replacement(m.SourcePicture); }},
    Placeholder{"$GIDCARD", "the name of the card whose Global ID was the last amount",
                [](const MessageCards&) { return NameOf(CardOfIdentity(State().LastValue)); },
                true},
    Placeholder{"$MYOWNER", "the name of the acting card's player card",
                [](const MessageCards& m) { return NameOf(OwnerCard(m.Source)); }, true},
    Placeholder{"$OWNER", "the name of the target's player card",
                [](const MessageCards& m) { return TargetOwnerName(m); }, true},
    Placeholder{"$TARGETIMG", "the target's picture, in ECHO and its kin",
                [](const MessageCards& m) { return Replacement(m.TargetPicture); }},
    Placeholder{"$AMT", "the amount of the last change, in yellow and without its sign",
                [](const MessageCards&) {
                  return Replacement(Joined("<font color=\"#FFFF00\">", LastAmount(), "</font>"));
                }},
    Placeholder{"$TARGETNAME", "the target's name",
                [](const MessageCards& m) { return NameOf(&m.Target); }},
    Placeholder{"$TARGETCARD", "the same as $TARGETNAME",
                [](const MessageCards& m) { return NameOf(&m.Target); }},
    Placeholder{"$MYNAME", "the acting card's name",
                [](const MessageCards& m) { return NameOf(&m.Source); }},
    Placeholder{"$SRCCARD", "the same as $MYNAME",
                [](const MessageCards& m) { return NameOf(&m.Source); }},
    Placeholder{"$TRAIT", "nothing: the mark is taken out",
                [](const MessageCards&) { return Replacement(""); }},
    Placeholder{"$EFFSTR", "a pair of brackets",
                [](const MessageCards&) { return Replacement("()"); }},
    Placeholder{"$LASTAMT", "the amount of the last change, plain",
                [](const MessageCards&) { return Replacement(LastAmount()); }},
    Placeholder{"$LASTVAL", "the same as $LASTAMT",
                [](const MessageCards&) { return Replacement(LastAmount()); }},
    Placeholder{"#TOKENS#", "the player's tokens",
                [](const MessageCards&) { return Replacement(Joined(State().Players[1].Tokens)); }},
    Placeholder{"&col", "a colon, which would end the message",
                [](const MessageCards&) { return Replacement(":"); }},
};

constexpr auto kMarks = [] {
  std::array<MessageMark, kPlaceholders.size() + kHashKeywords.size()> marks{};
  std::size_t count = 0;
  for (const Placeholder& row : kPlaceholders) marks[count++] = {row.Mark, row.Meaning};
  for (const HashKeyword& row : kHashKeywords) {
    marks[count++] = {row.Word, row.Meaning, true, row.TakesValue, row.ReadsTrait};
  }
  return marks;
}();

}  // namespace

std::span<const MessageMark> MessageMarks() { return kMarks; }

const MessageMark* FindFieldMark(std::string_view field) {
  const auto marks = MessageMarks().subspan(kPlaceholders.size());
  const auto mark = std::ranges::find(marks, WordOf(field), &MessageMark::Mark);
  return mark != marks.end() ? &*mark : nullptr;
}

std::span<const Placeholder> Placeholders() { return kPlaceholders; }

bool Fill(std::string& text, std::string_view search, std::string_view replacement) {
  std::size_t grown = text.size();
  if (replacement.size() > search.size()) {
    grown += Occurrences(text, search) * (replacement.size() - search.size());
  }
  if (grown > limits::kTextBytes) {
    limits::ReportLimit("A message grew too long and was not filled in further.");
    return false;
  }
  ReplaceAll(text, search, replacement);
  return true;
}

void ExpandHashFields(Card& source, Card& target, std::string& text) {
  ExpansionState state;
  std::size_t position = 0;
  for (;;) {
    const std::size_t opens = text.find('#', position);
    if (opens == std::string::npos) return;
    const std::size_t closes = text.find('#', opens + 1);
    if (closes == std::string::npos) return;
    const std::string field = text.substr(opens, closes - opens);
    const HashKeyword* keyword = FindHashKeyword(WordOf(field));
    if (keyword == nullptr || state.HoldsItself(field)) {
      position = closes;
      continue;
    }
    if (!state.Bearable()) {
      limits::ReportLimit("A message had too many fields and was not filled in further.");
      return;
    }
    const std::string replacement = keyword->Make(source, target, ArgumentOf(field));
    if (!FillField(text, field, replacement, state)) return;
    position = 0;  // the replacement can hold fields of its own
  }
}

std::string CustomStringPick(std::string_view key) {
  const CustomStringRec* entry = FindCustomString(key);
  if (entry == nullptr) return "(STRING NOT FOUND)";
  const int count = entry->Values.UpperBound();
  return count > 0 ? entry->Values[RollDie(count)].Str() : std::string();
}

std::string TraitCaptionText(Card& card, std::string_view name) {
  const int slot = TraitSlot(card, name);
  if (!card.TraitCaptions.Holds(slot)) return "";
  std::string caption = card.TraitCaptions[slot].Str();
  if (caption == "OVERRIDE") card.TraitCaptions.Edit(slot) = Text();
  return caption;
}

}  // namespace brindlemoor

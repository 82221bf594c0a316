// Putting together what is known of a word.
#include "server/hover.h"

#include <algorithm>
#include <optional>

#include "core/paths.h"
#include "core/strings.h"
#include "data/directives.h"
#include "language/program_traits.h"
#include "language/target_types.h"
#include "language/values.h"
#include "reference/anchors.h"
#include "reference/word_help.h"
#include "script/command_table.h"
#include "server/caret_word.h"
#include "server/game_texts.h"
#include "text/fold.h"
#include "text/quoting.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

using Blocks = std::vector<HoverBlock>;

Blocks BlocksOf(const WordHelp& help) {
  Blocks blocks = {{help.Form, true}, {std::string(help.Meaning) + "."}};
  if (!help.Example.empty() && help.Example != help.Form) blocks.push_back({help.Example, true});
  for (const std::string& note : help.Notes) blocks.push_back({note});
  return blocks;
}

/// Of the row with a word, by the member that holds it.
template <class Rows, class Member>
Blocks BlocksOfRow(const Rows& rows, std::string_view word, Member member) {
  const auto row = std::ranges::find(rows, word, member);
  return row == rows.end() ? Blocks() : BlocksOf(HelpOf(*row));
}

Blocks OfDirective(std::string_view word) {
  Blocks blocks = BlocksOfRow(kDirectiveRows, word, &DirectiveRow::Word);
  return blocks.empty() ? BlocksOfRow(kForeignDirectiveRows, word, &ForeignDirectiveRow::Word)
                        : blocks;
}

Blocks OfValue(std::string_view field) {
  const std::string anchor = ValueAnchor(field);
  if (anchor.empty()) return {};
  const auto words = ValueKeywords();
  const auto row = std::ranges::find_if(
      words, [&anchor](const ValueKeyword& each) { return ValueAnchor(each.Word) == anchor; });
  return row == words.end() ? Blocks() : BlocksOf(HelpOf(*row));
}

/// "3 cards have it: Cricket, Firefly, Moth."
std::string WhoHas(std::string_view trait, const GameTexts& game) {
  constexpr int kNamed = 6;
  std::string names;
  int count = 0;
  for (const CardLine& card : game.Cards()) {
    const bool has = std::ranges::any_of(card.Traits, [trait](std::string_view each) {
      return FoldEquals(FieldAt(each, 1, ':'), trait);
    });
    if (!has) continue;
    if (++count <= kNamed) names += Joined(count == 1 ? "" : ", ", card.Name);
  }
  if (count == 0) return "No card begins with it.";
  return Joined(CountText(count, "card"), count == 1 ? " has it: " : " have it: ", names,
                count > kNamed ? ", \u2026" : "", ".");
}

Blocks OfTrait(const std::string& trait, const GameTexts& game) {
  if (trait.empty()) return {};
  const ProgramTrait* row = FindProgramTrait(trait);
  Blocks blocks = row != nullptr ? BlocksOf(HelpOf(*row)) : Blocks{{trait, true}};
  blocks.push_back({WhoHas(trait, game)});
  return blocks;
}

Blocks OfCard(std::string_view name, const GameTexts& game) {
  const std::vector<CardLine> cards = game.CardsCalled(name);
  if (cards.empty()) return {};
  const CardLine& card = cards.front();
  Blocks blocks = {{Joined(card.Name, ", ", FileNameOf(card.File->Path()), " line ",
                           card.Directive->Head.Line)}};
  const std::string description = WithoutTags(card.Description);
  if (!description.empty()) blocks.push_back({description});
  std::string traits;
  for (const std::string_view trait : card.Traits) {
    traits += Joined(traits.empty() ? "" : "\n", "#TRAIT, ", trait);
  }
  if (!traits.empty()) blocks.push_back({traits, true});
  return blocks;
}

Blocks BlocksFor(const CaretWord& word, const GameTexts& game) {
  switch (word.Kind) {
    case CaretWordKind::kDirective:
      return OfDirective(word.Text);
    case CaretWordKind::kLocation:
      return BlocksOfRow(kLocationRows, word.Text, &LocationRow::Word);
    case CaretWordKind::kTarget:
      return BlocksOfRow(kTargetTypeRows, word.Text, &TargetTypeRow::Word);
    case CaretWordKind::kTrigger:
      return BlocksOfRow(kTriggerRows, word.Text, &TriggerRow::Stem);
    case CaretWordKind::kTrait:
      return OfTrait(word.Text, game);
    case CaretWordKind::kCard:
      return OfCard(word.Text, game);
    case CaretWordKind::kValue:
      if (Blocks blocks = OfValue(word.Text); !blocks.empty()) return blocks;
      break;
    default:
      break;
  }
  return word.Row != nullptr ? BlocksOf(HelpOf(*word.Row)) : Blocks();
}

/// A text in which Markdown would see nothing but code between "`".
std::string Escaped(std::string_view text) {
  std::string escaped;
  bool inCode = false;
  for (const char character : text) {
    inCode = inCode != (character == '`');
    const bool isMark = std::string_view("\\*_{}[]<>#+-.!|~&").find(character) != text.npos;
    if (isMark && !inCode) escaped += '\\';
    escaped += character;
  }
  return escaped;
}

}  // namespace

HoverText HoverAt(std::string_view text, std::size_t caret, const GameTexts& game) {
  const CaretWord word = WordAtCaret(text, caret);
  return {word.Offset, word.Text.size(), BlocksFor(word, game)};
}

std::string MarkdownOf(const std::vector<HoverBlock>& blocks) {
  constexpr std::string_view kFence = "````";
  std::string markdown;
  for (const HoverBlock& block : blocks) {
    if (!markdown.empty()) markdown += "\n\n";
    markdown += block.IsCode ? Joined(kFence, "\n", block.Text, "\n", kFence) : Escaped(block.Text);
  }
  return markdown;
}

std::string PlainTextOf(const std::vector<HoverBlock>& blocks) {
  std::string plain;
  for (const HoverBlock& block : blocks) {
    plain += Joined(plain.empty() ? "" : "\n\n", block.Text);
  }
  return plain;
}

}  // namespace brindlemoor

// CardReader: the walk through a file, its numbers and its piles.
#include "data/card_reading.h"

#include <cmath>

#include "core/cards.h"
#include "core/limits.h"
#include "core/state.h"
#include "core/strings.h"
#include "script/card_setup.h"

namespace brindlemoor {

CardReader::CardReader(std::string_view file, std::string bytes, PlayerState& player,
                       ReadOptions options)
    : file_(file), stream_(std::move(bytes)), player_(player), options_(std::move(options)) {
  State().GiverPlaces.clear();
  counts_[kDeckPile] = player.Deck.UpperBound();
  counts_[kTablePile] = State().CardTable.UpperBound();
  counts_[kTraitActionPile] = State().TraitActions.UpperBound();
  counts_[kSideboardPile] = State().Sideboard.UpperBound();
}

void CardReader::Read() {
  while (stream_.Read(word_)) {
    line_ = stream_.Line();
    if (EndsForWork()) return;
    if (stream_.Unclosed()) {
      Problem("a double quote is never closed; the rest of the file is not read");
      return;
    }
    if (!word_.starts_with('#')) continue;
    const DirectiveRow* row = FindDirective(word_);
    if (row == nullptr) {
      NoteUnknownWord();
    } else {
      const std::size_t offset = stream_.Offset();
      if (!ReadFields(*row)) return;
      wordOffset_ = offset;
      ReadDirective(*row);
    }
  }
  EndsForWork();  // the last directive may have been ended
}

/// What a line would speak of now.
DirectivePlace CardReader::LastCardOf(PileCode pile) {
  const bool isCounted = pile != kNoPile && pile != kRulesPile && pile != kCostPile &&
                         pile != kPlayerCardPile && (pile != kPlayerDeckPile || deckNumber_ != 0);
  DirectivePlace place;
  place.Pile = pile;
  place.Position = isCounted ? LastPosition(pile) : 0;
  return place;
}

void CardReader::ReadDirective(const DirectiveRow& row) {
  if (options_.Places == nullptr) {
    (this->*row.Handler)(row);
    return;
  }
  // A reference stores its card and leaves the pile that later lines speak of.
  const bool isReference = row.Word.starts_with("#REF");
  const DirectivePlace before = LastCardOf(isReference ? row.Pile : pile_);
  const std::size_t end = stream_.Position();
  (this->*row.Handler)(row);
  DirectivePlace place = LastCardOf(isReference ? row.Pile : pile_);
  // A card at no location leaves the one before it current.
  place.MakesCard = place.Pile != before.Pile || place.Position != before.Position;
  place.Row = &row;
  const bool isQuoted = wordOffset_ > 0 && stream_.Text()[wordOffset_ - 1] == '"';
  place.Begin = isQuoted ? wordOffset_ - 1 : wordOffset_;
  place.End = end;
  options_.Places->push_back(place);
}

/// Counts what was read of the text; true when nothing more can be.
bool CardReader::EndsForWork() {
  WorkBudget& work = State().Work;
  work.SpendOnFields(stream_.Position(), counted_);
  if (!work.StopsFile(file_)) return false;
  Problem("the rest of the file is not read: reading took too many steps");
  cutOff_ = true;
  return true;
}

bool CardReader::ReadFields(const DirectiveRow& row) {
  for (int i = 0; i < row.Fields; ++i) {
    std::string& field = fields_[static_cast<std::size_t>(i)];
    if (!stream_.Read(field)) {
      Problem(Joined("the file ends in the middle of ", row.Word, ", behind ", i, " of ",
                     row.Fields, " fields"));
      return false;
    }
    if (stream_.Unclosed()) {
      Problem(Joined("a double quote in ", row.Word, " is never closed"));
      return false;
    }
    const bool location = row.Fields == 8 && i == 0;
    if (!location && field.starts_with('#') && FindDirective(field) != nullptr) {
      Problem(Joined("\"", field, "\" stands where field ", i + 1, " of ", row.Word,
                     " belongs; is a field missing?"));
    }
  }
  return true;
}

void CardReader::NoteUnknownWord() {
  const std::string problem = ProblemOfWord(word_);
  if (!problem.empty()) Problem(problem);
}

void CardReader::Problem(std::string_view message) const { AddProblem(file_, line_, message); }

Text CardReader::SharedField(int n) const { return InternText(Field(n)); }

bool CardReader::ReadDeckNumber(std::string_view field) {
  const double number = std::nearbyint(NumericPrefix(field));
  if (!(number >= 1 && number <= State().Decks.UpperBound())) {
    Problem(Joined("deck number ", field, " is not 1, 2 or 3"));
    return false;
  }
  deckNumber_ = static_cast<int>(number);
  return true;
}

/// A number out of its range is a problem and reads as 0.
int CardReader::ReadWholeNumber(std::string_view field, std::string_view what, int smallest,
                                int largest) {
  const double number = std::nearbyint(NumericPrefix(field));
  if (number >= smallest && number <= largest) return static_cast<int>(number);
  Problem(Joined(what, " ", field, " is not between ", smallest, " and ", largest, "; 0 is taken"));
  return 0;
}

Pile& CardReader::CardsOf(PileCode pile) {
  Session& session = State();
  switch (pile) {
    case kTablePile:
      return session.CardTable;
    case kTraitActionPile:
      return session.TraitActions;
    case kSideboardPile:
      return session.Sideboard;
    case kCollectionPile:
      return session.Collection;
    case kPlayerDeckPile:
      return session.Decks[deckNumber_].Cards;
    default:
      return player_.Deck;
  }
}

/// A deck grows by one card at a time; the other piles follow the counts of this read.
int CardReader::LastPosition(PileCode pile) {
  return pile == kPlayerDeckPile ? CardsOf(pile).UpperBound()
                                 : counts_[static_cast<std::size_t>(pile)];
}

/// The position of a new element of a pile, 0 when the pile is full.
int CardReader::Grow(PileCode pile) {
  const int position = LastPosition(pile) + 1;
  const int bound = pile == kTablePile ? limits::kTableCards : limits::kPileCards;
  if (position > bound) {
    Problem(Joined("a card is left out: the pile holds ", bound, " cards already"));
    return 0;
  }
  counts_[static_cast<std::size_t>(pile)] = position;
  SpendWork(1);
  return position;
}

/// A fresh element at the end of a pile, nullptr when the pile is full.
Card* CardReader::NewCard(PileCode pile) {
  const int position = Grow(pile);
  if (position == 0) return nullptr;
  if (pile == kTemplatePile) {
    Table<Template>& templates = State().Templates;
    templates.Resize(position);
    templates[position] = Template{};
    return &templates[position].Card;
  }
  Pile& cards = CardsOf(pile);
  cards.Resize(position);
  cards[position] = Card{};
  return &cards[position];
}

Card* CardReader::NewPreparedCard(PileCode pile, bool neutral) {
  Card* card = NewCard(pile);
  pile_ = card == nullptr ? kNoPile : pile;
  if (card == nullptr) return nullptr;
  InitCard(*card, 1, 0);
  SetOwner(*card, neutral ? 0 : player_.PlayerNo);
  return card;
}

void CardReader::FillShortCard(Card& card, int firstField) const {
  card.Name = Field(firstField);
  card.Picture = SharedField(firstField + 1);
  card.Thumb = SharedField(firstField + 2);
  card.NameColor = SharedField(firstField + 3);
  card.AuxText = SharedField(firstField + 4);
  card.Description = SharedField(firstField + 5);
}

/// The card that a line speaks of. nullptr when there is none, which is a problem unless the card
/// itself was left out already.
Card* CardReader::CurrentCard(const DirectiveRow& row) {
  Session& session = State();
  switch (pile_) {
    case kNoPile:
      return nullptr;
    case kRulesPile:
      return &session.RulesCard;
    case kCostPile:
      if (session.CostCard.Initialised == 0) InitCard(session.CostCard, 1, 0);
      return &session.CostCard;
    case kPlayerCardPile:
      if (session.CardTable.Holds(player_.PlayerCard))
        return &session.CardTable[player_.PlayerCard];
      break;
    case kTemplatePile:
      if (session.Templates.Holds(LastPosition(pile_))) {
        return &session.Templates[LastPosition(pile_)].Card;
      }
      break;
    default: {
      Pile& cards = CardsOf(pile_);
      if (cards.Holds(LastPosition(pile_))) return &cards[LastPosition(pile_)];
    }
  }
  Problem(Joined("there is no card for ", row.Word));
  return nullptr;
}

}  // namespace brindlemoor

// CardReader: the read of one card data file, from its first field to its last.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/records.h"
#include "data/directives.h"
#include "data/field_stream.h"

namespace brindlemoor {

/// How a file is read; see ReadCards.
struct ReadOptions {
  bool NoDuplicates = false;
  std::string ForcedLocation;
  DirectivePlaces* Places = nullptr;  ///< gets those of the file itself, not of files it includes
  bool FollowsIncludes = true;
};

/// The state of one read and the handlers of the directives. A nested read has a reader of its own;
/// the counts of the outer one do not follow it.
class CardReader {
 public:
  /// file is the name that problems are reported with.
  CardReader(std::string_view file, std::string bytes, PlayerState& player, ReadOptions options);
  void Read();
  /// True when there was no work left for the rest of the file.
  bool CutOff() const { return cutOff_; }

  // The handlers, which kDirectiveRows names. The fields have been read.
  void Include(const DirectiveRow& row);
  void StarterDeck(const DirectiveRow& row);
  void GameFile(const DirectiveRow& row);
  void CustomString(const DirectiveRow& row);
  void FullCard(const DirectiveRow& row);
  void ShortCard(const DirectiveRow& row);
  void CardInPlayerDeck(const DirectiveRow& row);
  void Reference(const DirectiveRow& row);
  void ReferenceInPlayerDeck(const DirectiveRow& row);
  void DeckRules(const DirectiveRow& row);
  void TraitAction(const DirectiveRow& row);
  void Tokens(const DirectiveRow& row);
  void NameOfDeck(const DirectiveRow& row);
  void TemplateData(const DirectiveRow& row);
  void Nothing(const DirectiveRow& row);
  void BeginRulesCard(const DirectiveRow& row);
  void BeginCostCard(const DirectiveRow& row);
  void Trait(const DirectiveRow& row);
  void Effect(const DirectiveRow& row);
  void ExtraData(const DirectiveRow& row);
  void TraitActionDesc(const DirectiveRow& row);
  void Duplicate(const DirectiveRow& row);

 private:
  bool EndsForWork();
  void ReadDirective(const DirectiveRow& row);
  DirectivePlace LastCardOf(PileCode pile);
  bool ReadFields(const DirectiveRow& row);
  void NoteUnknownWord();
  void Problem(std::string_view message) const;

  std::string_view Field(int n) const { return fields_[static_cast<std::size_t>(n)]; }
  Text SharedField(int n) const;
  bool ReadDeckNumber(std::string_view field);
  int ReadWholeNumber(std::string_view field, std::string_view what, int smallest, int largest);

  Pile& CardsOf(PileCode pile);
  int LastPosition(PileCode pile);
  int Grow(PileCode pile);
  Card* NewCard(PileCode pile);
  Card* NewPreparedCard(PileCode pile, bool neutral);
  void FillShortCard(Card& card, int firstField) const;
  Card* CurrentCard(const DirectiveRow& row);

  const LocationRow* ReadLocation();
  void StoreCard(const LocationRow& location, Card record);
  void StoreReference(PileCode pile, std::string_view name, std::string_view file);
  bool MayInclude(std::string_view file, std::string_view path) const;
  void MissingTrait(const Card& card);

  std::string file_;
  FieldStream stream_;
  PlayerState& player_;
  const ReadOptions options_;
  PileCode pile_ = kDeckPile;
  int deckNumber_ = 0;
  std::array<int, kNoPile> counts_{};  ///< by pile code; not used for decks and single cards
  int line_ = 0;                       ///< where the directive began
  int messages_ = 0;                   ///< message boxes shown
  bool cutOff_ = false;
  std::size_t wordOffset_ = 0;  ///< of the directive in the text
  std::size_t counted_ = 0;     ///< bytes of the text that were counted as work
  std::string word_;
  std::array<std::string, 8> fields_;
};

/// How far the read of a file went.
enum class FileRead : std::uint8_t {
  kNotOpened,  ///< nothing was changed
  kCutOff,     ///< it took too much work: the last card may lack lines, those behind are missing
  kWhole
};

/// ReadCards, and how far it went.
FileRead ReadCardFile(std::string_view file, PlayerState& player, int noDuplicates,
                      std::string_view forcedLocation, int keepExisting);

}  // namespace brindlemoor

// FileCheck: the state of a file's check and the checks of its fields.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "check/card_set.h"
#include "check/file_check.h"
#include "check/finding.h"
#include "lint/place_check.h"
#include "lint/script_check.h"

namespace brindlemoor {

/// Adds what is wrong in a file to the findings, and what the file says to the facts.
class FileCheck {
 public:
  FileCheck(const CheckedFile& file, CardSet& set, SetFacts& facts, std::vector<Finding>& findings)
      : file_(file), set_(set), facts_(facts), findings_(findings) {}

  void Run();

  // The checks of fields, which kFieldRows names.
  void Include(const CheckedField& field);
  void GameFile(const CheckedField& field);
  void ForcedLocation(const CheckedField& field);
  void Location(const CheckedField& field);
  void DeckNumber(const CheckedField& field);
  void Picture(const CheckedField& field);
  void Color(const CheckedField& field);
  void Source(const CheckedField& field);
  void Reference(const CheckedField& field);
  void Message(const CheckedField& field);
  void Markup(const CheckedField& field);
  void Number(const CheckedField& field);
  void Rarity(const CheckedField& field);
  void DeckRules(const CheckedField& field);
  void Trait(const CheckedField& field);
  void Target(const CheckedField& field);
  void Trigger(const CheckedField& field);
  void Script(const CheckedField& field);
  void EntryScripts(const CheckedField& field);
  void EntersDuring(const CheckedField& field);
  void CaptionTrait(const CheckedField& field);
  void NewCard(const CheckedField& field);
  void UniqueId(const CheckedField& field);
  void TraitActionName(const CheckedField& field);

 private:
  void Note(std::size_t offset, FindingCode code, std::string text, std::string suggestion = {});
  void Note(const CheckedField& field, FindingCode code, std::string text,
            std::string suggestion = {}) {
    Note(field.Offset, code, std::move(text), std::move(suggestion));
  }
  void NoteAll(std::size_t offset, const std::vector<ScriptFinding>& found);
  void Gather(std::string_view script, std::size_t offset);
  /// Notes a script that does nothing but change traits.
  void GatherWriting(std::string_view script, std::size_t offset);
  void Reads(std::string_view trait, std::size_t offset);
  void Gives(std::string_view trait, std::size_t offset);
  void NoteSpelling(std::string_view trait, std::size_t offset);
  /// Notes the words of a line; those of one that belongs to a card as the card's own, too.
  void GatherLine(const CheckedDirective& directive);
  void GatherPair(std::string_view behind, const std::string& word);
  void BeginClaims(std::string_view name, const CheckedField& description);
  void FindPicture(std::string_view name, std::size_t offset);
  /// Says so when a card file has no card of a name.
  void FindCard(std::string_view name, std::string_view cardFile, std::size_t offset, CardUse use);
  const CheckedField& FieldOf(int number) const {
    return directive_->Fields[static_cast<std::size_t>(number) - 1];
  }

  const CheckedFile& file_;
  CardSet& set_;
  SetFacts& facts_;
  std::vector<Finding>& findings_;
  std::size_t noted_ = 0;
  std::size_t unknownCards_ = 0;
  const CheckedDirective* directive_ = nullptr;
  bool hasCard_ = false;  ///< a card, or the rules, stands before
  bool hasPlaceForCaption_ = false;
  bool colorIsWrong_ =
      false;  ///< of the present directive: its other fields are not where they seem
  bool isRules_ = false;
  CardClaims* claims_ = nullptr;  ///< of the card before, nullptr when it has none
  ActionSide side_ = ActionSide::kAny;
  std::unordered_set<std::string> included_;  ///< names, folded, with their locations
  std::unordered_set<std::string> traits_;    ///< folded, of the card before
};

/// A name that is only known while the script runs.
inline bool IsComposed(std::string_view name) { return name.find_first_of("$#%/&<>") != name.npos; }

}  // namespace brindlemoor

// Value expressions under check: fields and dice that the evaluation gives no meaning.
#include "lint/value_check.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/strings.h"
#include "language/value_keywords.h"
#include "language/values.h"
#include "lint/word_distance.h"

namespace brindlemoor {
namespace {

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

bool LacksNumber(const ValueKeywordRow& row, std::string_view field) {
  return row.IsOperator() && !BeginsWithNumber(field.substr(row.Stem().size()));
}

bool IsOwnerWord(std::string_view field) {
  return std::ranges::find(OwnerWords(), field) != OwnerWords().end();
}

std::vector<std::string_view> KeywordStems(bool operators) {
  std::vector<std::string_view> stems;
  for (const ValueKeywordRow& row : ValueKeywordRows()) {
    if (row.IsOperator() == operators) stems.push_back(row.Stem());
  }
  return stems;
}

/// The keyword, or the operator with the field's number, that a field was most likely meant to be.
std::string NearestKeyword(std::string_view field) {
  static const std::vector<std::string_view> plain = KeywordStems(false);
  static const std::vector<std::string_view> operators = KeywordStems(true);
  std::string nearest = NearestWord(field, plain);
  if (!nearest.empty()) return nearest;
  const std::string_view word = field.substr(0, field.find_first_of("0123456789.+-"));
  nearest = NearestWord(word, operators);
  if (!nearest.empty()) nearest += field.substr(word.size());
  return nearest;
}

/// How a keyword and its fields are written.
std::string KeywordForm(const ValueKeywordRow& row) {
  const std::string_view fields = row.Usage.substr(0, row.Usage.find('|'));
  return Joined(row.Word, fields.substr(0, fields.find_last_not_of(' ') + 1));
}

/// One chain: where it stands and whether a trait has been named in it.
struct Chain {
  FindingList& Findings;
  FieldWalker Fields;
  bool TraitNamed = false;
  std::string_view Unused{};  ///< the keyword of a trait that nothing has counted yet
  bool GoesOn = false;        ///< something stands behind that trait
  bool IsFirst = true;        ///< nothing stands before the present field

  void Unknown(std::string_view field, std::string_view why, std::string suggestion = {}) {
    Unused = {};  // it may have been meant to count it
    Findings.Add(FindingKind::kUnknownValueWord, field, Joined(Quoted(field), why),
                 std::move(suggestion));
  }
  void Odd(std::string_view field, std::string text) {
    Findings.Add(FindingKind::kValueIsOdd, field, std::move(text));
  }
  /// A trait that was named is counted by the operators of traits alone.
  void EndTrait() {
    if (!Unused.empty() && GoesOn) {
      Odd(Unused, Joined("The trait named by ", Unused,
                         " is not counted: TRAITPLUS1 must stand behind it. As it is, the trait "
                         "only stands in for a value of 0."));
    }
    Unused = {};
    GoesOn = false;
  }
  void Missing(const ValueKeywordRow& row, std::string_view at) {
    Findings.Add(FindingKind::kMissingArgument, at,
                 Joined(row.Stem(), " lacks a field: ", KeywordForm(row), "."));
  }
};

std::string_view DiceTrait(std::string_view text) {
  for (const std::string_view word : {"TRAIT", "Trait", "trait"}) {
    if (text.find(word) != std::string_view::npos) return word;
  }
  return {};
}

/// True for a field that counts the trait named before it.
bool UsesTrait(std::string_view field) {
  if (field.front() == 'R') return !DiceTrait(field).empty();
  const ValueKeywordRow* row = FindValueKeyword(field);
  return row != nullptr && row->IsOperator() && row->Word.starts_with("TRAIT");
}

/// "R2d6" as "R2Die6", "" for a field that is no such thing.
std::string MeantDice(std::string_view field) {
  const std::size_t letters = field.find_first_not_of("0123456789", 1);
  if (letters == std::string_view::npos) return {};
  const std::size_t sides = field.find_first_of("0123456789", letters);
  if (sides == std::string_view::npos) return {};
  return Joined(field.substr(0, letters), "Die", field.substr(sides));
}

void CheckDice(Chain& chain, std::string_view field) {
  const std::string_view trait = DiceTrait(field);
  const std::string_view count = field.substr(1);
  const bool countsByTrait = !trait.empty() && count.starts_with(trait);
  if (!countsByTrait && (count.empty() || !IsDigit(count.front()))) {
    chain.Unknown(field, " is no keyword of values; it counts 0.", NearestKeyword(field));
    return;
  }
  if (countsByTrait && !chain.TraitNamed) {
    chain.Unknown(field, " rolls nothing: no trait is named before it.");
    return;
  }
  const std::size_t die = field.find("Die");
  if (die == std::string_view::npos) {
    chain.Unknown(field, " has no \"Die\": every die has one side.", MeantDice(field));
    return;
  }
  const std::string_view sides = field.substr(die + 3);
  const std::size_t digit = sides.find_first_of("123456789");
  // The sides are read from as many characters at the end as lie before "Die", and one more.
  const std::size_t unread = sides.size() - std::min(sides.size(), die + 1);
  if (!trait.empty()) return;
  if (digit == std::string_view::npos) {
    chain.Unknown(field, " does not say how many sides a die has.");
  } else if (digit < unread) {
    chain.Unknown(field, Joined(" has too many sides: only ", Quoted(sides.substr(unread)),
                                " is read of them."));
  }
}

void CheckOwnerWord(Chain& chain, std::string_view field) {
  if (field.empty() || IsOwnerWord(field)) return;
  chain.Unknown(field, " stands where an owner word is read.", NearestWord(field, OwnerWords()));
}

/// The fields behind a keyword, taken as the evaluation takes them.
void CheckKeywordFields(Chain& chain, const ValueKeywordRow& row, std::string_view keyword) {
  if (row.Takes == KeywordFields::kNone) return;
  const std::string_view name = chain.Fields.Next();
  if (name.empty()) chain.Missing(row, keyword.substr(keyword.size()));
  if (row.Takes == KeywordFields::kTrait) {
    chain.EndTrait();
    chain.Unused = keyword;
    chain.TraitNamed = true;
    return;
  }
  const std::string_view needed = chain.Fields.Next();
  if (row.Takes == KeywordFields::kCount && IsOwnerWord(needed)) return;
  const std::string_view owner = chain.Fields.Next();
  const bool needsField = row.Takes == KeywordFields::kTotal || row.Takes == KeywordFields::kNames;
  if (needsField && IsOwnerWord(needed) && !IsOwnerWord(owner)) {
    chain.Missing(row, needed);
    return;
  }
  CheckOwnerWord(chain, owner);
}

void CheckPlainNumber(Chain& chain, std::string_view field) {
  // "2d6" and "1+2" are meant as more than a number; what else stands behind one is just not read.
  const std::size_t sign = std::min(field.find_first_not_of(" \t+-"), field.size());
  const std::size_t end = field.find_first_not_of(".0123456789", sign);
  const bool isMore = end != field.npos && field[end] != 'e' && field[end] != 'E' &&
                      field.find_first_of("0123456789", end) != field.npos;
  if (isMore) {
    chain.Odd(field, Joined("Only ", field.substr(0, end), " is read of ", Quoted(field),
                            ". Dice are written R2Die6, sums PLUS2."));
  } else if (!chain.IsFirst) {
    chain.Odd(field, Joined("A plain number is added: \"/", field, "\" does not divide. Write DIV",
                            field, " or PLUS", field, "."));
  }
}

void CheckKeyword(Chain& chain, std::string_view field) {
  const ValueKeywordRow* row = FindValueKeyword(field);
  if (row == nullptr) {
    if (BeginsWithNumber(field)) {
      CheckPlainNumber(chain, field);
      return;
    }
    const std::string nearest = NearestKeyword(field);
    chain.Unknown(field, " is no keyword of values; it counts 0.", nearest);
    const ValueKeywordRow* meant = FindValueKeyword(nearest);
    if (meant != nullptr) CheckKeywordFields(chain, *meant, field);
  } else if (LacksNumber(*row, field)) {
    chain.Unknown(field, Joined(" is read as ", row->Stem(), ", which a number must follow."));
  } else if (row->Stem() == "DIV" && KeywordArgument(*row, field) == 0) {
    chain.Odd(field, Joined(field, " leaves the value as it is: nothing is divided by 0."));
  } else {
    CheckKeywordFields(chain, *row, field);
  }
}

}  // namespace

bool BeginsWithNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  if (text.starts_with('.')) text.remove_prefix(1);
  return !text.empty() && IsDigit(text.front());
}

void CheckValuePart(FindingList& findings, std::string_view expression) {
  if (IsWholeExpression(expression)) return;
  Chain chain{.Findings = findings, .Fields = {expression, '/'}};
  while (!findings.Full()) {
    const std::string_view field = chain.Fields.Next();
    if (field.empty()) {
      chain.EndTrait();
      if (chain.Fields.Rest().find_first_not_of('/') != std::string_view::npos) {
        findings.Add(FindingKind::kEmptyFieldEnds, field,
                     "The value ends at the empty field; what stands behind it is never read.");
      }
      return;
    }
    if (UsesTrait(field)) chain.Unused = {};
    chain.GoesOn = !chain.Unused.empty();
    if (field.front() == 'R') {
      CheckDice(chain, field);
    } else {
      CheckKeyword(chain, field);
    }
    chain.IsFirst = false;
  }
}

bool IsComputed(std::string_view text, ArgumentKind kind) {
  for (FieldWalker fields(text, '/'); !fields.AtEnd();) {
    const std::string_view field = fields.Next();
    const ValueKeywordRow* row = FindValueKeyword(field);
    if (row == nullptr || !row->Computes) continue;
    // An operator without a number comes to 0, and such a setting is stored as written.
    if (kind != ArgumentKind::kSetting || !LacksNumber(*row, field)) return true;
  }
  return false;
}

std::vector<ScriptFinding> CheckValue(std::string_view expression) {
  FindingList findings(expression);
  CheckValuePart(findings, expression);
  return findings.Take();
}

}  // namespace brindlemoor

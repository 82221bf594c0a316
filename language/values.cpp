// Value expressions: the walk over a chain's fields with one accumulator and one trait value.
#include "language/values.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <string>

#include "core/limits.h"
#include "core/random.h"
#include "core/replacing.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/value_keywords.h"

namespace brindlemoor {
namespace {

/// Words that are known as the whole expression only, before it is split.
struct WholeWord {
  std::string_view Word;
  bool Computes;
  Value (*Result)(const Card& source, const Card& target);
};

constexpr std::array<WholeWord, 6> kWholeWords{{
    {"$MYNAME", false, [](const Card& source, const Card&) { return Value(source.Name); }},
    {"$TARGETNAME", false, [](const Card&, const Card& target) { return Value(target.Name); }},
    {"$MYGID", true, [](const Card& source, const Card&) { return Value(source.GlobalID); }},
    {"MYGID", true, [](const Card& source, const Card&) { return Value(source.GlobalID); }},
    {"$TARGETGID", true, [](const Card&, const Card& target) { return Value(target.GlobalID); }},
    {"TARGETGID", true, [](const Card&, const Card& target) { return Value(target.GlobalID); }},
}};

/// The number from the first digit 1 to 9 on, 1 when there is none: "R2Die06" has 2, "Die06" 6.
double DieNumber(std::string_view text) {
  const std::size_t start = text.find_first_of("123456789");
  return start == std::string_view::npos ? 1 : NumericPrefix(text.substr(start));
}

void AddDice(Evaluation& evaluation, std::string_view field) {
  std::string filled;
  if (field.find("TRAIT") != std::string_view::npos ||
      field.find("Trait") != std::string_view::npos ||
      field.find("trait") != std::string_view::npos) {
    const std::string value = evaluation.FirstField ? "NONE" : NumberText(evaluation.TV);
    filled = field;
    for (const char* word : {"TRAIT", "Trait", "trait"}) ReplaceAll(filled, word, value);
    field = filled;
  }
  if (field.size() < 2 || field[1] < '1' || field[1] > '9') return;
  // The sides stand in as many characters at the end as the place of "Die" counts, since cards of
  // existing games roll so: "R2Die1000", where that is 3, reads them from "000".
  const std::size_t die = field.find("Die");
  const std::size_t tail = die == std::string_view::npos ? 0 : die + 1;
  evaluation.Acc += RollDice(DieNumber(field), DieNumber(field.substr(field.size() - tail)));
}

/// Works on one field that is no die; true when the evaluation ends with it.
bool TakeField(Evaluation& evaluation, std::string_view field, bool& computed) {
  evaluation.Acc += NumericPrefix(field);
  const ValueKeywordRow* row = FindValueKeyword(field);
  if (row == nullptr) return false;
  const KeywordEffect effect = row->Apply(evaluation, KeywordArgument(*row, field));
  if (effect != KeywordEffect::kNone && row->Computes) computed = true;
  return effect == KeywordEffect::kFinishes;
}

}  // namespace

bool IsPlainInteger(std::string_view text, double& number) {
  constexpr std::size_t kSafeDigits = 15;
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  if (text.empty() || text.size() > kSafeDigits) return false;
  std::int64_t total = 0;
  for (const char digit : text) {
    if (digit < '0' || digit > '9') return false;
    total = total * 10 + (digit - '0');
  }
  number = static_cast<double>(negative ? -total : total);
  return true;
}

Value EvalValue(const Card& source, const Card& target, std::string_view expression,
                bool& computed) {
  double plain = 0;
  if (IsPlainInteger(expression, plain)) return plain;
  for (const WholeWord& word : kWholeWords) {
    if (word.Word == expression) {
      if (word.Computes) computed = true;
      return word.Result(source, target);
    }
  }
  SpendWork(1);
  Evaluation evaluation{.Source = source, .Target = target, .Fields = {expression, '/'}};
  for (int count = 1;; ++count) {
    const std::string_view field = evaluation.Fields.Next();
    if (field.empty()) break;
    if (count > limits::kValueFields) {
      limits::ReportLimit("A value expression had too many fields.");
      break;
    }
    bool finished = false;
    if (field.front() == 'R') {
      AddDice(evaluation, field);
    } else {
      finished = TakeField(evaluation, field, computed);
    }
    if (evaluation.Name != nullptr) return *evaluation.Name;
    if (!std::isfinite(evaluation.Acc)) evaluation.Acc = 0;
    evaluation.FirstField = false;
    if (finished) break;
  }
  if (evaluation.FirstField) return "NONE";
  // A total of 0 falls back on the trait named last.
  return evaluation.Acc == 0 ? evaluation.TV + 0.0 : evaluation.Acc;
}

Value EvalValue(const Card& source, const Card& target, std::string_view expression) {
  bool computed = false;
  return EvalValue(source, target, expression, computed);
}

bool IsWholeExpression(std::string_view expression) {
  for (const WholeWord& word : kWholeWords) {
    if (word.Word == expression) return true;
  }
  return false;
}

TraitValue AsTraitValue(std::string_view expression) {
  FieldWalker fields(expression, '/');
  const ValueKeywordRow* row = FindValueKeyword(fields.Next());
  if (row == nullptr || row->Takes != KeywordFields::kTrait) return {};
  const std::string_view name = fields.Next();
  return fields.Next().empty() ? TraitValue{name, row->OfTarget} : TraitValue{};
}

double EvalNumber(const Card& source, const Card& target, std::string_view expression) {
  return EvalValue(source, target, expression).Number();
}

}  // namespace brindlemoor

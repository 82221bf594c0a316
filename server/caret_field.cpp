// Walking a file that is being typed, field by field.
#include "server/caret_field.h"

#include <algorithm>
#include <array>

#include "data/directives.h"
#include "data/field_stream.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// The fields that are no free texts.
struct FieldRow {
  std::string_view Directive;  ///< how it begins
  std::string_view Field;
  std::string_view Argument;
};
constexpr auto kFieldRows = std::to_array<FieldRow>({
    {"#DECKRULES", "script", kDeckRulesField},
    {"#EXTRADATA", "permanent modifications", kScriptField},
    {"#EXTRADATA", "enters play during", "TRIGGER"},
    {"#GAMEFILE", "name", "FILE"},
    {"#GAMERULES", "help page", "FILE"},
    {"#REF", "name", "NAME"},
    {"#", "file", "FILE"},
    {"#", "source file", "FILE"},
    {"#", "location", kLocationField},
    {"#", "name of a game", kGameField},
    {"#", "NAME or NAME:VALUE", "TRAIT"},
    {"#", "trait name", "TRAIT"},
    {"#", "target", "TARGET"},
    {"#", "trigger", "TRIGGER"},
    {"#", "script", kScriptField},
    {"#", "picture", "PICTURE"},
    {"#", "thumb", "PICTURE"},
});

std::vector<std::string_view> NamesIn(std::string_view usage) {
  constexpr std::string_view kBetween = ", ";
  std::vector<std::string_view> names;
  while (!usage.empty()) {
    const std::size_t end = std::min(usage.find(kBetween), usage.size());
    names.push_back(usage.substr(0, end));
    usage.remove_prefix(std::min(end + kBetween.size(), usage.size()));
  }
  return names;
}

/// The table's own word for a directive, "" for others.
std::string_view DirectiveWord(std::string_view word) {
  if (const DirectiveRow* row = FindDirective(word)) return row->Word;
  const auto* row = std::ranges::find(kForeignDirectiveRows, word, &ForeignDirectiveRow::Word);
  return row == kForeignDirectiveRows.end() ? "" : row->Word;
}

/// The walk up to the caret, and on to the end of the directive that it stands in.
class Walk {
 public:
  Walk(std::string_view text, std::size_t caret)
      : text_(text), caret_(std::min(caret, text.size())), stream_(Joined(text, "\n")) {}

  CaretField Take() {
    std::size_t begin = 0;
    for (std::string field; stream_.Read(field); begin = stream_.Position()) {
      if (!Step(field)) break;
      if (!isFound_ && caret_ < stream_.Position()) Found(field, begin);
    }
    if (isFound_ && !found_.Directive.empty()) found_.Fields = std::move(fields_);
    return std::move(found_);
  }

 private:
  /// False where what belongs to the caret has ended.
  bool Step(const std::string& field) {
    const std::string_view word = DirectiveWord(field);
    // A location may be written like a directive.
    const bool isLocation = directive_ == "#CARD" && fields_.empty() && word == "#PLAYERCARD";
    const bool begins = !word.empty() && !isLocation;
    const bool isFull = fields_.size() == names_.size();
    if (isFound_ && (begins || isFull)) return false;
    isWord_ = begins || isFull;
    if (begins) {
      directive_ = word;
      names_ = FieldNames(word);
      fields_.clear();
    } else if (!isFull) {
      fields_.push_back(field);
    }
    return true;
  }

  void Found(std::string field, std::size_t begin) {
    isFound_ = true;
    const std::size_t offset = stream_.Offset();
    found_.IsQuoted = offset > begin && text_.substr(0, offset).ends_with('"');
    found_.Offset = std::max(begin, std::min(offset, caret_));
    // Before the field nothing of it stands yet.
    if (found_.Offset < offset) field.clear();
    const std::size_t rest = text_.size() - found_.Offset;
    if (field.size() > rest) field.resize(rest);
    found_.Caret = std::min(caret_ - found_.Offset, field.size());
    field.resize(std::min(field.find_first_of("\r\n", found_.Caret), field.size()));
    found_.Text = std::move(field);
    const std::size_t line = text_.substr(0, begin).find_last_of("\r\n") + 1;
    found_.BeginsLine = text_.find_first_not_of(" \t", line) >= found_.Offset;
    if (isWord_) return;
    found_.Directive = directive_;
    found_.Name = names_[fields_.size() - 1];
    found_.Argument = ArgumentOfField(directive_, found_.Name);
  }

  std::string_view text_;
  std::size_t caret_;
  FieldStream stream_;
  std::string_view directive_;
  std::vector<std::string_view> names_;
  std::vector<std::string> fields_;
  bool isWord_ = true;  ///< the present field is a directive, or could be one
  bool isFound_ = false;
  CaretField found_;
};

}  // namespace

CaretField FieldAtCaret(std::string_view text, std::size_t caret) {
  return Walk(text, caret).Take();
}

std::vector<std::string_view> FieldNames(std::string_view directive) {
  if (const DirectiveRow* row = FindDirective(directive)) return NamesIn(row->Usage);
  const auto* row = std::ranges::find(kForeignDirectiveRows, directive, &ForeignDirectiveRow::Word);
  return row == kForeignDirectiveRows.end() ? std::vector<std::string_view>() : NamesIn(row->Usage);
}

std::string_view ArgumentOfField(std::string_view directive, std::string_view field) {
  const auto* row = std::ranges::find_if(kFieldRows, [&](const FieldRow& candidate) {
    return candidate.Field == field && directive.starts_with(candidate.Directive);
  });
  return row == kFieldRows.end() ? "" : row->Argument;
}

}  // namespace brindlemoor

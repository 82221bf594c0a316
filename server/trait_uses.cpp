// The walk over the fields of a file, each by what it holds.
#include "server/trait_uses.h"

#include <algorithm>
#include <array>

#include "check/checked_file.h"
#include "core/strings.h"
#include "editor/script_parts.h"
#include "pages/messages.h"
#include "script/command_table.h"
#include "server/caret_field.h"

namespace brindlemoor {

namespace {

/// Fields that are texts for the player, in which marks are filled in.
constexpr std::array<std::string_view, 4> kMessageFields = {"description", "extra text", "caption",
                                                            "value"};

using Visitor = std::function<void(std::string_view trait, std::size_t begin)>;

/// The uses in one text of a file.
class Uses {
 public:
  Uses(std::string_view text, std::size_t begin, const Visitor& visit)
      : text_(text), begin_(begin), visit_(visit) {}

  /// text is a part of the whole one.
  void Name(std::string_view text) const {
    if (!text.empty()) visit_(text, begin_ + static_cast<std::size_t>(text.data() - text_.data()));
  }

  void Parts(const std::vector<ScriptPart>& parts) const {
    std::string_view before;
    for (const ScriptPart& part : parts) {
      const bool isTrait = part.Style == TextStyle::kName && part.Name != "NAME";
      // A script is searched for such a word; a declaration says which trait an action belongs to.
      const bool isWord = part.Name == "FIELD" || before == "TRAITEFFECT";
      if (isTrait || isWord) Name(part.Text);
      if (KindOfArgument(part.Name) == ArgumentKind::kMessage) Message(part.Text);
      before = part.Text;
    }
  }

  void Scripts() const {
    for (std::string_view rest = text_; !rest.empty();) {
      const std::size_t end = std::min(rest.find(kBetweenScripts), rest.size());
      Parts(PartsOfScript(rest.substr(0, end)));
      rest.remove_prefix(std::min(end + kBetweenScripts.size(), rest.size()));
    }
  }

  /// "HP:3"; behind some names stands more that names traits.
  void TraitLine() const {
    const std::string_view name = FieldAt(text_, 1, ':');
    const std::string_view value = text_.substr(std::min(text_.size(), name.size() + 1));
    Name(name);
    if (name == kTraitGraphic) {
      Name(FieldAt(value, 1, ':'));
      Message(value);
    } else {
      Parts(PartsOfArgument("VALUE", value));
    }
  }

  void DeckRules() const {
    FieldWalker fields(text_, ':');
    for (int number = 0; !fields.AtEnd(); ++number) {
      const std::string_view field = fields.Next();
      if (number % 3 == 1) Name(field);
    }
  }

  /// "#MYTRAIT/HP#" and the like.
  void Message(std::string_view message) const {
    for (const MessageMark& mark : MessageMarks()) {
      if (!mark.OpensField) continue;
      std::size_t at = message.find(mark.Mark);
      for (; at != message.npos; at = message.find(mark.Mark, at + 1)) {
        const std::size_t begin = at + mark.Mark.size();
        if (!message.substr(begin).starts_with('/')) continue;
        const std::string_view rest = message.substr(begin + 1);
        const std::string_view argument = rest.substr(0, rest.find('#'));
        if (mark.TakesValue) {
          Value(argument);
        } else {
          Name(argument);
        }
      }
    }
  }

 private:
  /// A value in the midst of a message.
  void Value(std::string_view value) const {
    const auto offset = static_cast<std::size_t>(value.data() - text_.data());
    Uses(value, begin_ + offset, visit_).Parts(PartsOfArgument("VALUE", value));
  }

  std::string_view text_;
  std::size_t begin_;
  const Visitor& visit_;
};

void VisitField(const CheckedDirective& directive, std::string_view name, const CheckedField& field,
                const Visitor& visit) {
  const Uses uses(field.Text, field.Offset, visit);
  const std::string_view argument = ArgumentOfField(directive.Word, name);
  if (directive.Word == "#TRAIT") {
    uses.TraitLine();
  } else if (argument == kScriptField) {
    uses.Scripts();
  } else if (argument == kDeckRulesField) {
    uses.DeckRules();
  } else if (!argument.empty()) {
    uses.Parts(PartsOfArgument(argument, field.Text));
  } else if (std::ranges::find(kMessageFields, name) != kMessageFields.end()) {
    uses.Message(field.Text);
  }
}

}  // namespace

void VisitTraitUses(const CheckedFile& file, const Visitor& visit) {
  for (const CheckedDirective& directive : file.Directives()) {
    const std::vector<std::string_view> names = FieldNames(directive.Word);
    const std::size_t count = std::min(names.size(), directive.Fields.size());
    for (std::size_t number = 0; number < count; ++number) {
      VisitField(directive, names[number], directive.Fields[number], visit);
    }
  }
}

}  // namespace brindlemoor

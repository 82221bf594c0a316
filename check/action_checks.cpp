// The checks of the fields that say what a card has and does: traits, actions, captions.
#include <algorithm>

#include "check/field_checks.h"
#include "core/strings.h"
#include "language/target_types.h"
#include "lint/place_check.h"
#include "lint/reaction_check.h"
#include "lint/script_arguments.h"
#include "script/triggers.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kBetweenScripts = "$|$";
constexpr std::string_view kBonus = "BONUS";

}  // namespace

void FileCheck::Message(const CheckedField& field) {
  NoteAll(field.Offset, CheckMessage(field.Text));
}

/// Where a colour is wrong, other fields have moved here.
void FileCheck::Markup(const CheckedField& field) {
  if (!colorIsWrong_) NoteAll(field.Offset, CheckMarkup(field.Text));
}

void FileCheck::Trait(const CheckedField& field) {
  const std::string_view text = field.Text;
  const std::string_view name = FieldAt(text, 1, ':');
  if (name.empty()) {
    Note(field, FindingCode::kNamelessTrait, "This trait has no name.");
    return;
  }
  traits_.insert(FoldUpper(name));
  Gives(name, field.Offset);
  const std::string_view value = text.substr(std::min(text.size(), name.size() + 1));
  const std::size_t offset = field.Offset + static_cast<std::size_t>(value.data() - text.data());
  if (isRules_ && name == "TRAITGRAPHIC") {
    FindPicture(FieldAt(text, 3, ':'), offset);
  } else if (FoldUpper(name).starts_with(kBonus)) {
    VisitValueTraits(value, [&](std::string_view trait) {
      Reads(trait, field.Offset + static_cast<std::size_t>(trait.data() - text.data()));
    });
  }
}

void FileCheck::Target(const CheckedField& field) {
  NoteAll(field.Offset, CheckTarget(field.Text));
}

void FileCheck::Trigger(const CheckedField& field) {
  NoteAll(field.Offset, CheckTrigger(field.Text));
  const std::string_view text = field.Text;
  if (isRules_ && text == "PHASE10") {
    Note(field, FindingCode::kUnknownTrigger,
         "PHASE10 is for cards only; the action of the rules never runs.", "PHASE9");
  }
  for (const std::string_view word : {"TRAITCHANGE:", "BEFORETRAITCHANGE:"}) {
    if (text.starts_with(word)) Reads(text.substr(word.size()), field.Offset + word.size());
  }
}

void FileCheck::Script(const CheckedField& field) {
  NoteAll(field.Offset, CheckScript(field.Text));
  const std::string& target = FieldOf(1).Text;
  const std::string& trigger = FieldOf(2).Text;
  NoteAll(field.Offset, CheckReaction(target, trigger, field.Text));
  NoteAll(field.Offset, CheckPlace(target, trigger, field.Text));
  if (const std::string_view why = WhyNeverRun(target, trigger, side_); !why.empty()) {
    Note(FieldOf(1), FindingCode::kLostAction, std::string(why));
  }
  Gather(field.Text, field.Offset);
  GatherWriting(field.Text, field.Offset);
}

void FileCheck::EntryScripts(const CheckedField& field) {
  const std::string_view text = field.Text;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(kBetweenScripts, start), text.size());
    const std::string_view script = text.substr(start, end - start);
    NoteAll(field.Offset + start, CheckScript(script));
    NoteAll(field.Offset + start, CheckReaction("", "", script));
    NoteAll(field.Offset + start, CheckPlace("", "", script));
    Gather(script, field.Offset + start);
    start = end + kBetweenScripts.size();
  }
}

void FileCheck::EntersDuring(const CheckedField& field) {
  const auto fires = [&](const TriggerRow& row) {
    return row.Code != 0 && FoldEquals(row.Word, field.Text) &&
           (row.Code == kOtherEntersPlay || row.Word.starts_with("PHASE") ||
            row.Word.starts_with("TURN"));
  };
  if (field.Text.empty() || std::ranges::any_of(kTriggerRows, fires)) return;
  Note(field, FindingCode::kUnknownTrigger,
       Joined("\"", field.Text,
              "\" is no time at which cards enter play: TURNSTART, PHASE1 to "
              "PHASE10, TURNEND or OTHERENTERSPLAY."));
}

void FileCheck::CaptionTrait(const CheckedField& field) {
  if (!hasCard_ || !hasPlaceForCaption_ || traits_.contains(FoldUpper(field.Text))) return;
  Note(field, FindingCode::kCaptionWithoutTrait,
       Joined("The card has no trait \"", field.Text, "\", so the caption is left out."));
}

/// Takes from a script which traits it gives and which it reads, and the cards that it makes.
void FileCheck::Gather(std::string_view script, std::size_t offset) {
  const auto place = [&](std::string_view part) {
    return offset + static_cast<std::size_t>(part.data() - script.data());
  };
  VisitArguments(script, [&](const ScriptArgument& argument) {
    const ArgumentKind kind = KindOfArgument(argument.Name);
    if (kind == ArgumentKind::kTrait) {
      // A declaration is a trait of the action itself.
      const bool gives = argument.Role == CommandRole::kActs || argument.Word == "TRAIT";
      const bool takes = argument.Word.starts_with("REMOVE") || argument.Word.starts_with("SUB") ||
                         argument.Word.starts_with("REDIREC");
      if (gives && !takes) {
        Gives(argument.Text, place(argument.Text));
      } else {
        Reads(argument.Text, place(argument.Text));
      }
    } else if (kind == ArgumentKind::kValue || kind == ArgumentKind::kContent ||
               kind == ArgumentKind::kSetting) {
      VisitValueTraits(argument.Text, [&](std::string_view trait) { Reads(trait, place(trait)); });
    } else if (kind == ArgumentKind::kTrigger && argument.Text.ends_with("TRAITCHANGE")) {
      Reads(argument.Next, place(argument.Next));
    } else if (argument.Name == "PICTURE" && !IsComposed(argument.Text)) {
      FindPicture(argument.Text, place(argument.Text));
    } else if (argument.Name == "NAME" && argument.Word == "BOOSTERCARD") {
      if (IsComposed(argument.Text)) return;
      facts_.StoreCards.try_emplace(std::string(argument.Text),
                                    SetFacts::Definition{std::string(argument.Text), file_.Path(),
                                                         file_.PlaceOf(place(argument.Text))});
    } else if (argument.Name == "NAME" && argument.Word == "CREATECARD" &&
               !IsComposed(argument.Text) && !argument.Next.empty() && !IsComposed(argument.Next)) {
      if (claims_ != nullptr) claims_->Makes.emplace_back(argument.Text);
      FindCard(argument.Text, argument.Next, place(argument.Text), CardUse::kModel);
    }
  });
}

void FileCheck::GatherWriting(std::string_view script, std::size_t offset) {
  TraitWriting writing{{}, file_.Path(), {}};
  for (const ScriptField& field : FieldsOfScript(script)) {
    if (field.Row == nullptr) return;
    const bool isCommand = field.Name.empty();
    const bool writes =
        KindOfArgument(ArgumentNames(*field.Row).substr(0, ArgumentNames(*field.Row).find(' '))) ==
        ArgumentKind::kTrait;
    if (field.Row->Role == CommandRole::kRequires) continue;
    if (isCommand && (field.Row->Role != CommandRole::kActs || !writes)) return;
    if (field.Row->Word.starts_with("REDIREC")) return;  // it reads the trait as well
    if (isCommand || field.Name != "TRAIT") continue;
    if (IsComposed(field.Text)) return;
    if (writing.Traits.empty()) {
      writing.Place =
          file_.PlaceOf(offset + static_cast<std::size_t>(field.Text.data() - script.data()));
    }
    writing.Traits.push_back(FoldUpper(field.Text));
  }
  if (!writing.Traits.empty()) facts_.Writings.push_back(std::move(writing));
}

void FileCheck::NoteSpelling(std::string_view trait, std::size_t offset) {
  if (IsComposed(trait)) return;
  TraitSpelling& spelling = facts_.Spellings[FoldUpper(trait)][std::string(trait)];
  if (++spelling.Count > 1) return;
  spelling.File = file_.Path();
  spelling.Place = file_.PlaceOf(offset);
}

void FileCheck::Gives(std::string_view trait, std::size_t offset) {
  if (trait.empty()) return;
  NoteSpelling(trait, offset);
  const std::string name = FoldUpper(trait);
  facts_.GivenTraits.insert(name);
  // A bonus brings the trait that it adds to.
  if (name.starts_with(kBonus) && name != kBonus)
    facts_.GivenTraits.insert(name.substr(kBonus.size()));
}

void FileCheck::Reads(std::string_view trait, std::size_t offset) {
  if (trait.empty() || IsComposed(trait)) return;
  NoteSpelling(trait, offset);
  auto [entry, isNew] = facts_.ReadTraits.try_emplace(FoldUpper(trait));
  if (isNew) entry->second = {std::string(trait), file_.Path(), file_.PlaceOf(offset)};
}

}  // namespace brindlemoor

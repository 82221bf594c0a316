// Finding the names of files in card files.
#include "sharing/named_files.h"

#include <algorithm>
#include <array>
#include <utility>

#include "check/checked_file.h"
#include "core/strings.h"
#include "lint/script_arguments.h"
#include "sharing/markup_addresses.h"

namespace brindlemoor {

namespace {

/// A field of a directive, from 1, that names a file.
struct FieldRow {
  std::string_view Directive;
  std::size_t Field;
  NameUse Use;
};
// clang-format off
constexpr auto kFields = std::to_array<FieldRow>({
    {"#GAMERULES", 2, NameUse::kPicture}, {"#GAMERULES", 5, NameUse::kPage},
    {"#INCLUDE", 1, NameUse::kCardFile}, {"#GAMEFILE", 1, NameUse::kCardFile},
    {"#CARD", 4, NameUse::kCardFile}, {"#CARD", 5, NameUse::kPicture}, {"#CARD", 6, NameUse::kPicture},
    {"#REFINDECK", 2, NameUse::kCardFile}, {"#REFINPLAY", 2, NameUse::kCardFile},
    {"#REFCOLLECTION", 2, NameUse::kCardFile}, {"#REFINPLAYERDECK", 3, NameUse::kCardFile},
    {"#CARDINDECK", 2, NameUse::kPicture}, {"#CARDINDECK", 3, NameUse::kPicture},
    {"#CARDINPLAY", 2, NameUse::kPicture}, {"#CARDINPLAY", 3, NameUse::kPicture},
    {"#SIDEBOARDCARD", 2, NameUse::kPicture}, {"#SIDEBOARDCARD", 3, NameUse::kPicture},
    {"#COLLECTION", 2, NameUse::kPicture}, {"#COLLECTION", 3, NameUse::kPicture},
    {"#TEMPLATE", 2, NameUse::kPicture}, {"#TEMPLATE", 3, NameUse::kPicture},
    {"#NEUTRALCARD", 2, NameUse::kPicture}, {"#NEUTRALCARD", 3, NameUse::kPicture},
    {"#CARDINPLAYERDECK", 3, NameUse::kPicture}, {"#CARDINPLAYERDECK", 4, NameUse::kPicture},
    {"#TEMPLATEDATA", 1, NameUse::kPicture}, {"#TEMPLATEDATA", 2, NameUse::kPicture},
});
// clang-format on

constexpr std::string_view kBetweenScripts = "$|$";
constexpr std::string_view kPictureMark = "#IMG/";

bool IsComposed(std::string_view name) { return name.find_first_of("$#%&<>") != name.npos; }

/// The names in one file.
class NameWalk {
 public:
  explicit NameWalk(CheckedFile file) : file_(std::move(file)) {}

  std::vector<NamedFile> Take() {
    for (const CheckedDirective& directive : file_.Directives()) {
      for (const FieldRow& row : kFields) {
        if (row.Directive != directive.Word || row.Field > directive.Fields.size()) continue;
        const CheckedField& field = directive.Fields[row.Field - 1];
        Add(field.Text, row.Use, field);
      }
      for (const CheckedField& field : directive.Fields) Markup(field);
      const std::size_t script =
          directive.Word == "#EFFECT" || directive.Word == "#EXTRADATA" ? 3 : 0;
      if (script != 0 && directive.Fields.size() >= script) Scripts(directive.Fields[script - 1]);
      if (directive.Word == "#TRAIT" && !directive.Fields.empty()) Badge(directive.Fields[0]);
    }
    return std::move(found_);
  }

 private:
  void Add(std::string_view name, NameUse use, const CheckedField& field) {
    if (name.empty()) return;
    found_.push_back({std::string(name), use, field.Line, IsComposed(name)});
  }

  void Badge(const CheckedField& field) {
    if (FieldAt(field.Text, 1, ':') != "TRAITGRAPHIC") return;
    Add(FieldAt(field.Text, 3, ':'), NameUse::kPicture, field);
  }

  void Scripts(const CheckedField& field) {
    const std::string_view text = field.Text;
    for (std::size_t start = 0; start < text.size();) {
      const std::size_t end = std::min(text.find(kBetweenScripts, start), text.size());
      VisitArguments(text.substr(start, end - start), [&](const ScriptArgument& argument) {
        if (argument.Name == "FILE") Add(argument.Text, NameUse::kCardFile, field);
        if (argument.Name == "PICTURE") Add(argument.Text, NameUse::kPicture, field);
      });
      start = end + kBetweenScripts.size();
    }
  }

  void Markup(const CheckedField& field) {
    const std::string_view text = field.Text;
    for (std::size_t at = text.find(kPictureMark); at != text.npos;
         at = text.find(kPictureMark, at + 1)) {
      const std::size_t start = at + kPictureMark.size();
      const std::size_t end = text.find('#', start);
      if (end != text.npos) Add(text.substr(start, end - start), NameUse::kPicture, field);
    }
    for (const std::string& address : MarkupAddresses(text, AddressKind::kLoaded)) {
      // What the mark above makes is no address yet.
      if (address.find(kPictureMark) == address.npos) Add(address, NameUse::kAddress, field);
    }
  }

  const CheckedFile file_;
  std::vector<NamedFile> found_;
};

}  // namespace

std::vector<NamedFile> FilesNamedBy(std::string bytes) {
  return NameWalk(CheckedFile("", std::move(bytes))).Take();
}

}  // namespace brindlemoor

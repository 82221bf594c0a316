// CaretField: where in a card file a place lies, however much of it is still to be typed.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

/// The field around a place of a text, and the directive that it belongs to.
struct CaretField {
  std::string_view Directive{};  ///< "" where a directive can begin, and for one itself
  std::string_view Name{};       ///< of the field, as the directive's usage line has it
  /// The name of a script's argument that is written likewise: "TARGET"; "" for other fields.
  std::string_view Argument{};
  std::string Text{};  ///< without double quotes around it, and cut at the end of the caret's line
  std::size_t Offset = 0;  ///< byte of the file's text at which Text begins
  std::size_t Caret = 0;   ///< byte of Text
  bool IsQuoted = false;
  bool BeginsLine = false;            ///< nothing stands before it on its line
  std::vector<std::string> Fields{};  ///< all of the directive's, as far as they are there
};

/// The field at a byte of a file's text (UTF-8). A directive ends where the next one begins, though
/// fields may be missing.
CaretField FieldAtCaret(std::string_view text, std::size_t caret);

/// The names of a directive's fields; none for a word that is no directive.
std::vector<std::string_view> FieldNames(std::string_view directive);
/// CaretField::Argument of a field, "" for none.
std::string_view ArgumentOfField(std::string_view directive, std::string_view field);

// The names that ArgumentOfField gives fields beside those of script arguments.
inline constexpr std::string_view kScriptField = "SCRIPT";  ///< one, or several with "$|$" between
inline constexpr std::string_view kLocationField = "LOCATION";
inline constexpr std::string_view kDeckRulesField = "DECKRULES";
inline constexpr std::string_view kGameField = "GAME";

/// Where entry scripts stand in one field, one ends so and the next begins.
inline constexpr std::string_view kBetweenScripts = "$|$";

}  // namespace brindlemoor

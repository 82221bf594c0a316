// The lines of one card in an author's file, and how they change with the card.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/directives.h"
#include "data/stored_text.h"

namespace brindlemoor {

/// A card as it stands in a file: its directives in the order of the text, and the same card as
/// CardToText writes it.
struct CardInFile {
  DirectivePlaces Places;
  std::string Written;
};

/// True for the directives that say more of the card before them.
bool IsLineOfCard(const DirectiveRow& row);

/// The fields of a directive in a text, its word first.
std::vector<std::string> FieldsOf(std::string_view text, const DirectivePlace& place);

/// The edits that give a card the lines of another text of CardToText. Directives that say the same
/// stay as they are, others take the place of those that they replace, and what stands between them
/// (remarks, blank lines, directives that the editor does not know) stays.
std::vector<TextEdit> ChangedLines(const StoredText& file, const CardInFile& card,
                                   const std::string& written);
/// The edits that take a card out, with the banner above it and the blank lines below.
std::vector<TextEdit> RemovedLines(const StoredText& file, const CardInFile& card);
/// The edit that adds cards behind a directive and the blank lines that follow it. nullptr for a
/// file without directives: they come where nothing that is open swallows them.
TextEdit AddedLines(const StoredText& file, const DirectivePlace* behind,
                    const std::string& written);

/// The edit that puts another directive into the place of one.
TextEdit ReplacedLine(const StoredText& file, const DirectivePlace& place, const std::string& line);

/// Edits without a text that leave a line with nothing but blanks take it out as a whole.
std::vector<TextEdit> WithWholeLines(const StoredText& file, std::vector<TextEdit> edits);

}  // namespace brindlemoor

// Message expansion: placeholders, "#...#" fields and custom strings of a text.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// A mark that messages are filled in at, for references and checkers: "$MYNAME", or the keyword
/// "#MYTRAIT" of a field that "/", an argument and "#" follow.
struct MessageMark {
  std::string_view Mark;
  std::string_view Meaning;  ///< one line for authors
  bool OpensField = false;
  bool TakesValue = false;  ///< the field's argument is a value expression
  bool ReadsTrait = false;  ///< the field is a trait of one of the two cards, as it stands
};
std::span<const MessageMark> MessageMarks();

/// The mark that opens a field from its "#" up to the closing one; nullptr for any other text.
const MessageMark* FindFieldMark(std::string_view field);

/// Fills a template in place for a pair of cards; the pictures are HTML or "". An "OVERRIDE"
/// caption that is read is emptied; nothing else of the cards changes.
void ExpandMessage(Card& source, Card& target, std::string& text, std::string_view sourcePicture,
                   std::string_view targetPicture);

/// The same for a text that is only shown. False when nobody reads it and it was left out, custom
/// strings apart, which are rolled in any case (pages/unread_texts.h).
bool ExpandShownMessage(Card& source, Card& target, std::string& text,
                        std::string_view sourcePicture, std::string_view targetPicture);

/// Fills the fields between two "#"; bounded (limits.h).
void ExpandHashFields(Card& source, Card& target, std::string& text);

/// One of the values of a custom string at random; "(STRING NOT FOUND)" for an unknown key.
std::string CustomStringPick(std::string_view key);

/// The caption of a trait, "" if there is none. A caption "OVERRIDE" is returned once.
std::string TraitCaptionText(Card& card, std::string_view name);

}  // namespace brindlemoor

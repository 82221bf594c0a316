// The fields of a session's records that a recording writes and a replay reads.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "journal/journal_text.h"
#include "journal/moments.h"
#include "platform/image_library.h"
#include "platform/platform.h"
#include "platform/user_events.h"

namespace brindlemoor {

/// An event of a journal: NUMBER MOMENT KIND FORM CONTROL and what it carries; events of a form
/// name no control.
struct RecordedEvent {
  int Number = 0;
  Moment When;
  std::string Form;
  UserEvent Event;
};
JournalFields EventFields(int number, const Moment& when, const std::string& form,
                          const UserEvent& event);
std::optional<RecordedEvent> ReadEvent(const JournalFields& fields);

/// Pairs of an encoder's number (32 hexadecimal digits) and its patterns.
JournalFields FieldsOf(const std::vector<ImageEncoder>& encoders);
std::optional<std::vector<ImageEncoder>> ReadEncoders(const JournalFields& fields);

/// "save", "discard" or "cancel"; any other word is a cancel.
std::string WordOf(SaveAnswer answer);
SaveAnswer SaveAnswerOf(std::string_view word);

/// A whole decimal number of the type; nothing for any other text.
std::optional<int> ReadInt(const std::string& text);
std::optional<std::uint64_t> ReadUnsigned(const std::string& text);

}  // namespace brindlemoor

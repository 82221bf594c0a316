// What a scenario can set and expect by name: fields of a card, values of the session.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/records.h"

namespace brindlemoor {

struct CardFieldRow {
  std::string_view Word;
  std::string (*Read)(const Card& card);
  /// False when the text is no such value; nullptr for what is only read.
  bool (*Write)(Card& card, const std::string& text);
  std::string_view Meaning;
};
std::span<const CardFieldRow> CardFieldRows();
const CardFieldRow* FindCardField(std::string_view word);

struct SessionValueRow {
  std::string_view Word;
  double (*Read)();
  void (*Write)(double value);
  double Least;
  double Most;
  std::string_view Meaning;
};
std::span<const SessionValueRow> SessionValueRows();
const SessionValueRow* FindSessionValue(std::string_view word);

}  // namespace brindlemoor

// CheckedFields: a text under check as ":" fields, with the findings about it.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/strings.h"
#include "lint/finding_list.h"

namespace brindlemoor {

/// Fields are counted from 0; one beyond the last is an empty one at the text's end.
class CheckedFields {
 public:
  explicit CheckedFields(std::string_view text) : Findings(text), text_(text) {
    if (text.empty()) return;
    for (FieldWalker walker(text, ':'); !walker.AtEnd();) fields_.push_back(walker.Next());
  }

  std::string_view operator[](std::size_t n) const {
    return n < fields_.size() ? fields_[n] : text_.substr(text_.size());
  }
  std::size_t Count() const { return fields_.size(); }
  /// False beyond the last field, and for an empty last field: a ":" at the end is nothing.
  bool Holds(std::size_t n) const {
    return n < fields_.size() && (n + 1 < fields_.size() || !fields_[n].empty());
  }
  /// True when text stands in field n or behind it.
  bool HoldsTextFrom(std::size_t n) const {
    for (; n < fields_.size(); ++n) {
      if (!fields_[n].empty()) return true;
    }
    return false;
  }

  /// Adds a finding about a field.
  void Add(FindingKind kind, std::size_t n, std::string message, std::string suggestion = {}) {
    Findings.SetField(static_cast<int>(n) + 1);
    Findings.Add(kind, (*this)[n], std::move(message), std::move(suggestion));
  }
  /// Adds that a word's argument is missing in field n.
  void AddMissing(std::size_t n, std::string_view word, std::string_view name,
                  std::string_view form) {
    Add(FindingKind::kMissingArgument, n, Joined(word, " lacks its ", name, ": ", form, "."));
  }

  FindingList Findings;

 private:
  std::string_view text_;
  std::vector<std::string_view> fields_;
};

}  // namespace brindlemoor

// FindingList: the findings about one text while it is being checked.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "lint/script_check.h"
#include "text/text.h"

namespace brindlemoor {

class FindingList {
 public:
  explicit FindingList(std::string_view text) : text_(text) {}

  /// The ":" field that findings lie in from now on.
  void SetField(int field) { field_ = field; }
  /// Adds a finding at a part of the checked text.
  void Add(FindingKind kind, std::string_view part, std::string message,
           std::string suggestion = {}) {
    if (Full()) return;
    const std::size_t offset = static_cast<std::size_t>(part.data() - text_.data());
    findings_.push_back({kind, field_, offset, std::move(message), std::move(suggestion)});
  }
  /// True when so much is wrong that nobody would read on.
  bool Full() const { return findings_.size() >= kMostFindings; }
  bool None() const { return findings_.empty(); }
  /// All of them in the order of the text.
  std::vector<ScriptFinding> Take() {
    std::ranges::stable_sort(findings_, {}, &ScriptFinding::Offset);
    return std::move(findings_);
  }

 private:
  static constexpr std::size_t kMostFindings = 200;

  std::string_view text_;
  int field_ = 0;
  std::vector<ScriptFinding> findings_;
};

/// A word of the checked text in quotes, cut when it is long.
inline std::string Quoted(std::string_view word) {
  constexpr std::size_t kShown = 40;
  if (word.size() <= kShown) return Joined('"', word, '"');
  std::size_t end = kShown;
  while (end > 0 && (static_cast<unsigned char>(word[end]) & 0xC0) == 0x80) --end;
  return Joined('"', word.substr(0, end), "...\"");
}

}  // namespace brindlemoor

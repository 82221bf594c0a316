// The one session, shared script texts and the problems of files.
#include "core/state.h"

#include "core/desktop.h"
#include "core/limits.h"

namespace brindlemoor {

namespace {

/// A text that a file may have made as long as itself.
std::string Shortened(std::string_view text) {
  constexpr std::size_t kLongest = 4000;
  if (text.size() <= kLongest) return std::string(text);
  std::size_t end = kLongest;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return Joined(text.substr(0, end), "...");
}

}  // namespace

Session internal::TheSession;

Platform& Desktop() { return *State().Desktop; }

Text InternText(std::string_view text) {
  if (text.empty() || text.size() > limits::kInternedBytes) return text;
  auto& interned = State().InternedTexts;
  if (const auto entry = interned.find(text); entry != interned.end()) return entry->second;
  if (interned.size() >= limits::kInternedTexts) interned.clear();
  Text shared(text);
  interned.emplace(shared.View(), shared);
  return shared;
}

void AddProblem(std::string_view file, int line, std::string_view message) {
  auto& problems = State().Problems;
  if (problems.size() >= limits::kProblems) return;
  problems.push_back({Shortened(file), line, Shortened(message)});
}

}  // namespace brindlemoor

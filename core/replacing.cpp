// Replacing in texts.
#include "core/replacing.h"

#include <algorithm>

#include "core/limits.h"
#include "core/strings.h"

namespace brindlemoor {

namespace {

/// Replaces from left to right; what was written is not searched again.
std::string ReplacedInOnePass(std::string_view text, std::string_view search,
                              std::string_view replacement, std::size_t longest) {
  std::string out;
  out.reserve(text.size() + replacement.size());
  std::size_t position = 0;
  while (true) {
    const std::size_t found = text.find(search, position);
    if (found == std::string_view::npos) break;
    if (out.size() + (found - position) + replacement.size() > longest) {
      limits::ReportLimit("A text grew too long and was not replaced further.");
      break;
    }
    out.append(text.substr(position, found - position)).append(replacement);
    position = found + search.size();
  }
  return out.append(text.substr(position));
}

/// True when no replacement can be part of another place that holds the search text, so that one
/// pass does what starting again does.
bool NeverMeetsAgain(std::string_view search, std::string_view replacement) {
  if (search.size() == 1) return replacement.find(search.front()) == std::string_view::npos;
  return !replacement.empty() && search.find(replacement.front()) == std::string_view::npos &&
         replacement.find(search.front()) == std::string_view::npos;
}

/// Replaces as if the search began anew after each replacement. Characters pass one by one into the
/// result; when its end is the search text, the replacement goes back in front of what is left.
std::string ReplacedWithRescan(std::string_view text, std::string_view search,
                               std::string_view replacement, std::size_t longest) {
  const std::size_t mostReplacements = limits::kReplacements + text.size() / search.size();
  std::size_t replacements = 0;
  std::string out(text.substr(0, text.find(search)));
  std::string_view rest = text.substr(out.size());
  std::string again;  // what stands before rest, last character first
  while (!again.empty() || !rest.empty()) {
    // The search text can only end where its last character stands.
    if (again.empty()) {
      const std::size_t passed = std::min(rest.find(search.back()), rest.size() - 1) + 1;
      out += rest.substr(0, passed);
      rest.remove_prefix(passed);
    } else {
      auto passed = std::find(again.rbegin(), again.rend(), search.back());
      if (passed != again.rend()) ++passed;
      out.append(again.rbegin(), passed);
      again.erase(passed.base(), again.end());
    }
    if (out.back() != search.back() || !out.ends_with(search)) continue;
    out.resize(out.size() - search.size());
    again.append(replacement.rbegin(), replacement.rend());
    if (++replacements < mostReplacements && out.size() + again.size() + rest.size() <= longest) {
      continue;
    }
    limits::ReportLimit("A replacement in a text had no end and was stopped.");
    out.append(again.rbegin(), again.rend());
    return out.append(ReplacedInOnePass(rest, search, replacement, longest));
  }
  return out;
}

}  // namespace

std::string& ReplaceAll(std::string& text, std::string_view search, std::string_view replacement) {
  if (search.empty() || text.find(search) == std::string::npos) return text;
  const std::size_t longest = std::max<std::size_t>(limits::kTextBytes, text.size() * 4);
  const std::size_t mostReplacements = text.size() / search.size();
  if (mostReplacements < limits::kReplacements && NeverMeetsAgain(search, replacement) &&
      text.size() + mostReplacements * replacement.size() <= longest) {
    return text = ReplacedInOnePass(text, search, replacement, longest);
  }
  text = replacement.find(search) == std::string_view::npos
             ? ReplacedWithRescan(text, search, replacement, longest)
             : ReplacedInOnePass(text, search, replacement, longest);
  return text;
}

std::string ReplacedCopy(std::string_view text, std::string_view search,
                         std::string_view replacement) {
  std::string copy(text);
  return ReplaceAll(copy, search, replacement);
}

}  // namespace brindlemoor

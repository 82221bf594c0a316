// Replacing in texts of the plain engine: the search begins anew after each replacement.
#include "core/replacing.h"

#include <algorithm>

#include "core/limits.h"
#include "core/strings.h"

namespace brindlemoor {

std::string& ReplaceAll(std::string& text, std::string_view search, std::string_view replacement) {
  if (search.empty()) return text;
  const bool endless = replacement.find(search) != std::string_view::npos;
  const std::size_t longest = std::max<std::size_t>(limits::kTextBytes, text.size() * 4);
  std::size_t found = text.find(search);
  while (found != std::string::npos && text.size() + replacement.size() <= longest) {
    text.replace(found, search.size(), replacement);
    found = text.find(search, endless ? found + replacement.size() : 0);
  }
  return text;
}

std::string ReplacedCopy(std::string_view text, std::string_view search,
                         std::string_view replacement) {
  std::string copy(text);
  return ReplaceAll(copy, search, replacement);
}

}  // namespace brindlemoor

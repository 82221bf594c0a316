// Reading the list of shipped files.
#include "sharing/shipped_list.h"

#include <charconv>
#include <system_error>

#include "sharing/entry_names.h"
#include "text/hex_digits.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kHead = "The files that came with Brindlemoor";
constexpr std::string_view kGone = "-";
constexpr std::size_t kHashDigits = 16;

/// "2 0123456789abcdef art/moth.jpg": since this edition the file is so; "-" for a file that has
/// gone.
struct Line {
  int Edition = 0;  ///< from 1
  std::string_view Hash;
  std::string_view Name;
};

/// Takes a text up to the next separator off the front of another.
std::string_view TakeUpTo(char separator, std::string_view& text) {
  const std::size_t end = text.find(separator);
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(end == text.npos ? text.size() : end + 1);
  return taken;
}

std::optional<Line> ReadLine(std::string_view text) {
  Line line;
  const std::string_view edition = TakeUpTo(' ', text);
  const char* end = edition.data() + edition.size();
  const auto [rest, error] = std::from_chars(edition.data(), end, line.Edition);
  line.Hash = TakeUpTo(' ', text);
  line.Name = text;
  const bool isHash =
      line.Hash.size() == kHashDigits && line.Hash.find_first_not_of(kHexDigits) == text.npos;
  const bool isRight = error == std::errc{} && rest == end && line.Edition >= 1 &&
                       (isHash || line.Hash == kGone) && WhyNoPlace(line.Name).empty();
  return isRight ? std::optional(line) : std::nullopt;
}

void Take(const Line& line, ShippedList& list) {
  std::string name(line.Name);
  if (line.Hash == kGone) {
    list.Latest.erase(name);
    return;
  }
  std::string hash(line.Hash);
  if (line.Edition == 1) list.First[name] = hash;
  list.Latest[name] = hash;
  list.Known.emplace(std::move(name), std::move(hash));
}

}  // namespace

std::optional<ShippedList> ReadShippedList(std::string_view bytes) {
  if (!TakeUpTo('\n', bytes).starts_with(kHead)) return std::nullopt;
  ShippedList list;
  int edition = 1;
  while (!bytes.empty()) {
    const auto line = ReadLine(TakeUpTo('\n', bytes));
    if (!line || line->Edition < edition) return std::nullopt;
    edition = line->Edition;
    Take(*line, list);
  }
  return list;
}

}  // namespace brindlemoor

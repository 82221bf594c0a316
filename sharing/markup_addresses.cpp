// Finding addresses in tags and styles, and where they lead.
#include "sharing/markup_addresses.h"

#include <algorithm>
#include <array>

#include "sharing/named_files.h"
#include "text/addresses.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::array<std::string_view, 3> kLoading = {"SRC", "BACKGROUND", "POSTER"};

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Cuts a value off that stands in quotes or up to a blank.
std::string_view CutValue(std::string_view& rest) {
  const bool isQuoted = !rest.empty() && (rest[0] == '"' || rest[0] == '\'');
  const std::size_t start = isQuoted ? 1 : 0;
  const std::size_t end = isQuoted ? rest.find(rest[0], start) : rest.find_first_of(kBlanks, start);
  const std::string_view value = rest.substr(start, end == rest.npos ? end : end - start);
  rest.remove_prefix(std::min(rest.size(), end == rest.npos ? end : end + 1));
  return value;
}

/// True for an address of the network, of a command or of a place in the same page.
bool LeadsElsewhere(std::string_view address) {
  if (address.empty() || address.starts_with('#') || address.starts_with("//")) return true;
  const std::size_t mark = address.find_first_of(":/?#");
  return mark != address.npos && address[mark] == ':';
}

/// The attributes of one tag, without its brackets.
void AddFromTag(std::string_view tag, AddressKind kind, std::vector<std::string>& found) {
  const std::size_t name = std::min(tag.find_first_of(kBlanks), tag.size());
  const bool isStyle = FoldEquals(tag.substr(0, name), "link");
  for (std::string_view rest = tag.substr(name); !rest.empty();) {
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    const std::size_t end = std::min(rest.find_first_of(" \t\r\n="), rest.size());
    const std::string attribute = FoldUpper(rest.substr(0, end));
    rest.remove_prefix(end);
    const std::size_t mark = rest.find_first_not_of(kBlanks);
    if (mark == rest.npos) return;
    if (rest[mark] != '=') continue;
    rest.remove_prefix(mark + 1);
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    const std::string_view value = CutValue(rest);
    const bool loads = std::ranges::find(kLoading, attribute) != kLoading.end();
    const bool leads = attribute == "HREF" && (isStyle || kind == AddressKind::kLinkedTo);
    if ((loads || leads) && !LeadsElsewhere(Trimmed(value))) found.emplace_back(Trimmed(value));
  }
}

}  // namespace

std::vector<std::string> MarkupAddresses(std::string_view text, AddressKind kind) {
  constexpr std::string_view kComment = "<!--";
  constexpr std::string_view kCommentEnd = "-->";
  std::vector<std::string> found;
  for (std::size_t at = text.find('<'); at != text.npos; at = text.find('<', at)) {
    const bool isComment = text.substr(at).starts_with(kComment);
    const std::size_t end = isComment ? text.find(kCommentEnd, at) : text.find('>', at);
    if (end == text.npos) break;
    if (!isComment) AddFromTag(text.substr(at + 1, end - at - 1), kind, found);
    at = end;
  }
  return found;
}

std::vector<std::string> AddressesOfStyle(std::string_view css) {
  constexpr std::string_view kAddress = "url(";
  constexpr std::string_view kImport = "@import";
  std::vector<std::string> found;
  const auto add = [&found](std::string_view address) {
    address = Trimmed(address);
    if (address.starts_with('"') || address.starts_with('\'')) address = CutValue(address);
    if (!LeadsElsewhere(address)) found.emplace_back(address);
  };
  for (std::size_t at = css.find(kAddress); at != css.npos; at = css.find(kAddress, at + 1)) {
    const std::size_t start = at + kAddress.size();
    add(css.substr(start, css.find(')', start) - start));
  }
  for (std::size_t at = css.find(kImport); at != css.npos; at = css.find(kImport, at + 1)) {
    const std::size_t start = at + kImport.size();
    const std::string_view rest = Trimmed(css.substr(start, css.find(';', start) - start));
    if (!rest.starts_with(kAddress)) add(rest);
  }
  return found;
}

std::vector<std::string> AddressesOfPage(std::string_view html) {
  std::vector<std::string> found = MarkupAddresses(html, AddressKind::kLinkedTo);
  const std::vector<std::string> ofStyles = AddressesOfStyle(html);
  found.insert(found.end(), ofStyles.begin(), ofStyles.end());
  return found;
}

std::string PlaceOfAddress(std::string_view folder, std::string_view address) {
  std::string path;
  for (std::string_view rest = address.substr(0, address.find_first_of("?#")); !rest.empty();) {
    path += TakeUrlCharacter(rest);
  }
  if (path.starts_with('/')) return "";
  std::string inside(folder);
  for (std::string_view rest = path; !rest.empty();) {
    const std::size_t end = rest.find('/');
    const std::string_view part = rest.substr(0, end);
    const bool isLast = end == rest.npos;
    rest.remove_prefix(isLast ? rest.size() : end + 1);
    if (part.empty() || part == ".") continue;
    if (part != "..") {
      if (!isLast && !inside.empty()) return "";
      if (isLast) return inside.empty() ? std::string(part) : Joined(inside, "/", part);
      inside = part;
    } else if (inside.empty()) {
      return "";
    } else {
      inside.clear();
    }
  }
  return "";
}

}  // namespace brindlemoor

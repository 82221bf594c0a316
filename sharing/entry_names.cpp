// The rules for names in archives.
#include "sharing/entry_names.h"

#include <algorithm>
#include <array>
#include <vector>

#include "data/profiles.h"
#include "text/encoding.h"
#include "text/file_names.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kLongestPart = 200;  // bytes; a replaced file is kept under a longer name

struct KindRow {
  std::string_view Ending;
  GameFileKind Kind;
};
constexpr auto kKinds = std::to_array<KindRow>({
    {".txt", GameFileKind::kText},
    {".bmp", GameFileKind::kPicture},
    {".gif", GameFileKind::kPicture},
    {".ico", GameFileKind::kPicture},
    {".jpg", GameFileKind::kPicture},
    {".jpeg", GameFileKind::kPicture},
    {".png", GameFileKind::kPicture},
    {".svg", GameFileKind::kPicture},
    {".webp", GameFileKind::kPicture},
    {".htm", GameFileKind::kPage},
    {".html", GameFileKind::kPage},
    {".css", GameFileKind::kStyle},
});

/// Without endings; a second program on a folder writes "Display-2.html".
constexpr std::array<std::string_view, 9> kProgramsPages = {
    "BLANK",      "CARDDESC",     "CARDPREVIEW", "DISPLAY",        "EARLIERTURN",
    "FIRSTSTEPS", "LASTDIPLAYED", "MAINHELP",    "SCRIPTREFERENCE"};

/// Names that some systems keep for devices, whatever ending stands behind them.
constexpr std::array<std::string_view, 22> kDevices = {
    "CON",  "PRN",  "AUX",  "NUL",  "COM1", "COM2", "COM3", "COM4", "COM5", "COM6", "COM7",
    "COM8", "COM9", "LPT1", "LPT2", "LPT3", "LPT4", "LPT5", "LPT6", "LPT7", "LPT8", "LPT9"};

template <class Words>
bool IsOneOf(const Words& words, std::string_view word) {
  return std::ranges::find(words, word) != words.end();
}

/// Characters that nobody sees and that turn or hide others, as UTF-8: controls beyond ASCII,
/// blanks without a width, marks of direction, line ends.
struct CharacterRange {
  std::string_view First;
  std::string_view Last;
};
constexpr std::array<CharacterRange, 5> kHidden = {{{"\xC2\x80", "\xC2\x9F"},
                                                    {"\xE2\x80\x8B", "\xE2\x80\x8F"},
                                                    {"\xE2\x80\xA8", "\xE2\x80\xAE"},
                                                    {"\xE2\x81\xA0", "\xE2\x81\xAF"},
                                                    {"\xEF\xBB\xBF", "\xEF\xBB\xBF"}}};

bool HasControls(std::string_view name) {
  for (std::size_t at = 0; at < name.size(); ++at) {
    const auto byte = static_cast<unsigned char>(name[at]);
    if (byte < 0x20 || byte == 0x7F) return true;
    const std::string_view rest = name.substr(at);
    const bool isHidden = std::ranges::any_of(kHidden, [rest](const CharacterRange& range) {
      const std::string_view character = rest.substr(0, range.First.size());
      return character >= range.First && character <= range.Last;
    });
    if (isHidden) return true;
  }
  return false;
}

std::vector<std::string_view> PartsOf(std::string_view name) {
  std::vector<std::string_view> parts;
  for (std::size_t start = 0;;) {
    const std::size_t end = name.find('/', start);
    parts.push_back(name.substr(start, end - start));
    if (end == name.npos) return parts;
    start = end + 1;
  }
}

std::string WhyNoPart(std::string_view part) {
  if (part.empty()) return "has a folder without a name";
  if (part == "." || part == "..") return "leads to another folder";
  if (part.size() > kLongestPart) return "is too long";
  if (part.starts_with('.')) return "is hidden";
  if (part.ends_with('.') || part.ends_with(' ') || part.starts_with(' ')) {
    return "begins or ends with a blank or a full stop";
  }
  if (IsOneOf(kDevices, FoldUpper(part.substr(0, part.find('.'))))) {
    return "is a device on some systems";
  }
  return "";
}

/// What holds for files and folders.
std::string WhyNoName(std::string_view name) {
  if (!IsUtf8(name)) return "is no UTF-8 text";
  if (HasControls(name)) return "has control characters";
  if (name.empty()) return "is empty";
  if (name.starts_with('/')) return "is absolute";
  if (name.find('\\') != name.npos) return "has a backslash";
  if (name.size() > 1 && name[1] == ':') return "has a drive letter";
  if (name.find_first_of(":*?\"<>|") != name.npos) {
    return "has characters that some systems can't keep";
  }
  for (const std::string_view part : PartsOf(name)) {
    if (std::string why = WhyNoPart(part); !why.empty()) return why;
  }
  return "";
}

}  // namespace

GameFileKind KindOfGameFile(std::string_view name) {
  for (const KindRow& row : kKinds) {
    if (name.size() > row.Ending.size() &&
        FoldEquals(name.substr(name.size() - row.Ending.size()), row.Ending)) {
      return row.Kind;
    }
  }
  return GameFileKind::kNone;
}

bool IsProgramsOwn(std::string_view fileName) {
  const std::string folded = FoldUpper(fileName);
  if (folded == "PLAYERPROFILES.TXT" || BelongsToPlayers(folded)) return true;
  if (KindOfGameFile(fileName) != GameFileKind::kPage) return false;
  std::string_view stem = std::string_view(folded).substr(0, folded.rfind('.'));
  const std::size_t dash = stem.rfind('-');
  if (dash != stem.npos && stem.find_first_not_of("0123456789", dash + 1) == stem.npos) {
    stem = stem.substr(0, dash);
  }
  return IsOneOf(kProgramsPages, stem);
}

std::string WhyNoPlace(std::string_view name) {
  std::string why = WhyNoName(name);
  if (why.empty() && PartsOf(name).size() > kMostEntryParts) why = "lies in a folder of a folder";
  return why;
}

std::string WhyNoEntry(std::string_view name) {
  std::string why = WhyNoPlace(name);
  if (!why.empty()) return why;
  if (IsProgramsOwn(PartsOf(name).back())) return "is a file that the program or a player has";
  if (KindOfGameFile(name) == GameFileKind::kNone) return "is of no kind that games have";
  return "";
}

std::string WhyNoFolderEntry(std::string_view name) {
  if (name.ends_with('/')) name.remove_suffix(1);
  std::string why = WhyNoName(name);
  if (why.empty() && PartsOf(name).size() >= kMostEntryParts) why = "is a folder of a folder";
  return why;
}

}  // namespace brindlemoor

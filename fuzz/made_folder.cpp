// Making folders of strangers, and looking whether anything has left them.
#include "fuzz/made_folder.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <system_error>
#include <vector>

#include "fuzz/fuzz_session.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

constexpr int kMostEntries = 80;
constexpr std::size_t kLongPiece = 200;
constexpr std::uintmax_t kMostKib = 1024;
constexpr std::uintmax_t kHuge = std::uintmax_t{300} << 20;
/// The program writes no larger files here.
constexpr std::uintmax_t kLargestSearched = 16 << 20;

void Put(const fs::path& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary | std::ios::app) << bytes;
}

std::string BytesOf(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// A file that tells its secret to whoever reads it, as what he takes it for.
std::string SecretCardFile(std::string_view secret) {
  return Joined("\"#PLAYERPROFILE\",\"", secret, "\",\"", secret,
                ".plr:Small.txt\",\"\",\"\",\"\"\n", "#GAMERULES, ", secret,
                ", banner.jpg, #112233, small, SmallHelp.html\n", "#CARD, INPLAYERDECK:1, ", secret,
                ", S-9, , , , #FFFFFF, \"", secret, "\"\n",
                "#TRAIT, PLAYER:1, #TRAIT, HP:9, #TRAIT, ", secret, ":1\n", "#CARD, #PLAYERCARD, ",
                secret, ", S-8, , , , #FFFFFF, \"\"\n");
}

/// The bytes of a name: "%0A" and "%*" taken back.
std::string NameOf(std::string_view coded) {
  std::string name;
  for (std::size_t at = 0; at < coded.size(); ++at) {
    unsigned char byte = 0;
    const char* digits = coded.data() + at + 1;
    if (coded[at] != '%') {
      name += coded[at];
    } else if (coded.substr(at).starts_with("%*")) {
      name.append(kLongPiece, 'x');
      ++at;
    } else if (at + 2 < coded.size() &&
               std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2 && byte != 0) {
      name += static_cast<char>(byte);
      at += 2;
    } else {
      name += '%';
    }
  }
  std::erase(name, '\0');
  return name;
}

bool IsRealFolder(const fs::path& path) {
  std::error_code failure;
  return fs::symlink_status(path, failure).type() == fs::file_type::directory;
}

/// Both sides of " > ".
std::pair<std::string_view, std::string_view> Halves(std::string_view line) {
  constexpr std::string_view kBetween = " > ";
  const std::size_t middle = line.find(kBetween);
  if (middle == line.npos) return {line, ""};
  return {line.substr(0, middle), line.substr(middle + kBetween.size())};
}

void AddZeros(const fs::path& path, std::string_view size) {
  std::uintmax_t kib = 0;
  std::from_chars(size.data(), size.data() + size.size(), kib);
  Put(path, "");
  std::error_code failure;
  fs::resize_file(path, size == "huge" ? kHuge : std::min(kib, kMostKib) << 10, failure);
}

/// What must stay as it is of an entry outside of the folder.
std::string StateOf(const fs::path& path) {
  struct stat status {};
  if (::lstat(path.c_str(), &status) != 0) return "nothing";
  std::string state = Joined(status.st_mode, " ", status.st_size, " ", status.st_mtim.tv_sec, ".",
                             status.st_mtim.tv_nsec, " ");
  return S_ISREG(status.st_mode) ? state + BytesOf(path) : state;
}

}  // namespace

MadeFolder::MadeFolder(std::string_view input) : secret_("secret" + HashOf(input)) {
  std::string pattern = (fs::temp_directory_path() / "brindlemoor-fuzz-XXXXXX").string();
  MustHold(::mkdtemp(pattern.data()) != nullptr, "no folder can be made");
  root_ = fs::canonical(pattern);
  folder_ = root_ / "games/game";
  fs::create_directories(folder_);
  fs::create_directories(root_ / "home");
  Put(root_ / "home" / Joined("Imp ", secret_, ".txt"), SecretCardFile(secret_));
  Put(root_ / "home/own.txt", "the user's own\n");
  Put(root_ / "games/beside.txt", "#CARD, INDECK, Beside, S-7, , , , #FFFFFF, \"\"\n");
  int entries = 0;
  for (const std::string& line : LinesOf(input)) {
    if (line.size() > 3 && line[0] == '@' && line[2] == ' ') {
      if (++entries > kMostEntries) break;
      AddEntry(line[1], std::string_view(line).substr(3));
    } else if (!text_.empty()) {
      Put(text_, line + "\n");
    }
  }
  rest_ = Rest();
}

MadeFolder::~MadeFolder() {
  std::error_code ignored;
  fs::remove_all(root_, ignored);
}

void MadeFolder::AddEntry(char kind, std::string_view line) {
  text_.clear();
  const auto [name, rest] = Halves(line);
  const fs::path path = Place(kind == '@' || kind == '/' || kind == '|' ? line : name);
  std::error_code failure;
  if (path.empty()) return;
  if (kind == '@') AddText(path);
  if (kind == '/') fs::create_directory(path, failure);
  if (kind == '>') AddLink(path, rest);
  if (kind == '=') AddName(path, rest);
  if (kind == '|') ::mkfifo(path.c_str(), 0600);
  if (kind == '0') AddZeros(path, rest);
}

void MadeFolder::AddText(const fs::path& path) {
  Put(path, "");
  text_ = path;
}

void MadeFolder::AddLink(const fs::path& path, std::string_view target) const {
  const std::pair<std::string_view, std::string> words[] = {
      {"$SECRET", (root_ / "home" / Joined("Imp ", secret_, ".txt")).string()},
      {"$HOME", (root_ / "home").string()},
      {"$ZERO", "/dev/zero"},
      {"$PROC", "/proc/self/environ"}};
  std::string leadsTo = NameOf(target);
  for (const auto& [word, meaning] : words) {
    if (leadsTo.starts_with(word)) leadsTo.replace(0, word.size(), meaning);
  }
  const bool isFar = target.starts_with('/') || target.starts_with('%');
  std::error_code failure;
  if (!isFar) fs::create_symlink(leadsTo, path, failure);
}

void MadeFolder::AddName(const fs::path& path, std::string_view other) const {
  const fs::path named = other == "$OWN" ? root_ / "home/own.txt" : folder_ / NameOf(other);
  std::error_code failure;
  const bool isInside = other == "$OWN" || other.find("..") == other.npos;
  if (isInside && fs::symlink_status(named, failure).type() == fs::file_type::regular &&
      IsRealFolder(named.parent_path())) {
    fs::create_hard_link(named, path, failure);
  }
}

fs::path MadeFolder::Place(std::string_view name) const {
  fs::path path = folder_;
  for (const fs::path& part : fs::path(NameOf(name))) {
    const bool isName = !part.empty() && part != "." && part != ".." && part != "/";
    if (!isName) continue;
    std::error_code failure;
    if (path != folder_) fs::create_directory(path, failure);
    if (!IsRealFolder(path)) return {};
    path /= part;
  }
  std::error_code failure;
  const bool isFree = fs::symlink_status(path, failure).type() == fs::file_type::not_found;
  return isFree ? path : fs::path();
}

std::vector<std::string> MadeFolder::CardFiles() const {
  std::vector<std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder_)) {
    const bool isFile = entry.symlink_status().type() == fs::file_type::regular;
    if (isFile && entry.path().extension() == ".txt") files.push_back(entry.path().string());
  }
  std::ranges::sort(files);
  return files;
}

std::map<std::string, std::string> MadeFolder::Rest() const {
  std::map<std::string, std::string> rest{{root_.string(), StateOf(root_)}};
  for (auto entry = fs::recursive_directory_iterator(root_); entry != end(entry); ++entry) {
    if (entry->path() == folder_) {
      entry.disable_recursion_pending();
    } else {
      rest.emplace(entry->path().string(), StateOf(entry->path()));
    }
  }
  return rest;
}

void MadeFolder::MustNotTell(std::string_view bytes) const {
  MustHold(bytes.find(secret_) == std::string::npos,
           "a file of the folder holds what stands outside of it");
}

void MadeFolder::MustHaveKeptTheRest() const {
  MustHold(Rest() == rest_, "something has changed outside of the program's folder");
  for (const auto& entry : fs::recursive_directory_iterator(folder_)) {
    if (entry.symlink_status().type() != fs::file_type::regular) continue;
    if (entry.file_size() > kLargestSearched) continue;
    MustNotTell(BytesOf(entry.path()));
  }
}

std::vector<std::string> StrangeFolders(const std::string& game) {
  constexpr std::string_view kPlayerFile =
      "#PLAYERDECK\n\n#TOKENS, 90\n#CARD, INPLAYERDECK:1, Hero, S-2, , , , #00FF00, \"\"\n"
      "#TRAIT, PLAYER:1\n#TRAIT, HP:9\n";
  return {
      game,
      // Links in place of what the program writes.
      Joined("@> Display.html > $HOME/own.txt\n@> LastDiplayed.html > $HOME/new.html\n"
             "@> CardDesc.html > $SECRET\n@> PlayerProfiles.txt > $SECRET\n"
             "@> Ann_Small.plr.before > $HOME/own.txt\n@> CardImages.list > $HOME/own.txt\n"
             "@> .brindlemoor-1.lock > $HOME/new.lock\n@> Cards.txt.unsaved > $HOME/own.txt\n",
             game),
      Joined("@> Ann_Small.plr > $SECRET\n", game),
      Joined("@@ Ann_Small.plr\n", kPlayerFile, game),
      // What reading must not wait for or follow.
      Joined("@| Pipe.txt\n@| .brindlemoor-1.lock\n@| small/Pipe.txt\n@> Zero.txt > $ZERO\n"
             "@> Own.txt > $PROC\n@> Secret.txt > $SECRET\n@0 Zeros.txt > 64\n@0 Huge.txt > huge\n"
             "@/ Folder.txt\n@| PlayerProfiles.txt\n@> small/4_Links.txt > ../Secret.txt\n",
             game),
      // Folders that are links.
      Joined("@> art > $HOME\n@> away > ../../home\n@> up > ..\n@> round > round\n@> here > .\n"
             "@> nothing > missing\n@> inside > small\n@@ Away.txt\n"
             "#GAMERULES, Away, banner.jpg, #112233, away, SmallHelp.html\n",
             game),
      // Names.
      Joined("@@ small/5_Line%0Aend.txt\n#CARD, #PLAYERCARD, Line, S-6, , , , #FFFFFF, \"\"\n"
             "@@ small/6_%FF%FE.txt\n@@ small/7_ 100%25 .txt\n@@ %*.txt\n@@ %*%*.txt\n@@ "
             "small\\a.txt\n"
             "@@ -rf.txt\n@@ .txt\n@= Display.html > $OWN\n@= LastDiplayed.html > $OWN\n"
             "@= Second.txt > small\\a.txt\n@= Ann_Small.plr > $OWN\n",
             game),
  };
}

}  // namespace brindlemoor

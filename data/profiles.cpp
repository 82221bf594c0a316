// Reading and writing of "PlayerProfiles.txt".
#include "data/profiles.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/field_stream.h"
#include "data/field_text.h"
#include "data/saving.h"
#include "platform/passing_names.h"
#include "text/encoding.h"
#include "text/file_names.h"
#include "text/fold.h"
#include "text/hash.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kListFile = "PlayerProfiles.txt";
constexpr std::string_view kWord = "#PLAYERPROFILE";
constexpr int kLongestName = 100;
/// No system has longer names of files; the longest ending of names that are typed is
/// "_Starter.txt".
constexpr std::size_t kFileNameBytes = 255;
constexpr std::string_view kLongestEnding = "_Starter.txt";

std::string ProfileLine(const ProfileRec& profile) {
  const std::string files = Joined(profile.PlayerFile, ":", profile.RulesFile);
  return Joined("\"", kWord, "\",", NameField(profile.PlayerName), ",", NameField(files),
                ",\"\",\"\",\"\"", kLineEnd);
}

/// The five fields behind the word; what the end of the file cuts off is empty.
ProfileRec ReadProfile(FieldStream& stream) {
  std::array<std::string, 5> fields;
  for (std::string& field : fields) {
    if (!stream.Read(field)) break;
  }
  ProfileRec profile;
  profile.PlayerName = fields[0];
  profile.PlayerFile = FieldAt(fields[1], 1, ':');
  profile.RulesFile = FieldAt(fields[1], 2, ':');
  return profile;
}

/// The profiles of the list's file; nothing when it is there and can't be read.
std::optional<std::vector<ProfileRec>> ProfilesOfFile(const std::string& path) {
  std::vector<ProfileRec> profiles;
  if (path.empty()) return profiles;
  auto bytes = Desktop().Files().Read(path);
  if (!bytes) return std::nullopt;
  FieldStream stream(std::move(*bytes));
  for (std::string field; stream.Read(field);) {
    if (field == kWord) profiles.push_back(ReadProfile(stream));
  }
  return profiles;
}

bool IsAmong(const std::vector<ProfileRec>& profiles, const Text& name) {
  return std::ranges::find(profiles, name, &ProfileRec::PlayerName) != profiles.end();
}

/// Takes the lines of the file for all players but the present one: another program may have
/// written it since. False when it can't be read now.
bool TakeProfilesOfFile() {
  const std::string path = InProgramFolder(kListFile);
  auto profiles = ProfilesOfFile(IsThere(Desktop().Files(), path) ? path : "");
  if (!profiles) return false;
  Table<ProfileRec>& table = State().Profiles;
  for (const ProfileRec& profile : table) {
    if (!profile.PlayerName.empty() && !IsAmong(*profiles, profile.PlayerName)) {
      profiles->push_back(profile);
    }
  }
  if (profiles->empty()) return true;
  table.Resize(0);
  for (const ProfileRec& profile : *profiles) table.Append(profile);
  return true;
}

/// The list between its read and its write is one program's alone. One that is stuck is not waited
/// for any longer.
class ListInHand {
 public:
  ListInHand() {
    using namespace std::chrono_literals;
    constexpr int kLooks = 100;
    for (int look = 0; look < kLooks; ++look) {
      isHeld_ = Desktop().Files().Hold(path_) != HoldResult::kByAnother;
      if (isHeld_) return;
      std::this_thread::sleep_for(20ms);
    }
  }
  ~ListInHand() {
    if (isHeld_) Desktop().Files().LetGo(path_);
  }
  ListInHand(const ListInHand&) = delete;
  ListInHand& operator=(const ListInHand&) = delete;

 private:
  const std::string path_ = InProgramFolder(Joined(kPassingFile, "profiles.lock"));
  bool isHeld_ = false;
};

int Characters(std::string_view text) {
  int count = 0;
  for (std::size_t position = 0; position < text.size(); ++count) NextCodePoint(text, position);
  return count;
}

bool IsControl(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return byte < 0x20 || byte == 0x7F;
}

}  // namespace

bool BelongsToPlayers(std::string_view path) {
  const std::string name = FileNameOf(path);
  const auto endsWith = [&name](std::string_view ending) {
    return name.size() >= ending.size() &&
           FoldEquals(std::string_view(name).substr(name.size() - ending.size()), ending);
  };
  return name == kListFile || std::ranges::any_of(kPlayersEndings, endsWith);
}

bool IsCardFileName(std::string_view path) {
  constexpr std::string_view kExtension = ".txt";
  return path.size() > kExtension.size() && !BelongsToPlayers(path) &&
         FoldEquals(path.substr(path.size() - kExtension.size()), kExtension);
}

namespace {

std::string LockOf(std::string_view name) {
  return InProgramFolder(Joined(kPassingFile, "player-", HashOf(name), ".lock"));
}

}  // namespace

bool HoldPlayer(std::string_view name) {
  return Desktop().Files().Hold(LockOf(name)) != HoldResult::kByAnother;
}

void ReleasePlayer(std::string_view name) { Desktop().Files().LetGo(LockOf(name)); }

void LoadProfiles() {
  Table<ProfileRec>& profiles = State().Profiles;
  profiles.Resize(0);
  const std::string found = ResolvePath(kListFile, 0);
  const std::string own = InProgramFolder(kListFile);
  const std::string& path = IsThere(Desktop().Files(), own) ? own : found;
  const auto stored = ProfilesOfFile(path);
  if (!stored) Desktop().MessageBox(CantRead(kListFile, path));
  for (const ProfileRec& profile : stored.value_or(std::vector<ProfileRec>())) {
    profiles.Append(profile);
  }
  if (profiles.UpperBound() == 0) profiles.Resize(1);
}

namespace {

/// "" or what went wrong. Nobody is asked or told anything while other programs wait for the list.
/// Each line is changed before it is written.
template <class Change>
std::string SaveList(Change change) {
  const ListInHand list;
  if (!TakeProfilesOfFile()) return "it can't be read.";
  std::string text;
  for (ProfileRec& profile : State().Profiles) {
    change(profile);
    if (!profile.PlayerName.empty()) text += ProfileLine(profile);
  }
  text += kLineEnd;
  return SaveText(InProgramFolder(kListFile), text);
}

}  // namespace

std::string ReplaceProfile(std::string_view name, const ProfileRec& line) {
  const std::string failure = SaveList([&](ProfileRec& profile) {
    if (profile.PlayerName == name) profile = line;
  });
  return failure.empty() ? failure : Joined("Can't save ", kListFile, ": ", failure);
}

void SaveProfiles() {
  const std::string failure = SaveList([](ProfileRec& profile) {
    if (profile.PlayerName == State().Profile.PlayerName) profile = State().Profile;
  });
  if (!failure.empty()) Desktop().MessageBox(Joined("Can't save ", kListFile, ": ", failure));
}

std::string RefuseNameInFiles(std::string_view name) {
  if (name.find_first_not_of(' ') == std::string_view::npos) return "The name is empty.";
  if (Characters(name) > kLongestName) {
    return Joined("The name is longer than ", kLongestName, " characters.");
  }
  if (name.size() + kLongestEnding.size() > kFileNameBytes) {
    return "The name is too long: it takes more bytes than a file name can have.";
  }
  if (!IsUtf8(name)) return "The name holds bytes that are no text.";
  if (name.front() == '.') return "The name begins with a dot.";
  if (name.find_first_of(kNotInFileNames) != std::string_view::npos) {
    return "The name holds one of the characters / \\ : * ? \" < > |, which no file name can hold.";
  }
  if (std::any_of(name.begin(), name.end(), IsControl)) {
    return "The name holds a control character.";
  }
  return "";
}

std::string RefusePlayerName(std::string_view name) {
  for (const ProfileRec& profile : State().Profiles) {
    if (!name.empty() && FoldEquals(profile.PlayerName, name)) {
      return "There is a player of this name already.";
    }
  }
  std::string refusal = RefuseNameInFiles(name);
  if (refusal.empty() && EncodedForFileName(name, "_").size() > kPlayerNameBytes) {
    refusal = Joined("The name is too long: in the names of files it may take ", kPlayerNameBytes,
                     " bytes. Letters with accents take 2 to 4, \"_\" and \"%\" take 3.");
  }
  return refusal;
}

}  // namespace brindlemoor

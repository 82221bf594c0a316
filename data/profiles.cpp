// Reading and writing of "PlayerProfiles.txt".
#include "data/profiles.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/field_stream.h"
#include "data/field_text.h"
#include "data/saving.h"
#include "text/encoding.h"
#include "text/file_names.h"
#include "text/fold.h"

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

bool HasProfile(const Text& name) {
  for (const ProfileRec& profile : State().Profiles) {
    if (profile.PlayerName == name) return true;
  }
  return false;
}

/// Adds what the file has and the table has not: the file could not be read when the table was
/// filled, or another program has written it since. False when it can't be read now.
bool AddProfilesOfFile() {
  const std::string path = InProgramFolder(kListFile);
  const auto stored = ProfilesOfFile(IsThere(Desktop().Files(), path) ? path : "");
  if (!stored) return false;
  for (const ProfileRec& profile : *stored) {
    if (!HasProfile(profile.PlayerName)) State().Profiles.Append(profile);
  }
  return true;
}

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
  constexpr std::string_view kPlayerFile = ".plr";
  const std::string name = FileNameOf(path);
  return name == kListFile ||
         (name.size() >= kPlayerFile.size() &&
          FoldEquals(std::string_view(name).substr(name.size() - kPlayerFile.size()), kPlayerFile));
}

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

void SaveProfiles() {
  Session& session = State();
  if (session.Profiles.UpperBound() == 0) LoadProfiles();
  if (!AddProfilesOfFile()) {
    Desktop().MessageBox(Joined("Can't save ", kListFile, ": it can't be read."));
    return;
  }
  std::string text;
  for (ProfileRec& profile : session.Profiles) {
    if (profile.PlayerName == session.Profile.PlayerName) profile = session.Profile;
    if (!profile.PlayerName.empty()) text += ProfileLine(profile);
  }
  text += kLineEnd;
  SaveOrTell(InProgramFolder(kListFile), kListFile, text);
}

std::string RefuseNameInFiles(std::string_view name) {
  if (name.find_first_not_of(' ') == std::string_view::npos) return "The name is empty.";
  if (Characters(name) > kLongestName) {
    return Joined("The name is longer than ", kLongestName, " characters.");
  }
  if (name.size() + kLongestEnding.size() > kFileNameBytes) {
    return "The name is too long: it takes more bytes than a file name can have.";
  }
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

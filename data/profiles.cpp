// Reading and writing of "PlayerProfiles.txt".
#include "data/profiles.h"

#include <algorithm>
#include <array>

#include "core/encoding.h"
#include "core/fold.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/field_stream.h"
#include "data/field_text.h"
#include "data/saving.h"
#include "platform/platform.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kListFile = "PlayerProfiles.txt";
constexpr std::string_view kWord = "#PLAYERPROFILE";
constexpr int kLongestName = 100;

std::string ProfileLine(const ProfileRec& profile) {
  const std::string files = Joined(profile.PlayerFile, ":", profile.RulesFile);
  return Joined("\"", kWord, "\",", NameField(profile.PlayerName), ",", NameField(files),
                ",\"\",\"\",\"\"", kLineEnd);
}

/// The five fields behind the word; what the end of the file cuts off is empty.
void ReadProfile(FieldStream& stream) {
  std::array<std::string, 5> fields;
  for (std::string& field : fields) {
    if (!stream.Read(field)) break;
  }
  ProfileRec profile;
  profile.PlayerName = fields[0];
  profile.PlayerFile = FieldAt(fields[1], 1, ':');
  profile.RulesFile = FieldAt(fields[1], 2, ':');
  State().Profiles.Append(std::move(profile));
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
  const std::string path = ResolvePath(kListFile, 0);
  if (!path.empty()) {
    FieldStream stream(Desktop().Files().Read(path).value_or(""));
    for (std::string field; stream.Read(field);) {
      if (field == kWord) ReadProfile(stream);
    }
  }
  if (profiles.UpperBound() == 0) profiles.Resize(1);
}

void SaveProfiles() {
  Session& session = State();
  if (session.Profiles.UpperBound() == 0) LoadProfiles();
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
  return RefuseNameInFiles(name);
}

}  // namespace brindlemoor

// Telling a journal about files.
#include "journal/recording_files.h"

#include <utility>

#include "data/profiles.h"
#include "journal/journal_writer.h"
#include "journal/program_paths.h"
#include "journal/start_state.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kLargestTold = 16U << 20;  // bytes of a file outside

}  // namespace

RecordingFiles::RecordingFiles(FileSystem& below, JournalWriter& writer, std::string folder)
    : below_(below), writer_(writer), folder_(std::move(folder)) {
  for (const JournalRecord& kept : KeptFilesOf(below_, folder_)) {
    known_[kept.Fields[0]] = {"text", HashOf(kept.Fields[1])};
  }
}

void RecordingFiles::Tell(std::string_view what, const std::string& path,
                          JournalFields answer) const {
  const std::string name = JournalName(folder_, path);
  if (!IsOutside(name)) return;
  JournalFields& told = told_[Joined(what, " ", name)];
  if (told == answer) return;
  told = answer;
  answer.insert(answer.begin(), {std::string(what), name});
  writer_.Add("outside", answer);
}

void RecordingFiles::TakeChoice(const std::string& path) {
  chosen_.insert(path);
  below_.TakeChoice(path);
}

void RecordingFiles::TellChange(const std::string& path) const {
  const std::string name = JournalName(folder_, path);
  if (IsOutside(name) || !IsKeptWhole(name) || !IsKeptWhole(below_.Followed(path))) return;
  JournalFields state{"absent"};
  std::string bytes;
  if (auto text = below_.Read(path)) {
    state = {"text", HashOf(*text)};
    bytes = std::move(*text);
  } else if (std::string reason = below_.WhyUnread(path); !reason.empty()) {
    state = {"unread", reason};
  }
  JournalFields& known = known_.try_emplace(name, JournalFields{"absent"}).first->second;
  if (known == state || bytes.size() > kLargestTold) return;
  known = state;
  if (state[0] == "text") state[1] = std::move(bytes);
  state.insert(state.begin(), name);
  writer_.Add("changed", state);
}

bool RecordingFiles::Exists(const std::string& path) const {
  TellChange(path);
  const bool exists = below_.Exists(path);
  Tell("exists", path, exists ? JournalFields{"yes"} : JournalFields{});
  return exists;
}

bool RecordingFiles::FolderExists(const std::string& path) const {
  const bool exists = below_.FolderExists(path);
  Tell("folder", path, exists ? JournalFields{"yes"} : JournalFields{});
  return exists;
}

std::vector<std::string> RecordingFiles::ListFiles(const std::string& folder) const {
  std::vector<std::string> names = below_.ListFiles(folder);
  Tell("files", folder, names);
  return names;
}

std::vector<std::string> RecordingFiles::ListFolders(const std::string& folder) const {
  std::vector<std::string> names = below_.ListFolders(folder);
  Tell("folders", folder, names);
  return names;
}

std::optional<std::string> RecordingFiles::Read(const std::string& path) const {
  TellChange(path);
  auto bytes = below_.Read(path);
  const bool tells = bytes && bytes->size() <= kLargestTold &&
                     (chosen_.contains(path) || IsCardFileName(path) || IsKeptWhole(path));
  Tell("read", path, tells ? JournalFields{*bytes} : JournalFields{});
  return bytes;
}

std::string RecordingFiles::WhyUnread(const std::string& path) const {
  TellChange(path);
  std::string reason = below_.WhyUnread(path);
  Tell("unread", path, reason.empty() ? JournalFields{} : JournalFields{reason});
  return reason;
}

JournalFields RecordingFiles::Before(const std::string& name, const std::string& path) {
  if (IsOutside(name) || IsKeptWhole(name) || !changed_.insert(name).second) return {};
  if (!below_.Exists(path)) return {name, "absent"};
  if (IsOpaque(name)) return {name, "present"};
  const bool isLink = below_.Followed(path) != path;
  return {name, "text", isLink ? "" : below_.Read(path).value_or("")};
}

void RecordingFiles::TellBefore(const JournalFields& before) {
  if (!before.empty()) writer_.Add("before", before);
}

void RecordingFiles::TellWritten(const std::string& name, std::string_view bytes) {
  if (IsOpaque(name)) {
    writer_.Add("picture", {name});
  } else {
    writer_.AddText(name, bytes);
    known_[name] = {"text", HashOf(bytes)};
  }
}

std::string RecordingFiles::Write(const std::string& path, std::string_view bytes) {
  const std::string name = JournalName(folder_, path);
  TellBefore(Before(name, path));
  std::string problem = below_.Write(path, bytes);
  if (problem.empty()) {
    TellWritten(name, bytes);
  } else {
    writer_.Add("failed", {"write", name, problem});
  }
  return problem;
}

std::string RecordingFiles::AddFolder(const std::string& path) {
  std::string problem = below_.AddFolder(path);
  if (!problem.empty()) writer_.Add("failed", {"folder", JournalName(folder_, path), problem});
  return problem;
}

std::string RecordingFiles::Rename(const std::string& from, const std::string& to) {
  const std::string name = JournalName(folder_, to);
  const std::string oldName = JournalName(folder_, from);
  TellBefore(Before(name, to));
  const JournalFields before = Before(oldName, from);
  const std::string bytes = below_.Read(from).value_or("");
  std::string problem = below_.Rename(from, to);
  if (!problem.empty()) {
    writer_.Add("failed", {"write", name, problem});
    return problem;
  }
  TellWritten(name, bytes);
  TellBefore(before);
  writer_.Add("remove", {oldName});
  known_[oldName] = {"absent"};
  return "";
}

std::string RecordingFiles::RemoveFolderOfFiles(const std::string& folder) {
  std::string problem = FileSystem::RemoveFolderOfFiles(folder);
  return problem.empty() ? below_.RemoveFolderOfFiles(folder) : problem;
}

std::string RecordingFiles::Remove(const std::string& path) {
  const std::string name = JournalName(folder_, path);
  TellBefore(Before(name, path));
  std::string problem = below_.Remove(path);
  if (problem.empty()) {
    writer_.Add("remove", {name});
    known_[name] = {"absent"};
  } else {
    writer_.Add("failed", {"remove", name, problem});
  }
  return problem;
}

HoldResult RecordingFiles::Hold(const std::string& path) {
  const HoldResult result = below_.Hold(path);
  // What can't be held at all is taken for held, in a replay too.
  if (result == HoldResult::kByAnother) {
    writer_.Add("failed", {"hold", JournalName(folder_, path), "another program holds it"});
  }
  return result;
}

}  // namespace brindlemoor

// Files of a replay.
#include "journal/replay_files.h"

#include <utility>

#include "journal/program_paths.h"
#include "journal/start_state.h"
#include "text/text.h"

namespace brindlemoor {

std::string ReplayFiles::MovedFolder::Moved(const std::string& path) const {
  if (path != from_ && !path.starts_with(from_ + "/")) return path;
  return to_ + path.substr(from_.size());
}

ReplayFiles::ReplayFiles(const Journal& journal, JournalTape& tape, const std::string& folder)
    : folder_(journal.Folder),
      tape_(tape),
      recordedState_(journal.Files),
      machine_(journal.Folder, folder),
      inside_(machine_, [this](const std::string& path) {
        return IsKeptWhole(path) || absent_.contains(path);
      }) {
  SetBack(journal);
}

void ReplayFiles::SetBack(const Journal& journal) {
  for (const JournalRecord& file : journal.Files) {
    if (file.Word == "keep") inside_.Contents[PathOf(file.Fields[0])] = file.Fields[1];
  }
  for (const JournalRecord& record : journal.Records) {
    if (record.Word != "before" || record.Fields[1] == "present") continue;
    const std::string path = PathOf(record.Fields[0]);
    if (record.Fields.size() == 3) {
      inside_.Contents[path] = record.Fields[2];
    } else {
      absent_.insert(path);
    }
  }
}

std::vector<std::string> ReplayFiles::Differences() {
  return StateDifferences(recordedState_, StartStateOf(inside_, folder_));
}

const JournalFields& ReplayFiles::Outside(std::string_view what, const std::string& name) const {
  JournalFields& answer = outside_[Joined(what, " ", name)];
  const JournalRecord* next = tape_.Next();
  if (next != nullptr && next->Word == "outside" && next->Fields[0] == what &&
      next->Fields[1] == name) {
    const JournalFields& fields = tape_.Take().Fields;
    answer.assign(fields.begin() + 2, fields.end());
  }
  return answer;
}

void ReplayFiles::TakeChange(const std::string& name) const {
  const JournalRecord* next = tape_.Next();
  if (next == nullptr || next->Word != "changed" || next->Fields[0] != name) return;
  const JournalFields& fields = tape_.Take().Fields;
  const std::string& told = fields.size() == 3 ? fields[2] : "";
  unread_.erase(name);
  inside_.Contents.erase(PathOf(name));
  if (fields[1] == "text") inside_.Contents[PathOf(name)] = told;
  if (fields[1] == "unread") unread_[name] = told;
}

bool ReplayFiles::Exists(const std::string& path) const {
  const std::string name = JournalName(folder_, path);
  TakeChange(name);
  return IsOutside(name) ? !Outside("exists", name).empty() : inside_.Exists(PathOf(name));
}

bool ReplayFiles::FolderExists(const std::string& path) const {
  const std::string name = JournalName(folder_, path);
  if (IsOutside(name)) return !Outside("folder", name).empty();
  return inside_.FolderExists(name.empty() ? folder_ : PathOf(name));
}

std::vector<std::string> ReplayFiles::ListFiles(const std::string& folder) const {
  const std::string name = JournalName(folder_, folder);
  if (IsOutside(name)) return Outside("files", name);
  return inside_.ListFiles(name.empty() ? folder_ : PathOf(name));
}

std::vector<std::string> ReplayFiles::ListFolders(const std::string& folder) const {
  const std::string name = JournalName(folder_, folder);
  if (IsOutside(name)) return Outside("folders", name);
  return inside_.ListFolders(name.empty() ? folder_ : PathOf(name));
}

std::optional<std::string> ReplayFiles::Read(const std::string& path) const {
  const std::string name = JournalName(folder_, path);
  TakeChange(name);
  if (!IsOutside(name)) return inside_.Read(PathOf(name));
  const JournalFields& answer = Outside("read", name);
  return answer.empty() ? std::nullopt : std::optional(answer[0]);
}

std::string ReplayFiles::WhyUnread(const std::string& path) const {
  const std::string name = JournalName(folder_, path);
  if (IsOutside(name)) {
    const JournalFields& answer = Outside("unread", name);
    return answer.empty() ? "" : answer[0];
  }
  TakeChange(name);
  if (const auto unread = unread_.find(name); unread != unread_.end()) return unread->second;
  // A link that led elsewhere is in no journal.
  return inside_.Contents.contains(PathOf(name)) ? "" : machine_.WhyUnread(PathOf(name));
}

std::optional<std::string> ReplayFiles::Failure(std::string_view what, const std::string& name) {
  while (const JournalRecord* next = tape_.Next()) {
    // The files have been set back at the start.
    if (next->Word == "before" && next->Fields[0] == name) {
      tape_.Take();
    } else if (next->Word == "failed" && next->Fields[0] == what && next->Fields[1] == name) {
      return tape_.Take().Fields[2];
    } else {
      break;
    }
  }
  return std::nullopt;
}

std::string ReplayFiles::Write(const std::string& path, std::string_view bytes) {
  if (tape_.Stopped()) return "";
  const std::string name = JournalName(folder_, path);
  if (auto problem = Failure("write", name)) return *problem;
  if (IsOpaque(name)) {
    tape_.Expect("picture", {name}, "writes the picture");
  } else {
    if (OnText) OnText(name, bytes);
    tape_.ExpectText(name, bytes);
  }
  if (!IsOutside(name)) inside_.Write(PathOf(name), bytes);
  return "";
}

std::string ReplayFiles::Remove(const std::string& path) {
  if (tape_.Stopped()) return "";
  const std::string name = JournalName(folder_, path);
  if (auto problem = Failure("remove", name)) return *problem;
  tape_.Expect("remove", {name}, "removes");
  return IsOutside(name) ? "" : inside_.Remove(PathOf(name));
}

std::string ReplayFiles::AddFolder(const std::string& path) {
  if (tape_.Stopped()) return "";
  return Failure("folder", JournalName(folder_, path)).value_or("");
}

HoldResult ReplayFiles::Hold(const std::string& path) {
  if (tape_.Stopped()) return HoldResult::kHeld;
  return Failure("hold", JournalName(folder_, path)) ? HoldResult::kByAnother : HoldResult::kHeld;
}

}  // namespace brindlemoor

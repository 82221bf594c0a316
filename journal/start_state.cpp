// Noting and comparing the files of a program's folder.
#include "journal/start_state.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "core/paths.h"
#include "data/profiles.h"
#include "images/folder_pictures.h"
#include "journal/journal_writer.h"
#include "platform/files.h"
#include "platform/passing_names.h"
#include "text/fold.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kUnsaved = ".unsaved";
constexpr std::string_view kDebugMarker = "Debug.on";
constexpr std::string_view kDocument = ".pdf";
constexpr std::array<std::string_view, 2> kPages = {".html", ".htm"};

bool EndsFolded(std::string_view name, std::string_view ending) {
  return name.size() >= ending.size() &&
         FoldEquals(name.substr(name.size() - ending.size()), ending);
}

bool IsMadeAnew(std::string_view name) {
  return name.ends_with(kJournalExtension) || name.starts_with(kPassingFile) ||
         std::ranges::any_of(kPages, [&](std::string_view page) { return EndsFolded(name, page); });
}

/// A link may lend its name to anything: what it leads to is kept if that is a player's, too.
bool MayBeKept(const FileSystem& files, const std::string& path) {
  return files.Exists(path) && IsKeptWhole(files.Followed(path));
}

void AddKept(const FileSystem& files, const std::string& folder, const std::string& shownAs,
             std::vector<JournalRecord>& records) {
  for (const std::string& name : files.ListFiles(folder)) {
    const std::string path = Joined(folder, "/", name);
    if (IsKeptWhole(name) && MayBeKept(files, path)) {
      records.push_back({0, "keep", {shownAs + name, files.Read(path).value_or("")}});
    }
  }
}

void AddOthers(const FileSystem& files, const std::string& folder, const std::string& shownAs,
               std::vector<JournalRecord>& records) {
  Hash others;
  for (const std::string& name : files.ListFiles(folder)) {
    const std::string path = Joined(folder, "/", name);
    const std::string shown = shownAs + name;
    if (IsKeptWhole(name)) continue;
    if (IsCardFileName(name)) {
      records.push_back({0, "file", {shown, HashOf(files.Read(path).value_or(""))}});
    } else if (!IsMadeAnew(name)) {
      others.Add(name);
    }
  }
  records.push_back({0, "others", {shownAs, others.Text()}});
}

using States = std::map<std::string, std::string>;

States StatesOf(const std::vector<JournalRecord>& records, std::string_view word) {
  States states;
  for (const JournalRecord& record : records) {
    if (record.Word == word) states[record.Fields[0]] = record.Fields[1];
  }
  return states;
}

}  // namespace

bool IsKeptWhole(std::string_view path) {
  return BelongsToPlayers(path) || EndsFolded(path, kUnsaved) || FileNameOf(path) == kDebugMarker;
}

bool IsOpaque(std::string_view path) {
  return IsPictureName(FileNameOf(path)) || EndsFolded(path, kDocument);
}

std::vector<JournalRecord> KeptFilesOf(FileSystem& files, const std::string& folder) {
  files.KeepTo(folder);
  std::vector<JournalRecord> records;
  AddKept(files, folder, "", records);
  for (const std::string& name : files.ListFolders(folder)) {
    AddKept(files, Joined(folder, "/", name), name + "/", records);
  }
  return records;
}

std::vector<JournalRecord> StartStateOf(FileSystem& files, const std::string& folder) {
  std::vector<JournalRecord> records = KeptFilesOf(files, folder);
  AddOthers(files, folder, "", records);
  for (const std::string& name : files.ListFolders(folder)) {
    AddOthers(files, Joined(folder, "/", name), name + "/", records);
  }
  return records;
}

std::vector<std::string> StateDifferences(const std::vector<JournalRecord>& journal,
                                          const std::vector<JournalRecord>& now) {
  std::vector<std::string> lines;
  States before = StatesOf(journal, "file");
  for (const auto& [name, hash] : StatesOf(now, "file")) {
    const auto entry = before.extract(name);
    if (entry.empty()) {
      lines.push_back(Joined(name, " is new"));
    } else if (entry.mapped() != hash) {
      lines.push_back(Joined(name, " has changed"));
    }
  }
  for (const auto& [name, hash] : before) lines.push_back(Joined(name, " is gone"));
  const States others = StatesOf(now, "others");
  for (const auto& [folder, hash] : StatesOf(journal, "others")) {
    const auto entry = others.find(folder);
    if (entry != others.end() && entry->second == hash) continue;
    lines.push_back(Joined("other files came or went in ", folder.empty() ? "the folder" : folder));
  }
  return lines;
}

}  // namespace brindlemoor

// Noting and comparing the files of a match.
#include "saving/match_files.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string_view>

#include "core/card_files.h"
#include "core/cards.h"
#include "core/desktop.h"
#include "core/limits.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_reader.h"
#include "data/profiles.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// "" for a file that is not there, nothing for one that is there and can't be read.
std::optional<std::string> HashOfFile(const std::string& path) {
  FileSystem& files = Desktop().Files();
  if (!IsThere(files, path)) return "";
  const auto bytes = files.Read(path);
  if (!bytes) return std::nullopt;
  return HashOf(*bytes);
}

/// A path as it lies below the program's folder; one that lies elsewhere stays what it is.
std::string NameBelow(std::string_view path) {
  const std::string folder = State().ProgramFolder + "/";
  if (path.starts_with(folder)) path.remove_prefix(folder.size());
  return std::string(path);
}

std::string PathOf(const MatchFile& file) {
  return file.Name.starts_with('/') ? file.Name : InProgramFolder(file.Name);
}

void Note(std::string_view path) {
  std::vector<MatchFile>& files = State().Match.Files;
  const std::string name = NameBelow(path);
  if (name.empty() || files.size() >= limits::kFilesOfRead ||
      std::ranges::find(files, name, &MatchFile::Name) != files.end()) {
    return;
  }
  auto hash = HashOfFile(std::string(path));
  if (hash) files.push_back({name, *std::move(hash)});
}

void AddSources(const Pile& pile, std::set<std::string_view>& sources) {
  for (const Card& card : pile) {
    if (!IsFree(card) && !card.SourceFile.empty()) sources.insert(card.SourceFile);
  }
}

/// The files that cards of the match name as theirs.
std::set<std::string_view> SourcesOfCards() {
  const Session& session = State();
  std::set<std::string_view> sources;
  AddSources(session.CardTable, sources);
  AddSources(session.TraitActions, sources);
  for (const PlayerState& player : session.Players) {
    AddSources(player.StartDeck, sources);
    AddSources(player.Deck, sources);
    AddSources(player.Hand, sources);
  }
  return sources;
}

void NoteGameFolder() {
  const Session& session = State();
  if (!session.Games.Holds(session.CurrentGame)) return;
  const Text& folder = session.Games[session.CurrentGame].Folder;
  if (folder.empty()) return;
  const std::string path = InProgramFolder(folder);
  for (const std::string& name : Desktop().Files().ListFiles(path)) {
    if (IsCardFileName(name)) Note(Joined(path, "/", name));
  }
}

}  // namespace

void NoteMatchFiles() {
  const Session& session = State();
  if (session.Match.Files.empty()) {
    EnterProgramFolder();
    Note(FindCardFile(session.Match.RulesFile));
    Note(FindCardFile(session.Match.OpponentFile));
    NoteGameFolder();
    for (const std::string_view source : SourcesOfCards()) Note(FindReferencedFile(source).Path);
  }
  for (const ReferenceFile& file : session.RefCache) Note(file.FileName);
}

std::vector<std::string> ChangedFiles(const std::vector<MatchFile>& files) {
  std::vector<std::string> lines;
  for (const MatchFile& file : files) {
    const auto hash = HashOfFile(PathOf(file));
    if (hash == file.Hash) continue;
    lines.push_back(Joined(file.Name, !hash               ? " can't be read"
                                      : hash->empty()     ? " is gone"
                                      : file.Hash.empty() ? " is new"
                                                          : " has changed"));
  }
  return lines;
}

void TakeFilesAsTheyAre(std::vector<MatchFile>& files) {
  for (MatchFile& file : files) file.Hash = HashOfFile(PathOf(file)).value_or(file.Hash);
}

}  // namespace brindlemoor

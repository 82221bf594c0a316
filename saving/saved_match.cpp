// Composing and reading the file of a match.
#include "saving/saved_match.h"

#include <charconv>
#include <utility>

#include "saving/match_checks.h"
#include "saving/match_fields.h"
#include "saving/record_reader.h"
#include "saving/record_writer.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {

template <>
inline constexpr auto kFieldsOf<SavedMatchHead> = std::tuple{
    Field{&SavedMatchHead::RulesFile},
    Field{&SavedMatchHead::Opponent},
    Field{&SavedMatchHead::Turns, 0, kLargestCount},
    Field{&SavedMatchHead::Page},
    Field{&SavedMatchHead::Clock},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<SavedMatchHead>)> == kMembersOf<SavedMatchHead>);

namespace {

/// A file begins with this, the number of its version and a line end; a line with the hash of the
/// rest follows.
constexpr std::string_view kFirstWords = "Brindlemoor match ";
constexpr int kVersion = 2;
constexpr std::size_t kLargestFile = 64 << 20;  // bytes

struct VersionedRecords {
  std::string_view Bytes;
  int Version = 0;
};

/// The records of a file whose first lines are in order. "" or the sentence that says what is not.
std::string OpenRecords(std::string_view bytes, std::string_view shownName,
                        VersionedRecords& records) {
  std::string damaged = Joined(shownName, " is damaged.");
  const std::size_t end = bytes.find('\n');
  if (!bytes.starts_with(kFirstWords) || end == std::string_view::npos) {
    return kFirstWords.starts_with(bytes) ? damaged : Joined(shownName, " is no saved match.");
  }
  const std::string_view number = bytes.substr(kFirstWords.size(), end - kFirstWords.size());
  int& version = records.Version;
  const auto [stop, failure] =
      std::from_chars(number.data(), number.data() + number.size(), version);
  if (failure != std::errc() || stop != number.data() + number.size()) return damaged;
  if (version > kVersion) {
    return Joined(shownName, " was saved by a newer version of the program.");
  }
  bytes.remove_prefix(end + 1);
  const std::size_t hashEnd = bytes.find('\n');
  if (version < 1 || bytes.size() > kLargestFile || hashEnd == std::string_view::npos) {
    return damaged;
  }
  records.Bytes = bytes.substr(hashEnd + 1);
  return bytes.substr(0, hashEnd) == HashOf(records.Bytes) ? "" : damaged;
}

std::vector<std::string> PiecesOf(std::string_view page, const std::string& divider) {
  std::vector<std::string> pieces;
  while (true) {
    const std::size_t end = page.find(divider);
    pieces.emplace_back(page.substr(0, end));
    if (end == std::string_view::npos) return pieces;
    page.remove_prefix(end + divider.size());
  }
}

/// The files read for references that count in this game.
Table<ReferenceFile> ReferencesOfGame() {
  const Session& session = State();
  const bool hasGame = session.Games.Holds(session.CurrentGame);
  const Text folder = hasGame ? session.Games[session.CurrentGame].Folder : Text();
  Table<ReferenceFile> references;
  for (const ReferenceFile& file : session.RefCache) {
    if (file.GameFolder == folder) references.Append(file);
  }
  return references;
}

}  // namespace

std::string BytesOfMatch(std::string_view page, std::uint64_t clock) {
  const Session& session = State();
  const SavedMatchHead head{.RulesFile = session.Match.RulesFile,
                            .Opponent = session.Match.Opponent,
                            .Turns = session.Match.Turns,
                            .Page = PiecesOf(page, session.ProgramFolder + "/"),
                            .Clock = clock};
  const Table<ReferenceFile> references = ReferencesOfGame();
  RecordWriter writer(session.ProgramFolder);
  writer.Put(head);
  writer.PutFields(session, kMatchFields);
  writer.Put(references);
  writer.PutFields(session, kOwnedFields);
  const std::string records = writer.Bytes();
  return Joined(kFirstWords, kVersion, "\n", HashOf(records), "\n", records);
}

std::string ReadMatchHead(std::string_view bytes, std::string_view shownName,
                          SavedMatchHead& head) {
  VersionedRecords records;
  std::string problem = OpenRecords(bytes, shownName, records);
  if (!problem.empty()) return problem;
  RecordReader reader(records.Bytes, State().ProgramFolder, records.Version);
  reader.Take(head);
  return reader.Failed() ? Joined(shownName, " is damaged.") : "";
}

MatchRead ReadMatch(std::string_view bytes, std::string_view shownName) {
  VersionedRecords records;
  std::string problem = OpenRecords(bytes, shownName, records);
  if (!problem.empty()) return {nullptr, std::move(problem)};
  auto match = std::make_unique<SavedMatch>();
  RecordReader reader(records.Bytes, State().ProgramFolder, records.Version);
  reader.Take(match->Head);
  reader.TakeFields(match->Tables, kMatchFields);
  reader.Take(match->Tables.RefCache);
  reader.TakeFields(match->Tables, kOwnedFields);
  if (!reader.IsAtEnd() || !TablesAgree(match->Tables)) {
    return {nullptr, Joined(shownName, " is damaged.")};
  }
  return {std::move(match), ""};
}

std::string PageOf(const SavedMatchHead& head) {
  std::string page;
  for (const std::string& piece : head.Page) {
    if (&piece != head.Page.data()) page += State().ProgramFolder + "/";
    page += piece;
  }
  return page;
}

namespace {

template <class Fields>
void MoveFields(Session& from, Session& to, const Fields& fields) {
  std::apply(
      [&](const auto&... field) { ((to.*field.Member = std::move(from.*field.Member)), ...); },
      fields);
}

}  // namespace

void TakeMatch(SavedMatch match, bool withOwned) {
  Session& session = State();
  Session& saved = match.Tables;
  // Only who counts events keeps a log.
  const std::shared_ptr<MatchLog> log = session.Log;
  if (log != nullptr) *log = saved.Log != nullptr ? *saved.Log : MatchLog{};
  const std::int32_t tokens = session.Players[1].Tokens;
  MoveFields(saved, session, kMatchFields);
  session.RefCache = std::move(saved.RefCache);
  session.Log = log;
  session.Links.Games = false;  // no report lists games, whatever a file says
  if (withOwned) {
    MoveFields(saved, session, kOwnedFields);
  } else {
    session.Players[1].Tokens = tokens;
  }
}

}  // namespace brindlemoor

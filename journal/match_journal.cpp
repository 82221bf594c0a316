// Recording matches of the computer, and playing them again.
#include "journal/match_journal.h"

#include <algorithm>
#include <limits>
#include <map>
#include <optional>
#include <sstream>
#include <utility>

#include "core/mind_levels.h"
#include "core/program_version.h"
#include "core/state.h"
#include "journal/journal_writer.h"
#include "journal/session_words.h"
#include "journal/start_state.h"
#include "mind/turn_thinking.h"
#include "platform/files.h"
#include "simulation/stage.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// The card files of a folder. The files of players take no part in such matches.
std::vector<JournalRecord> CardFilesOf(const std::string& folder) {
  LocalFileSystem machine;
  std::vector<JournalRecord> files = StartStateOf(machine, folder);
  std::erase_if(files, [](const JournalRecord& file) { return file.Word == "keep"; });
  return files;
}

Journal HeadOf(std::string_view kind, const std::string& folder) {
  Journal head;
  head.Program = kProgramVersion;
  head.Kind = kind;
  head.Folder = AbsoluteFolder(folder);
  head.Files = CardFilesOf(head.Folder);
  return head;
}

int IntOption(const Journal& journal, const std::string& name) {
  constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<int>::max());
  return static_cast<int>(std::min(journal.Number(name), kMost));
}

/// "" for one that is missing.
std::string TextOption(const Journal& journal, const std::string& name) {
  const auto option = journal.Options.find(name);
  return option == journal.Options.end() ? "" : option->second;
}

/// Plain minds are not named: nobody else played before there were others.
void NameMinds(Journal& head, int player, int opponent) {
  if (player != kPlainMind) head.Options["player-mind"] = MindWord(player);
  if (opponent != kPlainMind) head.Options["mind"] = MindWord(opponent);
}

void ReadMinds(const Journal& journal, int& player, int& opponent) {
  FindMindLevel(TextOption(journal, "player-mind"), player);
  FindMindLevel(TextOption(journal, "mind"), opponent);
}

/// A text with one folder's name in place of another's.
std::string Renamed(std::string_view text, const std::string& from, const std::string& to) {
  const std::string folder = from + "/";
  std::string renamed;
  for (std::size_t name = text.find(folder); name != text.npos; name = text.find(folder)) {
    renamed += Joined(text.substr(0, name), to, "/");
    text.remove_prefix(name + folder.size());
  }
  return renamed += text;
}

JournalFields FieldsOf(const MatchKey& key) {
  return {std::to_string(key.Pairing), key.SeatsChanged ? "1" : "0", std::to_string(key.Match)};
}

JournalFields FieldsOf(const PlayedMatch& outcome, const Stage& stage) {
  return {std::to_string(stage.LastSeed()), std::to_string(outcome.Winner),
          std::to_string(outcome.Turns), std::to_string(outcome.Tokens), stage.MatchHash()};
}

std::optional<MatchKey> ReadKey(const JournalFields& fields, const SimulationSetup& setup) {
  const auto pairing = ReadInt(fields[0]);
  const auto seats = ReadInt(fields[1]);
  const auto match = ReadUnsigned(fields[2]);
  if (!pairing || *pairing < 0 || *pairing >= setup.Pairings() || !seats || *seats < 0 ||
      *seats > 1 || !match || *match >= static_cast<std::uint64_t>(setup.Matches)) {
    return std::nullopt;
  }
  return MatchKey{*pairing, *seats == 1, static_cast<Count>(*match)};
}

/// The matches of a journal in the order in which they are best played.
using Matches = std::map<MatchKey, const JournalRecord*>;

/// "" or which line names no match of the simulation.
std::string ReadMatches(const Journal& journal, const SimulationSetup& setup, Matches& matches) {
  for (const JournalRecord& record : journal.Records) {
    if (record.Word == "end") continue;
    const bool isMatch = record.Word == "playing" || record.Word == "played";
    const auto key = isMatch ? ReadKey(record.Fields, setup) : std::nullopt;
    if (!key) return Joined("line ", record.Line, " names no match: ", Shown(record));
    const JournalRecord*& known = matches[*key];
    if (known == nullptr || record.Word == "played") known = &record;
  }
  return "";
}

/// "" or what differs.
std::string CompareMatch(const JournalRecord& record, const JournalFields& now) {
  constexpr std::string_view kWhat[] = {"seed", "winner", "turns", "tokens", "events or pages"};
  if (record.Word != "played") return "";
  for (std::size_t index = 0; index < now.size(); ++index) {
    const std::string& recorded = record.Fields[3 + index];
    if (recorded == now[index]) continue;
    return Joined("line ", record.Line, " of the journal, match ", record.Fields[2], " of pairing ",
                  record.Fields[0], record.Fields[1] == "1" ? " with changed seats" : "", ": ",
                  kWhat[index], "\n  journal: ", recorded, "\n  replay:  ", now[index]);
  }
  return "";
}

}  // namespace

void RecordMatch(JournalWriter& writer, AutomaticMatchOptions& options) {
  Journal head = HeadOf(kMatchJournal, options.Folder);
  head.Options["game"] = options.Game;
  head.Options["seed"] = std::to_string(options.Seed);
  head.Options["turns"] = std::to_string(options.MaximumTurns);
  head.Options["opponent"] = std::to_string(options.Opponent);
  NameMinds(head, options.PlayerMind, options.Mind);
  if (!options.Continue.empty()) {
    options.SavedBytes = LocalFileSystem().Read(AbsoluteFolder(options.Continue));
    head.Options["saved"] = options.SavedBytes.value_or("");
  }
  WriteHead(writer, head);
  options.OnPage = [&writer](const std::string& name, const std::string& page) {
    writer.AddText(name, page);
  };
}

void RecordResult(JournalWriter& writer, const AutomaticMatchResult& result) {
  if (!result.Error.empty()) return;
  writer.Add("result", {std::string(VerdictOf(result.Winner)), std::to_string(result.Turns)});
  writer.End();
}

ReplayResult ReplayMatch(const Journal& journal, const ReplayOptions& options) {
  JournalTape tape(journal.Records);
  tape.Result.CutOff = !journal.Ended;
  if (options.OnFiles) {
    options.OnFiles(StateDifferences(journal.Files, CardFilesOf(options.Folder)));
  }
  tape.Doing = "the match";
  AutomaticMatchOptions match;
  match.Folder = options.Folder;
  match.Game = TextOption(journal, "game");
  match.Seed = journal.Number("seed");
  match.MaximumTurns = IntOption(journal, "turns");
  match.Opponent = IntOption(journal, "opponent");
  ReadMinds(journal, match.PlayerMind, match.Mind);
  match.ThinkOfTurn = ThinkOfTurn;
  if (journal.Options.contains("saved")) {
    match.Continue = "The match of the journal";
    match.SavedBytes = TextOption(journal, "saved");
    match.DespiteChanges = true;  // what has changed has been told
  }
  match.BeforeTurn = options.BeforeTurn;
  match.OnPage = [&](const std::string& name, const std::string& page) {
    if (options.OnText) options.OnText(name, page);
    tape.ExpectText(name, Renamed(page, options.Folder, journal.Folder));
  };
  try {
    std::ostringstream unseen;
    const AutomaticMatchResult result = AutomaticMatch(match, unseen);
    tape.Result.Problem = result.Error;
    const std::string verdict(VerdictOf(result.Winner));
    tape.Doing = "the end of the match";
    if (result.Error.empty()) {
      tape.Expect("result", {verdict, std::to_string(result.Turns)}, "has the result");
      ++tape.Result.Events;
    }
  } catch (const ReplayStopped&) {
    // The tape has the result.
  }
  State() = Session{};
  return tape.Result;
}

void SimulationRecorder::Begin(const SimulationOptions& options) {
  Journal head = HeadOf(kSimulationJournal, options.Folder);
  head.Options["game"] = options.Game;
  head.Options["matches"] = std::to_string(options.Matches);
  head.Options["seed"] = std::to_string(options.Seed);
  head.Options["turns"] = std::to_string(options.MaximumTurns);
  head.Options["shard"] = std::to_string(options.Shard);
  head.Options["shards"] = std::to_string(options.Shards);
  head.Options["decks"] = options.DecksMeet ? "1" : "0";
  NameMinds(head, options.DeckMind, options.OpponentMind);
  WriteHead(writer_, head);
}

void SimulationRecorder::MatchBegins(const MatchKey& key) { writer_.Add("playing", FieldsOf(key)); }

void SimulationRecorder::MatchEnds(const MatchKey& key, const PlayedMatch& outcome,
                                   const Stage& stage) {
  JournalFields fields = FieldsOf(key);
  for (std::string& field : FieldsOf(outcome, stage)) fields.push_back(std::move(field));
  writer_.Add("played", fields);
}

ReplayResult ReplaySimulation(const Journal& journal, const ReplayOptions& options) {
  ReplayResult result;
  result.CutOff = !journal.Ended;
  if (options.OnFiles) {
    options.OnFiles(StateDifferences(journal.Files, CardFilesOf(options.Folder)));
  }
  SimulationOptions simulation;
  simulation.Folder = options.Folder;
  simulation.Game = TextOption(journal, "game");
  simulation.DecksMeet = journal.Number("decks") != 0;
  simulation.Matches = IntOption(journal, "matches");
  simulation.Seed = journal.Number("seed");
  simulation.MaximumTurns = IntOption(journal, "turns");
  ReadMinds(journal, simulation.DeckMind, simulation.OpponentMind);
  Stage stage;
  stage.LetThink(ThinkOfTurn);
  SimulationSetup setup;
  result.Problem = PrepareSimulation(simulation, stage, setup);
  Matches matches;
  if (result.Problem.empty()) result.Problem = ReadMatches(journal, setup, matches);
  if (!result.Problem.empty()) return result;
  stage.HashPages();
  std::optional<MatchKey> seated;
  for (const auto& [key, record] : matches) {
    const bool sits =
        seated && seated->Pairing == key.Pairing && seated->SeatsChanged == key.SeatsChanged;
    if (!sits) result.Problem = SeatMatch(setup, key, stage);
    if (!result.Problem.empty()) return result;
    seated = key;
    const PlayedMatch outcome = PlayMatch(setup, key, stage);
    ++result.Events;
    result.Difference = CompareMatch(*record, FieldsOf(outcome, stage));
    if (!result.Difference.empty()) return result;
    if (record->Word == "played") ++result.Texts;
  }
  return result;
}

}  // namespace brindlemoor

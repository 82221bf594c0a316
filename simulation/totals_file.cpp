// Writing, reading and adding up the raw sums of shards.
#include "simulation/totals_file.h"

#include <array>
#include <charconv>
#include <set>
#include <utility>

#include "core/mind_levels.h"
#include "text/encoding.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// What the first line of every version begins with.
constexpr std::string_view kFileMark = "brindle-sim\t";
constexpr std::string_view kFirstLine = "brindle-sim\t3";
/// Files of the second version say nothing of a card's worth, those of the first have no checksum
/// behind their last word either.
constexpr std::string_view kFirstLineOfSecond = "brindle-sim\t2";
constexpr std::string_view kFirstLineOfFirst = "brindle-sim\t1";
constexpr std::string_view kLastWord = "end";
/// No sum of one file is larger; a million of them still add up without overflow.
constexpr Count kLargestSum = 1'000'000'000'000;

/// A text as one field of a line.
std::string FieldText(std::string_view text) {
  std::string field;
  for (const char character : text) {
    switch (character) {
      case '\t':
        field += "\\t";
        break;
      case '\n':
        field += "\\n";
        break;
      case '\r':
        field += "\\r";
        break;
      case '\\':
        field += "\\\\";
        break;
      default:
        field += character;
    }
  }
  return field;
}

std::string TextOfField(std::string_view field) {
  std::string text;
  for (std::size_t at = 0; at < field.size(); ++at) {
    if (field[at] != '\\' || at + 1 == field.size()) {
      text += field[at];
      continue;
    }
    const char escaped = field[++at];
    text += escaped == 't' ? '\t' : escaped == 'n' ? '\n' : escaped == 'r' ? '\r' : escaped;
  }
  return text;
}

template <class... Fields>
void AddLine(std::string& out, std::string_view word, const Fields&... fields) {
  out += word;
  ((out += Joined("\t", fields)), ...);
  out += '\n';
}

/// Takes lines apart, and a line into its fields.
class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}
  /// The fields of the next line. A line without an end was cut off.
  bool Next(std::vector<std::string_view>& fields) {
    const std::size_t end = rest_.find('\n');
    if (end == std::string_view::npos) return false;
    ++number_;
    std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(end + 1);
    fields.clear();
    while (true) {
      const std::size_t tab = line.find('\t');
      fields.push_back(line.substr(0, tab));
      if (tab == std::string_view::npos) return true;
      line.remove_prefix(tab + 1);
    }
  }
  int Number() const { return number_; }
  bool AtEnd() const { return rest_.empty(); }

 private:
  std::string_view rest_;
  int number_ = 0;
};

template <class Number>
bool ReadWhole(std::string_view text, Number& number) {
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  return failure == std::errc() && end == text.data() + text.size();
}

/// Numbers that are sums of a file, from the second field on.
bool ReadCounts(const std::vector<std::string_view>& fields, std::size_t first,
                const std::vector<Count*>& sums) {
  if (fields.size() != first + sums.size()) return false;
  for (std::size_t at = 0; at < sums.size(); ++at) {
    Count& sum = *sums[at];
    if (!ReadWhole(fields[first + at], sum) || sum > kLargestSum || sum < -kLargestSum)
      return false;
  }
  return true;
}

bool IsScore(const Score& score) {
  return score.Wins >= 0 && score.Losses >= 0 && score.Undecided() >= 0;
}

class Reader {
 public:
  Reader(TotalsFile& file, bool hasWorth) : file_(file), hasWorth_(hasWorth) {}
  /// False for a line that is not understood.
  bool Take(const std::vector<std::string_view>& fields) {
    for (const Row& row : kRows) {
      if (row.Word == fields[0]) return (this->*row.Read)(fields);
    }
    return false;
  }
  bool Ended() const { return ended_; }

 private:
  using Fields = std::vector<std::string_view>;
  struct Row {
    std::string_view Word;
    bool (Reader::*Read)(const Fields& fields);
  };
  static const std::array<Row, 14> kRows;

  static bool OneText(const Fields& fields, std::string& text) {
    if (fields.size() == 2) text = TextOfField(fields[1]);
    return fields.size() == 2;
  }
  SimulationSetup& Setup() { return file_.Setup; }

  bool Program(const Fields& fields) { return OneText(fields, Setup().Program); }
  bool Files(const Fields& fields) { return OneText(fields, Setup().FilesHash); }
  bool Game(const Fields& fields) { return OneText(fields, Setup().Game); }
  bool Seed(const Fields& fields) {
    return fields.size() == 2 && ReadWhole(fields[1], Setup().Seed);
  }
  bool Matches(const Fields& fields) {
    return ReadCounts(fields, 1, {&Setup().Matches}) && Setup().Matches >= 1;
  }
  bool Turns(const Fields& fields) {
    return fields.size() == 2 && ReadWhole(fields[1], Setup().MaximumTurns) &&
           Setup().MaximumTurns >= 1;
  }
  bool Minds(const Fields& fields) {
    return fields.size() == 3 && FindMindLevel(fields[1], Setup().DeckMind) &&
           FindMindLevel(fields[2], Setup().OpponentMind);
  }
  bool Shard(const Fields& fields) {
    return fields.size() == 3 && ReadWhole(fields[1], Setup().Shard) &&
           ReadWhole(fields[2], Setup().Shards) && Setup().Shard >= 1 &&
           Setup().Shard <= Setup().Shards && Setup().Shards <= kMostShards;
  }
  bool Opponent(const Fields& fields) { return AddName(fields, Setup().Opponents); }
  bool Deck(const Fields& fields) { return AddName(fields, Setup().Decks); }
  bool AddName(const Fields& fields, std::vector<std::string>& names) {
    return file_.Sums.Pairings.empty() && names.size() < kMostPairings &&
           OneText(fields, names.emplace_back());
  }

  PairingTotals* PairingOf(const Fields& fields) {
    const std::size_t pairings = Setup().Opponents.size() * Setup().Decks.size();
    std::size_t pairing = 0;
    if (pairings > kMostPairings || fields.size() < 3 || !ReadWhole(fields[1], pairing) ||
        pairing >= pairings) {
      return nullptr;
    }
    file_.Sums.Pairings.resize(pairings);
    return &file_.Sums.Pairings[pairing];
  }
  bool Seat(const Fields& fields) {
    PairingTotals* pairing = PairingOf(fields);
    std::size_t side = 0;
    if (pairing == nullptr || !ReadWhole(fields[2], side) || side < 1 || side > 2) return false;
    SeatTotals& seat = pairing->Seats[side - 1];
    return ReadCounts(fields, 3,
                      {&seat.Deck.Matches, &seat.Deck.Wins, &seat.Deck.Losses, &seat.Turns,
                       &seat.Tokens}) &&
           IsScore(seat.Deck) && seat.Turns >= 0;
  }
  bool Length(const Fields& fields) {
    PairingTotals* pairing = PairingOf(fields);
    int turns = 0;
    if (pairing == nullptr || !ReadWhole(fields[2], turns) || turns < 0) return false;
    Count count = 0;
    if (!ReadCounts(fields, 3, {&count}) || count < 1) return false;
    return pairing->Lengths.emplace(turns, count).second;
  }
  bool Card(const Fields& fields) {
    if (fields.size() < 3) return false;
    CardTotals card;
    card.Name = TextOfField(fields[2]);
    std::vector<Count*> sums = {&card.Drawn,
                                &card.Played,
                                &card.WhenPlayed.Matches,
                                &card.WhenPlayed.Wins,
                                &card.WhenPlayed.Losses,
                                &card.WhenHeld.Matches,
                                &card.WhenHeld.Wins,
                                &card.WhenHeld.Losses,
                                &card.TokenMatches,
                                &card.Tokens};
    if (hasWorth_) sums.insert(sums.end(), {&card.Judged, &card.Payable, &card.Worth});
    return ReadCounts(fields, 3, sums) && IsScore(card.WhenPlayed) && IsScore(card.WhenHeld) &&
           card.TokenMatches >= 0 && card.Payable >= 0 && card.Judged >= card.Payable &&
           file_.Sums.Cards.emplace(TextOfField(fields[1]), card).second;
  }
  bool End(const Fields& fields) {
    ended_ = true;
    return fields.size() <= 2;  // the checksum has been looked at
  }

  TotalsFile& file_;
  bool hasWorth_;
  bool ended_ = false;
};

const std::array<Reader::Row, 14> Reader::kRows = {{
    {"program", &Reader::Program},
    {"files", &Reader::Files},
    {"game", &Reader::Game},
    {"seed", &Reader::Seed},
    {"matches", &Reader::Matches},
    {"turns", &Reader::Turns},
    {"minds", &Reader::Minds},
    {"shard", &Reader::Shard},
    {"opponent", &Reader::Opponent},
    {"deck", &Reader::Deck},
    {"seat", &Reader::Seat},
    {"length", &Reader::Length},
    {"card", &Reader::Card},
    {"end", &Reader::End},
}};

std::string ReadLines(Lines& lines, TotalsFile& file, bool hasWorth) {
  Reader reader(file, hasWorth);
  std::vector<std::string_view> fields;
  while (!reader.Ended() && lines.Next(fields)) {
    if (!reader.Take(fields)) return Joined("line ", lines.Number(), " is damaged");
  }
  return reader.Ended() && lines.AtEnd() ? "" : "it is cut off";
}

bool BeginsWithLine(std::string_view text, std::string_view line) {
  return text.starts_with(line) && text.substr(line.size()).starts_with('\n');
}

/// Holds the bytes of a file against its last line. "" or what is wrong.
std::string LastLineProblem(std::string_view bytes, bool hasChecksum) {
  const std::size_t last = bytes.rfind(Joined("\n", kLastWord));
  if (last == std::string_view::npos || !bytes.ends_with('\n')) return "it is cut off";
  const std::string_view held = bytes.substr(0, last + 1);
  const std::string_view line = bytes.substr(last + 1);
  if (!hasChecksum) return line == Joined(kLastWord, "\n") ? "" : "it is cut off";
  return line == Joined(kLastWord, "\t", HashOf(held), "\n")
             ? ""
             : "it is damaged: its checksum is another one";
}

/// How an option of a setup is compared.
struct Option {
  std::string_view Name;
  std::string (*Show)(const SimulationSetup& setup);
};

std::string NamesOf(const std::vector<std::string>& names) {
  std::string all;
  for (const std::string& name : names) all += Joined(all.empty() ? "" : ", ", name);
  return all;
}

constexpr std::array<Option, 10> kOptions = {{
    {"version of the program", [](const SimulationSetup& s) { return s.Program; }},
    {"game", [](const SimulationSetup& s) { return s.Game; }},
    {"hash of the card files", [](const SimulationSetup& s) { return s.FilesHash; }},
    {"seed", [](const SimulationSetup& s) { return Joined(s.Seed); }},
    {"number of matches", [](const SimulationSetup& s) { return Joined(s.Matches); }},
    {"maximum of turns", [](const SimulationSetup& s) { return Joined(s.MaximumTurns); }},
    {"pair of minds",
     [](const SimulationSetup& s) {
       return Joined(MindWord(s.DeckMind), " against ", MindWord(s.OpponentMind));
     }},
    {"list of opponents", [](const SimulationSetup& s) { return NamesOf(s.Opponents); }},
    {"list of decks", [](const SimulationSetup& s) { return NamesOf(s.Decks); }},
    {"number of shards", [](const SimulationSetup& s) { return Joined(s.Shards); }},
}};

std::string MissingShards(const std::set<int>& present, int shards) {
  constexpr int kNamed = 10;
  std::string names;
  int missing = 0;
  for (int shard = 1; shard <= shards; ++shard) {
    if (present.contains(shard)) continue;
    if (++missing <= kNamed) names += Joined(names.empty() ? "" : ", ", shard);
  }
  if (missing > kNamed) names += Joined(" and ", missing - kNamed, " more");
  return missing == 0 ? ""
                      : Joined(missing == 1 ? "Shard " : "Shards ", names, " of ", shards,
                               missing == 1 ? " is missing." : " are missing.");
}

void AddSums(std::string& out, const Totals& sums) {
  for (std::size_t index = 0; index < sums.Pairings.size(); ++index) {
    const PairingTotals& pairing = sums.Pairings[index];
    for (std::size_t side = 1; side <= pairing.Seats.size(); ++side) {
      const SeatTotals& seat = pairing.Seats[side - 1];
      AddLine(out, "seat", index, side, seat.Deck.Matches, seat.Deck.Wins, seat.Deck.Losses,
              seat.Turns, seat.Tokens);
    }
    for (const auto& [turns, count] : pairing.Lengths) AddLine(out, "length", index, turns, count);
  }
  for (const auto& [id, card] : sums.Cards) {
    AddLine(out, "card", FieldText(id), FieldText(card.Name), card.Drawn, card.Played,
            card.WhenPlayed.Matches, card.WhenPlayed.Wins, card.WhenPlayed.Losses,
            card.WhenHeld.Matches, card.WhenHeld.Wins, card.WhenHeld.Losses, card.TokenMatches,
            card.Tokens, card.Judged, card.Payable, card.Worth);
  }
}

}  // namespace

bool IsTotalsFile(std::string_view bytes) { return bytes.starts_with(kFileMark); }

std::string TotalsText(const TotalsFile& file) {
  const SimulationSetup& setup = file.Setup;
  std::string out;
  AddLine(out, kFirstLine);
  AddLine(out, "program", FieldText(setup.Program));
  AddLine(out, "files", FieldText(setup.FilesHash));
  AddLine(out, "game", FieldText(setup.Game));
  AddLine(out, "seed", setup.Seed);
  AddLine(out, "matches", setup.Matches);
  AddLine(out, "turns", setup.MaximumTurns);
  // Sums of plain minds read as they did before there were others.
  if (setup.HasThinkers()) {
    AddLine(out, "minds", MindWord(setup.DeckMind), MindWord(setup.OpponentMind));
  }
  AddLine(out, "shard", setup.Shard, setup.Shards);
  for (const std::string& name : setup.Opponents) AddLine(out, "opponent", FieldText(name));
  for (const std::string& name : setup.Decks) AddLine(out, "deck", FieldText(name));
  AddSums(out, file.Sums);
  AddLine(out, kLastWord, HashOf(out));
  return out;
}

std::string SumsText(const Totals& sums) {
  std::string out;
  AddSums(out, sums);
  AddLine(out, kLastWord);
  return out;
}

std::string ReadSums(std::string_view text, const SimulationSetup& setup, Totals& sums) {
  TotalsFile file{setup, {}};
  Lines lines(text);
  std::string problem = ReadLines(lines, file, true);
  sums = std::move(file.Sums);
  return problem;
}

std::string ReadTotals(std::string_view bytes, TotalsFile& file) {
  file = {};
  const bool hasWorth = BeginsWithLine(bytes, kFirstLine);
  const bool hasChecksum = hasWorth || BeginsWithLine(bytes, kFirstLineOfSecond);
  if (!hasChecksum && !BeginsWithLine(bytes, kFirstLineOfFirst)) {
    return "it is no file of a simulation that this program can read";
  }
  if (std::string problem = LastLineProblem(bytes, hasChecksum); !problem.empty()) return problem;
  // Names become parts of JSON and HTML: they must be UTF-8, whatever the file holds.
  const std::string text = DecodeFileText(std::string(bytes));
  Lines lines(text);
  std::vector<std::string_view> fields;
  lines.Next(fields);
  if (std::string problem = ReadLines(lines, file, hasWorth); !problem.empty()) return problem;
  const SimulationSetup& setup = file.Setup;
  if (setup.Opponents.empty() || setup.Decks.empty() || setup.Matches < 1 ||
      setup.Opponents.size() * setup.Decks.size() > kMostPairings) {
    return "it does not say what was played";
  }
  if (file.Sums.Matches() != setup.OwnMatches()) {
    return "matches of its shard are missing";
  }
  return "";
}

std::string ShardMerge::Add(const NamedTotals& shard) {
  const SimulationSetup& setup = shard.File.Setup;
  if (present_.empty()) {
    first_ = shard.Name;
    merged_.Setup = setup;
  }
  for (const Option& option : kOptions) {
    const std::string here = option.Show(setup);
    const std::string there = option.Show(merged_.Setup);
    if (here == there) continue;
    return Joined(shard.Name, " does not fit to ", first_, ": the ", option.Name, " is ", here,
                  ", not ", there, ".");
  }
  if (!present_.insert(setup.Shard).second) {
    return Joined(shard.Name, " is shard ", setup.Shard, " of ", setup.Shards,
                  ", which is there already.");
  }
  merged_.Sums += shard.File.Sums;
  return "";
}

std::string ShardMerge::Finish(TotalsFile& merged) {
  if (present_.empty()) return "There is no file to merge.";
  const int shards = merged_.Setup.Shards;
  merged = std::move(merged_);
  merged.Setup.Shard = 1;
  merged.Setup.Shards = 1;
  return MissingShards(present_, shards);
}

}  // namespace brindlemoor

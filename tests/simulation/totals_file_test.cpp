// The files of shards: what they keep, what is refused, and how they add up.
#include "simulation/totals_file.h"

#include <gtest/gtest.h>

#include "simulation/stage.h"
#include "tests/simulation/merged_shards.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

MatchLog LogOf(const std::vector<LoggedEvent>& events, double worth) {
  return {events, {{"A1", "Imp", true, worth}, {"A1", "Imp", false, -98}}};
}

SimulationSetup TwoPairings() {
  SimulationSetup setup;
  setup.Program = "P";
  setup.Game = "Imps\tand \\ more";
  setup.FilesHash = "00ff";
  setup.Seed = 18446744073709551615U;
  setup.Matches = 5;
  setup.Opponents = {"Gob",
                     "H\xC3\xB6"
                     "b"};
  setup.Decks = {"Starter"};
  return setup;
}

/// The shard of a made-up simulation whose matches depend on their numbers.
NamedTotals ShardOf(int shard, int shards) {
  NamedTotals named{Joined("shard", shard), {TwoPairings(), {}}};
  SimulationSetup& setup = named.File.Setup;
  setup.Shard = shard;
  setup.Shards = shards;
  for (int pairing = 0; pairing < setup.Pairings(); ++pairing) {
    for (Count match = 0; match < setup.Matches; ++match) {
      if (!setup.Includes(pairing, match)) continue;
      const int number = static_cast<int>(match);
      AddMatch(named.File.Sums, pairing, SeatsChanged(match), {number % 3, 4 + number, -number},
               LogOf({{MatchEvent::kDrawn, 1, "A1", "Imp"},
                      {MatchEvent::kDrawn, 1, "A1", "Imp"},
                      {MatchEvent::kPlayed, 1 + number % 2, "A1", "Imp"},
                      {MatchEvent::kDrawn, 2, "", "No id\n"}},
                     number == 0 ? 1e300 : number));
    }
  }
  named.File.Sums.Pairings.resize(static_cast<std::size_t>(setup.Pairings()));
  return named;
}

TEST(TotalsFileTest, ComesBackAsItWasWritten) {
  const TotalsFile file = ShardOf(1, 1).File;
  TotalsFile read;
  EXPECT_EQ(ReadTotals(TotalsText(file), read), "");
  EXPECT_EQ(TotalsText(read), TotalsText(file));
  EXPECT_EQ(read.Sums, file.Sums);
  EXPECT_EQ(read.Setup.Game, file.Setup.Game);
  const CardTotals& imp = read.Sums.Cards.at("A1");
  EXPECT_EQ(imp.Drawn, 20);
  EXPECT_EQ(imp.Played, 10);
  EXPECT_EQ(imp.WhenPlayed.Matches, 10);
  EXPECT_EQ(imp.WhenHeld.Matches, 4) << "drawn by side 1 and played by side 2";
  EXPECT_EQ(imp.TokenMatches, 6);
  EXPECT_EQ(imp.Tokens, 2 * (0 - 2 - 4));
  EXPECT_EQ(imp.Judged, 20);
  EXPECT_EQ(imp.Payable, 10);
  EXPECT_EQ(imp.Worth, 2 * (1'000'000 + 1 + 2 + 3 + 4));
  EXPECT_EQ(read.Sums.Cards.at("No id\n").Name, "No id\n");
}

TEST(TotalsFileTest, AnyChangedByteIsRefused) {
  const std::string whole = TotalsText(ShardOf(1, 2).File);
  TotalsFile file;
  ASSERT_EQ(ReadTotals(whole, file), "");
  for (std::size_t at = 0; at < whole.size(); ++at) {
    std::string damaged = whole;
    damaged[at] = damaged[at] == '1' ? '2' : '1';
    EXPECT_NE(ReadTotals(damaged, file), "") << "at " << at << ": " << whole.substr(0, at);
  }
  EXPECT_EQ(ReadTotals(Joined(whole, "more\n"), file),
            "it is damaged: its checksum is another one");
}

/// The same file as an older version wrote it: without worths, the first without a checksum.
std::string OfVersion(int version, std::string text) {
  text.replace(text.find("\t3\n"), 3, Joined("\t", version, "\n"));
  text.resize(text.rfind("end\t"));
  for (std::size_t line = text.find("\ncard\t"); line != text.npos;
       line = text.find("\ncard\t", line + 1)) {
    std::size_t end = text.find('\n', line + 1);
    for (int field = 0; field < 3; ++field) {
      const std::size_t tab = text.rfind('\t', end);
      text.erase(tab, end - tab);
      end = tab;
    }
  }
  return version == 1 ? text + "end\n" : Joined(text, "end\t", HashOf(text), "\n");
}

/// The sums as older versions counted them.
Totals WithoutWorths(Totals sums) {
  for (auto& [id, card] : sums.Cards) card.Judged = card.Payable = card.Worth = 0;
  return sums;
}

TEST(TotalsFileTest, DamageOfTheFirstVersionIsRefused) {
  const TotalsFile written = ShardOf(1, 2).File;
  const std::string whole = OfVersion(1, TotalsText(written));
  TotalsFile file;
  for (const int version : {1, 2}) {
    EXPECT_EQ(ReadTotals(OfVersion(version, TotalsText(written)), file), "") << version;
    EXPECT_EQ(file.Sums, WithoutWorths(written.Sums)) << version;
  }
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_NE(ReadTotals(whole.substr(0, size), file), "") << "cut at " << size;
  }
  const auto with = [&whole](std::string_view from, std::string_view to) {
    std::string text = whole;
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
  };
  const std::pair<std::string, std::string> cases[] = {
      {"hello\n", "it is no file of a simulation that this program can read"},
      {with("brindle-sim\t1", "brindle-sim\t4"),
       "it is no file of a simulation that this program can read"},
      {with("brindle-sim\t1", "brindle-sim\t2"), "it is damaged: its checksum is another one"},
      {with("shard\t1\t2", "shard\t3\t2"), "line 8 is damaged"},
      {with("seed\t1", "seed\t-1"), "line 5 is damaged"},
      {with("matches\t5", "matches\t6"), "matches of its shard are missing"},
      {with("seat\t1\t", "seat\t2\t"), "line 17 is damaged"},
      {with("seat\t0\t1\t", "seat\t0\t3\t"), "line 12 is damaged"},
      {with("seat\t0\t1\t3\t1", "seat\t0\t1\t3\t9"), "line 12 is damaged"},
      {with("card\tA1", "cards\tA1"), "line 21 is damaged"},
      {with("deck\tStarter\n", ""), "line 11 is damaged"},
      {whole + "more\n", "it is cut off"},
      {with("turns\t200", "turns\t99999999999"), "line 7 is damaged"},
  };
  for (const auto& [text, problem] : cases) EXPECT_EQ(ReadTotals(text, file), problem);
}

TEST(TotalsFileTest, EverySplitAddsUpToTheSame) {
  const std::string whole = TotalsText(ShardOf(1, 1).File);
  for (const int shards : {1, 2, 3, 7, 12}) {
    std::vector<NamedTotals> parts;
    for (int shard = shards; shard >= 1; --shard) parts.push_back(ShardOf(shard, shards));
    TotalsFile merged;
    EXPECT_EQ(MergeTotals(parts, merged), "");
    EXPECT_EQ(TotalsText(merged), whole) << shards;
  }
}

TEST(TotalsFileTest, ShardsThatDoNotFitAreRefused) {
  using Change = void (*)(SimulationSetup & setup);
  const std::pair<Change, std::string> cases[] = {
      {[](SimulationSetup& s) { s.Program = "Q"; }, "the version of the program is Q, not P."},
      {[](SimulationSetup& s) { s.Game = "Imps"; }, "the game is Imps, not Imps\tand \\ more."},
      {[](SimulationSetup& s) { s.FilesHash = "1"; }, "the hash of the card files is 1, not 00ff."},
      {[](SimulationSetup& s) { s.Seed = 2; }, "the seed is 2, not 18446744073709551615."},
      {[](SimulationSetup& s) { s.Matches = 9; }, "the number of matches is 9, not 5."},
      {[](SimulationSetup& s) { s.MaximumTurns = 9; }, "the maximum of turns is 9, not 200."},
      {[](SimulationSetup& s) { s.Opponents = {"Gob"}; },
       "the list of opponents is Gob, not Gob, H\xC3\xB6"
       "b."},
      {[](SimulationSetup& s) { s.Decks = {"S"}; }, "the list of decks is S, not Starter."},
      {[](SimulationSetup& s) { s.Shards = 4; }, "the number of shards is 4, not 3."},
  };
  TotalsFile merged;
  for (const auto& [change, problem] : cases) {
    std::vector<NamedTotals> parts = {ShardOf(1, 3), ShardOf(2, 3)};
    change(parts[1].File.Setup);
    EXPECT_EQ(MergeTotals(parts, merged), "shard2 does not fit to shard1: " + problem);
  }
  const auto merge = [&merged](std::vector<NamedTotals> parts) {
    return MergeTotals(parts, merged);
  };
  EXPECT_EQ(merge({ShardOf(2, 3), ShardOf(1, 3), ShardOf(2, 3)}),
            "shard2 is shard 2 of 3, which is there already.");
  EXPECT_EQ(merge({ShardOf(2, 3), ShardOf(1, 3)}), "Shard 3 of 3 is missing.");
  EXPECT_EQ(merge({ShardOf(2, 4)}), "Shards 1, 3, 4 of 4 are missing.");
  EXPECT_EQ(merge({}), "There is no file to merge.");
}

}  // namespace
}  // namespace brindlemoor

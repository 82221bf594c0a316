// What the totals of a simulation say.
#include "simulation/report.h"

#include <algorithm>
#include <charconv>

#include "core/mind_levels.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

double Average(Count sum, Count of) {
  return of == 0 ? 0 : static_cast<double>(sum) / static_cast<double>(of);
}

PairingReport ReportOf(const PairingTotals& totals) {
  PairingReport report;
  Count turns = 0;
  for (std::size_t seat = 0; seat < totals.Seats.size(); ++seat) {
    report.BySeat[seat] = totals.Seats[seat].Deck;
    report.WonBySeat[seat] = WinRate(report.BySeat[seat]);
    report.Games += report.BySeat[seat];
    turns += totals.Seats[seat].Turns;
  }
  report.Won = WinRate(report.Games);
  report.FirstSeat = Difference(report.WonBySeat[0], report.WonBySeat[1]);
  report.Lengths = totals.Lengths;
  report.Turns = Average(turns, report.Games.Matches);
  report.Shortest = LengthAt(totals.Lengths, 0);
  report.Median = LengthAt(totals.Lengths, 0.5);
  report.Longest = LengthAt(totals.Lengths, 1);
  report.Tokens = Average(totals.Seats[0].Tokens, report.BySeat[0].Matches);
  return report;
}

std::vector<CardReport> CardReports(const Totals& totals) {
  std::vector<CardReport> cards;
  for (const auto& [id, sums] : totals.Cards) {
    cards.push_back({id, sums, WinRate(sums.WhenPlayed), WinRate(sums.WhenHeld),
                     Average(sums.Tokens, sums.TokenMatches),
                     WilsonShare(sums.Payable, sums.Judged), Average(sums.Worth, sums.Payable)});
  }
  std::ranges::stable_sort(cards, [](const CardReport& a, const CardReport& b) {
    const bool aKnown = a.WhenPlayed.Of > 0;
    const bool bKnown = b.WhenPlayed.Of > 0;
    if (aKnown != bKnown) return aKnown;
    return a.WhenPlayed.Value > b.WhenPlayed.Value;
  });
  return cards;
}

}  // namespace

Report MakeReport(const TotalsFile& totals) {
  Report report;
  report.Setup = totals.Setup;
  PairingTotals all;
  for (int pairing = 0; pairing < totals.Setup.Pairings(); ++pairing) {
    const auto index = static_cast<std::size_t>(pairing);
    const PairingTotals sums =
        index < totals.Sums.Pairings.size() ? totals.Sums.Pairings[index] : PairingTotals();
    all += sums;
    PairingReport& row = report.Pairings.emplace_back(ReportOf(sums));
    row.Opponent =
        totals.Setup.Opponents[static_cast<std::size_t>(totals.Setup.OpponentOf(pairing))];
    row.Deck = totals.Setup.Decks[static_cast<std::size_t>(totals.Setup.DeckOf(pairing))];
  }
  report.All = ReportOf(all);
  report.Cards = CardReports(totals.Sums);
  return report;
}

std::string FixedText(double number, int digits) {
  char buffer[64];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::fixed, digits).ptr;
  std::string text(buffer, end);
  // A rounded zero has no sign.
  if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string::npos) text.erase(0, 1);
  return text;
}

std::string PercentText(const Share& share) {
  return share.Of == 0 ? "-" : FixedText(100 * share.Value, 1) + " %";
}

std::string WorthText(const CardReport& card) {
  return card.Sums.Payable == 0 ? "-" : FixedText(card.Worth, 1);
}

std::string IntervalText(const Share& share) {
  if (share.Of == 0) return "-";
  return Joined(FixedText(100 * share.Low, 1), " to ", FixedText(100 * share.High, 1), " %");
}

std::string PointsText(double difference) {
  const std::string text = FixedText(100 * difference, 1);
  return text.starts_with('-') || text == "0.0" ? text : "+" + text;
}

std::string TerminalText(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }, ' ');
  return text;
}

std::string SimulationLine(const SimulationSetup& setup) {
  std::string line =
      Joined(setup.Game, ": ", setup.Matches, setup.Matches == 1 ? " match" : " matches",
             " of each pairing, seed ", setup.Seed, ", at most ", setup.MaximumTurns, " turns");
  if (setup.HasThinkers()) {
    line += Joined(", decks played by the ", MindWord(setup.DeckMind), " mind, opponents by the ",
                   MindWord(setup.OpponentMind), " one");
  }
  return line;
}

}  // namespace brindlemoor

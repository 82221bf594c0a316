// The report as tables for a terminal.
#include <algorithm>

#include "simulation/report.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

using Row = std::vector<std::string>;

/// Characters, not bytes.
std::size_t WidthOf(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char character) { return (static_cast<unsigned char>(character) & 0xC0) != 0x80; }));
}

/// Rows of equal length in columns; those from the first number on stand to the right.
std::string Columns(const std::vector<Row>& rows, std::size_t firstNumber) {
  std::vector<std::size_t> widths(rows.front().size());
  for (const Row& row : rows) {
    for (std::size_t column = 0; column < row.size(); ++column) {
      widths[column] = std::max(widths[column], WidthOf(row[column]));
    }
  }
  std::string out;
  for (const Row& row : rows) {
    std::string line;
    for (std::size_t column = 0; column < row.size(); ++column) {
      const std::string gap(widths[column] - WidthOf(row[column]), ' ');
      if (column > 0) line += "  ";
      line += column < firstNumber ? row[column] + gap : gap + row[column];
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out += line + "\n";
  }
  return out;
}

std::string FirstSeatText(const Share& advantage) {
  if (advantage.Of == 0) return "-";
  return Joined(PointsText(advantage.Value), " (", PointsText(advantage.Low), " to ",
                PointsText(advantage.High), ")");
}

Row RowOf(const PairingReport& pairing) {
  return {TerminalText(pairing.Opponent),
          TerminalText(pairing.Deck),
          Joined(pairing.Games.Matches),
          PercentText(pairing.Won),
          IntervalText(pairing.Won),
          Joined(pairing.Games.Undecided()),
          FirstSeatText(pairing.FirstSeat),
          FixedText(pairing.Turns, 1),
          Joined(pairing.Shortest, "/", pairing.Median, "/", pairing.Longest),
          FixedText(pairing.Tokens, 1)};
}

}  // namespace

std::string ReportAsText(const Report& report) {
  std::vector<Row> pairings = {{"Opponent", "Deck", "Matches", "Deck won", "95 % interval",
                                "Undecided", "First seat", "Turns", "Min/med/max", "Tokens"}};
  for (const PairingReport& pairing : report.Pairings) pairings.push_back(RowOf(pairing));
  if (report.Pairings.size() > 1) {
    pairings.push_back(RowOf(report.All));
    pairings.back()[0] = "All";
  }
  std::string out =
      Joined(TerminalText(SimulationLine(report.Setup)), "\n\n", Columns(pairings, 2));
  if (report.Cards.empty()) return out;
  std::vector<Row> cards = {{"Card", "Unique ID", "Drawn", "Played", "Won when played",
                             "95 % interval", "Won when held", "95 % interval", "Tokens", "Payable",
                             "Worth"}};
  for (const CardReport& card : report.Cards) {
    cards.push_back({TerminalText(card.Sums.Name), TerminalText(card.Id), Joined(card.Sums.Drawn),
                     Joined(card.Sums.Played), PercentText(card.WhenPlayed),
                     IntervalText(card.WhenPlayed), PercentText(card.WhenHeld),
                     IntervalText(card.WhenHeld), FixedText(card.Tokens, 1),
                     PercentText(card.Payable), WorthText(card)});
  }
  return out + "\n" + Columns(cards, 2);
}

}  // namespace brindlemoor

// Report: what the totals of a simulation say, and the forms in which it is written.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "simulation/statistics.h"
#include "simulation/totals_file.h"

namespace brindlemoor {

/// A pairing, or all of them together.
struct PairingReport {
  std::string Opponent;
  std::string Deck;
  Score Games;                  ///< seen from the deck
  Share Won;                    ///< of the decided ones
  std::array<Score, 2> BySeat;  ///< the deck on side 1, on side 2
  std::array<Share, 2> WonBySeat;
  Share FirstSeat;  ///< how much more the deck wins on side 1 than on side 2
  std::map<int, Count> Lengths;
  double Turns = 0;  ///< on the average
  int Shortest = 0;
  int Median = 0;
  int Longest = 0;
  double Tokens = 0;  ///< on the average, for the deck on side 1
};

struct CardReport {
  std::string Id;
  CardTotals Sums;
  Share WhenPlayed;
  Share WhenHeld;
  double Tokens = 0;  ///< on the average of the matches in which side 1 played it
  Share Payable;      ///< how often it could be paid when the computer valued it
  double Worth = 0;   ///< to the computer, on the average of those times
};

struct Report {
  SimulationSetup Setup;
  std::vector<PairingReport> Pairings;
  PairingReport All;
  std::vector<CardReport> Cards;  ///< most often won when played first
};

Report MakeReport(const TotalsFile& totals);

std::string ReportAsText(const Report& report);
/// One table with a column that says of what a row is: "pairing", "all" or "card".
std::string ReportAsCsv(const Report& report);
std::string ReportAsJson(const Report& report);
/// A page with tables and drawn charts that needs no other file and no script.
std::string ReportAsHtml(const Report& report);

// What the forms share.

/// A number with so many digits behind the point.
std::string FixedText(double number, int digits);
/// A share as "93.2 %", "-" where nothing is known.
/// What a card was worth on the average, "-" when it could never be paid.
std::string WorthText(const CardReport& card);
std::string PercentText(const Share& share);
/// Its interval as "91.5 to 94.6 %".
std::string IntervalText(const Share& share);
/// A difference of shares as "+1.2", in percentage points.
std::string PointsText(double difference);
/// A text of a strange file as one line that can't steer a terminal.
std::string TerminalText(std::string text);
/// The first line of the readable forms.
std::string SimulationLine(const SimulationSetup& setup);

}  // namespace brindlemoor

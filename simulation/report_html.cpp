// The report as a page with tables and drawn charts.
#include <algorithm>

#include "simulation/charts.h"
#include "simulation/report.h"
#include "text/quoting.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<style>
:root { color-scheme: light dark; --ink: #1d2733; --paper: #ffffff; --faint: #d8dee5; --one: #1f6f8b; --two: #c2571a; }
@media (prefers-color-scheme: dark) { :root { --ink: #e3e8ee; --paper: #161c24; --faint: #364350; --one: #62b6d0; --two: #f0965a; } }
body { font: 15px/1.45 system-ui, sans-serif; color: var(--ink); background: var(--paper); margin: 2em auto; max-width: 70em; padding: 0 1em; }
.wide { overflow-x: auto; }
table { border-collapse: collapse; }
th, td { padding: .25em .7em; border-bottom: 1px solid var(--faint); text-align: right; white-space: nowrap; }
th { vertical-align: bottom; }
.name { text-align: left; }
tr.all td { font-weight: bold; }
svg { display: block; width: 100%; max-width: 760px; font-size: 12px; }
svg text { fill: currentColor; }
line.grid { stroke: var(--faint); }
line.half { stroke: currentColor; stroke-dasharray: 3 3; }
.first { stroke: var(--one); fill: var(--one); stroke-width: 2; }
.second { stroke: var(--two); fill: var(--two); stroke-width: 2; }
.bar { fill: var(--one); }
.key1 { color: var(--one); } .key2 { color: var(--two); }
</style>
)";

struct Column {
  std::string_view Name;
  bool IsName;
};

template <std::size_t N>
std::string HeadRow(const Column (&columns)[N]) {
  std::string row = "<tr>";
  for (const Column& column : columns) {
    row += Joined("<th", column.IsName ? " class=\"name\"" : "", ">", column.Name, "</th>");
  }
  return row + "</tr>\n";
}

/// The first so many cells are names.
std::string BodyRow(const std::vector<std::string>& cells, std::size_t names,
                    std::string_view style = "") {
  std::string row = style.empty() ? "<tr>" : Joined("<tr class=\"", style, "\">");
  for (std::size_t cell = 0; cell < cells.size(); ++cell) {
    row +=
        Joined("<td", cell < names ? " class=\"name\"" : "", ">", HtmlText(cells[cell]), "</td>");
  }
  return row + "</tr>\n";
}

std::vector<std::string> CellsOf(const PairingReport& pairing) {
  const Share& seat = pairing.FirstSeat;
  return {pairing.Opponent,
          pairing.Deck,
          Joined(pairing.Games.Matches),
          PercentText(pairing.Won),
          IntervalText(pairing.Won),
          Joined(pairing.Games.Undecided()),
          PercentText(pairing.WonBySeat[0]),
          PercentText(pairing.WonBySeat[1]),
          seat.Of == 0 ? "-" : PointsText(seat.Value),
          seat.Of == 0 ? "-" : Joined(PointsText(seat.Low), " to ", PointsText(seat.High)),
          FixedText(pairing.Turns, 1),
          Joined(pairing.Shortest, " / ", pairing.Median, " / ", pairing.Longest),
          FixedText(pairing.Tokens, 1)};
}

std::string PairingTable(const Report& report) {
  constexpr Column kColumns[] = {
      {"Opponent", true},       {"Deck", true},           {"Matches", false},
      {"Deck won", false},      {"95 % interval", false}, {"Undecided", false},
      {"on side 1", false},     {"on side 2", false},     {"First seat", false},
      {"95 % interval", false}, {"Turns", false},         {"min / median / max", false},
      {"Tokens", false}};
  std::string html = "<div class=\"wide\"><table>\n" + HeadRow(kColumns);
  for (const PairingReport& pairing : report.Pairings) html += BodyRow(CellsOf(pairing), 2);
  std::vector<std::string> all = CellsOf(report.All);
  all[0] = "All";
  return html + BodyRow(all, 2, "all") + "</table></div>\n";
}

std::string PairingCharts(const Report& report) {
  std::vector<IntervalLine> lines;
  for (const PairingReport& pairing : report.Pairings) {
    lines.push_back({Joined(pairing.Deck, " against ", pairing.Opponent), pairing.WonBySeat[0],
                     pairing.WonBySeat[1]});
  }
  std::string html = Joined(
      "<h2>How often the deck wins</h2>\n<p>Shares of the decided matches with 95 % intervals: "
      "<span class=\"key1\">● on side 1</span>, <span class=\"key2\">● on side 2</span>.</p>\n",
      IntervalChart("How often the deck wins", lines), "<h2>Length of the matches</h2>\n");
  for (const PairingReport& pairing : report.Pairings) {
    const std::string name = Joined(pairing.Deck, " against ", pairing.Opponent);
    html += Joined("<h3>", HtmlText(name), ", in turns</h3>\n",
                   LengthChart(Joined("Turns, ", name), pairing.Lengths));
  }
  return html;
}

std::string CardTable(const Report& report) {
  constexpr Column kColumns[] = {{"Card", true},
                                 {"Unique ID", true},
                                 {"Drawn", false},
                                 {"Played", false},
                                 {"Won when played", false},
                                 {"95 % interval", false},
                                 {"Won when held", false},
                                 {"95 % interval", false},
                                 {"Tokens", false},
                                 {"Payable", false},
                                 {"Worth", false}};
  std::string html = "<div class=\"wide\"><table>\n" + HeadRow(kColumns);
  for (const CardReport& card : report.Cards) {
    html += BodyRow({card.Sums.Name, card.Id, Joined(card.Sums.Drawn), Joined(card.Sums.Played),
                     PercentText(card.WhenPlayed), IntervalText(card.WhenPlayed),
                     PercentText(card.WhenHeld), IntervalText(card.WhenHeld),
                     FixedText(card.Tokens, 1), PercentText(card.Payable), WorthText(card)},
                    2);
  }
  return html + "</table></div>\n";
}

std::string CardCharts(const Report& report) {
  std::vector<IntervalLine> won;
  std::vector<BarLine> tokens;
  for (const CardReport& card : report.Cards) {
    won.push_back({card.Sums.Name, card.WhenPlayed, card.WhenHeld});
    if (card.Sums.TokenMatches > 0) tokens.push_back({card.Sums.Name, card.Tokens});
  }
  std::ranges::stable_sort(tokens,
                           [](const BarLine& a, const BarLine& b) { return a.Value > b.Value; });
  std::string html = Joined(
      "<h2>Cards</h2>\n<p>How often a side wins that <span class=\"key1\">● played</span> the "
      "card, "
      "and one that <span class=\"key2\">● drew it and never played it</span>.</p>\n",
      IntervalChart("Cards, when played and when held", won));
  if (!tokens.empty()) {
    html += Joined(
        "<h2>Tokens</h2>\n<p>What the player gets on the average of the matches in which "
        "the card was played.</p>\n",
        BarChart("Tokens by card", tokens));
  }
  return html;
}

}  // namespace

std::string ReportAsHtml(const Report& report) {
  const std::string title = HtmlText(Joined(report.Setup.Game, ": simulated matches"));
  std::string html =
      Joined(kHead, "<title>", title, "</title>\n</head>\n<body>\n<h1>", title, "</h1>\n<p>",
             HtmlText(SimulationLine(report.Setup)), ". Card files ",
             HtmlText(report.Setup.FilesHash), ", program ", HtmlText(report.Setup.Program),
             ".</p>\n", PairingTable(report), PairingCharts(report));
  if (!report.Cards.empty()) html += CardCharts(report) + CardTable(report);
  return html + "</body>\n</html>\n";
}

}  // namespace brindlemoor

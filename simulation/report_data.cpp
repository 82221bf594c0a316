// The report as CSV and as JSON.
#include <array>

#include "core/mind_levels.h"
#include "simulation/report.h"
#include "text/quoting.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr int kDigits = 4;

/// A spreadsheet would carry such a text out instead of showing it; a number it only shows.
bool LooksLikeFormula(std::string_view text) {
  constexpr std::string_view kFormulaStarts = "=+-@\t\r";
  if (text.empty() || kFormulaStarts.find(text.front()) == std::string_view::npos) return false;
  const std::string_view digits = text.substr(1);
  const bool signedNumber = (text.front() == '-' || text.front() == '+') && !digits.empty() &&
                            digits.find_first_not_of("0123456789") == std::string_view::npos;
  return !signedNumber;
}

/// A text as a field. An apostrophe before what looks like a formula makes it a text again.
std::string CsvField(std::string_view text) {
  std::string shown = LooksLikeFormula(text) ? "'" : "";
  shown += text;
  if (shown.find_first_of(",\"\r\n") == std::string::npos) return shown;
  std::string field = "\"";
  for (const char character : shown) {
    if (character == '"') field += '"';
    field += character;
  }
  return field + "\"";
}

/// A row of the CSV table; what a row does not have stays empty.
struct CsvRow {
  std::string_view Kind;
  const PairingReport* Pairing = nullptr;
  const CardReport* Card = nullptr;
};

struct CsvColumn {
  std::string_view Name;
  std::string (*OfPairing)(const PairingReport& pairing);
  std::string (*OfCard)(const CardReport& card);
};

std::string Known(const Share& share, double value) {
  return share.Of == 0 ? "" : FixedText(value, kDigits);
}

using P = PairingReport;
using C = CardReport;
constexpr std::array<CsvColumn, 33> kColumns = {{
    {"opponent", [](const P& p) { return CsvField(p.Opponent); }, nullptr},
    {"deck", [](const P& p) { return CsvField(p.Deck); }, nullptr},
    {"card", nullptr, [](const C& c) { return CsvField(c.Id); }},
    {"name", nullptr, [](const C& c) { return CsvField(c.Sums.Name); }},
    {"matches", [](const P& p) { return Joined(p.Games.Matches); },
     [](const C& c) { return Joined(c.Sums.WhenPlayed.Matches + c.Sums.WhenHeld.Matches); }},
    {"wins", [](const P& p) { return Joined(p.Games.Wins); },
     [](const C& c) { return Joined(c.Sums.WhenPlayed.Wins + c.Sums.WhenHeld.Wins); }},
    {"losses", [](const P& p) { return Joined(p.Games.Losses); },
     [](const C& c) { return Joined(c.Sums.WhenPlayed.Losses + c.Sums.WhenHeld.Losses); }},
    {"undecided", [](const P& p) { return Joined(p.Games.Undecided()); },
     [](const C& c) {
       return Joined(c.Sums.WhenPlayed.Undecided() + c.Sums.WhenHeld.Undecided());
     }},
    {"won", [](const P& p) { return Known(p.Won, p.Won.Value); }, nullptr},
    {"won_low", [](const P& p) { return Known(p.Won, p.Won.Low); }, nullptr},
    {"won_high", [](const P& p) { return Known(p.Won, p.Won.High); }, nullptr},
    {"won_side1", [](const P& p) { return Known(p.WonBySeat[0], p.WonBySeat[0].Value); }, nullptr},
    {"won_side2", [](const P& p) { return Known(p.WonBySeat[1], p.WonBySeat[1].Value); }, nullptr},
    {"first_seat", [](const P& p) { return Known(p.FirstSeat, p.FirstSeat.Value); }, nullptr},
    {"first_seat_low", [](const P& p) { return Known(p.FirstSeat, p.FirstSeat.Low); }, nullptr},
    {"first_seat_high", [](const P& p) { return Known(p.FirstSeat, p.FirstSeat.High); }, nullptr},
    {"turns", [](const P& p) { return FixedText(p.Turns, kDigits); }, nullptr},
    {"turns_min", [](const P& p) { return Joined(p.Shortest); }, nullptr},
    {"turns_median", [](const P& p) { return Joined(p.Median); }, nullptr},
    {"turns_max", [](const P& p) { return Joined(p.Longest); }, nullptr},
    {"drawn", nullptr, [](const C& c) { return Joined(c.Sums.Drawn); }},
    {"played", nullptr, [](const C& c) { return Joined(c.Sums.Played); }},
    {"matches_played", nullptr, [](const C& c) { return Joined(c.Sums.WhenPlayed.Matches); }},
    {"won_played", nullptr, [](const C& c) { return Known(c.WhenPlayed, c.WhenPlayed.Value); }},
    {"won_played_low", nullptr, [](const C& c) { return Known(c.WhenPlayed, c.WhenPlayed.Low); }},
    {"won_played_high", nullptr, [](const C& c) { return Known(c.WhenPlayed, c.WhenPlayed.High); }},
    {"matches_held", nullptr, [](const C& c) { return Joined(c.Sums.WhenHeld.Matches); }},
    {"won_held", nullptr, [](const C& c) { return Known(c.WhenHeld, c.WhenHeld.Value); }},
    {"won_held_low", nullptr, [](const C& c) { return Known(c.WhenHeld, c.WhenHeld.Low); }},
    {"won_held_high", nullptr, [](const C& c) { return Known(c.WhenHeld, c.WhenHeld.High); }},
    {"judged", nullptr, [](const C& c) { return Joined(c.Sums.Judged); }},
    {"payable", nullptr, [](const C& c) { return Known(c.Payable, c.Payable.Value); }},
    {"worth", nullptr,
     [](const C& c) { return c.Sums.Payable == 0 ? "" : FixedText(c.Worth, kDigits); }},
}};

void AddRow(std::string& out, const CsvRow& row) {
  out += row.Kind;
  for (const CsvColumn& column : kColumns) {
    out += ',';
    if (row.Pairing != nullptr && column.OfPairing != nullptr)
      out += column.OfPairing(*row.Pairing);
    if (row.Card != nullptr && column.OfCard != nullptr) out += column.OfCard(*row.Card);
  }
  out += Joined(",",
                FixedText(row.Pairing != nullptr ? row.Pairing->Tokens : row.Card->Tokens, kDigits),
                "\r\n");
}

/// The members of a JSON object, one after the other.
class JsonObject {
 public:
  void Add(std::string_view name, std::string_view value) {
    text_ += Joined(text_.empty() ? "" : ", ", JsonText(name), ": ", value);
  }
  std::string Text() const { return "{" + text_ + "}"; }

 private:
  std::string text_;
};

std::string JsonList(const std::vector<std::string>& items, std::string_view between = ", ") {
  std::string text;
  for (const std::string& item : items) text += Joined(text.empty() ? "" : between, item);
  return "[" + text + "]";
}

std::string JsonShare(const Share& share) {
  if (share.Of == 0) return "null";
  JsonObject object;
  object.Add("value", FixedText(share.Value, kDigits));
  object.Add("low", FixedText(share.Low, kDigits));
  object.Add("high", FixedText(share.High, kDigits));
  return object.Text();
}

void AddScore(JsonObject& object, const Score& score) {
  object.Add("matches", Joined(score.Matches));
  object.Add("wins", Joined(score.Wins));
  object.Add("losses", Joined(score.Losses));
  object.Add("undecided", Joined(score.Undecided()));
}

std::string JsonScore(const Score& score, const Share& won) {
  JsonObject object;
  AddScore(object, score);
  object.Add("won", JsonShare(won));
  return object.Text();
}

std::string JsonPairing(const PairingReport& pairing, bool all) {
  JsonObject object;
  if (!all) {
    object.Add("opponent", JsonText(pairing.Opponent));
    object.Add("deck", JsonText(pairing.Deck));
  }
  AddScore(object, pairing.Games);
  object.Add("won", JsonShare(pairing.Won));
  object.Add("onSide1", JsonScore(pairing.BySeat[0], pairing.WonBySeat[0]));
  object.Add("onSide2", JsonScore(pairing.BySeat[1], pairing.WonBySeat[1]));
  object.Add("firstSeat", JsonShare(pairing.FirstSeat));
  JsonObject turns;
  turns.Add("mean", FixedText(pairing.Turns, kDigits));
  turns.Add("min", Joined(pairing.Shortest));
  turns.Add("median", Joined(pairing.Median));
  turns.Add("max", Joined(pairing.Longest));
  std::vector<std::string> counts;
  for (const auto& [length, count] : pairing.Lengths) {
    counts.push_back(Joined("[", length, ", ", count, "]"));
  }
  turns.Add("counts", JsonList(counts));
  object.Add("turns", turns.Text());
  object.Add("tokens", FixedText(pairing.Tokens, kDigits));
  return object.Text();
}

std::string JsonCard(const CardReport& card) {
  JsonObject object;
  object.Add("card", JsonText(card.Id));
  object.Add("name", JsonText(card.Sums.Name));
  object.Add("drawn", Joined(card.Sums.Drawn));
  object.Add("played", Joined(card.Sums.Played));
  object.Add("whenPlayed", JsonScore(card.Sums.WhenPlayed, card.WhenPlayed));
  object.Add("whenHeld", JsonScore(card.Sums.WhenHeld, card.WhenHeld));
  object.Add("tokens", FixedText(card.Tokens, kDigits));
  object.Add("judged", Joined(card.Sums.Judged));
  object.Add("payable", JsonShare(card.Payable));
  object.Add("worth", card.Sums.Payable == 0 ? "null" : FixedText(card.Worth, kDigits));
  return object.Text();
}

}  // namespace

std::string ReportAsCsv(const Report& report) {
  std::string out = "row";
  for (const CsvColumn& column : kColumns) out += Joined(",", column.Name);
  out += ",tokens\r\n";
  for (const PairingReport& pairing : report.Pairings) AddRow(out, {"pairing", &pairing, nullptr});
  AddRow(out, {"all", &report.All, nullptr});
  for (const CardReport& card : report.Cards) AddRow(out, {"card", nullptr, &card});
  return out;
}

std::string ReportAsJson(const Report& report) {
  const SimulationSetup& setup = report.Setup;
  std::vector<std::string> pairings;
  for (const PairingReport& pairing : report.Pairings) {
    pairings.push_back(JsonPairing(pairing, false));
  }
  std::vector<std::string> cards;
  for (const CardReport& card : report.Cards) cards.push_back(JsonCard(card));
  return Joined("{\n\"program\": ", JsonText(setup.Program), ",\n\"game\": ", JsonText(setup.Game),
                ",\n\"files\": ", JsonText(setup.FilesHash), ",\n\"seed\": ", setup.Seed,
                ",\n\"matches\": ", setup.Matches, ",\n\"maximumTurns\": ", setup.MaximumTurns,
                setup.HasThinkers()
                    ? Joined(",\n\"deckMind\": ", JsonText(MindWord(setup.DeckMind)),
                             ",\n\"opponentMind\": ", JsonText(MindWord(setup.OpponentMind)))
                    : "",
                ",\n\"pairings\": ", JsonList(pairings, ",\n  "),
                ",\n\"all\": ", JsonPairing(report.All, true),
                ",\n\"cards\": ", JsonList(cards, ",\n  "), "\n}\n");
}

}  // namespace brindlemoor

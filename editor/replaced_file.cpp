// The walk through a file that a save is going to replace.
#include "editor/replaced_file.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <utility>

#include "core/strings.h"
#include "data/directives.h"
#include "data/field_stream.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kHeading = "CARD DATA FILE";
constexpr int kAnyNumber = 0;

/// A directive that a save writes: cards with their locations, the lines of other openers behind
/// the name of these.
struct WrittenRow {
  std::string_view Line;
  int Most = kAnyNumber;
};
constexpr WrittenRow kCardsRows[] = {
    {"#TOKENS"},          {"#GAMEFILE"},     {"#CARD COLLECTION"}, {"#CARD TEMPLATE"},
    {"#CARD COSTCARD"},   {"#COSTCARD"},     {"#TRAIT"},           {"#EFFECT"},
    {"#TRAITACTIONDESC"}, {"#TEMPLATEDATA"}, {"#EXTRADATA"},
};
constexpr WrittenRow kStoreRows[] = {
    {"#TOKENS"},
    {"#GAMEFILE"},
    {"#NEUTRALCARD", 1},
    {"#NEUTRALCARD #TRAIT", 1},
    {"#NEUTRALCARD #EFFECT", 2},
    {"#STARTERDECK", 1},
    {"#GAME", 1},
    {"#CARD PLAYERCARD", 1},
    {"#INCLUDE", 2},
    {"#RULESCARD", 1},
    {"#CARD CARDINDECK"},
    {"#CARD TEMPLATE"},
    {"#CARD COSTCARD"},
    {"#TRAIT"},
    {"#EFFECT"},
    {"#TRAITACTIONDESC"},
    {"#TEMPLATEDATA"},
    {"#EXTRADATA"},
};

constexpr std::array<std::string_view, 4> kLinesOfCards = {"#TRAIT", "#EFFECT", "#TRAITACTIONDESC",
                                                           "#EXTRADATA"};

/// Names the directives of a file as the tables above do.
class DirectiveWalk {
 public:
  explicit DirectiveWalk(std::string bytes) : stream_(std::move(bytes)) {}

  /// The next directive, "" behind the last one.
  std::string Next() {
    std::string word;
    while (stream_.Read(word)) {
      if (stream_.Unclosed()) return word;
      headed_ |= word.find(kHeading) != std::string::npos;
      if (word.starts_with('#')) return Named(word);
    }
    return "";
  }
  /// True when the heading of the editor's files has come.
  bool Headed() const { return headed_; }

 private:
  std::string Named(const std::string& word) {
    const DirectiveRow* row = FindDirective(word);
    std::string location;
    std::string field;
    for (int index = 0; row != nullptr && index < row->Fields && stream_.Read(field); ++index) {
      if (index == 0) location = field;
    }
    if (std::ranges::find(kLinesOfCards, word) != kLinesOfCards.end()) {
      return opener_.empty() ? word : Joined(opener_, " ", word);
    }
    if (word == "#CARD") {
      std::erase(location, '#');
      opener_.clear();
      return Joined(word, " ", FieldAt(FoldUpper(location), 1, ':'));
    }
    if (row != nullptr && row->Pile != kNoPile) opener_ = word == "#COSTCARD" ? "" : word;
    return word;
  }

  FieldStream stream_;
  std::string opener_;  // of the card that lines speak of; "" for those that every save writes
  bool headed_ = false;
};

}  // namespace

std::string LostByReplacing(std::string bytes, SavedKind kind) {
  const auto rows = kind == SavedKind::kCards ? std::span<const WrittenRow>(kCardsRows)
                                              : std::span<const WrittenRow>(kStoreRows);
  std::array<int, std::max(std::size(kCardsRows), std::size(kStoreRows))> counts{};
  DirectiveWalk walk(std::move(bytes));
  for (std::string line = walk.Next(); !line.empty(); line = walk.Next()) {
    const auto row = std::ranges::find(rows, line, &WrittenRow::Line);
    if (row == rows.end()) return line;
    int& count = counts[static_cast<std::size_t>(row - rows.begin())];
    if (++count > row->Most && row->Most != kAnyNumber) return line;
  }
  return walk.Headed() ? "" : "?";
}

}  // namespace brindlemoor

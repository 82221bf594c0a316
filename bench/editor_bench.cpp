// The card editor over the large game of an author: opening, the table of all cards, saving.
#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>

#include "bench/bench_cards.h"
#include "bench/bench_session.h"
#include "bench/measures.h"
#include "data/card_writer.h"
#include "editor/editor_forms.h"
#include "game/game_list.h"

namespace brindlemoor {
namespace {

constexpr int kCards = 5000;
constexpr int kFiles = 10;
constexpr int kRowsSeen = 40;
constexpr int kColumnsSeen = 12;

/// A folder with a game whose cards stand in ten files, and with a file of all of them.
class LargeGame {
 public:
  LargeGame()
      : folder_(std::filesystem::temp_directory_path() /
                ("brindlemoor-large-" + std::to_string(::getpid()))) {
    std::filesystem::create_directories(folder_ / "hollows");
    Write("Hollows.txt", "#GAMERULES, Hollows, , #000000, hollows, \n#RULESCARD\n");
    // Not as the editor writes them: what an author wrote is kept.
    const std::string head = "# by hand\r\n";
    std::string all = head;
    for (int file = 0; file < kFiles; ++file) {
      const std::string name = Joined("Cards", file, ".txt");
      std::string cards = head;
      for (int number = file + 1; number <= kCards; number += kFiles) {
        Card card = AuthoredCard(number, name);
        cards += CardToText(card, "INDECK");
        card = AuthoredCard(number, "All.txt");
        all += CardToText(card, "COLLECTION");
      }
      Write("hollows/" + name, cards);
    }
    std::filesystem::create_directories(folder_ / "all/files");
    Write("all/files/All.txt", all);
    desktop_ = &StartBenchSession(std::make_unique<LocalFileSystem>(), folder_.string());
    DiscoverGames();
    Form().Form_Load();
  }
  LargeGame(const LargeGame&) = delete;
  LargeGame& operator=(const LargeGame&) = delete;
  ~LargeGame() { std::filesystem::remove_all(folder_); }

  static CardEdit& Form() { return TheCardEdit(); }
  void OpenFile() {
    desktop_->FileAnswers = {(folder_ / "all/files/All.txt").string()};
    Form().loaddeckmen.Click();
  }
  static void OpenGame() { Form().opengamemen.Click(); }
  static void ChangeACard(const std::string& text) {
    Form().CardCombo.Select(kCards / 2);
    Form().CardCombo.Click();
    Form().DescText.Text = text;
    Form().DescText.Change();
  }

 private:
  void Write(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ / name, std::ios::binary) << text;
  }

  std::filesystem::path folder_;
  HeadlessPlatform* desktop_;
};

void CountCards(benchmark::State& state) {
  state.counters["cards"] = State().Collection.UpperBound();
}

void BM_EditorOpensAFile(benchmark::State& state) {
  LargeGame game;
  for (auto _ : state) game.OpenFile();
  CountCards(state);
}
BENCHMARK(BM_EditorOpensAFile)->Unit(benchmark::kMillisecond);

void BM_EditorOpensAGame(benchmark::State& state) {
  const LargeGame game;
  for (auto _ : state) LargeGame::OpenGame();
  CountCards(state);
}
BENCHMARK(BM_EditorOpensAGame)->Unit(benchmark::kMillisecond);

/// One card is changed, and its file is saved: one of ten of a game, or that of all cards.
void BM_EditorSavesOneCard(benchmark::State& state) {
  LargeGame game;
  if (state.range(0) == kFiles) {
    LargeGame::OpenGame();
  } else {
    game.OpenFile();
  }
  int times = 0;
  for (auto _ : state) {
    LargeGame::ChangeACard(Joined("Told for the ", ++times, "th time."));
    LargeGame::Form().savedeckmen.Click();
  }
  if (LargeGame::Form().Caption.Get() != "Card Editor") state.SkipWithError("not saved");
  CountCards(state);
}
BENCHMARK(BM_EditorSavesOneCard)
    ->ArgName("files")
    ->Arg(1)
    ->Arg(kFiles)
    ->Unit(benchmark::kMillisecond);

/// What the timer keeps of a change while the author goes on typing.
void BM_EditorKeepsACopy(benchmark::State& state) {
  const LargeGame game;
  LargeGame::OpenGame();
  int times = 0;
  for (auto _ : state) {
    LargeGame::ChangeACard(Joined("Told for the ", ++times, "th time."));
    LargeGame::Form().UnsavedTimer_Tick();
  }
  CountCards(state);
}
BENCHMARK(BM_EditorKeepsACopy)->Unit(benchmark::kMillisecond);

/// A letter typed into a long script: what is kept of it, the line under the box, its colours and
/// notes, and the suggestions.
void BM_EditorTypesALetter(benchmark::State& state) {
  const LargeGame game;
  LargeGame::OpenGame();
  CardEdit& form = LargeGame::Form();
  TextBox& box = form.EffText[0];
  std::string script = box.Text.Get();
  for (int part = 0; part < 20; ++part)
    script += "REQTRAIT:CREATURE:SUBTRAIT:HP:TARGTRAIT/HP/DIV2:";
  bool longer = false;
  for (auto _ : state) {
    longer = !longer;
    box.Text = script + (longer ? "REQNAME:A" : "REQNAME:");
    box.Change();
    benchmark::DoNotOptimize(box.Runs(box.Text));
    benchmark::DoNotOptimize(box.Suggest(box.Text, box.Text.Get().size()));
  }
  if (!form.HasUnsavedChanges() || box.Runs(box.Text).size() < 100)
    state.SkipWithError("not typed");
  CountCards(state);
}
BENCHMARK(BM_EditorTypesALetter)->Unit(benchmark::kMicrosecond);

/// The table of all cards, sorted by a column.
class LargeTable {
 public:
  LargeTable() {
    LargeGame::OpenGame();
    grid_.Begin({"Cards0.txt"}, 1);
  }
  void SortBy(int column) { grid_.Cells.Header(column); }
  /// The texts of the visible cells at a row. Returns how long they are together.
  std::size_t Scroll(int row) const {
    std::size_t length = 0;
    for (int line = row; line < row + kRowsSeen; ++line) {
      for (int column = 1; column <= kColumnsSeen; ++column) {
        length += grid_.Cells.CellText(line, column).size();
      }
    }
    return length;
  }
  int Columns() const { return static_cast<int>(grid_.Cells.Columns.Get().size()); }

 private:
  LargeGame game_;
  CardGrid& grid_ = TheCardGrid();
};

void BM_TableOpens(benchmark::State& state) {
  const LargeGame game;
  LargeGame::OpenGame();
  for (auto _ : state) TheCardGrid().Begin({"Cards0.txt"}, kCards / 2);
}
BENCHMARK(BM_TableOpens)->Unit(benchmark::kMillisecond);

void BM_TableScrolls(benchmark::State& state) {
  LargeTable table;
  table.SortBy(6);
  int row = 1;
  for (auto _ : state) {
    benchmark::DoNotOptimize(table.Scroll(row));
    row = (row + 7 * kRowsSeen) % (kCards - kRowsSeen) + 1;
  }
}
BENCHMARK(BM_TableScrolls)->Unit(benchmark::kMicrosecond);

/// A click on one heading after the other.
void BM_TableSorts(benchmark::State& state) {
  LargeTable table;
  int column = 0;
  for (auto _ : state) {
    column = column % table.Columns() + 1;
    table.SortBy(column);
  }
}
BENCHMARK(BM_TableSorts)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor

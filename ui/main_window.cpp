// The main window: its arrangement, the hand strip and the menus.
#include "ui/main_window.h"

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/program_version.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/saving.h"
#include "game/leaving.h"
#include "game/planned_turn.h"
#include "game/plans.h"
#include "game/player_file_names.h"
#include "game/player_files.h"
#include "game/player_saving.h"
#include "game/program_start.h"
#include "game/turn.h"
#include "pages/card_pages.h"
#include "pages/page_files.h"
#include "pages/page_snapshot.h"
#include "platform/arrangement.h"
#include "text/addresses.h"
#include "ui/archive_form.h"
#include "ui/card_description.h"
#include "ui/card_words.h"
#include "ui/editor_door.h"
#include "ui/first_steps.h"
#include "ui/forms.h"
#include "ui/hint_page.h"
#include "ui/link_protocol.h"
#include "ui/nothing_saved.h"
#include "ui/owned_targets.h"
#include "ui/report_links.h"
#include "ui/report_tips.h"

namespace brindlemoor {

namespace {

constexpr int kThumbHeight = 86;
constexpr int kHandCellWidth = 124;
constexpr int kPictureWidth = 260;
constexpr int kPictureHeight = 390;
constexpr int kLabelHeight = 16;
constexpr int kTurnButtonHeight = 36;
constexpr int kBackButtonHeight = 30;

/// Five rows of two hand cards, a name label above each thumbnail.
Layout HandStrip(MainWindow& window) {
  Layout strip = Column({});
  for (std::size_t first = 0; first < kHandPositions; first += 2) {
    Layout pair = Row({});
    for (const std::size_t label : {first, first + 1}) {
      Layout picture = Cell(*window.Picture2[label + 1], 0, kHandCellWidth, kThumbHeight);
      picture.Shrinks = true;
      // The column holds the width, so that a name in large letters is shortened.
      Layout card =
          Column({Cell(*window.HandLabel[label], 0, 0, kLabelHeight), std::move(picture)});
      card.Width = kHandCellWidth;
      pair.Children.push_back(std::move(card));
    }
    strip.Children.push_back(std::move(pair));
  }
  return strip;
}

Layout Messages(MainWindow& window) {
  Layout words = window.Aim.Arrangement(window.Story.Lines);
  words.Stretch = 1;
  return Row({std::move(words), window.History.Arrangement()});
}

Layout Arrange(MainWindow& window) {
  Layout ownSide =
      Column({HandStrip(window), Cell(window.NothingSaved),
              Cell(window.Command1, 0, 0, kTurnButtonHeight), Cell(window.InPlayWB, 1)});
  // The list of games has the room of the hand and of the plan.
  ownSide.Collapses = true;
  return Row({std::move(ownSide),
              Column({Cell(window.backbutton, 0, 0, kBackButtonHeight), window.End.Arrangement(),
                      window.Kept.Arrangement(), Messages(window), Cell(window.WB, 1),
                      window.Plan.Arrangement()},
                     1),
              Column({Cell(window.Picture1, 0, kPictureWidth, kPictureHeight),
                      Cell(window.CardDescWB, 1, kPictureWidth)})});
}

/// The first queue entry that holds a hand position (0 for a free one), 0 if there is none.
int QueueEntryOf(int position) {
  const auto& queue = State().PlayQueue;
  for (int entry = 1; entry <= queue.UpperBound(); ++entry) {
    if (queue[entry] == position) return entry;
  }
  return 0;
}

}  // namespace

MainWindow::MainWindow() : Form("MainWindow") {
  for (int position = 1; position <= kHandPositions; ++position) {
    auto& picture = Picture2[static_cast<std::size_t>(position)];
    picture = std::make_unique<PictureBox>("Picture2(" + std::to_string(position) + ")");
    picture->TogglesByClick = true;
    picture->MouseMove = [this, position] { Picture2_MouseMove(position); };
    picture->MouseUp = [this, position](MouseButton button) { Picture2_MouseUp(position, button); };
    auto& label = HandLabel[static_cast<std::size_t>(position) - 1];
    label = std::make_unique<Label>("HandLabel(" + std::to_string(position - 1) + ")");
    label->Caption = "Card Name";
  }
  Command1.Caption = "Take Turn";
  Command1.Click = [this] { Command1_Click(); };
  NothingSaved.Caption = std::string(kNothingSaved);
  backbutton.Caption = "<<< Back to Game";
  backbutton.Visible = false;
  backbutton.Click = [this] { backbutton_Click(); };

  WB.BeforeNavigate = WB_BeforeNavigate;
  WB.LinkPointed = [this](const std::string& address) { WB_LinkPointed(address); };
  InPlayWB.BeforeNavigate = InPlayWB_BeforeNavigate;
  CardDescWB.BeforeNavigate = CardDescWB_BeforeNavigate;

  fullsizemen.Checkable = true;
  fullsizemen.Checked = true;
  debugmen.Checkable = true;
  helppagesmen.Shortcut = "F1";
  WB.Spoken = "The table and the report";
  InPlayWB.Spoken = "Your plan and what a card can do";
  CardDescWB.Spoken = "The card that was pointed at";
  Picture1.Spoken = "Its picture";
  CardDescWB.StartsAtFirstLink = true;
  hintmen.Shortcut = "F2";
  newgamemen.Click = [this] { newgamemen_Click(); };
  switchmen.Click = [this] { switchmen_Click(); };
  deckmanagermen.Click = [this] { deckmanagermen_Click(); };
  EditMen.Click = [this] { EditMen_Click(); };
  openarchivemen.Click = [this] { openarchivemen_Click(); };
  saveplrmen.Click = [this] { saveplrmen_Click(); };
  savehtmlmen.Click = [this] { savehtmlmen_Click(); };
  fullsizemen.Click = [this] { fullsizemen_Click(); };
  debugmen.Click = [this] { debugmen_Click(); };
  helpmen.Click = [this] { helpmen_Click(); };
  helppagesmen.Click = helpmen.Click;
  hintmen.Click = [this] { hintmen_Click(); };
  filemen.Items = {&newgamemen,  &deckmanagermen,       &EditMen,  &openarchivemen, &saveplrmen,
                   &savehtmlmen, &History.TakeTurnBack, &switchmen};
  optionmen.Items = {&fullsizemen, &debugmen, &History.Allowed, &Opponent.Menu};
  helpmen.Items = {&helppagesmen, &hintmen};
  Menus = {&filemen, &optionmen, &helpmen};

  Width = 1240;
  Height = 760;
  Maximised = true;
  Arrangement = Arrange(*this);
  QueryClose = [this] { return Form_QueryClose(); };
}

void MainWindow::Form_Load() {
  deckmanagermen.Enabled = State().DeckManagerMode == 0;
  ShowDebugMode();
  Caption = Joined("Brindlemoor version ", kProgramVersion);
  EnterProgramFolder();
  ShowInView(InPlayWB, "blank.htm");
  ShowInView(CardDescWB, "blank.htm");
  HideHand();
}

bool LeaveEndedGame() {
  if (!MayLeavePlayer(Leaving::kSavesFirst)) return false;
  if (State().TestFromEditor == 1) {
    TheEditorDoor().BackToCardEditor();
  } else {
    State().PageText.clear();
    NewGame();
  }
  return true;
}

bool MainWindow::TakesTurns() const {
  const Session& state = State();
  return state.GameOver == 1 || state.CurrentGame != 0 || state.TestFromEditor != 0;
}

namespace {

/// The turn button says meanwhile that the opponent thinks, if that takes long.
void TakeTurnAloud() {
  constexpr std::string_view kThinking = "The opponent thinks...";
  auto& caption = TheMainWindow().Command1.Caption;
  const std::string before = caption;
  if (EnemyThinks()) caption = std::string(kThinking);
  TakeTurn(0);
  if (caption.Get() == kThinking) caption = before;
}

}  // namespace

void MainWindow::Command1_Click() {
  Session& state = State();
  if (state.TurnRunning == 1) return;
  if (state.GameOver == 1) {
    LeaveEndedGame();
    return;
  }
  if (!TakesTurns()) return;
  History.NoteBefore();
  TakeTurnAloud();
  StorePlayer();
  KeepMatchAfterTurn();
  UpdateHand();
  ForgetSelection();
  ShowPlayMenu();
}

void MainWindow::backbutton_Click() {
  ShowMain("Display.html");
  backbutton.Visible = false;
}

void MainWindow::Picture2_MouseMove(int position) {
  Session& state = State();
  const std::int16_t selected = state.SelectedSlot;
  Desktop().PumpEvents();
  Pile& hand = state.Players[1].Hand;
  if (!hand.Holds(position) || IsFree(hand[position])) return;
  const HandCard hovered{position, hand[position].GlobalID};
  if (hovered != LastHovered) {
    LastHovered = hovered;
    ShowCardDescription(hand[position], 1);
    Desktop().PumpEvents();
    state.SelectedSlot = selected;
  }
}

void MainWindow::WB_LinkPointed(const std::string& address) {
  const int slot = TableSlotOfLink(address);
  if (slot == 0) return ShowOpponent(address);
  LastHovered = {};
  ShowCardDescription(State().CardTable[slot], 1);
}

void MainWindow::Picture2_MouseUp(int position, MouseButton button) {
  Session& state = State();
  Pile& hand = state.Players[1].Hand;
  if (!hand.Holds(position) || IsFree(hand[position])) return;
  const bool discard = button == MouseButton::kRight;
  // The card whose menu action still waits for a target is not what the play is aimed at.
  if (state.AwaitingMenuTarget != 0) state.SelectedSlot = 0;
  if (discard) state.SelectedSlot = -1;
  QueuePlay(position, state.SelectedSlot);
  if (state.SelectedSlot > 0) Aim.TellAimOf(QueueEntryOf(position));
  hand[position].TargetSlot = state.SelectedSlot;
  if (discard) state.AwaitingPlayTarget = 0;  // also when it took the card out
  ForgetSelection();
  ShowPlayMenu();
  Desktop().PumpEvents();
}

bool MayLeaveGame() {
  return State().TurnRunning == 0 && MayLeaveMatch() && MayLeavePlayer(Leaving::kSavesFirst);
}

void MainWindow::newgamemen_Click() {
  // What the end saves by itself is asked about while the match can still go on.
  if (!MayLeaveGame()) return;
  EndGame();
  LeaveEndedGame();
}

void MainWindow::switchmen_Click() {
  if (State().TestFromEditor == 1) {
    Desktop().MessageBox("Another player can take over when the test is done.");
    return;
  }
  if (!MayLeaveGame()) return;
  EndGame();
  if (MayLeavePlayer(Leaving::kSavesFirst)) SwitchPlayer();
}

void MainWindow::deckmanagermen_Click() {
  // A running script may hold cards of the collection.
  if (State().TurnRunning == 0) ShowDeckManagerInGame();
}

void MainWindow::EditMen_Click() {
  // While the editor is open nothing of the player is saved.
  if (State().TurnRunning == 1 || !MayLeavePlayer(Leaving::kSavesFirst)) return;
  TheEditorDoor().OpenCardEditor();
}

void MainWindow::openarchivemen_Click() {
  if (State().TestFromEditor == 1) {
    Desktop().MessageBox("An archive can be opened when the test is done.");
    return;
  }
  if (State().TurnRunning == 1) return;
  const auto path = Desktop().AskFile({.FileName = "*.zip"});
  if (path && !path->empty()) OpenGameArchive(*path);
}

void MainWindow::saveplrmen_Click() {
  const OwnedTargets targets;
  WritePlayerFile(PlayerFileName(State().CurrentGame));
  targets.PutBack();
}

void MainWindow::savehtmlmen_Click() {
  // A "#" of the path itself is escaped.
  const std::string url = WB.Url.Get();
  std::string path = PathOfUrl(url.substr(0, url.find('#')));
  // A plan is written over the file of the report that is shown; the other copy stays.
  if (IsAtTable() && path == PagePath("Display.html")) path = PagePath("LastDiplayed.html");
  const auto page = Desktop().Files().Read(path);
  if (!page) {
    Desktop().MessageBox("There is no page to save.");
    return;
  }
  const auto target =
      Desktop().AskFile({.Save = true, .FileName = "*.html", .DefaultExtension = "html"});
  if (!target || target->empty() || *target == "*.html") return;
  SaveBytesOrTell(*target, FileNameOf(*target), PageSnapshot(*page, "Brindlemoor"));
}

void MainWindow::fullsizemen_Click() {
  fullsizemen.Checked = !fullsizemen.Checked;
  State().FullSizeImages = fullsizemen.Checked ? 1 : 0;
}

void MainWindow::debugmen_Click() {
  // In debug mode nothing is saved, not even on closing.
  if (State().DebugMode == 0 && !MayLeavePlayer(Leaving::kSavesFirst)) {
    ShowDebugMode();
    return;
  }
  State().DebugMode = State().DebugMode == 1 ? 0 : 1;
  ShowDebugMode();
}

void MainWindow::ShowDebugMode() {
  debugmen.Checked = State().DebugMode == 1;
  NothingSaved.Visible = State().DebugMode == 1;
}

void MainWindow::helpmen_Click() { ShowHelp("MainHelp.html"); }

void MainWindow::hintmen_Click() { ShowHint(); }

bool MainWindow::Form_QueryClose() {
  if (State().TestFromEditor == 0) {
    if (!MayLeaveMatch() || !MayLeavePlayer(Leaving::kSavesFirst)) return true;
    Desktop().EndProgram();
    return false;
  }
  TheEditorDoor().BackToCardEditor();
  return true;  // it has hidden this window
}

void UpdateHand() {
  const WorkAccount account;  // of looking for thumbnails
  MainWindow& window = TheMainWindow();
  const Pile& hand = State().Players[1].Hand;
  for (int position = 1; position <= kHandPositions; ++position) {
    PictureBox& picture = *window.Picture2[static_cast<std::size_t>(position)];
    Label& label = *window.HandLabel[static_cast<std::size_t>(position) - 1];
    const bool held = hand.Holds(position) && !IsFree(hand[position]);
    if (held) {
      const Card& card = hand[position];
      picture.Picture = ResolvePath(card.Thumb, 0);
      picture.ToolTip = card.Name.Str();
      picture.Told = Joined("hand card ", position, ", ", TraitsInWords(card));
      picture.Caption = card.Name.Str();
      int low = 0;
      int middle = 0;
      int high = 0;
      SplitColor(ColorValue(card.NameColor), low, middle, high);
      label.TextColor = high << 16 | middle << 8 | low;
      label.Caption = card.Name.Str();
    }
    picture.Visible = held;
    label.Visible = held;
  }
  const std::vector<PictureTip> tips = ReportTips();
  window.WB.PictureTips = tips;
  window.WB.CellLinks = LinksWithoutPicture();
  window.CardDescWB.PictureTips = tips;
  window.History.Note();
  ShowPlan();
}

void BlankSideViews() {
  State().Links.DescribedCard = 0;
  TheMainWindow().LastHovered = {};
  for (BrowserView* view : {&TheMainWindow().InPlayWB, &TheMainWindow().CardDescWB}) {
    if (!view->Url.Get().ends_with("/blank.htm")) ShowInView(*view, "blank.htm");
  }
  TheMainWindow().Picture1.Picture = "";
  TheMainWindow().End.Hide();
  TheMainWindow().Kept.Hide();
  TheMainWindow().History.Clear();
}

void HideHand() {
  MainWindow& window = TheMainWindow();
  for (int position = 1; position <= kHandPositions; ++position) {
    window.Picture2[static_cast<std::size_t>(position)]->Visible = false;
    window.HandLabel[static_cast<std::size_t>(position) - 1]->Visible = false;
  }
  ShowPlan();
}

void QueuePlay(int position, int target) {
  Session& state = State();
  // A queued card is looked for first: a free entry may stand before it.
  if (const int entry = QueueEntryOf(position); entry != 0) {
    state.PlayQueue[entry] = 0;
    state.PlayTarget[entry] = 0;
    CompactQueue();
  } else if (const int free = QueueEntryOf(0); free != 0) {
    state.PlayQueue[free] = static_cast<std::uint8_t>(position);
    state.PlayTarget[free] = static_cast<std::int16_t>(target);
    Card& card = state.Players[1].Hand[position];
    card.TargetSlot = card.StoredTarget = static_cast<std::int16_t>(target);
    // The next click on a card aims a play that has no target; otherwise it only shows the card.
    state.AwaitingPlayTarget = static_cast<std::uint8_t>(target == 0 ? free : 0);
  }
}

void CompactQueue() {
  // Entries 9 and 10 stay, as players know the queue: a card queued next is played before them.
  constexpr int kLastMoved = 7;
  Session& state = State();
  for (bool moved = true; moved;) {
    moved = false;
    for (int entry = 1; entry <= kLastMoved; ++entry) {
      if (state.PlayQueue[entry] != 0 || state.PlayQueue[entry + 1] == 0) continue;
      state.PlayQueue[entry] = std::exchange(state.PlayQueue[entry + 1], std::uint8_t{0});
      state.PlayTarget[entry] = std::exchange(state.PlayTarget[entry + 1], std::int16_t{0});
      moved = true;
    }
  }
}

void ShowMain(std::string_view file) {
  TheMainWindow().History.StopLooking();
  ShowInView(TheMainWindow().WB, file);
}

void PaintImage(std::string_view file) { TheMainWindow().Picture1.Picture = std::string(file); }

}  // namespace brindlemoor

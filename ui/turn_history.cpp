// Looking at earlier turns, and taking the last one back.
#include "ui/turn_history.h"

#include <array>
#include <string_view>
#include <utility>

#include "core/desktop.h"
#include "core/state.h"
#include "game/kept_matches.h"
#include "game/plans.h"
#include "pages/page_files.h"
#include "platform/arrangement.h"
#include "ui/forms.h"
#include "ui/kept_match_panel.h"
#include "ui/link_protocol.h"

namespace brindlemoor {

namespace {

constexpr int kButtonWidth = 90;
constexpr int kButtonHeight = 34;
constexpr std::string_view kPage = "EarlierTurn.html";
constexpr std::string_view kReport = "LastDiplayed.html";  // named so

std::string Named(int turn) {
  return turn == 0 ? std::string("the beginning") : Joined("turn ", turn);
}

}  // namespace

TurnHistory::TurnHistory() {
  Back.Caption = "Back";
  Back.ToolTip = "Shows the report of the turn before.";
  Back.Click = [this] { Back_Click(); };
  Forward.Caption = "Forward";
  Forward.ToolTip = "Shows the report of the turn behind it.";
  Forward.Click = [this] { Forward_Click(); };
  TakeTurnBack.Click = [this] { TakeTurnBack_Click(); };
  TakeTurnBack.Shortcut = "Ctrl+Z";
  Allowed.Checkable = true;
  Allowed.Click = [this] {
    Allowed.Checked = !Allowed.Checked;
    Update();
  };
  Update();
}

Layout TurnHistory::Arrangement() {
  return Column(
      {Cell(Back, 0, kButtonWidth, kButtonHeight), Cell(Forward, 0, kButtonWidth, kButtonHeight)});
}

void TurnHistory::Note() {
  const Session& session = State();
  const int number = session.LastTurn.Turn;
  if (!IsAtTable() || (!turns_.empty() && turns_.back().Number == number)) return;
  if (!turns_.empty() && number < turns_.back().Number) turns_.clear();
  turns_.push_back({number, Desktop().Files().Read(PagePath(kReport)).value_or(std::string()),
                    std::exchange(before_, {})});
  if (turns_.size() > kMostTurns) turns_.pop_front();
  StopLooking();
}

void TurnHistory::NoteBefore() {
  before_.clear();
  if (Allowed.Checked && CanKeepMatch()) before_ = ComposeMatchFile().Bytes;
}

void TurnHistory::Clear() {
  turns_.clear();
  before_.clear();
  StopLooking();
}

void TurnHistory::StopLooking() {
  shown_ = turns_.empty() ? 0 : turns_.size() - 1;
  Update();
}

void TurnHistory::Update() {
  const bool hasSome = turns_.size() > 1;
  Back.Visible = hasSome;
  Forward.Visible = hasSome;
  Back.Enabled = shown_ > 0;
  Forward.Enabled = LooksBack();
  TakeTurnBack.Enabled = Allowed.Checked && !turns_.empty() && !turns_.back().Before.empty();
}

void TurnHistory::ShowReport(std::size_t index) {
  if (State().TurnRunning == 1 || index >= turns_.size()) return;
  MainWindow& window = TheMainWindow();
  if (index + 1 == turns_.size()) {
    ShowMain(kReport);
  } else {
    std::string outer = std::exchange(State().PageText, {});
    RewritePages(turns_[index].Page, std::array{kPage});
    shown_ = index;
    ShowInView(window.WB, kPage);
    State().PageText = std::move(outer);
    Update();
  }
  window.Aim.Update();
  window.Story.Update(!window.Aim.Words.Visible);
}

std::string TurnHistory::WhatIsShown() const {
  if (!LooksBack()) return "";
  return Joined("This is the report of ", Named(turns_[shown_].Number), "; the match is at ",
                Named(turns_.back().Number), ".\nForward leads back to it.");
}

void TurnHistory::Back_Click() {
  if (shown_ > 0) ShowReport(shown_ - 1);
}

void TurnHistory::Forward_Click() { ShowReport(shown_ + 1); }

void TurnHistory::TakeTurnBack_Click() {
  if (State().TurnRunning == 1 || !TakeTurnBack.Enabled) return;
  if (!State().Match.TookBack &&
      !Desktop().AskYesNo("Take the last turn back?  This match pays no tokens then.")) {
    return;
  }
  const std::string before = turns_.back().Before;
  turns_.pop_back();
  TheMainWindow().End.Hide();
  UncountMatch();
  const std::string problem = TakeBackTo(before);
  if (!problem.empty()) Desktop().MessageBox(problem);
  StopLooking();
  KeepMatchAfterTurn();
  ShowPlayMenu();
}

}  // namespace brindlemoor

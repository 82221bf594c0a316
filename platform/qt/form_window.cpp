// Showing and closing a form's window.
#include "platform/qt/form_window.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QMenu>
#include <QScreen>
#include <QShortcut>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>

#include "platform/qt/letter_sizes.h"
#include "platform/qt/mnemonics.h"
#include "platform/qt/page_view.h"
#include "platform/qt/window_host.h"

namespace brindlemoor {

namespace {

constexpr double kLetterStep = 0.1;
constexpr double kWidthOfOrdinaryPictures = 1366.0;  // of a window that has room for no larger ones
constexpr int kFrameWidth = 6;
constexpr int kTitleHeight = 30;

}  // namespace

FormWindow::FormWindow(Form& form, WindowHost& host) : form_(form), host_(host) {
  setObjectName(QString::fromStdString(form.Name));
  Bind(form, [this] { ShowTitle(); });
}

void FormWindow::ShowTitle() {
  const QString caption = QString::fromStdString(form_.Caption);
  setWindowTitle(closes_ ? "Closing: " + caption : caption);
}

void FormWindow::ShowThatItCloses(bool closes) {
  closes_ = closes;
  ShowTitle();
  if (closes) {
    setCursor(Qt::WaitCursor);
  } else {
    unsetCursor();
  }
}

void FormWindow::EndBuilding() {
  AddLetterKeys();
  SetLetterSize(host_.Letters().Of(form_.Name));
  OrderTabStops();
  building_ = false;
  RefreshMnemonics();
}

FormWindow::~FormWindow() {
  for (Observed* model : bound_) model->OnChange = nullptr;
}

bool FormWindow::Deliver(const UserEvent& event) { return host_.Deliver(form_, event); }

void FormWindow::Bind(Observed& model, std::function<void()> sync) {
  bound_.push_back(&model);
  sync();
  model.OnChange = std::move(sync);
}

void FormWindow::AddMnemonic(std::function<QString()> caption,
                             std::function<void(const QString&)> apply) {
  mnemonics_.push_back({std::move(caption), std::move(apply)});
}

void FormWindow::RefreshMnemonics() {
  if (building_) return;
  QStringList captions;
  for (const Mnemonic& mnemonic : mnemonics_) captions << mnemonic.Caption();
  const QStringList marked = WithMnemonics(captions);
  for (qsizetype index = 0; index < marked.size(); ++index) {
    mnemonics_[static_cast<std::size_t>(index)].Apply(marked[index]);
  }
}

QButtonGroup& FormWindow::OptionGroup(const QString& controlName) {
  QButtonGroup*& group = optionGroups_[controlName.section('(', 0, 0)];
  if (group == nullptr) group = new QButtonGroup(this);
  return *group;
}

void FormWindow::Focus(QWidget& widget) {
  focusNext_ = &widget;
  if (isVisible()) GiveFocus();
}

void FormWindow::GiveFocus() {
  if (!focusNext_.isNull()) {
    // A page takes this reason as the order to begin with its first link.
    const bool first = focusNext_->property("startsAtFirstLink").toBool();
    focusNext_->setFocus(first ? Qt::TabFocusReason : Qt::OtherFocusReason);
  }
  focusNext_.clear();
}

void FormWindow::OrderTabStops() {
  QWidget* last = nullptr;
  for (QWidget* stop : tabStops_) {
    // The widget that takes a page's keys comes and goes with its browser process.
    QWidget* taker = stop->focusProxy() != nullptr ? stop->focusProxy() : stop;
    if (taker->focusPolicy() == Qt::NoFocus) continue;
    if (last != nullptr) setTabOrder(last, taker);
    last = taker;
  }
}

void FormWindow::AddLetterKeys() {
  const auto sizeTo = [this](const char* keys, std::function<double()> size) {
    connect(new QShortcut(QKeySequence(QString(keys)), this), &QShortcut::activated, this,
            [this, size = std::move(size)] { ChooseLetterSize(size()); });
  };
  for (const char* keys : {"Ctrl++", "Ctrl+="}) {
    sizeTo(keys, [this] { return letters_ + kLetterStep; });
  }
  sizeTo("Ctrl+-", [this] { return letters_ - kLetterStep; });
  sizeTo("Ctrl+0", [] { return 1.0; });
}

void FormWindow::SetLetterSize(double size) {
  letters_ = std::clamp(size, LetterSizes::kSmallest, LetterSizes::kLargest);
  QFont letters = QApplication::font();
  letters.setPointSizeF(letters.pointSizeF() * letters_);
  setFont(letters);
  for (QMenu* menu : findChildren<QMenu*>()) menu->setFont(letters);
  for (PageView* view : views_) view->SetZoom(letters_);
  FollowSizes();
}

void FormWindow::ChooseLetterSize(double size) {
  SetLetterSize(size);
  host_.Letters().Keep(form_.Name, letters_);
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Wheel) return QMainWindow::eventFilter(watched, event);
  const auto* wheel = static_cast<QWheelEvent*>(event);
  if (!wheel->modifiers().testFlag(Qt::ControlModifier)) return false;
  wheel_ += wheel->angleDelta().y();
  const int steps = wheel_ / QWheelEvent::DefaultDeltasPerStep;
  wheel_ %= QWheelEvent::DefaultDeltasPerStep;
  if (steps != 0) ChooseLetterSize(letters_ + steps * kLetterStep);
  return true;
}

double FormWindow::PictureSize() const {
  return std::max(1.0, std::min(letters_, width() / kWidthOfOrdinaryPictures));
}

void FormWindow::FollowSizes() {
  pictureSize_ = PictureSize();
  for (const auto& sync : sizeSyncs_) sync();
}

void FormWindow::TakeFirstSize(QWidget* owner) {
  if (std::exchange(sized_, true)) return;
  const QScreen* screen = owner != nullptr ? owner->screen() : QGuiApplication::primaryScreen();
  const QRect room = screen->availableGeometry();
  const QSize natural = sizeHint();
  const QSize wanted(form_.Width > 0 ? form_.Width : natural.width(),
                     form_.Height > 0 ? form_.Height : natural.height());
  // Nobody knows the frame before the window is there, and it must be on the screen, too.
  constexpr QMargins frame(kFrameWidth, kTitleHeight, kFrameWidth, kFrameWidth);
  resize(wanted.boundedTo(room.marginsRemoved(frame).size()));
  QRect place = QRect(QPoint(0, 0), size()).marginsAdded(frame);
  place.moveCenter(owner != nullptr ? owner->frameGeometry().center() : room.center());
  move(std::clamp(place.x(), room.left(), room.right() + 1 - place.width()) + frame.left(),
       std::clamp(place.y(), room.top(), room.bottom() + 1 - place.height()) + frame.top());
}

void FormWindow::Present(bool modal, QWidget* owner) {
  const auto modality = !modal             ? Qt::NonModal
                        : owner == nullptr ? Qt::ApplicationModal
                                           : Qt::WindowModal;
  if (isVisible() && modality != windowModality()) hide();
  setWindowModality(modality);
  create();
  windowHandle()->setTransientParent(modal && owner != nullptr ? owner->windowHandle() : nullptr);
  TakeFirstSize(owner);
  if (isMinimized()) {
    showNormal();
  } else if (!isVisible() && form_.Maximised) {
    showMaximized();
  } else {
    show();
  }
  raise();
  activateWindow();
}

void FormWindow::closeEvent(QCloseEvent* event) {
  if (host_.Ending()) return;
  event->ignore();
  if (Deliver({.Kind = UserEventKind::kClose})) return;
  host_.HideForm(form_);
}

bool FormWindow::event(QEvent* event) {
  // The first page of a view makes the native window anew, which knows nothing of its state.
  const bool isNewHandle = event->type() == QEvent::WinIdChange && windowHandle() != nullptr;
  if (isNewHandle && isMaximized()) windowHandle()->setWindowStates(windowState());
  return QMainWindow::event(event);
}

void FormWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  for (const auto& sync : shownSyncs_) sync();
  GiveFocus();
}

void FormWindow::hideEvent(QHideEvent* event) {
  QMainWindow::hideEvent(event);
  for (const auto& sync : shownSyncs_) sync();
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (PictureSize() != pictureSize_) FollowSizes();
  if (!building_ && !isMinimized() && form_.Resize) {
    Deliver({.Kind = UserEventKind::kResize});
  }
}

}  // namespace brindlemoor

// FormWindow: the real window of a form.
#pragma once

#include <QMainWindow>
#include <QMap>
#include <QPointer>
#include <QString>
#include <functional>
#include <vector>

#include "platform/controls.h"
#include "platform/user_events.h"

class QButtonGroup;

namespace brindlemoor {

class PageView;
class WindowHost;

/// Knows nothing of any one form: form_building.h fills it from the form's arrangement and menus.
/// The form outlives it.
class FormWindow : public QMainWindow {
 public:
  FormWindow(Form& form, WindowHost& host);
  ~FormWindow() override;

  Form& Model() { return form_; }
  WindowHost& Host() { return host_; }
  /// Hands an event of this window to the logic.
  bool Deliver(const UserEvent& event);

  /// Shows the window; a modal one blocks owner, or all windows when there is no owner.
  void Present(bool modal, QWidget* owner);
  /// Shows that the user's wish to close has arrived and waits for the end of a handler.
  void ShowThatItCloses(bool closes);

  // For the bindings of controls.

  /// Runs sync now and after every change of the model.
  void Bind(Observed& model, std::function<void()> sync);
  /// A caption that takes an access key: apply is called with the marked caption.
  void AddMnemonic(std::function<QString()> caption, std::function<void(const QString&)> apply);
  /// Shares the access keys out again; a binding calls it when its caption has changed.
  void RefreshMnemonics();
  /// The group in which one option at a time is chosen: the control array of the given name.
  QButtonGroup& OptionGroup(const QString& controlName);
  void AddView(PageView& view) { views_.push_back(&view); }
  /// Appends a widget to those that the Tab key goes through.
  void AddTabStop(QWidget& widget) { tabStops_.push_back(&widget); }
  /// Sets the Tab key's way again, when the widget behind a view has changed.
  void OrderTabStops();
  /// Gives the keyboard to a widget, as soon as the window is shown.
  void Focus(QWidget& widget);
  /// The wheel over a widget changes the size of the window's letters while Ctrl is held.
  void TakeLetterWheel(QWidget& widget) { widget.installEventFilter(this); }
  /// How many times the ordinary size the window's letters have.
  double LetterSize() const { return letters_; }
  /// How many times the ordinary size what holds no text has: as its letters, but never smaller,
  /// and larger only where the window has the room.
  double PictureSize() const;
  /// Runs sync when all controls are there, and whenever one of the two has changed.
  void OnSizeChange(std::function<void()> sync) { sizeSyncs_.push_back(std::move(sync)); }
  /// Runs sync whenever the window has come up or gone.
  void OnShownChange(std::function<void()> sync) { shownSyncs_.push_back(std::move(sync)); }
  /// All controls are there: access keys and the Tab key's way are set.
  void EndBuilding();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  struct Mnemonic {
    std::function<QString()> Caption;
    std::function<void(const QString&)> Apply;
  };

  void AddLetterKeys();
  void GiveFocus();
  void SetLetterSize(double size);
  /// Sets a size by the user's wish, which is remembered.
  void ChooseLetterSize(double size);
  void FollowSizes();
  void TakeFirstSize(QWidget* owner);
  void ShowTitle();

  Form& form_;
  WindowHost& host_;
  bool building_ = true;
  bool sized_ = false;
  bool closes_ = false;
  double letters_ = 1.0;
  int wheel_ = 0;             // turned with Ctrl since the last whole step
  double pictureSize_ = 1.0;  // that the controls have taken
  std::vector<Observed*> bound_;
  std::vector<Mnemonic> mnemonics_;
  std::vector<PageView*> views_;
  std::vector<QWidget*> tabStops_;
  std::vector<std::function<void()>> sizeSyncs_;
  std::vector<std::function<void()>> shownSyncs_;
  QPointer<QWidget> focusNext_;  // when the window comes up
  QMap<QString, QButtonGroup*> optionGroups_;
};

}  // namespace brindlemoor

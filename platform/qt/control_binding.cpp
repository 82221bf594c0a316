// The binding of any control by its kind, and what all kinds share.
#include <QVariant>
#include <QWidget>
#include <utility>

#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"

namespace brindlemoor {

namespace {

using Maker = QWidget* (*)(Control&, FormWindow&);

template <class Model, QWidget* (*Bind)(Model&, FormWindow&)>
QWidget* Try(Control& control, FormWindow& window) {
  auto* model = dynamic_cast<Model*>(&control);
  return model == nullptr ? nullptr : Bind(*model, window);
}

constexpr Maker kMakers[] = {
    Try<Button, BindButton>,
    Try<Label, BindLabel>,
    Try<TextBox, BindTextBox>,
    Try<ComboBox, BindComboBox>,
    Try<ListBox, BindListBox>,
    Try<OptionButton, BindOptionButton>,
    Try<CheckBox, BindCheckBox>,
    Try<ScrollBar, BindScrollBar>,
    Try<PictureBox, BindPictureBox>,
    Try<BrowserView, BindBrowserView>,
    Try<BarChart, BindBarChart>,
    Try<ProgressBar, BindProgressBar>,
    Try<Grid, BindGrid>,
};

/// As rich text a tool tip is broken into lines; what it says stays plain.
QString Wrapped(const std::string& toolTip) {
  if (toolTip.empty()) return {};
  return "<qt>" + QString::fromStdString(toolTip).toHtmlEscaped() + "</qt>";
}

/// Controls whose caption is their name.
bool SaysItsName(const Control& model) {
  return dynamic_cast<const Button*>(&model) != nullptr ||
         dynamic_cast<const Label*>(&model) != nullptr ||
         dynamic_cast<const OptionButton*>(&model) != nullptr ||
         dynamic_cast<const CheckBox*>(&model) != nullptr ||
         dynamic_cast<const Frame*>(&model) != nullptr;
}

/// What screen readers say of a control, unless its kind knows better.
void Describe(const Control& model, QWidget& widget) {
  const QString toolTip = QString::fromStdString(model.ToolTip);
  // Where there is no description readers are given the tool tip, marks and all.
  widget.setAccessibleDescription(toolTip);
  if (SaysItsName(model)) return;
  widget.setAccessibleName(model.Spoken.empty() ? toolTip : QString::fromStdString(model.Spoken));
}

}  // namespace

QWidget* BindControl(Control& control, FormWindow& window) {
  for (const Maker make : kMakers) {
    if (QWidget* widget = make(control, window)) return widget;
  }
  return nullptr;
}

void BindCommon(Control& model, QWidget& widget, FormWindow& window, std::function<void()> sync) {
  widget.setObjectName(QString::fromStdString(model.Name));
  widget.setProperty("control", true);
  window.Bind(model, [&model, &widget, &window, calls = 0, sync = std::move(sync)]() mutable {
    widget.setVisible(model.Visible);
    widget.setEnabled(model.Enabled);
    widget.setToolTip(Wrapped(model.ToolTip));
    Describe(model, widget);
    sync();
    if (std::exchange(calls, model.FocusCalls.Get()) != model.FocusCalls) window.Focus(widget);
  });
}

}  // namespace brindlemoor

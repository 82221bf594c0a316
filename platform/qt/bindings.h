// One binding per kind of control: a binding makes the widget, follows the model's properties and
// hands the user's events to the model's handlers.
#pragma once

#include <functional>
#include <vector>

#include "platform/controls.h"

class QWidget;

namespace brindlemoor {

class FormWindow;

/// The widget of any control; nothing for a kind that has no binding.
QWidget* BindControl(Control& control, FormWindow& window);

QWidget* BindButton(Button& model, FormWindow& window);
QWidget* BindLabel(Label& model, FormWindow& window);
QWidget* BindTextBox(TextBox& model, FormWindow& window);
QWidget* BindComboBox(ComboBox& model, FormWindow& window);
QWidget* BindListBox(ListBox& model, FormWindow& window);
QWidget* BindGrid(Grid& model, FormWindow& window);
QWidget* BindOptionButton(OptionButton& model, FormWindow& window);
QWidget* BindCheckBox(CheckBox& model, FormWindow& window);
QWidget* BindScrollBar(ScrollBar& model, FormWindow& window);
QWidget* BindPictureBox(PictureBox& model, FormWindow& window);
QWidget* BindBarChart(BarChart& model, FormWindow& window);
QWidget* BindProgressBar(ProgressBar& model, FormWindow& window);
QWidget* BindBrowserView(BrowserView& model, FormWindow& window);
void BindMenus(const std::vector<MenuItem*>& menus, FormWindow& window);
/// A timer has no widget.
void BindTimer(Timer& model, FormWindow& window);

/// The keys for undo and redo are the form's in a widget in which the user types.
void LeaveUndoToForm(QWidget& typed);

/// What all controls share: follows Visible, Enabled and ToolTip, then runs sync.
void BindCommon(Control& model, QWidget& widget, FormWindow& window, std::function<void()> sync);

}  // namespace brindlemoor

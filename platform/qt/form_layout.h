// From a form's arrangement to nested layouts of widgets.
#pragma once

#include "platform/controls.h"

class QWidget;

namespace brindlemoor {

class FormWindow;

/// Makes and binds every control of an arrangement, in its order, which is the tab order as well.
QWidget* BuildArrangement(const Layout& arrangement, FormWindow& window);

}  // namespace brindlemoor

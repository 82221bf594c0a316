// From a form to its window with all controls.
#pragma once

#include <memory>

namespace brindlemoor {

struct Form;
class FormWindow;
class WindowHost;

std::unique_ptr<FormWindow> BuildWindow(Form& form, WindowHost& host);

}  // namespace brindlemoor

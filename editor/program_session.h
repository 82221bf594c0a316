// A fresh session of the whole program: desktop, windows and card editor.
#pragma once

#include <memory>
#include <string>

namespace brindlemoor {

class Platform;

void OpenProgramSession(std::shared_ptr<Platform> desktop, std::string folder);

}  // namespace brindlemoor

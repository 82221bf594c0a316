// What the owner of a file lets be done with it.
#pragma once

#include <string>

namespace brindlemoor {

/// True for a file that its owner has guarded against writing, whatever the present user may do.
bool IsWriteProtected(const std::string& path);

}  // namespace brindlemoor

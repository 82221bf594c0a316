// Whether the tables of a match agree with one another.
#pragma once

namespace brindlemoor {

struct Session;

/// True when every slot and position that is used without a look at its table lies in it.
bool TablesAgree(const Session& session);

}  // namespace brindlemoor

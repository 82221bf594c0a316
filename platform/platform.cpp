// The accessor of the session's desktop.
#include "platform/platform.h"

#include "core/state.h"

namespace brindlemoor {

bool Platform::Deliver(Form& form, const UserEvent& event) {
  EventObserver* observer = observer_;
  if (observer != nullptr) observer->EventBegins(form, event);
  const bool answer = ApplyEvent(form, event);
  if (observer != nullptr) observer->EventEnds();
  return answer;
}

Platform& Desktop() { return *State().Desktop; }

}  // namespace brindlemoor

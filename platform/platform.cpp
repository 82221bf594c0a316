// Delivering an event to the logic, seen by whoever observes.
#include "platform/platform.h"

namespace brindlemoor {

bool Platform::Deliver(Form& form, const UserEvent& event) {
  EventObserver* observer = observer_;
  if (observer != nullptr) observer->EventBegins(form, event);
  const bool answer = ApplyEvent(form, event);
  if (observer != nullptr) observer->EventEnds();
  return answer;
}

}  // namespace brindlemoor

// Delivering an event to the logic, seen by whoever observes, and noting what the user chooses.
#include "platform/platform.h"

#include "platform/headless/memory_archives.h"

namespace brindlemoor {

Platform::Platform(std::unique_ptr<FileSystem> files)
    : files_(std::move(files)), archives_(std::make_shared<MemoryArchiveLibrary>()) {}

bool Platform::Deliver(Form& form, const UserEvent& event) {
  EventObserver* observer = observer_;
  if (observer != nullptr) observer->EventBegins(form, event);
  const bool answer = ApplyEvent(form, event);
  if (observer != nullptr) observer->EventEnds();
  return answer;
}

std::optional<std::string> Platform::AskFile(const FileDialogRequest& request) {
  auto path = ChooseFile(request);
  if (path) Files().TakeChoice(*path);
  return path;
}

std::optional<std::string> Platform::AskFolder(std::string_view prompt) {
  auto path = ChooseFolder(prompt);
  if (path) Files().TakeChoice(*path);
  return path;
}

}  // namespace brindlemoor

// Appending to the file of a journal.
#include "journal/journal_writer.h"

#include <array>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "journal/text_change.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kLargestJournal = 250U << 20;  // a larger one would not be read

std::string Reason() { return std::generic_category().message(errno); }

std::string NameOfNow() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y%m%d-%H%M%S", &local);
  return Joined(text.data(), "-", ::getpid(), kJournalExtension);
}

}  // namespace

JournalWriter::~JournalWriter() { Close(); }

void JournalWriter::Close() {
  if (file_ >= 0) ::close(std::exchange(file_, -1));
}

std::string JournalWriter::Open(const std::string& path) {
  std::error_code failure;
  path_ = path;
  if (std::filesystem::is_directory(path, failure)) path_ = Joined(path, "/", NameOfNow());
  file_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0666);
  if (file_ >= 0) return "";
  if (errno == EEXIST) return Joined("The journal ", path_, " is there already.");
  return Joined("Can't write the journal ", path_, ": ", Reason(), ".");
}

void JournalWriter::Fail(std::string_view reason) {
  Close();
  failed_ = true;
  if (OnFailure) OnFailure(Joined("The journal ", path_, " ends here: ", reason, "."));
}

void JournalWriter::Add(std::string_view word, const JournalFields& fields) {
  if (!Works()) return;
  const std::string line = JournalLine(word, fields) + '\n';
  written_ += line.size();
  if (written_ > kLargestJournal) return Fail("It is too long");
  // One call for the line, so that lines of processes that share the file stay whole.
  for (std::string_view rest = line; !rest.empty();) {
    const ssize_t count = ::write(file_, rest.data(), rest.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return Fail(Reason());
    rest.remove_prefix(static_cast<std::size_t>(count));
  }
}

void JournalWriter::End() {
  Add("end");
  Close();
}

void JournalWriter::AddText(const std::string& name, std::string_view bytes) {
  if (!Works()) return;
  std::string& last = texts_[name];
  TextChange change = ChangeBetween(last, bytes);
  last = bytes;
  Add("write", {name, HashOf(bytes), std::to_string(change.Front), std::to_string(change.Back),
                std::move(change.Middle)});
}

}  // namespace brindlemoor

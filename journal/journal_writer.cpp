// Appending to the file of a journal.
#include "journal/journal_writer.h"

#include <array>
#include <ctime>
#include <unistd.h>
#include <utility>

#include "journal/text_change.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kLargestJournal = 250U << 20;  // a larger one would not be read

std::string NameOfNow() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y%m%d-%H%M%S", &local);
  return Joined(text.data(), "-", ::getpid(), kJournalExtension);
}

}  // namespace

std::string JournalWriter::Open(const std::string& path) {
  path_ = KindOfTarget(path) == EntryKind::kFolder ? Joined(path, "/", NameOfNow()) : path;
  if (KindOf(path_) != EntryKind::kNothing) {
    return Joined("The journal ", path_, " is there already.");
  }
  const std::string problem = file_.Create(path_);
  return problem.empty() ? "" : Joined("Can't write the journal ", path_, ": ", problem, ".");
}

void JournalWriter::Fail(std::string_view reason) {
  file_.Close();
  failed_ = true;
  if (OnFailure) OnFailure(Joined("The journal ", path_, " ends here: ", reason, "."));
}

void JournalWriter::Add(std::string_view word, const JournalFields& fields) {
  if (!Works()) return;
  const std::string line = JournalLine(word, fields) + '\n';
  written_ += line.size();
  if (written_ > kLargestJournal) return Fail("It is too long");
  // One call for the line, so that lines of processes that share the file stay whole.
  const std::string problem = file_.Add(line);
  if (!problem.empty()) Fail(problem);
}

void JournalWriter::End() {
  Add("end");
  file_.Close();
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

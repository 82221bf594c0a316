// The few operations that the program's logic needs from a desktop.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/archive_library.h"
#include "platform/files.h"
#include "platform/image_library.h"
#include "platform/printing.h"
#include "platform/user_events.h"

namespace brindlemoor {

struct BrowserView;
struct Form;

/// What a file dialog is opened with. Extensions are without a dot.
struct FileDialogRequest {
  bool Save = false;
  std::string FileName{};  ///< preset name or pattern such as "*.txt"
  std::string DefaultExtension{};
};

/// What is to become of something unsaved.
enum class SaveAnswer { kCancel, kSave, kDiscard };

/// A desktop: windows, dialogs, browser views, events, files and the clock. One side draws real
/// widgets (platform/qt), the other only keeps values (platform/headless).
class Platform {
 public:
  explicit Platform(std::unique_ptr<FileSystem> files);
  virtual ~Platform() = default;

  FileSystem& Files() { return *files_; }

  /// What reads and writes archives; a plain format in memory until the program has given another.
  const ArchiveLibrary& Archives() const { return *archives_; }
  void SetArchives(std::shared_ptr<const ArchiveLibrary> archives) {
    archives_ = std::move(archives);
  }

  /// Nobody, or whoever is told of the user's events; it lives as long as the platform or is taken
  /// back.
  void SetObserver(EventObserver* observer) { observer_ = observer; }
  /// Hands an event of the user to the logic: the one way for all of them. Returns what ApplyEvent
  /// does.
  virtual bool Deliver(Form& form, const UserEvent& event);

  /// Shows a form; a modal one returns when it has been hidden.
  virtual void ShowForm(Form& form, bool modal) = 0;
  virtual void HideForm(Form& form) = 0;
  virtual void RaiseForm(Form& form) = 0;

  /// A modal message with one button.
  virtual void MessageBox(std::string_view text) = 0;
  /// A modal question; true for yes.
  virtual bool AskYesNo(std::string_view text) = 0;
  /// A modal question with three buttons; closing it is a cancel.
  virtual SaveAnswer AskSaving(std::string_view text) = 0;
  /// A modal question with a button for each caption, the first of them for the Enter key. The
  /// index of the answer, from 0; closing it is the last one.
  virtual std::size_t AskChoice(std::string_view text,
                                const std::vector<std::string>& captions) = 0;
  /// One line of input; nothing when it was cancelled.
  virtual std::optional<std::string> AskText(std::string_view prompt) = 0;
  /// The chosen path; nothing when it was cancelled. Files there may be read and written.
  std::optional<std::string> AskFile(const FileDialogRequest& request);
  /// The path of a chosen folder; nothing when it was cancelled. The same holds for its files.
  std::optional<std::string> AskFolder(std::string_view prompt);
  /// The chosen colour as red, green, blue bytes (high to low); nothing when it was cancelled.
  virtual std::optional<std::int32_t> AskColor(std::int32_t present) = 0;

  /// Folders to begin a search from: the user's own, removable media, the root. Absolute paths
  /// without a separator behind them, "/" excepted.
  virtual std::vector<std::string> Drives() const = 0;
  virtual ImageLibrary& Images() = 0;
  /// A new document for printing on paper of a size.
  virtual std::unique_ptr<PdfDocument> NewPdf(PaperSize paper) = 0;

  /// Shows a URL in a view; returns when the page has been read, so that its file may be written
  /// again. The view's BeforeNavigate is not asked.
  virtual void Navigate(BrowserView& view, const std::string& url) = 0;
  /// Lets waiting events run once.
  virtual void PumpEvents() = 0;
  /// Called now and then in the middle of long work: windows are painted and menus open, but no
  /// event is delivered, as half of a table may have been changed.
  virtual void ServeWindows() noexcept {}
  /// Ends the program: no further page is shown and the event loop stops.
  virtual void EndProgram() = 0;
  virtual bool Ending() const = 0;

  /// A number for seeding: the clock, or the next of the sequence that a fixed seed gives.
  virtual std::uint64_t ClockSeed() = 0;

 protected:
  /// What AskFile and AskFolder show.
  virtual std::optional<std::string> ChooseFile(const FileDialogRequest& request) = 0;
  virtual std::optional<std::string> ChooseFolder(std::string_view prompt) = 0;

 private:
  std::unique_ptr<FileSystem> files_;
  std::shared_ptr<const ArchiveLibrary> archives_;
  EventObserver* observer_ = nullptr;
};

}  // namespace brindlemoor

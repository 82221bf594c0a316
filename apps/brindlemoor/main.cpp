// The desktop program.
#include <QApplication>
#include <QEvent>
#include <QFileInfo>
#include <QMessageBox>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "apps/brindlemoor/folder_filling.h"
#include "apps/brindlemoor/options.h"
#include "apps/brindlemoor/program_folder.h"
#include "apps/version_text.h"
#include "archive/zip_library.h"
#include "core/state.h"
#include "core/strings.h"
#include "editor/compose_folder.h"
#include "editor/picture_files.h"
#include "editor/program_session.h"
#include "game/program_start.h"
#include "journal/journal_writer.h"
#include "journal/recording_platform.h"
#include "journal/session_journal.h"
#include "platform/program_copy.h"
#include "platform/program_frame.h"
#include "platform/qt/browser_engine.h"
#include "platform/qt/geometry_report.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/style.h"
#include "sharing/game_opening.h"
#include "sharing/games_update.h"
#include "text/text.h"
#include "ui/archive_form.h"
#include "ui/forms.h"

namespace {

using namespace brindlemoor;  // NOLINT: the program itself

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

std::string Variable(const char* name) { return qEnvironmentVariable(name).toStdString(); }

bool HasDisplay() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

ProgramFolderResult FindFolder(const Options& options) {
  FolderChoice choice;
  choice.Argument = options.Folder;
  choice.ExecutableFolder = QCoreApplication::applicationDirPath().toStdString();
  choice.DataHome = Variable("XDG_DATA_HOME");
  choice.Home = Variable("HOME");
  choice.ShippedGames = {choice.ExecutableFolder + "/../share/brindlemoor/games",
                         BRINDLEMOOR_INSTALLED_GAMES, BRINDLEMOOR_SOURCE_GAMES};
  return FindProgramFolder(choice);
}

std::unique_ptr<GeometryReport> StartReport() {
  const QString file = qEnvironmentVariable("BRINDLEMOOR_TEST_GEOMETRY");
  return file.isEmpty() ? nullptr : std::make_unique<GeometryReport>(file);
}

/// Said twice: a program started from a menu has no terminal.
void Say(Platform& desktop, const std::string& problem) {
  std::fprintf(stderr, "brindlemoor: %s\n", problem.c_str());
  desktop.MessageBox(problem);
}

/// Begins the journal of a session. "" or why there can be none.
std::string OpenJournal(const Options& options, const SessionStart& start, QtPlatform& desktop,
                        JournalWriter& journal) {
  std::string problem = journal.Open(options.Journal);
  if (!problem.empty()) return problem;
  journal.OnFailure = [&desktop](const std::string& failure) {
    Say(desktop, Joined(failure, "  The program goes on without it."));
  };
  WriteSessionHead(journal, start, desktop.Files());
  return "";
}

/// The path of an archive that the command line names.
std::string PathOfArchive(const Options& options) {
  if (options.Archive.empty()) return "";
  return QFileInfo(QString::fromStdString(options.Archive)).absoluteFilePath().toStdString();
}

void Run(const std::shared_ptr<QtPlatform>& desktop, JournalWriter& journal,
         const std::string& archive) {
  if (!journal.Works()) {
    StartProgram();
    if (!archive.empty() && !desktop->Ending()) {
      desktop->Files().TakeChoice(archive);
      OpenGameArchive(archive);
    }
    desktop->Run();
    return;
  }
  const auto recorder =
      std::make_shared<RecordingPlatform>(desktop, journal, State().ProgramFolder);
  recorder->SetArchives(std::make_shared<ZipLibrary>());
  State().Desktop = recorder;
  recorder->Start(StartProgram);
  desktop->Run();
  recorder->Finish();
}

/// While another program plays on the folder its games stay as they are.
void UpdateShippedGames(const ProgramFolderResult& place, const ProgramCopy& copy,
                        Platform& desktop) {
  if (place.Shipped.empty() || copy.Number() != 1) return;
  const std::string told = UpdateGames(desktop.Files(), place.Folder, place.Shipped);
  if (!told.empty()) Say(desktop, told);
}

int Play(const Options& options) {
  const ProgramFolderResult place = FindFolder(options);
  auto desktop =
      std::make_shared<QtPlatform>(std::make_unique<LocalFileSystem>(), place.Folder, options.Seed);
  auto report = StartReport();
  if (!place.Error.empty()) {
    Say(*desktop, place.Error);
    return kFailed;
  }
  RemoveOldParts(place.Folder);
  desktop->SetArchives(std::make_shared<ZipLibrary>());
  desktop->Files().KeepTo(place.Folder);
  const std::string finished = FinishOpening(desktop->Files(), place.Folder);
  if (!finished.empty()) Say(*desktop, finished);
  const ProgramCopy copy(place.Folder);
  UpdateShippedGames(place, copy, *desktop);
  JournalWriter journal;
  if (!options.Journal.empty()) {
    const SessionStart start{place.Folder, options.Debug, options.Seed, copy.Number()};
    const std::string problem = OpenJournal(options, start, *desktop, journal);
    if (!problem.empty()) {
      Say(*desktop, problem);
      return kFailed;
    }
  }
  OpenProgramSession(desktop, place.Folder);
  State().DebugMode = options.Debug ? 1 : 0;
  State().CopyOfProgram = copy.Number();
  Run(desktop, journal, PathOfArchive(options));
  report.reset();
  desktop->CloseWindows();
  State() = Session{};
  return 0;
}

/// A desktop that nobody looks at.
class UnseenDesktop : public QtPlatform {
 public:
  using QtPlatform::QtPlatform;
  void MessageBox(std::string_view text) override {
    std::fprintf(stderr, "brindlemoor: %.*s\n", static_cast<int>(text.size()), text.data());
  }
};

int Compose(const Options& options) {
  const ProgramFolderResult place = FindFolder(options);
  if (!place.Error.empty()) {
    std::fprintf(stderr, "brindlemoor: %s\n", place.Error.c_str());
    return kFailed;
  }
  OpenProgramSession(std::make_shared<UnseenDesktop>(std::make_unique<LocalFileSystem>(),
                                                     place.Folder, std::nullopt),
                     place.Folder);
  const int quality = static_cast<int>(options.Quality.value_or(kMainQuality));
  const FolderComposition composed = ComposeFolderImages(quality);
  State() = Session{};
  std::printf("%s composed.\n", CountText(composed.Images, "image").c_str());
  if (composed.Failed.empty()) return 0;
  std::fprintf(stderr, "brindlemoor: not read or written: %s\n", composed.Failed.c_str());
  return kFailed;
}

/// The application, and its end where there is no memory for the work: what was begun can't be
/// finished then, and nothing of it must be saved.
class Application : public QApplication {
 public:
  using QApplication::QApplication;

  /// The toolkit lets nothing that is thrown pass; this is the floor above all handlers.
  bool notify(QObject* receiver, QEvent* event) override {
    if (ending_ && event->type() == QEvent::Timer) return true;
    try {
      return QApplication::notify(receiver, event);
    } catch (...) {
      EndForProblem();
    }
  }

  /// Tells the problem in hand and ends the program as it stands.
  [[noreturn]] void EndForProblem() {
    RunProgram(
        "brindlemoor", []() -> int { throw; }, kFailed,
        [this](const std::string& problem) {
          if (std::exchange(ending_, true)) return;
          QMessageBox::critical(nullptr, "Brindlemoor",
                                QString::fromStdString(Joined("The program ends: ", problem,
                                                              ".  What was saved is safe.")));
        });
    std::_Exit(kFailed);
  }

 private:
  bool ending_ = false;
};

int RunDesktop(int argc, char** argv) {
  Options options = ReadOptions(std::vector<std::string>(argv + 1, argv + argc));
  if (!options.Error.empty()) {
    std::fprintf(stderr, "brindlemoor: %s\n%s", options.Error.c_str(), HelpText());
    return kWrongUsage;
  }
  if (options.Help || options.Version) {
    std::fputs(options.Help ? HelpText() : VersionText("brindlemoor").c_str(), stdout);
    return 0;
  }
  // A file where a folder is meant is what a file manager opens the program with.
  if (options.Archive.empty() && options.Journal.empty() && !options.Compose &&
      QFileInfo(QString::fromStdString(options.Folder)).isFile()) {
    options.Archive = std::exchange(options.Folder, "");
  }
  if (options.Compose) qputenv("QT_QPA_PLATFORM", "offscreen");
  if (!HasDisplay()) {
    std::fputs("brindlemoor: there is no display (DISPLAY is not set).\n", stderr);
    return kFailed;
  }
  PrepareBrowserEngine();
  Application application(argc, argv);
  QApplication::setApplicationName("brindlemoor");
  QApplication::setApplicationDisplayName("");
  try {
    ApplyStyle(application);
    return options.Compose ? Compose(options) : Play(options);
  } catch (...) {
    application.EndForProblem();
  }
}

}  // namespace

int main(int argc, char** argv) {
  OpenStandardStreams();
  LetWritesFail();
  const int code = RunProgram(
      "brindlemoor", [&] { return RunDesktop(argc, argv); }, kFailed);
  if (std::fflush(stdout) == 0) return code;
  std::fputs("brindlemoor: the output could not be written\n", stderr);
  return kFailed;
}

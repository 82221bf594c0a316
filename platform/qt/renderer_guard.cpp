// The memory of renderers.
#include "platform/qt/renderer_guard.h"

#include <QFile>
#include <QWebEnginePage>
#include <csignal>
#include <utility>

namespace brindlemoor {

namespace {

// Milliseconds.
constexpr int kOften = 50;
constexpr int kNowAndThen = 1'000;
constexpr int kComingUp = 15'000;

}  // namespace

qint64 MemoryOfProcess(qint64 pid) {
  QFile file(QString("/proc/%1/status").arg(pid));
  if (pid <= 0 || !file.open(QIODevice::ReadOnly)) return 0;
  qint64 sum = 0;
  for (const QByteArray& line : file.readAll().split('\n')) {
    for (const char* word : {"RssAnon:", "RssShmem:", "VmSwap:"}) {
      if (line.startsWith(word))
        sum += line.mid(static_cast<int>(qstrlen(word))).chopped(3).trimmed().toLongLong();
    }
  }
  return sum;
}

RendererGuard::RendererGuard(QWebEnginePage& page, std::function<void(PageEnd)> ended)
    : page_(page) {
  connect(&timer_, &QTimer::timeout, this, [this] { Look(); });
  connect(&page, &QWebEnginePage::renderProcessTerminated, this,
          [this, ended = std::move(ended)](auto status, int) {
            if (status == QWebEnginePage::NormalTerminationStatus) return;
            timer_.stop();
            ended(std::exchange(killed_, 0) != 0 ? PageEnd::kMemory : PageEnd::kCrash);
          });
}

void RendererGuard::PageBegins() {
  killed_ = 0;
  sincePage_.start();
  timer_.start(kOften);
}

void RendererGuard::Look() {
  if (sincePage_.hasExpired(kComingUp)) timer_.setInterval(kNowAndThen);
  const qint64 pid = page_.renderProcessPid();
  if (pid <= 0 || pid == killed_ || MemoryOfProcess(pid) <= kRendererMemory) return;
  killed_ = pid;
  ::kill(static_cast<pid_t>(pid), SIGKILL);
}

}  // namespace brindlemoor

// RendererGuard: a page whose renderer takes too much memory, or dies, is given up.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <functional>

class QWebEnginePage;

namespace brindlemoor {

/// What a process holds for itself and shares with the browser, in KiB; 0 when that can't be read.
qint64 MemoryOfProcess(qint64 pid);

/// What a renderer may take, in KiB. A report page of 60 cards takes 20,000, one of 1,800 cards
/// 100,000, one with 300 pictures 260,000.
inline constexpr qint64 kRendererMemory = qint64{1} << 20;

enum class PageEnd {
  kMemory,  ///< more than kRendererMemory
  kCrash,
};

/// Looks at the memory of a page's renderer, often while a page comes up and now and then later.
class RendererGuard : public QObject {
 public:
  /// ended is called when the renderer has gone, whoever ended it.
  RendererGuard(QWebEnginePage& page, std::function<void(PageEnd)> ended);

  /// A page is about to be loaded.
  void PageBegins();

 private:
  void Look();

  QWebEnginePage& page_;
  QTimer timer_;
  QElapsedTimer sincePage_;
  qint64 killed_ = 0;  // the renderer that took too much
};

}  // namespace brindlemoor

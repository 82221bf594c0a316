// Pictures of files, scaled to the boxes that show them.
#pragma once

#include <QCache>
#include <QPixmap>
#include <QSize>
#include <QString>

namespace brindlemoor {

/// Keeps scaled pictures by file, time of its last change and size. What was used longest ago
/// leaves when the bound is reached.
class PictureCache {
 public:
  /// The bound in bytes of picture data.
  explicit PictureCache(int bytes = 96 * 1024 * 1024) : pictures_(bytes / kUnit) {}

  /// The picture, as large as fits into box (device pixels) with its proportion kept; a null
  /// picture for a file that is missing or no image.
  QPixmap Scaled(const QString& file, QSize box);
  /// Bytes held, rounded up to whole units of 1024.
  int BytesHeld() const { return pictures_.totalCost() * kUnit; }

 private:
  static constexpr int kUnit = 1024;
  QCache<QString, QPixmap> pictures_;
};

}  // namespace brindlemoor

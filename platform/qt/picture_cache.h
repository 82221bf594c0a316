// Pictures of files, scaled to the boxes that show them.
#pragma once

#include <QCache>
#include <QPixmap>
#include <QSize>
#include <QString>

#include "platform/files.h"

namespace brindlemoor {

/// Keeps scaled pictures by file, time of its last change and size of the box; also that a file is
/// no picture. What was used longest ago leaves when the bound is reached.
class PictureCache {
 public:
  /// The files outlive this; the bound in bytes of picture data.
  explicit PictureCache(const FileSystem& files, int bytes = 96 * 1024 * 1024)
      : files_(files), pictures_(bytes / kUnit) {}

  /// The picture, as large as fits into box (device pixels) with its proportion kept; a null
  /// picture for a file that is missing or no image.
  QPixmap Scaled(const QString& file, QSize box);
  /// Bytes held, rounded up to whole units of 1024.
  qsizetype BytesHeld() const { return pictures_.totalCost() * kUnit; }

 private:
  static constexpr int kUnit = 1024;
  struct Key {
    QString File;
    QSize Box;
    qint64 Changed;
    bool operator==(const Key&) const = default;
    friend size_t qHash(const Key& key, size_t seed = 0) {
      return qHashMulti(seed, key.File, key.Box.width(), key.Box.height(), key.Changed);
    }
  };
  const FileSystem& files_;
  QCache<Key, QPixmap> pictures_;
};

}  // namespace brindlemoor

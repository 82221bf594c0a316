// The folders from which a user begins to look for files.
#include <QDir>
#include <QStandardPaths>
#include <QStorageInfo>

#include "platform/qt/qt_platform.h"

namespace brindlemoor {

std::vector<std::string> QtPlatform::Drives() const {
  QStringList places{QDir::homePath(),
                     QStandardPaths::writableLocation(QStandardPaths::PicturesLocation)};
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
    const QString root = volume.rootPath();
    const bool removable =
        root.startsWith("/media/") || root.startsWith("/run/media/") || root.startsWith("/mnt/");
    if (removable && volume.isReady()) places << root;
  }
  places << QDir::rootPath();
  places.removeDuplicates();
  std::vector<std::string> drives;
  for (const QString& place : std::as_const(places)) {
    if (QDir(place).exists()) drives.push_back(place.toStdString());
  }
  return drives;
}

}  // namespace brindlemoor

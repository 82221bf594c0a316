// The rule for files of pages.
#include "platform/qt/page_policy.h"

#include <QFileInfo>
#include <QStringList>
#include <QUrl>

namespace brindlemoor {

namespace {

const QStringList& PageExtensions() {
  static const QStringList kExtensions{"htm", "html"};
  return kExtensions;
}

const QStringList& PartExtensions() {
  static const QStringList kExtensions{"bmp", "css",  "gif", "htm", "html", "ico",
                                       "jpg", "jpeg", "png", "svg", "webp"};
  return kExtensions;
}

bool HasExtension(const QUrl& url, const QStringList& extensions) {
  return extensions.contains(QFileInfo(url.path()).suffix().toLower());
}

QString FolderOf(const QString& path) { return QFileInfo(path).path(); }

}  // namespace

PagePolicy::PagePolicy(const QString& folder)
    : folder_(QFileInfo(folder).canonicalFilePath()), parent_(FolderOf(folder_)) {}

bool PagePolicy::AllowsPage(const QUrl& url) const {
  return HasExtension(url, PageExtensions()) && LiesNear(url);
}

bool PagePolicy::AllowsResource(const QUrl& url) const {
  return HasExtension(url, PartExtensions()) && LiesNear(url);
}

bool PagePolicy::LiesNear(const QUrl& url) const {
  if (folder_.isEmpty() || !url.isLocalFile() || !url.host().isEmpty()) return false;
  const QFileInfo file(url.toLocalFile());
  // A file that is missing has no canonical path: its folder has, and the browser's own error page
  // may say that it is missing.
  const QString folder = file.exists() ? FolderOf(file.canonicalFilePath())
                                       : QFileInfo(file.path()).canonicalFilePath();
  if (folder.isEmpty()) return false;
  return folder == folder_ || folder == parent_ || FolderOf(folder) == folder_;
}

}  // namespace brindlemoor

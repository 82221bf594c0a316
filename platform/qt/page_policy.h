// Which files pages may reach.
#pragma once

#include <QString>

class QUrl;

namespace brindlemoor {

/// Pages come from data files that strangers write. They reach only picture, page and style files
/// that lie directly in the program's folder, its parent or its direct subfolders; nothing else of
/// the machine and nothing from the network. A symbolic link counts as where it leads.
class PagePolicy {
 public:
  explicit PagePolicy(const QString& folder);

  /// A page that a click may lead to.
  bool AllowsPage(const QUrl& url) const;
  /// A file that a page may be made of.
  bool AllowsResource(const QUrl& url) const;

 private:
  bool LiesNear(const QUrl& url) const;

  QString folder_;  // canonical
  QString parent_;
};

}  // namespace brindlemoor

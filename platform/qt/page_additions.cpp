// The script that adds tool tips to the pictures of a page.
#include "platform/qt/page_additions.h"

#include <QJsonDocument>
#include <QJsonObject>

#include "platform/controls.h"

namespace brindlemoor {

namespace {

constexpr const char* kScript = R"(
(function(tips) {
  for (const image of document.images) {
    let name = image.src.split('/').pop();
    try { name = decodeURIComponent(name); } catch {}
    const words = tips[name.toLowerCase()];
    if (words !== undefined) image.title = words;
  }
})(%1);
)";

}  // namespace

QString PageAdditions(const BrowserView& model) {
  QJsonObject tips;
  for (const PictureTip& tip : model.PictureTips.Get()) {
    tips.insert(QString::fromStdString(tip.File).toLower(), QString::fromStdString(tip.Words));
  }
  if (tips.isEmpty()) return {};
  const QByteArray json = QJsonDocument(tips).toJson(QJsonDocument::Compact);
  return QString(kScript).replace("%1", QString::fromUtf8(json));
}

}  // namespace brindlemoor

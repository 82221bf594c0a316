// The script that adds words to the pictures of a page, a title, and outlines to its links.
#include "platform/qt/page_additions.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "platform/controls.h"

namespace brindlemoor {

namespace {

// The style is kept in the script's own world, so that a later run finds it again.
constexpr const char* kScript = R"(
(function([tips, links, title]) {
  if (!document.title) document.title = title;
  if (!globalThis.outlines) {
    globalThis.outlines = document.createElement('style');
    document.documentElement.appendChild(globalThis.outlines);
  }
  globalThis.outlines.textContent = links.map(link => 'a[href=' + JSON.stringify(link) + '] img').join() +
      '{ outline: 3px solid #f5c542 !important; outline-offset: 1px !important; }';
  const named = {};
  for (const link of document.links) named[link.getAttribute('href')] ||= link.innerText.trim();
  for (const image of document.images) {
    let name = image.src.split('/').pop();
    try { name = decodeURIComponent(name); } catch {}
    const words = tips[name.toLowerCase()];
    if (words !== undefined) image.title = words;
    const link = image.closest('a');
    if (!image.alt && link) image.alt = named[link.getAttribute('href')] || words || name;
    if (!image.alt && words) image.alt = words;
  }
})(%1);
)";

}  // namespace

QString PageAdditions(const BrowserView& model) {
  QJsonObject tips;
  for (const PictureTip& tip : model.PictureTips.Get()) {
    tips.insert(QString::fromStdString(tip.File).toLower(), QString::fromStdString(tip.Words));
  }
  QJsonArray links;
  for (const std::string& link : model.OutlinedLinks.Get()) {
    links.append(QString::fromStdString(link));
  }
  const QByteArray json =
      QJsonDocument(QJsonArray{tips, links, QString::fromStdString(model.Spoken)})
          .toJson(QJsonDocument::Compact);
  return QString(kScript).replace("%1", QString::fromUtf8(json));
}

}  // namespace brindlemoor

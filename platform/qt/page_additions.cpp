// The script that adds a title, words for pictures, links, outlines and marks to a page.
#include "platform/qt/page_additions.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "platform/controls.h"

namespace brindlemoor {

namespace {

// The style is kept in the script's own world, so that a later run finds it again.
constexpr const char* kScript = R"(
(function([tips, cells, links, marks, title]) {
  if (!document.title) document.title = title;
  // The next page has the same address, but not the same places.
  history.scrollRestoration = 'manual';
  for (const old of document.querySelectorAll('a.named')) old.replaceWith(...old.childNodes);
  for (const cell of document.querySelectorAll('td[width="80"]')) {
    const picture = cell.querySelector('a[href^="CARD"] img');
    const name = cell.querySelector('font');
    if (!name || (picture && picture.getAttribute('src'))) continue;
    const at = cells.findIndex(([words]) => words === name.textContent);
    if (at < 0) continue;
    const link = document.createElement('a');
    link.className = 'named';
    link.setAttribute('href', cells[at][1]);
    name.before(link);
    link.append(name);
    cells.splice(at, 1);
  }
  if (!globalThis.outlines) {
    globalThis.outlines = document.createElement('style');
    document.documentElement.appendChild(globalThis.outlines);
  }
  const places = link => ['', '.named'].map(
      kind => 'a' + kind + '[href=' + JSON.stringify(link) + ']' + (kind ? '' : ' img:not([src=""])'));
  // The colours that composed pages ask for; browsers read darker ones out of their bytes.
  const colors = document.body?.hasAttribute('link') ? 'a:link { color: #99FF33; } a:visited { color: #FFFF00; }' : '';
  globalThis.outlines.textContent = colors +
      links.flatMap(places).join() +
      '{ outline: 3px solid #f5c542 !important; outline-offset: 1px !important; }' +
      'a[data-mark]::after { content: " " attr(data-mark); color: #f5c542; text-shadow: 0 0 2px #000; }';
  for (const old of document.querySelectorAll('a[data-mark]')) {
    old.removeAttribute('data-mark');
    old.removeAttribute('title');
  }
  for (const [address, mark, words] of marks) {
    // Of the links of a picture and of its name the second one has words.
    const link = [...document.querySelectorAll('a[href=' + JSON.stringify(address) + ']')].pop();
    if (!link) continue;
    link.dataset.mark = mark;
    link.title = words;
  }
  const marked = links.flatMap(link => [...document.querySelectorAll(places(link).join())]);
  const isSeen = ({top, bottom}) => bottom > 0 && top < innerHeight;
  if (marked.length && !marked.some(element => isSeen(element.getBoundingClientRect()))) {
    marked[0].scrollIntoView({block: 'center'});
  }
  const named = {};
  for (const link of document.links) named[link.getAttribute('href')] ||= link.textContent.trim();
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
  QJsonArray cells;
  for (const CellLink& cell : model.CellLinks.Get()) {
    cells.append(QJsonArray{QString::fromStdString(cell.Words), QString::fromStdString(cell.Link)});
  }
  QJsonArray links;
  for (const std::string& link : model.OutlinedLinks.Get()) {
    links.append(QString::fromStdString(link));
  }
  QJsonArray marks;
  for (const LinkMark& row : model.LinkMarks.Get()) {
    marks.append(QJsonArray{QString::fromStdString(row.Link), QString::fromStdString(row.Mark),
                            QString::fromStdString(row.Words)});
  }
  const QByteArray json =
      QJsonDocument(QJsonArray{tips, cells, links, marks, QString::fromStdString(model.Spoken)})
          .toJson(QJsonDocument::Compact);
  return QString(kScript).replace("%1", QString::fromUtf8(json));
}

}  // namespace brindlemoor

// Page files as plain text.
#include "platform/qt/page_text.h"

#include <QFile>
#include <QRegularExpression>
#include <utility>

#include "text/quoting.h"

namespace brindlemoor {

namespace {

constexpr qint64 kBytesRead = qint64{256} << 10;

struct Unseen {
  QLatin1String Opening;
  QLatin1String Closing;
};
constexpr Unseen kUnseen[] = {{QLatin1String("<!--"), QLatin1String("-->")},
                              {QLatin1String("<script"), QLatin1String("</script")},
                              {QLatin1String("<style"), QLatin1String("</style")},
                              {QLatin1String("<svg"), QLatin1String("</svg")}};

/// Goes through a page once for each of them: such a page may hold nothing but openings.
QString WithoutUnseen(const QString& html, const Unseen& unseen) {
  QString seen;
  qsizetype at = 0;
  while (true) {
    const qsizetype opens = html.indexOf(unseen.Opening, at, Qt::CaseInsensitive);
    const qsizetype closes =
        opens < 0 ? -1 : html.indexOf(unseen.Closing, opens, Qt::CaseInsensitive);
    if (closes < 0) return seen + html.mid(at);
    seen += html.mid(at, opens - at);
    // An end tag goes with the other tags.
    at = closes + (unseen.Closing.front() == QLatin1Char('<') ? 0 : unseen.Closing.size());
  }
}

/// Line breaks and gaps where the page has them, so that the text can be read.
QString WithLines(QString html) {
  static const QRegularExpression kBreaks("<(br|hr|p|tr|li|div|table|h[1-6])\\b",
                                          QRegularExpression::CaseInsensitiveOption);
  static const QRegularExpression kCells("<t[dh]\\b", QRegularExpression::CaseInsensitiveOption);
  return html.replace(kBreaks, "\n<\\1").replace(kCells, " <td");
}

}  // namespace

QString TextOfPage(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return "";
  QString html = QString::fromUtf8(file.read(kBytesRead)).simplified();
  for (const Unseen& unseen : kUnseen) html = WithoutUnseen(html, unseen);
  static const QRegularExpression kGaps("\\s*\n\\s*");
  QString text = QString::fromStdString(WithoutTags(WithLines(html).toStdString()));
  text = text.trimmed().replace(kGaps, "\n");
  for (const auto& [reference, character] :
       {std::pair{"&nbsp;", " "}, {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}}) {
    text.replace(reference, character);
  }
  if (!file.atEnd()) text += "\n...";
  return text;
}

}  // namespace brindlemoor

// Page files as plain text.
#include "platform/qt/page_text.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

#include "text/quoting.h"

namespace brindlemoor {

namespace {

constexpr qint64 kBytesRead = qint64{256} << 10;

/// Line breaks where the page has them, so that the text can be read.
QString WithLines(QString html) {
  static const QRegularExpression kUnseen(
      "<!--.*?-->|<(script|style|svg)\\b.*?</\\1\\s*>",
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
  static const QRegularExpression kBreaks("<(br|hr|p|tr|li|div|table|h[1-6])\\b",
                                          QRegularExpression::CaseInsensitiveOption);
  html.remove(kUnseen);
  return html.replace(kBreaks, "\n<\\1");
}

}  // namespace

QString TextOfPage(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return "";
  const QString html = WithLines(QString::fromUtf8(file.read(kBytesRead)).simplified());
  QString text = QString::fromStdString(WithoutTags(html.toStdString()));
  for (const auto& [reference, character] :
       {std::pair{"&nbsp;", " "}, {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}}) {
    text.replace(reference, character);
  }
  static const QRegularExpression kGaps("\\s*\n\\s*");
  text = text.trimmed().replace(kGaps, "\n");
  if (!file.atEnd()) text += "\n...";
  return text;
}

}  // namespace brindlemoor

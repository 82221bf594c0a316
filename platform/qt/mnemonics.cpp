// Choosing access keys.
#include "platform/qt/mnemonics.h"

#include <QSet>

namespace brindlemoor {

namespace {

/// Index of the character that becomes the access key, -1 for none.
int FreePosition(const QString& caption, const QSet<QChar>& taken) {
  int anywhere = -1;
  for (int index = 0; index < caption.size(); ++index) {
    const QChar character = caption[index];
    if (!character.isLetterOrNumber() || taken.contains(character.toUpper())) continue;
    if (index == 0 || !caption[index - 1].isLetterOrNumber()) return index;
    if (anywhere < 0) anywhere = index;
  }
  return anywhere;
}

}  // namespace

QStringList WithMnemonics(const QStringList& captions) {
  QSet<QChar> taken;
  QStringList marked;
  for (const QString& caption : captions) {
    const int position = FreePosition(caption, taken);
    QString text;
    for (int index = 0; index < caption.size(); ++index) {
      if (index == position) text += '&';
      if (caption[index] == '&') text += '&';
      text += caption[index];
    }
    if (position >= 0) taken.insert(caption[position].toUpper());
    marked << text;
  }
  return marked;
}

}  // namespace brindlemoor

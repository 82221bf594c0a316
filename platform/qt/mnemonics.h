// Access keys of menus and buttons.
#pragma once

#include <QStringList>

namespace brindlemoor {

/// The captions with "&" before one character each, no character twice: the first letter of a word
/// where it is free, else any letter or digit of the caption, else none. A "&" of the caption
/// itself is doubled.
QStringList WithMnemonics(const QStringList& captions);

}  // namespace brindlemoor

// The look of the desktop program.
#pragma once

#include <QColor>

class QApplication;

namespace brindlemoor {

/// The dark, calm style of all windows and dialogs.
void ApplyStyle(QApplication& application);

/// Contrast of two colours, from 1 (none) to 21 (black on white).
double Contrast(QColor one, QColor other);

/// What windows are filled with.
QColor WindowColor();

/// The plate on which text of a given colour can be read: none (invalid) for light text, a light
/// one for text that would drown in the dark windows, black or white for what is in between. Text
/// and ground are at least 4.5 : 1 apart (WCAG 2.1, level AA).
QColor PlateFor(QColor text);

/// The frame of the picture that the pointer or the keyboard is on, and of where a card can go.
QColor HighlightColor();

/// Text on windows, blank cards and badges.
QColor TextColor();

/// What a card without a picture is filled with, and its edge.
QColor CardColor();
QColor CardEdgeColor();

/// The frame of what is chosen, and what lies over what can't be used now.
QColor ChoiceColor();
QColor DimColor();

/// The plate of a badge.
QColor BadgeColor();

/// The bars of a chart.
QColor BarColor();

}  // namespace brindlemoor

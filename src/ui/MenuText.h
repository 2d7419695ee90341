#pragma once

#include "menu/MenuItem.h"

#include <QFontMetrics>
#include <QString>

namespace quorvel {

/// The title literally, on one line, at most `mostWidth` pixels wide: its middle is left out, so
/// that the end stays visible.
QString titleLine(const QString& title, const QFontMetrics& metrics, int mostWidth);

/// The same for a toolkit that reads & as a mark.
QString menuTitle(const QString& title, const QFontMetrics& metrics, int mostWidth);

/// The width that these items ask of their menu, by their titles alone; measured no further than
/// `mostWidth`.
int measuredMenuWidth(const QList<MenuItem>& items, const QFontMetrics& metrics, int mostWidth);

/// The text as lines of at most `width` pixels, separated by line breaks; what goes beyond
/// `mostLines` is left out.
QString wrappedText(const QString& text, const QFont& font, int width, int mostLines);

/// The text for a tool tip: shown literally with its line breaks and blanks, long texts cut; the
/// detail is its last line. Empty for texts that show nothing.
QString toolTipMarkup(const QString& text, const QString& detail = {});

} // namespace quorvel

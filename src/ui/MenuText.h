#pragma once

#include <QFontMetrics>
#include <QString>

namespace quorvel {

/// The title as a menu row shows it: literally, on one line, at most `mostWidth` pixels wide (its
/// middle is left out, so that the end stays visible).
QString menuTitle(const QString& title, const QFontMetrics& metrics, int mostWidth);

/// The text for a tool tip: shown literally with its line breaks and blanks, long texts cut.
/// Empty for a text that shows nothing.
QString toolTipMarkup(const QString& text);

} // namespace quorvel

#include "ui/FieldClipboard.h"

#include <QKeyEvent>

#include <algorithm>

namespace quorvel {

namespace {

struct UseKeys {
    QKeySequence::StandardKey keys;
    ClipboardUse use;
};

constexpr UseKeys useKeys[] = {
    {QKeySequence::Copy, ClipboardUse::copy},
    {QKeySequence::Cut, ClipboardUse::cut},
    {QKeySequence::Paste, ClipboardUse::paste},
};

/// UTF-16 units; a field lays out all of its text at each key press.
constexpr qsizetype longestLine = 1000;

bool isLineBreak(QChar c) {
    return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

} // namespace

std::optional<ClipboardUse> clipboardUse(const QKeyEvent& press) {
    for (const UseKeys& entry : useKeys)
        if (press.matches(entry.keys))
            return entry.use;
    return std::nullopt;
}

QString clipboardLine(const Pasteboard& pasteboard) {
    const QString all = pasteboard.string();
    const QStringView text = QStringView(all).trimmed();
    const auto* end = std::find_if(text.begin(), text.end(), isLineBreak);
    QStringView line = text.first(std::min<qsizetype>(end - text.begin(), longestLine));
    if (!line.isEmpty() && line.back().isHighSurrogate())
        line.chop(1);
    return line.trimmed().toString();
}

} // namespace quorvel

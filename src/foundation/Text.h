#pragma once

#include <QString>

namespace quorvel {

/// Whether both texts are equal; at once when they share their memory, as copies do.
inline bool isSameText(const QString& a, const QString& b) {
    return a.size() == b.size() && (a.constData() == b.constData() || a == b);
}

/// Number of user-perceived characters (grapheme clusters).
qsizetype characterCount(QStringView text);

/// The text cut to `limit` characters with "…" before its last `tail` characters, so that the end
/// stays visible; unchanged when it is short enough, "…" alone for a limit below 2. Looks at no
/// more of a long text than it needs.
QString shortened(const QString& text, int limit, int tail);

/// One line for display: trimmed, with line breaks, tabs and control characters as blanks, without
/// the marks that reorder text and without all but a few combining marks of a character. Of a long
/// text only this many UTF-16 units of its beginning and its
/// end are kept, with "…" between, so the cost is bounded.
QString singleLine(const QString& text, qsizetype headUnits = 512, qsizetype tailUnits = 128);

} // namespace quorvel

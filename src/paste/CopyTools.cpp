#include "paste/CopyTools.h"

#include <QLocale>
#include <QTextBoundaryFinder>

namespace quorvel {

namespace {

QString rewritten(const QString& text, CopyTool tool) {
    switch (tool) {
    case CopyTool::plain:
        return text;
    case CopyTool::trim:
        return trimmedAndCollapsed(text);
    case CopyTool::upper:
        return QLocale::c().toUpper(text);
    case CopyTool::lower:
        return QLocale::c().toLower(text);
    case CopyTool::title:
        return titleCased(text);
    }
    return text;
}

} // namespace

QString trimmedAndCollapsed(const QString& text) {
    return text.simplified();
}

QString titleCased(const QString& text) {
    const QLocale locale;
    QString result;
    result.reserve(text.size());
    QTextBoundaryFinder words(QTextBoundaryFinder::Word, text);
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = words.toNextBoundary();
        if (end < 0)
            end = text.size();
        QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text.constData() + start,
                                       end - start);
        const qsizetype first = std::max<qsizetype>(1, characters.toNextBoundary());
        result += locale.toUpper(text.sliced(start, first));
        result += locale.toLower(text.sliced(start + first, end - start - first));
        start = end;
    }
    return result;
}

std::optional<CopyTool> copyToolNamed(QStringView name) {
    const auto found = std::find(copyToolNames.begin(), copyToolNames.end(), name);
    if (found == copyToolNames.end())
        return std::nullopt;
    return static_cast<CopyTool>(found - copyToolNames.begin());
}

CopyTools::CopyTools(Pasteboard& pasteboard, PasteboardWatcher& watcher)
    : m_pasteboard(pasteboard)
    , m_watcher(watcher) {}

/// Captured at once, so the watcher must not capture it again when the change is announced.
bool CopyTools::apply(CopyTool tool) {
    const QString text = m_pasteboard.string();
    if (text.isEmpty())
        return false;
    m_pasteboard.write({textItem(rewritten(text, tool))});
    m_watcher.noteChangeCount();
    m_watcher.capture();
    return true;
}

} // namespace quorvel

#include "paste/CopyTools.h"

#include <QLocale>
#include <QTextBoundaryFinder>

namespace quorvel {

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

CopyTools::CopyTools(Pasteboard& pasteboard, PasteboardWatcher& watcher)
    : m_pasteboard(pasteboard)
    , m_watcher(watcher) {}

void CopyTools::copyClipboardAsPlainText() {
    rewrite([](const QString& text) { return text; });
}

void CopyTools::copyClipboardTrimAndCollapse() {
    rewrite(trimmedAndCollapsed);
}

void CopyTools::copyClipboardUppercase() {
    rewrite([](const QString& text) { return QLocale::c().toUpper(text); });
}

void CopyTools::copyClipboardLowercase() {
    rewrite([](const QString& text) { return QLocale::c().toLower(text); });
}

void CopyTools::copyClipboardTitleCase() {
    rewrite(titleCased);
}

/// Captured at once, so the watcher must not capture it again when the change is announced.
void CopyTools::rewrite(const std::function<QString(const QString&)>& transform) {
    const QString text = m_pasteboard.string();
    if (text.isEmpty())
        return;
    m_pasteboard.write({textItem(transform(text))});
    m_watcher.noteChangeCount();
    m_watcher.capture();
}

} // namespace quorvel

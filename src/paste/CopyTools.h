#pragma once

#include "clipboard/PasteboardWatcher.h"
#include "platform/Pasteboard.h"

#include <functional>

namespace quorvel {

/// The text without blanks at its ends, and every run of white space inside as a single blank.
QString trimmedAndCollapsed(const QString& text);

/// The first letter of every word large, the others small, as the user's language has it.
QString titleCased(const QString& text);

/// Rewrite the text on the pasteboard in place; it becomes the newest clip. Nothing happens when
/// there is no text.
class CopyTools {
public:
    CopyTools(Pasteboard& pasteboard, PasteboardWatcher& watcher);

    /// Drops every other form.
    void copyClipboardAsPlainText();
    void copyClipboardTrimAndCollapse();
    void copyClipboardUppercase();
    void copyClipboardLowercase();
    void copyClipboardTitleCase();

private:
    void rewrite(const std::function<QString(const QString&)>& transform);

    Pasteboard& m_pasteboard;
    PasteboardWatcher& m_watcher;
};

} // namespace quorvel

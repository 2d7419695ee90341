#pragma once

#include "foundation/StringTable.h"
#include "paste/AppendCopy.h"
#include "platform/Desktop.h"
#include "platform/KeyPoster.h"
#include "platform/TrayIcon.h"
#include "snippets/SnippetStore.h"

namespace quorvel {

/// Tells the user, in the language of the desktop, what has become of what was asked for.
class UserMessages {
public:
    /// All of them outlive this.
    UserMessages(Desktop& desktop, TrayIcon& statusItem, const StringTable& strings)
        : m_desktop(desktop)
        , m_statusItem(statusItem)
        , m_strings(strings) {}

    void appended(const AppendResult& result);

    /// No text was selected that could be typed anew.
    void notRetyped(SelectedTextResult::Outcome outcome);

    /// No configured layout makes another text of it.
    void nothingToRetype();

    /// Nothing when the keys were posted.
    void posted(PostOutcome outcome);
    void pastePermissionMissing();
    void snippetRefused(SnippetProblem problem);
    void creationNotSaved(SnippetCreation creation, const QString& reason);

private:
    QString text(const char* key) const { return m_strings.text(QString::fromLatin1(key)); }

    Desktop& m_desktop;
    TrayIcon& m_statusItem;
    const StringTable& m_strings;
};

} // namespace quorvel

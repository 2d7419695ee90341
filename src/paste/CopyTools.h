#pragma once

#include "clipboard/PasteboardWatcher.h"
#include "platform/Pasteboard.h"

#include <array>
#include <optional>

namespace quorvel {

/// The text without blanks at its ends, and every run of white space inside as a single blank.
QString trimmedAndCollapsed(const QString& text);

/// The first letter of every word large, the others small, as the user's language has it.
QString titleCased(const QString& text);

enum class CopyTool { plain, trim, upper, lower, title };

inline constexpr std::array<QStringView, 5> copyToolNames{u"plain", u"trim", u"upper", u"lower",
                                                          u"title"};

/// Nothing for a text that names none.
std::optional<CopyTool> copyToolNamed(QStringView name);

/// Rewrite the text on the pasteboard in place; it becomes the newest clip. Nothing happens when
/// there is no text.
class CopyTools {
public:
    CopyTools(Pasteboard& pasteboard, PasteboardWatcher& watcher);

    /// False when there is no text.
    bool apply(CopyTool tool);

    /// Drops every other form.
    void copyClipboardAsPlainText() { apply(CopyTool::plain); }
    void copyClipboardTrimAndCollapse() { apply(CopyTool::trim); }
    void copyClipboardUppercase() { apply(CopyTool::upper); }
    void copyClipboardLowercase() { apply(CopyTool::lower); }
    void copyClipboardTitleCase() { apply(CopyTool::title); }

private:
    Pasteboard& m_pasteboard;
    PasteboardWatcher& m_watcher;
};

} // namespace quorvel

#include "app/HotKeyCommands.h"

#include "menu/Submenus.h"

#include <QPointer>

#include <array>

namespace quorvel {

namespace {

struct Mode {
    Modifiers further;
    PasteOption option;
};

const std::array<Mode, 3> modes{{
    {{}, PasteOption::normal},
    {Modifier::shift, PasteOption::plainText},
    {Modifier::option, PasteOption::keepClipboard},
}};

/// Nothing for both at once.
std::optional<PasteOption> optionFor(Modifiers further) {
    for (const Mode& mode : modes)
        if (mode.further == further)
            return mode.option;
    return std::nullopt;
}

} // namespace

HotKeyCommands::HotKeyCommands(const Parts& parts)
    : m_parts(parts) {
    connect(&m_parts.hotKeys, &GlobalHotKeys::pressed, this, &HotKeyCommands::run);
    setHandler(HotKeyId::openMenu, [this] { m_parts.menu.toggle(MenuVariant::pasteHotKey); });
    setHandler(HotKeyId::pastePlainText, [this] { pastePlainText(); });
}

void HotKeyCommands::setHandler(HotKeyId id, const Handler& handler) {
    using Handling = GlobalHotKeys::Handling;
    const Handling handling = handler ? Handling::handled : Handling::none;
    m_handlers.insert(id, handler);
    m_parts.hotKeys.setHandling(id, handling);
}

void HotKeyCommands::run(HotKeyId id, Modifiers modifiersHeld) {
    if (const auto position = recentClipPosition(id))
        pasteRecentClip(*position, modifiersHeld & ~recentClipModifiers);
    else if (const Handler handler = m_handlers.value(id))
        handler();
}

void HotKeyCommands::pasteRecentClip(int position, Modifiers further) {
    const RecentClipboardEntry* entry = recentEntry(m_parts.content, position);
    if (!entry)
        return;
    m_parts.focus.refresh();
    if (const auto option = optionFor(further))
        return m_parts.pasteEngine.pasteEntry(*entry, *option);
    if (entry->isImage())
        return;
    ClipboardHistory& history = m_parts.history;
    m_parts.pasteEngine.pasteText(entry->text, PasteOption::keepClipboard,
                                  [&history, used = *entry] { history.bump(used); });
}

void HotKeyCommands::pastePlainText() {
    const Pasteboard& pasteboard = m_parts.content.pasteboard;
    const QString text = pasteboard.string();
    if (text.isEmpty() && !pasteboard.items().isEmpty())
        return;
    m_parts.focus.refresh();
    if (text.isEmpty())
        return passOn();
    const auto& entries = m_parts.history.recentClipboard();
    const bool isNewest = !entries.isEmpty() && entries.first().text == text;
    if (isNewest)
        m_parts.pasteEngine.pasteEntry(entries.first(), PasteOption::plainText);
    else
        m_parts.pasteEngine.pasteText(text, PasteOption::plainText);
}

/// What we may not read, a password say, is on the clipboard all the same, and by default this hot
/// key takes from terminals the keys by which they paste.
void HotKeyCommands::passOn() {
    m_parts.keyPoster.postPaste(m_parts.focus.target(),
                                [self = QPointer(this)](PostOutcome outcome) {
                                    if (self)
                                        emit self->keysPosted(outcome);
                                });
}

} // namespace quorvel

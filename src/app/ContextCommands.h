#pragma once

#include "foundation/StringTable.h"
#include "menu/MenuRenderer.h"
#include "paste/PasteEngine.h"
#include "platform/Desktop.h"
#include "platform/KeyboardLayouts.h"
#include "platform/Terminal.h"

namespace quorvel {

/// Carries out what is chosen about the parts of a text: paste, open, call, write, run. What fails
/// is told to the user.
class ContextCommands final {
public:
    struct Parts {
        PasteEngine& pasteEngine;
        Desktop& desktop;
        Terminal& terminal;
        KeyboardLayouts& layouts;
        const StringTable& strings;
    };

    explicit ContextCommands(const Parts& parts)
        : m_parts(parts) {}

    /// Nothing for actions that are about something else.
    void run(const MenuChoice& choice);

private:
    void paste(const QString& payload);
    void open(const MenuChoice& choice);
    void useTerminal(const MenuChoice& choice);
    void tell(const char* title, const QString& message) const;

    const Parts m_parts;
};

} // namespace quorvel

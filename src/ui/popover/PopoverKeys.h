#pragma once

#include "ui/popover/PopoverStack.h"

namespace quorvel {

/// What keys do in the popover: they type into the search field, or move the highlight.
class PopoverKeys {
public:
    explicit PopoverKeys(PopoverStack& stack)
        : m_stack(stack) {}

    /// False for a press that means nothing here but to close the popover.
    bool press(QKeyEvent& press);

private:
    bool type(QKeyEvent& press);
    bool leaveSubmenu();
    void enterSubmenu();
    void moveTo(int row);

    PopoverStack& m_stack;
};

} // namespace quorvel

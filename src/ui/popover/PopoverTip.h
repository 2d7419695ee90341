#pragma once

#include "ui/popover/PopoverStack.h"

namespace quorvel {

class TipWindow;

/// Shows the whole of a long text, or a picture in large, beside the panels when the highlight has
/// stayed on a row for a while.
class PopoverTip final : public QObject {
    Q_OBJECT

public:
    PopoverTip(PopoverStack& stack, const PopoverContext& context);
    ~PopoverTip() override;

    /// The highlight has come to another row: hides the tip, which comes again later.
    void restart();
    void hide();

    /// More pictures are decoded.
    void refresh();

private:
    void show();

    PopoverStack& m_stack;
    const PopoverContext& m_context;
    QTimer m_delay;
    std::unique_ptr<TipWindow> m_window;
    PopoverStack::Spot m_spot;
};

} // namespace quorvel

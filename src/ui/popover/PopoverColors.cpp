#include "ui/popover/PopoverColors.h"

namespace quorvel {

namespace {

QColor mixed(const QColor& a, const QColor& b, float share) {
    const float rest = 1 - share;
    return QColor::fromRgbF(a.redF() * rest + b.redF() * share,
                            a.greenF() * rest + b.greenF() * share,
                            a.blueF() * rest + b.blueF() * share);
}

} // namespace

PopoverColors::PopoverColors(const QPalette& palette)
    : ground(palette.color(QPalette::Base))
    , border(mixed(ground, palette.color(QPalette::Text), 0.22F))
    , text(palette.color(QPalette::Text))
    , quiet(mixed(ground, text, 0.62F))
    , faint(mixed(ground, text, 0.48F))
    , line(mixed(ground, text, 0.12F))
    , field(mixed(ground, text, 0.06F))
    , highlight(palette.color(QPalette::Highlight))
    , highlightedText(palette.color(QPalette::HighlightedText))
    , highlightedQuiet(mixed(highlight, highlightedText, 0.78F))
    , openSubmenu(mixed(ground, highlight, 0.22F))
    , scrollBar(mixed(ground, text, 0.36F)) {}

} // namespace quorvel

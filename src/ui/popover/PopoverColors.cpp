#include "ui/popover/PopoverColors.h"

namespace quorvel {

namespace {

QColor mixed(const QColor& a, const QColor& b, float share) {
    const float rest = 1 - share;
    return QColor::fromRgbF(a.redF() * rest + b.redF() * share,
                            a.greenF() * rest + b.greenF() * share,
                            a.blueF() * rest + b.blueF() * share);
}

QColor strong(const QPalette& palette, QPalette::ColorRole role) {
    return palette.color(QPalette::Active, role);
}

} // namespace

PopoverColors::PopoverColors(const QPalette& palette)
    : isDark(strong(palette, QPalette::Base).lightnessF() < 0.5F)
    , ground(strong(palette, QPalette::Base))
    , border(mixed(ground, strong(palette, QPalette::Text), isDark ? 0.26F : 0.22F))
    , text(strong(palette, QPalette::Text))
    , quiet(mixed(ground, text, isDark ? 0.64F : 0.6F))
    , faint(mixed(ground, text, 0.5F))
    , line(mixed(ground, text, 0.11F))
    , field(mixed(ground, text, isDark ? 0.09F : 0.06F))
    , highlight(strong(palette, QPalette::Highlight))
    , highlightedText(strong(palette, QPalette::HighlightedText))
    , highlightedQuiet(mixed(highlight, highlightedText, 0.82F))
    , highlightedField(mixed(highlight, highlightedText, 0.18F))
    , trail(mixed(ground, highlight, isDark ? 0.34F : 0.2F))
    , scrollBar(mixed(ground, text, 0.3F))
    , heldScrollBar(mixed(ground, text, 0.5F)) {}

} // namespace quorvel

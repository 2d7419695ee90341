#include "ui/popover/PopoverMetrics.h"

#include <QFontMetrics>

#include <algorithm>

namespace quorvel {

namespace {

QFont scaled(QFont font, qreal share) {
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * share);
    else
        font.setPixelSize(qRound(font.pixelSize() * share));
    return font;
}

QFont captionFont(const QFont& base) {
    QFont font = scaled(base, 0.84);
    font.setWeight(QFont::DemiBold);
    return font;
}

} // namespace

PopoverMetrics::PopoverMetrics(const QFont& base)
    : title(base)
    , detail(scaled(base, 0.84))
    , caption(captionFont(base))
    , titleHeight(QFontMetrics(title).height())
    , detailHeight(QFontMetrics(detail).height())
    , singleRow(std::max(28, titleHeight + 11))
    , doubleRow(std::max(40, titleHeight + detailHeight + 10))
    , header(QFontMetrics(caption).height() + 10) {}

} // namespace quorvel

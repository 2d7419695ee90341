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
    QFont font = scaled(base, 0.8);
    font.setWeight(QFont::DemiBold);
    font.setCapitalization(QFont::AllUppercase);
    font.setLetterSpacing(QFont::PercentageSpacing, 106);
    return font;
}

int heightOf(const QFont& font) {
    return QFontMetrics(font).height();
}

} // namespace

PopoverMetrics::PopoverMetrics(const QFont& base)
    : title(base)
    , detail(scaled(base, 0.86))
    , caption(captionFont(base))
    , search(scaled(base, 1.1))
    , titleHeight(heightOf(title))
    , detailHeight(heightOf(detail))
    , captionHeight(heightOf(caption))
    , singleRow(std::max(30, titleHeight + 13))
    , doubleRow(std::max(44, titleHeight + detailHeight + 13))
    , header(captionHeight + 12)
    , emptyState(titleHeight + 96)
    , searchField(std::max(36, heightOf(search) + 16))
    , searchArea(searchField + 20) {}

} // namespace quorvel

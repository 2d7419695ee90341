#include "paste/layouts/LayoutCycle.h"

#include <algorithm>

namespace quorvel {

std::optional<KeyboardLayoutPasteVariant> nextVariant(const KeyboardLayoutReading& reading,
                                                      const QString& text,
                                                      const QString& lastTargetID, CycleStep step) {
    if (reading.variants.isEmpty())
        return std::nullopt;
    const bool isStart = step == CycleStep::start;
    if (isStart && reading.variants.first().likelihood == VariantLikelihood::likely)
        return reading.variants.first();
    QList<KeyboardLayoutPasteVariant> ring = reading.variants;
    if (!isStart)
        ring.append({reading.sourceLayoutID, reading.sourceLayoutName, text});
    const auto last = std::find_if(ring.begin(), ring.end(), [&](const auto& variant) {
        return variant.targetLayoutID == lastTargetID;
    });
    const qsizetype place = last == ring.end() ? 0 : std::distance(ring.begin(), last) + 1;
    return ring.at(place % ring.size());
}

std::optional<KeyboardLayoutPasteVariant> LayoutCycle::next(const QString& text) {
    const bool isKnown = !m_original.isEmpty() && (text == m_original || text == m_lastValue);
    const QString& original = isKnown ? m_original : text;
    const auto variant = nextVariant(m_variants.reading(original), original,
                                     m_preferences.text(keys::cycleKeyboardLayoutLastTargetID),
                                     isKnown ? CycleStep::goOn : CycleStep::start);
    if (!variant)
        return std::nullopt;
    m_original = QString(original);
    m_lastValue = variant->value;
    m_preferences.set(keys::cycleKeyboardLayoutLastTargetID, variant->targetLayoutID);
    return variant;
}

} // namespace quorvel

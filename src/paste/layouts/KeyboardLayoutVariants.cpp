#include "paste/layouts/KeyboardLayoutVariants.h"

#include <algorithm>

namespace quorvel {

namespace {

/// How much likelier than the text itself a variant has to be, in bits: what chance alone gives a
/// short word.
constexpr double advantage = 3;

qsizetype bytesOf(const QString& text, const KeyboardLayoutReading& reading) {
    qsizetype units = text.size();
    for (const KeyboardLayoutPasteVariant& variant : reading.variants)
        units += variant.value.size();
    return units * qsizetype(sizeof(QChar));
}

} // namespace

struct KeyboardLayoutVariants::Known {
    std::unique_ptr<LayoutDetection> detection; ///< Null until it is needed.
    QString activeID;                           ///< For which it was made.
    QHash<QString, KeyboardLayoutReading> keyboardVariantCache;
    QList<QString> keyboardVariantCacheOrder; ///< Oldest first.
    qsizetype bytes = 0;

    void forget() { *this = {}; }

    void add(const QString& text, const KeyboardLayoutReading& reading) {
        keyboardVariantCache.insert(text, reading);
        keyboardVariantCacheOrder.append(text);
        bytes += bytesOf(text, reading);
        while (keyboardVariantCacheOrder.size() > cachedTexts || bytes > cachedBytes) {
            const QString oldest = keyboardVariantCacheOrder.takeFirst();
            bytes -= bytesOf(oldest, keyboardVariantCache.take(oldest));
        }
    }
};

KeyboardLayoutVariants::KeyboardLayoutVariants(KeyboardLayouts& layouts)
    : m_layouts(layouts)
    , m_known(std::make_unique<Known>()) {
    QObject::connect(&layouts, &KeyboardLayouts::configurationChanged, &m_receiver,
                     [this] { m_known->forget(); });
}

KeyboardLayoutVariants::~KeyboardLayoutVariants() = default;

const LayoutDetection& KeyboardLayoutVariants::detection() const {
    const QString activeID = m_layouts.activeID();
    if (m_known->detection && m_known->activeID == activeID)
        return *m_known->detection;
    m_known->forget(); // the active layout is part of the evidence
    m_known->detection = std::make_unique<LayoutDetection>(m_layouts.maps(), activeID);
    m_known->activeID = activeID;
    return *m_known->detection;
}

KeyboardLayoutReading KeyboardLayoutVariants::reading(const QString& text) const {
    const auto isBlank = [](QChar c) { return c.isSpace(); };
    if (text.size() > mostUnits || std::all_of(text.begin(), text.end(), isBlank) ||
        m_layouts.maps().size() < 2)
        return {};
    detection();
    const auto known = m_known->keyboardVariantCache.constFind(text);
    if (known != m_known->keyboardVariantCache.cend())
        return *known;
    const KeyboardLayoutReading reading = read(text);
    m_known->add(text, reading);
    return reading;
}

VariantLikelihood KeyboardLayoutVariants::likelihood(const DetectedLayout& detected,
                                                     qsizetype target) const {
    if (detected.targets.at(target).cost < detected.ownCost() - advantage)
        return VariantLikelihood::likely;
    const auto script = [this](qsizetype map) { return detection().language(map).script(); };
    return script(target) == script(detected.source) ? VariantLikelihood::unlikely
                                                     : VariantLikelihood::possible;
}

KeyboardLayoutReading KeyboardLayoutVariants::read(const QString& text) const {
    const auto detected = detection().detect(text);
    if (!detected)
        return {};
    const QList<KeyboardLayoutMap>& maps = m_layouts.maps();
    const KeyboardLayoutMap& source = maps.at(detected->source);
    const auto characters = typed(text, source);
    KeyboardLayoutReading reading{source.id, source.name, {}};
    std::optional<JudgedTarget> best;
    qsizetype bestPlace = 0;
    for (qsizetype target = 0; target < maps.size(); ++target) {
        const QString value = retyped(characters, maps.at(target));
        if (target == detected->source || value.isEmpty() || value == text)
            continue;
        const JudgedTarget& judged = detected->targets.at(target);
        if (!best || judged.cost < best->cost) {
            best = judged;
            bestPlace = reading.variants.size();
        }
        reading.variants.append(
            {maps.at(target).id, maps.at(target).name, value, likelihood(*detected, target)});
    }
    if (best && (best->looksRight || best->cost < detected->ownCost()))
        reading.variants.move(bestPlace, 0);
    return reading;
}

} // namespace quorvel

#include "paste/layouts/LayoutDetection.h"

namespace quorvel {

namespace {

/// In bits. A letter that was not typed is rare; signs such as quotation marks are put in by
/// programs while one types.
constexpr double pastedLetterCost = 16;
constexpr double pastedSignCost = 5;

/// Most texts are right as they are, and then written in the active layout. Those who notice that
/// it is the wrong one have often switched before they ask.
constexpr double mistakeCost = 2;
constexpr double inactiveCost = 3;
constexpr double switchedCost = 1;

struct Coverage {
    bool hasKeys = false; ///< For anything but blanks.
    double cost = 0;
};

Coverage coverage(const QList<TypedCharacter>& characters) {
    Coverage coverage;
    for (const auto& [character, strokes] : characters) {
        const QChar first = character.at(0);
        if (first.isSpace())
            continue;
        coverage.hasKeys |= !strokes.isEmpty();
        if (strokes.isEmpty())
            coverage.cost += first.isLetter() ? pastedLetterCost : pastedSignCost;
    }
    return coverage;
}

QStringView sample(const QString& text) {
    const QStringView beginning = QStringView(text).left(LayoutDetection::sampleUnits);
    const bool splitsPair = beginning.size() < text.size() && beginning.back().isHighSurrogate();
    return splitsPair ? beginning.chopped(1) : beginning;
}

} // namespace

LayoutDetection::LayoutDetection(const QList<KeyboardLayoutMap>& maps, const QString& activeID)
    : m_maps(maps)
    , m_activeID(activeID) {
    for (const KeyboardLayoutMap& map : maps)
        m_languages.append(LayoutLanguage(map));
}

std::optional<DetectedLayout> LayoutDetection::detect(const QString& text) const {
    std::optional<DetectedLayout> best;
    double leastCost = 0;
    for (qsizetype source = 0; source < m_maps.size(); ++source) {
        const auto characters = typed(sample(text), m_maps.at(source));
        const auto [hasKeys, pasted] = coverage(characters);
        if (!hasKeys)
            continue;
        const DetectedLayout detected{source, judged(characters)};
        const bool isActive = m_maps.at(source).id == m_activeID;
        double cost = detected.ownCost() + (isActive ? 0 : inactiveCost);
        for (const JudgedTarget& target : detected.targets)
            cost = std::min(cost, target.cost + mistakeCost + (isActive ? 0 : switchedCost));
        cost += pasted;
        if (!best || cost < leastCost) {
            best = detected;
            leastCost = cost;
        }
    }
    return best;
}

QList<JudgedTarget> LayoutDetection::judged(const QList<TypedCharacter>& characters) const {
    QList<JudgedTarget> targets;
    for (qsizetype target = 0; target < m_maps.size(); ++target) {
        const QString text = retyped(characters, m_maps.at(target));
        const double cost = m_languages.at(target).cost(text);
        targets.append({cost, m_languages.at(target).looksRight(text, cost)});
    }
    return targets;
}

} // namespace quorvel

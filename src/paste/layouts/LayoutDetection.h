#pragma once

#include "paste/layouts/LayoutConversion.h"
#include "paste/layouts/LayoutLanguage.h"

#include <optional>

namespace quorvel {

/// What the same keys give in a layout; of a long text its beginning.
struct JudgedTarget {
    double cost = 0;         ///< How unlikely it is in the layout's language, in bits.
    bool looksRight = false; ///< Likelier than letters in any order.
};

/// What a text is when it was typed in one of the layouts.
struct DetectedLayout {
    qsizetype source = 0;        ///< Place of the layout among the maps.
    QList<JudgedTarget> targets; ///< For each of the maps; at the source's place the text itself.

    double ownCost() const { return targets.at(source).cost; }
};

/// Finds out in which of the layouts a text was typed.
///
/// For each pair of layouts it is asked: how likely is it that somebody who meant to write in the
/// second one typed this text while the first was active? Keys turn into the text in one way only,
/// so that is how likely the converted text is in the language of the second one, and how likely it
/// is that the text has characters that the first has no keys for (pasted ones). A pair of a layout
/// with itself stands for a text that is right as it is. The first layout of the likeliest pair is
/// the answer. Where scripts differ the characters without keys decide, else the language does.
///
/// Between pairs that are alike the active layout wins, then the one that is configured first.
class LayoutDetection {
public:
    LayoutDetection(const QList<KeyboardLayoutMap>& maps, const QString& activeID);

    /// Absent when no layout has keys for any character of the text.
    std::optional<DetectedLayout> detect(const QString& text) const;

    const LayoutLanguage& language(qsizetype map) const { return m_languages.at(map); }

    /// A longer text is judged by its beginning, of this many UTF-16 units.
    static constexpr qsizetype sampleUnits = 600;

private:
    QList<JudgedTarget> judged(const QList<TypedCharacter>& characters) const;

    QList<KeyboardLayoutMap> m_maps;
    QList<LayoutLanguage> m_languages;
    QString m_activeID;
};

} // namespace quorvel

#pragma once

#include "paste/layouts/LayoutDetection.h"

#include <memory>

namespace quorvel {

enum class VariantLikelihood {
    likely,   ///< Looks like language, and more so than the text as it is.
    possible, ///< In another script, so at least not mistaken for the text as it is.
    unlikely, ///< In the same script, and looks like nothing that anybody meant.
};

/// A text as if it had been typed in another layout.
struct KeyboardLayoutPasteVariant {
    QString targetLayoutID;
    QString layoutName;
    QString value; ///< Never empty, and never the text itself.
    VariantLikelihood likelihood = VariantLikelihood::possible;

    bool operator==(const KeyboardLayoutPasteVariant&) const = default;
};

struct KeyboardLayoutReading {
    QString sourceLayoutID; ///< Empty when no layout is known to be the text's.
    QString sourceLayoutName;

    /// The likeliest one of those that look like language first, then in the order of the
    /// configuration.
    QList<KeyboardLayoutPasteVariant> variants;
};

/// Texts as if they had been typed in another of the configured layouts. Worked out once for each
/// text, until the configuration changes. Main thread only.
class KeyboardLayoutVariants {
public:
    explicit KeyboardLayoutVariants(KeyboardLayouts& layouts);
    ~KeyboardLayoutVariants();

    /// Nothing for a text of blanks, one beyond `mostUnits`, or with fewer than two layouts.
    KeyboardLayoutReading reading(const QString& text) const;

    QList<KeyboardLayoutPasteVariant> variants(const QString& text) const {
        return reading(text).variants;
    }

    static constexpr qsizetype mostUnits = 100'000;

    /// What is kept at most; the texts that were added first go first.
    static constexpr qsizetype cachedTexts = 100;
    static constexpr qsizetype cachedBytes = 4 * 1024 * 1024;

private:
    struct Known;

    KeyboardLayoutReading read(const QString& text) const;
    VariantLikelihood likelihood(const DetectedLayout& detected, qsizetype target) const;
    const LayoutDetection& detection() const;

    KeyboardLayouts& m_layouts;
    const std::unique_ptr<Known> m_known;
    QObject m_receiver; ///< Ends the connection with us.
};

} // namespace quorvel

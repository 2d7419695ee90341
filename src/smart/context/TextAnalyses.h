#pragma once

#include "smart/context/TextAnalysisSnapshot.h"

#include <QHash>
#include <QQueue>

namespace quorvel {

/// Analyses texts, each of them once; the last ones are kept, within bounds of count and memory.
class TextAnalyses {
public:
    /// Keeps the reference.
    explicit TextAnalyses(const DataDetector& detector)
        : m_detector(detector) {}

    TextAnalysisSnapshot snapshot(const QString& text) const;

    static constexpr qsizetype mostTexts = 64;

    /// Of texts and what was found in them; a text that needs more by itself is not kept.
    static constexpr qsizetype mostBytes = 4 * 1024 * 1024;

private:
    void keep(const QString& text, const TextAnalysisSnapshot& snapshot) const;
    void dropOldest() const;

    const DataDetector& m_detector;
    mutable QHash<QString, TextAnalysisSnapshot> m_textAnalysisCache;
    mutable QQueue<QString> m_textAnalysisCacheOrder; ///< The oldest first.
    mutable qsizetype m_bytes = 0;
};

} // namespace quorvel

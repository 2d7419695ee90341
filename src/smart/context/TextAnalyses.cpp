#include "smart/context/TextAnalyses.h"

namespace quorvel {

namespace {

/// Roughly, in bytes, and never too little for what may be large.
qsizetype cost(const QString& text, const TextAnalysisSnapshot& snapshot) {
    constexpr qsizetype perString = sizeof(QString) + 32;
    const qsizetype strings = 2 * snapshot.urlQueryParameters.size() +
                              (snapshot.dotParts ? snapshot.dotParts->size() : 0);
    const qsizetype ranges = snapshot.linkRanges.size() * qsizetype(sizeof(TextRange));
    constexpr qsizetype copies = 3; // the text, the link, its decoded parts
    return qsizetype(sizeof(snapshot)) + copies * text.size() * qsizetype(sizeof(QChar)) +
           strings * perString + ranges;
}

} // namespace

TextAnalysisSnapshot TextAnalyses::snapshot(const QString& text) const {
    if (text.size() > mostAnalysedUnits)
        return {}; // not even its hash is worked out
    const auto known = m_textAnalysisCache.constFind(text);
    if (known != m_textAnalysisCache.constEnd())
        return *known;
    const TextAnalysisSnapshot snapshot = analysedText(text, m_detector);
    keep(text, snapshot);
    return snapshot;
}

void TextAnalyses::keep(const QString& text, const TextAnalysisSnapshot& snapshot) const {
    const qsizetype bytes = cost(text, snapshot);
    if (bytes > mostBytes)
        return;
    while (m_textAnalysisCacheOrder.size() >= mostTexts || m_bytes + bytes > mostBytes)
        dropOldest();
    m_textAnalysisCache.insert(text, snapshot);
    m_textAnalysisCacheOrder.enqueue(text);
    m_bytes += bytes;
}

void TextAnalyses::dropOldest() const {
    const QString oldest = m_textAnalysisCacheOrder.dequeue();
    m_bytes -= cost(oldest, m_textAnalysisCache.take(oldest));
}

} // namespace quorvel

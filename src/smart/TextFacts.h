#pragma once

#include "platform/DataDetector.h"
#include "platform/PersonNameTagger.h"
#include "smart/SmartDetectionUtilities.h"

#include <QUrl>

namespace quorvel {

/// What is known of one text so far; each answer that several tests share is worked out when first
/// asked for, and once.
class TextFacts {
public:
    /// Keeps references to all three.
    TextFacts(const QString& text, const DataDetector& dataDetector,
              const PersonNameTagger& nameTagger)
        : m_text(text)
        , m_dataDetector(dataDetector)
        , m_nameTagger(nameTagger) {}

    /// The tests for the plugins; valid as long as this object.
    SmartDetectionUtilities utilities();

private:
    bool isSingleValue();
    bool hasData(ClipboardAutoTag tag);
    const QString& caseNormalizedText();
    const QString& issueKeyFound();
    bool hasCard();
    const QList<DataMatch>& matches();
    std::optional<QUrl> firstLink();
    bool isIssueTrackerURL();
    bool isPersonName() const;
    bool hasUUIDOutsideLinks();
    bool isJSON() const;

    const QString& m_text;
    const DataDetector& m_dataDetector;
    const PersonNameTagger& m_nameTagger;
    std::optional<bool> m_isSingleValue;
    std::optional<bool> m_hasCard;
    std::optional<QString> m_caseNormalized;
    std::optional<QString> m_issueKey;
    std::optional<QList<DataMatch>> m_matches;
};

} // namespace quorvel

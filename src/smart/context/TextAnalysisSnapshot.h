#pragma once

#include "platform/DataDetector.h"

#include <QStringList>
#include <QUrl>

#include <optional>
#include <utility>

namespace quorvel {

/// A range of a text, in UTF-16 units.
struct TextRange {
    qsizetype start = 0;
    qsizetype length = 0;

    bool operator==(const TextRange&) const = default;
};

/// What can be taken out of a text to be pasted, opened, called or run. What is not there is
/// absent or empty.
struct TextAnalysisSnapshot {
    std::optional<QString> terminalCommand; ///< The whole text without white space around it.
    std::optional<QString> jiraIssueKey;    ///< In upper case.
    std::optional<QString> pullRequestID;   ///< Its digits.
    std::optional<QUrl> url;                ///< The first link that is no e-mail address.
    std::optional<QString> urlHost;         ///< In the script in which it is written.
    std::optional<QString> urlLastSegment;  ///< Of the path, decoded.
    QList<std::pair<QString, QString>> urlQueryParameters; ///< Decoded; values may be empty.
    std::optional<QString> phone;                          ///< "+4930901820"
    std::optional<QString> phoneDigits;      ///< In the form, national or not, that the text has.
    std::optional<QString> phoneCountryCode; ///< "+49"
    std::optional<QString> phoneLocalNumber; ///< "030 901820"
    QList<TextRange> linkRanges;             ///< E-mail addresses are links too.
    std::optional<QStringList> dotParts;     ///< Of the first dotted identifier.
    std::optional<QString> cardDigits;       ///< ASCII digits.
    std::optional<QUrl> mailLink;            ///< "mailto:…" of the first e-mail address.
};

/// Of a longer text (UTF-16 units) nothing is looked at.
inline constexpr qsizetype mostAnalysedUnits = 1024 * 1024;

/// Links and telephone numbers are looked for in so many units of a text of many words: a menu
/// waits for the answer.
inline constexpr qsizetype mostSearchedUnits = 32 * 1024;

/// Takes time in proportion to the text.
TextAnalysisSnapshot analysedText(const QString& text, const DataDetector& detector);

} // namespace quorvel

#pragma once

#include <QList>
#include <QString>

namespace quorvel {

enum class DataKind {
    url,
    email,
    phone,
    date,
    address,
};

/// Something found in a text.
struct DataMatch {
    DataKind kind = DataKind::url;

    /// Range in the text, in UTF-16 units.
    qsizetype start = 0;
    qsizetype length = 0;

    /// The absolute address of a link ("https://…", "mailto:…"), a telephone number in its
    /// international form ("+4930901820"), a date or time in ISO 8601 as far as it is known
    /// ("2024-03-05T14:00"; empty when the text only points at it, like "tomorrow"), a postal
    /// address in one line.
    QString value;

    qsizetype end() const { return start + length; }

    /// E-mail addresses are links too ("mailto:…").
    bool isLink() const { return kind == DataKind::url || kind == DataKind::email; }
};

/// A telephone number taken apart.
struct PhoneParts {
    QString countryCode; ///< "+49"
    QString localNumber; ///< As it is written and dialled inside the country: "030 901820".

    bool operator==(const PhoneParts&) const = default;
};

/// Finds links, e-mail addresses, telephone numbers, dates and postal addresses in running text.
/// Never fails; of a very long text it may look at a part only, and takes time in proportion.
class DataDetector {
public:
    virtual ~DataDetector() = default;

    /// Every match, by start; no two overlap.
    virtual QList<DataMatch> matches(const QString& text) const = 0;

    /// The parts of a telephone number in its international form; both empty for what is none.
    virtual PhoneParts phoneParts(const QString& international) const = 0;
};

} // namespace quorvel

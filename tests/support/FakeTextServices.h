#pragma once

#include "platform/TextServices.h"
#include "smart/SmartDetector.h"

#include <QHash>
#include <QSet>

namespace quorvel::testing {

/// Finds what it was told to find.
class FakeTextServices final : public TextServices, public DataDetector, public PersonNameTagger {
public:
    const DataDetector& dataDetector() const override { return *this; }
    const PersonNameTagger& nameTagger() const override { return *this; }

    QList<DataMatch> matches(const QString&) const override {
        ++detections;
        return found;
    }
    PhoneParts phoneParts(const QString& international) const override {
        return phones.value(international);
    }
    bool hasPersonalName(const QString& text) const override { return names.contains(text); }

    QList<DataMatch> found;
    QHash<QString, PhoneParts> phones; ///< By their international form.
    QSet<QString> names;
    mutable int detections = 0;
};

} // namespace quorvel::testing

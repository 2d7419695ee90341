#pragma once

#include "platform/TextServices.h"
#include "smart/SmartDetector.h"

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
    bool hasPersonalName(const QString& text) const override { return names.contains(text); }

    QList<DataMatch> found;
    QSet<QString> names;
    mutable int detections = 0;
};

} // namespace quorvel::testing

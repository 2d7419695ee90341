#pragma once

#include "platform/DataDetector.h"
#include "platform/text/Region.h"

#include <QList>
#include <QString>

namespace quorvel {

/// What the numbering plans of the world say of one number.
struct PhoneVerdict {
    /// "+4930901820"; empty when no plan has the number.
    QString international;

    /// Lengths of the groups of digits in the country's own way of writing; empty for a number in
    /// international form.
    QList<int> nationalGroups;
};

/// `digits` are ASCII digits, with "+" before them in international form. National numbers are of
/// this country and count only with the prefix that is dialled inside it. The first call loads the
/// plans (about 6 ms).
PhoneVerdict judgePhoneNumber(const QString& digits, const Region& region);

/// The parts of a number with "+" before its ASCII digits; both empty for what no plan can have.
PhoneParts partsOfPhoneNumber(const QString& international);

} // namespace quorvel

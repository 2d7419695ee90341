#include "platform/text/TextDataDetector.h"

#include "platform/text/links/LinkFinder.h"
#include "platform/text/phones/PhoneNumbers.h"

#include <algorithm>

namespace quorvel {

namespace {

/// Which match wins a dispute: links own what is inside them; of the others the longer one, and of
/// two as long the one whose shape is the rarer.
bool isStronger(const DataMatch& a, const DataMatch& b) {
    if (a.isLink() != b.isLink())
        return a.isLink();
    if (a.length != b.length)
        return a.length > b.length;
    return a.kind > b.kind;
}

bool overlaps(const DataMatch& a, const DataMatch& b) {
    return a.start < b.end() && b.start < a.end();
}

/// Keeps the stronger of each two matches that overlap. `found` is by start.
QList<DataMatch> settled(const QList<DataMatch>& found) {
    QList<DataMatch> kept;
    for (const DataMatch& match : found) {
        bool isKept = true;
        while (isKept && !kept.isEmpty() && overlaps(kept.constLast(), match)) {
            if (isStronger(kept.constLast(), match))
                isKept = false;
            else
                kept.removeLast();
        }
        if (isKept)
            kept.append(match);
    }
    return kept;
}

} // namespace

TextDataDetector::TextDataDetector(const Region& region)
    : m_phones(region)
    , m_dates(region) {}

QList<DataMatch> TextDataDetector::matches(const QString& text) const {
    const QStringView looked = QStringView(text).left(mostUnits);
    QList<DataMatch> found;
    findLinks(looked, found);
    m_phones.find(looked, found);
    const Tokens tokens(looked);
    m_dates.find(tokens, found);
    m_addresses.find(tokens, found);
    std::stable_sort(found.begin(), found.end(),
                     [](const DataMatch& a, const DataMatch& b) { return a.start < b.start; });
    return settled(found);
}

PhoneParts TextDataDetector::phoneParts(const QString& international) const {
    return partsOfPhoneNumber(international);
}

} // namespace quorvel

#include "menu/VisibleParts.h"

#include "smart/context/UrlParts.h"
#include "smart/masking/SecretMasker.h"

#include <QStringBuilder>

#include <algorithm>

namespace quorvel {

namespace {

const QString mask = QStringLiteral("••••••");

/// Of a longer text only the part in question, or what is around it, is looked at.
constexpr qsizetype mostUnits = 4096;

/// The range of the text with secrets masked that the whole text shows to be such.
QString visibleRange(const QString& text, const TextRange& range) {
    if (text.size() > mostUnits)
        return maskedSecrets(text.mid(range.start, range.length));
    const QList<SecretRange> secrets = secretsIn(text);
    QString visible;
    qsizetype at = range.start;
    const qsizetype end = range.start + range.length;
    for (const SecretRange& secret : secrets) {
        if (secret.end() <= at || secret.start >= end)
            continue;
        visible += QStringView(text).mid(at, std::max<qsizetype>(0, secret.start - at)) % mask;
        at = std::min(secret.end(), end);
    }
    return visible % QStringView(text).mid(at, end - at);
}

QString digitsOf(QString text) {
    return text.removeIf([](QChar c) { return !c.isDigit(); });
}

} // namespace

VisibleParts::VisibleParts(const QString& text, const TextAnalysisSnapshot& snapshot,
                           Masking masking)
    : m_text(text)
    , m_snapshot(snapshot)
    , m_isMasked(masking == Masking::on) {
    if (!m_isMasked)
        return;
    if (text.size() <= mostUnits)
        m_visibleText = maskedSecrets(text);
    if (snapshot.url)
        readVisibleLink();
}

QString VisibleParts::queryParameter(qsizetype index) const {
    const auto& [name, value] = m_snapshot.urlQueryParameters.at(index);
    const bool isVisible = !m_isMasked || m_visibleParameters.contains(std::pair(name, value));
    return name % u'=' % (isVisible ? value : mask);
}

QString VisibleParts::lastPathSegment() const {
    const QString segment = m_snapshot.urlLastSegment.value_or(QString());
    return !m_isMasked || m_visibleSegment == segment ? segment : mask;
}

QString VisibleParts::dotPart(const QString& part) const {
    return !m_isMasked || m_visibleText.contains(part) ? part : mask;
}

bool VisibleParts::showsReference(const QString& key) const {
    const qsizetype at = m_text.indexOf(key, 0, Qt::CaseInsensitive);
    if (!m_isMasked || at < 0)
        return true;
    if (m_text.size() <= mostUnits)
        return m_visibleText.contains(key, Qt::CaseInsensitive);
    const QString around = m_text.mid(std::max<qsizetype>(0, at - mostUnits / 2), mostUnits);
    return maskedSecrets(around).contains(key, Qt::CaseInsensitive);
}

QString VisibleParts::card(const QString& written) const {
    constexpr qsizetype shownDigits = 4;
    const QString digits = m_snapshot.cardDigits.value_or(QString());
    return !m_isMasked || digitsOf(m_visibleText).contains(digits)
               ? written
               : mask % u' ' % digits.right(shownDigits);
}

void VisibleParts::readVisibleLink() {
    for (const TextRange& range : m_snapshot.linkRanges) {
        const QUrl link = visibleLink(range);
        if (link.isEmpty())
            continue;
        m_visibleSegment = quorvel::lastPathSegment(link);
        for (const auto& [name, value] : encodedQueryParameters(link))
            m_visibleParameters.append({decodedQueryText(name), decodedQueryText(value)});
        return;
    }
}

/// The snapshot's link as it may be shown, if it is the one that stands here; else an empty one.
QUrl VisibleParts::visibleLink(const TextRange& range) const {
    const QString written = m_text.mid(range.start, range.length);
    for (const QString& scheme : {QString(), QStringLiteral("http://")})
        if (urlFromLink(scheme + written) == *m_snapshot.url)
            return urlFromLink(scheme + visibleRange(m_text, range));
    return {};
}

} // namespace quorvel

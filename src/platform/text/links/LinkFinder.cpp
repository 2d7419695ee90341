#include "platform/text/links/LinkFinder.h"

#include "platform/text/links/Hosts.h"
#include "platform/text/links/LinkExtent.h"
#include "platform/text/links/MailAddress.h"

#include <algorithm>
#include <array>
#include <optional>

namespace quorvel {

namespace {

using Match = std::optional<DataMatch>;

/// Schemes without "//" that people copy.
constexpr std::array opaqueSchemes{QStringView(u"mailto"), QStringView(u"magnet"),
                                   QStringView(u"sip"), QStringView(u"sips"), QStringView(u"xmpp")};

/// Schemes that may come without a host.
constexpr std::array hostlessSchemes{QStringView(u"file"), QStringView(u"about"),
                                     QStringView(u"chrome"), QStringView(u"resource")};

/// Schemes of the web, whose hosts are looked at closely.
constexpr std::array hostSchemes{QStringView(u"http"), QStringView(u"https"), QStringView(u"ftp"),
                                 QStringView(u"ftps"), QStringView(u"ws"),    QStringView(u"wss")};

template <std::size_t count>
bool contains(const std::array<QStringView, count>& names, QStringView name) {
    return std::any_of(names.begin(), names.end(), [name](QStringView known) {
        return known.compare(name, Qt::CaseInsensitive) == 0;
    });
}

bool isAsciiLetter(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool isSchemeUnit(QChar c) {
    return isAsciiLetter(c) || (c >= u'0' && c <= u'9') || c == u'+' || c == u'-' || c == u'.';
}

qsizetype startOfScheme(QStringView text, qsizetype colon, qsizetype from) {
    constexpr qsizetype mostUnits = 32;
    qsizetype start = colon;
    while (start > from && colon - start < mostUnits && isSchemeUnit(text[start - 1]))
        --start;
    while (start < colon && !isAsciiLetter(text[start]))
        ++start;
    return start;
}

/// The host between "://" and what follows it, without user name and port.
QStringView hostPart(QStringView rest) {
    const auto delimiter = std::find_if(
        rest.begin(), rest.end(), [](QChar c) { return c == u'/' || c == u'?' || c == u'#'; });
    QStringView authority = rest.first(delimiter - rest.begin());
    authority = authority.sliced(authority.lastIndexOf(u'@') + 1);
    if (authority.startsWith(u'['))
        return authority.first(authority.indexOf(u']') + 1);
    const qsizetype colon = authority.indexOf(u':');
    return colon < 0 ? authority : authority.first(colon);
}

/// One dot at the end of a host is its root.
QStringView withoutRootDot(QStringView host) {
    return host.endsWith(u'.') ? host.chopped(1) : host;
}

/// Scheme, "://" and more around the colon at this position.
Match hierarchicalLink(QStringView text, qsizetype colon, qsizetype from) {
    const qsizetype start = startOfScheme(text, colon, from);
    if (start == colon)
        return std::nullopt;
    const qsizetype rest = colon + 3;
    const qsizetype end = endOfLink(text, rest, text.size());
    const QStringView scheme = text.sliced(start, colon - start);
    const QStringView body = text.sliced(rest, end - rest);
    const QStringView host = withoutRootDot(hostPart(body));
    const bool isHostless = contains(hostlessSchemes, scheme) && body.startsWith(u'/');
    const bool isWeb = contains(hostSchemes, scheme);
    if (!isHostless && (body.isEmpty() || (isWeb && !isHost(host)) || body.startsWith(u'$')))
        return std::nullopt;
    return DataMatch{DataKind::url, start, end - start, text.sliced(start, end - start).toString()};
}

/// "mailto:…" and others that have no "//".
Match opaqueLink(QStringView text, qsizetype colon, qsizetype from) {
    const qsizetype start = startOfScheme(text, colon, from);
    const QStringView scheme = text.sliced(start, colon - start);
    if (!contains(opaqueSchemes, scheme))
        return std::nullopt;
    const qsizetype end = endOfLink(text, colon + 1, text.size());
    const QStringView body = text.sliced(colon + 1, end - colon - 1);
    const bool isMail = scheme.startsWith(u'm', Qt::CaseInsensitive) && scheme.size() == 6 &&
                        scheme.endsWith(u'o', Qt::CaseInsensitive);
    if (body.isEmpty() || (isMail && !body.contains(u'@')) ||
        (!isMail && !body.contains(u'@') && !body.startsWith(u'?')))
        return std::nullopt;
    const QString value = isMail ? QLatin1String("mailto:") + body.toString()
                                 : text.sliced(start, end - start).toString();
    return DataMatch{isMail ? DataKind::email : DataKind::url, start, end - start, value};
}

bool isHostUnit(QChar c) {
    return c.unicode() < 0x80 ? isAsciiLetter(c) || (c >= u'0' && c <= u'9') || c == u'-'
                              : c.isLetterOrNumber() || c.isMark() || c.isSurrogate();
}

/// Where the name of hosts around a dot begins and ends.
struct NameRange {
    qsizetype start;
    qsizetype end;
};

NameRange nameAround(QStringView text, qsizetype dot, qsizetype from) {
    NameRange range{dot, dot};
    while (range.start > from &&
           (isHostUnit(text[range.start - 1]) || text[range.start - 1] == u'.'))
        --range.start;
    while (range.end < text.size() && (isHostUnit(text[range.end]) || text[range.end] == u'.'))
        ++range.end;
    return range;
}

NameRange withoutDotsAround(QStringView text, NameRange range) {
    while (range.end > range.start && QStringView(u".-").contains(text[range.end - 1]))
        --range.end;
    while (range.start < range.end && QStringView(u".-").contains(text[range.start]))
        ++range.start;
    return range;
}

/// A last label of ASCII that runs into a sentence of another script ends where that begins; a
/// first one of that script may run into the name in the same way.
NameRange withinOneScript(QStringView text, NameRange range) {
    const QStringView name = text.sliced(range.start, range.end - range.start);
    const qsizetype lastLabel = range.start + name.lastIndexOf(u'.') + 1;
    qsizetype cut = lastLabel;
    while (cut < range.end && text[cut].unicode() < 0x80)
        ++cut;
    if (cut > lastLabel && cut < range.end)
        range.end = cut;
    const auto isEastAsian = [](QChar c) { return c >= QChar(0x3040) && c <= QChar(0x9FFF); };
    if (range.end > lastLabel && text[lastLabel].unicode() < 0x80)
        while (range.start < lastLabel && isEastAsian(text[range.start]))
            ++range.start;
    return range;
}

/// What directly before a name says that it is a part of something else.
bool isPartOfSomethingBefore(QStringView text, qsizetype start) {
    if (start == 0)
        return false;
    const QChar before = text[start - 1];
    return QStringView(u"@/\\_$#.-%").contains(before) || before == u'&' || before == u'~';
}

bool isPartOfSomethingAfter(QStringView text, qsizetype end) {
    if (end >= text.size())
        return false;
    const QChar next = text[end];
    if (next == u':')
        return end + 1 < text.size() && text[end + 1] == u':';
    return QStringView(u"(_@\\=[{$%+").contains(next);
}

/// Where ":8080" ends; the position itself when there is none.
qsizetype endOfPort(QStringView text, qsizetype position) {
    constexpr qsizetype mostDigits = 5;
    if (position >= text.size() || text[position] != u':')
        return position;
    qsizetype end = position + 1;
    while (end < text.size() && text[end] >= u'0' && text[end] <= u'9')
        ++end;
    const qsizetype digits = end - position - 1;
    return digits >= 2 && digits <= mostDigits ? end : position;
}

Match bareLink(QStringView text, qsizetype dot, qsizetype from, qsizetype& lookedAtUntil) {
    const NameRange whole = nameAround(text, dot, from);
    lookedAtUntil = whole.end;
    const NameRange range = withinOneScript(text, withoutDotsAround(text, whole));
    if (whole.start != range.start && text[range.start - 1] == u'.')
        return std::nullopt;
    const BareHost judged = judgeBareHost(text.sliced(range.start, range.end - range.start));
    if (judged == BareHost::no || isPartOfSomethingBefore(text, range.start) ||
        isPartOfSomethingAfter(text, range.end))
        return std::nullopt;
    const qsizetype hostEnd = endOfPort(text, range.end);
    const bool goesOn = hostEnd < text.size() && QStringView(u"/?#").contains(text[hostEnd]);
    const qsizetype end =
        goesOn ? std::max(hostEnd, endOfLink(text, hostEnd, text.size())) : hostEnd;
    const bool hasPath = end > hostEnd && text[hostEnd] == u'/';
    if (judged == BareHost::withPath && !hasPath)
        return std::nullopt;
    const QStringView link = text.sliced(range.start, end - range.start);
    return DataMatch{DataKind::url, range.start, link.size(),
                     QLatin1String("http://") + link.toString()};
}

/// Walks over the places where a link can be recognised.
class Search {
public:
    Search(QStringView text, QList<DataMatch>& found)
        : m_text(text)
        , m_found(found) {}

    void run() {
        while (m_position < m_text.size()) {
            const QChar c = m_text[m_position];
            Match match;
            if (c == u':')
                match = aroundColon();
            else if (c == u'@')
                match = mailAddressAround(m_text, m_position, m_taken);
            else if (c == u'.' && m_position >= m_lookedAt)
                match = isMailAhead() ? std::nullopt
                                      : bareLink(m_text, m_position, m_taken, m_lookedAt);
            if (match)
                take(*match);
            else
                ++m_position;
        }
    }

private:
    Match aroundColon() const {
        const QStringView rest = m_text.sliced(m_position);
        return rest.startsWith(u"://") ? hierarchicalLink(m_text, m_position, m_taken)
                                       : opaqueLink(m_text, m_position, m_taken);
    }

    /// Whether this dot stands before an "@" and belongs to a mailbox.
    bool isMailAhead() const {
        qsizetype end = m_position;
        while (end < m_text.size() && end - m_position < 64 &&
               (isHostUnit(m_text[end]) || QStringView(u"._+").contains(m_text[end])))
            ++end;
        return end < m_text.size() && m_text[end] == u'@';
    }

    void take(const DataMatch& match) {
        m_found.append(match);
        m_taken = match.end();
        m_position = std::max(m_position + 1, match.end());
        m_lookedAt = std::max(m_lookedAt, m_position);
    }

    QStringView m_text;
    QList<DataMatch>& m_found;
    qsizetype m_position = 0;
    qsizetype m_taken = 0;
    qsizetype m_lookedAt = 0;
};

} // namespace

void findLinks(QStringView text, QList<DataMatch>& found) {
    Search(text, found).run();
}

} // namespace quorvel

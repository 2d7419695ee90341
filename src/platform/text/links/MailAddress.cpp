#include "platform/text/links/MailAddress.h"

#include "platform/text/links/Hosts.h"
#include "platform/text/links/LinkExtent.h"

namespace quorvel {

namespace {

bool isLetterOrDigit(QChar c) {
    return c.isLetterOrNumber() || c.isMark() || c.isSurrogate();
}

/// What mailboxes are named with in practice; quoted local parts are not looked for.
bool isLocalUnit(QChar c) {
    return isLetterOrDigit(c) || QStringView(u"._%+-'&=~!#$*/").contains(c);
}

bool startsMailbox(QChar c) {
    return c.isLetterOrNumber() || c.isSurrogate() || c == u'_' || c == u'+';
}

/// A sentence of another script may run into a mailbox of ASCII: "请发邮件至a@b.cn".
qsizetype withoutLeadingScript(QStringView text, qsizetype start, qsizetype at) {
    const auto isEastAsian = [](QChar c) { return c >= QChar(0x2E80) && c <= QChar(0xD7FF); };
    qsizetype cut = at;
    while (cut > start && !isEastAsian(text[cut - 1]))
        --cut;
    return cut < at ? cut : start;
}

qsizetype startOfLocalPart(QStringView text, qsizetype at, qsizetype from) {
    constexpr qsizetype mostUnits = 64;
    qsizetype start = at;
    while (start > from && at - start <= mostUnits && isLocalUnit(text[start - 1]))
        --start;
    if (at - start > mostUnits)
        return at;
    // What stands before a separator is no part of the mailbox: "name=a@b.org", "to:'a@b.org'".
    for (const QChar separator : {u'=', u'/', u'\'', u'!', u'#', u'$', u'*', u'&', u'~'})
        if (const auto last = text.sliced(start, at - start).lastIndexOf(separator);
            last >= 0 && (separator != u'\'' || last == 0) && (separator != u'&' || last == 0))
            start += last + 1;
    while (start < at && !startsMailbox(text[start]))
        ++start;
    return withoutLeadingScript(text, start, at);
}

bool isLocalPart(QStringView local) {
    return !local.isEmpty() && local.back() != u'.' && !local.contains(u"..");
}

qsizetype endOfDomain(QStringView text, qsizetype start) {
    qsizetype end = start;
    while (end < text.size() &&
           (isLetterOrDigit(text[end]) || text[end] == u'.' || text[end] == u'-'))
        ++end;
    while (end > start && (text[end - 1] == u'.' || text[end - 1] == u'-'))
        --end;
    return end;
}

/// The last label may run into a sentence of another script: "a@b.comまで".
qsizetype withoutFollowingScript(QStringView text, qsizetype start, qsizetype end) {
    const qsizetype dot = text.sliced(start, end - start).lastIndexOf(u'.');
    if (dot < 0)
        return end;
    qsizetype cut = start + dot + 1;
    const qsizetype label = cut;
    while (cut < end && text[cut].unicode() < 0x80)
        ++cut;
    return cut > label && cut < end ? cut : end;
}

/// "user@host:path" names a file on another machine, "name@host/…" a part of a link or a package.
bool isGoneOn(QStringView text, qsizetype end) {
    if (end >= text.size())
        return false;
    const QChar next = text[end];
    const QChar afterNext = end + 1 < text.size() ? text[end + 1] : QChar();
    if (next == u':')
        return afterNext.isLetter() || afterNext == u'/' || afterNext == u'~' || afterNext == u'.';
    return next == u'@' || next == u'/' || next == u'\\' || next == u'(' || next == u'_';
}

} // namespace

std::optional<DataMatch> mailAddressAround(QStringView text, qsizetype at, qsizetype from) {
    const qsizetype start = startOfLocalPart(text, at, from);
    const bool isHandle = start > 0 && text[start - 1] == u'@';
    if (isHandle || !isLocalPart(text.sliced(start, at - start)))
        return std::nullopt;
    const qsizetype end = withoutFollowingScript(text, at + 1, endOfDomain(text, at + 1));
    if (!isMailDomain(text.sliced(at + 1, end - at - 1)) || isGoneOn(text, end))
        return std::nullopt;
    return DataMatch{DataKind::email, start, end - start,
                     QLatin1String("mailto:") + text.sliced(start, end - start).toString()};
}

} // namespace quorvel

#include "platform/text/links/Hosts.h"

#include <libpsl.h>

#include <QStringTokenizer>

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

constexpr qsizetype mostLabelUnits = 63;

/// Top-level domains that are better known as the endings of files.
constexpr std::array fileEndings{
    QStringView(u"ac"),  QStringView(u"ai"),   QStringView(u"bat"), QStringView(u"bin"),
    QStringView(u"bz"),  QStringView(u"cab"),  QStringView(u"cat"), QStringView(u"cc"),
    QStringView(u"cfg"), QStringView(u"dev"),  QStringView(u"dot"), QStringView(u"gdn"),
    QStringView(u"gz"),  QStringView(u"java"), QStringView(u"lua"), QStringView(u"man"),
    QStringView(u"md"),  QStringView(u"ml"),   QStringView(u"mm"),  QStringView(u"mov"),
    QStringView(u"ph"),  QStringView(u"pl"),   QStringView(u"pm"),  QStringView(u"ps"),
    QStringView(u"pub"), QStringView(u"py"),   QStringView(u"rs"),  QStringView(u"sc"),
    QStringView(u"sh"),  QStringView(u"so"),   QStringView(u"st"),  QStringView(u"sv"),
    QStringView(u"tf"),  QStringView(u"vi"),   QStringView(u"zip"), QStringView(u"properties"),
};

/// Of those, what companies and countries use so much that a name alone is more likely a link when
/// it does not look like a file's.
constexpr std::array sharedEndings{
    QStringView(u"ac"), QStringView(u"ai"), QStringView(u"cc"),  QStringView(u"dev"),
    QStringView(u"pl"), QStringView(u"ph"), QStringView(u"ml"),  QStringView(u"st"),
    QStringView(u"sc"), QStringView(u"sv"), QStringView(u"cat"),
};

/// Names of files and folders that developers' texts are full of.
constexpr std::array fileStems{
    QStringView(u"main"),       QStringView(u"lib"),        QStringView(u"mod"),
    QStringView(u"index"),      QStringView(u"readme"),     QStringView(u"test"),
    QStringView(u"tests"),      QStringView(u"setup"),      QStringView(u"config"),
    QStringView(u"configure"),  QStringView(u"install"),    QStringView(u"build"),
    QStringView(u"run"),        QStringView(u"start"),      QStringView(u"utils"),
    QStringView(u"util"),       QStringView(u"script"),     QStringView(u"makefile"),
    QStringView(u"logo"),       QStringView(u"changelog"),  QStringView(u"license"),
    QStringView(u"dockerfile"), QStringView(u"cmakelists"), QStringView(u"package"),
};

/// Top-level domains that are ordinary words and stand after a dot in source code and slips.
constexpr std::array memberWords{
    QStringView(u"active"),    QStringView(u"app"),        QStringView(u"bar"),
    QStringView(u"bid"),       QStringView(u"black"),      QStringView(u"blue"),
    QStringView(u"box"),       QStringView(u"call"),       QStringView(u"channel"),
    QStringView(u"click"),     QStringView(u"cloud"),      QStringView(u"contact"),
    QStringView(u"core"),      QStringView(u"data"),       QStringView(u"date"),
    QStringView(u"day"),       QStringView(u"db"),         QStringView(u"domains"),
    QStringView(u"email"),     QStringView(u"events"),     QStringView(u"fail"),
    QStringView(u"family"),    QStringView(u"final"),      QStringView(u"fit"),
    QStringView(u"foo"),       QStringView(u"game"),       QStringView(u"global"),
    QStringView(u"green"),     QStringView(u"group"),      QStringView(u"help"),
    QStringView(u"host"),      QStringView(u"hosting"),    QStringView(u"id"),
    QStringView(u"info"),      QStringView(u"is"),         QStringView(u"link"),
    QStringView(u"media"),     QStringView(u"menu"),       QStringView(u"name"),
    QStringView(u"network"),   QStringView(u"new"),        QStringView(u"ninja"),
    QStringView(u"am"),        QStringView(u"next"),       QStringView(u"now"),
    QStringView(u"off"),       QStringView(u"one"),        QStringView(u"open"),
    QStringView(u"page"),      QStringView(u"parts"),      QStringView(u"phone"),
    QStringView(u"photo"),     QStringView(u"pink"),       QStringView(u"place"),
    QStringView(u"play"),      QStringView(u"plus"),       QStringView(u"post"),
    QStringView(u"prod"),      QStringView(u"properties"), QStringView(u"read"),
    QStringView(u"red"),       QStringView(u"rest"),       QStringView(u"review"),
    QStringView(u"reviews"),   QStringView(u"room"),       QStringView(u"run"),
    QStringView(u"safe"),      QStringView(u"save"),       QStringView(u"search"),
    QStringView(u"select"),    QStringView(u"services"),   QStringView(u"show"),
    QStringView(u"solutions"), QStringView(u"space"),      QStringView(u"spot"),
    QStringView(u"stream"),    QStringView(u"style"),      QStringView(u"systems"),
    QStringView(u"target"),    QStringView(u"team"),       QStringView(u"tools"),
    QStringView(u"top"),       QStringView(u"video"),      QStringView(u"watch"),
    QStringView(u"win"),       QStringView(u"work"),       QStringView(u"works"),
    QStringView(u"world"),     QStringView(u"zero"),
};

/// Of those, what is registered so much that a name alone is a link unless code says otherwise.
constexpr std::array popularWords{
    QStringView(u"app"),      QStringView(u"info"),      QStringView(u"cloud"),
    QStringView(u"is"),       QStringView(u"space"),     QStringView(u"top"),
    QStringView(u"world"),    QStringView(u"one"),       QStringView(u"page"),
    QStringView(u"team"),     QStringView(u"media"),     QStringView(u"email"),
    QStringView(u"link"),     QStringView(u"tools"),     QStringView(u"run"),
    QStringView(u"services"), QStringView(u"solutions"), QStringView(u"network"),
    QStringView(u"group"),    QStringView(u"help"),      QStringView(u"work"),
    QStringView(u"works"),    QStringView(u"systems"),
};

/// What stands before the dot in source code and style sheets.
constexpr std::array codeObjects{
    QStringView(u"a"),        QStringView(u"app"),     QStringView(u"args"),
    QStringView(u"array"),    QStringView(u"body"),    QStringView(u"btn"),
    QStringView(u"button"),   QStringView(u"card"),    QStringView(u"cfg"),
    QStringView(u"child"),    QStringView(u"client"),  QStringView(u"cls"),
    QStringView(u"config"),   QStringView(u"console"), QStringView(u"ctx"),
    QStringView(u"data"),     QStringView(u"df"),      QStringView(u"div"),
    QStringView(u"document"), QStringView(u"e"),       QStringView(u"el"),
    QStringView(u"element"),  QStringView(u"event"),   QStringView(u"evt"),
    QStringView(u"file"),     QStringView(u"foo"),     QStringView(u"form"),
    QStringView(u"h1"),       QStringView(u"h2"),      QStringView(u"h3"),
    QStringView(u"hello"),    QStringView(u"html"),    QStringView(u"i"),
    QStringView(u"img"),      QStringView(u"input"),   QStringView(u"item"),
    QStringView(u"key"),      QStringView(u"li"),      QStringView(u"list"),
    QStringView(u"log"),      QStringView(u"logger"),  QStringView(u"map"),
    QStringView(u"math"),     QStringView(u"menu"),    QStringView(u"model"),
    QStringView(u"module"),   QStringView(u"nav"),     QStringView(u"node"),
    QStringView(u"np"),       QStringView(u"obj"),     QStringView(u"object"),
    QStringView(u"order"),    QStringView(u"os"),      QStringView(u"p"),
    QStringView(u"parent"),   QStringView(u"path"),    QStringView(u"pd"),
    QStringView(u"person"),   QStringView(u"plt"),     QStringView(u"process"),
    QStringView(u"product"),  QStringView(u"props"),   QStringView(u"req"),
    QStringView(u"request"),  QStringView(u"res"),     QStringView(u"response"),
    QStringView(u"result"),   QStringView(u"row"),     QStringView(u"self"),
    QStringView(u"server"),   QStringView(u"socket"),  QStringView(u"span"),
    QStringView(u"state"),    QStringView(u"str"),     QStringView(u"string"),
    QStringView(u"super"),    QStringView(u"sys"),     QStringView(u"system"),
    QStringView(u"table"),    QStringView(u"td"),      QStringView(u"tf"),
    QStringView(u"this"),     QStringView(u"tr"),      QStringView(u"ul"),
    QStringView(u"user"),     QStringView(u"value"),   QStringView(u"window"),
    QStringView(u"x"),
};

/// Names of software that are written like hosts.
constexpr std::array productNames{
    QStringView(u"asp.net"), QStringView(u"vb.net"),    QStringView(u"ado.net"),
    QStringView(u"ml.net"),  QStringView(u"socket.io"), QStringView(u"paint.net"),
};

/// What the names of packages begin with, written the other way round.
constexpr std::array packageRoots{QStringView(u"com"), QStringView(u"org"), QStringView(u"net"),
                                  QStringView(u"io"),  QStringView(u"edu"), QStringView(u"gov"),
                                  QStringView(u"java")};

/// What everybody takes for a link, whatever stands before it.
constexpr std::array plainDomains{QStringView(u"com"), QStringView(u"org"), QStringView(u"net"),
                                  QStringView(u"edu"), QStringView(u"gov")};

template <std::size_t count>
bool contains(const std::array<QStringView, count>& names, QStringView name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool isLabelUnit(QChar c) {
    const char16_t u = c.unicode();
    if (u < 0x80)
        return (u >= u'a' && u <= u'z') || (u >= u'A' && u <= u'Z') || (u >= u'0' && u <= u'9') ||
               u == u'-' || u == u'_';
    return c.isLetterOrNumber() || c.isMark() || c.isSurrogate();
}

bool isLabel(QStringView label) {
    return !label.isEmpty() && label.size() <= mostLabelUnits && label.front() != u'-' &&
           label.back() != u'-' && std::all_of(label.begin(), label.end(), isLabelUnit);
}

bool areLabels(QStringView host) {
    constexpr qsizetype mostHostUnits = 253;
    if (host.size() > mostHostUnits)
        return false;
    for (const QStringView label : host.tokenize(u'.'))
        if (!isLabel(label))
            return false;
    return true;
}

bool isAddressInBrackets(QStringView host) {
    return host.size() > 3 && host.front() == u'[' && host.back() == u']' && host.contains(u':');
}

bool isAllDigits(QStringView label) {
    return std::all_of(label.begin(), label.end(), [](QChar c) { return c.isDigit(); });
}

/// "userData", but neither "USER" nor "User".
bool isCamelCase(QStringView label) {
    for (qsizetype i = 1; i < label.size(); ++i)
        if (label[i].isUpper() && label[i - 1].isLower())
            return true;
    return false;
}

bool isAllUpper(QStringView text) {
    return std::none_of(text.begin(), text.end(), [](QChar c) { return c.isLower(); });
}

/// A word begun with a capital after the dot is the next sentence.
bool endsLikeNextSentence(QStringView host, QStringView last) {
    return last.front().isUpper() && !isAllUpper(host);
}

struct Labels {
    QString first;
    QString second; // the one before the last
    QString last;
    qsizetype count = 0;
};

Labels labelsOf(const QString& host) {
    const qsizetype lastDot = host.lastIndexOf(u'.');
    const qsizetype dotBefore = host.lastIndexOf(u'.', lastDot - host.size() - 1);
    Labels labels;
    labels.last = host.mid(lastDot + 1);
    labels.second = host.mid(dotBefore + 1, lastDot - dotBefore - 1);
    labels.first = host.left(host.indexOf(u'.'));
    labels.count = host.count(u'.') + 1;
    return labels;
}

bool isMember(QStringView last) {
    return contains(memberWords, last);
}

BareHost judgeEnding(const Labels& labels) {
    const bool isNested = labels.count > 2;
    const bool isCodeObject = contains(codeObjects, labels.second);
    if (contains(fileEndings, labels.last)) {
        const bool isShared = contains(sharedEndings, labels.last);
        const bool looksLikeFile = contains(fileStems, labels.second) || isCodeObject;
        return isShared && !looksLikeFile ? BareHost::yes : BareHost::withPath;
    }
    if (isCodeObject && !isNested)
        return BareHost::withPath;
    if (contains(memberWords, labels.last) && !isNested)
        return contains(popularWords, labels.last) ? BareHost::yes : BareHost::withPath;
    return BareHost::yes;
}

bool isListed(QStringView suffix) {
    constexpr int listed = PSL_TYPE_ICANN | PSL_TYPE_NO_STAR_RULE;
    const QByteArray name = suffix.toString().toLower().toUtf8();
    return psl_is_public_suffix2(psl_builtin(), name.constData(), listed) != 0;
}

} // namespace

bool hasPublicSuffix(QStringView host) {
    const QStringView last = host.sliced(host.lastIndexOf(u'.') + 1);
    const QStringView before = host.chopped(last.size() + 1);
    // Of some countries only the second level is listed: "co.za".
    return isListed(last) || isListed(host.sliced(before.lastIndexOf(u'.') + 1));
}

bool isHost(QStringView host) {
    return isAddressInBrackets(host) || areLabels(host);
}

bool isMailDomain(QStringView domain) {
    const qsizetype dot = domain.lastIndexOf(u'.');
    return dot > 0 && !domain.contains(u'_') && areLabels(domain) && hasPublicSuffix(domain);
}

BareHost judgeBareHost(QStringView host) {
    const qsizetype dot = host.lastIndexOf(u'.');
    if (dot <= 0 || !areLabels(host))
        return BareHost::no;
    const QStringView last = host.sliced(dot + 1);
    if (isAllDigits(last) || endsLikeNextSentence(host, last) || !hasPublicSuffix(host))
        return BareHost::no;
    const QString lower = host.toString().toLower();
    const Labels labels = labelsOf(lower);
    if (contains(productNames, lower))
        return BareHost::no;
    if (labels.first == u"www")
        return BareHost::yes;
    if (contains(plainDomains, labels.last))
        return BareHost::yes;
    if (labels.count > 2 && (contains(packageRoots, labels.first) ||
                             (contains(codeObjects, labels.first) && isMember(labels.last))))
        return BareHost::no;
    if (isCamelCase(host) || isAllDigits(labels.second))
        return BareHost::withPath;
    return judgeEnding(labels);
}

} // namespace quorvel

#include "smart/masking/PublicForms.h"

#include "smart/masking/CharacterBits.h"

#include <QByteArray>

#include <algorithm>

namespace quorvel {

namespace {

/// What is named by such a word is public, or no secret.
constexpr QStringView publicNames[] = {
    u"sha",      u"hash",   u"digest",   u"integrity",  u"pub",   u"fingerprint", u"checksum",
    u"etag",     u"md5",    u"h1:",      u"base64,",    u"ssh-",  u"ecdsa",       u"nonce",
    u"boundary", u"cert",   u"revision", u"build",      u"guid",  u"uuid",        u"request",
    u"trace",    u"cursor", u"object",   u"document",   u"class", u"href",        u"src",
    u"commit",   u"cid",    u"address",  u"wallet",     u"txid",  u"peer",        u"version",
    u"verif",    u"acme",   u" txt ",    u"base64",     u"site-", u"domain",      u"atob",
    u"btoa",     u"model",  u"font",     u"playlist",   u"video", u"channel",     u"dkim",
    u"node_id",  u"pin-",   u"btih",     u"message-id", u"sri",   u"x5t",         u"kid",
};

/// Beginnings of digests, public keys, encoded files and ids.
constexpr QStringView publicBeginnings[] = {
    u"AAAA",      u"_Z",          u"pk_",     u"phc_",    u"0x",         u"0X",      u"sha1-",
    u"sha256-",   u"sha384-",     u"sha512-", u"md5-",    u"xpub",       u"ypub",    u"zpub",
    u"tpub",      u"vpub",        u"upub",    u"age1",    u"npub1",      u"note1",   u"nevent1",
    u"nprofile1", u"bc1",         u"tb1",     u"ltc1",    u"addr1",      u"cosmos1", u"lnbc",
    u"bafy",      u"iVBORw0KGgo", u"/9j/",    u"R0lGOD",  u"UklGR",      u"JVBERi0", u"UEsDB",
    u"H4sI",      u"PHN2Zy",      u"PD94bWw", u"T2dnU",   u"AAAAIGZ0eX", u"d09GMg",  u"d09GRg",
    u"MII",       u"UExU",        u"Qk0",     u"{SSHA}",  u"{SHA}",      u"{CRYPT}", u"$2a$",
    u"$2b$",      u"$2y$",        u"$argon2", u"$1$",     u"$5$",        u"$6$",     u"$y$",
    u"$7$",       u"$scrypt$",    u"$pbkdf2", u"pbkdf2_", u"bcrypt$",    u"GA1.",
};

/// Such a prefix and a short body name a record of a service.
constexpr QStringView recordPrefixes[] = {
    u"in",     u"pi",        u"ch",    u"cus",   u"sub",  u"evt",    u"acct",  u"pm",
    u"price",  u"prod",      u"card",  u"src",   u"req",  u"txn",    u"seti",  u"si",
    u"ba",     u"po",        u"tr",    u"ii",    u"il",   u"plan",   u"prv",   u"dp",
    u"du",     u"fr",        u"or",    u"sku",   u"link", u"plink",  u"cs",    u"mandate",
    u"promo",  u"coupon",    u"file",  u"msg",   u"run",  u"thread", u"asst",  u"user",
    u"org",    u"team",      u"proj",  u"prj",   u"dpl",  u"inv",    u"order", u"session",
    u"call",   u"chatcmpl",  u"toolu", u"batch", u"step", u"vs",     u"resp",  u"job",
    u"task",   u"flow",      u"event", u"doc",   u"page", u"item",   u"pay",   u"ref",
    u"refund", u"re",        u"rec",   u"usr",   u"cust", u"wh",     u"we",    u"cn",
    u"txr",    u"sub_sched", u"qt",    u"iauth", u"ich",  u"pmc",    u"tax",   u"id",
};

constexpr qsizetype mostRecordBody = 30;

bool isRecordId(QStringView run) {
    const qsizetype mark = run.indexOf(u'_');
    const qsizetype at = mark > 0 ? mark : run.indexOf(u'-');
    if (at < 2 || run.size() - at - 1 > mostRecordBody)
        return false;
    return std::ranges::find(recordPrefixes, run.left(at)) != std::end(recordPrefixes);
}

bool isBase58(QStringView run) {
    return std::ranges::all_of(run, [](QChar unit) {
        return isAsciiAlphanumeric(unit) && unit != u'0' && unit != u'O' && unit != u'I' &&
               unit != u'l';
    });
}

/// Addresses of payments; random characters of that length rarely spare all four look-alikes.
bool isChainAddress(QStringView run) {
    const bool isShort =
        run.size() >= 26 && run.size() <= 35 && QStringView(u"13LDXrTt").contains(run.front());
    const bool isLong = run.size() == 43 || run.size() == 44 || run.startsWith(u"Qm");
    return (isShort || isLong) && isBase58(run);
}

/// Rows of a chess board.
bool isBoard(QStringView run) {
    return run.count(u'/') == 7 && std::ranges::all_of(run, [](QChar unit) {
               return QStringView(u"pnbrqkPNBRQK12345678/").contains(unit);
           });
}

bool isReadable(char unit) {
    return (unit >= ' ' && unit < 127) || unit == '\n' || unit == '\t' || unit == '\r';
}

/// Keys become noise when they are decoded, texts become readable.
bool isEncodedText(QStringView run) {
    constexpr qsizetype least = 8;
    const bool isUrl = run.contains(u'-') || run.contains(u'_');
    const auto alphabet = isUrl ? QByteArray::Base64UrlEncoding : QByteArray::Base64Encoding;
    const QByteArray decoded = QByteArray::fromBase64(run.toLatin1(), alphabet);
    return decoded.size() >= least && std::all_of(decoded.begin(), decoded.end(), isReadable);
}

template <size_t size>
bool holdsAny(QStringView text, const QStringView (&names)[size]) {
    return std::ranges::any_of(
        names, [text](QStringView name) { return text.contains(name, Qt::CaseInsensitive); });
}

} // namespace

bool isPublicForm(QStringView run) {
    const bool beginsPublic = std::ranges::any_of(
        publicBeginnings, [run](QStringView beginning) { return run.startsWith(beginning); });
    return beginsPublic || isRecordId(run) || isChainAddress(run) || isBoard(run) ||
           isEncodedText(run);
}

bool isNamedPublic(QStringView text, qsizetype start, qsizetype end) {
    constexpr qsizetype reach = 40;
    constexpr qsizetype reachBehind = 16;
    const qsizetype from = qMax(qsizetype(0), start - reach);
    QStringView before = text.mid(from, start - from);
    before = before.mid(before.lastIndexOf(u'\n') + 1);
    return holdsAny(before, publicNames) ||
           text.mid(end, reachBehind).contains(u"base64", Qt::CaseInsensitive);
}

} // namespace quorvel

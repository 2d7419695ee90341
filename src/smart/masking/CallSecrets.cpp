#include "smart/masking/CallSecrets.h"

#include "smart/masking/CharacterBits.h"
#include "smart/masking/PlaceholderWords.h"
#include "smart/masking/ValueCandidate.h"

#include <algorithm>

namespace quorvel {

namespace {

/// Ends of names of functions whose last argument is a password; lower case.
constexpr QStringView signingNames[] = {
    u"auth",
    u"basicauth",
    u"basic_auth",
    u"digestauth",
    u"networkcredential",
    u"credentials",
    u"login",
    u"getconnection",
    u"credential",
    u"authenticate",
    u"signin",
    u"sign_in",
    u"authentication",
    u"passwordauthentication",
    u"authtoken",
    u"basicauthentication",
    u"setcredentials",
    u"usernamepassword",
    u"ntlmauth",
    u"plainauth",
    u"logon",
    u"connect",
};

constexpr qsizetype longestCall = 300;

bool isSigningName(QStringView name) {
    return std::ranges::any_of(
        signingNames, [name](QStringView end) { return name.endsWith(end, Qt::CaseInsensitive); });
}

/// Behind "(" of the arguments: "auth(", "auth=(", "auth = (".
qsizetype argumentsAt(QStringView text, qsizetype end) {
    qsizetype at = afterBlanks(text, end);
    const bool isAssigned = unitAt(text, at) == u'=' || unitAt(text, at) == u':';
    if (at != end && !isAssigned)
        return -1;
    if (isAssigned)
        at = afterBlanks(text, at + 1);
    return unitAt(text, at) == u'(' || (isAssigned && unitAt(text, at) == u'[') ? at + 1 : -1;
}

struct Arguments {
    int count = 0;
    SecretRange last;
    bool isLastQuoted = false;
    bool isClosed = false;
};

/// Simple arguments only: names and quotations with commas between.
Arguments argumentsFrom(QStringView text, qsizetype at) {
    Arguments read;
    const qsizetype limit = qMin(text.size(), at + longestCall);
    while (at < limit) {
        at = afterBlanks(text, at);
        const QChar first = unitAt(text, at);
        const bool isQuoted = first == u'"' || first == u'\'';
        const qsizetype start = isQuoted ? at + 1 : at;
        const auto endsArgument = [&](QChar unit) {
            return isQuoted ? unit == first : QStringView(u",)]( \n\"'").contains(unit);
        };
        at = start;
        while (at < limit && !endsArgument(text[at]) && !hasBit(text[at], lineEndBit))
            ++at;
        ++read.count;
        read.last = {start, at - start};
        read.isLastQuoted = isQuoted;
        at = afterBlanks(text, isQuoted ? at + 1 : at);
        read.isClosed = unitAt(text, at) == u')' || unitAt(text, at) == u']';
        if (unitAt(text, at) != u',')
            break;
        ++at;
    }
    return read;
}

bool isPasswordArgument(QStringView value) {
    const RunShape shape = shapeOf(value);
    const bool isUnlikeWord =
        shape.digits > 0 || std::ranges::any_of(value, [](QChar unit) {
            return hasBit(unit, symbolBit) && unit != u'-' && unit != u'_' && unit != u'.';
        });
    return shape.size >= 6 && shape.letters() > 1 && isUnlikeWord && !value.contains(u' ') &&
           !value.contains(u"://") && !value.contains(u'{') && !value.contains(u'=') &&
           !value.startsWith(u'$') && !value.startsWith(u'-') && !holdsLabel(value) &&
           !isPlaceholderWord(value);
}

} // namespace

std::optional<SecretRange> callSecretAt(QStringView text, qsizetype start, qsizetype end) {
    const qsizetype at = argumentsAt(text, end);
    if (at < 0 || !isSigningName(text.mid(start, end - start)))
        return {};
    const Arguments arguments = argumentsFrom(text, at);
    const bool isSigned = arguments.count >= 2 && arguments.isLastQuoted && arguments.isClosed;
    if (!isSigned || !isPasswordArgument(text.mid(arguments.last.start, arguments.last.length)))
        return {};
    return arguments.last;
}

} // namespace quorvel

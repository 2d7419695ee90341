#include "smart/context/DottedIdentifier.h"

#include "smart/rules/Characters.h"

namespace quorvel {

namespace {

constexpr qsizetype mostParts = 100;

bool isPartUnit(QChar c) {
    return isAsciiLetter(c) || isAsciiDigit(c) || c == u'_' || c == u'-';
}

qsizetype endOfPart(QStringView text, qsizetype position) {
    while (position < text.size() && isPartUnit(text[position]))
        ++position;
    return position;
}

/// Parts with single dots between them.
struct Chain {
    qsizetype firstDot = -1; ///< -1 for a single part.
    qsizetype end = 0;
};

Chain chainAt(QStringView text, qsizetype start) {
    Chain chain{-1, endOfPart(text, start)};
    while (chain.end < text.size() && text[chain.end] == u'.') {
        const qsizetype next = endOfPart(text, chain.end + 1);
        if (next == chain.end + 1)
            break;
        if (chain.firstDot < 0)
            chain.firstDot = chain.end;
        chain.end = next;
    }
    return chain;
}

/// Where the longest identifier that the chain begins with ends: at a word boundary behind at
/// least two parts; -1 when there is no such place.
qsizetype endOfIdentifier(QStringView text, const Chain& chain) {
    for (qsizetype end = chain.end; chain.firstDot >= 0 && end > chain.firstDot + 1; --end)
        if (text[end - 1] != u'.' && isWordBoundary(text, end))
            return end;
    return -1;
}

QStringList parts(QStringView identifier) {
    if (identifier.count(u'.') >= mostParts)
        return {};
    return identifier.toString().split(u'.');
}

} // namespace

QStringList partsOfDottedIdentifier(QStringView text) {
    qsizetype start = 0;
    while (start < text.size()) {
        if (!isPartUnit(text[start]) || !isWordBoundary(text, start)) {
            ++start;
            continue;
        }
        const Chain chain = chainAt(text, start);
        const qsizetype end = endOfIdentifier(text, chain);
        if (end > 0)
            return parts(text.sliced(start, end - start));
        // No place in this chain ends an identifier, wherever it begins.
        start = chain.end;
    }
    return {};
}

} // namespace quorvel

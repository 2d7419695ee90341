#include "platform/text/addresses/AddressFinder.h"

#include "platform/text/addresses/AddressExtension.h"
#include "platform/text/addresses/AddressWords.h"
#include "platform/text/addresses/EasternAddress.h"
#include "platform/text/addresses/Streets.h"

namespace quorvel {

namespace {

/// In one line: line breaks become commas, other blanks one blank.
QString inOneLine(QStringView text) {
    QString result;
    result.reserve(text.size() + 8);
    bool isBlank = false;
    bool isBreak = false;
    for (const QChar c : text) {
        if (c.isSpace()) {
            isBlank = true;
            isBreak = isBreak || c == u'\n' || c == u'\r' || c == QChar(0x2028);
            continue;
        }
        const bool wasComma = result.endsWith(u',');
        if (isBreak && !wasComma && c != u',')
            result += QStringLiteral(", ");
        else if ((isBlank || wasComma) && c != u',' && !result.isEmpty())
            result += u' ';
        isBlank = isBreak = false;
        result += c;
    }
    return result;
}

/// Whether the word is as long as "One" to "Eight" and begins like one of them.
bool maySpellNumber(const AddressReader& reader, qsizetype index) {
    const Token& token = reader.tokens().at(index);
    return token.length >= 3 && token.length <= 5 &&
           QStringView(u"OTFSEN").contains(reader.tokens().text().at(token.start));
}

/// The address around the number at this token; empty for none.
AddressPart addressAt(const AddressReader& reader, qsizetype number, qsizetype floor) {
    const Streets streets(reader);
    const bool isNumber = reader.isNumber(number);
    const AddressPart eastern = !isNumber ? AddressPart{} : easternAddressAt(reader, number, floor);
    if (!eastern.isEmpty())
        return eastern;
    AddressPart core = isNumber ? postBoxAt(reader, number) : streets.atSpelled(number);
    if (core.isEmpty() && isNumber)
        core = streets.at(number);
    if (core.isEmpty() || core.first < floor)
        return {};
    const AddressExtension extension(reader);
    const AddressPart address = extension.backward(extension.forward(core), floor);
    return address.weight >= addressWords::enoughEvidence ? address : AddressPart{};
}

} // namespace

void AddressFinder::find(const Tokens& tokens, QList<DataMatch>& found) const {
    const AddressReader reader(tokens);
    qsizetype floor = 0;
    for (qsizetype i = 0; i < tokens.size(); ++i) {
        if (!tokens.isNumber(i) && !maySpellNumber(reader, i))
            continue;
        const AddressPart address = addressAt(reader, i, floor);
        if (address.isEmpty())
            continue;
        const qsizetype start = tokens.at(address.first).start + address.unusedHead;
        const qsizetype end = tokens.at(address.end - 1).end() - address.unusedTail;
        const qsizetype length = end - start;
        found.append(
            {DataKind::address, start, length, inOneLine(tokens.text().mid(start, length))});
        floor = address.end;
        i = address.end - 1;
    }
}

} // namespace quorvel

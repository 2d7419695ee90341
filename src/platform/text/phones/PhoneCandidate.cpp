#include "platform/text/phones/PhoneCandidate.h"

#include "foundation/Folding.h"

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

constexpr int fewestDigits = 7;
constexpr int mostDigits = 15;
constexpr qsizetype mostSeparators = 3;

bool isDigit(QChar c) {
    return c.unicode() < 0x80 ? c >= u'0' && c <= u'9' : c.isDigit();
}

bool isPlus(QChar c) {
    return c == u'+' || c == QChar(0xFF0B);
}

bool isSeparator(QChar c) {
    constexpr QStringView known = u" -./()[]\u00A0\u2009\u202F\u2010\u2011\u2012\u2013\u00AD"
                                  u"\u2060\u30FC\uFF0D\uFF08\uFF09\u3000";
    return known.contains(c);
}

bool opensBracket(QChar c) {
    return c == u'(' || c == QChar(0xFF08);
}

/// Reads one run from its first digit on.
class Reader {
public:
    Reader(QStringView text, qsizetype start)
        : m_text(text)
        , m_position(start) {
        m_candidate.start = start;
    }

    /// Takes the leading "+" or "(" that stand before the first digit.
    void takeLead(qsizetype earliest) {
        takeOpening(earliest);
        if (canTake(earliest, 1) && isPlus(m_text[m_candidate.start - 1])) {
            --m_candidate.start;
            m_candidate.digits = QStringLiteral("+");
            takeOpening(earliest);
        }
    }

    PhoneCandidate read() {
        while (m_position < m_text.size() && isDigit(m_text[m_position])) {
            readGroup();
            if (!skipSeparators())
                break;
        }
        return m_candidate;
    }

private:
    bool canTake(qsizetype earliest, qsizetype count) const {
        return m_candidate.start - count >= earliest;
    }

    void takeOpening(qsizetype earliest) {
        if (!canTake(earliest, 1) || !opensBracket(m_text[m_candidate.start - 1]))
            return;
        // A bracket that closes behind the whole number is not the number's.
        const QStringView rest =
            m_text.sliced(m_position).first(std::min<qsizetype>(m_text.size() - m_position, 8));
        const auto close = std::find_if_not(rest.begin(), rest.end(), isDigit);
        if (close == rest.end() || (*close != u')' && *close != QChar(0xFF09)))
            return;
        --m_candidate.start;
        m_candidate.hasBrackets = true;
    }

    void readGroup() {
        m_candidate.groups.append(0);
        for (; m_position < m_text.size() && isDigit(m_text[m_position]); ++m_position) {
            m_candidate.digits += QChar(char16_t(u'0' + m_text[m_position].digitValue()));
            ++m_candidate.groups.last();
        }
        m_candidate.end = m_position;
    }

    /// Whether another digit follows closely enough.
    bool skipSeparators() {
        qsizetype next = m_position;
        while (next < m_text.size() && next - m_position <= mostSeparators &&
               isSeparator(m_text[next]))
            ++next;
        const qsizetype count = next - m_position;
        if (count == 0 || count > mostSeparators || next >= m_text.size() || !isDigit(m_text[next]))
            return false;
        const QStringView between = m_text.sliced(m_position, count);
        // Two numbers with a slash or a dash of prose between them.
        if (count == 3 && between.front() == u' ' && between.back() == u' ' && between[1] != u'(')
            return false;
        m_candidate.hasBrackets =
            m_candidate.hasBrackets || std::any_of(between.begin(), between.end(), opensBracket);
        m_candidate.separators += between.back();
        m_position = next;
        return true;
    }

    QStringView m_text;
    qsizetype m_position;
    PhoneCandidate m_candidate;
};

/// A slash splits two numbers rather than one when full numbers stand on both sides.
bool isPlausible(const PhoneCandidate& candidate) {
    const qsizetype digits = candidate.digits.size() - (candidate.isInternational() ? 1 : 0);
    return digits >= fewestDigits && digits <= mostDigits;
}

bool isWordUnit(QChar c) {
    return c.isLetterOrNumber() || c == u'_' || c.isSurrogate();
}

/// Folded words that name numbers of other kinds.
constexpr std::array otherNumbers{
    QStringView(u"account"),
    QStringView(u"acct"),
    QStringView(u"ausweis"),
    QStringView(u"auftrag"),
    QStringView(u"auftragsnummer"),
    QStringView(u"barcode"),
    QStringView(u"batch"),
    QStringView(u"bestellnummer"),
    QStringView(u"bestellung"),
    QStringView(u"booking"),
    QStringView(u"build"),
    QStringView(u"case"),
    QStringView(u"commande"),
    QStringView(u"cuenta"),
    QStringView(u"dossier"),
    QStringView(u"ean"),
    QStringView(u"error"),
    QStringView(u"facture"),
    QStringView(u"factura"),
    QStringView(u"id"),
    QStringView(u"imei"),
    QStringView(u"invoice"),
    QStringView(u"isbn"),
    QStringView(u"issn"),
    QStringView(u"item"),
    QStringView(u"konto"),
    QStringView(u"kontonummer"),
    QStringView(u"kundennummer"),
    QStringView(u"license"),
    QStringView(u"lot"),
    QStringView(u"member"),
    QStringView(u"order"),
    QStringView(u"part"),
    QStringView(u"passport"),
    QStringView(u"patent"),
    QStringView(u"pedido"),
    QStringView(u"pid"),
    QStringView(u"policy"),
    QStringView(u"rechnung"),
    QStringView(u"rechnungsnummer"),
    QStringView(u"ref"),
    QStringView(u"reference"),
    QStringView(u"request"),
    QStringView(u"serial"),
    QStringView(u"shipment"),
    QStringView(u"sku"),
    QStringView(u"ssn"),
    QStringView(u"steuernummer"),
    QStringView(u"ticket"),
    QStringView(u"timestamp"),
    QStringView(u"tracking"),
    QStringView(u"transaction"),
    QStringView(u"uid"),
    QStringView(u"upc"),
    QStringView(u"user"),
    QStringView(u"vat"),
    QStringView(u"version"),
    QStringView(u"заказ"),
    QStringView(u"инн"),
    QStringView(u"кпп"),
    QStringView(u"огрн"),
    QStringView(u"снилс"),
    QStringView(u"счет"),
    QStringView(u"nif"),
    QStringView(u"siret"),
    QStringView(u"siren"),
    QStringView(u"rfc"),
    QStringView(u"epoch"),
};

constexpr std::array fillers{QStringView(u"no"),   QStringView(u"nr"),     QStringView(u"number"),
                             QStringView(u"num"),  QStringView(u"nummer"), QStringView(u"is"),
                             QStringView(u"code"), QStringView(u"n"),      QStringView(u"numero"),
                             QStringView(u"номер")};

template <std::size_t count>
bool contains(const std::array<QStringView, count>& names, QStringView name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The word that ends at `end` or a few marks before it; `end` moves to where it begins.
QString wordBefore(QStringView text, qsizetype& end) {
    constexpr qsizetype mostMarks = 4;
    constexpr qsizetype mostLetters = 20;
    const qsizetype from = end;
    while (end > 0 && from - end < mostMarks && !text[end - 1].isLetter() &&
           !isDigit(text[end - 1]) && text[end - 1] != u'\n')
        --end;
    const qsizetype last = end;
    while (end > 0 && last - end < mostLetters && text[end - 1].isLetter())
        --end;
    return folded(text.sliced(end, last - end));
}

bool isLabelledOtherwise(QStringView text, qsizetype start) {
    constexpr int mostWords = 3;
    for (int i = 0; i < mostWords; ++i) {
        const QString word = wordBefore(text, start);
        if (contains(otherNumbers, word))
            return true;
        if (!contains(fillers, word))
            return false;
    }
    return false;
}

bool isCurrency(QChar c) {
    return c.category() == QChar::Symbol_Currency;
}

bool isRuledOutBefore(QStringView text, const PhoneCandidate& candidate) {
    if (candidate.start == 0)
        return false;
    const QChar before = text[candidate.start - 1];
    if (candidate.isInternational())
        return isWordUnit(before) && before.isDigit();
    const QChar further = candidate.start > 1 ? text[candidate.start - 2] : QChar();
    if (isWordUnit(before) || isCurrency(before) || QStringView(u"#@/\\=&%+*-^~").contains(before))
        return before.unicode() < 0x2E80; // East Asian labels stand directly before the number
    return ((before == u'.' || before == u',') && isDigit(further)) ||
           (before == u' ' && isCurrency(further));
}

bool isRuledOutAfter(QStringView text, const PhoneCandidate& candidate) {
    if (candidate.end >= text.size())
        return false;
    const QChar after = text[candidate.end];
    const QChar further = candidate.end + 1 < text.size() ? text[candidate.end + 1] : QChar();
    const bool isLatinOrDigit = isWordUnit(after) && after.unicode() < 0x2E80;
    if (isLatinOrDigit || isCurrency(after) || QStringView(u"@%=+*^°").contains(after))
        return after != u'x' && after != u'X';
    return (QStringView(u".,:").contains(after) && isDigit(further)) ||
           (QStringView(u"-/_").contains(after) && isWordUnit(further)) ||
           (after == u' ' && (isCurrency(further) || further == u'%'));
}

constexpr std::array extensionWords{
    QStringView(u"extension"), QStringView(u"ext."),  QStringView(u"ext"),
    QStringView(u"x"),         QStringView(u"доб."),  QStringView(u"доб"),
    QStringView(u"poste"),     QStringView(u"anexo"), QStringView(u"ramal"),
    QStringView(u"int."),      QStringView(u"#"),     QStringView(u"durchwahl"),
};

} // namespace

std::optional<PhoneCandidate> nextPhoneCandidate(QStringView text, qsizetype& position) {
    while (position < text.size()) {
        const qsizetype earliest = position;
        const auto digit = std::find_if(text.begin() + position, text.end(), isDigit);
        if (digit == text.end())
            break;
        Reader reader(text, digit - text.begin());
        reader.takeLead(earliest);
        PhoneCandidate candidate = reader.read();
        position = candidate.end;
        if (isPlausible(candidate))
            return candidate;
    }
    position = text.size();
    return std::nullopt;
}

bool isRuledOutByContext(QStringView text, const PhoneCandidate& candidate) {
    return isRuledOutBefore(text, candidate) || isRuledOutAfter(text, candidate) ||
           (!candidate.isInternational() && isLabelledOtherwise(text, candidate.start));
}

qsizetype endOfExtension(QStringView text, qsizetype end) {
    constexpr qsizetype mostExtensionDigits = 6;
    qsizetype position = end;
    while (position < text.size() && QStringView(u" ,;").contains(text[position]) &&
           position - end < 2)
        ++position;
    const QStringView rest = text.sliced(position);
    const auto word =
        std::find_if(extensionWords.begin(), extensionWords.end(), [rest](QStringView known) {
            return rest.startsWith(known, Qt::CaseInsensitive);
        });
    if (word == extensionWords.end())
        return end;
    position += word->size();
    while (position < text.size() && QStringView(u" :").contains(text[position]))
        ++position;
    const qsizetype start = position;
    while (position < text.size() && isDigit(text[position]))
        ++position;
    const qsizetype digits = position - start;
    return digits > 0 && digits <= mostExtensionDigits ? position : end;
}

} // namespace quorvel

#include "menu/search/SearchedText.h"

#include "foundation/Folding.h"

#include <algorithm>
#include <cstring>

namespace quorvel {

namespace {

constexpr qsizetype mostPieceUnits = 16 * 1024;
constexpr char16_t firstBeyondAscii = 0x80;

bool isAscii(QChar unit) {
    return unit.unicode() < firstBeyondAscii;
}

void appendFoldedAscii(QStringView text, QByteArray& to) {
    const qsizetype before = to.size();
    to.resize(before + text.size());
    std::transform(text.begin(), text.end(), to.begin() + before, [](QChar unit) {
        const auto character = char(unit.unicode());
        return character >= 'A' && character <= 'Z' ? char(character + ('a' - 'A')) : character;
    });
}

/// The length of the next piece: no more than is quick to work out, and no half of a character.
qsizetype pieceLength(QStringView text) {
    if (text.size() <= mostPieceUnits)
        return text.size();
    return text[mostPieceUnits - 1].isHighSurrogate() ? mostPieceUnits - 1 : mostPieceUnits;
}

/// Looks for a query in a text that comes piece by piece.
class PieceSearch {
public:
    explicit PieceSearch(const QByteArray& query)
        : m_query(query) {}

    bool finds(QStringView piece) {
        m_bytes = m_bytes.right(m_query.size() - 1);
        appendFoldedForm(piece, m_bytes);
        return occurs(m_query, m_bytes);
    }

private:
    const QByteArray& m_query;
    QByteArray m_bytes; ///< The last piece, after the end of the one before.
};

} // namespace

bool occurs(const QByteArray& sought, const QByteArray& in) {
    return sought.isEmpty() ||
           memmem(in.constData(), size_t(in.size()), sought.constData(), size_t(sought.size()));
}

/// ASCII, which most texts are, is quick to fold.
void appendFoldedForm(QStringView text, QByteArray& to) {
    for (auto rest = text.begin(); rest != text.end();) {
        const auto ascii = std::find_if_not(rest, text.end(), isAscii);
        appendFoldedAscii(QStringView(rest, ascii), to);
        rest = std::find_if(ascii, text.end(), isAscii);
        if (rest != ascii)
            to += folded(QStringView(ascii, rest)).toUtf8();
    }
}

/// Whether `use` says so of some piece; those after it are left alone.
template <typename Use>
bool SearchedText::anyPiece(const Use& use) const {
    const auto anyOf = [&use](QStringView part) {
        for (qsizetype length; !part.isEmpty(); part = part.sliced(length)) {
            length = pieceLength(part);
            if (use(part.first(length)))
                return true;
        }
        return false;
    };
    const QStringView all = QStringView(m_text).first(m_units);
    qsizetype seen = 0;
    for (const SecretRange& secret : m_secrets) {
        if (anyOf(all.sliced(seen, secret.start - seen)) || use(secretMask))
            return true;
        seen = secret.end();
    }
    return anyOf(all.sliced(seen));
}

QByteArray SearchedText::form() const {
    QByteArray form;
    form.reserve(m_units);
    anyPiece([&form](QStringView piece) {
        appendFoldedForm(piece, form);
        return false;
    });
    return form;
}

bool SearchedText::contains(const QByteArray& foldedQuery) const {
    if (foldedQuery.isEmpty())
        return true;
    PieceSearch search(foldedQuery);
    return anyPiece([&search](QStringView piece) { return search.finds(piece); });
}

} // namespace quorvel

#include "paste/layouts/LetterPairs.h"

#include <QMap>
#include <QResource>

namespace quorvel {

namespace {

constexpr char noCost = '0';
constexpr double stepsPerBit = 4;

} // namespace

struct LetterPairs::Languages {
    Languages() {
        const QByteArray file =
            QResource(QStringLiteral(":/quorvel/letters/pairs.txt")).uncompressedData();
        const QList<QByteArray> lines = file.split('\n');
        Q_ASSERT(lines.size() > 1);
        qsizetype line = 1; // behind the comment
        while (line < lines.size()) {
            // A code of a language, a blank, its letters; then a row for the edge and each letter.
            const QString heading = QString::fromUtf8(lines.at(line++));
            const qsizetype blank = heading.indexOf(u' ');
            if (blank < 0)
                continue;
            LetterPairs pairs;
            for (const QChar letter : QStringView(heading).sliced(blank + 1))
                pairs.m_symbols.insert(letter, int(pairs.m_symbols.size()) + 1);
            pairs.m_script = heading.back().script();
            pairs.m_rows = lines.mid(line, pairs.m_symbols.size() + 1);
            line += pairs.m_rows.size();
            byCode.insert(heading.left(blank), pairs);
        }
    }

    QMap<QString, LetterPairs> byCode;
};

const LetterPairs::Languages& LetterPairs::languages() {
    static const Languages all;
    return all;
}

const LetterPairs* LetterPairs::of(QStringView language) {
    const auto& known = languages().byCode;
    const auto found = known.constFind(language.toString());
    return found == known.cend() ? nullptr : &*found;
}

QList<QString> LetterPairs::languagesOf(QChar::Script script) {
    QList<QString> codes;
    const auto& known = languages().byCode;
    for (auto language = known.cbegin(); language != known.cend(); ++language)
        if (language->script() == script)
            codes.append(language.key());
    return codes;
}

std::optional<LetterPairs::Symbol> LetterPairs::symbol(QChar letter) const {
    const auto found = m_symbols.constFind(letter);
    return found == m_symbols.cend() ? std::nullopt : std::optional(*found);
}

double LetterPairs::cost(Symbol before, Symbol after) const {
    return (m_rows.at(before).at(after) - noCost) / stepsPerBit;
}

} // namespace quorvel

#include "paste/layouts/LayoutConversion.h"

#include "foundation/CodePoints.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace quorvel {

namespace {

using Strokes = QList<KeyboardLayoutStroke>;

/// The keys for each code point of a character; empty when one of them has none.
Strokes strokesByCodePoint(const QString& character, const KeyboardLayoutMap& source) {
    Strokes strokes;
    qsizetype base = 0; // where dead keys go: before what they mark, in the order of the marks
    CodePoints codePoints(character);
    while (codePoints.hasNext()) {
        const char32_t codePoint = codePoints.next();
        const auto stroke = source.charToStroke.constFind(QString::fromUcs4(&codePoint, 1));
        if (stroke == source.charToStroke.cend())
            return {};
        const bool isDead = QChar::isMark(codePoint) && source.strokeToMark.contains(*stroke);
        strokes.insert(isDead ? base++ : strokes.size(), *stroke);
    }
    return strokes;
}

Strokes strokesFor(const QString& character, const KeyboardLayoutMap& source) {
    const auto whole = source.charToStroke.constFind(character);
    if (whole != source.charToStroke.cend())
        return {*whole};
    const QString decomposed = character.normalized(QString::NormalizationForm_D);
    if (decomposed.size() == 1)
        return {};
    const Strokes asWritten = strokesByCodePoint(character, source);
    return asWritten.isEmpty() ? strokesByCodePoint(decomposed, source) : asWritten;
}

/// Types keys in a layout. Dead keys wait for the letter that they mark.
class Typist {
public:
    explicit Typist(const KeyboardLayoutMap& layout)
        : m_layout(layout) {}

    void press(const KeyboardLayoutStroke& stroke) {
        const QString character = m_layout.strokeToChar.value(stroke);
        const QString mark = m_layout.strokeToMark.value(stroke);
        if (mark.isEmpty())
            return add(character);
        m_marks += mark;
        m_marksAlone += character;
    }

    /// Marks that cannot go onto the character stand before it.
    void add(const QString& character) {
        const QString marked = (character + m_marks).normalized(QString::NormalizationForm_C);
        const bool isOne = !m_marks.isEmpty() && !character.isEmpty() && marked.size() == 1;
        m_text += isOne ? marked : m_marksAlone + character;
        m_marks.clear();
        m_marksAlone.clear();
    }

    QString text() {
        add({});
        return m_text;
    }

private:
    const KeyboardLayoutMap& m_layout;
    QString m_text;
    QString m_marks;
    QString m_marksAlone;
};

} // namespace

QList<TypedCharacter> typed(QStringView text, const KeyboardLayoutMap& source) {
    QList<TypedCharacter> characters;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.data(), text.size());
    qsizetype start = 0;
    for (qsizetype end = finder.toNextBoundary(); end > start; end = finder.toNextBoundary()) {
        const QString character = text.sliced(start, end - start).toString();
        characters.append({character, strokesFor(character, source)});
        start = end;
    }
    return characters;
}

QString retyped(const QList<TypedCharacter>& characters, const KeyboardLayoutMap& target) {
    Typist typist(target);
    for (const auto& [character, strokes] : characters) {
        const bool isOnTarget =
            std::all_of(strokes.begin(), strokes.end(),
                        [&](const auto& stroke) { return target.strokeToChar.contains(stroke); });
        if (strokes.isEmpty() || !isOnTarget)
            typist.add(character);
        else
            for (const KeyboardLayoutStroke& stroke : strokes)
                typist.press(stroke);
    }
    return typist.text();
}

} // namespace quorvel

#include "smart/masking/Labels.h"

#include "foundation/Folding.h"
#include "smart/masking/CharacterBits.h"
#include "smart/masking/LabelIndex.h"

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

/// The letters before the end of a word, backwards and folded, over the places where a compound
/// may be joined. Reads no more than is asked for.
class Backwards {
public:
    Backwards(QStringView text, qsizetype end)
        : m_text(text)
        , m_at(end - 1) {}

    /// NUL where no more letters follow.
    char16_t letter(qsizetype index) {
        while (index >= m_count && m_count < most && readOne())
            ;
        return index < m_count ? m_letter[size_t(index)] : u'\0';
    }
    qsizetype place(qsizetype index) const { return m_place[size_t(index)]; }

private:
    bool readOne();

    static constexpr qsizetype most = 28;
    QStringView m_text;
    qsizetype m_at = 0;
    qsizetype m_count = 0;
    std::array<char16_t, most> m_letter;
    std::array<qsizetype, most> m_place;
};

char16_t foldedUnit(QChar unit) {
    if (unit.unicode() < 0x80)
        return hasBit(unit, upperBit) ? unit.unicode() | 0x20 : unit.unicode();
    const char16_t lowered = QChar::toCaseFolded(unit.unicode());
    // Cyrillic, but for the letter that is taken apart.
    if (lowered >= 0x430 && lowered <= 0x44F && lowered != 0x439)
        return lowered;
    QString folded;
    appendFolded(unit.unicode(), folded);
    return folded.isEmpty() ? u'\0' : folded[0].unicode();
}

bool isJoint(QChar unit) {
    return unit == u'_' || unit == u'-' || unit == u' ' || unit == u'.' || unit == QChar(0xA0) ||
           unit == QChar(0x2011);
}

bool beginsPartAt(QStringView text, qsizetype at) {
    const QChar before = unitAt(text, at - 1);
    if (at == 0 || !isLetter(before))
        return true;
    if (!hasBit(text[at], upperBit))
        return false;
    return hasBit(before, lowerBit) || hasBit(unitAt(text, at + 1), lowerBit);
}

bool Backwards::readOne() {
    for (; m_at >= 0; --m_at) {
        const QChar unit = m_text[m_at];
        const bool isInside = m_at > 0 && isLetter(m_text[m_at - 1]);
        // "WPA2 key"
        const bool isNumbered = hasBit(unit, digitBit) && isJoint(unitAt(m_text, m_at + 1));
        if (isInside && (isJoint(unit) || isNumbered) && (m_count > 0 || !isNumbered))
            continue;
        if (!isLetter(unit))
            return false;
        const char16_t plain = foldedUnit(unit);
        if (plain == 0)
            continue;
        m_letter[size_t(m_count)] = plain;
        m_place[size_t(m_count++)] = m_at--;
        return true;
    }
    return false;
}

bool isEndOf(QStringView text, Backwards& read, const LabelForm& form) {
    const qsizetype size = form.letters.size();
    for (qsizetype i = 2; i < size; ++i)
        if (form.letters[size - 1 - i] != read.letter(i))
            return false;
    return form.boundary == LabelBoundary::none || beginsPartAt(text, read.place(size - 1));
}

/// Positions in lists of pages and marks in language models are called tokens too.
constexpr QStringView harmlessBefore[] = {
    u"nextpage", u"next", u"page", u"continuation", u"stop", u"pad",  u"eos",
    u"bos",      u"unk",  u"sep",  u"cls",          u"mask", u"kind", u"public",
};

bool isHarmless(Backwards& read, const LabelForm& form) {
    if (form.kind != LabelKind::token && form.kind != LabelKind::secret)
        return false;
    return std::ranges::any_of(harmlessBefore, [&](QStringView word) {
        const qsizetype offset = form.letters.size();
        for (qsizetype i = 0; i < word.size(); ++i)
            if (word[word.size() - 1 - i] != read.letter(offset + i))
                return false;
        return true;
    });
}

const LabelForm* longestForm(QStringView text, Backwards& read) {
    const LabelForm* best = nullptr;
    const char16_t last = read.letter(0);
    const char16_t second = read.letter(1);
    const unsigned bucket = bucketOf(second, last);
    for (size_t at = labelIndex.begin[bucket]; at < labelIndex.begin[bucket + 1]; ++at) {
        const LabelForm& form = labelForms[labelIndex.row[at]];
        const qsizetype size = form.letters.size();
        if (form.letters[size - 1] != last || form.letters[size - 2] != second)
            continue;
        if ((!best || size > best->letters.size()) && isEndOf(text, read, form))
            best = &form;
    }
    return best;
}

qsizetype nameStart(QStringView text, qsizetype labelStart) {
    constexpr qsizetype reach = 60;
    const qsizetype limit = qMax(qsizetype(0), labelStart - reach);
    while (labelStart > limit &&
           (isAsciiAlphanumeric(text[labelStart - 1]) || text[labelStart - 1] == u'_' ||
            text[labelStart - 1] == u'-' || text[labelStart - 1] == u'.'))
        --labelStart;
    return labelStart;
}

LabelStyle styleOf(QStringView text, const Label& label) {
    const QStringView name = text.mid(label.start, label.end - label.start);
    const QChar before = unitAt(text, label.start - 1);
    if (before == u'?' || before == u'&')
        return LabelStyle::parameter;
    if (name.startsWith(u'-') || (before == u'/' && !isLetter(unitAt(text, label.start - 2))))
        return LabelStyle::option;
    if (before == u'<' ||
        (before == u':' && name.size() > 3 && unitAt(text, label.start - 2) != u' ' &&
         text.left(label.start).right(40).contains(u'<')))
        return LabelStyle::element;
    const bool hasLower = std::ranges::any_of(name, [](QChar unit) { return unit.isLower(); });
    if (!hasLower && (name.contains(u'_') || name.size() > 4))
        return LabelStyle::constant;
    return name.contains(u'_') || name.contains(u'.') || name.contains(u'-')
               ? LabelStyle::identifier
               : LabelStyle::word;
}

} // namespace

namespace {

/// "password2", "CVC2".
qsizetype withoutCounter(QStringView text, qsizetype start, qsizetype end) {
    constexpr int most = 2;
    for (int count = 0; count < most && end > start && hasBit(text[end - 1], digitBit); ++count)
        --end;
    return end;
}

} // namespace

bool mayEndLabel(QStringView text, qsizetype wordStart, qsizetype wordEnd) {
    wordEnd = withoutCounter(text, wordStart, wordEnd);
    if (wordEnd - wordStart < 2)
        return false;
    const QChar first = wordEnd - wordStart > 2 ? text[wordEnd - 3] : QChar(u' ');
    return labelEnds.mayHold(first, text[wordEnd - 2], text[wordEnd - 1]);
}

std::optional<Label> labelEndingAt(QStringView text, qsizetype wordEnd) {
    const qsizetype lettersEnd = withoutCounter(text, 0, wordEnd);
    Backwards read(text, lettersEnd);
    const LabelForm* form = longestForm(text, read);
    if (!form || isHarmless(read, *form))
        return {};
    Label label{form->kind, LabelStyle::word, 0, wordEnd};
    label.start = nameStart(text, read.place(form->letters.size() - 1));
    label.style = styleOf(text, label);
    return label;
}

std::optional<Label> labelStartingAt(QStringView text, qsizetype start) {
    if (!plainBeginnings.mayHold(text[start], unitAt(text, start + 1), unitAt(text, start + 2)))
        return {};
    const QStringView rest = text.mid(start, 16);
    for (const PlainLabel& form : plainLabels)
        if (rest.startsWith(form.letters))
            return Label{form.kind, LabelStyle::plain, start, start + form.letters.size()};
    return {};
}

bool holdsLabel(QStringView name) {
    constexpr QStringView stems[] = {u"pass",    u"secret", u"token",    u"apikey",
                                     u"api_key", u"pwd",    u"kennwort", u"credential",
                                     u"_key",    u"-key",   u"hash"};
    return std::ranges::any_of(
        stems, [name](QStringView stem) { return name.contains(stem, Qt::CaseInsensitive); });
}

} // namespace quorvel

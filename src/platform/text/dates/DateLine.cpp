#include "platform/text/dates/DateLine.h"

#include "foundation/Folding.h"

namespace quorvel {

QString DateLine::folded(int index) const {
    return quorvel::folded(written(index));
}

QStringView DateLine::written(int index) const {
    const Lexeme& lexeme = at(index);
    return m_tokens.text().sliced(lexeme.start, lexeme.end - lexeme.start);
}

int DateLine::value(int index, Role role) const {
    if (role == Role::number && isDigits(index))
        return at(index).value;
    const WordRow* found = row(index, role);
    return found ? found->value : -1;
}

int DateLine::number(int index, int leastDigits, int mostDigits, int least, int most) const {
    const Lexeme& lexeme = at(index);
    const bool fits = isDigits(index) && lexeme.digits >= leastDigits &&
                      lexeme.digits <= mostDigits && lexeme.value >= least && lexeme.value <= most;
    return fits ? lexeme.value : -1;
}

bool DateLine::beginsCleanly(int index) const {
    const Lexeme& previous = at(index - 1);
    const Lexeme& here = at(index);
    if (index == 0 || here.afterSpace)
        return true;
    if (previous.kind == Lexeme::Kind::word)
        return previous.eastern || here.eastern;
    if (previous.kind == Lexeme::Kind::number)
        return here.eastern && here.kind == Lexeme::Kind::word;
    return beginsAfterMark(index);
}

bool DateLine::beginsAfterMark(int index) const {
    const char16_t mark = at(index - 1).mark;
    const bool isNumber = isDigits(index);
    const bool followsWord = isGlued(index - 1) && isWord(index - 2);
    switch (mark) {
    case u'–':
    case u'-':
        return false;
    case u'[':
        return !followsWord;
    case u':':
        return followsWord && (index == 2 || at(index - 2).afterSpace);
    case u',':
        return !isNumber || !isGlued(index - 1) || !isDigits(index - 2);
    default:
        return !QStringView(u"_/\\.#%$€£¥&+^?").contains(QChar(mark));
    }
}

bool DateLine::endsCleanly(int end) const {
    if (end >= size() || at(end).afterSpace)
        return true;
    const Lexeme& next = at(end);
    const bool isEasternEnd = at(end - 1).eastern && at(end - 1).kind == Lexeme::Kind::word;
    if (next.kind != Lexeme::Kind::mark)
        return next.eastern || isEasternEnd;
    if (isEasternEnd)
        return true;
    const bool isGluedOn = isGlued(end + 1);
    if (QStringView(u".:,-'’–").contains(QChar(next.mark))) {
        const bool goesOn = isGluedOn && at(end + 1).kind != Lexeme::Kind::mark;
        const bool isText = isWord(end + 1) && (next.mark == u',' || next.mark == u':');
        return !goesOn || isText || at(end + 1).eastern;
    }
    if (next.mark == u'(')
        return !isGluedOn || !isMark(end + 1, u')');
    if (next.mark == u'/')
        return isWord(end - 1) && isWord(end + 1);
    return !QStringView(u"_\\@#%$€£¥°+=").contains(QChar(next.mark));
}

} // namespace quorvel

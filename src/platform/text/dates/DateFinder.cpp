#include "platform/text/dates/DateFinder.h"

#include "platform/text/dates/DateJoiner.h"

namespace quorvel {

namespace {

void findInLine(const DateLine& line, DateOrder order, QList<DataMatch>& found) {
    const DateJoiner joiner(line, order);
    int index = 0;
    int past = 0;
    while (index < line.size()) {
        // Most words mean nothing here.
        const auto joined = line.at(index).roles == 0 ? std::nullopt : joiner.at(index);
        if (!joined) {
            ++index;
            continue;
        }
        const int begin = line.at(std::max(joined->begin, past)).start;
        const int end = line.at(joined->end - 1).end;
        found.append({DataKind::date, begin, end - begin, joined->value});
        index = past = joined->end;
    }
}

} // namespace

void DateFinder::find(const Tokens& tokens, QList<DataMatch>& found) const {
    const DateOrder order = m_region.dayFirst ? DateOrder::dayFirst : DateOrder::monthFirst;
    DateLine line(tokens);
    for (qsizetype next = 0; next < tokens.size();) {
        next = line.read(next);
        if (line.isPromising())
            findInLine(line, order, found);
    }
}

} // namespace quorvel

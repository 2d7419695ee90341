#include "snippets/SnippetTitle.h"

#include "foundation/Text.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr int mostCharacters = 80;
constexpr int charactersOfTheEnd = 20;

bool endsLine(QChar c) {
    return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

} // namespace

QString titleOfText(const QString& text) {
    for (auto start = text.cbegin(); start != text.cend();) {
        const auto end = std::find_if(start, text.cend(), endsLine);
        const QStringView visible = QStringView(start, end).trimmed();
        const QString line = visible.isEmpty() ? QString() : singleLine(visible.toString());
        if (!line.isEmpty())
            return shortened(line, mostCharacters, charactersOfTheEnd);
        start = end == text.cend() ? end : end + 1;
    }
    return {};
}

} // namespace quorvel

#include "platform/text/names/WordList.h"

#include <QResource>

#include <algorithm>
#include <cstring>

namespace quorvel {

namespace {

QByteArrayView resource(QStringView name) {
    const QResource file(QStringLiteral(":/quorvel/names/%1.txt").arg(name));
    Q_ASSERT(file.isValid() && file.compressionAlgorithm() == QResource::NoCompression);
    return {file.data(), qsizetype(file.size())};
}

/// By the values of the bytes, as the lists are sorted.
int compare(QByteArrayView a, QByteArrayView b) {
    const int order = std::memcmp(a.data(), b.data(), std::size_t(std::min(a.size(), b.size())));
    return order != 0 ? order : int(a.size() - b.size());
}

} // namespace

WordList::WordList(QStringView name)
    : m_lines(resource(name)) {}

bool WordList::contains(QByteArrayView word) const {
    qsizetype low = 0;
    qsizetype high = m_lines.size();
    while (low < high) {
        qsizetype start = (low + high) / 2;
        while (start > low && m_lines[start - 1] != '\n')
            --start;
        const qsizetype end = m_lines.indexOf('\n', start);
        const int order = compare(m_lines.sliced(start, end - start), word);
        if (order == 0)
            return true;
        if (order < 0)
            low = end + 1;
        else
            high = start;
    }
    return false;
}

} // namespace quorvel

#pragma once

#include <QString>

#include <cstdint>
#include <cstring>

namespace quorvel::fuzz {

/// The bytes as UTF-16 units, so that surrogates without partners and NULs occur.
inline QString textOf(const std::uint8_t* data, std::size_t size) {
    QString text(qsizetype(size / sizeof(QChar)), Qt::Uninitialized);
    std::memcpy(text.data(), data, std::size_t(text.size()) * sizeof(QChar));
    return text;
}

/// Ends the run: the fuzzer keeps the text.
inline void require(bool condition) {
    if (!condition)
        std::abort();
}

/// Ranges must be in order, apart from each other, inside the text, and not empty.
template <typename Ranges> void requireRanges(const Ranges& ranges, const QString& text) {
    qsizetype end = 0;
    for (const auto& range : ranges) {
        require(range.start >= end && range.length > 0);
        end = range.end();
    }
    require(end <= text.size());
}

} // namespace quorvel::fuzz

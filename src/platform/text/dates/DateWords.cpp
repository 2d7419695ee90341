#include "platform/text/dates/DateWords.h"

#include "platform/text/dates/DateWordTable.h"

#include <array>

namespace quorvel {

namespace {

struct Entry {
    qint16 row = 0;
    quint16 offset = 0;
    quint16 length = 0;
    qint16 next = WordMeanings::none;
};

constexpr qsizetype rowCount = std::size(dateWordRows);
constexpr quint32 slotCount = 4096;
constexpr qsizetype longestEastern = 5;

constexpr bool isEasternUnit(char16_t unit) {
    return unit >= 0x3040 && unit < 0xD800;
}

constexpr qsizetype wordsIn(const char16_t* words) {
    qsizetype count = 1;
    for (; *words != 0; ++words)
        count += *words == u' ' ? 1 : 0;
    return count;
}

constexpr qsizetype countEntries() {
    qsizetype count = 0;
    for (const WordRow& row : dateWordRows)
        count += wordsIn(row.words);
    return count;
}

constexpr quint32 hashOf(const char16_t* word, qsizetype length) {
    quint32 hash = 2166136261U;
    for (qsizetype i = 0; i < length; ++i)
        hash = (hash ^ word[i]) * 16777619U;
    return (hash ^ (hash >> 15)) % slotCount;
}

constexpr bool areEqual(const char16_t* a, const char16_t* b, qsizetype length) {
    for (qsizetype i = 0; i < length; ++i)
        if (a[i] != b[i])
            return false;
    return true;
}

/// An open hash table of all words; words of several meanings are chained.
struct Index {
    std::array<Entry, countEntries()> entries{};
    std::array<qint16, slotCount> heads{};
    std::array<bool, 256> beginsEastern{};

    static constexpr quint8 easternHash(char16_t unit) { return quint8(unit ^ (unit >> 8)); }

    constexpr const char16_t* word(const Entry& entry) const {
        return dateWordRows[entry.row].words + entry.offset;
    }

    constexpr bool holds(qint16 head, const char16_t* letters, qsizetype length) const {
        const Entry& entry = entries[size_t(head)];
        return entry.length == length && areEqual(word(entry), letters, length);
    }

    /// The slot of this word, or the free one where it would be.
    constexpr quint32 slotOf(const char16_t* letters, qsizetype length) const {
        quint32 slot = hashOf(letters, length);
        while (heads[slot] != WordMeanings::none && !holds(heads[slot], letters, length))
            slot = (slot + 1) % slotCount;
        return slot;
    }

    constexpr void add(qint16 number, const Entry& entry) {
        entries[size_t(number)] = entry;
        const char16_t* letters = word(entry);
        const quint32 slot = slotOf(letters, entry.length);
        entries[size_t(number)].next = heads[slot];
        heads[slot] = number;
        if (isEasternUnit(letters[0]))
            beginsEastern[easternHash(letters[0])] = true;
    }

    constexpr qint16 addRow(qint16 row, qint16 number) {
        const char16_t* words = dateWordRows[row].words;
        quint16 start = 0;
        for (quint16 end = 0;; ++end) {
            if (words[end] != u' ' && words[end] != 0)
                continue;
            add(number++, {row, start, quint16(end - start), WordMeanings::none});
            if (words[end] == 0)
                return number;
            start = quint16(end + 1);
        }
    }

    constexpr Index() {
        heads.fill(WordMeanings::none);
        qint16 number = 0;
        for (qint16 row = 0; row < rowCount; ++row)
            number = addRow(row, number);
    }
};

constexpr Index dateWords;

qint16 find(QStringView word) {
    return dateWords.heads[dateWords.slotOf(word.utf16(), word.size())];
}

} // namespace

qint16 WordMeanings::of(QStringView folded) {
    constexpr qsizetype longest = 20;
    return folded.isEmpty() || folded.size() > longest ? none : find(folded);
}

qint16 WordMeanings::ofEastern(QStringView text, qsizetype& length) {
    if (text.isEmpty() || !dateWords.beginsEastern[Index::easternHash(text.front().unicode())])
        return none;
    for (length = std::min(text.size(), longestEastern); length > 0; --length) {
        const qint16 head = find(text.first(length));
        if (head != none)
            return head;
    }
    return none;
}

RoleMask WordMeanings::roles(qint16 head) {
    RoleMask mask = 0;
    for (; head != none; head = dateWords.entries[size_t(head)].next)
        mask |= maskOf(dateWordRows[dateWords.entries[size_t(head)].row].role);
    return mask;
}

const WordRow* WordMeanings::row(qint16 head, Role role) {
    for (; head != none; head = dateWords.entries[size_t(head)].next) {
        const WordRow& row = dateWordRows[dateWords.entries[size_t(head)].row];
        if (row.role == role)
            return &row;
    }
    return nullptr;
}

} // namespace quorvel

#pragma once

#include <QByteArrayView>
#include <QString>

namespace quorvel {

/// A sorted list of folded words that is searched where it lies, one a line.
class WordList {
public:
    /// Opens resources/names/NAME.txt as it is built into the program; nothing is copied.
    explicit WordList(QStringView name);

    /// Takes a folded word in UTF-8.
    bool contains(QByteArrayView word) const;

private:
    QByteArrayView m_lines;
};

} // namespace quorvel

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <ostream>

// How GoogleTest shows these types in its messages; it finds the functions by their arguments'
// namespace, which is the global one.

inline void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QByteArray& bytes, std::ostream* stream) {
    constexpr qsizetype most = 200;
    *stream << '"' << bytes.left(most).toPercentEncoding(" !#$&'()*+,/:;<=>?@[]{}|").constData()
            << '"' << (bytes.size() > most ? "… " : " ") << bytes.size() << " bytes";
}

inline void PrintTo(const QStringList& texts, std::ostream* stream) {
    *stream << '[' << texts.join(QStringLiteral(", ")).toStdString() << ']';
}

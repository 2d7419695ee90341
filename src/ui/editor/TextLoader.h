#pragma once

#include <QPlainTextEdit>
#include <QTimer>

namespace quorvel {

/// Fills a text field bit by bit, so that a long text does not hold up the window. The field can be
/// read but not edited until all of it is there, and counts as unmodified all the time.
class TextLoader final : public QObject {
    Q_OBJECT

public:
    TextLoader(QPlainTextEdit& field, QString text);

private:
    void goOn();
    QString takeBit(qsizetype units);
    void finish();

    QPlainTextEdit& m_field;
    QString m_text;
    qsizetype m_position = 0;
    QTimer m_turn;
};

} // namespace quorvel

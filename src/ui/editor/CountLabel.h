#pragma once

#include "foundation/StringTable.h"
#include "paste/TextCounter.h"

#include <QLabel>
#include <QTimer>

#include <functional>
#include <optional>

namespace quorvel {

/// Tells how long a text is. It counts when the user pauses, and a long text bit by bit, so that
/// typing never waits for it.
class CountLabel final : public QLabel {
    Q_OBJECT

public:
    CountLabel(const StringTable& strings, std::function<QString()> text);

    /// The text has changed; it is about this long now.
    void noteChange(qsizetype length);

private:
    void begin();
    void goOn();
    void show(const TextCounts& counts);

    const QString m_format;
    const std::function<QString()> m_text;
    QTimer m_pause;
    QTimer m_turn;
    std::optional<TextCounter> m_counter;
};

} // namespace quorvel

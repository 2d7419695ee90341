#pragma once

#include <QKeyEvent>

namespace quorvel {

/// Tells the repeated presses of a held key from fresh ones. The toolkit's own flag misses some:
/// it is set only when the press has arrived by the time that the release before it is read. Both
/// bear the same time stamp, always.
class KeyRepeat {
public:
    void released(const QKeyEvent& release) {
        m_key = release.nativeScanCode();
        m_time = release.timestamp();
    }

    bool isRepeat(const QKeyEvent& press) const {
        const bool followsAtOnce =
            m_time != 0 && press.nativeScanCode() == m_key && press.timestamp() == m_time;
        return press.isAutoRepeat() || followsAtOnce;
    }

private:
    quint32 m_key = 0;
    quint64 m_time = 0;
};

} // namespace quorvel

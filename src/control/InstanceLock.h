#pragma once

#include <QString>

namespace quorvel {

/// Held by the one running instance of this user. The kernel gives it back when the process ends
/// in whatever way, so it is never stale.
class InstanceLock {
public:
    explicit InstanceLock(QString path);
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    enum class Outcome {
        acquired,
        heldByAnother,
        unavailable, ///< The file cannot be made or locked here; see the log.
    };

    Outcome acquire();

private:
    const QString m_path;
    int m_file = -1;
};

} // namespace quorvel

#include "control/InstanceLock.h"

#include "foundation/Log.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace quorvel {

InstanceLock::InstanceLock(QString path)
    : m_path(std::move(path)) {}

InstanceLock::~InstanceLock() {
    if (m_file >= 0)
        ::close(m_file);
}

InstanceLock::Outcome InstanceLock::acquire() {
    m_file = ::open(QFile::encodeName(m_path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (m_file >= 0 && ::flock(m_file, LOCK_EX | LOCK_NB) == 0)
        return Outcome::acquired;
    if (m_file >= 0 && errno == EWOULDBLOCK)
        return Outcome::heldByAnother;
    logLine(QStringLiteral("[Quorvel Instance] cannot lock %1: %2")
                .arg(m_path, QString::fromLocal8Bit(std::strerror(errno))));
    return Outcome::unavailable;
}

} // namespace quorvel

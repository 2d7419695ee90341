#include "desktop/ProcessCost.h"

#include <QDir>
#include <QFile>

namespace quorvel::bench {

namespace {

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The number behind a label at the start of a line.
double valueOf(const QByteArray& content, const QByteArray& label) {
    for (const QByteArray& line : content.split('\n'))
        if (line.startsWith(label))
            return line.mid(label.size()).simplified().split(' ').first().toDouble();
    return 0;
}

} // namespace

ProcessCost costOf(pid_t process) {
    ProcessCost cost;
    const QDir root(QStringLiteral("/proc/%1").arg(process));
    const QDir tasks(root.filePath(QStringLiteral("task")));
    for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QDir folder(tasks.filePath(task));
        const QByteArray schedule = contentOf(folder.filePath(QStringLiteral("schedstat")));
        cost.cpuMilliseconds += schedule.split(' ').first().toDouble() / 1e6;
        const QByteArray status = contentOf(folder.filePath(QStringLiteral("status")));
        cost.wakeUps += long(valueOf(status, "voluntary_ctxt_switches:"));
    }
    cost.pssMegabytes =
        valueOf(contentOf(root.filePath(QStringLiteral("smaps_rollup"))), "Pss:") / 1024;
    return cost;
}

} // namespace quorvel::bench

#include "Commands.h"

#include "control/ControlClient.h"
#include "foundation/DataPaths.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

enum ExitCode { ok = 0, failed = 1, wrongUsage = 2 };

int complain(const QString& message, ExitCode code) {
    std::fprintf(stderr, "quorvelctl: %s\n", qUtf8Printable(message));
    return code;
}

} // namespace

int main(int argc, char* argv[]) {
    using namespace quorvel;
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.contains(QStringLiteral("--help")) || arguments.contains(QStringLiteral("-h"))) {
        std::fputs(qUtf8Printable(ctl::usage()), stdout);
        return ok;
    }
    QString problem;
    const auto invocation = ctl::parse(arguments, problem);
    if (!invocation)
        return complain(problem + u'\n' + ctl::usage(), wrongUsage);
    const auto reply =
        sendControlRequest(DataPaths::fromEnvironment().controlSocket, invocation->request);
    if (!reply)
        return complain(QStringLiteral("Quorvel is not running; start it with \"quorvel\""),
                        failed);
    if (!reply->isOk())
        return complain(reply->error, failed);
    std::fputs(qUtf8Printable(ctl::rendered(*invocation, reply->result)), stdout);
    return ok;
}

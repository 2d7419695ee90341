#include "Commands.h"
#include "Detect.h"

#include "control/ControlClient.h"
#include "foundation/DataPaths.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

namespace quorvel::ctl {

static std::optional<QString> standardInput() {
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return std::nullopt;
    return QString::fromUtf8(input.readAll());
}

} // namespace quorvel::ctl

int main(int argc, char* argv[]) {
    using namespace quorvel;
    using namespace quorvel::ctl;
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.contains(QStringLiteral("--help")) || arguments.contains(QStringLiteral("-h"))) {
        std::fputs(qUtf8Printable(ctl::usage()), stdout);
        return ok;
    }
    if (arguments.startsWith(QStringLiteral("detect")))
        return ctl::detect(arguments.mid(1));
    QString problem;
    const auto invocation = ctl::parse(arguments, ctl::standardInput, problem);
    if (!invocation)
        return complain(problem + u'\n' + ctl::usage(), wrongUsage);
    const auto reply =
        sendControlRequest(DataPaths::fromEnvironment().controlSocket, invocation->request);
    if (!reply)
        return complain(QStringLiteral("Quorvel is not running; start it with \"quorvel\""),
                        failed);
    if (!reply->isOk())
        return complain(reply->error, failed);
    std::fputs(qUtf8Printable(invocation->rendered(reply->result)), stdout);
    return ok;
}

#include "ui/TrayHost.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QFileInfo>

namespace quorvel {

namespace {

const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");
constexpr int answerMilliseconds = 2000;

/// Asking for the bus where there is none would start one, which takes its time.
bool sessionBusIsConfigured() {
    if (qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS"))
        return true;
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !folder.isEmpty() && QFileInfo::exists(folder + QStringLiteral("/bus"));
}

} // namespace

TrayHost::TrayHost(QObject* parent)
    : QObject(parent) {}

void TrayHost::start() {
    if (!sessionBusIsConfigured())
        return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    auto* watcher = new QDBusServiceWatcher(watcherService, bus,
                                            QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &TrayHost::askForHost);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this,
            [this] { setNotifier(Notifier::absent); });
    bus.connect(watcherService, watcherPath, watcherService,
                QStringLiteral("StatusNotifierHostRegistered"), this, SLOT(hostRegistered()));
    bus.connect(watcherService, watcherPath, watcherService,
                QStringLiteral("StatusNotifierHostUnregistered"), this, SLOT(hostUnregistered()));
    askForHost();
}

void TrayHost::setEmbedderPresent(bool present) {
    const TrayKind before = kind();
    m_embedderPresent = present;
    tellChange(before);
}

TrayKind TrayHost::kind() const {
    if (m_notifier == Notifier::present)
        return TrayKind::statusNotifier;
    if (m_notifier == Notifier::absent && m_embedderPresent)
        return TrayKind::xembed;
    return TrayKind::none;
}

/// The watcher alone shows nothing: a host has to have registered with it.
void TrayHost::askForHost() {
    setNotifier(Notifier::asking);
    QDBusMessage question = QDBusMessage::createMethodCall(
        watcherService, watcherPath, QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"));
    question.setAutoStartService(false);
    question << watcherService << QStringLiteral("IsStatusNotifierHostRegistered");
    auto* answer = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(question, answerMilliseconds), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        hostAnswered(answer->reply());
    });
}

void TrayHost::hostAnswered(const QDBusMessage& answer) {
    if (m_notifier != Notifier::asking)
        return;
    const bool isReply =
        answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty();
    const bool registered =
        isReply && answer.arguments().constFirst().value<QDBusVariant>().variant().toBool();
    setNotifier(registered ? Notifier::present : Notifier::absent);
}

void TrayHost::setNotifier(Notifier notifier) {
    const TrayKind before = kind();
    m_notifier = notifier;
    tellChange(before);
}

void TrayHost::tellChange(TrayKind before) {
    if (kind() != before)
        emit kindChanged();
}

void TrayHost::hostRegistered() {
    setNotifier(Notifier::present);
}

/// Others may still be registered.
void TrayHost::hostUnregistered() {
    askForHost();
}

} // namespace quorvel

#pragma once

#include <QDBusConnection>
#include <QObject>

class QDBusMessage;

namespace quorvel {

enum class TrayKind { none, xembed, statusNotifier };

/// Tells whether something on this desktop can show a tray icon, without touching the toolkit's
/// tray code: that decides once per process, at its first use, which of the two ways it takes, so
/// it may not be touched before there is a host.
class TrayHost final : public QObject {
    Q_OBJECT

public:
    explicit TrayHost(QObject* parent = nullptr);

    /// Starts to watch; does not wait for anybody's answer. Without a session bus only
    /// `setEmbedderPresent` can bring a host.
    void start();

    /// Whether a window takes in tray icons; told by the display system's adapter.
    void setEmbedderPresent(bool present);

    /// The host at this moment. None while it is not yet known which kind it is.
    TrayKind kind() const;

signals:
    void kindChanged();

private:
    enum class Notifier { absent, asking, present };

    void askForHost();
    void setNotifier(Notifier notifier);
    void hostAnswered(const QDBusMessage& answer);
    void tellChange(TrayKind before);

private slots:
    void hostRegistered();
    void hostUnregistered();

private:
    Notifier m_notifier = Notifier::absent;
    bool m_embedderPresent = false;
};

} // namespace quorvel

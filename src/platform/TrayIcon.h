#pragma once

#include <QObject>
#include <QString>

namespace quorvel {

/// The program's icon beside the clock. Main thread only.
class TrayIcon : public QObject {
    Q_OBJECT

public:
    /// Shows the icon as soon as there is a place for it; a place that comes later gets it too.
    virtual void show(const QString& toolTip) = 0;

    /// By the name of an embedded icon; the product's own for a name that is not known.
    virtual void setIcon(const QString& name) = 0;

    /// Where the icon is: "none", "waiting", "xembed" or "statusnotifier".
    virtual QString state() const = 0;

    /// A short message beside the icon; where there is no icon it is only logged.
    virtual void notify(const QString& title, const QString& message) = 0;

signals:
    void activated();
    void settingsRequested();
    void quitRequested();
};

} // namespace quorvel

#pragma once

#include "platform/TrayIcon.h"
#include "ui/TrayHost.h"

#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>

#include <memory>

namespace quorvel {

class Icons;
class StringTable;

/// Our icon in the desktop's tray, there as soon as the desktop has a tray. A click asks for our
/// own menu; the other button offers a short plain one that every host can show.
class StatusItem final : public TrayIcon {
    Q_OBJECT

public:
    StatusItem(const StringTable& strings, const Icons& icons);

    void show(const QString& toolTip) override;
    void setIcon(const QString& name) override;
    QString state() const override;
    void notify(const QString& title, const QString& message) override;

    /// Whether a window takes in tray icons; told by the display system's adapter.
    void setEmbedderPresent(bool present) { m_host.setEmbedderPresent(present); }

private:
    void buildMenu(const StringTable& strings);
    void hostChanged();
    void appear();
    void clicked(QSystemTrayIcon::ActivationReason reason);

    const Icons& m_icons;
    TrayHost m_host;
    QIcon m_icon;
    QString m_toolTip;
    QMenu m_menu;
    std::unique_ptr<QSystemTrayIcon> m_trayIcon;
    bool m_isWanted = false;
};

} // namespace quorvel

#include "ui/StatusItem.h"

#include "foundation/Log.h"
#include "foundation/StringTable.h"
#include "ui/Icons.h"

namespace quorvel {

StatusItem::StatusItem(const StringTable& strings, const Icons& icons)
    : m_icons(icons)
    , m_icon(icons.application()) {
    buildMenu(strings);
    connect(&m_host, &TrayHost::kindChanged, this, &StatusItem::hostChanged);
}

void StatusItem::show(const QString& toolTip) {
    m_toolTip = toolTip;
    m_isWanted = true;
    m_host.start();
    hostChanged();
}

/// The colour of the panel is not known: one-coloured icons take one that light and dark leave
/// legible.
void StatusItem::setIcon(const QString& name) {
    const QColor neutral(0x7f, 0x8b, 0x9c);
    const bool isOurs = name == QLatin1StringView("quorvel");
    const QIcon symbol = isOurs ? QIcon() : m_icons.symbol(name, neutral);
    m_icon = symbol.isNull() ? m_icons.application() : symbol;
    if (m_trayIcon)
        m_trayIcon->setIcon(m_icon);
}

QString StatusItem::state() const {
    if (!m_isWanted)
        return QStringLiteral("none");
    switch (m_host.kind()) {
    case TrayKind::xembed:
        return QStringLiteral("xembed");
    case TrayKind::statusNotifier:
        return QStringLiteral("statusnotifier");
    case TrayKind::none:
        break;
    }
    return QStringLiteral("waiting");
}

void StatusItem::buildMenu(const StringTable& strings) {
    const auto add = [&](const char* key, void (TrayIcon::*wanted)()) {
        connect(m_menu.addAction(strings.text(QLatin1StringView(key))), &QAction::triggered, this,
                wanted);
    };
    add("tray.open", &TrayIcon::activated);
    add("action.settings", &TrayIcon::settingsRequested);
    m_menu.addSeparator();
    add("action.quit", &TrayIcon::quitRequested);
}

/// Once shown, the icon is kept by the toolkit through restarts of the tray.
void StatusItem::hostChanged() {
    if (m_isWanted && !m_trayIcon && m_host.kind() != TrayKind::none)
        appear();
}

void StatusItem::appear() {
    m_trayIcon = std::make_unique<QSystemTrayIcon>(m_icon);
    m_trayIcon->setToolTip(m_toolTip);
    m_trayIcon->setContextMenu(&m_menu);
    connect(m_trayIcon.get(), &QSystemTrayIcon::activated, this, &StatusItem::clicked);
    m_trayIcon->show();
}

/// A double click has told its first click as a trigger already.
void StatusItem::clicked(QSystemTrayIcon::ActivationReason reason) {
    if (reason == QSystemTrayIcon::Trigger)
        emit activated();
}

void StatusItem::notify(const QString& title, const QString& message) {
    logLine(QStringLiteral("[Quorvel Notice] %1: %2").arg(title, message));
    if (m_trayIcon)
        m_trayIcon->showMessage(title, message, m_icon);
}

} // namespace quorvel

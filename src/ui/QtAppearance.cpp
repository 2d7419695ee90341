#include "ui/QtAppearance.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QSettings>
#include <QStandardPaths>

#include <array>

namespace quorvel {

namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString portalSettings = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceSpace = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");

/// As the portal numbers them (https://flatpak.github.io/xdg-desktop-portal/).
constexpr uint prefersDark = 1;
constexpr uint prefersLight = 2;

struct ThemeColors {
    QRgb window;
    QRgb base;
    QRgb text;
    QRgb button;
    QRgb highlight;
    QRgb highlightedText;
    QRgb link;
};

constexpr ThemeColors dark{0xff2a2b2f, 0xff212226, 0xffeceef1, 0xff36383d,
                           0xff3b82d6, 0xffffffff, 0xff7db4f5};
constexpr ThemeColors coffee{0xff2f241e, 0xff271d18, 0xfff4e9dd, 0xff3e3028,
                             0xffb9783f, 0xfffffaf4, 0xffe0aa74};
constexpr ThemeColors pizza{0xfffdf1dc, 0xfffff9ee, 0xff3a2217, 0xfff6e2c1,
                            0xffc2412d, 0xffffffff, 0xff9b2f1d};

QColor between(QRgb a, QRgb b) {
    const QColor first(a);
    const QColor second(b);
    return {(first.red() + second.red()) / 2, (first.green() + second.green()) / 2,
            (first.blue() + second.blue()) / 2};
}

QPalette paletteOf(const ThemeColors& colors) {
    QPalette palette(QColor(colors.button), QColor(colors.window));
    const QColor text(colors.text);
    palette.setColor(QPalette::Base, colors.base);
    palette.setColor(QPalette::AlternateBase, colors.window);
    palette.setColor(QPalette::ToolTipBase, colors.base);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::BrightText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, between(colors.text, colors.window));
    }
    palette.setColor(QPalette::PlaceholderText, between(colors.text, colors.base));
    palette.setColor(QPalette::Highlight, colors.highlight);
    palette.setColor(QPalette::HighlightedText, colors.highlightedText);
    palette.setColor(QPalette::Link, colors.link);
    return palette;
}

bool isDark(const QPalette& palette) {
    constexpr int middle = 128;
    return palette.color(QPalette::Window).lightness() < middle;
}

/// What users of light desktops without a portal set.
bool gtkWantsDark() {
    const QString file = QStandardPaths::locate(QStandardPaths::GenericConfigLocation,
                                                QStringLiteral("gtk-3.0/settings.ini"));
    if (file.isEmpty())
        return false;
    const QSettings settings(file, QSettings::IniFormat);
    const QString prefers =
        settings.value(QStringLiteral("Settings/gtk-application-prefer-dark-theme")).toString();
    const QString theme = settings.value(QStringLiteral("Settings/gtk-theme-name")).toString();
    return prefers == u"1" || prefers == u"true" ||
           theme.endsWith(QLatin1StringView("-dark"), Qt::CaseInsensitive);
}

} // namespace

QtAppearance::QtAppearance()
    : m_original(QApplication::palette()) {}

void QtAppearance::apply(AppThemePreset theme) {
    m_theme = theme;
    show();
    if (theme == AppThemePreset::system && !m_portalWantsDark)
        askPortal();
}

/// Nobody waits for the answer; the first picture is what GTK's settings say.
void QtAppearance::askPortal() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    bus.connect(portalService, portalPath, portalSettings, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(portalService, portalPath,
                                                           portalSettings, QStringLiteral("Read"));
    question.setAutoStartService(false);
    question << appearanceSpace << colorScheme;
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid())
            setPortalAnswer(reply.value().variant());
        answer->deleteLater();
    });
}

void QtAppearance::settingChanged(const QString& space, const QString& key,
                                  const QDBusVariant& value) {
    if (space == appearanceSpace && key == colorScheme)
        setPortalAnswer(value.variant());
}

/// The answer to a question is wrapped once more than the news of a change.
void QtAppearance::setPortalAnswer(const QVariant& value) {
    const QVariant bare =
        value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant() : value;
    const uint scheme = bare.toUInt();
    if (scheme == prefersDark || scheme == prefersLight)
        m_portalWantsDark = scheme == prefersDark;
    else
        m_portalWantsDark.reset();
    show();
}

bool QtAppearance::isDarkWanted() const {
    return m_portalWantsDark.value_or(gtkWantsDark());
}

void QtAppearance::show() {
    switch (m_theme) {
    case AppThemePreset::coffee:
        return QApplication::setPalette(paletteOf(coffee));
    case AppThemePreset::pizza:
        return QApplication::setPalette(paletteOf(pizza));
    case AppThemePreset::system:
        break;
    }
    const bool needsOurs = isDarkWanted() && !isDark(m_original);
    QApplication::setPalette(needsOurs ? paletteOf(dark) : m_original);
}

} // namespace quorvel

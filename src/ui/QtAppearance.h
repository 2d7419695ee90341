#pragma once

#include "platform/Appearance.h"

#include <QDBusVariant>
#include <QObject>
#include <QPalette>

#include <optional>

namespace quorvel {

/// Gives the toolkit its palette. Where the desktop asks for dark windows and the toolkit has not
/// heard of it, the palette is ours: asked of the desktop's settings portal, else read from the
/// settings of GTK.
class QtAppearance final : public QObject, public Appearance {
    Q_OBJECT

public:
    QtAppearance();

    void apply(AppThemePreset theme) override;

private slots:
    void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

private:
    void askPortal();
    void setPortalAnswer(const QVariant& value);
    void show();
    bool isDarkWanted() const;

    const QPalette m_original;
    AppThemePreset m_theme = AppThemePreset::system;
    std::optional<bool> m_portalWantsDark;
};

} // namespace quorvel

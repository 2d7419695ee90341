#include "app/preferences/AppearanceOptions.h"

#include <array>

namespace quorvel {

namespace {

constexpr std::array<QStringView, 3> themeNames{u"system", u"coffee", u"pizza"};
constexpr std::array<QStringView, 2> iconSetNames{u"classic", u"quorvel"};

struct MenuBarIcon {
    QStringView name;
    QStringView classicSymbol;
};

/// In the order of the options.
constexpr std::array menuBarIcons{
    MenuBarIcon{u"quorvel", u"quorvel"},
    MenuBarIcon{u"system", u"doc.on.clipboard"},
    MenuBarIcon{u"clipboardText", u"list.clipboard"},
    MenuBarIcon{u"clipboardBadge", u"doc.on.clipboard.fill"},
    MenuBarIcon{u"bubble", u"text.bubble"},
    MenuBarIcon{u"bolt", u"bolt.circle"},
};

template <typename Option, std::size_t count>
Option optionNamed(const QString& name, const std::array<QStringView, count>& names) {
    for (std::size_t i = 0; i < count; ++i)
        if (names[i] == name)
            return static_cast<Option>(i);
    return static_cast<Option>(0);
}

} // namespace

AppThemePreset themePreset(const Preferences& preferences) {
    return optionNamed<AppThemePreset>(preferences.text(keys::selectedTheme), themeNames);
}

QString menuBarIcon(const Preferences& preferences) {
    const auto set =
        optionNamed<MenuBarIconSetOption>(preferences.text(keys::selectedIconSet), iconSetNames);
    const QString chosen = preferences.text(keys::selectedIcon);
    for (const MenuBarIcon& icon : menuBarIcons) {
        if (icon.name != chosen)
            continue;
        return set == MenuBarIconSetOption::classic
                   ? icon.classicSymbol.toString()
                   : QStringLiteral("MenuIcon.Quorvel.") + icon.name.toString();
    }
    return menuBarIcons.front().classicSymbol.toString();
}

} // namespace quorvel

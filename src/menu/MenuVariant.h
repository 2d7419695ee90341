#pragma once

#include <QStringView>

#include <array>
#include <optional>

namespace quorvel {

/// Which flavour of the menu is shown: by a click on the status item, or by one of the hot keys.
enum class MenuVariant { main, pasteHotKey, copyHotKey, translateHotKey };

/// As users name them.
inline constexpr std::array<QStringView, 4> menuVariantNames{u"main", u"paste", u"copy",
                                                             u"translate"};

/// Nothing for a name that no flavour has.
inline std::optional<MenuVariant> menuVariantNamed(QStringView name) {
    for (std::size_t i = 0; i < menuVariantNames.size(); ++i)
        if (menuVariantNames[i] == name)
            return static_cast<MenuVariant>(i);
    return std::nullopt;
}

} // namespace quorvel

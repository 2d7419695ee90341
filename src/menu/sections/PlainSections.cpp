#include "menu/sections/Sections.h"

namespace quorvel {

QList<MenuItem> problemSection(const MenuBuild& build) {
    if (build.state().problem.isEmpty())
        return {};
    MenuItem item = MenuItem::disabled(build.content().strings.format(
        QStringLiteral("menu.saveProblem.format"), build.state().problem));
    item.symbol = QStringLiteral("exclamationmark.triangle");
    return {item};
}

QList<MenuItem> hintSection(const MenuBuild& build) {
    if (build.state().hint.isEmpty())
        return {};
    return {{.kind = MenuItemKind::hint,
             .title = build.state().hint,
             .action = MenuAction::disableHintsSection, // for a form that can offer it in passing
             .symbol = QStringLiteral("lightbulb"),
             .enabled = false}};
}

/// There is nothing to translate with yet: the entry keeps its place and says so.
QList<MenuItem> translationSection(const MenuBuild& build) {
    MenuItem item{.title = build.text("menu.translate"), .symbol = QStringLiteral("translate")};
    if (build.state().variant == MenuVariant::translateHotKey)
        return {MenuItem::disabled(build.text("menu.translate.notAvailable"))};
    if (!build.content().preferences.isOn(keys::translationEnabled))
        return {};
    item.submenu.append(MenuItem::disabled(build.text("menu.translate.notAvailable")));
    return {item};
}

/// The menus that hot keys open have no quit item: a slip of the finger must not end the program.
QList<MenuItem> footerSection(const MenuBuild& build) {
    QList<MenuItem> items{
        {.title = build.text("achievements.title"),
         .symbol = QStringLiteral("trophy"),
         .enabled = false}, // its page comes with the settings window
        {.title = build.text("action.settings"),
         .action = MenuAction::openGeneralSettings,
         .symbol = QStringLiteral("gearshape")},
    };
    if (build.state().variant == MenuVariant::main)
        items.append({.title = build.text("action.quit"),
                      .action = MenuAction::quit,
                      .symbol = QStringLiteral("rectangle.portrait.and.arrow.right")});
    return items;
}

} // namespace quorvel

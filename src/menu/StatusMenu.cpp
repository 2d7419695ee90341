#include "menu/StatusMenu.h"

#include "menu/ClipsSection.h"

namespace quorvel {

namespace {

MenuItem command(const QString& title, const char* symbol, MenuAction action) {
    return {.title = title, .action = action, .symbol = QString::fromLatin1(symbol)};
}

enum class FooterKind { brief, full };

/// The menus that hot keys open have no quit item: a slip of the finger must not end the program.
QList<MenuItem> footer(const StringTable& strings, FooterKind kind) {
    QList<MenuItem> items{
        {.title = strings.text(QStringLiteral("achievements.title")),
         .symbol = QStringLiteral("trophy"),
         .enabled = false}, // its page comes with the settings window
        command(strings.text(QStringLiteral("action.settings")), "gearshape",
                MenuAction::openGeneralSettings),
    };
    if (kind == FooterKind::full)
        items.append(command(strings.text(QStringLiteral("action.quit")),
                             "rectangle.portrait.and.arrow.right", MenuAction::quit));
    return items;
}

} // namespace

QList<MenuItem> statusMenu(const MenuContent& content, MenuVariant variant,
                           const QString& saveProblem) {
    QList<MenuItem> items;
    if (!saveProblem.isEmpty()) {
        items.append(MenuItem::disabled(
            content.strings.format(QStringLiteral("menu.saveProblem.format"), saveProblem)));
        items.append(MenuItem::separator());
    }
    items += clipsSection(content);
    items.append(MenuItem::separator());
    items += footer(content.strings,
                    variant == MenuVariant::main ? FooterKind::full : FooterKind::brief);
    return items;
}

} // namespace quorvel

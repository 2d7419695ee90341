#include "menu/StatusMenu.h"

#include "menu/sections/Sections.h"

namespace quorvel {

namespace {

using Section = QList<MenuItem> (*)(const MenuBuild&);

QList<Section> sections(MenuVariant variant) {
    const QList<Section> top{problemSection, hintSection, searchSection, translationSection};
    const QList<Section> clips{clipsSection, pinnedSection, smartFoldersSection, snippetsSection,
                               footerSection};
    switch (variant) {
    case MenuVariant::main:
    case MenuVariant::pasteHotKey:
        return top + clips;
    case MenuVariant::copyHotKey:
        return top + QList<Section>{copiedTextSection, copyToolsSection} + clips;
    case MenuVariant::translateHotKey:
        return {translationSection};
    }
    Q_UNREACHABLE();
}

} // namespace

QList<MenuItem> statusMenu(const MenuContent& content, const MenuState& state) {
    const MenuBuild build(content, state);
    QList<MenuItem> items;
    for (const Section section : sections(state.variant)) {
        QList<MenuItem> next = section(build);
        if (!items.isEmpty() && !next.isEmpty())
            items.append(MenuItem::separator());
        items.append(std::move(next));
    }
    return items;
}

} // namespace quorvel

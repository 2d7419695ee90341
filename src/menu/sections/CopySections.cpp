#include "menu/sections/Sections.h"

#include <array>

namespace quorvel {

namespace {

struct CopyTool {
    const char* title;
    MenuAction action;
    QStringView symbol;
};

constexpr std::array copyTools{
    CopyTool{"menu.copyAsPlainText", MenuAction::copyClipboardAsPlainText, u"textformat"},
    CopyTool{"menu.copyTrimCollapse", MenuAction::copyClipboardTrimAndCollapse,
             u"arrow.left.and.right.text.vertical"},
    CopyTool{"menu.copyUppercase", MenuAction::copyClipboardUppercase, u"textformat.size.larger"},
    CopyTool{"menu.copyLowercase", MenuAction::copyClipboardLowercase, u"textformat.size.smaller"},
    CopyTool{"menu.copyTitleCase", MenuAction::copyClipboardTitleCase, u"textformat.alt"},
};

} // namespace

QList<MenuItem> copiedTextSection(const MenuBuild& build) {
    MenuItem header = MenuItem::header(build.text("menu.copiedText"));
    header.symbol = QStringLiteral("doc.text");
    const MenuContent& content = build.content();
    if (!build.pasteboardHasText())
        return {header, MenuItem::disabled(build.text("menu.noCopiedText"))};
    const QString text = content.pasteboard.string();
    const bool isMasked = content.preferences.isOn(keys::sensitiveDataMaskingEnabled);
    return {header,
            {.kind = MenuItemKind::textBox,
             .title = isMasked ? ShownTexts::worked(text) : text,
             .enabled = false}};
}

QList<MenuItem> copyToolsSection(const MenuBuild& build) {
    MenuItem tools{.title = build.text("menu.copyTools"), .symbol = QStringLiteral("doc.on.doc")};
    for (const CopyTool& tool : copyTools)
        tools.submenu.append({.title = build.text(tool.title),
                              .action = tool.action,
                              .symbol = tool.symbol.toString(),
                              .enabled = build.pasteboardHasText()});
    return {tools};
}

} // namespace quorvel

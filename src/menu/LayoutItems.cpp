#include "menu/LayoutItems.h"

#include "foundation/Text.h"
#include "menu/ClipItems.h"
#include "paste/ContextPastePayload.h"

namespace quorvel {

namespace {

/// In UTF-16 units. Nobody types more before noticing the wrong layout.
constexpr qsizetype longestText = 2000;

MenuItem layoutItem(const KeyboardLayoutPasteVariant& variant, const MenuBuild& build) {
    const QString line = singleLine(variant.value);
    return {.title = build.content().strings.format(
                QStringLiteral("action.pasteKeyboardLayout.format"), variant.layoutName),
            .detail = shortened(line, titleLimit, titleTail),
            .action = MenuAction::pasteContextValue,
            .representedObject = ContextPastePayload{variant.value, variant.targetLayoutID}.text(),
            .symbol = QStringLiteral("keyboard"),
            .toolTip = variant.value};
}

} // namespace

QList<MenuItem> layoutItems(const QString& text, const QString& shown, const MenuBuild& build) {
    QList<MenuItem> items;
    if (text.size() > longestText)
        return items;
    for (const auto& variant : build.content().layoutVariants.variants(text)) {
        if (variant.likelihood == VariantLikelihood::unlikely)
            continue;
        if (items.isEmpty())
            items.append(MenuItem::separator());
        items.append(layoutItem(variant, build));
        if (shown == text)
            continue;
        items.last().detail.clear();
        items.last().toolTip.clear();
    }
    return items;
}

} // namespace quorvel

#include "menu/ClipItems.h"

#include "foundation/Text.h"
#include "menu/ClipDetails.h"
#include "menu/Symbols.h"

#include <QStringBuilder>

namespace quorvel {

namespace {

constexpr qsizetype numberKeys = 10;

QString cut(const QString& line, TitleLength length) {
    return length == TitleLength::whole ? line : shortened(line, titleLimit, titleTail);
}

/// In option mode a row leads to all that can be done with it, as far as it has no submenu yet.
void finish(MenuItem& item, const MenuBuild& build) {
    if (build.state().isOptionMode)
        leadToModes(item);
}

QString editTitle(const QString& title, const MenuBuild& build) {
    const bool isEdited = build.state().isControlHeld && !build.state().isOptionMode;
    return isEdited ? build.content().strings.format(
                          QStringLiteral("menu.pasteWithEdit.itemFormat"), title)
                    : title;
}

} // namespace

QString shownText(const RecentClipboardEntry& entry, const MenuContent& content) {
    return content.preferences.isOn(keys::sensitiveDataMaskingEnabled)
               ? content.shownTexts.shown(entry.id, entry.text)
               : entry.text;
}

QString shownText(const Snippet& snippet, const MenuContent& content) {
    return content.preferences.isOn(keys::sensitiveDataMaskingEnabled)
               ? content.shownTexts.shownNow(snippet.id, snippet.text)
               : snippet.text;
}

QString displayTitle(const RecentClipboardEntry& entry, const MenuContent& content,
                     TitleLength length) {
    if (entry.isImage())
        return content.text("menu.image");
    return cut(singleLine(shownText(entry, content)), length);
}

MenuItem clipItem(const RecentClipboardEntry& entry, const MenuBuild& build, QStringView prefix) {
    const MenuContent& content = build.content();
    MenuItem item;
    const auto length = build.state().isOptionMode ? TitleLength::whole : TitleLength::shortened;
    const QString title = displayTitle(entry, content, length);
    item.title = entry.isImage() ? title : editTitle(title, build);
    item.detail = clipDetail(entry, content);
    item.action = MenuAction::pasteRecentSnippet;
    item.representedObject = prefix % idText(entry.id);
    item.imagePNGData = entry.imagePNGData;
    item.symbol = clipSymbol(entry);
    item.colorName = clipColor(entry);
    item.toolTip = entry.isImage() ? QString() : shownText(entry, content);
    item.isPinned = isPinnedNow(entry, content.clock);
    item.tag = pasteItemTag;
    finish(item, build);
    return item;
}

void leadToModes(MenuItem& item) {
    item.identifier = advancedIdentifier % item.representedObject;
}

MenuItem snippetItem(const Snippet& snippet, const QUuid& group, const MenuBuild& build,
                     QStringView prefix) {
    MenuItem item = plainSnippetItem(snippet, group, build.content(), prefix);
    finish(item, build);
    return item;
}

MenuItem plainSnippetItem(const Snippet& snippet, const QUuid& group, const MenuContent& content,
                          QStringView prefix) {
    MenuItem item;
    item.title = shortened(singleLine(snippet.title), titleLimit, titleTail);
    item.action = group.isNull() ? MenuAction::pasteRootSnippet : MenuAction::pasteGroupSnippet;
    item.representedObject = prefix % snippetText(group, snippet.id);
    item.symbol = QStringLiteral("text.quote");
    item.toolTip = shownText(snippet, content);
    item.tag = pasteItemTag;
    return item;
}

KeyEquivalent numberKey(qsizetype index) {
    if (index >= numberKeys)
        return {};
    return {QString::number((index + 1) % numberKeys), Modifier::command};
}

KeyEquivalent shortcutKeys(const Snippet& snippet) {
    if (!snippet.customShortcut)
        return {};
    return {snippet.customShortcut->key, snippet.customShortcut->modifiers()};
}

QString idText(const QUuid& id) {
    return id.toString(QUuid::WithoutBraces).toUpper();
}

QString snippetText(const QUuid& group, const QUuid& snippet) {
    return group.isNull() ? idText(snippet) : idText(group) + u'|' + idText(snippet);
}

} // namespace quorvel

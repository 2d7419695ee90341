#include "menu/Symbols.h"

#include "smart/rules/ColorValue.h"

#include <array>

namespace quorvel {

namespace {

struct TagSymbol {
    ClipboardAutoTag tag;
    QStringView symbol;
};

/// What tells most about a clip comes first.
constexpr std::array tagSymbols{
    TagSymbol{ClipboardAutoTag::screenshot, u"camera.viewfinder"},
    TagSymbol{ClipboardAutoTag::image, u"photo"},
    TagSymbol{ClipboardAutoTag::pullRequest, u"arrow.triangle.pull"},
    TagSymbol{ClipboardAutoTag::ticket, u"ticket"},
    TagSymbol{ClipboardAutoTag::jiraIssue, u"ticket"},
    TagSymbol{ClipboardAutoTag::color, u"paintpalette"},
    TagSymbol{ClipboardAutoTag::email, u"envelope"},
    TagSymbol{ClipboardAutoTag::url, u"link"},
    TagSymbol{ClipboardAutoTag::card, u"creditcard"},
    TagSymbol{ClipboardAutoTag::iban, u"building.columns"},
    TagSymbol{ClipboardAutoTag::uuid, u"number"},
    TagSymbol{ClipboardAutoTag::ip, u"network"},
    TagSymbol{ClipboardAutoTag::phone, u"phone"},
    TagSymbol{ClipboardAutoTag::address, u"mappin.and.ellipse"},
    TagSymbol{ClipboardAutoTag::date, u"calendar"},
    TagSymbol{ClipboardAutoTag::name, u"person"},
    TagSymbol{ClipboardAutoTag::json, u"curlybraces"},
    TagSymbol{ClipboardAutoTag::terminalCommand, u"terminal"},
    TagSymbol{ClipboardAutoTag::code, u"chevron.left.forwardslash.chevron.right"},
    TagSymbol{ClipboardAutoTag::multiline, u"text.alignleft"},
};

/// In the order of the smart folders.
constexpr std::array<QStringView, smartFolderCount> folderSymbols{
    u"camera.viewfinder",
    u"photo",
    u"ticket",
    u"arrow.triangle.pull",
    u"chevron.left.forwardslash.chevron.right",
    u"terminal",
    u"creditcard",
    u"paintpalette",
    u"person",
    u"envelope",
    u"link",
    u"phone",
    u"calendar",
    u"mappin.and.ellipse",
    u"number",
    u"building.columns",
    u"network",
};

} // namespace

QString clipSymbol(const RecentClipboardEntry& entry) {
    for (const TagSymbol& known : tagSymbols)
        if (entry.autoTags.contains(known.tag))
            return known.symbol.toString();
    return entry.isImage() ? QStringLiteral("photo") : QStringLiteral("doc.plaintext");
}

QString clipColor(const RecentClipboardEntry& entry) {
    if (!entry.autoTags.contains(ClipboardAutoTag::color))
        return {};
    const auto color = colorValue(entry.text);
    return color ? QStringLiteral("#%1%2%3")
                       .arg(color->red, 2, 16, QLatin1Char('0'))
                       .arg(color->green, 2, 16, QLatin1Char('0'))
                       .arg(color->blue, 2, 16, QLatin1Char('0'))
                 : QString();
}

QString folderSymbol(SmartFolderKind folder) {
    return folderSymbols[std::size_t(folder)].toString();
}

} // namespace quorvel

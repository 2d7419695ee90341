#include "menu/RowSource.h"

#include "menu/ClipItems.h"

#include <array>

namespace quorvel {

namespace {

QStringView withoutPrefix(QStringView text) {
    for (const QStringView prefix : {smartRecentPrefix, smartRootPrefix, smartGroupPrefix})
        if (text.startsWith(prefix))
            return text.sliced(prefix.size());
    return text;
}

} // namespace

RowSource rowSource(QStringView representedObject) {
    const QStringView ids = withoutPrefix(representedObject);
    const qsizetype bar = ids.indexOf(u'|');
    if (bar < 0)
        return {QUuid::fromString(ids), {}};
    return {QUuid::fromString(ids.sliced(bar + 1)), QUuid::fromString(ids.first(bar))};
}

std::optional<RowSourceWithMode> rowSourceWithMode(QStringView representedObject) {
    const qsizetype bar = representedObject.lastIndexOf(u'|');
    if (bar < 0)
        return std::nullopt;
    const auto option = pasteOption(representedObject.sliced(bar + 1));
    const RowSource source = rowSource(representedObject.first(bar));
    if (!option || source.id.isNull())
        return std::nullopt;
    return RowSourceWithMode{source, *option};
}

} // namespace quorvel

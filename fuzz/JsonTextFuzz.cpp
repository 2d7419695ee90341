#include "FuzzText.h"

#include "smart/rules/JsonText.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

/// Whether the other parser reads back what it wrote of this text: such a text is JSON for sure.
QString rewritten(const QString& text) {
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    return document.isNull() ? QString()
                             : QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text = quorvel::fuzz::textOf(data, size);
    const bool isDocument = quorvel::isJsonDocument(text);
    const QString other = rewritten(text);
    if (isDocument)
        quorvel::fuzz::require(!other.isEmpty());
    const bool isShallow = other.count(u'[') + other.count(u'{') < 500;
    if (!other.isEmpty() && isShallow && other.isValidUtf16() && !other.contains(u'\\'))
        quorvel::fuzz::require(quorvel::isJsonDocument(other));
    return 0;
}

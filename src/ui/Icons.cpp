#include "ui/Icons.h"

namespace quorvel {

namespace {

constexpr int mostTintedPictures = 400;

} // namespace

Icons::Icons()
    : m_pictures(std::make_shared<TintedPictures>(mostTintedPictures)) {}

QIcon Icons::symbol(const QString& name) const {
    const auto known = m_symbols.constFind(name);
    if (known != m_symbols.constEnd())
        return *known;
    if (!TemplateIconEngine::isEmbedded(name))
        return {};
    QIcon icon(new TemplateIconEngine(name, m_pictures));
    icon.setIsMask(true);
    m_symbols.insert(name, icon);
    return icon;
}

QIcon Icons::symbol(const QString& name, const QColor& colour) const {
    return TemplateIconEngine::isEmbedded(name)
               ? QIcon(new TemplateIconEngine(name, m_pictures, colour))
               : QIcon();
}

QIcon Icons::application() const {
    QIcon icon;
    for (int pixels : {16, 22, 24, 32, 48, 64, 128})
        icon.addFile(QStringLiteral(":/quorvel/icons/quorvel-%1.png").arg(pixels),
                     QSize(pixels, pixels));
    return icon;
}

QIcon Icons::tray(const QColor& colour) const {
    return QIcon(new TemplateIconEngine(QStringLiteral("quorvel.tray"), m_pictures, colour));
}

} // namespace quorvel

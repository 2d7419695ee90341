#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

namespace quorvel {

/// The picture in the PNG data, made to fit `box` (pixels) and never enlarged; null for data that
/// cannot be decoded or that announces more pixels than are worth the time. Any thread.
QImage decodeThumbnail(const QByteArray& png, QSize box);

} // namespace quorvel

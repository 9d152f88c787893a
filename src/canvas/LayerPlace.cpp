#include "canvas/LayerPlace.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>

#include <cmath>

std::optional<LayerPlace> LayerPlace::of(QPainter* painter)
{
    const QPaintEngine* const engine = painter->paintEngine();
    if (!engine || engine->type() != QPaintEngine::Raster || painter->opacity() != 1.0 ||
        painter->compositionMode() != QPainter::CompositionMode_SourceOver) {
        return std::nullopt;
    }
    LayerPlace place;
    place.ratio = painter->device()->devicePixelRatioF();
    const QTransform transform = painter->deviceTransform();
    const bool isPlain = transform.type() <= QTransform::TxScale &&
                         qFuzzyCompare(transform.m11(), place.ratio) &&
                         qFuzzyCompare(transform.m22(), place.ratio);
    if (!isPlain) {
        return std::nullopt;
    }
    place.origin = QPoint(qRound(transform.dx()), qRound(transform.dy()));
    return place;
}

QSize LayerPlace::pictureSize(const QSize& canvas) const
{
    return QSize(qRound(std::ceil(canvas.width() * ratio)),
                 qRound(std::ceil(canvas.height() * ratio)));
}

QImage LayerPlace::newPicture(const QSize& canvas) const
{
    QImage picture(pictureSize(canvas), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    return picture;
}

/// In the device's own pixels, so that nothing is scaled or smoothed.
void LayerPlace::draw(QPainter* painter, const QImage& picture) const
{
    const QTransform kept = painter->worldTransform();
    const QTransform device = painter->deviceTransform();
    const QTransform toLogical = device.inverted();
    QTransform onPixels = QTransform::fromTranslate(origin.x(), origin.y()) * toLogical * kept;
    painter->setWorldTransform(onPixels);
    QImage inPixels = picture; // shares the pixels
    inPixels.setDevicePixelRatio(1.0);
    painter->drawImage(QPoint(0, 0), inPixels);
    painter->setWorldTransform(kept);
}

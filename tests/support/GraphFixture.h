#pragma once

#include "core/SplineBase.h"
#include "graphs/SplineCurveGraph.h"
#include "graphs/ViewPort.h"
#include "support/Pixels.h"

#include <QImage>
#include <QPainter>

/// A graph of a spline on a canvas of 400 by 200 pixels over 0 to 10 seconds and -1 to 1 in
/// value: a second is 40 pixels, a unit of value 100.
struct GraphFixture
{
    SplineBase spline;
    ViewPort view;
    SplineCurveGraph graph;

    GraphFixture()
        : graph(&spline, &view)
    {
        view.viewWidth = 400;
        view.viewHeight = 200;
        view.showFrames = false;
        view.minX = 0.0;
        view.maxX = 10.0;
        graph.isActive = true;
        graph.setColors(Qt::green, QColor(0, 127, 0));
    }

    PointInfo* addKey(const double& time, const double& value,
                      const zk_spline::interpolationType& type = zk_spline::linear)
    {
        auto* key = new PointInfo;
        key->time = time;
        key->value = value;
        key->type = type;
        return spline.addPointPtr(key);
    }

    PointInfo* addBezier(const double& time, const double& value, const double& slope)
    {
        PointInfo* key = addKey(time, value, zk_spline::bezier);
        key->bezier.tangentLeft = slope;
        key->bezier.tangentRight = slope;
        return key;
    }

    /// As the curve does before it draws.
    void rebuild(const float& lowest = -1000.0f, const float& highest = 1000.0f)
    {
        graph.rebuildSpline(&view, lowest, highest);
        spline.setChanged(false);
    }

    /// What a drawing operation leaves on a black canvas.
    template <typename Draw>
    QImage drawn(const Draw& draw)
    {
        QImage image(400, 200, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        draw(&painter);
        return image;
    }
};

inline bool isBlank(const QImage& image)
{
    return countOf(image, Qt::black) == image.width() * image.height();
}

#pragma once

#include "core/SplineBase.h"
#include "graphs/ControlSplineNode.h"
#include "support/FailOnWarning.h"

#include <QObject>

#include <memory>

/// A selection on a spline of three keys: 5 at 0 s, 3 at 1 s and 9 at 2 s.
class ControlSplineNodeTest : public QObject
{
protected:
    void openNode()
    {
        failOnUnexpectedWarning();
        spline = std::make_unique<SplineBase>();
        spline->addPoint(0.0, 5.0);
        spline->addPoint(1.0, 3.0);
        spline->addPoint(2.0, 9.0);
        spline->setChanged(false);
        node = std::make_unique<ControlSplineNode>(nullptr, spline.get());
    }

    PointInfo* key(const unsigned& index) { return spline->at(index); }
    KeyRef ref(const unsigned& index) { return {key(index), spline->keySerial(key(index))}; }

    std::unique_ptr<SplineBase> spline;
    std::unique_ptr<ControlSplineNode> node;
};

#pragma once

#include "CurveState.h"

class QLineEdit;
struct DemoTools;

/// An expression lets the gull follow the boat: typed, built from the Insert menu, mended, added
/// to the keys, deleted, and taken back.
class ExpressionChapter
{
public:
    explicit ExpressionChapter(DemoTools& demoTools);

    bool run();

private:
    bool typeExpression();
    bool insertFunction();
    bool insertVariable();
    bool dragLeader();
    bool provokeError();
    bool mendError();
    bool addToKeys();
    bool deleteExpression();
    bool undoAll();

    bool finish(const QString& step, double before, bool asSaid);
    double gull() const;

    DemoTools& tools;
    HostCurve& boatX; ///< the store's
    HostCurve& gullY; ///< the store's
    QLineEdit& line;  ///< the editor's
    const std::vector<CurveState> opened;
};

#pragma once

#include <QWidget>

class CurveStore;

/// The picture that the curves move: a boat on an evening sea.
class Stage : public QWidget
{
    Q_OBJECT

public:
    /// `curves` stays the caller's and outlives the stage.
    Stage(const CurveStore& curves, double framesPerSecond, QWidget* parent = nullptr);

    QSize sizeHint() const override;

public slots:
    /// Seconds.
    void setTime(double seconds);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const CurveStore& store;
    const double fps;
    double time = 0.0;
};

#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

class QLabel;
class QSlider;
class QToolButton;

/// A slider over the frames of the animation, with play and pause. Playing starts over at the end.
class TimeLine : public QWidget
{
    Q_OBJECT

public:
    /// The length in seconds.
    TimeLine(double length, double framesPerSecond, QWidget* parent = nullptr);

    bool isPlaying() const;

public slots:
    /// Moves to the frame nearest to a time in seconds.
    void setTime(double seconds);
    void setPlaying(bool on);

signals:
    /// Seconds; while playing, between the frames as well.
    void timeChanged(double seconds);
    void playingChanged(bool on);

private:
    void advance();
    void moveTo(double seconds);
    void sliderMoved(int frame);

    const double duration; ///< seconds
    const double fps;
    double time = 0.0; ///< seconds
    QTimer ticks;
    QElapsedTimer sinceTick;
    QToolButton* playButton; ///< children
    QSlider* slider;
    QLabel* position;
};

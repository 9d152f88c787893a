#include "TimeLine.h"

#include <core/Truncate.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyle>
#include <QToolButton>

#include <cmath>

TimeLine::TimeLine(double length, double framesPerSecond, QWidget* parent)
    : QWidget(parent)
    , duration(length)
    , fps(framesPerSecond)
    , playButton(new QToolButton(this))
    , slider(new QSlider(Qt::Horizontal, this))
    , position(new QLabel(this))
{
    playButton->setCheckable(true);
    playButton->setAutoRaise(true);
    playButton->setToolTip(tr("Play or pause"));
    slider->setRange(0, truncateToInt(duration * fps));
    slider->setPageStep(truncateToInt(fps));
    position->setMinimumWidth(
        position->fontMetrics().horizontalAdvance(QStringLiteral("F 0000   00.00 s")));
    position->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 12, 6);
    row->setSpacing(10);
    row->addWidget(playButton);
    row->addWidget(slider, 1);
    row->addWidget(position);

    ticks.setInterval(truncateToInt(1000.0 / fps));
    ticks.setTimerType(Qt::PreciseTimer);
    connect(&ticks, &QTimer::timeout, this, &TimeLine::advance);
    connect(playButton, &QToolButton::toggled, this, &TimeLine::setPlaying);
    connect(slider, &QSlider::valueChanged, this, &TimeLine::sliderMoved);
    setPlaying(false);
    moveTo(0.0);
}

bool TimeLine::isPlaying() const
{
    return ticks.isActive();
}

void TimeLine::setTime(double seconds)
{
    moveTo(std::round(seconds * fps) / fps);
}

void TimeLine::setPlaying(bool on)
{
    playButton->setIcon(style()->standardIcon(on ? QStyle::SP_MediaPause : QStyle::SP_MediaPlay));
    playButton->setChecked(on);
    if (on == ticks.isActive()) {
        return;
    }
    if (on) {
        sinceTick.start();
        ticks.start();
    } else {
        ticks.stop();
        setTime(time);
    }
    emit playingChanged(on);
}

void TimeLine::advance()
{
    const double step = static_cast<double>(sinceTick.restart()) / 1000.0;
    moveTo(std::fmod(time + step, duration));
}

void TimeLine::moveTo(double seconds)
{
    time = seconds;
    const int frame = truncateToInt(time * fps + 0.5);
    {
        const QSignalBlocker quiet(slider);
        slider->setValue(frame);
    }
    position->setText(QStringLiteral("F %1   %2 s").arg(frame, 3).arg(time, 5, 'f', 2));
    emit timeChanged(time);
}

void TimeLine::sliderMoved(int frame)
{
    moveTo(frame / fps);
}

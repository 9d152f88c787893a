#include "TimeLine.h"

#include <core/Truncate.h>

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>

#include <cmath>

namespace {

/// Two bars or a triangle, in the colour of the text.
QIcon playIcon(bool playing, const QColor& color)
{
    QPixmap pixmap(48, 48);
    pixmap.setDevicePixelRatio(2.0);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    if (playing) {
        painter.drawRoundedRect(QRectF(6.0, 5.0, 4.5, 14.0), 1.0, 1.0);
        painter.drawRoundedRect(QRectF(13.5, 5.0, 4.5, 14.0), 1.0, 1.0);
    } else {
        painter.drawPolygon(QPolygonF({{7.0, 4.5}, {19.0, 12.0}, {7.0, 19.5}}));
    }
    return QIcon(pixmap);
}

} // namespace

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
    playButton->setIcon(playIcon(on, palette().color(QPalette::WindowText)));
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

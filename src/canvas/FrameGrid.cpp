#include "canvas/FrameGrid.h"

#include "canvas/GridLabels.h"
#include "core/Truncate.h"
#include "graphs/ViewPort.h"

#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace {

constexpr int fewestLines = 5;
// Three or four halvings are the usual case; more than this means a range that doubles cannot
// divide.
constexpr int mostHalvings = 64;

constexpr double borderWidth = 2.0;

double powerOfTen(const int& exponent)
{
    double result = 1.0;
    double square = 10.0;
    for (int bits = std::abs(exponent); bits > 0; bits /= 2) {
        if (bits % 2 == 1) {
            result *= square;
        }
        square *= square;
    }
    return exponent < 0 ? 1.0 / result : result;
}

/// The lines of one axis, in displayed units.
struct AxisLines
{
    double low = 0.0;
    double high = 0.0;
    double span = 0.0;
    double step = 0.0;
    double offset = 0.0; ///< from the low end to the first line
    int count = 0;

    bool divide();
    int zeroIndex() const;
    double at(const int& index) const { return index * step + offset; }
};

/// The power of ten at or below the span, halved until enough lines fit. False for a range that
/// has no lines.
bool AxisLines::divide()
{
    span = std::fabs(high - low);
    if (!(low < high) || !std::isfinite(span)) {
        return false;
    }
    step = powerOfTen(truncateToInt(std::floor(std::log10(span))));
    for (int halvings = 0; halvings <= mostHalvings; ++halvings) {
        if (!(step > 0.0) || !std::isfinite(step) || !std::isfinite(low / step) ||
            !std::isfinite(high / step)) {
            return false;
        }
        const double firstIndex = std::ceil(low / step);
        offset = firstIndex * step - low;
        count = truncateToInt(std::floor(high / step) - firstIndex) + 1;
        if (count >= fewestLines) {
            return true;
        }
        step /= 2.0;
    }
    return false;
}

int AxisLines::zeroIndex() const
{
    const bool zeroIsInside = 0.0 >= low && high > 0.0;
    return zeroIsInside ? truncateToInt(-((low + offset) / step)) : -1;
}

} // namespace

FrameGrid::FrameGrid(QWidget* canvasWidget)
    : owner(canvasWidget)
{
    labelFont = QFont(QStringLiteral("Arial"), 8);
    labelFont.setStretch(87);
    linePen = QPen(QBrush(Qt::white), 1.0, Qt::SolidLine);
    fontColor = Qt::white;
    const QColor borders(220, 255, 255, 255);
    timeLineColor = borders;
    vLineColor = borders;
    hLineColor = borders;
}

void FrameGrid::update(const ViewPort& view)
{
    gridWidth = view.viewWidth;
    gridHeight = view.viewHeight;

    const double scale = view.showFrames ? view.fps : 1.0;
    AxisLines across;
    across.low = scale * view.minX;
    across.high = scale * view.maxX;
    AxisLines up;
    up.low = view.minY;
    up.high = view.maxY;
    if (!across.divide() || !up.divide()) {
        return;
    }

    stepX = across.step;
    stepY = up.step;
    countX = across.count;
    countY = up.count;
    zeroIndexX = across.zeroIndex();
    zeroIndexY = up.zeroIndex();
    firstX = across.low + across.offset;
    firstY = up.low + up.offset;
    snapStepX = stepX / scale;
    snapStepY = stepY;
    timeLinePixel =
        truncateToPixel(view.viewWidth / (view.maxX - view.minX) * (view.timeLine - view.minX));

    const int width = owner->width();
    const int height = owner->height();
    lines.clear();
    lines.reserve(qsizetype{2} * (countX + countY));
    for (int i = 0; i < countX; ++i) {
        const int x = truncateToPixel(across.at(i) * width / across.span);
        lines << QPoint(x, 0) << QPoint(x, height);
    }
    for (int j = 0; j < countY; ++j) {
        const int y = truncateToPixel(height - height * up.at(j) / up.span);
        lines << QPoint(0, y) << QPoint(width, y);
    }
}

void FrameGrid::draw(QPainter* painter)
{
    drawLines(painter);
    drawTimeLine(painter);
    painter->setPen(fontColor);
    drawGridLabels(painter, *this, owner->height());
}

void FrameGrid::drawLines(QPainter* painter) const
{
    painter->setPen(linePen);
    painter->drawLines(lines);
    painter->setPen(QPen(QBrush(vLineColor), borderWidth, Qt::SolidLine));
    painter->drawLine(0, gridHeight, gridWidth, gridHeight);
    painter->setPen(QPen(QBrush(hLineColor), borderWidth, Qt::SolidLine));
    painter->drawLine(0, 0, 0, gridHeight);
}

void FrameGrid::drawTimeLine(QPainter* painter) const
{
    if (0 <= timeLinePixel && timeLinePixel <= gridWidth) {
        painter->setPen(QPen(QBrush(timeLineColor), borderWidth, Qt::SolidLine));
        painter->drawLine(timeLinePixel, 0, timeLinePixel, gridHeight);
    }
}

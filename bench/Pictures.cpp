// The canvas beside a painter that is told to draw the same picture in the same calls.

#include "SideBySide.h"

#include "canvas/FunctionEditor.h"
#include "core/FunctionFloatBase.h"
#include "editor/CurveEditor.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>
#include <map>
#include <memory>
#include <vector>

namespace {

constexpr int width = 1400;
constexpr int height = 800;
constexpr double span = 1000.0; // seconds in view
constexpr int repetitions = 7;  // of tenths of seconds, which need no more

/// The one that windows need; offscreen unless the environment says otherwise.
void needApplication()
{
    static int count = 1;
    static char name[] = "zk_bench";
    static char* arguments[] = {name, nullptr};
    if (!qApp) {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
        }
        new QApplication(count, arguments); // ends with the process
    }
}

double valueAt(int curve, int key)
{
    return std::sin(key * 0.37 + curve) * 0.6 + std::sin(key * 0.011 * (curve + 1)) * 0.3;
}

/// Curves with keys at even times over the view, and an editor that shows them.
class Scene
{
public:
    Scene(int curves, int keys)
        : splines(static_cast<std::size_t>(curves))
        , expressions(static_cast<std::size_t>(curves), nullptr)
    {
        needApplication();
        for (int i = 0; i < curves; ++i) {
            SplineBase& spline = splines[static_cast<std::size_t>(i)];
            for (int k = 0; k < keys; ++k) {
                auto* const key = new PointInfo;
                key->time = span * (k + 0.5) / keys;
                key->value = valueAt(i, k);
                key->type = zk_spline::linear;
                spline.addPointPtr(key);
            }
        }
        editor = std::make_unique<CurveEditor>(nullptr, QString());
        QStringList names;
        for (int i = 0; i < curves; ++i) {
            const QString name = QStringLiteral("c%1").arg(i);
            editor->addCurve("a", name, QColor::fromHsv(i * 3 % 360, 200, 255), 0.0f,
                             &splines[static_cast<std::size_t>(i)],
                             &expressions[static_cast<std::size_t>(i)], -10.0f, 10.0f, true, false);
            names << QStringLiteral("a.") + name;
        }
        canvas = editor->getFunctionEditor();
        canvas->setFixedSize(width, height);
        editor->show();
        editor->selectNodes(names);
        look(0.0, span);
    }

    void look(double from, double to)
    {
        editor->setTimeRange(from, to);
        editor->setMinValue(-1.0);
        editor->setMaxValue(1.0);
        settle();
    }

    static void settle() { QCoreApplication::processEvents(); }

    void mouse(QEvent::Type type, const QPointF& place, Qt::MouseButtons held)
    {
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, place, canvas->mapToGlobal(place), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(canvas, &event);
    }

    QPointF placeOf(int curve, unsigned key)
    {
        const PointInfo* const point = splines[static_cast<std::size_t>(curve)].at(key);
        return QPointF(std::floor(point->time / span * width),
                       std::floor((1.0 - point->value) / 2.0 * height));
    }

    std::vector<SplineBase> splines;
    std::vector<FunctionFloatBase*> expressions;
    std::unique_ptr<CurveEditor> editor;
    QWidget* canvas = nullptr;
};

Scene& sceneOf(int curves, int keys)
{
    static std::map<std::pair<int, int>, std::unique_ptr<Scene>> scenes;
    std::unique_ptr<Scene>& scene = scenes[{curves, keys}];
    if (!scene) {
        scene = std::make_unique<Scene>(curves, keys);
    }
    return *scene;
}

/// The same picture by the toolkit alone.
class BareCanvas : public QWidget
{
public:
    BareCanvas(int curveCount, int keyCount, double from, double to)
    {
        needApplication();
        setFixedSize(width, height);
        const double scale = width / (to - from);
        for (int i = 0; i < curveCount; ++i) {
            QPolygon line;
            QList<QRect> squares;
            for (int k = 0; k < keyCount; ++k) {
                const double x = (span * (k + 0.5) / keyCount - from) * scale;
                const QPoint pixel(int(x), int((1.0 - valueAt(i, k)) / 2.0 * height));
                if (x > -5.0 && x < width + 5.0) {
                    squares << QRect(pixel.x() - 2, pixel.y() - 2, 4, 4);
                }
            }
            for (int s = 0; s <= 1000; ++s) {
                const double key = (from + (to - from) * s / 1000.0) / span * keyCount - 0.5;
                const int left = std::clamp(int(key), 0, keyCount - 2);
                const double u = key - left;
                const double value = valueAt(i, left) * (1.0 - u) + valueAt(i, left + 1) * u;
                line << QPoint(s * width / 1000, int((1.0 - value) / 2.0 * height));
            }
            lines << line;
            keys << squares;
        }
        show();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::black);
        painter.setRenderHint(QPainter::Antialiasing);
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const QColor color = QColor::fromHsv(int(i) * 3 % 360, 200, 255);
            painter.setPen(QPen(QBrush(color.darker()), 1.0, Qt::DotLine));
            painter.drawPolyline(lines[i]);
            painter.setPen(QPen(QBrush(color), 1.0, Qt::SolidLine));
            painter.drawPolyline(lines[i]);
            painter.setPen(QPen(QBrush(Qt::black), 0.0, Qt::SolidLine));
            painter.setBrush(Qt::black);
            painter.drawRects(keys[i]);
        }
    }

private:
    QList<QPolygon> lines;
    QList<QList<QRect>> keys;
};

void bare(benchmark::State& state, int curves, int keys, double from, double to)
{
    BareCanvas canvas(curves, keys, from, to);
    for (auto _ : state) {
        canvas.repaint();
    }
}

void timeLine(benchmark::State& state)
{
    Scene& scene = sceneOf(100, 1000);
    scene.look(0.0, span);
    double time = 0.0;
    for (auto _ : state) {
        time = time < span ? time + 1.0 : 0.0;
        scene.editor->setTimeLine(time);
        Scene::settle();
    }
}

void rubberBand(benchmark::State& state)
{
    Scene& scene = sceneOf(100, 1000);
    scene.look(0.0, span);
    scene.mouse(QEvent::MouseButtonPress, QPointF(700, 790), Qt::LeftButton);
    scene.mouse(QEvent::MouseMove, QPointF(800, 700), Qt::LeftButton);
    Scene::settle();
    int x = 800;
    for (auto _ : state) {
        x = x < 900 ? x + 1 : 800;
        scene.mouse(QEvent::MouseMove, QPointF(x, 700), Qt::LeftButton);
        Scene::settle();
    }
    scene.mouse(QEvent::MouseButtonRelease, QPointF(x, 700), Qt::NoButton);
    Scene::settle();
}

/// Drags whatever is selected, by a key of the first curve.
void drag(benchmark::State& state, int curves, int keys, double from, double to)
{
    Scene& scene = sceneOf(curves, keys);
    scene.look(0.0, span);
    CurveEditor& editor = *scene.editor;
    if (to > from) { // a rectangle selects; the key that is held is one of them
        scene.look(from, to);
        scene.mouse(QEvent::MouseButtonPress, QPointF(1, 1), Qt::LeftButton);
        scene.mouse(QEvent::MouseMove, QPointF(1399, 799), Qt::LeftButton);
        scene.mouse(QEvent::MouseButtonRelease, QPointF(1399, 799), Qt::NoButton);
        scene.look(0.0, span);
    }
    QPointF place = scene.placeOf(curves - 1, static_cast<unsigned>(keys / 2));
    scene.mouse(QEvent::MouseButtonPress, place, Qt::LeftButton);
    Scene::settle();
    const double row = place.y();
    for (auto _ : state) {
        place.setY(place.y() < row + 50 ? place.y() + 1 : row);
        scene.mouse(QEvent::MouseMove, place, Qt::LeftButton);
        Scene::settle();
    }
    scene.mouse(QEvent::MouseButtonRelease, place, Qt::NoButton);
    editor.getCmdManager();
    Scene::settle();
}

/// Another view at each paint.
void zoomed(benchmark::State& state, int curves, int keys, double from, double to)
{
    Scene& scene = sceneOf(curves, keys);
    double more = 0.0;
    for (auto _ : state) {
        more = more < 0.01 ? more + 0.0001 : 0.0;
        scene.look(from, to + more);
    }
}

template <typename... Arguments>
void add(const char* name, Arguments... arguments)
{
    benchmark::RegisterBenchmark(name, arguments...)->Repetitions(repetitions);
}

const int registered = [] {
    add("gui moves/time line", timeLine);
    add("gui moves/rubber band", rubberBand);
    add("gui bare/100 x 1000", bare, 100, 1000, 0.0, span);
    add("gui bare/100 x 100", bare, 100, 100, 0.0, span);
    add("gui bare/1 x 100000", bare, 1, 100000, 0.0, span);
    add("gui bare/100 of 100000", bare, 1, 100000, 500.0, 501.0);
    add("gui zoom/100 x 1000", zoomed, 100, 1000, 0.0, span);
    add("gui zoom/100 x 100", zoomed, 100, 100, 0.0, span);
    add("gui zoom/1 x 100000", zoomed, 1, 100000, 0.0, span);
    add("gui zoom/100 of 100000", zoomed, 1, 100000, 500.0, 501.0);
    add("gui drag/1 of 100 x 1000", drag, 100, 1000, 0.0, 0.0);
    add("gui drag/1 of 100000", drag, 1, 100000, 0.0, 0.0);
    add("gui drag/10000 of 100000", drag, 1, 100000, 450.0, 550.0);
    return 0;
}();

} // namespace

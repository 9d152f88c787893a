#include "editor/Look.h"
#include "graphs/CanvasColors.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/Pixels.h"

#include <QPalette>
#include <QTest>

#include <cmath>

namespace {

double linear(const double& channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

/// Relative luminance, after the Web Content Accessibility Guidelines 2.1.
double luminance(const QColor& color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const double lighter = std::max(luminance(a), luminance(b));
    const double darker = std::min(luminance(a), luminance(b));
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace

class TestLook : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }
    void cleanup() { CanvasColors::shared() = CanvasColors(); }

    void eachColourStandsOutFromTheCanvas_data()
    {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    void eachColourStandsOutFromTheCanvas()
    {
        QFETCH(bool, dark);
        const auto look = dark ? curve_editor::Look::dark : curve_editor::Look::light;
        const curve_editor::LookColors of = curve_editor::lookColors(look, QPalette());
        const QColor selected = over(of.selection, of.canvas);
        for (const QColor& ground : {of.canvas, selected}) {
            for (const QColor& line : {of.borders, of.timeLine, of.keys, of.selectedKeys,
                                       of.handles, of.brokenHandles, of.grabbedHandles}) {
                QVERIFY2(contrast(line, ground) >= 3.0, qPrintable(line.name()));
            }
            QVERIFY2(contrast(of.texts, ground) >= 4.5, qPrintable(ground.name()));
            QVERIFY2(contrast(of.overlay, ground) >= 4.5, qPrintable(ground.name()));
        }
        QVERIFY(contrast(of.gridLines, of.canvas) >= 3.0);
    }

    void aPaletteTellsWhichLookGoesWithIt()
    {
        using curve_editor::Look;
        const auto canvasOf = [](const Look& look, const QPalette& palette) {
            return curve_editor::lookColors(look, palette).canvas;
        };
        const QPalette dark(QColor(40, 40, 44));
        const QPalette light(QColor(240, 240, 240));
        QCOMPARE(canvasOf(Look::fromPalette, dark), canvasOf(Look::dark, light));
        QCOMPARE(canvasOf(Look::fromPalette, light), canvasOf(Look::light, dark));
    }

    void aLookShowsAtOnceAndThinsKeysWithoutRoom()
    {
        EditorFixture on;
        on.editCurve(QStringLiteral("a.x"),
                     {{10.0, 10.0}, {10.1, 30.0}, {10.2, 10.0}, {40.0, 20.0}});
        QVERIFY(!on.canvas().thinsKeys);
        curve_editor::setLook(on.editor, curve_editor::Look::dark);
        const QColor canvas = curve_editor::lookColors(curve_editor::Look::dark, {}).canvas;
        const QImage image = on.canvas().grab().toImage();
        QVERIFY(countOf(image, canvas) > 100000);
        QVERIFY(on.canvas().thinsKeys);
    }

private:
    /// A translucent colour on another one.
    static QColor over(const QColor& upper, const QColor& lower)
    {
        const auto mixed = [&](const double& a, const double& b) {
            return a * upper.alphaF() + b * (1.0 - upper.alphaF());
        };
        return QColor::fromRgbF(static_cast<float>(mixed(upper.redF(), lower.redF())),
                                static_cast<float>(mixed(upper.greenF(), lower.greenF())),
                                static_cast<float>(mixed(upper.blueF(), lower.blueF())));
    }
};

QTEST_MAIN(TestLook)
#include "test_look.moc"

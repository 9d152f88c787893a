#include "commands/CurveCommandsManager.h"
#include "editor/EditorParts.h"
#include "support/DialogUser.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/RefreshCounter.h"
#include "support/SplineState.h"
#include "widgets/PanDialog.h"
#include "widgets/ScaleDialog.h"

#include <limits>
#include <memory>

namespace {

QToolButton* panButton(const CurveEditor& editor)
{
    return toolButton(editor, "Pan/Scale", 0);
}

QToolButton* scaleButton(const CurveEditor& editor)
{
    return toolButton(editor, "Pan/Scale", 1);
}

} // namespace

/// Pan and scale of the selected keys by their dialogs.
class TestPanAndScaleDialogs : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void cleanup() { fixture.reset(); }

    void scaleOpensAtOneAndScalesByWhatWasTyped();
    void factorsThatAreNoNumbersCountAsZeroAndComeBackWithUndo_data();
    void factorsThatAreNoNumbersCountAsZeroAndComeBackWithUndo();
    void hugeFactorsAndOffsetsLoseNoKey();
    void panInFramesIsByTheRate();
    void panInSecondsIsAsTyped();
    void theUnitMayBeToggledWhileTheDialogRuns();
    void returnInThePanFieldDoesNotToggle();
    void aRateThatGivesNoTimePansByNone_data();
    void aRateThatGivesNoTimePansByNone();
    void aRateOfZeroTogglesToZero();
    void aHugeNumberOfDecimalsDoesNoHarm();
    void theButtonsAreUncheckedInAnyCase_data();
    void theButtonsAreUncheckedInAnyCase();

private:
    std::unique_ptr<EditorFixture> fixture;
    LentCurve* curve = nullptr;
};

void TestPanAndScaleDialogs::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<EditorFixture>();
    curve = &fixture->editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}, {40.0, 30.0}});
    fixture->selectKeys("n.c", {0, 1});
    fixture->editor.refreshEditor();
}

void TestPanAndScaleDialogs::scaleOpensAtOneAndScalesByWhatWasTyped()
{
    const SplineState before(curve->spline);
    QStringList shown;
    DialogUser<ScaleDialog> user([&shown](ScaleDialog& dialog) {
        shown << dialog.scaleX->text() << dialog.scaleY->text();
        typeInto(dialog.scaleX, "3");
        typeInto(dialog.scaleY, "-0.5");
        click(dialog.allDoneScale);
    });
    click(scaleButton(fixture->editor));
    QVERIFY(user.hasActed());
    QCOMPARE(shown, QStringList({"1.0", "1.0"}));
    QCOMPARE(curve->spline.at(0)->time, 30.0);
    QCOMPARE(curve->spline.at(0)->value, -5.0);
    QCOMPARE(curve->spline.at(2)->time, 60.0);
    QCOMPARE(curve->spline.at(2)->value, -10.0);
    QCOMPARE(fixture->undoAll().size(), 1);
    QVERIFY(before == SplineState(curve->spline));

    DialogUser<ScaleDialog> again([&shown](ScaleDialog& dialog) {
        shown = QStringList({dialog.scaleX->text(), dialog.scaleY->text()});
        click(dialog.allDoneScale);
    });
    fixture->editor.setScaleSelection();
    QCOMPARE(shown, QStringList({"1.0", "1.0"}));
    QVERIFY(fixture->undoSteps().isEmpty());
}

void TestPanAndScaleDialogs::factorsThatAreNoNumbersCountAsZeroAndComeBackWithUndo_data()
{
    QTest::addColumn<QString>("typed");
    for (const char* const text : {"0", "", "abc", "nan", "inf", "-inf", "1e400"}) {
        QTest::newRow(text) << QString(text);
    }
}

void TestPanAndScaleDialogs::factorsThatAreNoNumbersCountAsZeroAndComeBackWithUndo()
{
    QFETCH(QString, typed);
    const SplineState before(curve->spline);
    DialogUser<ScaleDialog> user([&typed](ScaleDialog& dialog) {
        typeInto(dialog.scaleX, typed);
        typeInto(dialog.scaleY, typed);
        click(dialog.allDoneScale);
    });
    fixture->editor.setScaleSelection();
    QVERIFY(user.hasActed());
    QCOMPARE(curve->spline.getControlPointsNumber(), 3u);
    QCOMPARE(curve->spline.at(1)->time, 0.0);
    QCOMPARE(curve->spline.at(1)->value, 0.0);
    fixture->paint();
    QCOMPARE(fixture->undoAll().size(), 1);
    QVERIFY(before == SplineState(curve->spline));
}

/// Far enough for times and values that are infinite, and for what is no number at all.
void TestPanAndScaleDialogs::hugeFactorsAndOffsetsLoseNoKey()
{
    const SplineState before(curve->spline);
    const char* const factors[] = {"1e300", "-1e300", "0", "1e-300"};
    for (const char* const factor : factors) {
        DialogUser<ScaleDialog> scale([&factor](ScaleDialog& dialog) {
            typeInto(dialog.scaleX, factor);
            typeInto(dialog.scaleY, factor);
            click(dialog.allDoneScale);
        });
        fixture->editor.setScaleSelection();
        QVERIFY(scale.hasActed());
        DialogUser<PanDialog> pan([](PanDialog& dialog) {
            dialog.panX->setValue(1e9);
            dialog.panY->setValue(-1e9);
            click(dialog.allDonePan);
        });
        fixture->editor.setPanSelection();
        QVERIFY(pan.hasActed());
        fixture->paint();
        fixture->editor.completeViewport();
        fixture->editor.completeViewportSel();
        fixture->paint();
        QCOMPARE(curve->spline.getControlPointsNumber(), 3u);
    }
    QVERIFY(!fixture->undoAll().isEmpty());
    QVERIFY(before == SplineState(curve->spline));
    while (fixture->editor.getCmdManager()->redo()) {
    }
    QCOMPARE(curve->spline.getControlPointsNumber(), 3u);
    fixture->paint();
}

void TestPanAndScaleDialogs::panInFramesIsByTheRate()
{
    fixture->editor.setFps(24.0);
    QString unit;
    DialogUser<PanDialog> user([&unit](PanDialog& dialog) {
        unit = dialog.xLabel_->text();
        typeInto(dialog.panX->findChild<QLineEdit*>(), "24");
        click(dialog.allDonePan);
    });
    click(panButton(fixture->editor));
    QVERIFY(user.hasActed());
    QCOMPARE(unit, QString("frames"));
    QCOMPARE(curve->spline.at(0)->time, 11.0);
    QCOMPARE(curve->spline.at(1)->time, 21.0);
    QCOMPARE(curve->spline.at(2)->time, 40.0);
    QCOMPARE(curve->spline.at(0)->value, 10.0);
    QCOMPARE(fixture->undoAll().size(), 1);
    QCOMPARE(curve->spline.at(0)->time, 10.0);
}

void TestPanAndScaleDialogs::panInSecondsIsAsTyped()
{
    fixture->editor.setFps(24.0);
    fixture->editor.setShowTime();
    fixture->editor.setNumberOfDecimals(3);
    QStringList shown;
    DialogUser<PanDialog> user([&shown](PanDialog& dialog) {
        shown << dialog.xLabel_->text() << dialog.panX->text() << dialog.panY->text();
        typeInto(dialog.panX->findChild<QLineEdit*>(), "-1.125");
        typeInto(dialog.panY->findChild<QLineEdit*>(), "2.5");
        click(dialog.allDonePan);
    });
    menuAction(fixture->editor, "Edit/Pan Selection")->trigger();
    QVERIFY(user.hasActed());
    QCOMPARE(shown, QStringList({"seconds", "0.000", "0.000"}));
    QCOMPARE(curve->spline.at(0)->time, 8.875);
    QCOMPARE(curve->spline.at(1)->value, 22.5);

    DialogUser<PanDialog> again([&shown](PanDialog& dialog) {
        shown = QStringList({dialog.panX->text(), dialog.panY->text()});
        click(dialog.allDonePan);
    });
    fixture->editor.setPanSelection();
    QCOMPARE(shown, QStringList({"0.000", "0.000"}));
    QCOMPARE(fixture->undoAll().size(), 1);
}

void TestPanAndScaleDialogs::theUnitMayBeToggledWhileTheDialogRuns()
{
    fixture->editor.setFps(24.0);
    QStringList shown;
    DialogUser<PanDialog> user([&shown](PanDialog& dialog) {
        typeInto(dialog.panX->findChild<QLineEdit*>(), "48");
        typeInto(dialog.panY->findChild<QLineEdit*>(), "3");
        click(dialog.toggleButton_);
        shown << dialog.panX->text() << dialog.xLabel_->text()
              << QString::number(dialog.panY->value());
        click(dialog.toggleButton_);
        shown << dialog.panX->text() << dialog.xLabel_->text()
              << QString::number(dialog.panY->value());
        click(dialog.toggleButton_);
        click(dialog.allDonePan);
    });
    fixture->editor.setPanSelection();
    QVERIFY(user.hasActed());
    QCOMPARE(shown, QStringList({"2.00", "seconds", "3", "48.00", "frames", "3"}));
    QCOMPARE(curve->spline.at(0)->time, 12.0);
    QCOMPARE(curve->spline.at(0)->value, 13.0);
    QVERIFY(fixture->editor.isModeFrames());
}

void TestPanAndScaleDialogs::returnInThePanFieldDoesNotToggle()
{
    QString unit;
    DialogUser<PanDialog> user([&unit](PanDialog& dialog) {
        dialog.panX->setFocus();
        QTest::keyClick(dialog.panX, Qt::Key_Return);
        unit = dialog.xLabel_->text();
    });
    fixture->editor.setPanSelection();
    QVERIFY(user.hasActed());
    QCOMPARE(unit, QString("frames"));
}

void TestPanAndScaleDialogs::aRateThatGivesNoTimePansByNone_data()
{
    QTest::addColumn<double>("rate");
    QTest::newRow("0") << 0.0;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
}

void TestPanAndScaleDialogs::aRateThatGivesNoTimePansByNone()
{
    QFETCH(double, rate);
    fixture->editor.setFps(rate);
    DialogUser<PanDialog> user([](PanDialog& dialog) {
        dialog.panX->setValue(5.0);
        dialog.panY->setValue(1.0);
        click(dialog.allDonePan);
    });
    fixture->editor.setPanSelection();
    QVERIFY(user.hasActed());
    QCOMPARE(curve->spline.at(0)->time, 10.0);
    QCOMPARE(curve->spline.at(0)->value, 11.0);
}

void TestPanAndScaleDialogs::aRateOfZeroTogglesToZero()
{
    fixture->editor.setFps(0.0);
    double shown = -1.0;
    DialogUser<PanDialog> user([&shown](PanDialog& dialog) {
        dialog.panX->setValue(5.0);
        click(dialog.toggleButton_);
        shown = dialog.panX->value();
        click(dialog.allDonePan);
    });
    fixture->editor.setPanSelection();
    QVERIFY(user.hasActed());
    QCOMPARE(shown, 0.0);
    QCOMPARE(curve->spline.at(0)->time, 10.0);
}

void TestPanAndScaleDialogs::aHugeNumberOfDecimalsDoesNoHarm()
{
    for (const int decimals : {INT_MAX, INT_MIN}) {
        fixture->editor.setNumberOfDecimals(decimals);
        double value = 0.0;
        DialogUser<PanDialog> user([&value](PanDialog& dialog) {
            dialog.panX->setValue(2.0);
            value = dialog.panX->value();
            click(dialog.cancelPan);
        });
        fixture->editor.setPanSelection();
        QVERIFY(user.hasActed());
        QCOMPARE(value, 2.0);
    }
}

/// The buttons can't be checked by the user. A host that made them checkable finds them
/// unchecked after the dialog.
void TestPanAndScaleDialogs::theButtonsAreUncheckedInAnyCase_data()
{
    QTest::addColumn<bool>("isOk");
    QTest::newRow("accepted") << true;
    QTest::newRow("cancelled") << false;
}

void TestPanAndScaleDialogs::theButtonsAreUncheckedInAnyCase()
{
    QFETCH(bool, isOk);
    CurveEditor& editor = fixture->editor;
    for (QToolButton* const button : {panButton(editor), scaleButton(editor)}) {
        button->setCheckable(true);
        button->setChecked(true);
    }
    RefreshCounter refreshes(editor);
    DialogUser<PanDialog> pan(
        [&isOk](PanDialog& dialog) { click(isOk ? dialog.allDonePan : dialog.cancelPan); });
    editor.setPanSelection();
    QVERIFY(pan.hasActed());
    QVERIFY(!panButton(editor)->isChecked());
    QVERIFY(scaleButton(editor)->isChecked());
    QCOMPARE(refreshes.taken(), 1);
    DialogUser<ScaleDialog> scale(
        [&isOk](ScaleDialog& dialog) { click(isOk ? dialog.allDoneScale : dialog.cancelScale); });
    editor.setScaleSelection();
    QVERIFY(scale.hasActed());
    QVERIFY(!scaleButton(editor)->isChecked());
    QCOMPARE(refreshes.taken(), 1);
}

QTEST_MAIN(TestPanAndScaleDialogs)
#include "test_pan_and_scale_dialogs.moc"

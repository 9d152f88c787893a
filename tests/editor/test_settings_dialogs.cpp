#include "commands/CurveCommandsManager.h"
#include "editor/EditorParts.h"
#include "support/DialogUser.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/RefreshCounter.h"
#include "support/SplineState.h"
#include "widgets/CurveEditorSettings.h"
#include "widgets/PanDialog.h"
#include "widgets/ScaleDialog.h"
#include "widgets/ViewportSettings.h"

#include <QCheckBox>
#include <QPushButton>

#include <memory>

/// The dialogs that ask for numbers, opened from the editor and answered by clicks and keys.
class TestSettingsDialogs : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void cleanup() { fixture.reset(); }

    void theRangeIsAskedForAndTaken();
    void aRangeIsTakenWithoutACheck_data();
    void aRangeIsTakenWithoutACheck();
    void aValueWithALongTextIsCutOnTheWayIn();
    void cancelledDialogsChangeNothing_data();
    void cancelledDialogsChangeNothing();
    void returnInAFieldIsOk();
    void theSettingsAreShownAndTaken();
    void radiiThatAreNoNumbersCountAsZero();
    void eachEntryOfTheComboGivesItsType_data();
    void eachEntryOfTheComboGivesItsType();
    void theSettingsHaveNoEntryInTheMenus();

private:
    bool hasView(const double& minX, const double& maxX, const double& minY,
                 const double& maxY) const;

    std::unique_ptr<EditorFixture> fixture;
    LentCurve* curve = nullptr;
};

void TestSettingsDialogs::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<EditorFixture>();
    curve = &fixture->editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}, {40.0, 30.0}});
    fixture->selectKeys("n.c", {0, 1});
    fixture->editor.refreshEditor();
}

void TestSettingsDialogs::theRangeIsAskedForAndTaken()
{
    fixture->setView(-1.5, 200.0, -0.25, 1e7);
    QStringList shown;
    DialogUser<ViewportSettings> user([&shown](ViewportSettings& dialog) {
        for (const QLineEdit* line : {dialog.minX, dialog.minY, dialog.maxX, dialog.maxY}) {
            shown.append(line->text());
        }
        typeInto(dialog.minX, "2.5");
        typeInto(dialog.minY, "-3");
        typeInto(dialog.maxX, "1e2");
        typeInto(dialog.maxY, "7");
        click(dialog.allDone);
    });
    fixture->canvas().canvasDirty = false;
    menuAction(fixture->editor, "View/Set Range")->trigger();
    QVERIFY(user.hasActed());
    QCOMPARE(shown, QStringList({"-1.5", "-0.25", "200", "1e+07"}));
    QVERIFY(hasView(2.5, 100.0, -3.0, 7.0));
    QVERIFY(fixture->canvas().canvasDirty);
}

void TestSettingsDialogs::aRangeIsTakenWithoutACheck_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("minX");
    QTest::newRow("abc in minX becomes 0") << "abc" << 0.0;
    QTest::newRow("nothing") << "" << 0.0;
    QTest::newRow("nan") << "nan" << 0.0;
    QTest::newRow("inf") << "inf" << 0.0;
    QTest::newRow("-inf") << "-inf" << 0.0;
    QTest::newRow("more than a double holds") << "1e400" << 0.0;
    QTest::newRow("a minimum above the maximum") << "60" << 60.0;
    QTest::newRow("an empty range") << "50" << 50.0;
    QTest::newRow("a huge one") << "-1e300" << -1e300;
    QTest::newRow("nine characters at most") << "12345678901" << 123456789.0;
}

void TestSettingsDialogs::aRangeIsTakenWithoutACheck()
{
    QFETCH(QString, typed);
    QFETCH(double, minX);
    DialogUser<ViewportSettings> user([&typed](ViewportSettings& dialog) {
        typeInto(dialog.minX, typed);
        click(dialog.allDone);
    });
    fixture->editor.setRange();
    QVERIFY(user.hasActed());
    QVERIFY(hasView(minX, 50.0, 0.0, 40.0));
    fixture->paint();
    fixture->editor.completeViewport();
    fixture->paint();
    QVERIFY(fixture->canvas().minX < 10.0 && fixture->canvas().maxX > 40.0);
}

void TestSettingsDialogs::aValueWithALongTextIsCutOnTheWayIn()
{
    fixture->editor.setMinValue(-1234567.0);
    QString shown;
    DialogUser<ViewportSettings> user([&shown](ViewportSettings& dialog) {
        shown = dialog.minY->text();
        click(dialog.allDone);
    });
    fixture->editor.setRange();
    QVERIFY(user.hasActed());
    QCOMPARE(shown, QString("-1.23457e"));
    QCOMPARE(fixture->canvas().minY, 0.0);
}

void TestSettingsDialogs::cancelledDialogsChangeNothing_data()
{
    QTest::addColumn<bool>("byEscape");
    QTest::newRow("by Cancel") << false;
    QTest::newRow("by Escape") << true;
}

void TestSettingsDialogs::cancelledDialogsChangeNothing()
{
    QFETCH(bool, byEscape);
    const auto leave = [&byEscape](QWidget& dialog, QPushButton* cancel) {
        if (byEscape) {
            QTest::keyClick(&dialog, Qt::Key_Escape);
        } else {
            click(cancel);
        }
    };
    DialogUser<ViewportSettings> range([&leave](ViewportSettings& dialog) {
        typeInto(dialog.minX, "7");
        leave(dialog, dialog.cancel);
    });
    fixture->editor.setRange();
    QVERIFY(range.hasActed());
    QVERIFY(hasView(0.0, 50.0, 0.0, 40.0));

    DialogUser<CurveEditorSettings> options([&leave](CurveEditorSettings& dialog) {
        typeInto(dialog.radiusH, "7");
        click(dialog.defaultBroken);
        leave(dialog, dialog.cancel);
    });
    fixture->canvas().canvasDirty = false;
    fixture->editor.setOptions();
    QVERIFY(options.hasActed());
    QCOMPARE(fixture->editor.getHSnapRadius(), 0.1);
    QVERIFY(!fixture->editor.isDefaultBrokenTangent());
    QVERIFY(!fixture->canvas().canvasDirty);

    const SplineState before(curve->spline);
    DialogUser<ScaleDialog> scale([&leave](ScaleDialog& dialog) {
        typeInto(dialog.scaleX, "7");
        leave(dialog, dialog.cancelScale);
    });
    fixture->editor.setScaleSelection();
    QVERIFY(scale.hasActed());
    DialogUser<PanDialog> pan([&leave](PanDialog& dialog) {
        dialog.panY->setValue(7.0);
        leave(dialog, dialog.cancelPan);
    });
    fixture->editor.setPanSelection();
    QVERIFY(pan.hasActed());
    QVERIFY(before == SplineState(curve->spline));
    QVERIFY(fixture->undoSteps().isEmpty());
}

void TestSettingsDialogs::returnInAFieldIsOk()
{
    DialogUser<ViewportSettings> user([](ViewportSettings& dialog) {
        typeInto(dialog.minX, "7");
        QTest::keyClick(dialog.minX, Qt::Key_Return);
    });
    fixture->editor.setRange();
    QVERIFY(user.hasActed());
    QCOMPARE(fixture->canvas().minX, 7.0);

    DialogUser<PanDialog> pan([](PanDialog& dialog) {
        typeInto(dialog.panY->findChild<QLineEdit*>(), "2");
        QTest::keyClick(dialog.panY, Qt::Key_Return);
    });
    fixture->editor.setPanSelection();
    QVERIFY(pan.hasActed());
    QCOMPARE(curve->spline.at(0)->value, 12.0);
}

void TestSettingsDialogs::theSettingsAreShownAndTaken()
{
    CurveEditor& editor = fixture->editor;
    editor.setHSnapRadius(1.0 / 3.0);
    editor.setDefaultAddFunc(true);
    QStringList shown;
    DialogUser<CurveEditorSettings> user([&shown](CurveEditorSettings& dialog) {
        shown << dialog.radiusH->text() << dialog.radiusV->text()
              << dialog.nodeTypeCombo->currentText();
        for (const QCheckBox* const box :
             {dialog.defaultBroken, dialog.defaultAddFunc, dialog.showToolTipsOnDrag}) {
            shown.append(box->isChecked() ? "on" : "off");
        }
        typeInto(dialog.radiusH, "0.5");
        typeInto(dialog.radiusV, "none");
        QTest::mouseClick(dialog.defaultBroken, Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
        QTest::mouseClick(dialog.defaultAddFunc, Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
        QTest::keyClick(dialog.showToolTipsOnDrag, Qt::Key_Space);
        click(dialog.allDone);
    });
    fixture->canvas().canvasDirty = false;
    RefreshCounter refreshes(editor);
    editor.setOptions();
    QVERIFY(user.hasActed());
    QCOMPARE(shown, QStringList({"0.333333", "0.25", "Bezier node", "off", "on", "on"}));
    QCOMPARE(editor.getHSnapRadius(), 0.5);
    QCOMPARE(editor.getVSnapRadius(), 0.0);
    QVERIFY(editor.isDefaultBrokenTangent());
    QVERIFY(!editor.isDefaultAddFunc());
    QVERIFY(!editor.isTooltipsDrag());
    QVERIFY(fixture->canvas().canvasDirty);
    QCOMPARE(refreshes.taken(), 0);
}

void TestSettingsDialogs::radiiThatAreNoNumbersCountAsZero()
{
    for (const char* const text : {"nan", "inf", "-inf", "1e400", "abc"}) {
        fixture->editor.setHSnapRadius(0.5);
        DialogUser<CurveEditorSettings> user([&text](CurveEditorSettings& dialog) {
            typeInto(dialog.radiusH, text);
            click(dialog.allDone);
        });
        fixture->editor.setOptions();
        QVERIFY(user.hasActed());
        QCOMPARE(fixture->editor.getHSnapRadius(), 0.0);
    }
}

void TestSettingsDialogs::eachEntryOfTheComboGivesItsType_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("type");
    QTest::newRow("the first is TCB") << 0 << 2;
    QTest::newRow("Bezier") << 1 << 1;
    QTest::newRow("linear") << 2 << 0;
    QTest::newRow("stepped") << 3 << 3;
}

void TestSettingsDialogs::eachEntryOfTheComboGivesItsType()
{
    QFETCH(int, index);
    const auto choosing = [&index](CurveEditorSettings& dialog) {
        choose(dialog.nodeTypeCombo, index);
        click(dialog.allDone);
    };
    DialogUser<CurveEditorSettings> first(choosing);
    fixture->editor.setOptions();
    QVERIFY(first.hasActed());
    QTEST(fixture->logic().defaultNodeType, "type");
    int shown = -1;
    DialogUser<CurveEditorSettings> second([&shown](CurveEditorSettings& dialog) {
        shown = dialog.nodeTypeCombo->currentIndex();
        click(dialog.allDone);
    });
    fixture->editor.setOptions();
    QCOMPARE(shown, index);
    QTEST(fixture->logic().defaultNodeType, "type");
}

void TestSettingsDialogs::theSettingsHaveNoEntryInTheMenus()
{
    QVERIFY(!menuAction(fixture->editor, "View/Curve Editor Settings"));
    for (const QAction* const action : fixture->editor.findChildren<QAction*>()) {
        QVERIFY(!action->text().contains("Settings"));
    }
}

bool TestSettingsDialogs::hasView(const double& minX, const double& maxX, const double& minY,
                                  const double& maxY) const
{
    const FunctionEditor& canvas = fixture->canvas();
    return canvas.minX == minX && canvas.maxX == maxX && canvas.minY == minY && canvas.maxY == maxY;
}

QTEST_MAIN(TestSettingsDialogs)
#include "test_settings_dialogs.moc"

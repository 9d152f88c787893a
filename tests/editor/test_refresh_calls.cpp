#include "editor/EditorParts.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/RefreshCounter.h"

/// How often the editor refreshes itself, which its users see at the behaviours' actions.
class TestRefreshCalls : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void refreshesComeWhereTheyAreDue_data();
    void refreshesComeWhereTheyAreDue();
    void decimalsAndNodeTypeRefreshOnce();
    void anEntryOfTheToolbarsMenuRefreshesOnce();
    void aClickOnTheToolTipsButtonRefreshesAtItsReleaseAndByItsAction();
    void aClickOnTheSnapButtonRefreshesAtItsReleaseAndByItsAction();
};

void TestRefreshCalls::refreshesComeWhereTheyAreDue_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<int>("count");
    for (const char* const slot :
         {"switchSnap", "switchSnapH", "switchSnapV", "switchToolTips", "refreshEditor",
          "setSelectMode", "setMoveMode", "setAddKeyMode", "setDeleteKeyMode", "setZoomMode",
          "deleteSelectedKeys", "emitSignalCurvesHaveChanged"}) {
        QTest::newRow(slot) << QByteArray(slot) << 1;
    }
    for (const char* const slot :
         {"resetViewport", "centerTimeline", "completeViewport", "completeViewportH",
          "completeViewportV", "completeViewportBtn", "setShowTime", "switchFramesTime",
          "refreshCommandLine", "clearStack", "undo", "redo", "setDefaultMode", "selectNoneKeys",
          "flatTangents", "breakTangents", "unifyTangents", "languageChange"}) {
        QTest::newRow(slot) << QByteArray(slot) << 0;
    }
    // The command that selects refreshes, and so does the slot.
    QTest::newRow("selectAllKeys") << QByteArray("selectAllKeys") << 2;
    // A refresh of its own and one of the report to the host, also when nothing changes.
    QTest::newRow("setFirstNodeZero") << QByteArray("setFirstNodeZero") << 2;
    QTest::newRow("setFirstNodeConstant") << QByteArray("setFirstNodeConstant") << 2;
}

void TestRefreshCalls::refreshesComeWhereTheyAreDue()
{
    QFETCH(QByteArray, slot);
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    RefreshCounter refreshes(fixture.editor);
    QVERIFY(QMetaObject::invokeMethod(&fixture.editor, slot.constData()));
    QTEST(refreshes.taken(), "count");
}

void TestRefreshCalls::decimalsAndNodeTypeRefreshOnce()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    RefreshCounter refreshes(fixture.editor);
    fixture.editor.setNumberOfDecimals(3);
    QCOMPARE(refreshes.taken(), 1);
    fixture.editor.setDefaultNodeType(2);
    QCOMPARE(refreshes.taken(), 1);
    fixture.editor.setDefaultNodeType(7);
    QCOMPARE(refreshes.taken(), 0);
}

void TestRefreshCalls::anEntryOfTheToolbarsMenuRefreshesOnce()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    RefreshCounter refreshes(fixture.editor);
    menuAction(fixture.editor, "View/Toolbars/Fit")->trigger();
    QCOMPARE(refreshes.taken(), 1);
}

void TestRefreshCalls::aClickOnTheToolTipsButtonRefreshesAtItsReleaseAndByItsAction()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    RefreshCounter refreshes(fixture.editor);
    QToolButton* const button = toolButton(fixture.editor, "Other", 1);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(refreshes.taken(), 2);
    QVERIFY(button->isChecked());
    QVERIFY(fixture.logic().toolTipsOn);
}

void TestRefreshCalls::aClickOnTheSnapButtonRefreshesAtItsReleaseAndByItsAction()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    RefreshCounter refreshes(fixture.editor);
    QToolButton* const button = toolButton(fixture.editor, "Snap", 0);
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
    QCOMPARE(refreshes.taken(), 2);
    QVERIFY(button->isChecked());
    QVERIFY(fixture.logic().horizontalSnap && fixture.logic().verticalSnap);
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
    QVERIFY(!button->isChecked());
    QVERIFY(!fixture.logic().horizontalSnap && !fixture.logic().verticalSnap);
}

QTEST_MAIN(TestRefreshCalls)
#include "test_refresh_calls.moc"

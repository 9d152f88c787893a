#include "support/FailOnWarning.h"
#include "widgets/ControlMenu.h"
#include "widgets/ControlMenu2.h"
#include "widgets/CustomToolbar.h"

#include <QAction>
#include <QSignalSpy>

class TestSmallWidgets : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theTreeMenuOpensWithASeparatorAndTwoActions();
    void theActionsOfTheTreeMenuSendItsSignals();
    void theCanvasMenuDeclaresItsSignalsAndItsSlot_data();
    void theCanvasMenuDeclaresItsSignalsAndItsSlot();
    void settingUpTheCanvasMenuChangesNothing();
    void fixedBarsAreToldFromMovableOnes();
};

void TestSmallWidgets::theTreeMenuOpensWithASeparatorAndTwoActions()
{
    const ControlMenu2 menu;
    const QList<QAction*> actions = menu.actions();
    QCOMPARE(actions.size(), 3);
    QVERIFY(actions.at(0)->isSeparator());
    QCOMPARE(actions.at(1)->text(), QStringLiteral("Remove from editing list"));
    QCOMPARE(actions.at(2)->text(), QStringLiteral("Change color"));
    QVERIFY(menu.itemName.isEmpty());
}

void TestSmallWidgets::theActionsOfTheTreeMenuSendItsSignals()
{
    ControlMenu2 menu;
    const QSignalSpy remove(&menu, SIGNAL(setRemoveItem(void)));
    const QSignalSpy color(&menu, SIGNAL(setColorChange(void)));
    menu.actions().at(1)->trigger();
    QCOMPARE(remove.count(), 1);
    QCOMPARE(color.count(), 0);
    menu.actions().at(2)->trigger();
    QCOMPARE(remove.count(), 1);
    QCOMPARE(color.count(), 1);
}

void TestSmallWidgets::theCanvasMenuDeclaresItsSignalsAndItsSlot_data()
{
    QTest::addColumn<QByteArray>("signature");
    for (const char* signature :
         {"setSelectedLinear()", "setSelectedBezier()", "setSelectedTcb()", "createNodeAtCursor()",
          "deleteSelectedNodes()", "selectAllKeys()", "deselectAllKeys()", "showKeyProperties()",
          "setupActions(ZK_BOOL,ZK_BOOL)"}) {
        QTest::newRow(signature) << QByteArray(signature);
    }
}

void TestSmallWidgets::theCanvasMenuDeclaresItsSignalsAndItsSlot()
{
    QFETCH(QByteArray, signature);
    QVERIFY(ControlMenu::staticMetaObject.indexOfMethod(signature) >= 0);
}

void TestSmallWidgets::settingUpTheCanvasMenuChangesNothing()
{
    ControlMenu menu;
    menu.addAction(QStringLiteral("entry"));
    menu.setupActions(false, false);
    QCOMPARE(menu.actions().size(), 1);
    QVERIFY(menu.actions().first()->isEnabled());
}

void TestSmallWidgets::fixedBarsAreToldFromMovableOnes()
{
    QWidget parent;
    const CustomToolbar fixedBar(&parent);
    const QToolBar movable(&parent);
    QCOMPARE(parent.findChildren<CustomToolbar*>().size(), 1);
    QCOMPARE(fixedBar.parentWidget(), &parent);
}

QTEST_MAIN(TestSmallWidgets)
#include "test_small_widgets.moc"

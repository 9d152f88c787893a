#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "editor/EditorParts.h"
#include "support/FailOnWarning.h"
#include "widgets/ControlMenu2.h"
#include "widgets/CurveKeysDialog.h"
#include "widgets/CustomEditLine.h"

#include <memory>

namespace {

struct Receivers : public QObject
{
    using QObject::receivers;
};

/// How often a signal is connected, to whomever.
int receiversOf(const QObject* sender, const QByteArray& signal)
{
    return (sender->*&Receivers::receivers)(signal.constData());
}

/// How often a signal is connected to a slot. It isn't afterwards.
int takeConnections(const QObject* sender, const QByteArray& signal, const QObject* receiver,
                    const QByteArray& slot)
{
    const int before = receiversOf(sender, signal);
    QObject::disconnect(sender, signal.constData(), receiver, slot.constData());
    return before - receiversOf(sender, signal);
}

QByteArray signalCode(const QByteArray& signature)
{
    return "2" + signature;
}

QByteArray slotCode(const QByteArray& signature)
{
    return "1" + signature;
}

/// The action made for a button: the n-th of a toolbar or, with an entry, of its drop-down.
QAction* buttonAction(const CurveEditor& editor, const QString& toolBar, const int& index,
                      const int& entry)
{
    if (entry < 0) {
        return toolBarTitled(editor, toolBar)->actions().at(index);
    }
    return toolButton(editor, toolBar, index)->menu()->actions().at(entry);
}

} // namespace

/// What leads from widgets and actions to the editor. A connection made twice would run twice.
class TestConnections : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    /// One editor for all: each row takes away only what it counts.
    void initTestCase() { editor = std::make_unique<CurveEditor>(nullptr, QString()); }
    void cleanupTestCase() { editor.reset(); }

    void eachButtonLeadsToItsSlotOnce_data();
    void eachButtonLeadsToItsSlotOnce();
    void eachActionLeadsToItsSlot_data();
    void eachActionLeadsToItsSlot();
    void actionsWithoutAMenuLeadNowhere();
    void fourButtonsRefreshWhenLetGo();
    void eachWidgetLeadsToItsSlotOnce_data();
    void eachWidgetLeadsToItsSlotOnce();
    void theKeyDialogListensToItsFieldsOnce_data();
    void theKeyDialogListensToItsFieldsOnce();
    void theCanvasListensToTheKeyDialogOnce();

private:
    const QObject* objectNamed(const QString& name) const;
    void leadsToTheEditor(const QObject* sender, const QByteArray& signal, const QByteArray& slot,
                          const int& count) const;

    std::unique_ptr<CurveEditor> editor;
};

void TestConnections::eachButtonLeadsToItsSlotOnce_data()
{
    QTest::addColumn<QString>("toolBar");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("entry");
    QTest::addColumn<QByteArray>("slot");
    const auto row = [](const int& number, const char* toolBar, const int& index, const char* slot,
                        const int& entry = -1) {
        QTest::addRow("button %d", number) << toolBar << index << entry << QByteArray(slot);
    };
    row(0, "Undo/Redo", 0, "undo()");
    row(1, "Undo/Redo", 1, "redo()");
    row(2, "Pan/Scale", 0, "setPanSelection()");
    row(3, "Pan/Scale", 1, "setScaleSelection()");
    row(4, "Snap", 0, "switchSnap()");
    row(5, "Snap", 0, "switchSnapH()", 0);
    row(6, "Snap", 0, "switchSnapV()", 1);
    row(7, "Copy/Paste", 0, "copyBtn()");
    row(8, "Copy/Paste", 0, "copyBtn()", 1);
    row(9, "Copy/Paste", 0, "copyKeysBtn()", 0);
    row(10, "Copy/Paste", 1, "pasteBtn()");
    row(11, "Copy/Paste", 1, "pasteBtn()", 3);
    row(12, "Copy/Paste", 1, "pasteKeysBtn()", 0);
    row(13, "Copy/Paste", 1, "pasteOffsetBtn()", 4);
    row(14, "Copy/Paste", 1, "pasteKeysOffsetBtn()", 1);
    row(15, "Tangents", 0, "breakTangents()");
    row(16, "Tangents", 1, "unifyTangents()");
    row(17, "Tangents", 2, "flatTangents()");
    row(18, "Other", 0, "switchFramesTime()");
    row(19, "Other", 1, "switchToolTips()");
    row(20, "Other", 2, "showKeyProperties()");
    row(21, "Fit", 0, "completeViewportBtn()");
    row(22, "Fit", 0, "completeViewportBtn()", 0);
    row(23, "Fit", 0, "completeViewportHBtn()", 1);
    row(24, "Fit", 0, "completeViewportVBtn()", 2);
    row(25, "Fit", 1, "completeViewportSelBtn()");
    row(26, "Fit", 1, "completeViewportSelBtn()", 0);
    row(27, "Fit", 1, "completeViewportSelHBtn()", 1);
    row(28, "Fit", 1, "completeViewportSelVBtn()", 2);
    row(29, "Fit", 2, "centerTimeline()");
    row(30, "Node Type", 0, "setSelectedTcb()");
    row(31, "Node Type", 1, "setSelectedBezier()");
    row(32, "Node Type", 2, "setSelectedLinear()");
    row(33, "Mode", 0, "setSelectMode()");
    row(34, "Mode", 1, "setMoveMode()");
    row(35, "Mode", 2, "setAddKeyMode()");
    row(36, "Mode", 3, "setDeleteKeyMode()");
    row(37, "Mode", 4, "setZoomMode()");
    row(39, "Copy/Paste", 1, "pasteOnTimelineBtn()", 5);
    row(40, "Copy/Paste", 1, "pasteKeysOnTimelineBtn()", 2);
    row(41, "Node Type", 3, "setSelectedStep()");
}

void TestConnections::eachButtonLeadsToItsSlotOnce()
{
    QFETCH(QString, toolBar);
    QFETCH(int, index);
    QFETCH(int, entry);
    QFETCH(QByteArray, slot);
    leadsToTheEditor(buttonAction(*editor, toolBar, index, entry), "triggered()", slot, 1);
}

void TestConnections::eachActionLeadsToItsSlot_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<int>("count");
    const auto row = [](const char* path, const char* slot, const int& count = 1) {
        QTest::newRow(path) << path << QByteArray(slot) << count;
    };
    row("File/Reset All Curves", "resetAllCheckedF()");
    row("File/Reset Selected Curves", "resetSelectedF()");
    row("File/Load Curve...", "loadFile()");
    row("File/Save Curve...", "saveFile()");
    row("Edit/Undo", "undo()");
    row("Edit/Redo", "redo()");
    row("Keys/Select All", "selectAllKeys()");
    row("Keys/Select None", "selectNoneKeys()");
    row("Keys/Delete Selected", "deleteSelectedKeys()");
    row("Keys/Start Node Behaviour/Zero", "setFirstNodeZero()");
    row("Keys/Start Node Behaviour/Constant", "setFirstNodeConstant()");
    row("Keys/Last Node Behaviour/Zero", "setLastNodeZero()");
    row("Keys/Last Node Behaviour/Constant", "setLastNodeConstant()");
    row("Keys/Last Node Behaviour/Loop", "setLastNodeLoop()");
    row("Keys/Last Node Behaviour/Loop offset", "setLastNodeLoopOffset()");
    row("Keys/Last Node Behaviour/Follow tangent", "setLastNodeFollowTangent()");
    row("View/Horizontal axis/Show time", "setShowTime()");
    row("View/Horizontal axis/Show frames", "setShowFrames()");
    row("View/Set Range", "setRange()");
    row("View/Reset View", "resetViewport()");
    row("View/Load image", "loadImage()");
    // As ever; the second run finds nothing left to clear.
    row("View/Clear image", "clearImage()", 2);
    for (const char* const title : {"Mode", "Pan-Scale", "Copy-Paste", "Undo-Redo", "Fit", "Snap",
                                    "Node Type", "Tangents", "Other"}) {
        QTest::newRow(title) << QString("View/Toolbars/") + title << QByteArray("refreshEditor()")
                             << 1;
    }
}

void TestConnections::eachActionLeadsToItsSlot()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, slot);
    QFETCH(int, count);
    QAction* action = menuAction(*editor, path);
    if (!action) { // a title with a slash in it
        action = actionTitled(menuAt(*editor, "View/Toolbars")->actions(),
                              path.section('/', -1).replace('-', '/'));
    }
    QVERIFY(action);
    leadsToTheEditor(action, "triggered()", slot, count);
}

void TestConnections::actionsWithoutAMenuLeadNowhere()
{
    for (const char* const name : {"unnamed", "grid", "frames", "lastNodeBehaviour",
                                   "startNodeBehaviour", "horizontalAxisMode", "showToolbars"}) {
        QCOMPARE(receiversOf(editor->findChild<QAction*>(name), SIGNAL(triggered())), 0);
    }
}

void TestConnections::fourButtonsRefreshWhenLetGo()
{
    const QList<QToolButton*> shown = editor->topToolbar->findChildren<QToolButton*>();
    for (QToolButton* const button : shown) {
        const QString text = button->defaultAction() ? button->defaultAction()->text() : "";
        const bool refreshes = text == "Snap to Grid" || text == "Show ToolTips";
        QCOMPARE(takeConnections(button, SIGNAL(released()), editor.get(), SLOT(refreshEditor())),
                 refreshes ? 1 : 0);
    }
    int others = 0;
    for (const int entry : {0, 1}) {
        for (QObject* const object : buttonAction(*editor, "Snap", 0, entry)->associatedObjects()) {
            if (qobject_cast<QToolButton*>(object)) {
                others += takeConnections(object, SIGNAL(released()), editor.get(),
                                          SLOT(refreshEditor()));
            }
        }
    }
    QCOMPARE(others, 2);
}

void TestConnections::eachWidgetLeadsToItsSlotOnce_data()
{
    QTest::addColumn<QString>("sender");
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QByteArray>("slot");
    const auto row = [](const char* sender, const char* signal, const char* slot) {
        QTest::addRow("%s %s", sender, signal) << sender << QByteArray(signal) << QByteArray(slot);
    };
    row("commandLine", "editingFinished()", "executeCommand()");
    row("deleteCurve", "pressed()", "deleteCurveClicked()");
    row("addToSpline", "clicked()", "switchAddFuncToSpline()");
    row("topToolbar", "customContextMenuRequested(QPoint)", "showTopToolbarMenu()");
    row("logic", "changeCommandLine()", "refreshEditor()");
    row("logic", "selectionChanged(QStringList)", "canvasSelectionChanged(QStringList)");
    row("logic", "showKeyProperties()", "showKeyProperties()");
    row("canvas", "setFuncPosInfo(ZK_DOUBLE,ZK_DOUBLE,ZK_DOUBLE)",
        "setFuncPosInfo(ZK_DOUBLE,ZK_DOUBLE,ZK_DOUBLE)");
    row("tree selection", "selectionChanged(QItemSelection,QItemSelection)",
        "selectionChangedEditingItem(QItemSelection,QItemSelection)");
    row("checkListsEditing", "rightButtonPressed(QModelIndex)",
        "rightButtonPressedEditingItem(QModelIndex)");
    row("checkListsEditing", "removeFromEditing(QModelIndexList)",
        "slotRemoveFromEditing(QModelIndexList)");
    row("tree menu", "setRemoveItem()", "slotMenuEditingNodeRemove()");
    row("tree menu", "setColorChange()", "slotMenuEditingNodeColor()");
    row("Unary functions", "triggered(QAction*)", "insertUnaryFunc(QAction*)");
    row("Binary functions", "triggered(QAction*)", "insertBinaryFunc(QAction*)");
    row("Ternary functions", "triggered(QAction*)", "insertTernaryFunc(QAction*)");
    row("I vars", "triggered(QAction*)", "insertIVarFunc(QAction*)");
    row("D vars", "triggered(QAction*)", "insertDVarFunc(QAction*)");
    row("D vars", "aboutToShow()", "populateDVarMenu()");
    row("Constants", "triggered(QAction*)", "insertIVarFunc(QAction*)");
    row("nodeFirst", "activated(int)", "changeNodeFirstType(int)");
    row("nodeLast", "activated(int)", "changeNodeLastType(int)");
    row("key dialog", "finished(int)", "disableShowKeyPptiesBtn()");
}

void TestConnections::eachWidgetLeadsToItsSlotOnce()
{
    QFETCH(QString, sender);
    QFETCH(QByteArray, signal);
    QFETCH(QByteArray, slot);
    const QObject* const object = objectNamed(sender);
    QVERIFY(object);
    leadsToTheEditor(object, signal, slot, 1);
}

void TestConnections::theKeyDialogListensToItsFieldsOnce_data()
{
    QTest::addColumn<QString>("sender");
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QByteArray>("slot");
    const auto row = [](const char* sender, const char* signal, const char* slot) {
        QTest::addRow("%s %s", sender, signal) << sender << QByteArray(signal) << QByteArray(slot);
    };
    row("prevNode", "clicked()", "clickedPrev()");
    row("nextNode", "clicked()", "clickedNext()");
    row("nodeTypeCombo", "activated(int)", "changeNodeType(int)");
    for (const char* const field : {"posX", "posY", "toolbar posX", "toolbar posY"}) {
        row(field, "mousePressEditLine()", "startMovePoints()");
        row(field, "mouseReleaseEditLine()", "endMovePoints()");
        row(field, "newValueTyped(ZK_DOUBLE,CustomEditLine*)",
            "valueChangedTyped(ZK_DOUBLE,CustomEditLine*)");
        row(field, "newValueSet(ZK_DOUBLE,CustomEditLine*)",
            "valueChanged(ZK_DOUBLE,CustomEditLine*)");
    }
    for (const char* const field :
         {"tension", "continuity", "bias", "incoming", "outgoing", "easeFrom", "easeTo"}) {
        row(field, "mousePressEditLine()", "startChangePoints()");
        row(field, "mouseReleaseEditLine()", "endChangePoints()");
        row(field, "newValueTyped(ZK_DOUBLE,CustomEditLine*)",
            "valueChangedTyped(ZK_DOUBLE,CustomEditLine*)");
        row(field, "newValueSet(ZK_DOUBLE,CustomEditLine*)",
            "valueChanged(ZK_DOUBLE,CustomEditLine*)");
    }
}

void TestConnections::theKeyDialogListensToItsFieldsOnce()
{
    QFETCH(QString, sender);
    QFETCH(QByteArray, signal);
    QFETCH(QByteArray, slot);
    const CurveKeysDialog* const dialog = editor->getFunctionEditor()->keysDialog();
    const bool isOnToolbar = sender.startsWith("toolbar ");
    const QWidget* const place =
        isOnToolbar ? editor->mainMenu : static_cast<const QWidget*>(dialog);
    const auto* const field = place->findChild<QWidget*>(sender.section(' ', -1));
    QVERIFY(field);
    const QByteArray code = signalCode(signal);
    QCOMPARE(takeConnections(field, code, dialog, slotCode(slot)), 1);
    QVERIFY(!QObject::disconnect(field, code.constData(), dialog, nullptr));
}

void TestConnections::theCanvasListensToTheKeyDialogOnce()
{
    const CurveKeysDialog* const dialog = editor->getFunctionEditor()->keysDialog();
    QCOMPARE(takeConnections(dialog, "2nodeTcbChanged()", editor->getFunctionEditor(),
                             "1currentNodeHasChanged()"),
             1);
}

const QObject* TestConnections::objectNamed(const QString& name) const
{
    if (name == "canvas") {
        return editor->getFunctionEditor();
    }
    if (name == "logic") {
        return &editor->getFunctionEditor()->canvas();
    }
    if (name == "tree selection") {
        return editor->checkListsEditing->selectionModel();
    }
    if (name == "tree menu") {
        return editor->findChild<ControlMenu2*>();
    }
    if (name == "key dialog") {
        return editor->getFunctionEditor()->keysDialog();
    }
    if (const QMenu* const menu = menuAt(*editor, "Insert/" + name)) {
        return menu;
    }
    return editor->findChild<QWidget*>(name);
}

/// That signal leads to that slot of the editor so many times, and nowhere else in it.
void TestConnections::leadsToTheEditor(const QObject* sender, const QByteArray& signal,
                                       const QByteArray& slot, const int& count) const
{
    const QByteArray code = signalCode(signal);
    QCOMPARE(takeConnections(sender, code, editor.get(), slotCode(slot)), count);
    QVERIFY(!QObject::disconnect(sender, code.constData(), editor.get(), nullptr));
}

QTEST_MAIN(TestConnections)
#include "test_connections.moc"

#include "editor/CurveEditor.h"
#include "support/FailOnWarning.h"

#include <QMetaMethod>

namespace {

/// What hosts connect to and call by name, in the order of the declarations.
const QList<QByteArray> slotSignatures{
    "languageChange()",
    "canvasSelectionChanged(QStringList)",
    "setTimeLine(ZK_DOUBLE)",
    "setTimeLine(ZK_INT)",
    "setFps(ZK_DOUBLE)",
    "setTimeRange(ZK_DOUBLE,ZK_DOUBLE)",
    "setMinValue(ZK_DOUBLE)",
    "setMaxValue(ZK_DOUBLE)",
    "setShowTime()",
    "setShowFrames()",
    "switchFramesTime()",
    "setPosX(ZK_DOUBLE)",
    "setFuncPosInfo(ZK_DOUBLE,ZK_DOUBLE,ZK_DOUBLE)",
    "rightButtonPressedEditingItem(QModelIndex)",
    "selectionChangedEditingItem(QItemSelection,QItemSelection)",
    "emitSignalCurvesHaveChanged()",
    "emitSignalCurvesHaveChanged(QStringList)",
    "emitSignalCurvesHaveChanged(QList<CurveEditor::NodeStruct*>)",
    "emitSignalCurveHasChanged(QString&,QString&)",
    "undo()",
    "redo()",
    "flatTangents()",
    "breakTangents()",
    "unifyTangents()",
    "clearStack()",
    "setUndoLevels(ZK_UINT)",
    "setEnableUndo(ZK_BOOL)",
    "resetViewport()",
    "centerTimeline()",
    "completeViewport()",
    "completeViewportH()",
    "completeViewportV()",
    "completeViewportSel()",
    "completeViewportSelH()",
    "completeViewportSelV()",
    "completeViewportBtn()",
    "completeViewportHBtn()",
    "completeViewportVBtn()",
    "completeViewportSelBtn()",
    "completeViewportSelHBtn()",
    "completeViewportSelVBtn()",
    "refreshEditor()",
    "refreshCommandLine()",
    "setFirstNodeZero()",
    "setFirstNodeConstant()",
    "setLastNodeZero()",
    "setLastNodeConstant()",
    "setLastNodeLoop()",
    "setLastNodeLoopOffset()",
    "setLastNodeFollowTangent()",
    "changeNodeFirstType(int)",
    "changeNodeLastType(int)",
    "slotMenuEditingNodeColor()",
    "slotMenuEditingNodeRemove()",
    "slotRemoveFromEditing(QModelIndexList)",
    "removeCurvesFromEditing()",
    "removeCurveFromEditing(QString)",
    "addNodesToSelection(QString)",
    "addNodesToSelection(QStringList)",
    "selectNodes(QString)",
    "selectNodes(QStringList)",
    "switchSnapH()",
    "switchSnapV()",
    "switchSnap()",
    "switchToolTips()",
    "setDefaultButton(QAction*,topToolButtons)",
    "setSelectedLinear()",
    "setSelectedStep()",
    "setSelectedBezier()",
    "setSelectedTcb()",
    "getSelection()",
    "setCheckListStyle(QStyle*)",
    "getCmdManager()",
    "selectAllKeys()",
    "selectNoneKeys()",
    "deleteSelectedKeys()",
    "setCurrentMode(curveEditorModes)",
    "getCurrentMode()",
    "setUserMode(curveEditorModes)",
    "getUserMode()",
    "printMode(curveEditorModes)",
    "setSelectMode()",
    "setMoveMode()",
    "setAddKeyMode()",
    "setDeleteKeyMode()",
    "setZoomMode()",
    "setDefaultMode()",
    "showTopToolbarMenu()",
    "setZoomModifier(QString)",
    "isZoomPressed(QInputEvent*)",
    "getZoomModifier()",
    "setSnapModifier(QString)",
    "isSnapPressed(QInputEvent*)",
    "getSnapModifier()",
    "setAddModifier(QString)",
    "isAddPressed(QInputEvent*)",
    "getAddModifier()",
    "setAdd2selModifier(QString)",
    "isAdd2selPressed(QInputEvent*)",
    "getAdd2selModifier()",
};

QList<QMetaMethod> methodsOf(const QMetaMethod::MethodType& type)
{
    const QMetaObject& meta = CurveEditor::staticMetaObject;
    QList<QMetaMethod> methods;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        if (meta.method(index).methodType() == type) {
            methods.append(meta.method(index));
        }
    }
    return methods;
}

QList<QByteArray> signaturesOf(const QList<QMetaMethod>& methods)
{
    QList<QByteArray> signatures;
    for (const QMetaMethod& method : methods) {
        signatures.append(method.methodSignature());
    }
    return signatures;
}

} // namespace

class TestMetaObject : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theSignalsAreFour()
    {
        QCOMPARE(signaturesOf(methodsOf(QMetaMethod::Signal)),
                 QList<QByteArray>({"closed()", "curveHasChanged(QString&,QString&)",
                                    "curveEditorUndo()", "curveEditorRedo()"}));
    }

    void theSlotsHaveTheirSpellingsAndOrder()
    {
        QCOMPARE(signaturesOf(methodsOf(QMetaMethod::Slot)), slotSignatures);
    }

    void twoSlotsAreProtected()
    {
        for (const QMetaMethod& method : methodsOf(QMetaMethod::Slot)) {
            const bool isProtected =
                method.name() == "languageChange" || method.name() == "canvasSelectionChanged";
            QCOMPARE(method.access(), isProtected ? QMetaMethod::Protected : QMetaMethod::Public);
        }
    }

    void nothingElseIsInvokable()
    {
        const QMetaObject& meta = CurveEditor::staticMetaObject;
        QCOMPARE(meta.methodCount() - meta.methodOffset(), slotSignatures.size() + 4);
    }
};

QTEST_APPLESS_MAIN(TestMetaObject)
#include "test_meta_object.moc"

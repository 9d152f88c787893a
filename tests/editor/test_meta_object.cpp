#include "editor/CurveEditor.h"
#include "support/FailOnWarning.h"

#include <QMetaMethod>

namespace {

struct Slot
{
    const char* signature;
    QMetaMethod::Access access = QMetaMethod::Public;
};

/// What hosts connect to and call by name, in the order of the declarations.
const Slot expectedSlots[] = {
    {"languageChange()", QMetaMethod::Protected},
    {"canvasSelectionChanged(QStringList)", QMetaMethod::Protected},
    {"populateDVarMenu()", QMetaMethod::Protected},
    {"setTimeLine(ZK_DOUBLE)"},
    {"setTimeLine(ZK_INT)"},
    {"setFps(ZK_DOUBLE)"},
    {"setTimeRange(ZK_DOUBLE,ZK_DOUBLE)"},
    {"setMinValue(ZK_DOUBLE)"},
    {"setMaxValue(ZK_DOUBLE)"},
    {"setShowTime()"},
    {"setShowFrames()"},
    {"switchFramesTime()"},
    {"setPosX(ZK_DOUBLE)"},
    {"setFuncPosInfo(ZK_DOUBLE,ZK_DOUBLE,ZK_DOUBLE)"},
    {"rightButtonPressedEditingItem(QModelIndex)"},
    {"selectionChangedEditingItem(QItemSelection,QItemSelection)"},
    {"executeCommand()"},
    {"loadFile()"},
    {"saveFile()"},
    {"emitSignalCurvesHaveChanged()"},
    {"emitSignalCurvesHaveChanged(QStringList)"},
    {"emitSignalCurvesHaveChanged(QList<CurveEditor::NodeStruct*>)"},
    {"emitSignalCurveHasChanged(QString&,QString&)"},
    {"deleteCurveClicked()"},
    {"resetAllCheckedF()"},
    {"resetSelectedF()"},
    {"setTcb()"},
    {"setExpression()"},
    {"undo()"},
    {"redo()"},
    {"copy()"},
    {"copyKeys()"},
    {"paste()"},
    {"pasteOffset()"},
    {"pasteOnTimeline()"},
    {"pasteKeys()"},
    {"pasteKeysOffset()"},
    {"pasteKeysOnTimeline()"},
    {"copyBtn()"},
    {"copyKeysBtn()"},
    {"pasteBtn()"},
    {"pasteOffsetBtn()"},
    {"pasteOnTimelineBtn()"},
    {"pasteKeysBtn()"},
    {"pasteKeysOffsetBtn()"},
    {"pasteKeysOnTimelineBtn()"},
    {"flatTangents()"},
    {"breakTangents()"},
    {"unifyTangents()"},
    {"clearStack()"},
    {"setUndoLevels(ZK_UINT)"},
    {"setEnableUndo(ZK_BOOL)"},
    {"setRange()"},
    {"setScaleSelection()"},
    {"setPanSelection()"},
    {"resetViewport()"},
    {"setOptions()"},
    {"centerTimeline()"},
    {"completeViewport()"},
    {"completeViewportH()"},
    {"completeViewportV()"},
    {"completeViewportSel()"},
    {"completeViewportSelH()"},
    {"completeViewportSelV()"},
    {"completeViewportBtn()"},
    {"completeViewportHBtn()"},
    {"completeViewportVBtn()"},
    {"completeViewportSelBtn()"},
    {"completeViewportSelHBtn()"},
    {"completeViewportSelVBtn()"},
    {"loadImage()"},
    {"clearImage()"},
    {"refreshEditor()"},
    {"refreshCommandLine()"},
    {"setFirstNodeZero()"},
    {"setFirstNodeConstant()"},
    {"setLastNodeZero()"},
    {"setLastNodeConstant()"},
    {"setLastNodeLoop()"},
    {"setLastNodeLoopOffset()"},
    {"setLastNodeFollowTangent()"},
    {"changeNodeFirstType(int)"},
    {"changeNodeLastType(int)"},
    {"slotMenuEditingNodeColor()"},
    {"slotMenuEditingNodeRemove()"},
    {"slotRemoveFromEditing(QModelIndexList)"},
    {"removeCurvesFromEditing()"},
    {"removeCurveFromEditing(QString)"},
    {"insertUnaryFunc(QAction*)"},
    {"insertBinaryFunc(QAction*)"},
    {"insertTernaryFunc(QAction*)"},
    {"insertIVarFunc(QAction*)"},
    {"insertDVarFunc(QAction*)"},
    {"errorClosed()"},
    {"addNodesToSelection(QString)"},
    {"addNodesToSelection(QStringList)"},
    {"selectNodes(QString)"},
    {"showKeyProperties()"},
    {"selectNodes(QStringList)"},
    {"switchSnapH()"},
    {"switchSnapV()"},
    {"switchSnap()"},
    {"switchToolTips()"},
    {"switchAddFuncToSpline()"},
    {"setDefaultButton(QAction*,topToolButtons)"},
    {"setSelectedLinear()"},
    {"setSelectedStep()"},
    {"setSelectedBezier()"},
    {"setSelectedTcb()"},
    {"getSelection()"},
    {"setCheckListStyle(QStyle*)"},
    {"getCmdManager()"},
    {"selectAllKeys()"},
    {"selectNoneKeys()"},
    {"deleteSelectedKeys()"},
    {"setCurrentMode(curveEditorModes)"},
    {"getCurrentMode()"},
    {"setUserMode(curveEditorModes)"},
    {"getUserMode()"},
    {"printMode(curveEditorModes)"},
    {"setSelectMode()"},
    {"setMoveMode()"},
    {"setAddKeyMode()"},
    {"setDeleteKeyMode()"},
    {"setZoomMode()"},
    {"setDefaultMode()"},
    {"showTopToolbarMenu()"},
    {"setZoomModifier(QString)"},
    {"isZoomPressed(QInputEvent*)"},
    {"getZoomModifier()"},
    {"setSnapModifier(QString)"},
    {"isSnapPressed(QInputEvent*)"},
    {"getSnapModifier()"},
    {"setAddModifier(QString)"},
    {"isAddPressed(QInputEvent*)"},
    {"getAddModifier()"},
    {"setAdd2selModifier(QString)"},
    {"isAdd2selPressed(QInputEvent*)"},
    {"getAdd2selModifier()"},
    {"enableShowKeyPptiesBtn()"},
    {"disableShowKeyPptiesBtn()"},
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

QStringList signaturesOf(const QList<QMetaMethod>& methods)
{
    QStringList signatures;
    for (const QMetaMethod& method : methods) {
        signatures.append(QString::fromLatin1(method.methodSignature()));
    }
    return signatures;
}

} // namespace

class TestMetaObject : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theSignalsAreFour();
    void theSlotsAreAHundredAndFortyOneInTheirSpellingsAndOrder();
    void threeSlotsAreProtected();
    void nothingElseIsInvokable();
};

void TestMetaObject::theSignalsAreFour()
{
    QCOMPARE(signaturesOf(methodsOf(QMetaMethod::Signal)),
             QStringList({"closed()", "curveHasChanged(QString&,QString&)", "curveEditorUndo()",
                          "curveEditorRedo()"}));
}

void TestMetaObject::theSlotsAreAHundredAndFortyOneInTheirSpellingsAndOrder()
{
    QStringList expected;
    for (const Slot& slot : expectedSlots) {
        expected.append(QString::fromLatin1(slot.signature));
    }
    QCOMPARE(expected.size(), 141);
    QCOMPARE(signaturesOf(methodsOf(QMetaMethod::Slot)), expected);
}

void TestMetaObject::threeSlotsAreProtected()
{
    QStringList expected;
    for (const Slot& slot : expectedSlots) {
        if (slot.access == QMetaMethod::Protected) {
            expected.append(QString::fromLatin1(slot.signature));
        }
    }
    QStringList found;
    for (const QMetaMethod& method : methodsOf(QMetaMethod::Slot)) {
        if (method.access() == QMetaMethod::Protected) {
            found.append(QString::fromLatin1(method.methodSignature()));
        } else {
            QCOMPARE(method.access(), QMetaMethod::Public);
        }
    }
    QCOMPARE(expected.size(), 3);
    QCOMPARE(found, expected);
}

void TestMetaObject::nothingElseIsInvokable()
{
    const QMetaObject& meta = CurveEditor::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 145);
}

QTEST_APPLESS_MAIN(TestMetaObject)
#include "test_meta_object.moc"

// Copying and pasting through menus and buttons, as a user does.

#include "commands/WholeCurves.h"
#include "support/FailOnWarning.h"

class TestClipboard : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void eachPasteHasItsTimesAndItsKeys_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QList<double>>("times");
        // The target has one key at 20; the clipboard keys at 3 and 5; the time line stands at 10.
        QTest::newRow("as copied, replacing") << "Paste and Replace" << QList<double>{3, 5};
        QTest::newRow("after the time line, replacing")
            << "Paste and Replace After Timeline" << QList<double>{13, 15};
        QTest::newRow("on the time line, replacing")
            << "Paste and Replace on Current Frame" << QList<double>{10, 12};
        QTest::newRow("as copied, combined") << "Paste Combined" << QList<double>{3, 5, 20};
        QTest::newRow("after the time line, combined")
            << "Paste Combined After Timeline" << QList<double>{13, 15, 20};
        QTest::newRow("on the time line, combined")
            << "Paste Combined on Current Frame" << QList<double>{10, 12, 20};
    }

    void eachPasteHasItsTimesAndItsKeys()
    {
        QFETCH(QString, entry);
        QFETCH(QList<double>, times);
        EditorFixture fixture;
        fixture.editCurve("n.source", {{1, 1}, {3, 7, zk_spline::tcb}, {5, 8}, {8, 1}});
        fixture.editor.setTimeLine(10.0);
        fixture.selectKeys("n.source", {1, 2});
        fixture.editor.refreshEditor();
        QVERIFY(choose(fixture.editor, "Edit/Copy/Copy Selected Keys"));
        LentCurve& target = fixture.editCurve("n.target", {{20, 2}});
        QVERIFY(choose(fixture.editor, "Edit/Paste/" + entry));
        QCOMPARE(keyTimes(target.spline), times);
        QCOMPARE(target.spline.at(0)->value, 7.0);
        QCOMPARE(target.spline.at(0)->type, zk_spline::tcb);
        QCOMPARE(target.spline.at(1)->value, 8.0);
        const qsizetype pasted = entry.contains("Combined") ? 2 : 0;
        QCOMPARE(fixture.selectionOf("n.target").selectedPoints,
                 keysOf(target.spline).mid(0, pasted));
        QVERIFY(fixture.selectionOf("n.target").hasSelection() == (pasted > 0));
        QCOMPARE(fixture.undoAll().size(), 1);
        QCOMPARE(keyTimes(target.spline), QList<double>{20});
    }

    void theTimeIsInSecondsWhateverTheAxisShows()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.c", {{1, 1}});
        fixture.editor.setFps(25.0);
        for (const bool frames : {true, false}) {
            frames ? fixture.editor.setShowFrames() : fixture.editor.setShowTime();
            fixture.editor.setTimeLine(2.0);
            fixture.editor.copy();
            fixture.editor.pasteOffset();
            QCOMPARE(keyTimes(curve.spline), QList<double>{3});
            fixture.undoAll();
        }
    }

    void copyOfTwoCurvesKeepsTheOlderClipboard()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{3, 3}});
        fixture.editor.copyBtn();
        LentCurve& b = fixture.editCurve("n.b", {{7, 7}});
        fixture.editor.selectNodes({"n.b", "n.a"});
        fixture.selectKeys("n.b", {0});
        fixture.editor.refreshEditor();
        QVERIFY(!choose(fixture.editor, "Edit/Copy/Copy Curve"));
        fixture.editor.copy();
        fixture.editor.copyKeys();
        QVERIFY(choose(fixture.editor, "Edit/Paste/Paste and Replace"));
        QCOMPARE(keyTimes(b.spline), QList<double>{3});
    }

    void whatCannotBeCopiedKeepsTheOlderClipboard_data()
    {
        QTest::addColumn<QString>("expression");
        QTest::addColumn<bool>("keysOnly");
        QTest::newRow("an expression alone") << "t" << false;
        QTest::newRow("an expression's hidden keys") << "t" << true;
        QTest::newRow("no selected key") << "" << true;
    }

    void whatCannotBeCopiedKeepsTheOlderClipboard()
    {
        QFETCH(QString, expression);
        QFETCH(bool, keysOnly);
        EditorFixture fixture;
        fixture.editCurve("n.a", {{3, 3}});
        fixture.editor.copy();
        const QByteArray text = expression.toUtf8();
        LentCurve& b =
            fixture.editCurve("n.b", {{7, 7}}, text.isEmpty() ? nullptr : text.constData());
        if (!text.isEmpty()) {
            fixture.selectKeys("n.b", {0});
        }
        keysOnly ? fixture.editor.copyKeys() : fixture.editor.copy();
        fixture.editor.paste();
        QCOMPARE(keyTimes(b.spline), QList<double>{3});
    }

    void withNoCurveBeingEditedNothingIsCopiedAndNothingPasted()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{3, 3}});
        fixture.editor.pasteKeys(); // nothing was copied yet
        fixture.editor.copy();
        fixture.editor.selectNodes(QStringList());
        fixture.editor.copy();
        fixture.editor.copyKeys();
        fixture.editor.paste();
        fixture.editor.pasteKeysOnTimeline();
        QVERIFY(fixture.undoAll().isEmpty());
        fixture.editor.selectNodes("n.a");
        fixture.editor.pasteOffset();
        QCOMPARE(fixture.undoSteps(), QStringList{"Paste Curve"});
        QCOMPARE(keyTimes(a.spline), QList<double>{3});
    }

    void copyingMakesNoStep()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{3, 3}});
        fixture.selectKeys("n.a", {0});
        fixture.editor.copy();
        fixture.editor.copyKeys();
        QVERIFY(fixture.undoAll().isEmpty());
    }

    void aSumIsCopiedWithoutItsExpression()
    {
        EditorFixture fixture;
        editSum(fixture, "n.sum", {{3, 3}}, "t*2");
        QVERIFY(choose(fixture.editor, "Edit/Copy/Copy Curve"));
        LentCurve& target = fixture.editCurve("n.target", {{7, 7}});
        fixture.editor.paste();
        QCOMPARE(keyTimes(target.spline), QList<double>{3});
        QVERIFY(!target.expression);
        QVERIFY(!target.spline.isAddFunc());
    }

    void behavioursAndDefaultValueTravelWithAWholeCurve()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{3, 3}});
        a.spline.setFirstNodeType(SplineBase::zero);
        a.spline.setLastNodeType(SplineBase::loop);
        a.spline.setDefaultValue(9.0);
        fixture.editor.copy();
        LentCurve& b = fixture.editCurve("n.b", {{7, 7}});
        const SplineState before(b.spline);
        fixture.editor.pasteKeys();
        QCOMPARE(b.spline.lastNodeType(), SplineBase::constant);
        fixture.editor.paste();
        QCOMPARE(b.spline.firstNodeType(), SplineBase::zero);
        QCOMPARE(b.spline.lastNodeType(), SplineBase::loop);
        QCOMPARE(b.spline.getDefaultValue(), 9.0);
        fixture.undoAll();
        QVERIFY(SplineState(b.spline) == before);
    }

    void aClipboardOutlivesItsSourceAndIsPastedManyTimes()
    {
        EditorFixture fixture;
        auto source = std::make_unique<LentCurve>();
        source->addKey(3, 3);
        fixture.editor.addCurve("n", "a", Qt::red, 0, &source->spline, &source->expression, 0, 1,
                                true, true);
        fixture.editor.copy();
        fixture.editor.removeNode("n");
        source.reset();
        LentCurve& b = fixture.editCurve("m.b", {{7, 7}});
        for (int times = 1; times <= 3; ++times) {
            fixture.editor.pasteKeys();
            QCOMPARE(keyTimes(b.spline).count(3), times);
        }
        fixture.undoAll();
        fixture.editor.paste();
        QCOMPARE(keyTimes(b.spline), QList<double>{3});
    }

    void aCurveIsPastedOntoItsOwnSource()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{3, 3}, {5, 5}});
        fixture.editor.copy();
        fixture.editor.setTimeLine(10.0);
        fixture.editor.pasteKeysOffset();
        QCOMPARE(keyTimes(a.spline), (QList<double>{3, 5, 13, 15}));
        fixture.editor.copyKeys();
        fixture.editor.pasteKeysOffset();
        QCOMPARE(keyTimes(a.spline), (QList<double>{3, 5, 13, 15, 23, 25}));
    }

    void aClipboardWithoutKeysIsPastedAtTheTimeLineAsAnEmptyCurve()
    {
        EditorFixture fixture;
        fixture.editCurve("n.empty", {});
        fixture.editor.copy();
        LentCurve& b = fixture.editCurve("n.b", {{7, 7}});
        fixture.editor.pasteKeysOnTimeline();
        QCOMPARE(keyTimes(b.spline), QList<double>{7});
        fixture.editor.pasteOnTimeline();
        QVERIFY(keyTimes(b.spline).isEmpty());
        QCOMPARE(fixture.undoAll(), (QStringList{"Paste Curve", "Paste Control Points"}));
        QCOMPARE(keyTimes(b.spline), QList<double>{7});
    }

    void keysThatAnotherEditorTookAwayAreNotCopied()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{3, 3}, {5, 5}});
        fixture.editor.copy();
        fixture.selectKeys("n.a", {1});
        a.spline.removeAllControlPoints();
        fixture.editor.copyKeys(); // the former clipboard stays
        fixture.editor.paste();
        QCOMPARE(keyTimes(a.spline), (QList<double>{3, 5}));
    }

    void twoEditorsHaveAClipboardEach()
    {
        EditorFixture first;
        EditorFixture second;
        first.editCurve("n.a", {{3, 3}});
        LentCurve& other = second.editCurve("n.a", {{7, 7}});
        first.editor.copy();
        second.editor.paste();
        QCOMPARE(keyTimes(other.spline), QList<double>{7});
        QVERIFY(second.undoAll().isEmpty());
    }

    /// A shortcut of the host may run any of them while the button is down.
    void theKeysOfADragMayBeReplacedUnderIt_data()
    {
        QTest::addColumn<QString>("slot");
        QTest::newRow("pasted over") << "paste";
        QTest::newRow("combined") << "pasteKeysOffset";
        QTest::newRow("reset") << "resetSelectedF";
        QTest::newRow("undone") << "undo";
    }

    void theKeysOfADragMayBeReplacedUnderIt()
    {
        QFETCH(QString, slot);
        EditorFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.editor.copy();
        fixture.editor.pasteKeysOffset(); // something to undo
        fixture.paint();
        fixture.press(EditorFixture::pixel(10, 10));
        fixture.moveTo(EditorFixture::pixel(12, 12));
        QVERIFY(QMetaObject::invokeMethod(&fixture.editor, slot.toUtf8().constData()));
        QVERIFY(selectionsAreSound(fixture));
        fixture.moveTo(EditorFixture::pixel(14, 14));
        fixture.paint();
        fixture.release(EditorFixture::pixel(14, 14));
        QVERIFY(selectionsAreSound(fixture));
        fixture.undoAll();
        QCOMPARE(a.spline.getControlPointsNumber(), 2u);
    }

    void theCopyButtonStartsWithTheSelectedKeys()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{3, 3}, {5, 5}});
        fixture.selectKeys("n.a", {1});
        fixture.editor.refreshEditor();
        QTest::mouseClick(toolButton(fixture.editor, "Copy/Paste", 0), Qt::LeftButton,
                          Qt::NoModifier, QPoint(10, 10));
        fixture.editor.paste();
        QCOMPARE(keyTimes(a.spline), QList<double>{5});
    }

    void eachEntryBecomesTheButtonsOwn_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<QString>("entry");
        QTest::newRow("keys") << 0 << "Copy Selected Keys";
        QTest::newRow("curve") << 0 << "Copy Curve";
        for (const char* const entry :
             {"Paste and Replace", "Paste and Replace After Timeline",
              "Paste and Replace on Current Frame", "Paste Combined",
              "Paste Combined After Timeline", "Paste Combined on Current Frame"}) {
            QTest::newRow(entry) << 1 << entry;
        }
    }

    void eachEntryBecomesTheButtonsOwn()
    {
        QFETCH(int, button);
        QFETCH(QString, entry);
        EditorFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{3, 3}});
        fixture.selectKeys("n.a", {0});
        fixture.editor.copy();
        fixture.editor.refreshEditor();
        QToolButton* const shown = toolButton(fixture.editor, "Copy/Paste", button);
        QMenu* const menu = shown->menu();
        QVERIFY(choose(fixture.editor, (button == 0 ? "Edit/Copy/" : "Edit/Paste/") + entry));
        QCOMPARE(shown->defaultAction()->text(), entry);
        QCOMPARE(shown->menu(), menu);
        if (button == 0) {
            return;
        }
        // A plain click repeats it.
        const QList<double> once = keyTimes(a.spline);
        fixture.undoAll();
        QTest::mouseClick(shown, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
        QCOMPARE(keyTimes(a.spline), once);
        QCOMPARE(fixture.undoAll().size(), 1);
    }
};

QTEST_MAIN(TestClipboard)
#include "test_clipboard.moc"

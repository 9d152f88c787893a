#include "support/KeyAddresses.h"

#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/SplineState.h"

#include "curves/CurveFile.h"
#include "widgets/CurveKeysDialog.h"

#include <QTemporaryDir>

#include <cmath>
#include <functional>
#include <map>

using Action = std::function<void(EditorFixture&)>;
Q_DECLARE_METATYPE(Action)

namespace {

const QString name = QStringLiteral("n.a");

/// The records of the keys by the addresses at which they lie.
std::map<const PointInfo*, SplineState::Bits> keysOf(SplineBase& spline)
{
    std::map<const PointInfo*, SplineState::Bits> keys;
    for (const PointInfo* key : spline.getControlPoints()) {
        keys[key] = SplineState::bitsOf(*key);
    }
    return keys;
}

/// The host frees all keys and makes as many others, which then lie where the former ones lay.
void refill(SplineBase& spline)
{
    const auto former = keysOf(spline);
    spline.removeAllControlPoints();
    for (std::size_t i = 0; i < former.size(); ++i) {
        spline.addPoint(3.0 + 9.0 * static_cast<double>(i), 31.0);
    }
    int met = 0;
    for (const auto& [key, record] : former) {
        met += int(spline.findIndex(key) >= 0);
    }
    QVERIFY(met + 1 >= int(former.size())); // else this program tests nothing
}

/// Whether each of the keys is in the spline and as it was.
bool areUntouched(SplineBase& spline, const std::map<const PointInfo*, SplineState::Bits>& keys)
{
    const auto now = keysOf(spline);
    for (const auto& [key, record] : keys) {
        const auto found = now.find(key);
        if (found == now.end() || found->second != record) {
            return false;
        }
    }
    return true;
}

void dragOne(EditorFixture& fixture)
{
    fixture.paint();
    fixture.drag(fixture.pixel(25, 5), fixture.pixel(30, 3));
}

void selectAll(EditorFixture& fixture)
{
    fixture.editor.selectAllKeys();
}

/// The value of the spline just before and just after 10, and in between the other keys.
std::vector<double> aroundTheCut(const SplineBase& spline)
{
    return {spline(5.0), spline(std::nextafter(10.0, 0.0)), spline(std::nextafter(10.0, 20.0)),
            spline(15.0), spline(25.0)};
}

} // namespace

/// New keys at the addresses of freed ones, and keys of equal times, under every command.
class TestKeyIdentity : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        fixture = std::make_unique<EditorFixture>();
        curve = &fixture->editCurve(name, {{5, 10}, {15, 20}, {25, 5}, {35, 15}, {45, 25}});
    }

    void cleanup() { fixture.reset(); }

    void noCommandTouchesTheKeysOfARefilledSpline_data()
    {
        QTest::addColumn<Action>("act");
        QTest::newRow("drag of one key") << Action(dragOne);
        QTest::newRow("drag of several") << Action([](EditorFixture& f) {
            selectAll(f);
            dragOne(f);
        });
        QTest::newRow("pan") << Action([](EditorFixture& f) {
            selectAll(f);
            f.logic().panSelection(1.0, 2.0);
        });
        QTest::newRow("scale") << Action([](EditorFixture& f) {
            selectAll(f);
            f.logic().scaleSelection(0.5, 2.0);
        });
        QTest::newRow("flat tangents") << Action([](EditorFixture& f) {
            selectAll(f);
            f.logic().flatTangents();
        });
        QTest::newRow("unified tangents") << Action([](EditorFixture& f) {
            selectAll(f);
            f.logic().setTangentsBroken(false);
        });
        QTest::newRow("interpolation") << Action([](EditorFixture& f) {
            selectAll(f);
            f.logic().setSelectedStep();
        });
        QTest::newRow("value typed in the key dialog") << Action([](EditorFixture& f) {
            selectAll(f);
            f.editor.positionY()->setText(QStringLiteral("7"));
            f.editor.positionY()->setModified(true);
            QTest::keyClick(f.editor.positionY(), Qt::Key_Return);
        });
        QTest::newRow("new key") << Action([](EditorFixture& f) {
            f.paint();
            f.doubleClick(f.pixel(12, 30));
        });
        QTest::newRow("deleted keys") << Action([](EditorFixture& f) {
            f.selectKeys(name, {1, 3});
            f.typeKey(Qt::Key_Delete);
        });
        QTest::newRow("selection") << Action(selectAll);
        QTest::newRow("keys pasted beside") << Action([](EditorFixture& f) {
            selectAll(f);
            f.editor.copyKeys();
            f.editor.pasteKeysOffset();
        });
        QTest::newRow("keys pasted in place") << Action([](EditorFixture& f) {
            f.editor.copy();
            f.editor.paste();
        });
        QTest::newRow("reset") << Action([](EditorFixture& f) {
            selectAll(f);
            f.logic().resetEditingCurves();
        });
    }

    void noCommandTouchesTheKeysOfARefilledSpline()
    {
        QFETCH(Action, act);
        act(*fixture);
        QVERIFY(!fixture->undoSteps().isEmpty());
        refill(curve->spline);
        const auto fresh = keysOf(curve->spline);
        const std::size_t steps = std::size_t(fixture->undoAll().size());
        QVERIFY(!fixture->logic().findCurve(name)->splineGraph()->selection().heldCurrent() ||
                !fresh.count(fixture->selectionOf(name).heldCurrent()));
        for (std::size_t i = 0; i < steps; ++i) {
            QVERIFY(fixture->editor.getCmdManager()->redo());
        }
        QVERIFY(areUntouched(curve->spline, fresh));
        fixture->undoAll();
        for (std::size_t i = 0; i < steps; ++i) {
            QVERIFY(fixture->editor.getCmdManager()->redo());
        }
        QVERIFY(areUntouched(curve->spline, fresh));
    }

    void undoOfADragMovesNoKeyThatTheHostMadeSince()
    {
        dragOne(*fixture);
        QCOMPARE(curve->spline(30.0), 3.0);
        refill(curve->spline);
        const SplineState before(curve->spline);
        fixture->undoAll();
        QVERIFY(SplineState(curve->spline) == before);
    }

    void keysReadTwiceFromAFileAreNotThoseThatWereDragged()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("curve.xml");
        QString error;
        QVERIFY(curve_editor::writeCurveFile(path, &curve->spline, curve->expression, error));
        QVERIFY(curve_editor::readCurveFile(path, &curve->spline, &curve->expression, error));
        dragOne(*fixture);
        const auto dragged = keysOf(curve->spline);
        for (int times = 0; times < 2; ++times) { // the file is read before any key is freed
            QVERIFY(curve_editor::readCurveFile(path, &curve->spline, &curve->expression, error));
        }
        int met = 0;
        for (const auto& [key, record] : dragged) {
            met += int(curve->spline.findIndex(key) >= 0);
        }
        QVERIFY(met >= 4); // else this program tests nothing
        const SplineState before(curve->spline);
        fixture->undoAll();
        QVERIFY(SplineState(curve->spline) == before);
    }

    /// User actions alone: the keys that the second editor deletes are freed when its history is
    /// full, and those that its user then adds lie at their addresses.
    void twoEditorsOnOneSplineLeaveEachOthersKeysAlone()
    {
        EditorFixture second;
        second.editor.addCurve("m", "b", Qt::red, 0.0f, &curve->spline, &curve->expression,
                               -1000.0f, 1000.0f, false, true);
        second.editor.setDefaultSelected("m", "b");
        second.editor.setUndoLevels(1);
        dragOne(*fixture);
        selectAll(*fixture);
        const auto dragged = keysOf(curve->spline);
        second.paint();
        selectAll(second);
        second.typeKey(Qt::Key_Delete);
        QCOMPARE(curve->spline.getControlPointsNumber(), 0u);
        for (int i = 0; i < 5; ++i) {
            second.paint();
            second.doubleClick(second.pixel(4.0 + 10.0 * i, 30.0));
        }
        QCOMPARE(curve->spline.getControlPointsNumber(), 5u);
        const auto fresh = keysOf(curve->spline);
        int met = 0;
        for (const auto& [key, record] : fresh) {
            met += int(dragged.count(key));
        }
        QVERIFY(met >= 3); // else this program tests nothing
        const SplineState before(curve->spline);
        fixture->typeKey(Qt::Key_Delete);
        QVERIFY(SplineState(curve->spline) == before);
        const int steps = int(fixture->undoAll().size());
        QVERIFY(SplineState(curve->spline) == before);
        for (int i = 0; i < steps; ++i) {
            fixture->editor.getCmdManager()->redo();
        }
        QVERIFY(SplineState(curve->spline) == before);
    }

    void aSelectionOfFreedKeysEditsNothing_data()
    {
        QTest::addColumn<bool>("several");
        QTest::newRow("one key") << false;
        QTest::newRow("all keys") << true;
    }

    void aSelectionOfFreedKeysEditsNothing()
    {
        QFETCH(bool, several);
        fixture->editor.enableShowKeyPptiesBtn();
        if (several) {
            selectAll(*fixture);
        } else {
            fixture->selectKeys(name, {2});
        }
        fixture->canvas().refreshKeysDialog();
        refill(curve->spline);
        const SplineState before(curve->spline);
        CanvasFunctionBase& canvas = fixture->logic();
        fixture->paint();
        canvas.scaleSelection(1.5, 1.5);
        canvas.panSelection(1.0, 1.0);
        canvas.flatTangents();
        canvas.setTangentsBroken(true);
        canvas.setTangentsBroken(false);
        canvas.setSelectedBezier();
        fixture->editor.positionY()->setText(QStringLiteral("7"));
        fixture->editor.positionY()->setModified(true);
        QTest::keyClick(fixture->editor.positionY(), Qt::Key_Return);
        fixture->typeKey(Qt::Key_Right);
        fixture->typeKey(Qt::Key_Left);
        fixture->drag(fixture->pixel(20, 2), fixture->pixel(22, 4)); // on no key
        fixture->typeKey(Qt::Key_Delete);
        fixture->editor.copyKeys();
        QVERIFY(SplineState(curve->spline) == before);
        fixture->undoAll();
        QVERIFY(SplineState(curve->spline) == before);
    }

    void aRefillInTheMidstOfADragEndsIt()
    {
        fixture->paint();
        fixture->press(fixture->pixel(25, 5));
        fixture->moveTo(fixture->pixel(27, 5));
        refill(curve->spline);
        const SplineState before(curve->spline);
        fixture->moveTo(fixture->pixel(30, 3));
        fixture->release(fixture->pixel(30, 3));
        QVERIFY(SplineState(curve->spline) == before);
        fixture->undoAll();
        QVERIFY(SplineState(curve->spline) == before);
    }

    void aHardCutSurvivesEveryCommand_data()
    {
        QTest::addColumn<Action>("act");
        for (const unsigned index : {1u, 2u}) {
            QTest::addRow("key %u deleted", index) << Action([index](EditorFixture& f) {
                f.selectKeys(name, {index});
                f.typeKey(Qt::Key_Delete);
            });
            QTest::addRow("key %u dragged to the right", index)
                << Action([index](EditorFixture& f) {
                       const double value = index == 1 ? 5 : 20;
                       f.paint();
                       f.drag(f.pixel(10, value), f.pixel(16, value));
                   });
            QTest::addRow("key %u dragged to the left", index) << Action([index](EditorFixture& f) {
                const double value = index == 1 ? 5 : 20;
                f.paint();
                f.drag(f.pixel(10, value), f.pixel(4, value));
            });
            QTest::addRow("key %u panned", index) << Action([index](EditorFixture& f) {
                f.selectKeys(name, {index});
                f.logic().panSelection(30.0, 0.0);
            });
        }
        QTest::newRow("both deleted") << Action([](EditorFixture& f) {
            f.selectKeys(name, {2, 1});
            f.typeKey(Qt::Key_Delete);
        });
        QTest::newRow("all scaled") << Action([](EditorFixture& f) {
            selectAll(f);
            f.logic().scaleSelection(0.0, 1.0);
        });
        QTest::newRow("reset") << Action([](EditorFixture& f) { f.logic().resetEditingCurves(); });
        QTest::newRow("pasted over") << Action([](EditorFixture& f) {
            f.editor.copy();
            f.editor.paste();
        });
        QTest::newRow("pasted beside") << Action([](EditorFixture& f) {
            f.editor.copy();
            f.editor.pasteKeys();
        });
    }

    void aHardCutSurvivesEveryCommand()
    {
        QFETCH(Action, act);
        EditorFixture other;
        LentCurve& edited = other.editCurve(name, {{0, 0}, {10, 5}, {10, 20}, {20, 10}, {30, 10}});
        const auto first = aroundTheCut(edited.spline);
        QCOMPARE(first[1], 5.0);
        act(other);
        const auto later = aroundTheCut(edited.spline);
        for (int round = 0; round < 3; ++round) {
            const int steps = int(other.undoAll().size());
            QVERIFY(steps > 0);
            QCOMPARE(aroundTheCut(edited.spline), first);
            for (int i = 0; i < steps; ++i) {
                other.editor.getCmdManager()->redo();
            }
            QCOMPARE(aroundTheCut(edited.spline), later);
        }
    }

private:
    std::unique_ptr<EditorFixture> fixture;
    LentCurve* curve = nullptr;
};

QTEST_MAIN(TestKeyIdentity)
#include "test_key_identity.moc"

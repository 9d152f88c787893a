// However long a session lasts, what the editor keeps does not grow. Every object that comes from
// operator new is counted: curve objects, graphs, records, commands, keys, tree items.

#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include <QPixmapCache>

#include <cstdlib>
#include <new>

namespace {

qint64 livingBlocks = 0;

void* newBlock(const std::size_t& size)
{
    void* const block = std::malloc(size > 0 ? size : 1);
    if (!block) {
        throw std::bad_alloc();
    }
    ++livingBlocks;
    return block;
}

void deleteBlock(void* block)
{
    livingBlocks -= block ? 1 : 0;
    std::free(block);
}

} // namespace

// The tests run on one thread. Aligned blocks, which nothing here asks for, are not counted.
void* operator new(std::size_t size)
{
    return newBlock(size);
}

void* operator new[](std::size_t size)
{
    return newBlock(size);
}

void operator delete(void* block) noexcept
{
    deleteBlock(block);
}

void operator delete[](void* block) noexcept
{
    deleteBlock(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    deleteBlock(block);
}

void operator delete[](void* block, std::size_t) noexcept
{
    deleteBlock(block);
}

namespace {

/// Caches of the toolkit fill up for a while; what grows with the steps is far above.
const qint64 mostForCaches = 100;

/// Two sets of curves of one host each, of which an editor shows one at a time.
class Sets
{
public:
    explicit Sets(const int& curvesEach)
        : size(curvesEach)
    {
        for (const QString& node : {QStringLiteral("left"), QStringLiteral("right")}) {
            for (int i = 0; i < size; ++i) {
                lent[nameOf(node, i)] = std::make_unique<LentCurve>();
                LentCurve& curve = *lent[nameOf(node, i)];
                curve.addKey(5.0, 1.0 + i);
                curve.addKey(25.0, 20.0);
            }
        }
    }

    /// The curve objects leave the canvas, and those of the other set are made.
    void show(CurveEditor& editor, const QString& node) const
    {
        editor.cleanSelecteds();
        QStringList names;
        for (int i = 0; i < size; ++i) {
            editor.setCurveEditableOn(editor.searchAllNodeList(nameOf(node, i)));
            names.append(nameOf(node, i));
        }
        editor.selectNodes(names);
    }

    void list(CurveEditor& editor, const QString& node, const bool& reports = true) const
    {
        for (int i = 0; i < size; ++i) {
            LentCurve& curve = *lent.at(nameOf(node, i));
            editor.addCurve(node, QStringLiteral("curve") + QChar('a' + i), Qt::green, 0.0f,
                            &curve.spline, &curve.expression, -1000.0f, 1000.0f, false, reports);
        }
    }

private:
    static QString nameOf(const QString& node, const int& index)
    {
        return node + QLatin1String(".curve") + QChar('a' + index);
    }

    int size;
    std::map<QString, std::unique_ptr<LentCurve>> lent;
};

/// One command of a session; the same number gives the same one.
void runCommand(EditorFixture& fixture, const int& number)
{
    CurveEditor& editor = fixture.editor;
    curve_editor::CurveCommandsManager& history = *editor.getCmdManager();
    switch (number % 10) {
    case 0:
        fixture.logic().selectAllKeys();
        break;
    case 1:
        fixture.logic().panSelection(0.5, 1.0);
        break;
    case 2:
        fixture.logic().copy();
        fixture.logic().pasteKeysOffset();
        break;
    case 3:
        fixture.logic().setSelectedTcb();
        break;
    case 4:
        editor.commandLine->setText("t*2+1");
        editor.executeCommand();
        break;
    case 5:
        editor.deleteCurveClicked();
        break;
    case 6:
        fixture.logic().deselectAllKeys();
        fixture.logic().addKey(fixture.logic().editingCurves().value(0), 30.0 + number % 7, 2.0);
        break;
    case 7:
        editor.deleteSelectedKeys();
        break;
    case 8:
        fixture.logic().resetEditingCurves();
        history.undo();
        break;
    default:
        editor.removeCurvesFromEditing();
        if (number % 20 == 9) {
            history.undo();
            history.redo();
            history.undo();
        }
        break;
    }
}

/// The toolkit keeps pictures of what it has painted, up to a number of bytes of its own.
qint64 blocksWithoutPictures()
{
    QPixmapCache::clear();
    return livingBlocks;
}

} // namespace

class TestFlatMemory : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void switchingBetweenSetsOfCurvesKeepsNothing()
    {
        const Sets sets(20);
        EditorFixture fixture;
        sets.list(fixture.editor, "left");
        sets.list(fixture.editor, "right");
        const auto switchSets = [&](const int& times) {
            for (int i = 0; i < times; ++i) {
                sets.show(fixture.editor, i % 2 == 0 ? "left" : "right");
                QCoreApplication::processEvents();
            }
        };
        switchSets(10);
        const qint64 before = blocksWithoutPictures();
        switchSets(100);
        const qint64 grown = blocksWithoutPictures() - before;
        QVERIFY2(grown <= mostForCaches, qPrintable(QString::number(grown)));
    }

    void tenThousandCommandsOverCurvesThatComeAndGoKeepNoMoreThanTheFirstThousand()
    {
        const Sets sets(2);
        EditorFixture fixture;
        fixture.editor.setUndoLevels(100);
        sets.list(fixture.editor, "left");
        sets.list(fixture.editor, "right");
        const auto runCommands = [&](const int& from, const int& to) {
            for (int i = from; i < to; ++i) {
                if (i % 20 == 0) {
                    const QString node = i % 40 == 0 ? "left" : "right";
                    fixture.editor.removeNode(node);
                    sets.list(fixture.editor, node);
                    sets.show(fixture.editor, node);
                    QCoreApplication::processEvents(); // else what waits for a paint adds up
                }
                runCommand(fixture, i);
            }
        };
        runCommands(0, 1000);
        const qint64 before = blocksWithoutPictures();
        runCommands(1000, 10000);
        const qint64 grown = blocksWithoutPictures() - before;
        QVERIFY2(grown <= mostForCaches, qPrintable(QString::number(grown)));
    }

    void undoingAndRedoingForEverKeepsNothing_data()
    {
        QTest::addColumn<bool>("removes");
        QTest::newRow("edits") << false;
        QTest::newRow("edits, and curves that leave the canvas") << true;
    }

    void undoingAndRedoingForEverKeepsNothing()
    {
        QFETCH(bool, removes);
        const Sets sets(3);
        EditorFixture fixture;
        // One that reports collects a connection each time that it comes back to the canvas.
        sets.list(fixture.editor, "left", !removes);
        sets.show(fixture.editor, "left");
        for (int i = 0; i < 9; ++i) {
            runCommand(fixture, i);
        }
        if (removes) {
            runCommand(fixture, 19);
            QVERIFY(!fixture.logic().findCurve("left.curvea"));
        }
        const int steps = static_cast<int>(fixture.undoSteps().size());
        const auto wander = [&] {
            for (int i = 0; i < steps; ++i) {
                fixture.editor.getCmdManager()->undo();
            }
            QVERIFY(fixture.logic().findCurve("left.curvea"));
            for (int i = 0; i < steps; ++i) {
                fixture.editor.getCmdManager()->redo();
            }
            QCoreApplication::processEvents();
        };
        for (int i = 0; i < 10; ++i) {
            wander();
        }
        const qint64 before = blocksWithoutPictures();
        for (int i = 0; i < 100; ++i) {
            wander();
        }
        const qint64 grown = blocksWithoutPictures() - before;
        QVERIFY2(grown <= mostForCaches, qPrintable(QString::number(grown)));
    }

    void recordsEndWithTheirEditor()
    {
        const auto openAndClose = [](const int& curves) {
            LentCurve lent;
            CurveEditor editor(nullptr, qEnvironmentVariable("ZK_ICONS_DIR"));
            for (int i = 0; i < curves; ++i) {
                const QString node = QStringLiteral("node%1").arg(i % 10);
                editor.addCurve(node, QStringLiteral("curve%1").arg(i), Qt::green, 0.0f,
                                &lent.spline, &lent.expression, -1.0f, 1.0f, false, true);
            }
        };
        openAndClose(1000); // the parser keeps the names
        const qint64 before = blocksWithoutPictures();
        for (int i = 0; i < 8; ++i) {
            openAndClose(1000);
        }
        const qint64 grown = blocksWithoutPictures() - before;
        QVERIFY2(grown <= mostForCaches, qPrintable(QString::number(grown)));
    }
};

QTEST_MAIN(TestFlatMemory)
#include "test_flat_memory.moc"

// Loading a curve file into the curves being edited.

#include "commands/WholeCurves.h"
#include "support/BoxCatcher.h"
#include "support/FailOnWarning.h"
#include "support/HostEar.h"
#include "support/ParserVariable.h"

#include "commands/CommandLoadCurve.h"
#include "curves/CurveFile.h"
#include "files/CurveType.h"

#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <utility>

using namespace curve_editor;

namespace {

/// Says "t", and cuts a file off when it does.
class HostsExpression : public FunctionFloatBase
{
public:
    explicit HostsExpression(const QString& path)
        : file(path)
    {}
    double value() const override { return 0.0; }
    std::string getString() const override
    {
        QFile::resize(file, 10);
        return "t";
    }

private:
    QString file;
};

} // namespace

class TestLoadingCurves : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        folder = std::make_unique<QTemporaryDir>();
    }

    void eachTypeOfFileReplacesTheWholeContent_data()
    {
        QTest::addColumn<QString>("expression");
        QTest::addColumn<bool>("isSum");
        QTest::addColumn<QList<double>>("times");
        QTest::newRow("a spline takes the expression away") << "" << false << QList<double>{3, 5};
        QTest::newRow("an expression takes the keys away") << "t+7" << false << QList<double>{};
        QTest::newRow("a sum") << "t+7" << true << QList<double>{3, 5};
    }

    void eachTypeOfFileReplacesTheWholeContent()
    {
        QFETCH(QString, expression);
        QFETCH(bool, isSum);
        QFETCH(QList<double>, times);
        EditorFixture fixture;
        LentCurve& curve = editSum(fixture, "n.a", {{1, 1}, {2, 2}}, "t*2");
        fixture.selectKeys("n.a", {1});
        const QList<PointInfo*> keys = keysOf(curve.spline);
        const SplineState before(curve.spline);
        const QString newText = expression.isEmpty() ? QString("none") : expression;
        QVERIFY(load(fixture, writeXml("c.xml", expression, isSum)));
        for (int round = 0; round < 2; ++round) {
            QCOMPARE(keyTimes(curve.spline), times);
            QCOMPARE(textOf(curve), newText);
            QCOMPARE(curve.spline.isAddFunc(), isSum);
            QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
            QCOMPARE(QString::fromStdString(managerOf(fixture).undo()->getDescription()),
                     QString("Load Curve"));
            QCOMPARE(keysOf(curve.spline), keys); // the keys themselves
            QVERIFY(SplineState(curve.spline) == before);
            QCOMPARE(textOf(curve), QString("t*2"));
            QCOMPARE(commandLineText(fixture.editor), QString("t*2"));
            QCOMPARE(fixture.selectionOf("n.a").selectedPoints, QList<PointInfo*>{keys[1]});
            managerOf(fixture).redo();
            QCOMPARE(commandLineText(fixture.editor), expression);
        }
    }

    void everyCurveBeingEditedGetsTheFileInOneStep()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}});
        LentCurve& b = fixture.addCurve("n.x.b", {}, "t");
        LentCurve& c = fixture.addCurve("n.c", {{1, 1}});
        fixture.editor.selectNodes({"n.a", "n.x.b"});
        HostEar host(fixture.editor);
        QVERIFY(load(fixture, writeXml("c.xml", QString(), false)));
        QCOMPARE(host.take(), (QStringList{"n|a", "n|x.b"}));
        QCOMPARE(fixture.editor.getSelection(), (QStringList{"n.a", "n.x.b"}));
        QCOMPARE(keyTimes(a.spline), (QList<double>{3, 5}));
        QCOMPARE(keyTimes(b.spline), (QList<double>{3, 5}));
        QCOMPARE(textOf(b), QString("none"));
        QCOMPARE(keyTimes(c.spline), QList<double>{1});
        managerOf(fixture).undo();
        QCOMPARE(host.take(), (QStringList{"n|a", "n|x.b"}));
        QCOMPARE(keyTimes(a.spline), QList<double>{1});
        QVERIFY(keyTimes(b.spline).isEmpty());
        QCOMPARE(textOf(b), QString("t"));
        QVERIFY(!managerOf(fixture).undo());
    }

    void withNoCurveBeingEditedNothingHappens()
    {
        EditorFixture fixture;
        fixture.addCurve("n.a", {{1, 1}});
        HostEar host(fixture.editor);
        QVERIFY(!load(fixture, writeXml("c.xml", QString(), false)));
        QVERIFY(host.take().isEmpty());
        QVERIFY(fixture.undoAll().isEmpty());
    }

    void whatCannotBeReadChangesNothing_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("boxes");
        QTest::newRow("no such file") << "none.xml" << QByteArray() << 0;
        QTest::newRow("no such older file") << "none.crv" << QByteArray() << 0;
        QTest::newRow("a folder") << "" << QByteArray() << 0;
        QTest::newRow("no XML at all") << "c.xml" << QByteArray("word") << 1;
        QTest::newRow("cut off") << "c.xml" << QByteArray("<curve><type>") << 1;
    }

    void whatCannotBeReadChangesNothing()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        QFETCH(int, boxes);
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}}, "t");
        LentCurve& b = fixture.addCurve("n.b", {{1, 1}});
        fixture.editor.selectNodes({"n.b", "n.a"});
        fixture.selectKeys("n.b", {0});
        fixture.editor.getCmdManager()->clear();
        const QList<PointInfo*> keys = keysOf(b.spline);
        if (!content.isEmpty()) {
            writeFile(name, content);
        }
        HostEar host(fixture.editor);
        BoxCatcher catcher;
        QVERIFY(!load(fixture, folder->filePath(name)));
        QCOMPARE(catcher.titles.size(), boxes); // the first curve's alone
        QCOMPARE(keysOf(b.spline), keys);
        QCOMPARE(fixture.selectionOf("n.b").selectedPoints, keys);
        QCOMPARE(textOf(a), QString("t"));
        QVERIFY(host.take().isEmpty());
        QVERIFY(fixture.undoAll().isEmpty());
    }

    void aPipeOrADeviceIsNotWaitedFor_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("device as XML") << "device.xml";
        QTest::newRow("device as an older file") << "device.crv";
        QTest::newRow("pipe as XML") << "pipe.xml";
        QTest::newRow("pipe as an older file") << "pipe.crv";
    }

    void aPipeOrADeviceIsNotWaitedFor()
    {
        QFETCH(QString, name);
        const QString path = folder->filePath(name);
        QVERIFY(name.startsWith("pipe") ? mkfifo(qPrintable(path), 0600) == 0
                                        : QFile::link("/dev/null", path));
        EditorFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{1, 1}});
        BoxCatcher catcher;
        QVERIFY(!load(fixture, path));
        QVERIFY(catcher.titles.isEmpty());
        QCOMPARE(keyTimes(a.spline), QList<double>{1});
        QVERIFY(fixture.undoAll().isEmpty());
    }

    void aFailureOnALaterCurveLeavesTheEarlierOnesAsTheyWere()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}}, "t");
        LentCurve& b = fixture.addCurve("n.b", {{2, 2}}, "t");
        const QList<PointInfo*> keys = keysOf(a.spline);
        fixture.editor.selectNodes({"n.a", "n.b"});
        HostEar host(fixture.editor);
        BoxCatcher catcher;
        QVERIFY(!loadCutAfterwards(fixture, a));
        QCOMPARE(catcher.titles, QStringList{"Error Reading XML File"});
        QCOMPARE(keysOf(a.spline), keys);
        QCOMPARE(textOf(a), QString("t"));
        QCOMPARE(keyTimes(b.spline), QList<double>{2});
        QVERIFY(host.take().isEmpty());
        QVERIFY(fixture.undoAll().isEmpty());
        fixture.editor.selectNodes("n.a");
        QVERIFY(loadCutAfterwards(fixture, a)); // the first reading succeeds
        QCOMPARE(keyTimes(a.spline), (QList<double>{3, 5}));
    }

    void theEndingDecidesInAnyCase_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isXml");
        QTest::newRow("xml") << "c.xml" << true;
        QTest::newRow("XML") << "c.XML" << true;
        QTest::newRow("Xml") << "c.Xml" << true;
        QTest::newRow("crv") << "c.crv" << false;
        QTest::newRow("CRV") << "c.CRV" << false;
        QTest::newRow("none") << "c" << false;
        QTest::newRow("xml before the end") << "c.xml.old" << false;
    }

    void theEndingDecidesInAnyCase()
    {
        QFETCH(QString, name);
        QFETCH(bool, isXml);
        EditorFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{1, 1}});
        writeFile(name, "0\n0\n0\n1\nt+9\n"); // an older file of an expression
        BoxCatcher catcher;
        QCOMPARE(load(fixture, folder->filePath(name)), !isXml);
        QCOMPARE(catcher.titles, isXml ? QStringList{"Error Reading XML File"} : QStringList());
        QCOMPARE(textOf(a), isXml ? QString("none") : QString("t+9"));
        QCOMPARE(a.spline.getControlPointsNumber(), isXml ? 1u : 0u);
    }

    void anOlderFileOfNoTypeEmptiesTheCurveAndIsAStep()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{1, 1}});
        writeFile("c.crv", "0 0 0 7");
        BoxCatcher catcher;
        QVERIFY(load(fixture, folder->filePath("c.crv")));
        QCOMPARE(catcher.titles, QStringList{"Error Loading Curve File"});
        QCOMPARE(a.spline.getControlPointsNumber(), 0u);
        QCOMPARE(fixture.undoAll(), QStringList{"Load Curve"});
        QCOMPARE(keyTimes(a.spline), QList<double>{1});
    }

    void aRenamedAndARemovedCurveGetTheirContentBack_data()
    {
        QTest::addColumn<bool>("isRemoved");
        QTest::newRow("renamed") << false;
        QTest::newRow("renamed and removed") << true;
    }

    void aRenamedAndARemovedCurveGetTheirContentBack()
    {
        QFETCH(bool, isRemoved);
        EditorFixture fixture;
        LentCurve& a = editSum(fixture, "n.a", {{1, 1}}, "t*2");
        const QList<PointInfo*> keys = keysOf(a.spline);
        QVERIFY(load(fixture, writeXml("c.xml", "t+7", true)));
        fixture.editor.renameNode("n", "m");
        if (isRemoved) {
            fixture.editor.removeNode("m");
        }
        for (int round = 0; round < 2; ++round) {
            managerOf(fixture).undo();
            QCOMPARE(keysOf(a.spline), keys);
            QCOMPARE(textOf(a), QString("t*2"));
            managerOf(fixture).redo();
            QCOMPARE(keyTimes(a.spline), (QList<double>{3, 5}));
            QCOMPARE(textOf(a), QString("t+7"));
            QVERIFY(a.spline.isAddFunc());
        }
    }

    void aSplineOfTwoRecordsIsLoadedOnce()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}});
        fixture.editor.addCurve("n", "b", Qt::red, 0, &a.spline, nullptr, -9, 9, true, true);
        fixture.editor.selectNodes({"n.a", "n.b"});
        fixture.editor.selectAllKeys();
        const QList<PointInfo*> keys = keysOf(a.spline);
        QVERIFY(load(fixture, writeXml("c.xml", QString(), false)));
        QVERIFY(selectionsAreSound(fixture));
        managerOf(fixture).undo();
        QCOMPARE(keysOf(a.spline), keys);
        managerOf(fixture).redo();
        QCOMPARE(keyTimes(a.spline), (QList<double>{3, 5}));
        fixture.editor.removeNode("n");
    }

    void aSplineThatDiedMeanwhileIsPassedOver()
    {
        EditorFixture fixture;
        auto doomed = std::make_unique<LentCurve>();
        doomed->addKey(1, 1);
        fixture.editor.addCurve("n", "a", Qt::red, 0, &doomed->spline, &doomed->expression, -9, 9,
                                true, true);
        QVERIFY(load(fixture, writeXml("c.xml", "t", true)));
        doomed.reset();
        managerOf(fixture).undo();
        managerOf(fixture).redo();
        QVERIFY(load(fixture, folder->filePath("c.xml"))); // of nothing that lives
    }

    /// Such a curve is an expression or nothing.
    void aCurveThatNeverHadASplineTakesTheExpressionAlone()
    {
        LentCurve lent;
        lent.setExpression("t*2");
        LentCurve empty;
        EditorFixture fixture;
        fixture.editor.addCurve("n", "a", Qt::red, 0, nullptr, &lent.expression, -9, 9, true, true);
        fixture.editor.addCurve("n", "b", Qt::red, 0, nullptr, &empty.expression, -9, 9, false,
                                true);
        fixture.editor.setCurveEditableOn(fixture.editor.searchAllNodeList("n.b"));
        fixture.editor.selectNodes({"n.a", "n.b"});
        QVERIFY(load(fixture, writeXml("c.xml", "t+7", true)));
        for (int round = 0; round < 2; ++round) {
            QCOMPARE(textOf(lent), QString("t+7"));
            QCOMPARE(textOf(empty), QString("t+7"));
            managerOf(fixture).undo();
            QCOMPARE(textOf(lent), QString("t*2"));
            QCOMPARE(textOf(empty), QString("none"));
            managerOf(fixture).redo();
        }
        fixture.paint();
    }

    void anExpressionThatNoLongerParsesSaysSo()
    {
        EditorFixture fixture;
        auto variable = std::make_unique<Variable>("gone_soon", 2.0);
        LentCurve& a = editSum(fixture, "n.a", {{1, 1}}, "gone_soon*2");
        QVERIFY(load(fixture, writeXml("c.xml", "t+7", false)));
        variable.reset();
        BoxCatcher boxes;
        HostEar host(fixture.editor);
        managerOf(fixture).undo();
        QCOMPARE(boxes.texts, QStringList{"Variable gone_soon not found"});
        QCOMPARE(host.take(), QStringList{"n|a"});
        QCOMPARE(keyTimes(a.spline), QList<double>{1});
        QCOMPARE(textOf(a), QString("none"));
        managerOf(fixture).redo();
        QCOMPARE(textOf(a), QString("t+7"));
        const Variable again("gone_soon", 2.0);
        managerOf(fixture).undo();
        QCOMPARE(textOf(a), QString("gone_soon*2"));
        delete std::exchange(a.expression, nullptr); // before the variable goes
    }

private:
    static bool load(EditorFixture& fixture, const QString& path)
    {
        return managerOf(fixture).doCommand(new CommandLoadCurve(&fixture.editor, path));
    }

    /// Loads a curve file of keys at 3 and 5 that is cut off when the host's expression is asked
    /// for its text, which comes after the file was read for its curve.
    bool loadCutAfterwards(EditorFixture& fixture, LentCurve& curve)
    {
        const QString path = writeXml("c.xml", QString(), false);
        delete std::exchange(curve.expression, new HostsExpression(path));
        return load(fixture, path);
    }

    void writeFile(const QString& name, const QByteArray& content)
    {
        QFile file(folder->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    /// A curve file with keys at 3 and 5 unless it is of an expression alone; returns its path.
    QString writeXml(const QString& name, const QString& expression, bool isSum)
    {
        LentCurve curve;
        curve.addKey(3, 3);
        curve.addKey(5, 5);
        curve.spline.setAddFunc(isSum);
        if (!expression.isEmpty()) {
            curve.setExpression(expression.toUtf8().constData());
        }
        QString error;
        const QString path = folder->filePath(name);
        if (!writeCurveFile(path, &curve.spline, curve.expression, error)) {
            qWarning("%s", qPrintable(error));
        }
        return path;
    }

    std::unique_ptr<QTemporaryDir> folder;
};

QTEST_MAIN(TestLoadingCurves)
#include "test_loading_curves.moc"

#include "editor/FileActionsFixture.h"
#include "support/HostEar.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <functional>

class TestLoading : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { FileActionsFixture::keepAwayFromTheUsersSettings(); }
    void init();
    void cleanup() { fixture.reset(); }

    void theDialogOpensInTheFolder();
    void aCancelChangesNothing();
    void aFileIsReadIntoTheCurve_data();
    void aFileIsReadIntoTheCurve();
    void aFileIsReadIntoAllCurvesBeingEdited();
    void theFolderOfTheChoiceIsRememberedEvenIfTheFileIsBad();
    void aBadFileShowsTheBoxAndChangesNothing();
    void whatIsSavedIsLoaded_data();
    void whatIsSavedIsLoaded();
    void theExpressionLineShowsTheNewExpression();
    void theEditorMayBeDeletedWhileTheDialogRuns();
    void theEditorMayBeDeletedWhileTheBoxIsOpen_data();
    void theEditorMayBeDeletedWhileTheBoxIsOpen();
    void theCurvesMayBeRemovedWhileTheBoxIsOpen();

private:
    void load(const QString& name);
    SplineBase& spline() { return fixture->editor.curves.at("body.width")->spline; }

    std::unique_ptr<FileActionsFixture> fixture;
};

namespace {

const char* const xmlFile = "<curve version=\"1.0\"><type>spline</type><first-node-type>zero"
                            "</first-node-type><last-node-type>loop</last-node-type>"
                            "<control-points><point><x>7</x><y>8</y></point></control-points>"
                            "</curve>";
const char* const olderFile = "1\n2\n3\n0\n1 0 2 0\n7 8 0 0 0 0 0 0 0 2 0\n";

void closeBoxAfter(const std::function<void()>& action)
{
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box && box->isVisible()) {
        action();
        box->done(QMessageBox::Ok);
    }
}

} // namespace

void TestLoading::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<FileActionsFixture>();
    fixture->editor.editCurve("body.width", {{1.0, 2.0}, {3.0, 4.0}});
}

void TestLoading::load(const QString& name)
{
    FileDialogDriver user(fixture->folder.filePath(name));
    fixture->trigger("loadCurve");
    QCOMPARE(user.dialogs, 1);
}

void TestLoading::theDialogOpensInTheFolder()
{
    FileDialogDriver user;
    fixture->trigger("loadCurve");
    QCOMPARE(user.dialogs, 1);
    QCOMPARE(user.title, QString("Open File"));
    QCOMPARE(user.directory, fixture->folder.path());
    QCOMPARE(user.filters,
             QStringList({"Quondrix XML Curve Files (*.xml)", "Quondrix Curve Files (*.crv)"}));
    QCOMPARE(user.acceptMode, QFileDialog::AcceptOpen);
    QCOMPARE(user.fileMode, QFileDialog::ExistingFile);
    QCOMPARE(user.parent, &fixture->editor.editor);
}

void TestLoading::aCancelChangesNothing()
{
    HostEar ear(fixture->editor.editor);
    FileDialogDriver user;
    fixture->trigger("loadCurve");
    fixture->trigger("loadCurve");
    QCOMPARE(user.dialogs, 2);
    QCOMPARE(user.directory, fixture->folder.path());
    QCOMPARE(spline().getControlPointsNumber(), 2u);
    QCOMPARE(fixture->editor.undoSteps(), QStringList());
    QCOMPARE(ear.take(), QStringList());
}

void TestLoading::aFileIsReadIntoTheCurve_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("XML") << "a.xml" << QByteArray(xmlFile);
    QTest::newRow("XML in capitals") << "A.XML" << QByteArray(xmlFile);
    QTest::newRow("older format") << "a.crv" << QByteArray(olderFile);
    QTest::newRow("any other name is of the older format") << "a.txt" << QByteArray(olderFile);
}

void TestLoading::aFileIsReadIntoTheCurve()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, text);
    fixture->write(name, text);
    HostEar ear(fixture->editor.editor);
    load(name);
    QCOMPARE(spline().getControlPointsNumber(), 1u);
    QCOMPARE(spline().at(0)->time, 7.0);
    QCOMPARE(spline().at(0)->value, 8.0);
    QCOMPARE(spline().firstNodeType(), SplineBase::zero);
    QCOMPARE(spline().lastNodeType(), SplineBase::loop);
    QVERIFY(ear.take().contains("body|width"));
    QCOMPARE(fixture->editor.undoSteps(), QStringList("Load Curve"));
    fixture->editor.undoAll();
    QCOMPARE(spline().getControlPointsNumber(), 2u);
    QCOMPARE(spline().at(0)->time, 1.0);
}

void TestLoading::aFileIsReadIntoAllCurvesBeingEdited()
{
    LentCurve& other = fixture->editor.addCurve("arm.x", {{5.0, 6.0}, {6.0, 7.0}});
    fixture->editor.editor.selectNodes(QStringList({"body.width", "arm.x"}));
    fixture->write("a.xml", xmlFile);
    load("a.xml");
    QCOMPARE(spline().getControlPointsNumber(), 1u);
    QCOMPARE(other.spline.getControlPointsNumber(), 1u);
}

void TestLoading::theFolderOfTheChoiceIsRememberedEvenIfTheFileIsBad()
{
    QVERIFY(QDir(fixture->folder.path()).mkdir("inner"));
    fixture->write("inner/bad.xml", "bad");
    load("inner/bad.xml");
    FileDialogDriver user;
    fixture->trigger("loadCurve");
    QCOMPARE(user.directory, fixture->folder.filePath("inner"));
}

void TestLoading::aBadFileShowsTheBoxAndChangesNothing()
{
    fixture->write("bad.xml", "<curve/>");
    load("bad.xml");
    QCOMPARE(fixture->boxes.titles, QStringList("Error Reading XML File"));
    QVERIFY(fixture->boxes.texts.value(0).contains("Undefined Version"));
    QCOMPARE(spline().getControlPointsNumber(), 2u);
    QCOMPARE(fixture->editor.undoSteps(), QStringList());
}

void TestLoading::whatIsSavedIsLoaded_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("XML") << "a.xml";
    QTest::newRow("older format") << "a.crv";
}

void TestLoading::whatIsSavedIsLoaded()
{
    QFETCH(QString, name);
    spline().setLastNodeType(SplineBase::followTangent);
    fixture->saveAs(fixture->folder.filePath(name));
    fixture->editor.editCurve("arm.x", {});
    load(name);
    SplineBase& loaded = fixture->editor.curves.at("arm.x")->spline;
    QCOMPARE(loaded.getControlPointsNumber(), 2u);
    QCOMPARE(loaded.at(1)->time, 3.0);
    QCOMPARE(loaded.at(1)->value, 4.0);
    QCOMPARE(loaded.lastNodeType(), SplineBase::followTangent);
    QVERIFY(fixture->boxes.titles.isEmpty());
}

void TestLoading::theExpressionLineShowsTheNewExpression()
{
    fixture->write("a.crv", "1\n2\n3\n1\nt*2\n");
    load("a.crv");
    QCOMPARE(fixture->editor.logic().commandLineText(), QString("t*2"));
    QCOMPARE(fixture->editor.editor.commandLine->text(), QString("t*2"));
}

void TestLoading::theEditorMayBeDeletedWhileTheDialogRuns()
{
    auto* const editor = new CurveEditor(nullptr, QString());
    FileDialogDriver user;
    user.instead = [editor](QFileDialog*) { delete editor; };
    editor->loadFile();
    QCOMPARE(user.dialogs, 1);
}

void TestLoading::theEditorMayBeDeletedWhileTheBoxIsOpen_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("XML") << "bad.xml";
    QTest::newRow("older format") << "bad.crv";
}

void TestLoading::theEditorMayBeDeletedWhileTheBoxIsOpen()
{
    QFETCH(QString, name);
    fixture.reset(); // it would close the box
    const LowerCaseDir folder;
    QFile bad(folder.filePath(name));
    QVERIFY(bad.open(QIODevice::WriteOnly));
    bad.write("bad");
    bad.close();
    LentCurve lent[2];
    auto* const editor = new CurveEditor(nullptr, QString());
    for (int i = 0; i < 2; ++i) {
        editor->addCurve("n", QStringLiteral("c%1").arg(i), Qt::red, 0.0f, &lent[i].spline,
                         &lent[i].expression, -1.0f, 1.0f, true, true);
    }
    editor->setCurveEditableOn(editor->searchAllNodeList("n.c0"));
    editor->setCurveEditableOn(editor->searchAllNodeList("n.c1"));
    editor->selectNodes(QStringList({"n.c0", "n.c1"}));
    QCOMPARE(editor->getFunctionEditor()->canvas().editingCurves().size(), 2);
    const QPointer<CurveEditor> watch(editor);
    FileDialogDriver user(bad.fileName());
    QTimer timer;
    timer.callOnTimeout(&timer, [&watch] { closeBoxAfter([&watch] { delete watch.data(); }); });
    timer.start(0);
    editor->loadFile();
    QVERIFY(!watch);
}

void TestLoading::theCurvesMayBeRemovedWhileTheBoxIsOpen()
{
    fixture.reset(); // it would close the box
    const LowerCaseDir folder;
    QFile bad(folder.filePath("bad.crv"));
    QVERIFY(bad.open(QIODevice::WriteOnly));
    bad.close();
    EditorFixture parts;
    parts.addCurve("body.width", {{1.0, 2.0}, {3.0, 4.0}});
    parts.addCurve("arm.x", {{5.0, 6.0}});
    parts.editor.selectNodes(QStringList({"body.width", "arm.x"}));
    int boxes = 0;
    QTimer timer;
    timer.callOnTimeout(&timer, [&parts, &boxes] {
        closeBoxAfter([&parts, &boxes] {
            ++boxes;
            parts.editor.removeCurve("body", "width");
            parts.editor.removeCurve("arm", "x");
        });
    });
    timer.start(0);
    FileDialogDriver user(bad.fileName());
    parts.editor.loadFile();
    QVERIFY(boxes > 0);
    parts.undoAll();
    QCOMPARE(parts.curves.at("body.width")->spline.getControlPointsNumber(), 2u);
    QCOMPARE(parts.curves.at("arm.x")->spline.getControlPointsNumber(), 1u);
}

QTEST_MAIN(TestLoading)
#include "test_loading.moc"

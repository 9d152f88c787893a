#include "editor/FileActionsFixture.h"
#include "support/Denied.h"

#include <QTest>

class TestSaving : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { FileActionsFixture::keepAwayFromTheUsersSettings(); }
    void init();
    void cleanup() { fixture.reset(); }

    void theDialogProposesFolderAndNameOfTheCurve();
    void theProposalIsTheFolderASlashAndTheName();
    void theFileIsNamedAsTypedInLowerCase_data();
    void theFileIsNamedAsTypedInLowerCase();
    void theWholePathIsPutIntoLowerCase();
    void theExtensionDecidesAndNotTheFilter();
    void theOlderFileBeginsWithTheColourOfTheFirstCurve();
    void theFolderOfTheChoiceIsRememberedWithASlash();
    void aCancelChangesNothing();
    void savingIsNoStepOfUndoAndChangesNoCurve();
    void severalCurvesAreSavedInAFolderEachUnderItsName();
    void aCancelOfTheFolderSavesNothing();
    void withoutACurveTheMenuIsOutOfReach();
    void withoutACurveAFileStaysAsItIs();
    void aFullDiskLeavesTheOldFileWithoutAWord_data();
    void aFullDiskLeavesTheOldFileWithoutAWord();
    void aTargetThatCannotBeOpenedIsPassedOverWithoutAWord_data();
    void aTargetThatCannotBeOpenedIsPassedOverWithoutAWord();
    void theEditorMayBeDeletedWhileTheDialogRuns_data();
    void theEditorMayBeDeletedWhileTheDialogRuns();
    void theCurveMayGoWhileTheDialogRuns();

private:
    std::unique_ptr<FileActionsFixture> fixture;
};

void TestSaving::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<FileActionsFixture>();
    fixture->editor.editCurve("body.width", {{1.0, 2.0}, {3.0, 4.0}});
}

void TestSaving::theDialogProposesFolderAndNameOfTheCurve()
{
    FileDialogDriver user;
    fixture->trigger("saveCurve");
    QCOMPARE(user.dialogs, 1);
    QCOMPARE(user.title, QString("Save Curve as..."));
    QCOMPARE(user.directory, fixture->folder.path());
    QCOMPARE(user.proposedName, QString("body.width.xml"));
    QCOMPARE(user.filters,
             QStringList({"Quondrix XML Curve Files (*.xml)", "Quondrix Curve Files (*.crv)"}));
    QCOMPARE(user.acceptMode, QFileDialog::AcceptSave);
    QCOMPARE(user.fileMode, QFileDialog::AnyFile);
    QCOMPARE(user.parent, &fixture->editor.editor);
}

/// A folder that ends in a slash gets a second one, which the file system takes.
void TestSaving::theProposalIsTheFolderASlashAndTheName()
{
    fixture->editor.editor.setCurrentDir(fixture->folder.path() + "/");
    FileDialogDriver user;
    user.instead = [](QFileDialog* dialog) {
        QTest::keyClick(dialog->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    };
    fixture->trigger("saveCurve");
    QCOMPARE(fixture->folder.names(), QStringList("body.width.xml"));
}

void TestSaving::theFileIsNamedAsTypedInLowerCase_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("written");
    QTest::addColumn<bool>("xml");
    QTest::newRow("as it is") << "a.xml"
                              << "a.xml" << true;
    QTest::newRow("the name in lower case") << "Curve.xml"
                                            << "curve.xml" << true;
    QTest::newRow("no extension") << "Curve"
                                  << "curve.xml" << true;
    QTest::newRow("another extension") << "Curve.txt"
                                       << "curve.txt.xml" << true;
    QTest::newRow(".XML counts as another") << "A.XML"
                                            << "a.xml.xml" << true;
    QTest::newRow(".Xml as well") << "A.Xml"
                                  << "a.xml.xml" << true;
    QTest::newRow("older format") << "curve.crv"
                                  << "curve.crv" << false;
    QTest::newRow("older format in capitals") << "Curve.CRV"
                                              << "curve.crv" << false;
    QTest::newRow("only the end counts") << "curve.crv.x"
                                         << "curve.crv.x.xml" << true;
    QTest::newRow("nothing before the extension") << ".crv"
                                                  << ".crv" << false;
}

void TestSaving::theFileIsNamedAsTypedInLowerCase()
{
    QFETCH(QString, typed);
    QFETCH(QString, written);
    QFETCH(bool, xml);
    fixture->saveAs(fixture->folder.filePath(typed));
    QCOMPARE(fixture->folder.names(), QStringList(written));
    QCOMPARE(fixture->textOf(written).startsWith("<?xml"), xml);
}

void TestSaving::theWholePathIsPutIntoLowerCase()
{
    QVERIFY(QDir(fixture->folder.path()).mkdir("Upper"));
    fixture->saveAs(fixture->folder.filePath("Upper/a.xml"));
    QVERIFY(QDir(fixture->folder.filePath("Upper")).isEmpty()); // there is no folder "upper"

    QVERIFY(QDir(fixture->folder.path()).mkdir("upper"));
    fixture->saveAs(fixture->folder.filePath("Upper/a.xml"));
    QVERIFY(QFile::exists(fixture->folder.filePath("upper/a.xml")));
    QVERIFY(QDir(fixture->folder.filePath("Upper")).isEmpty());
}

void TestSaving::theExtensionDecidesAndNotTheFilter()
{
    FileDialogDriver user;
    user.instead = [this](QFileDialog* dialog) {
        dialog->selectNameFilter("Quondrix Curve Files (*.crv)");
        auto* const field = dialog->findChild<QLineEdit*>("fileNameEdit");
        field->setText(fixture->folder.filePath("plain"));
        QTest::keyClick(field, Qt::Key_Return);
    };
    fixture->trigger("saveCurve");
    QCOMPARE(fixture->folder.names(), QStringList("plain.xml"));
    QVERIFY(fixture->textOf("plain.xml").startsWith("<?xml"));
}

void TestSaving::theOlderFileBeginsWithTheColourOfTheFirstCurve()
{
    fixture->saveAs(fixture->folder.filePath("a.crv"));
    QCOMPARE(fixture->textOf("a.crv"), QByteArray("0\n255\n0\n" // green
                                                  "0\n"
                                                  "2 1 1 0\n"
                                                  "1 2 0 0 0 0 0 0 0 0 0\n"
                                                  "3 4 0 0 0 0 0 0 0 0 0\n"));
}

void TestSaving::theFolderOfTheChoiceIsRememberedWithASlash()
{
    QVERIFY(QDir(fixture->folder.path()).mkdir("inner"));
    fixture->saveAs(fixture->folder.filePath("inner/a.xml"));
    FileDialogDriver user;
    fixture->trigger("saveCurve");
    QCOMPARE(user.directory, fixture->folder.filePath("inner"));
    QCOMPARE(user.proposedName, QString("body.width.xml"));
}

void TestSaving::aCancelChangesNothing()
{
    FileDialogDriver user;
    fixture->trigger("saveCurve");
    fixture->trigger("saveCurve");
    QCOMPARE(user.dialogs, 2);
    QCOMPARE(user.directory, fixture->folder.path());
    QCOMPARE(fixture->folder.names(), QStringList());
}

void TestSaving::savingIsNoStepOfUndoAndChangesNoCurve()
{
    LentCurve& curve = *fixture->editor.curves.at("body.width");
    fixture->editor.paint();
    curve.spline.setChanged(false);
    int reports = 0;
    QObject::connect(&fixture->editor.editor, &CurveEditor::curveHasChanged, this,
                     [&reports] { ++reports; });
    fixture->saveAs(fixture->folder.filePath("a.xml"));
    fixture->saveAs(fixture->folder.filePath("a.crv"));
    QCOMPARE(reports, 0);
    QVERIFY(!curve.spline.hasChanged());
    QCOMPARE(fixture->editor.undoSteps(), QStringList());
}

void TestSaving::severalCurvesAreSavedInAFolderEachUnderItsName()
{
    fixture->editor.addCurve("Arm.Left.x", {{5.0, 6.0}});
    fixture->editor.editor.selectNodes(QStringList({"body.width", "Arm.Left.x"}));
    QVERIFY(QDir(fixture->folder.path()).mkdir("Chosen"));
    {
        FileDialogDriver user("Chosen");
        fixture->trigger("saveCurve");
        QCOMPARE(user.dialogs, 1);
        QCOMPARE(user.title, QString("Save Curves as XML"));
        QCOMPARE(user.directory, fixture->folder.path());
        QCOMPARE(user.fileMode, QFileDialog::Directory);
        QVERIFY(user.showsFoldersOnly);
    }
    QCOMPARE(QDir(fixture->folder.filePath("Chosen")).entryList(QDir::Files),
             QStringList({"Arm.Left.x.xml", "body.width.xml"}));
    QVERIFY(fixture->textOf("Chosen/Arm.Left.x.xml").contains("<x>5</x>"));
    QVERIFY(fixture->textOf("Chosen/body.width.xml").contains("<x>3</x>"));

    // The folder of the dialogs is the one from before.
    FileDialogDriver next;
    fixture->trigger("saveCurve");
    QCOMPARE(next.directory, fixture->folder.path());
}

void TestSaving::aCancelOfTheFolderSavesNothing()
{
    fixture->editor.addCurve("arm.x", {{5.0, 6.0}});
    fixture->editor.editor.selectNodes(QStringList({"body.width", "arm.x"}));
    FileDialogDriver user;
    fixture->trigger("saveCurve");
    QCOMPARE(user.dialogs, 1);
    QCOMPARE(fixture->folder.names(), QStringList());
}

void TestSaving::withoutACurveTheMenuIsOutOfReach()
{
    QVERIFY(menuAction(fixture->editor.editor, "File")->isEnabled());
    fixture->editor.editor.selectNodes(QStringList());
    QVERIFY(!menuAction(fixture->editor.editor, "File")->isEnabled());
}

/// A host may call the slot.
void TestSaving::withoutACurveAFileStaysAsItIs()
{
    fixture->editor.editor.selectNodes(QStringList());
    fixture->write("a.crv", "old");
    fixture->write("a.xml", "old");
    for (const QString name : {"a.crv", "a.xml"}) {
        FileDialogDriver user(fixture->folder.filePath(name));
        fixture->editor.editor.saveFile();
        QCOMPARE(user.proposedName, QString("None.xml"));
        QCOMPARE(fixture->textOf(name), QByteArray("old"));
    }
}

void TestSaving::aFullDiskLeavesTheOldFileWithoutAWord_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("XML") << "a.xml";
    QTest::newRow("older format") << "a.crv";
}

void TestSaving::aFullDiskLeavesTheOldFileWithoutAWord()
{
    QFETCH(QString, name);
    fixture->write(name, "old");
    {
        const FullDisk disk(20);
        fixture->saveAs(fixture->folder.filePath(name));
    }
    QCOMPARE(fixture->textOf(name), QByteArray("old"));
    QCOMPARE(fixture->folder.names(), QStringList(name));
    QVERIFY(fixture->boxes.titles.isEmpty());
}

void TestSaving::aTargetThatCannotBeOpenedIsPassedOverWithoutAWord_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("XML in a folder that is none") << "no/a.xml";
    QTest::newRow("older format in a folder that is none") << "no/a.crv";
    QTest::newRow("XML over a folder") << "Folder.xml";
    QTest::newRow("older format over a folder") << "Folder.crv";
}

void TestSaving::aTargetThatCannotBeOpenedIsPassedOverWithoutAWord()
{
    QFETCH(QString, name);
    QVERIFY(QDir(fixture->folder.path()).mkdir("folder.xml"));
    QVERIFY(QDir(fixture->folder.path()).mkdir("folder.crv"));
    const QStringList before = fixture->folder.names();
    fixture->saveAs(fixture->folder.filePath(name));
    QCOMPARE(fixture->folder.names(), before);
    QVERIFY(fixture->boxes.titles.isEmpty());
}

void TestSaving::theEditorMayBeDeletedWhileTheDialogRuns_data()
{
    QTest::addColumn<int>("curves");
    QTest::newRow("one curve") << 1;
    QTest::newRow("several curves") << 2;
}

void TestSaving::theEditorMayBeDeletedWhileTheDialogRuns()
{
    QFETCH(int, curves);
    LentCurve lent[2];
    auto* const editor = new CurveEditor(nullptr, QString());
    QStringList names;
    for (int i = 0; i < curves; ++i) {
        names.append(QStringLiteral("n.c%1").arg(i));
        editor->addCurve("n", names.last().mid(2), Qt::red, 0.0f, &lent[i].spline,
                         &lent[i].expression, -1.0f, 1.0f, true, true);
        editor->setCurveEditableOn(editor->searchAllNodeList(names.last()));
    }
    editor->selectNodes(names);
    QCOMPARE(editor->getFunctionEditor()->canvas().editingCurves().size(), curves);
    QPointer<CurveEditor> watch(editor);
    FileDialogDriver user;
    user.instead = [editor](QFileDialog*) { delete editor; };
    editor->saveFile();
    QCOMPARE(user.dialogs, 1);
    QVERIFY(!watch);
}

void TestSaving::theCurveMayGoWhileTheDialogRuns()
{
    FileDialogDriver user;
    user.instead = [this](QFileDialog* dialog) {
        fixture->editor.editor.removeCurve("body", "width");
        auto* const field = dialog->findChild<QLineEdit*>("fileNameEdit");
        QTest::keyClick(field, Qt::Key_Return);
    };
    fixture->trigger("saveCurve");
    QCOMPARE(fixture->folder.names(), QStringList());
}

QTEST_MAIN(TestSaving)
#include "test_saving.moc"

#include "editor/EditorParts.h"
#include "editor/FileActionsFixture.h"
#include "support/DialogUser.h"
#include "support/RefreshCounter.h"
#include "widgets/CurveEditorSettings.h"
#include "widgets/PanDialog.h"
#include "widgets/ScaleDialog.h"
#include "widgets/ViewportSettings.h"

#include <QPointer>

/// A host that deletes the editor while one of its dialogs asks.
class TestDeletingUnderDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { FileActionsFixture::keepAwayFromTheUsersSettings(); }
    void init() { failOnUnexpectedWarning(); }

    void theEditorGoesWhileADialogRuns_data();
    void theEditorGoesWhileADialogRuns();
    void theEditorGoesWhileADialogOfItsButtonRuns();
    void theMenuOfTheEntryStaysUntilItHasReturned_data();
    void theMenuOfTheEntryStaysUntilItHasReturned();
    void theEditorGoesWhileTheMenuOfItsToolbarsIsOpen();
    void theDialogAloneGoes();
    void curvesAndSplinesGoWhileADialogRuns();
};

void TestDeletingUnderDialogs::theEditorGoesWhileADialogRuns_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<bool>("later");
    for (const char* const slot :
         {"setOptions", "setRange", "setScaleSelection", "setPanSelection"}) {
        QTest::addRow("%s, at once", slot) << QByteArray(slot) << false;
        QTest::addRow("%s, by deleteLater", slot) << QByteArray(slot) << true;
    }
}

void TestDeletingUnderDialogs::theEditorGoesWhileADialogRuns()
{
    QFETCH(QByteArray, slot);
    QFETCH(bool, later);
    LentCurve curve;
    curve.addKey(10.0, 10.0);
    QPointer<CurveEditor> editor = new CurveEditor(nullptr, QString());
    editor->addCurve("n", "c", Qt::green, 0.0f, &curve.spline, &curve.expression, -100.0f, 100.0f,
                     true, true);
    editor->show();
    editor->selectAllKeys();
    DialogUser<QDialog> user([&editor, &later](QDialog& dialog) {
        if (later) {
            editor->deleteLater();
            dialog.accept();
        } else {
            delete editor.data();
        }
    });
    QVERIFY(QMetaObject::invokeMethod(editor.data(), slot.constData()));
    QVERIFY(user.hasActed());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!editor);
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(curve.spline.getControlPointsNumber(), 1u);
}

void TestDeletingUnderDialogs::theEditorGoesWhileADialogOfItsButtonRuns()
{
    LentCurve curve;
    curve.addKey(10.0, 10.0);
    QPointer<CurveEditor> editor = new CurveEditor(nullptr, QString());
    editor->addCurve("n", "c", Qt::green, 0.0f, &curve.spline, &curve.expression, -100.0f, 100.0f,
                     true, true);
    editor->resize(1000, 650);
    editor->show();
    editor->selectAllKeys();
    QVERIFY(toolButton(*editor, "Pan/Scale", 0)->isEnabled());
    DialogUser<PanDialog> user([&editor](PanDialog&) { delete editor.data(); });
    QTest::mouseClick(toolButton(*editor, "Pan/Scale", 0), Qt::LeftButton);
    QVERIFY(user.hasActed());
    QVERIFY(!editor);
}

/// The toolkit goes on with the menu when the dialog of its entry has returned.
void TestDeletingUnderDialogs::theMenuOfTheEntryStaysUntilItHasReturned_data()
{
    QTest::addColumn<QString>("menuTitle");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("byKeys");
    QTest::newRow("pan, by the mouse") << "Edit"
                                       << "Pan Selection" << false;
    QTest::newRow("scale, by the keyboard") << "Edit"
                                            << "Scale Selection" << true;
    QTest::newRow("range, by the mouse") << "View"
                                         << "Set Range" << false;
    QTest::newRow("file, by the keyboard") << "File"
                                           << "Load Curve..." << true;
}

void TestDeletingUnderDialogs::theMenuOfTheEntryStaysUntilItHasReturned()
{
    QFETCH(QString, menuTitle);
    QFETCH(QString, entry);
    QFETCH(bool, byKeys);
    LentCurve curve;
    curve.addKey(10.0, 10.0);
    QPointer<CurveEditor> editor = new CurveEditor(nullptr, QString());
    editor->addCurve("n", "c", Qt::green, 0.0f, &curve.spline, &curve.expression, -100.0f, 100.0f,
                     true, true);
    editor->show();
    editor->selectAllKeys();
    const QPointer<QMenu> menu(menuAt(*editor, menuTitle));
    auto* const bar = editor->mainMenu->findChild<QMenuBar*>();
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier,
                      bar->actionGeometry(menu->menuAction()).center());
    QVERIFY(menu->isVisible());
    bool menuWasKept = false;
    DialogUser<QDialog> user([&](QDialog&) {
        delete editor.data();
        menuWasKept = menu;
    });
    QAction* const action = menuAction(*editor, menuTitle + "/" + entry);
    if (byKeys) {
        menu->setActiveAction(action);
        QTest::keyClick(menu, Qt::Key_Return);
    } else {
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                          menu->actionGeometry(action).center());
    }
    QVERIFY(user.hasActed());
    QVERIFY(!editor);
    QVERIFY(menuWasKept);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!menu);
}

void TestDeletingUnderDialogs::theEditorGoesWhileTheMenuOfItsToolbarsIsOpen()
{
    QPointer<CurveEditor> editor = new CurveEditor(nullptr, QString());
    editor->show();
    QTimer::singleShot(0, qApp, [&editor] {
        QVERIFY(menuAt(*editor, "View/Toolbars")->isVisible());
        delete editor.data();
    });
    editor->showTopToolbarMenu();
    QVERIFY(!editor);
}

void TestDeletingUnderDialogs::theDialogAloneGoes()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}});
    fixture.selectKeys("n.c", {0});
    RefreshCounter refreshes(fixture.editor);
    DialogUser<ScaleDialog> user([](ScaleDialog& dialog) { delete &dialog; });
    fixture.editor.setScaleSelection();
    QVERIFY(user.hasActed());
    QCOMPARE(refreshes.taken(), 1);
    QVERIFY(fixture.undoSteps().isEmpty());
}

void TestDeletingUnderDialogs::curvesAndSplinesGoWhileADialogRuns()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    fixture.addCurve("n.d", {{10.0, 10.0}});
    fixture.editor.selectNodes({"n.c", "n.d"});
    fixture.selectKeys("n.c", {0, 1});
    fixture.selectKeys("n.d", {0});
    DialogUser<PanDialog> user([&fixture](PanDialog& dialog) {
        fixture.editor.removeCurve("n", "d");
        fixture.curves.erase("n.c");
        dialog.panX->setValue(1.0);
        click(dialog.allDonePan);
    });
    fixture.editor.setPanSelection();
    QVERIFY(user.hasActed());
    fixture.paint();
    QCOMPARE(fixture.curves.at("n.d")->spline.at(0)->time, 10.0);
}

QTEST_MAIN(TestDeletingUnderDialogs)
#include "test_deleting_under_dialogs.moc"

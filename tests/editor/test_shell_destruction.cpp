#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include <memory>

class TestShellDestruction : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void anEditorCanDieWithCurvesCommandsAndAnOpenGesture();
    void anEditorCanDieWithTheFocusAnywhere_data();
    void anEditorCanDieWithTheFocusAnywhere();
    void anEditorDiesWithItsParent();
    void aHostMayDestroyItsSplineBeforeTheEditor();
};

void TestShellDestruction::anEditorCanDieWithCurvesCommandsAndAnOpenGesture()
{
    auto fixture = std::make_unique<EditorFixture>();
    fixture->editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    fixture->addCurve("m.d.e", {}, "n.c");
    fixture->selectKeys("n.c", {0});
    fixture->editor.deleteSelectedKeys();
    fixture->editor.removeCurvesFromEditing();
    fixture->editor.selectNodes(QStringList("m.d.e"));
    fixture->logic().beginSelectCommand();
    fixture.reset();
    QVERIFY(!fixture);
}

void TestShellDestruction::anEditorCanDieWithTheFocusAnywhere_data()
{
    QTest::addColumn<QString>("name");
    for (const char* const name : {"posX", "posY", "commandLine", "checkListsEditing"}) {
        QTest::newRow(name) << name;
    }
    QTest::newRow("canvas") << QString();
}

void TestShellDestruction::anEditorCanDieWithTheFocusAnywhere()
{
    QFETCH(QString, name);
    auto fixture = std::make_unique<EditorFixture>();
    fixture->editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    fixture->selectKeys("n.c", {0});
    QWidget* const widget =
        name.isEmpty() ? &fixture->canvas() : fixture->editor.findChild<QWidget*>(name);
    widget->setEnabled(true);
    widget->setFocus();
    QVERIFY(widget->hasFocus());
    QTest::keyClicks(widget, "1");
    fixture.reset();
    QVERIFY(!fixture);
}

void TestShellDestruction::anEditorDiesWithItsParent()
{
    LentCurve curve;
    curve.addKey(1.0, 1.0);
    QWidget host;
    auto* const editor = new CurveEditor(&host, QString());
    editor->addCurve("n", "c", Qt::red, 0.0f, &curve.spline, &curve.expression, 0.0f, 10.0f, true,
                     true);
    host.show();
    editor->show();
    QCOMPARE(editor->parentWidget(), &host);
}

void TestShellDestruction::aHostMayDestroyItsSplineBeforeTheEditor()
{
    auto curve = std::make_unique<LentCurve>();
    curve->addKey(1.0, 1.0);
    CurveEditor editor(nullptr, QString());
    editor.addCurve("n", "c", Qt::red, 0.0f, &curve->spline, &curve->expression, 0.0f, 10.0f, true,
                    true);
    editor.show();
    curve.reset();
    editor.refreshEditor();
    editor.selectAllKeys();
    editor.getFunctionEditor()->repaint();
}

QTEST_MAIN(TestShellDestruction)
#include "test_shell_destruction.moc"

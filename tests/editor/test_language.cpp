#include "editor/EditorParts.h"
#include "editor/MenuTable.h"
#include "editor/ToolbarTable.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "widgets/CurveEditorSettings.h"
#include "widgets/PanDialog.h"
#include "widgets/ScaleDialog.h"
#include "widgets/ViewportSettings.h"

#include <QTranslator>

namespace {

/// Puts a word before every text of the editor.
class OtherLanguage : public QTranslator
{
public:
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        return qstrcmp(context, "CurveEditor") == 0 ? "otro " + QString(source) : QString();
    }

    bool isEmpty() const override { return false; }
};

/// Puts its context before every text.
class ContextLanguage : public QTranslator
{
public:
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        return QString("%1/%2").arg(context, source);
    }

    bool isEmpty() const override { return false; }
};

} // namespace

class TestLanguage : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aChangeOfLanguageRenamesActionsButNotTheirObjectsAndToolTips();
    void aChangeOfLanguageReachesEveryActionAndShortcut();
    void aChangeOfLanguageLeavesButtonsCheckable();
    void aChangeOfLanguageEnablesNoButton();
    void aChangeOfLanguageKeepsTheMenusTitles();
    void eachDialogTranslatesInTheContextOfItsForm();
};

void TestLanguage::aChangeOfLanguageRenamesActionsButNotTheirObjectsAndToolTips()
{
    CurveEditor editor(nullptr, QString());
    const QAction* const action = toolButton(editor, "Undo/Redo", 0)->defaultAction();
    OtherLanguage language;
    QCoreApplication::installTranslator(&language);
    QMetaObject::invokeMethod(&editor, "languageChange");
    QCOMPARE(action->text(), QString("otro Undo"));
    QCOMPARE(action->objectName(), QString("Undo"));
    QCOMPARE(action->toolTip(), QString("Undo Action"));
    QCOMPARE(editor.windowTitle(), QString("otro Curve Editor"));
}

void TestLanguage::aChangeOfLanguageReachesEveryActionAndShortcut()
{
    CurveEditor editor(nullptr, QString());
    QAction* const range = editor.findChild<QAction*>("setRange");
    range->setShortcut(QKeySequence());
    OtherLanguage language;
    QCoreApplication::installTranslator(&language);
    QMetaObject::invokeMethod(&editor, "languageChange");
    for (const curve_editor::ActionRow& row : curve_editor::actionRows()) {
        const auto* const action =
            editor.findChild<QAction*>(row.objectName, Qt::FindDirectChildrenOnly);
        QCOMPARE(action->text(), QString("otro ") + row.text);
        QCOMPARE(action->whatsThis(), row.whatsThis ? QString("otro ") + row.whatsThis : QString());
    }
    for (const curve_editor::ToolButtonRow& row : curve_editor::allToolButtonRows()) {
        const auto* const action = editor.topToolbar->findChild<QAction*>(row.text);
        QCOMPARE(action->text(), QString("otro ") + row.text);
    }
    QCOMPARE(range->shortcut(), QKeySequence("Alt+S"));
}

void TestLanguage::aChangeOfLanguageLeavesButtonsCheckable()
{
    EditorFixture fixture;
    fixture.editor.switchToolTips();
    const QToolButton* const button = toolButton(fixture.editor, "Other", 1);
    OtherLanguage language;
    QCoreApplication::installTranslator(&language);
    QMetaObject::invokeMethod(&fixture.editor, "languageChange");
    QCOMPARE(button->text(), QString("otro Show ToolTips"));
    QVERIFY(button->isCheckable());
    QVERIFY(button->isChecked());
}

void TestLanguage::aChangeOfLanguageEnablesNoButton()
{
    CurveEditor editor(nullptr, QString());
    OtherLanguage language;
    QCoreApplication::installTranslator(&language);
    QMetaObject::invokeMethod(&editor, "languageChange");
    for (const char* const title : {"Copy/Paste", "Fit"}) {
        for (const int index : {0, 1}) {
            const QToolButton* const button = toolButton(editor, title, index);
            QVERIFY2(button->text().startsWith("otro "), qPrintable(button->text()));
            QVERIFY2(!button->isEnabled(), qPrintable(button->text()));
        }
    }
}

void TestLanguage::aChangeOfLanguageKeepsTheMenusTitles()
{
    CurveEditor editor(nullptr, QString());
    menuAt(editor, "Keys")->setTitle("Mine");
    menuAt(editor, "Mine/Start Node Behaviour")->setTitle("Before");
    QMetaObject::invokeMethod(&editor, "languageChange");
    QVERIFY(menuAt(editor, "Mine/Start Node Behaviour"));
}

void TestLanguage::eachDialogTranslatesInTheContextOfItsForm()
{
    ContextLanguage language;
    QCoreApplication::installTranslator(&language);
    const CurveEditorSettings settings;
    QCOMPARE(settings.windowTitle(), QString("SettingsSetter/Curve Editor Settings"));
    QCOMPARE(settings.nodeTypeCombo->itemText(0), QString("SettingsSetter/Tcb node"));
    const ViewportSettings viewport;
    QCOMPARE(viewport.textLabel4->text(), QString("ViewportSettingsSetter/MaxY"));
    const ScaleDialog scale;
    QCOMPARE(scale.cancelScale->text(), QString("ScaleDialogBaseSetter/Cancel"));
    PanDialog pan;
    QCOMPARE(pan.toggleButton_->text(), QString("PanDialogBaseSetter/Toggle frames/seconds"));
    QCOMPARE(pan.xLabel_->text(), QString("PanDialogBaseSetter/seconds"));
    pan.toggleSeconds();
    QCOMPARE(pan.xLabel_->text(), QString("PanDialogBaseSetter/frames"));
}

QTEST_MAIN(TestLanguage)
#include "test_language.moc"

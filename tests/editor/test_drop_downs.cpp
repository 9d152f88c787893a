// The tool buttons with a drop-down, and the entries in it.

#include "editor/EditorParts.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

class TestDropDowns : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theButtonsWithADropDownHaveAnActionOfTheirOwn_data();
    void theButtonsWithADropDownHaveAnActionOfTheirOwn();
    void eachEntryOfADropDownHasTextToolTipAndAButtonOfItsOwn_data();
    void eachEntryOfADropDownHasTextToolTipAndAButtonOfItsOwn();
    void dropDownsHoldTheirEntries_data();
    void dropDownsHoldTheirEntries();
    void aChosenEntryBecomesTheButtonsOwnAndTheMenuStays();
    void aChosenPasteStaysThePasteButtonsOwn();
    void theSnapButtonKeepsItsOwnAction();
};

void TestDropDowns::theButtonsWithADropDownHaveAnActionOfTheirOwn_data()
{
    QTest::addColumn<QString>("toolBar");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    QTest::newRow("copy") << "Copy/Paste" << 0 << "Copy Curve";
    QTest::newRow("paste") << "Copy/Paste" << 1 << "Paste and Replace";
    QTest::newRow("fit") << "Fit" << 0 << "Fit View";
    QTest::newRow("fit to selection") << "Fit" << 1 << "Fit View To Selection";
}

void TestDropDowns::theButtonsWithADropDownHaveAnActionOfTheirOwn()
{
    QFETCH(QString, toolBar);
    QFETCH(int, index);
    QFETCH(QString, text);
    CurveEditor editor(nullptr, QString());
    const QAction* const own = toolBarTitled(editor, toolBar)->actions().at(index);
    QCOMPARE(own->text(), text);
    QCOMPARE(own->objectName(), text);
    QCOMPARE(own->toolTip(), text);
    const QToolButton* const button = toolButton(editor, toolBar, index);
    QVERIFY(button->defaultAction() != own);
    QCOMPARE(button->defaultAction(), button->menu()->actions().first());
}

void TestDropDowns::eachEntryOfADropDownHasTextToolTipAndAButtonOfItsOwn_data()
{
    QTest::addColumn<QString>("toolBar");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("entry");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");
    const auto row = [](const int& number, const char* toolBar, const int& index, const int& entry,
                        const char* text, const char* toolTip = nullptr) {
        QTest::addRow("%d", number)
            << toolBar << index << entry << text << QString(toolTip ? toolTip : text);
    };
    row(5, "Snap", 0, 0, "Horizontal Snap", "Toggle Horizontal Snap To Grid");
    row(6, "Snap", 0, 1, "Vertical Snap", "Toggle Vertical Snap To Grid");
    row(8, "Copy/Paste", 0, 1, "Copy Curve");
    row(9, "Copy/Paste", 0, 0, "Copy Selected Keys");
    row(11, "Copy/Paste", 1, 3, "Paste and Replace");
    row(12, "Copy/Paste", 1, 0, "Paste Combined");
    row(13, "Copy/Paste", 1, 4, "Paste and Replace After Timeline");
    row(14, "Copy/Paste", 1, 1, "Paste Combined After Timeline");
    row(22, "Fit", 0, 0, "Fit View");
    row(23, "Fit", 0, 1, "Fit Horizontal View");
    row(24, "Fit", 0, 2, "Fit Vertical View");
    row(26, "Fit", 1, 0, "Fit View To Selection");
    row(27, "Fit", 1, 1, "Fit Horizontal View To Selection");
    row(28, "Fit", 1, 2, "Fit Vertical View To Selection");
    row(39, "Copy/Paste", 1, 5, "Paste and Replace on Current Frame");
    row(40, "Copy/Paste", 1, 2, "Paste Combined on Current Frame");
}

void TestDropDowns::eachEntryOfADropDownHasTextToolTipAndAButtonOfItsOwn()
{
    QFETCH(QString, toolBar);
    QFETCH(int, index);
    QFETCH(int, entry);
    CurveEditor editor(nullptr, QString());
    QMenu* const menu = toolButton(editor, toolBar, index)->menu();
    const QAction* const action = menu->actions().at(entry);
    QTEST(action->text(), "text");
    QTEST(action->objectName(), "text");
    QTEST(action->toolTip(), "toolTip");
    QCOMPARE(action->parent(), menu);
    int hidden = 0;
    for (QObject* const object : action->associatedObjects()) {
        const auto* const button = qobject_cast<QToolButton*>(object);
        if (button && !button->parent()) {
            ++hidden;
            QCOMPARE(button->defaultAction(), action);
            QCOMPARE(button->minimumSize(), QSize(128, 128));
            QCOMPARE(button->maximumSize(), QSize(128, 128));
            QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
            QVERIFY(!button->isVisible());
        }
    }
    QCOMPARE(hidden, 1);
}

void TestDropDowns::dropDownsHoldTheirEntries_data()
{
    QTest::addColumn<QString>("toolBar");
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("copy") << "Copy/Paste" << 0 << QStringList({"Copy Selected Keys", "Copy Curve"});
    QTest::newRow("paste") << "Copy/Paste" << 1
                           << QStringList({"Paste Combined", "Paste Combined After Timeline",
                                           "Paste Combined on Current Frame", "Paste and Replace",
                                           "Paste and Replace After Timeline",
                                           "Paste and Replace on Current Frame"});
    QTest::newRow("fit") << "Fit" << 0
                         << QStringList({"Fit View", "Fit Horizontal View", "Fit Vertical View"});
    QTest::newRow("fit to selection")
        << "Fit" << 1
        << QStringList({"Fit View To Selection", "Fit Horizontal View To Selection",
                        "Fit Vertical View To Selection"});
    QTest::newRow("snap") << "Snap" << 0 << QStringList({"Horizontal Snap", "Vertical Snap"});
}

void TestDropDowns::dropDownsHoldTheirEntries()
{
    QFETCH(QString, toolBar);
    QFETCH(int, index);
    CurveEditor editor(nullptr, QString());
    const QToolButton* const button = toolButton(editor, toolBar, index);
    QVERIFY(button->menu());
    QCOMPARE(button->popupMode(), QToolButton::MenuButtonPopup);
    QTEST(menuTexts(button->menu()), "texts");
}

void TestDropDowns::aChosenEntryBecomesTheButtonsOwnAndTheMenuStays()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    QToolButton* const button = toolButton(fixture.editor, "Fit", 0);
    QMenu* const menu = button->menu();
    menu->actions().at(1)->trigger();
    QCOMPARE(button->defaultAction()->text(), QString("Fit Horizontal View"));
    QCOMPARE(button->menu(), menu);
    QCOMPARE(button->popupMode(), QToolButton::MenuButtonPopup);

    // A plain click repeats it: the horizontal view is fitted, the vertical one stays.
    fixture.setView(0.0, 50.0, 0.0, 40.0);
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    QCOMPARE(fixture.canvas().minX, 9.0);
    QCOMPARE(fixture.canvas().minY, 0.0);
}

void TestDropDowns::aChosenPasteStaysThePasteButtonsOwn()
{
    CurveEditor editor(nullptr, QString());
    QToolButton* const button = toolButton(editor, "Copy/Paste", 1);
    QAction* const entry = button->menu()->actions().at(4);
    QCOMPARE(entry->text(), QString("Paste and Replace After Timeline"));
    editor.setDefaultButton(entry, CurveEditor::pasteButton);
    QCOMPARE(button->defaultAction(), entry);
    QCOMPARE(button->menu()->actions().at(4), entry);
}

void TestDropDowns::theSnapButtonKeepsItsOwnAction()
{
    CurveEditor editor(nullptr, QString());
    QToolButton* const button = toolButton(editor, "Snap", 0);
    button->menu()->actions().first()->trigger();
    QCOMPARE(button->defaultAction()->text(), QString("Snap to Grid"));
}

QTEST_MAIN(TestDropDowns)
#include "test_drop_downs.moc"

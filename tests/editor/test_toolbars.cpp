#include "editor/EditorParts.h"
#include "editor/ToolbarTable.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include <QSignalSpy>
#include <QStyle>
#include <QTemporaryDir>

namespace {

/// A folder with a picture and a disabled picture of button 7 alone.
void writeIcons(const QString& folder)
{
    QPixmap picture(25, 25);
    picture.fill(Qt::red);
    QVERIFY(picture.save(folder + "/curveeditor007.png"));
    picture.fill(Qt::blue);
    QVERIFY(picture.save(folder + "/curveeditor007-d.png"));
}

QColor centreOf(const QIcon& icon, const QIcon::Mode& mode)
{
    return icon.pixmap(QSize(25, 25), mode).toImage().pixelColor(12, 12);
}

} // namespace

class TestToolbars : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theToolbarsStandInTheirOrder();
    void eachToolbarHasItsWidth_data();
    void eachToolbarHasItsWidth();
    void everyVisibleButtonHasRoomInEachStyle_data();
    void everyVisibleButtonHasRoomInEachStyle();
    void theFrameOfTheToolbarsHasItsSize();
    void eachButtonHasTextToolTipAndPlace_data();
    void eachButtonHasTextToolTipAndPlace();
    void everyNumberButThirtyEightIsAButtonOnce();
    void nothingTouchesButtonThirtyEight();
    void whatCanBeChecked();
    void buttonSevenShowsItsPicturesFromTheFolder();
    void missingPicturesGiveEmptyIcons();
    void everyButtonHasBothItsPictures();
    void theSnapEntriesHaveNoPicture();
    void anUncheckedToolbarHidesAtOnce();
    void aToolbarThatFloatsIsHiddenByItsEntryToo();
    void aRightClickOnTheToolbarsOpensTheirMenu();
    void aSecondRequestForTheMenuWhileItIsOpenOpensNoOther();
    void iconSizeAndFolderAreFieldsOnly();
};

void TestToolbars::theToolbarsStandInTheirOrder()
{
    EditorFixture fixture;
    const QStringList order{"Mode", "Pan/Scale", "Copy/Paste", "Undo/Redo", "Fit",
                            "Snap", "Node Type", "Tangents",   "Other"};
    int left = -1;
    for (const QString& title : order) {
        const QToolBar* const toolBar = toolBarTitled(fixture.editor, title);
        QVERIFY2(toolBar, qPrintable(title));
        QVERIFY2(toolBar->isVisible(), qPrintable(title));
        QVERIFY2(toolBar->x() > left, qPrintable(title));
        left = toolBar->x();
    }
}

void TestToolbars::eachToolbarHasItsWidth_data()
{
    QTest::addColumn<int>("least");
    QTest::addColumn<bool>("isFixed");
    QTest::newRow("Undo/Redo") << 68 << true;
    QTest::newRow("Pan/Scale") << 68 << true;
    QTest::newRow("Snap") << 47 << false;
    QTest::newRow("Copy/Paste") << 92 << true;
    QTest::newRow("Fit") << 125 << true;
    QTest::newRow("Tangents") << 100 << true;
    QTest::newRow("Other") << 100 << true;
    QTest::newRow("Node Type") << 132 << true;
    QTest::newRow("Mode") << 102 << true;
}

void TestToolbars::eachToolbarHasItsWidth()
{
    QFETCH(int, least);
    QFETCH(bool, isFixed);
    CurveEditor editor(nullptr, QString());
    const QToolBar* const toolBar = toolBarTitled(editor, QTest::currentDataTag());
    QCOMPARE(toolBar->minimumWidth(), least);
    QCOMPARE(toolBar->maximumWidth(), isFixed ? least : QWIDGETSIZE_MAX);
    QVERIFY(toolBar->isMovable());
    QVERIFY(toolBar->isFloatable());
    QVERIFY(toolBar->acceptDrops());
    QCOMPARE(toolBar->allowedAreas(), Qt::AllToolBarAreas);
    QCOMPARE(toolBar->iconSize(), QSize(25, 25));
}

/// A button that has no room goes into the toolbar's extension.
void TestToolbars::everyVisibleButtonHasRoomInEachStyle_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("sheet");
    QTest::newRow("Fusion") << "Fusion" << QString();
    QTest::newRow("Windows") << "Windows" << QString();
    QTest::newRow("Fusion with a style sheet of the host") << "Fusion"
                                                           << "QLabel{color:red}";
}

void TestToolbars::everyVisibleButtonHasRoomInEachStyle()
{
    QFETCH(QString, style);
    QFETCH(QString, sheet);
    const QString oldStyle = QApplication::style()->objectName();
    QApplication::setStyle(style);
    {
        EditorFixture fixture;
        qApp->setStyleSheet(sheet);
        QCoreApplication::processEvents();
        for (QToolBar* const toolBar : fixture.editor.topToolbar->findChildren<QToolBar*>()) {
            for (QAction* const action : toolBar->actions()) {
                const QWidget* const button = toolBar->widgetForAction(action);
                QVERIFY2(button->isVisible() == action->isVisible(), qPrintable(action->text()));
                QVERIFY2(!button->isVisible() || toolBar->rect().contains(button->geometry()),
                         qPrintable(action->text()));
            }
        }
        QCOMPARE(fixture.editor.topToolbar->height(), 35);
    }
    qApp->setStyleSheet(QString());
    QApplication::setStyle(oldStyle);
}

void TestToolbars::theFrameOfTheToolbarsHasItsSize()
{
    CurveEditor editor(nullptr, QString());
    QCOMPARE(editor.topToolbar->maximumWidth(), 1000);
    QCOMPARE(editor.topToolbar->minimumHeight(), 35);
    QCOMPARE(editor.topToolbar->maximumHeight(), 35);
    QVERIFY(editor.topToolbar->acceptDrops());
    QCOMPARE(editor.hboxLayout->sizeConstraint(), QLayout::SetMinimumSize);
    QCOMPARE(editor.hboxLayout->alignment(), Qt::AlignLeft);
}

void TestToolbars::eachButtonHasTextToolTipAndPlace_data()
{
    QTest::addColumn<QString>("toolBar");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");
    const auto row = [](const char* toolBar, const int& index, const char* text,
                        const char* toolTip = nullptr) {
        QTest::addRow("%s %d", toolBar, index)
            << toolBar << index << text << QString(toolTip ? toolTip : text);
    };
    row("Mode", 0, "Select Control Points");
    row("Mode", 1, "Move Selected", "Move Selected Control Points");
    row("Mode", 2, "Add New Control Point");
    row("Mode", 3, "Remove Control Point");
    row("Mode", 4, "Zoom Tool");
    row("Pan/Scale", 0, "Pan Selection");
    row("Pan/Scale", 1, "Scale Selection");
    row("Copy/Paste", 0, "Copy Selected Keys");
    row("Copy/Paste", 1, "Paste Combined");
    row("Undo/Redo", 0, "Undo", "Undo Action");
    row("Undo/Redo", 1, "Redo", "Redo Action");
    row("Fit", 0, "Fit View");
    row("Fit", 1, "Fit View To Selection");
    row("Fit", 2, "Center View To TimeLine");
    row("Snap", 0, "Snap to Grid", "Toggle Snap To Grid");
    row("Node Type", 0, "Set Selected to TCB", "Set Selected Points Type to TCB");
    row("Node Type", 1, "Set Selected to Bezier", "Set Selected Points Type to Bezier");
    row("Node Type", 2, "Set Selected to Linear", "Set Selected Points Type to Linear");
    row("Node Type", 3, "Set Selected to Stepped", "Set Selected Points Type to Stepped");
    row("Tangents", 0, "Break Tangents");
    row("Tangents", 1, "Unify Tangents");
    row("Tangents", 2, "Flat Tangents");
    row("Other", 0, "Toggle Time/Frames", "Toggle Frames Or Time View");
    row("Other", 1, "Show ToolTips", "Show Selected Keys Values as ToolTips");
    row("Other", 2, "Show Key Properties");
}

void TestToolbars::eachButtonHasTextToolTipAndPlace()
{
    QFETCH(QString, toolBar);
    QFETCH(int, index);
    CurveEditor editor(nullptr, QString());
    const QToolButton* const button = toolButton(editor, toolBar, index);
    QVERIFY(button);
    const QAction* const action = button->defaultAction();
    QTEST(action->text(), "text");
    QTEST(action->objectName(), "text");
    QTEST(action->toolTip(), "toolTip");
    QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonIconOnly);
}

/// They show an entry of their drop-down from the start, and keep an action of their own.
void TestToolbars::everyNumberButThirtyEightIsAButtonOnce()
{
    QList<int> numbers;
    for (const curve_editor::ToolButtonRow& row : curve_editor::allToolButtonRows()) {
        numbers.append(row.which);
    }
    std::sort(numbers.begin(), numbers.end());
    QList<int> expected;
    for (int number = 0; number < 42; ++number) {
        if (number != 38) {
            expected.append(number);
        }
    }
    QCOMPARE(numbers, expected);
}

void TestToolbars::nothingTouchesButtonThirtyEight()
{
    CurveEditor editor(nullptr, QString());
    QAction action;
    editor.setDefaultButton(&action, static_cast<CurveEditor::topToolButtons>(38));
    QVERIFY(action.associatedObjects().isEmpty());
}

void TestToolbars::whatCanBeChecked()
{
    CurveEditor editor(nullptr, QString());
    for (int tool = 0; tool < 5; ++tool) {
        QVERIFY(toolButton(editor, "Mode", tool)->defaultAction()->isCheckable());
    }
    QVERIFY(menuAction(editor, "View/Snap to Grid/Horizontal Snap")->isCheckable());
    QVERIFY(menuAction(editor, "View/Snap to Grid/Vertical Snap")->isCheckable());
    for (const QToolButton* button : {toolButton(editor, "Snap", 0), toolButton(editor, "Other", 1),
                                      toolButton(editor, "Other", 2)}) {
        QVERIFY(button->isCheckable());
        QVERIFY(!button->defaultAction()->isCheckable());
    }
    QVERIFY(!toolButton(editor, "Undo/Redo", 0)->isCheckable());
}

void TestToolbars::buttonSevenShowsItsPicturesFromTheFolder()
{
    QTemporaryDir folder;
    writeIcons(folder.path());
    CurveEditor editor(nullptr, folder.path());
    const QIcon icon = toolBarTitled(editor, "Copy/Paste")->actions().first()->icon();
    QCOMPARE(centreOf(icon, QIcon::Normal), QColor(Qt::red));
    QCOMPARE(centreOf(icon, QIcon::Disabled), QColor(Qt::blue));
}

void TestToolbars::missingPicturesGiveEmptyIcons()
{
    CurveEditor editor(nullptr, "/nowhere");
    QVERIFY(toolButton(editor, "Undo/Redo", 0)->icon().pixmap(25, 25).isNull());
}

void TestToolbars::everyButtonHasBothItsPictures()
{
    const QString folder = qEnvironmentVariable("ZK_ICONS_DIR");
    CurveEditor editor(nullptr, folder);
    for (const curve_editor::ToolButtonRow& row : curve_editor::allToolButtonRows()) {
        const QString number = QString::number(row.which).rightJustified(3, QLatin1Char('0'));
        for (const char* const suffix : {"", "-d"}) {
            const QString path = folder + "/curveeditor" + number + suffix + ".png";
            QVERIFY2(!QPixmap(path).isNull(), qPrintable(path));
        }
    }
    QVERIFY(!toolButton(editor, "Undo/Redo", 0)->icon().pixmap(25, 25).isNull());
}

void TestToolbars::theSnapEntriesHaveNoPicture()
{
    CurveEditor editor(nullptr, qEnvironmentVariable("ZK_ICONS_DIR"));
    QVERIFY(menuAction(editor, "View/Snap to Grid/Horizontal Snap")->icon().isNull());
    QVERIFY(menuAction(editor, "View/Snap to Grid/Vertical Snap")->icon().isNull());
}

void TestToolbars::anUncheckedToolbarHidesAtOnce()
{
    EditorFixture fixture;
    QAction* const entry = menuAction(fixture.editor, "View/Toolbars/Tangents");
    const QToolBar* const toolBar = toolBarTitled(fixture.editor, "Tangents");
    QVERIFY(entry->isChecked());
    entry->trigger();
    QVERIFY(!toolBar->isVisible());
    entry->trigger();
    QVERIFY(toolBar->isVisible());
}

void TestToolbars::aToolbarThatFloatsIsHiddenByItsEntryToo()
{
    EditorFixture fixture;
    QToolBar* const toolBar = toolBarTitled(fixture.editor, "Snap");
    toolBar->setWindowFlags(Qt::Tool);
    toolBar->show();
    QVERIFY(toolBar->isWindow());
    menuAction(fixture.editor, "View/Toolbars/Snap")->trigger();
    QVERIFY(!toolBar->isVisible());
}

void TestToolbars::aRightClickOnTheToolbarsOpensTheirMenu()
{
    EditorFixture fixture;
    QMenu* const menu = menuAt(fixture.editor, "View/Toolbars");
    QSignalSpy opened(menu, SIGNAL(aboutToShow()));
    QVERIFY(EditorFixture::closesMenuOf([&fixture] {
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(3, 3),
                                fixture.editor.topToolbar->mapToGlobal(QPoint(3, 3)));
        QApplication::sendEvent(fixture.editor.topToolbar, &event);
    }));
    QCOMPARE(opened.count(), 1);
}

void TestToolbars::aSecondRequestForTheMenuWhileItIsOpenOpensNoOther()
{
    EditorFixture fixture;
    bool cameBack = false;
    QTimer::singleShot(0, &fixture.editor, [&] {
        fixture.editor.showTopToolbarMenu();
        cameBack = true;
        menuAt(fixture.editor, "View/Toolbars")->close();
    });
    fixture.editor.showTopToolbarMenu();
    QVERIFY(cameBack);
}

void TestToolbars::iconSizeAndFolderAreFieldsOnly()
{
    CurveEditor editor(nullptr, "first");
    QCOMPARE(editor.getIconSize(), 25);
    QCOMPARE(editor.getIconsPath(), QString("first"));
    editor.setIconSize(40);
    editor.setIconsPath("second");
    QCOMPARE(editor.getIconSize(), 40);
    QCOMPARE(editor.getIconsPath(), QString("second"));
    QCOMPARE(toolBarTitled(editor, "Fit")->iconSize(), QSize(25, 25));
}

QTEST_MAIN(TestToolbars)
#include "test_toolbars.moc"

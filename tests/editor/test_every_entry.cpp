#include "canvas/CanvasBackground.h"
#include "editor/EditorParts.h"
#include "editor/FileActionsFixture.h"
#include "support/FailOnWarning.h"
#include "support/SplineState.h"
#include "widgets/CurveKeysDialog.h"

#include <QTest>

#include <functional>

namespace {

/// Takes the first dialog that asks for something, and cancels it.
class DialogCanceller
{
public:
    DialogCanceller()
    {
        QObject::connect(&timer, &QTimer::timeout, [this] {
            if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                seen = QByteArray(dialog->metaObject()->className());
                dialog->reject();
            }
        });
        timer.start(1);
    }

    QByteArray seen;

private:
    QTimer timer;
};

/// What is seen below the menus of a bar: "Menu/Sub-menu/Entry" and its action.
struct Entry
{
    QString path;
    QAction* action;
};

QList<Entry> entriesBelow(const QList<QAction*>& actions, const QString& before = QString())
{
    QList<Entry> entries;
    for (QAction* const action : actions) {
        if (action->menu()) {
            entries += entriesBelow(action->menu()->actions(), before + action->text() + "/");
        } else if (!action->isSeparator() && action->isVisible()) {
            entries.append({before + action->text(), action});
        }
    }
    return entries;
}

} // namespace

/// Each entry of the menu bar and each button of the toolbars changes what it is there for.
class TestEveryEntry : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { FileActionsFixture::keepAwayFromTheUsersSettings(); }
    void init();
    void cleanup() { fixture.reset(); }

    void anEntryOfTheMenuBarDoesItsWork_data();
    void anEntryOfTheMenuBarDoesItsWork();
    void noEntryOfTheMenuBarIsLeftOut();
    void aButtonDoesItsWork_data();
    void aButtonDoesItsWork();

private:
    void prepare(const QString& preparation);
    QList<Entry> entries() const;
    QString changedBy(const std::function<void()>& deed);
    QStringList state();

    std::unique_ptr<EditorFixture> fixture;
    QSet<QString> tried;
    LentCurve* curve = nullptr;
};

/// Four keys, three of them selected and moved after they were copied; the first has broken
/// tangents, the second unified ones.
void TestEveryEntry::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<EditorFixture>();
    curve = &fixture->editCurve("a.b", {{5.0, 5.0, zk_spline::bezier},
                                        {15.0, 25.0, zk_spline::bezier},
                                        {25.0, 10.0, zk_spline::tcb},
                                        {35.0, 20.0, zk_spline::tcb}});
    curve->spline.at(0)->bezier = {1.0, 2.0};
    curve->spline.at(1)->bezier = {1.0, 1.0};
    curve->spline.at(1)->unifiedTangents = true;
    fixture->selectKeys("a.b", {0, 1, 2});
    fixture->editor.copyKeys();
    fixture->logic().panSelection(1.0, 1.0);
    fixture->editor.setTimeLine(20.0);
    fixture->editor.refreshEditor();
}

void TestEveryEntry::prepare(const QString& preparation)
{
    if (preparation == "undone") {
        fixture->editor.undo();
    } else if (preparation == "time") {
        fixture->editor.setShowTime();
    } else if (preparation == "ends") {
        fixture->editor.setFirstNodeZero();
        fixture->editor.setLastNodeLoop();
    } else if (preparation == "picture") {
        const LowerCaseDir folder;
        QVERIFY(QImage(4, 3, QImage::Format_RGB32).save(folder.filePath("picture.png")));
        const FileDialogDriver user(folder.filePath("picture.png"));
        fixture->editor.loadImage();
    }
}

/// One text for each thing that an entry may change, "name value".
QStringList TestEveryEntry::state()
{
    const FunctionEditor& canvas = fixture->canvas();
    const CanvasFunctionBase& logic = fixture->logic();
    const CanvasBackground* const picture = logic.backgroundPicture();
    QString keys;
    for (const PointInfo* const point : curve->spline.getControlPoints()) {
        for (const unsigned long long& bits : SplineState::bitsOf(*point)) {
            keys += QString::number(bits, 16) + " ";
        }
    }
    QStringList bars;
    for (const QToolBar* const bar : fixture->editor.topToolbar->findChildren<QToolBar*>()) {
        bars.append(QString::number(bar->isVisible()));
    }
    return {
        "keys " + keys,
        QString("ends %1 %2").arg(curve->spline.firstNodeType()).arg(curve->spline.lastNodeType()),
        QString("selection %1").arg(fixture->selectionOf("a.b").selectedPointsVector().size()),
        QString("view %1 %2 %3 %4")
            .arg(canvas.minX)
            .arg(canvas.maxX)
            .arg(canvas.minY)
            .arg(canvas.maxY),
        QString("unit %1").arg(canvas.showFrames),
        QString("snap %1 %2").arg(logic.horizontalSnap).arg(logic.verticalSnap),
        QString("tips %1").arg(logic.toolTipsOn),
        QString("mode %1").arg(fixture->editor.getUserMode()),
        QString("fields %1").arg(fixture->canvas().keysDialog()->isVisible()),
        QString("picture %1").arg(picture && !picture->image.isNull()),
        "bars " + bars.join(" "),
    };
}

QList<Entry> TestEveryEntry::entries() const
{
    return entriesBelow(fixture->editor.mainMenu->findChild<QMenuBar*>()->actions());
}

/// The names of what a deed changed, and the class of the dialog it opened.
QString TestEveryEntry::changedBy(const std::function<void()>& deed)
{
    const QStringList before = state();
    const DialogCanceller user;
    deed();
    const QStringList after = state();
    QStringList changed;
    for (int index = 0; index < before.size(); ++index) {
        if (before.at(index) != after.at(index)) {
            changed.append(after.at(index).section(QLatin1Char(' '), 0, 0));
        }
    }
    if (!user.seen.isEmpty()) {
        changed.append(user.seen);
    }
    return changed.join(" ");
}

void TestEveryEntry::anEntryOfTheMenuBarDoesItsWork_data()
{
    QTest::addColumn<QString>("changed");
    QTest::addColumn<QString>("preparation");
    const auto row = [](const char* path, const char* changed, const char* preparation = "") {
        QTest::newRow(path) << QString(changed) << QString(preparation);
    };
    row("File/Reset All Curves", "keys selection");
    row("File/Reset Selected Curves", "keys selection");
    row("File/Load Curve...", "QFileDialog");
    row("File/Save curve...", "QFileDialog");
    row("Edit/Undo", "keys");
    row("Edit/Redo", "keys", "undone");
    row("Edit/Copy/Copy Selected Keys", "");
    row("Edit/Copy/Copy Curve", "");
    row("Edit/Paste/Paste Combined", "keys");
    row("Edit/Paste/Paste Combined After Timeline", "keys");
    row("Edit/Paste/Paste Combined on Current Frame", "keys");
    row("Edit/Paste/Paste and Replace", "keys selection");
    row("Edit/Paste/Paste and Replace After Timeline", "keys selection");
    row("Edit/Paste/Paste and Replace on Current Frame", "keys selection");
    row("Edit/Add New Control Point", "mode");
    row("Edit/Remove Control Point", "mode");
    row("Edit/Zoom Tool", "mode");
    row("Edit/Pan Selection", "PanDialog");
    row("Edit/Scale Selection", "ScaleDialog");
    row("Keys/Select All", "selection");
    row("Keys/Select None", "selection");
    row("Keys/Delete Selected", "keys selection");
    row("Keys/Node Type/Set Selected to TCB", "keys");
    row("Keys/Node Type/Set Selected to Bezier", "keys");
    row("Keys/Node Type/Set Selected to Linear", "keys");
    row("Keys/Node Type/Set Selected to Stepped", "keys");
    row("Keys/Start Node Behaviour/Zero", "ends");
    row("Keys/Start Node Behaviour/Constant", "ends", "ends");
    row("Keys/Last Node Behaviour/Zero", "ends");
    row("Keys/Last Node Behaviour/Constant", "ends", "ends");
    row("Keys/Last Node Behaviour/Loop", "ends");
    row("Keys/Last Node Behaviour/Loop offset", "ends");
    row("Keys/Last Node Behaviour/Follow tangent", "ends");
    row("Keys/Break Tangents", "keys");
    row("Keys/Unify Tangents", "keys");
    row("Keys/Flat Tangents", "keys");
    row("Keys/Show Key Properties", "fields");
    row("View/Show Key Properties", "fields");
    row("View/Show ToolTips", "tips");
    row("View/Horizontal axis/Show time", "unit");
    row("View/Horizontal axis/Show frames", "unit", "time");
    row("View/Set Range", "ViewportSettings");
    row("View/Reset View", "view");
    row("View/Center View To TimeLine", "view");
    row("View/Fit View/Fit View", "view");
    row("View/Fit View/Fit Horizontal View", "view");
    row("View/Fit View/Fit Vertical View", "view");
    row("View/Fit View to Selection/Fit View To Selection", "view");
    row("View/Fit View to Selection/Fit Horizontal View To Selection", "view");
    row("View/Fit View to Selection/Fit Vertical View To Selection", "view");
    row("View/Snap to Grid/Horizontal Snap", "snap");
    row("View/Snap to Grid/Vertical Snap", "snap");
    row("View/Load image", "QFileDialog");
    row("View/Clear image", "picture", "picture");
    for (const char* const title : {"Mode", "Pan/Scale", "Copy/Paste", "Undo/Redo", "Fit", "Snap",
                                    "Node Type", "Tangents", "Other"}) {
        QTest::addRow("View/Toolbars/%s", title) << QString("bars") << QString();
    }
}

void TestEveryEntry::anEntryOfTheMenuBarDoesItsWork()
{
    QFETCH(QString, preparation);
    prepare(preparation);
    const QString path(QTest::currentDataTag());
    tried.insert(path);
    QAction* action = nullptr;
    for (const Entry& entry : entries()) {
        if (entry.path == path) {
            action = entry.action;
        }
    }
    QVERIFY(action && action->isEnabled());
    QTEST(changedBy([action] { action->trigger(); }), "changed");
}

void TestEveryEntry::noEntryOfTheMenuBarIsLeftOut()
{
    for (const Entry& entry : entries()) {
        QVERIFY2(tried.contains(entry.path), qPrintable(entry.path));
    }
}

/// By the toolbar's title and the place of the button on it.
void TestEveryEntry::aButtonDoesItsWork_data()
{
    QTest::addColumn<QString>("bar");
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("changed");
    QTest::addColumn<QString>("preparation");
    const auto row = [](const char* bar, const int& place, const char* changed,
                        const char* preparation = "") {
        QTest::addRow("%s %d", bar, place)
            << QString(bar) << place << QString(changed) << QString(preparation);
    };
    row("Mode", 2, "mode");
    row("Mode", 3, "mode");
    row("Mode", 4, "mode");
    row("Pan/Scale", 0, "PanDialog");
    row("Pan/Scale", 1, "ScaleDialog");
    row("Copy/Paste", 0, "");
    row("Copy/Paste", 1, "keys");
    row("Undo/Redo", 0, "keys");
    row("Undo/Redo", 1, "keys", "undone");
    row("Fit", 0, "view");
    row("Fit", 1, "view");
    row("Fit", 2, "view");
    row("Snap", 0, "snap");
    row("Node Type", 0, "keys");
    row("Node Type", 1, "keys");
    row("Node Type", 2, "keys");
    row("Node Type", 3, "keys");
    row("Tangents", 0, "keys");
    row("Tangents", 1, "keys");
    row("Tangents", 2, "keys");
    row("Other", 0, "unit");
    row("Other", 1, "tips");
    row("Other", 2, "fields");
}

void TestEveryEntry::aButtonDoesItsWork()
{
    QFETCH(QString, bar);
    QFETCH(int, place);
    QFETCH(QString, preparation);
    prepare(preparation);
    QToolButton* const button = toolButton(fixture->editor, bar, place);
    QVERIFY(button && button->isEnabled());
    // The left half: the right one may open a drop-down.
    const QPoint at(5, button->height() / 2);
    QTEST(changedBy([&] { QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, at); }),
          "changed");
}

QTEST_MAIN(TestEveryEntry)
#include "test_every_entry.moc"

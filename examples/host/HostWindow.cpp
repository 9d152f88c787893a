#include "HostWindow.h"

#include "Look.h"
#include "SceneCurves.h"
#include "Stage.h"
#include "TimeLine.h"

#include <commands/CurveCommand.h>
#include <curves/CurveFile.h>
#include <editor/CurveEditor.h>

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QSplitter>
#include <QTextStream>
#include <QVBoxLayout>

HostWindow::HostWindow()
{
    setWindowTitle(tr("Evening Sail"));
    createEditor();
    createLayout();
    createMenus();
    refreshHistory();
    resize(1280, 760);
}

HostWindow::~HostWindow() = default;

void HostWindow::createEditor()
{
    editor = std::make_unique<CurveEditor>(this, QStringLiteral(HOST_ICONS_DIR));
    editor->setFps(fps);
    editor->setTimeRange(-0.5, length + 0.5);
    editor->setMinValue(-40.0);
    editor->setMaxValue(130.0);
    editor->setUndoLevels(100);
    setCanvasLook(*editor);

    // The editor only asks for undo and redo; the host decides, and calls the manager.
    connect(editor.get(), &CurveEditor::curveEditorUndo, this, &HostWindow::undo);
    connect(editor.get(), &CurveEditor::curveEditorRedo, this, &HostWindow::redo);
    connect(editor->getCmdManager(), &curve_editor::CurveCommandsManager::curveEditorCmdExec, this,
            &HostWindow::refreshHistory);
    connect(editor.get(), &CurveEditor::curveHasChanged, this, &HostWindow::stageChanged);
}

void HostWindow::createLayout()
{
    auto* sideBySide = new QSplitter(Qt::Horizontal);
    stage = new Stage(store, fps);
    sideBySide->addWidget(stage);
    // A dialog is a window of its own until it is given a place inside another widget.
    sideBySide->addWidget(editor.get());
    sideBySide->setStretchFactor(0, 1);
    sideBySide->setStretchFactor(1, 0);
    sideBySide->setChildrenCollapsible(false);

    time = new TimeLine(length, fps);
    connect(time, &TimeLine::timeChanged, stage, &Stage::setTime);
    connect(time, &TimeLine::timeChanged, editor.get(),
            qOverload<ZK_DOUBLE>(&CurveEditor::setTimeLine));

    auto* central = new QWidget;
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(sideBySide, 1);
    column->addWidget(time);
    setCentralWidget(central);
}

void HostWindow::createMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Open Curve Files..."), QKeySequence::Open, this, &HostWindow::chooseFiles);
    file->addAction(tr("&Save Selected Curves..."), QKeySequence::Save, this,
                    &HostWindow::saveSelection);
    file->addSeparator();
    file->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    undoAction = edit->addAction(QString(), QKeySequence::Undo, this, &HostWindow::undo);
    redoAction =
        edit->addAction(QString(), QKeySequence(Qt::CTRL | Qt::Key_Y), this, &HostWindow::redo);
    edit->addSeparator();
    edit->addAction(tr("Curve Editor &Settings..."), editor.get(), &CurveEditor::setOptions);
    // Commands can leave the stacks without a signal, as when the editor's undo levels change.
    connect(edit, &QMenu::aboutToShow, this, &HostWindow::refreshHistory);

    QMenu* playback = menuBar()->addMenu(tr("&Playback"));
    QAction* play = playback->addAction(tr("&Play"));
    play->setCheckable(true);
    play->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Space));
    connect(play, &QAction::toggled, time, &TimeLine::setPlaying);
    connect(time, &TimeLine::playingChanged, play, &QAction::setChecked);
    playback->addAction(tr("To the &Start"), this, [this] { time->setTime(0.0); });
}

bool HostWindow::openScene()
{
    allRead = true;
    const QDir folder(QStringLiteral(HOST_CURVES_DIR));
    for (const SceneCurve& row : sceneCurves()) {
        HostCurve& curve = store.add(QLatin1String(row.node), QLatin1String(row.name),
                                     QColor(row.color), row.minimum, row.maximum);
        lend(curve, folder.filePath(QLatin1String(row.file)));
    }
    editor->selectNodes(store.dotNames());
    stageChanged();
    return allRead;
}

void HostWindow::openFiles(const QStringList& paths)
{
    static const QList<QColor> colors = {QColor(0x7bdff2), QColor(0xf7a072), QColor(0xb2f7ef),
                                         QColor(0xf2b5d4), QColor(0xeff7a0)};
    const QString node = QStringLiteral("files");
    QStringList opened;
    for (const QString& path : paths) {
        // Read on trial first, so that a bad file leaves no empty curve behind.
        HostCurve trial(node, QString(), QColor(), 0.0f, 0.0f);
        QString error;
        if (!curve_editor::readCurveFile(path, &trial.spline, &trial.expression, error)) {
            report(tr("%1 can't be read:\n%2").arg(QDir::toNativeSeparators(path), error));
            continue;
        }
        HostCurve& curve =
            store.add(node, store.freeName(node, path),
                      colors.at(store.dotNames().size() % colors.size()), -1e6f, 1e6f);
        lend(curve, path);
        opened.append(curve.dotName());
    }
    if (!opened.isEmpty()) {
        editor->selectNodes(opened);
        editor->completeViewport();
    }
}

/// Fills a curve from its file and offers it to the editor.
void HostWindow::lend(HostCurve& curve, const QString& path)
{
    QString error;
    if (!curve_editor::readCurveFile(path, &curve.spline, &curve.expression, error)) {
        allRead = false;
        report(tr("%1 can't be read:\n%2").arg(QDir::toNativeSeparators(path), error));
    }
    editor->addCurve(curve.node, curve.name, curve.color, 0.0f, &curve.spline, &curve.expression,
                     curve.minimum, curve.maximum, false, true);
    // addCurve alone leaves a curve without keys or expression off the canvas.
    editor->setDefaultSelected(curve.node, curve.name);
}

void HostWindow::undo()
{
    editor->getCmdManager()->undo();
    refreshHistory();
    stageChanged();
}

void HostWindow::redo()
{
    editor->getCmdManager()->redo();
    refreshHistory();
    stageChanged();
}

void HostWindow::refreshHistory()
{
    const auto show = [](QAction* action, const QString& verb, curve_editor::CurveCommand* next) {
        action->setEnabled(next != nullptr);
        action->setText(
            next ? verb + QLatin1Char(' ') + QString::fromStdString(next->getDescription()) : verb);
    };
    const curve_editor::CurveCommandsManager* manager = editor->getCmdManager();
    show(undoAction, tr("&Undo"), manager->nextUndo());
    show(redoAction, tr("&Redo"), manager->nextRedo());
}

void HostWindow::stageChanged()
{
    stage->update();
}

void HostWindow::chooseFiles()
{
    openFiles(QFileDialog::getOpenFileNames(this, tr("Open Curve Files"), QString(),
                                            tr("Curve files (*.xml)")));
}

void HostWindow::saveSelection()
{
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Save Selected Curves To"));
    if (folder.isEmpty()) {
        return;
    }
    for (const QString& name : editor->getSelection()) {
        HostCurve* curve = store.find(name);
        QString error;
        const QString path = QDir(folder).filePath(name + QStringLiteral(".xml"));
        if (curve &&
            !curve_editor::writeCurveFile(path, &curve->spline, curve->expression, error)) {
            report(tr("%1 can't be written:\n%2").arg(QDir::toNativeSeparators(path), error));
        }
    }
}

void HostWindow::report(const QString& text)
{
    QTextStream(stderr) << text << Qt::endl;
    if (messageBoxes) {
        QMessageBox::warning(this, windowTitle(), text);
    }
}

void HostWindow::setMessageBoxes(bool on)
{
    messageBoxes = on;
}

CurveEditor* HostWindow::curveEditor() const
{
    return editor.get();
}

const CurveStore& HostWindow::curves() const
{
    return store;
}

TimeLine* HostWindow::timeLine() const
{
    return time;
}

QPixmap HostWindow::grabStage() const
{
    return stage->grab();
}

QAction* HostWindow::undoMenuAction() const
{
    return undoAction;
}

QAction* HostWindow::redoMenuAction() const
{
    return redoAction;
}

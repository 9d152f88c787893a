#include "PictureBook.h"

#include "CurveState.h"
#include "Look.h"
#include "SceneCurves.h"
#include "ScreenPicture.h"

#include <curves/CurveFile.h>
#include <editor/CurveEditor.h>

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTextStream>
#include <QToolBar>
#include <QToolButton>

namespace {

constexpr CanvasRange visible = {-0.5, 10.5, -40.0, 130.0};

QString text(const char* letters)
{
    return QString::fromLatin1(letters);
}

QString shownCurve()
{
    return text("boat.position x");
}

/// "menu" and "Edit/Fit View" as "menu-edit-fit-view".
QString fileName(const char* kind, const QString& place)
{
    QString name = text(kind) + QLatin1Char('-') + place.toLower();
    return name.replace(QLatin1Char('/'), QLatin1Char('-'))
        .replace(QLatin1Char(' '), QLatin1Char('-'));
}

/// The area of the open menus, in the coordinates of the window.
QRect menusOver(const QWidget& window)
{
    QRect area;
    for (QWidget* const other : QApplication::topLevelWidgets()) {
        if (other->isVisible() && qobject_cast<QMenu*>(other)) {
            area |= QRect(window.mapFromGlobal(other->mapToGlobal(QPoint(0, 0))), other->size());
        }
    }
    return area;
}

} // namespace

PictureBook::PictureBook(const QString& path)
    : folder(path)
{}

PictureBook::~PictureBook() = default;

bool PictureBook::draw()
{
    complete = folder.mkpath(text("."));
    setLightLook();
    openEditor();
    drawEditor();
    drawMenus();
    drawToolbars();
    drawTreeMenu();
    drawExpressionLine();
    drawErrorBox();
    drawKeyProperties();
    drawDialogs();
    drawDark();
    return complete;
}

void PictureBook::openEditor()
{
    editor = std::make_unique<CurveEditor>(nullptr, QStringLiteral(HOST_ICONS_DIR));
    editor->setFps(25.0);
    setCanvasLook(*editor);
    const QDir curves(QStringLiteral(HOST_CURVES_DIR));
    for (const SceneCurve& row : sceneCurves()) {
        HostCurve& curve = store.add(QLatin1String(row.node), QLatin1String(row.name),
                                     QColor(row.color), row.minimum, row.maximum);
        QString error;
        complete = curve_editor::readCurveFile(curves.filePath(QLatin1String(row.file)),
                                               &curve.spline, &curve.expression, error) &&
                   complete;
        editor->addCurve(curve.node, curve.name, curve.color, 0.0f, &curve.spline,
                         &curve.expression, curve.minimum, curve.maximum, true, true);
    }
    editor->setTimeLine(ZK_DOUBLE(4.0));
    editor->resize(900, 560);
    editor->move(60, 60);
    editor->show();
    editor->activateWindow();
    QApplication::processEvents();
    hand = std::make_unique<EditorHand>(*editor);
    mouse = std::make_unique<CanvasMouse>(CanvasMouse::canvasOf(*editor), visible);
}

void PictureBook::drawEditor()
{
    edit({text("boat.position x"), text("boat.rotation"), text("boat.scale"), text("sail.hue"),
          text("lantern.light"), text("gull.position y")});
    selectKey();
    save(text("editor-light"), editor->grab());
}

void PictureBook::drawMenus()
{
    edit({shownCurve()});
    selectKey();
    for (QMenu* const menu : hand->menus()) {
        const QString title = menu->menuAction()->text();
        drawMenu(title);
        for (const QAction* const entry : menu->actions()) {
            if (entry->menu()) {
                drawMenu(title + QLatin1Char('/') + entry->text());
            }
        }
    }
}

/// The open menu with the part of the editor that it hangs from.
void PictureBook::drawMenu(const QString& path)
{
    QMenu* const menu = hand->open(path);
    QApplication::processEvents();
    if (!menu || !menu->isVisible()) {
        QTextStream(stderr) << "No menu " << path << Qt::endl;
        complete = false;
        return;
    }
    const auto* const bar = editor->mainMenu->findChild<QMenuBar*>();
    const QRect above = path.startsWith(text("Insert"))
                            ? QRect(editor->expressionTool->mapTo(editor.get(), QPoint(0, 0)),
                                    editor->expressionTool->size())
                            : QRect(bar->mapTo(editor.get(), QPoint(0, 0)), bar->sizeHint());
    drawOpenMenus(fileName("menu", path), above);
}

void PictureBook::drawOpenMenus(const QString& name, const QRect& above)
{
    QApplication::processEvents();
    // A menu may reach beyond the editor on the right, but not on the left or above.
    const QRect area = (menusOver(*editor) | above).adjusted(-8, -8, 8, 8);
    save(name, screenPicture(*editor).copy(area));
    hand->closeMenus();
}

void PictureBook::drawToolbars()
{
    for (QToolBar* const toolBar : editor->topToolbar->findChildren<QToolBar*>()) {
        save(fileName("toolbar", toolBar->windowTitle()), toolBar->grab());
        for (QToolButton* const button : toolBar->findChildren<QToolButton*>()) {
            // The button of a toolbar's hidden part has an empty menu.
            if (button->menu() && !button->menu()->isEmpty()) {
                drawDropDown(*button);
            }
        }
    }
}

void PictureBook::drawDropDown(QToolButton& button)
{
    const QString name = fileName("drop-down", button.menu()->actions().front()->text());
    button.menu()->popup(button.mapToGlobal(QPoint(0, button.height())));
    const QRect above(button.mapTo(editor.get(), QPoint(0, 0)), button.size());
    drawOpenMenus(name, above);
}

void PictureBook::drawTreeMenu()
{
    guest.during([this] { hand->openTreeMenu(shownCurve()); }, {[this](QWidget& popup) {
                     QApplication::processEvents();
                     const QRect area = menusOver(*editor).adjusted(-180, -66, 8, 60);
                     save(text("menu-tree"), screenPicture(*editor).copy(area & editor->rect()));
                     popup.close();
                 }});
}

void PictureBook::drawExpressionLine()
{
    edit({text("gull.position x")});
    save(text("expression"), editor->tabExpresion->grab());
}

void PictureBook::drawErrorBox()
{
    edit({text("gull.position x")});
    guest.during(
        [this] { typeLine(*editor->commandLine, text("boat.position_x*0.8+18+8*sine(t)")); },
        {[this](QWidget& box) {
            save(text("error-box"), windowPicture(box));
            press(box, text("OK"));
        }});
    save(text("expression-error"), editor->tabExpresion->grab());
    editor->refreshCommandLine();
}

void PictureBook::drawKeyProperties()
{
    edit({shownCurve()});
    selectKey();
    hand->choose(text("View/Show Key Properties"));
    QApplication::processEvents();
    if (QWidget* const dialog = hand->keyDialog()) {
        save(text("key-properties"), windowPicture(*dialog));
        edit({text("boat.rotation")});
        hand->choose(text("Keys/selectAll"));
        QApplication::processEvents();
        save(text("key-properties-several"), windowPicture(*dialog));
        dialog->close();
    } else {
        complete = false;
    }
}

void PictureBook::drawDialogs()
{
    edit({shownCurve()});
    selectKey();
    drawDialog(text("range"), [this] { hand->choose(text("View/Set Range")); });
    drawDialog(text("pan"), [this] { hand->choose(text("Edit/Pan Selection")); });
    drawDialog(text("scale"), [this] { hand->choose(text("Edit/Scale Selection")); });
    drawDialog(text("settings"), [this] { editor->setOptions(); });
}

void PictureBook::drawDialog(const QString& name, const std::function<void()>& step)
{
    const bool answered = guest.during(step, {[this, &name](QWidget& dialog) {
                                           QApplication::processEvents();
                                           save(text("dialog-") + name, windowPicture(dialog));
                                           dismiss(dialog);
                                       }});
    complete = complete && answered;
}

void PictureBook::drawDark()
{
    setDarkLook();
    QApplication::processEvents();
    edit({text("boat.position x"), text("boat.scale"), text("gull.position x"),
          text("gull.position y"), text("sea.swell"), text("lantern.light")});
    selectKey();
    save(text("editor-dark"), editor->grab());
    drawDialog(text("pan-dark"), [this] { hand->choose(text("Edit/Pan Selection")); });
    drawDialog(text("settings-dark"), [this] { editor->setOptions(); });
    edit({shownCurve()});
    selectKey();
    hand->choose(text("View/Show Key Properties"));
    QApplication::processEvents();
    if (QWidget* const dialog = hand->keyDialog()) {
        save(text("key-properties-dark"), windowPicture(*dialog));
        dialog->close();
    }
}

void PictureBook::edit(const QStringList& dotNames)
{
    editor->setTimeRange(visible.minX, visible.maxX);
    editor->setMinValue(visible.minY);
    editor->setMaxValue(visible.maxY);
    editor->selectNodes(dotNames);
    QApplication::processEvents();
}

/// A key of the shown curve, of those whose curves are edited.
void PictureBook::selectKey()
{
    constexpr unsigned selectedKey = 2;
    const PointInfo key = keysOf(*store.find(shownCurve())).at(selectedKey);
    mouse->click(mouse->pixelOf(key.time, key.value));
    QApplication::processEvents();
}

void PictureBook::save(const QString& name, const QPixmap& picture)
{
    const QString path = folder.filePath(name + text(".png"));
    // Quality 0 is the smallest file: the format loses nothing.
    if (picture.isNull() || !picture.save(path, "PNG", 0)) {
        QTextStream(stderr) << "No picture could be written: " << path << Qt::endl;
        complete = false;
    }
}

// The menu "Insert": texts for the expression line.

#include "editor/CurveEditor.h"

#include "core/FunctionParserBase.h"
#include "editor/CurveEditorPrivate.h"
#include "editor/MenuTable.h"

#include <QAction>
#include <QHash>
#include <QMenu>
#include <QPointer>

#include <string>
#include <vector>

namespace {

constexpr int noPlaceHolder = -1;
const QLatin1Char blank(' ');
const QLatin1String placeHolder("X");

void emptyMenu(QMenu* menu)
{
    menu->clear();
    const auto subMenus = menu->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
    for (QMenu* const subMenu : subMenus) {
        subMenu->setParent(nullptr);
    }
    qDeleteAll(subMenus);
}

/// The sub-menus of a menu by the names that lead to them, each with a point behind it; the menu
/// itself by the empty text. A name may be empty.
class SubMenus
{
public:
    explicit SubMenus(QMenu* root)
        : byPath{{QString(), root}}
    {}

    /// Made where it is missing.
    QMenu* at(const QString& path)
    {
        if (QMenu* const known = byPath.value(path)) {
            return known;
        }
        const QString names = path.chopped(1);
        const qsizetype last = names.lastIndexOf(QLatin1Char('.')) + 1;
        QMenu* const parent = at(names.left(last));
        auto* const menu = new QMenu(names.mid(last), parent);
        menu->setObjectName(names.mid(last));
        parent->addAction(menu->menuAction());
        byPath.insert(path, menu);
        return menu;
    }

private:
    QHash<QString, QMenu*> byPath;
};

/// The line then has the focus. False if the host has deleted the editor while a box was open.
bool executeInLine(CurveEditor* editor)
{
    const QPointer<CurveEditor> self(editor);
    editor->executeCommand();
    if (!self) {
        return false;
    }
    editor->commandLine->setFocus();
    return true;
}

/// Where the parser has marked an error, that stays selected.
void executeInserted(CurveEditor* editor, const QString& text, int placeHolderAt = noPlaceHolder)
{
    CommandLine* const line = editor->commandLine;
    line->setText(text);
    const QString shown = line->text();
    if (!executeInLine(editor)) {
        return;
    }
    const bool isMarked = !line->parseMessage().errorSpans.empty();
    if (placeHolderAt != noPlaceHolder && !isMarked && line->text() == shown) {
        line->setSelection(placeHolderAt, static_cast<int>(placeHolder.size()));
    }
}

void insertAtLineCursor(CurveEditor* editor, const QString& name)
{
    CommandLine* const line = editor->commandLine;
    line->insertAtCursor(blank + name + blank);
    const QString shown = line->text();
    const int cursor = line->cursorPosition();
    if (!executeInLine(editor)) {
        return;
    }
    const bool isMarked = !line->parseMessage().errorSpans.empty();
    if (!isMarked && line->text() == shown) {
        line->setCursorPosition(cursor);
    }
}

} // namespace

void CurveEditor::populateDVarMenu()
{
    QMenu* const menu = d->actions.menu(curve_editor::dVarsSubMenu);
    emptyMenu(menu);
    std::vector<std::string> names;
    FunctionParserBase::instance()->getAllKeyNames(names, parserScope());
    SubMenus subMenus(menu);
    for (const std::string& key : names) {
        const QString name = QString::fromLocal8Bit(key.c_str());
        const qsizetype last = name.lastIndexOf(QLatin1Char('.')) + 1;
        if (last == 0) {
            continue;
        }
        QMenu* const parent = subMenus.at(name.left(last));
        auto* const action = new QAction(name.mid(last), parent);
        action->setObjectName(name);
        parent->addAction(action);
    }
}

void CurveEditor::insertUnaryFunc(QAction* action)
{
    if (action) {
        executeInserted(this, blank + action->text() + QLatin1String("(") + commandLine->text() +
                                  QLatin1String(") "));
    }
}

void CurveEditor::insertBinaryFunc(QAction* action)
{
    if (!action) {
        return;
    }
    const QString name = action->text();
    QString before;
    QString behind;
    if (name == QLatin1String("min") || name == QLatin1String("max")) {
        before = blank + name + QLatin1String("( ") + commandLine->text() + QLatin1String(", ");
        behind = QStringLiteral(" ) ");
    } else {
        // In a menu's text two ampersands stand for one.
        const QString sign = name == QLatin1String("&&") ? QStringLiteral("&") : name;
        before = blank + commandLine->text() + sign;
        behind = blank;
    }
    executeInserted(this, before + placeHolder + behind, static_cast<int>(before.size()));
}

void CurveEditor::insertTernaryFunc(QAction* action)
{
    if (action) {
        const QString before = blank + action->text() + QLatin1String("( ");
        executeInserted(this,
                        before + placeHolder + QLatin1String(", ") + commandLine->text() +
                            QLatin1String(", ") + placeHolder + QLatin1String(" ) "),
                        static_cast<int>(before.size()));
    }
}

void CurveEditor::insertIVarFunc(QAction* action)
{
    if (action) {
        insertAtLineCursor(this, action->text());
    }
}

void CurveEditor::insertDVarFunc(QAction* action)
{
    if (action) {
        const std::string name = action->objectName().toLocal8Bit().toStdString();
        insertAtLineCursor(this,
                           QString::fromLocal8Bit(FunctionParserBase::writtenName(name).c_str()));
    }
}

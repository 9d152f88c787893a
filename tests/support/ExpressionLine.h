#pragma once

#include "support/EditorFixture.h"

#include <QAction>
#include <QClipboard>
#include <QMenu>
#include <QToolButton>

/// The expression line of a shown editor as its user works with it.
class ExpressionLine
{
public:
    explicit ExpressionLine(EditorFixture& target)
        : fixture(target)
    {}

    CommandLine& line() { return *fixture.editor.commandLine; }
    QString text() { return line().text(); }

    /// A click into the line, and its whole text selected.
    void takeUp()
    {
        QTest::mouseClick(&line(), Qt::LeftButton);
        QTest::keyClick(&line(), Qt::Key_A, Qt::ControlModifier);
    }

    /// Key by key, at the cursor or over the selection.
    void typeKeys(const QString& typed)
    {
        for (const QChar& letter : typed) {
            QKeyEvent press(QEvent::KeyPress, letter.toUpper().unicode(), Qt::NoModifier, letter);
            QApplication::sendEvent(&line(), &press);
            QKeyEvent release(QEvent::KeyRelease, letter.toUpper().unicode(), Qt::NoModifier,
                              letter);
            QApplication::sendEvent(&line(), &release);
        }
    }

    /// Replaces the text, key by key.
    void type(const QString& typed)
    {
        takeUp();
        QTest::keyClick(&line(), Qt::Key_Delete);
        typeKeys(typed);
    }

    /// Replaces the text from the clipboard.
    void paste(const QString& pasted)
    {
        takeUp();
        QApplication::clipboard()->setText(pasted);
        QTest::keyClick(&line(), Qt::Key_V, Qt::ControlModifier);
    }

    void press(const Qt::Key& key) { QTest::keyClick(&line(), key); }

    /// Replaces the text and presses Return.
    void enter(const QString& typed)
    {
        type(typed);
        press(Qt::Key_Return);
    }

    /// The focus goes on to the canvas.
    void leave() { QTest::mouseClick(&fixture.canvas(), Qt::LeftButton); }

    /// Opens the menu by its button, goes down its entries and takes the last.
    void choose(const QStringList& path)
    {
        CurveEditor& editor = fixture.editor;
        QAction* const insert = editor.expressionTool->actions().constFirst();
        QTimer look;
        look.callOnTimeout(&editor, [&look, insert, path] {
            if (insert->menu()->isVisible()) {
                look.stop();
                walk(insert->menu(), path);
            }
        });
        look.start(0);
        QTest::mouseClick(editor.expressionTool->widgetForAction(insert), Qt::LeftButton);
        QApplication::setActiveWindow(&editor); // on some platforms a menu takes that away
    }

private:
    static void walk(QMenu* menu, const QStringList& path)
    {
        for (const QString& text : path) {
            QAction* const action = entry(menu, text);
            if (!action) {
                qWarning("no entry %s", qPrintable(text));
                break;
            }
            menu->setActiveAction(action); // opens a sub-menu
            if (action->menu()) {
                menu = action->menu();
            } else {
                QTest::keyClick(menu, Qt::Key_Return);
            }
        }
        while (QWidget* const open = QApplication::activePopupWidget()) {
            open->close();
        }
    }

    static QAction* entry(const QMenu* menu, const QString& text)
    {
        for (QAction* const action : menu->actions()) {
            if (action->text() == text) {
                return action;
            }
        }
        return nullptr;
    }

    EditorFixture& fixture;
};

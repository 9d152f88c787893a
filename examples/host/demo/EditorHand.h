#pragma once

#include <QList>
#include <QString>

class CurveEditor;
class QAbstractButton;
class QAction;
class QLineEdit;
class QMenu;
class QWidget;

/// A hand on the editor: it finds menus, entries and fields by what stands on them, and types and
/// presses as a user would.
class EditorHand
{
public:
    /// `curveEditor` stays the caller's.
    explicit EditorHand(CurveEditor& curveEditor);

    /// The entry at a path such as "Edit/Paste/Paste Combined", by texts or object names; null if
    /// there is none. The menu beside the expression line is "Insert".
    QAction* entry(const QString& path) const;
    /// The menu at a path; null if there is none.
    QMenu* menu(const QString& path) const;
    /// The titles of the menus: those of the menu bar, then "Insert".
    QList<QMenu*> menus() const;

    /// Chooses an entry. False if there is none or it is disabled.
    bool choose(const QString& path) const;
    /// Opens a menu with all menus above it, each beside its entry.
    QMenu* open(const QString& path) const;
    /// Chooses an entry of a menu that is open, by the keyboard, which closes all open menus.
    void chooseOpen(QMenu& opened, const QString& text) const;
    void closeMenus() const;

    /// Opens the menu of a curve in the tree, and waits until it is closed.
    void openTreeMenu(const QString& dotName) const;

    /// The dialog of the selected key's properties, hidden or not; null if there is none.
    QWidget* keyDialog() const;

private:
    CurveEditor& editor;
};

/// Presses and releases a key that writes nothing, as Return.
void pressKey(QWidget& widget, Qt::Key key);
/// Types letters where the cursor stands.
void typeText(QWidget& widget, const QString& text);
/// Goes to a field, overwrites its text, and ends with Return.
void typeLine(QLineEdit& line, const QString& text);
/// Overwrites the text of a dialog's field, which is found by its object name.
void fill(QWidget& dialog, const QString& field, const QString& text);
/// The text of a dialog's field.
QString textOf(const QWidget& dialog, const QString& field);
/// Clicks the button with a text, whatever its mnemonic. False if there is none.
bool press(QWidget& dialog, const QString& button);

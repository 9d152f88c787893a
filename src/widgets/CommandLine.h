#pragma once

#include "core/ParseMessage.h"
#include "zk_curve_editor_export.h"

#include <QLineEdit>
#include <QPalette>

/// The line under the canvas that shows the expression of the editing curves, and takes a new one.
///
/// It parses nothing itself: whoever does hands it the result, and an error is marked by colours
/// and selection until the next key press or mouse button. Dropped text, such as a curve's name,
/// is inserted at the cursor with its blanks as underscores.
class ZK_CURVE_EDITOR_EXPORT CommandLine : public QLineEdit
{
    Q_OBJECT

public:
    explicit CommandLine(QWidget* parent = nullptr);

    /// Shows the text that was parsed, and marks the first error.
    void setParseMessage(const ParseMessage& result);
    /// The result shown last.
    const ParseMessage& parseMessage() const;
    /// The error colours are on.
    bool isErrorShown() const;

    /// Inserts at the cursor, over no selection; the cursor then stands behind the piece. It counts
    /// as typed text.
    void insertAtCursor(const QString& piece);
    /// Inserts an underscore at the cursor and takes the focus.
    void insertUnderscore();

    /// The loss of the focus is being told by editingFinished.
    bool isBeingLeft() const;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void hideError();
    void markFirstError();

    QPalette savedPalette; ///< as it was at construction
    ParseMessage message;
    bool errorShown = false;
    bool leaving = false;
};

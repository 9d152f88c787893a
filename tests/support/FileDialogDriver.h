#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <functional>
#include <utility>

/// Answers each file dialog that opens while it lives, as a user at the keyboard: types a path
/// into the field of the file's name and presses Return, or presses Escape. Notes what the last
/// dialog showed when it opened. Agrees to replacing a file. Only one may live at a time, since
/// either of two could answer.
class FileDialogDriver : public QObject
{
public:
    /// Presses Escape.
    FileDialogDriver()
        : FileDialogDriver(QString())
    {}

    explicit FileDialogDriver(const QString& typed)
        : answer(typed)
    {
        if (++living > 1) {
            qFatal("Two drivers would race for one file dialog.");
        }
        timer.callOnTimeout(this, [this] { look(); });
        timer.start(10);
    }

    ~FileDialogDriver() override { --living; }

    /// Called instead of an answer; it must see to it that the dialog ends.
    std::function<void(QFileDialog*)> instead;

    int dialogs = 0;
    QString title;
    QString directory;
    QString proposedName;
    QStringList filters;
    QFileDialog::FileMode fileMode = QFileDialog::AnyFile;
    QFileDialog::AcceptMode acceptMode = QFileDialog::AcceptOpen;
    bool showsFoldersOnly = false;
    QWidget* parent = nullptr;

private:
    void look()
    {
        QWidget* const top = isTyping || returnField ? nullptr : QApplication::activeModalWidget();
        auto* const box = qobject_cast<QMessageBox*>(top);
        auto* const dialog = qobject_cast<QFileDialog*>(top);
        if (box && qobject_cast<QFileDialog*>(box->parentWidget())) {
            QAbstractButton* const yes = box->button(QMessageBox::Yes);
            QTest::keyClick(yes ? yes : box->buttons().constFirst(), Qt::Key_Space);
        } else if (dialog && dialog->isVisible()) {
            if (dialog != last) {
                note(*dialog);
            }
            last = dialog;
            reply(dialog);
        }
    }

    void note(const QFileDialog& dialog)
    {
        ++dialogs;
        title = dialog.windowTitle();
        directory = dialog.directory().path();
        proposedName = nameField(dialog).text();
        filters = dialog.nameFilters();
        fileMode = dialog.fileMode();
        acceptMode = dialog.acceptMode();
        showsFoldersOnly = dialog.testOption(QFileDialog::ShowDirsOnly);
        parent = dialog.parentWidget();
    }

    void reply(QFileDialog* dialog)
    {
        if (instead) {
            instead(dialog);
            return;
        }
        if (answer.isEmpty()) {
            QTest::keyClick(dialog, Qt::Key_Escape);
            return;
        }
        QLineEdit& field = nameField(*dialog);
        field.setCompleter(nullptr); // its list would take the first Return
        if (field.text() != answer) {
            field.selectAll();
            isTyping = true; // runs the event loop
            QTest::keyClicks(&field, answer);
            isTyping = false;
        }
        // Not from this timer, which would then not see the question that the dialog may ask. One
        // Return only, however long the typing took: a second one would ask that question twice.
        returnField = &field;
        QTimer::singleShot(0, this, [this] {
            if (const QPointer<QLineEdit> pressed = std::exchange(returnField, nullptr)) {
                QTest::keyClick(pressed, Qt::Key_Return);
            }
        });
    }

    static QLineEdit& nameField(const QFileDialog& dialog)
    {
        return *dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    }

    static inline int living = 0;

    QString answer;
    bool isTyping = false;
    QPointer<QLineEdit> returnField; ///< where Return is about to be pressed
    QPointer<QFileDialog> last;
    QTimer timer;
};

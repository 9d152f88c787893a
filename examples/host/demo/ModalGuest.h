#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <vector>

/// Answers the dialogs, boxes and menus that wait for the user.
///
///     ModalGuest guest;
///     guest.during([&] { editor.setRange(); },
///                  {[](QWidget& dialog) { typeInto(dialog, "minX", "0"); press(dialog, "Ok"); }});
class ModalGuest : public QObject
{
    Q_OBJECT

public:
    using Step = std::function<void()>;
    using Answer = std::function<void(QWidget& dialog)>;

    /// Runs a step, and gives each window that waits the next of the answers. A window without an
    /// answer, and one that is still open long after it, is closed. True if each answer was wanted
    /// and none was missing.
    bool during(const Step& step, const std::vector<Answer>& answers);
    /// Runs a step and closes every window that waits. The titles of those windows.
    QStringList closingAll(const Step& step);

private:
    void look();
    void meet(QWidget& dialog);

    std::vector<Answer> waiting; ///< of the step that runs, the next one first
    bool closeAll = false;
    bool missing = false; ///< a window came without an answer, or stayed in spite of it
    QStringList titles;
    QPointer<QWidget> met; ///< the window answered last
    int looksSince = 0;    ///< at that window
    QTimer eyes;
};

/// Closes a dialog as Escape does.
void dismiss(QWidget& dialog);

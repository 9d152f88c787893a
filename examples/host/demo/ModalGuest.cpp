#include "ModalGuest.h"

#include <QApplication>
#include <QDialog>

namespace {

constexpr int interval = 5;    ///< milliseconds between two looks
constexpr int patience = 2000; ///< looks at a window that stays open

} // namespace

bool ModalGuest::during(const Step& step, const std::vector<Answer>& answers)
{
    waiting = answers;
    missing = false;
    titles.clear();
    met = nullptr;
    const QMetaObject::Connection looking =
        connect(&eyes, &QTimer::timeout, this, &ModalGuest::look);
    eyes.setSingleShot(true);
    eyes.start(interval);
    step();
    eyes.stop();
    disconnect(looking);
    return waiting.empty() && !missing;
}

QStringList ModalGuest::closingAll(const Step& step)
{
    closeAll = true;
    during(step, {});
    closeAll = false;
    return titles;
}

void ModalGuest::look()
{
    // Begun anew before the window is met: an answer may open another one and wait for it.
    eyes.start(interval);
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const dialog = popup ? popup : QApplication::activeModalWidget();
    if (!dialog) {
        met = nullptr;
    } else if (dialog != met) {
        met = dialog;
        looksSince = 0;
        meet(*dialog);
    } else if (++looksSince > patience) {
        missing = true;
        met = nullptr;
        dismiss(*dialog);
    }
}

void ModalGuest::meet(QWidget& dialog)
{
    titles.append(dialog.windowTitle());
    if (waiting.empty()) {
        missing = !closeAll;
        dismiss(dialog);
        return;
    }
    const Answer answer = waiting.front();
    waiting.erase(waiting.begin());
    answer(dialog);
}

void dismiss(QWidget& dialog)
{
    if (auto* const asking = qobject_cast<QDialog*>(&dialog)) {
        asking->reject();
    } else {
        dialog.close();
    }
}

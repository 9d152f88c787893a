#pragma once

#include <QDir>
#include <QString>

class QWidget;

/// Tells what the steps of a demonstration do: a line on standard output, and a numbered picture of
/// the window with all that lies over it.
class StepLog
{
public:
    /// `window` stays the caller's; the pictures go into the folder, which must exist.
    StepLog(QWidget& pictured, const QDir& picturesFolder);

    /// Ends a step. `asSaid` tells whether it did what it says; the result is false if it did not,
    /// or if its picture could not be written.
    bool finish(const QString& step, const QString& text, bool asSaid);
    /// A picture in the middle of a step, as of a box that is about to be closed. One that can't
    /// be written fails the step.
    void picture(const QString& what);

    const QDir& folder() const;

private:
    QWidget& window;
    const QDir target;
    int pictures = 0;
    bool allWritten = true;
};

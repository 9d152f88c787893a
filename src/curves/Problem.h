#pragma once

#include <QList>
#include <QString>

namespace curve_editor {

/// Something that went wrong, in the words in which a box tells the user. Model and commands hand
/// it on as a value; boxes are shown in one place.
struct Problem
{
    /// The picture beside the text.
    enum Weight : int
    {
        warning,
        critical
    };

    Weight weight = warning;
    QString title;
    QString text;
};

using Problems = QList<Problem>;

/// Shows a box, without a parent, until it is closed. It runs an event loop, in which a host may do
/// anything, and delete the editor. Defined beside the dialog.
void showBox(const Problem& problem);
/// One after the other.
void showBoxes(const Problems& problems);

} // namespace curve_editor

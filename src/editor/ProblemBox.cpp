#include "curves/Problem.h"

#include <QMessageBox>

namespace curve_editor {

void showBox(const Problem& problem)
{
    if (problem.weight == Problem::critical) {
        QMessageBox::critical(nullptr, problem.title, problem.text);
    } else {
        QMessageBox::warning(nullptr, problem.title, problem.text);
    }
}

void showBoxes(const Problems& problems)
{
    for (const Problem& problem : problems) {
        showBox(problem);
    }
}

} // namespace curve_editor

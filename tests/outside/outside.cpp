// Opens the editor as a host does that was built against the installed library.

#include "all_headers.h"

#include <QApplication>
#include <QIcon>
#include <QToolButton>

#include <cstdio>

namespace {

bool hasIcons(const CurveEditor& editor)
{
    bool found = false;
    for (const QToolButton* const button : editor.topToolbar->findChildren<QToolButton*>()) {
        found = found || !button->icon().isNull();
    }
    return found;
}

int fail(const char* what)
{
    std::fprintf(stderr, "%s\n", what);
    return 1;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    SplineBase spline;
    spline.addPoint(0.0, 1.0);
    FunctionFloatBase* expression = nullptr;
    CurveEditor editor(nullptr, ICONS_DIR);
    editor.addCurve("body", "width", Qt::red, 0, &spline, &expression, 0, 10, true, true);
    editor.show();
    if (!hasIcons(editor)) {
        return fail("the buttons have no pictures");
    }
    editor.selectAllKeys();
    editor.deleteSelectedKeys();
    if (spline.getControlPointsNumber() != 0) {
        return fail("the key was not deleted");
    }
    editor.getCmdManager()->undo();
    return spline.getControlPointsNumber() == 1 ? 0 : fail("the key did not come back");
}

#pragma once

#include "commands/CurveFiles.h"
#include "commands/SessionEditor.h"

#include "commands/CommandDelCurves.h"
#include "commands/CommandLoadCurve.h"
#include "widgets/CommandLine.h"

#include <QAction>

/// A user who works on whole curves: expressions, clipboard, files, and taking content away.
class CurveEdits
{
public:
    CurveEdits(SessionEditor& sessionEditor, const CurveFiles& curveFiles)
        : session(sessionEditor)
        , curves(sessionEditor.curves)
        , files(curveFiles)
    {}

    void edit()
    {
        const int what = curves.below(100);
        if (what < 30) {
            typeExpression();
        } else if (what < 40) {
            insertFunction();
        } else if (what < 47) {
            editor().deleteCurveClicked();
        } else if (what < 57) {
            editor().switchAddFuncToSpline();
        } else if (what < 80) {
            useClipboard();
        } else if (what < 88) {
            session.manager().doCommand(
                new curve_editor::CommandLoadCurve(&editor(), curves.oneOf(files.paths)));
        } else if (what < 95) {
            deleteContent();
        } else if (what < 99) {
            editor().resetSelectedF();
        } else {
            editor().resetAllCheckedF();
        }
    }

private:
    CurveEditor& editor() { return session.editor(); }

    QString anyText()
    {
        static const QStringList good{"t",        "sin(t*2)",          "w.x*2",     "w.y + w.x",
                                      "-3.25e-2", "if(t>1, 2, f/fps)", "min(t,w.x)"};
        static const QStringList bad{"",         "   ",      "sin(",     "1..2",
                                     "nosuch+1", "w.nosuch", "\u00e4*2", QString(300, '(')};
        return curves.chance(75) ? curves.oneOf(good) : curves.oneOf(bad);
    }

    /// A few curves are taken up first, so that not all have the same expression.
    void typeExpression()
    {
        if (curves.chance(40)) {
            editor().selectNodes(curves.oneOf(curves.names));
        }
        CommandLine& line = *editor().commandLine;
        line.setFocus();
        line.selectAll();
        line.insert(anyText());
        if (curves.chance(80)) {
            QTest::keyClick(&line, Qt::Key_Return);
        } else {
            session.fixture.canvas().setFocus();
        }
    }

    void insertFunction()
    {
        QAction action(nullptr);
        switch (curves.below(5)) {
        case 0:
            action.setText("sin");
            editor().insertUnaryFunc(&action);
            break;
        case 1:
            action.setText(curves.chance(50) ? "+" : "max");
            editor().insertBinaryFunc(&action);
            break;
        case 2:
            action.setText("if");
            editor().insertTernaryFunc(&action);
            break;
        case 3:
            action.setText("PI");
            editor().insertIVarFunc(&action);
            break;
        default:
            action.setObjectName("w.y");
            editor().insertDVarFunc(&action);
            break;
        }
    }

    /// Copying needs a single curve, pasting is done onto several.
    void useClipboard()
    {
        if (curves.chance(40)) {
            editor().selectNodes(curves.oneOf(curves.names));
            curves.chance(50) ? editor().copyBtn() : editor().copyKeys();
            editor().selectNodes(curves.names);
        }
        editor().setTimeLine(curves.number());
        switch (curves.below(6)) {
        case 0:
            editor().paste();
            break;
        case 1:
            editor().pasteOffsetBtn();
            break;
        case 2:
            editor().pasteOnTimeline();
            break;
        case 3:
            editor().pasteKeysBtn();
            break;
        case 4:
            editor().pasteKeysOffset();
            break;
        default:
            editor().pasteKeysOnTimelineBtn();
            break;
        }
    }

    void deleteContent()
    {
        const int curve = curves.anyCurve();
        if (curves.chance(60)) {
            editor().deleteCurveAndExp(curves.nodeOf(curve), curves.curveOf(curve), nullptr);
        } else {
            const QStringList some{curves.names[curve], curves.oneOf(curves.names), "no.such"};
            session.manager().doCommand(new curve_editor::CommandDelCurves(&editor(), some));
        }
    }

    SessionEditor& session;
    SessionCurves& curves;
    const CurveFiles& files;
};

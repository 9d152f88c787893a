#pragma once

#include "commands/CurveFiles.h"
#include "commands/SessionEditor.h"

#include "commands/CommandAddCurve.h"
#include "curves/CurveFile.h"

#include <vector>

/// A host that lists, renames, removes and destroys what its editors show.
class RandomHost
{
public:
    RandomHost(SessionCurves& sessionCurves, std::vector<SessionEditor*> sessionEditors,
               const CurveFiles& curveFiles)
        : curves(sessionCurves)
        , sessions(std::move(sessionEditors))
        , files(curveFiles)
    {}

    /// Other keys in a spline: the old ones are freed at once, and the new ones mostly take their
    /// addresses. Returns the number of the spline.
    std::size_t refill()
    {
        const std::size_t spline = SessionCurves::splineOf(curves.anyCurve());
        if (curves.lent[spline]) {
            curves.chance(30) ? refillFromFile(*curves.lent[spline]) : refill(*curves.lent[spline]);
        }
        return spline;
    }

    /// Curves leave and enter an editor. Only a bold host removes what expressions name.
    void changeSet(SessionEditor& session, const bool& isBold)
    {
        const int curve = curves.anyCurve();
        const bool isNamed = curves.nodeOf(curve) == QLatin1String("w");
        switch (curves.below(6)) {
        case 0:
            session.editor().removeCurvesFromEditing();
            break;
        case 1:
            if (isBold || !isNamed) {
                session.remove(curve);
            }
            break;
        case 2:
            if (isBold || !isNamed) {
                session.remove(curve);
                session.add(curve);
            }
            break;
        case 3:
            session.editor().removeCurveFromEditing(curves.names[curve]);
            break;
        case 4:
            session.editor().selectNodes(curves.names[curve]);
            break;
        default:
            session.addAll();
            session.editor().selectNodes(curves.names);
            break;
        }
    }

    /// Gives a curve or a node another name in all editors. A bold host renames what expressions
    /// name, and takes names that are in use.
    void rename(const bool& isBold)
    {
        const int curve = curves.anyCurve();
        const QString node = curves.nodeOf(curve);
        const QString name = curves.curveOf(curve);
        if (!isBold && node == QLatin1String("w")) {
            return;
        }
        QString fresh = QStringLiteral("q%1").arg(++renamings, 4, 10, QLatin1Char('0'));
        if (isBold && curves.chance(50)) {
            fresh = curves.oneOf(QStringList{"n", "aa", "bb", "x", "bb.cc", "aa.b c"});
        }
        if (curves.chance(30)) {
            for (SessionEditor* session : sessions) {
                session->editor().renameNode(node, fresh);
            }
            for (QString& each : curves.names) {
                if (each.section('.', 0, 0) == node) {
                    each = fresh + '.' + each.section('.', 1);
                }
            }
        } else {
            for (SessionEditor* session : sessions) {
                session->editor().renameCurve(node, name, fresh);
            }
            curves.names[curve] = node + '.' + fresh;
        }
    }

    /// Does what no editor likes, at any moment.
    void intrude()
    {
        SessionEditor& session = *curves.oneOf(sessions);
        const int curve = curves.anyCurve();
        auto& content = curves.contentOf(curve);
        switch (curves.below(16)) {
        case 0:
            content.reset(); // the curves that show it stay in the editors
            break;
        case 1:
        case 2:
            replace(content);
            break;
        case 3:
            if (content) {
                content->spline.removeAllControlPoints();
            }
            break;
        case 4:
            if (content) {
                content->addKey(curves.number(), curves.number());
            }
            break;
        case 5:
            if (content) {
                content->setExpression(curves.oneOf(QList<const char*>{"t", "w.y*2", "", "n.aa"}));
            }
            break;
        case 6:
            session.editor().deleteExpression(curves.nodeOf(curve), curves.curveOf(curve),
                                              content ? &content->expression : nullptr);
            break;
        case 7:
            session.manager().undo();
            break;
        case 8:
            session.manager().redo();
            break;
        case 9:
            session.editor().removeNode(curves.nodeOf(curve));
            break;
        case 10:
            addAsCommand(session, curve);
            break;
        case 11:
            rename(true);
            break;
        case 12:
        case 13:
        case 14:
            refill();
            break;
        default:
            changeSet(session, true);
            break;
        }
    }

private:
    void refill(LentCurve& curve)
    {
        SplineBase& spline = curve.spline;
        const unsigned count = spline.getControlPointsNumber();
        spline.removeAllControlPoints();
        for (unsigned i = curves.below(2); i < count + 1; ++i) {
            if (curves.chance(50)) {
                spline.addPoint(curves.number(), curves.number());
            } else {
                curve.addKey(curves.number(), curves.number(), zk_spline::bezier);
            }
        }
    }

    /// Twice, as the keys of the first reading are gone with the second.
    void refillFromFile(LentCurve& curve)
    {
        for (int i = 0; i < 2; ++i) {
            QString error;
            curve_editor::readCurveFile(files.paths.first(), &curve.spline, nullptr, error);
        }
    }

    /// A new spline and slot for what was destroyed; mostly the old records go before.
    void replace(std::unique_ptr<LentCurve>& content)
    {
        if (content) {
            return;
        }
        for (int i = 0; i < curves.names.size(); ++i) {
            if (&curves.contentOf(i) == &content && curves.chance(80)) {
                for (SessionEditor* session : sessions) {
                    session->remove(i);
                }
            }
        }
        content = curves.newCurve();
    }

    /// The command that addCurve runs by itself, here with a place on the stack.
    void addAsCommand(SessionEditor& session, const int& curve)
    {
        const auto& content = curves.contentOf(curve);
        if (content) {
            session.manager().doCommand(new curve_editor::CommandAddCurve(
                &session.editor(), curves.nodeOf(curve), curves.curveOf(curve), Qt::red, 0.0f,
                &content->spline, &content->expression, -100.0f, 100.0f, curves.chance(50), true));
        }
    }

    SessionCurves& curves;
    std::vector<SessionEditor*> sessions; ///< not owned
    const CurveFiles& files;
    int renamings = 0;
};

#pragma once

#include "support/EditorFixture.h"

#include "commands/MouseHand.h"
#include "commands/SessionCurves.h"

/// A shown editor on one to three curves of a host, splines, sums and expressions, and the hand
/// that works on it.
class MouseStage
{
public:
    /// What a curve holds, and what it is worth with its expression.
    struct CurveSeen
    {
        CurveState content;
        std::vector<unsigned long long> values;

        bool operator==(const CurveSeen& other) const
        {
            return content.agreesWith(other.content) && values == other.values;
        }
    };
    using Seen = std::vector<CurveSeen>;

    explicit MouseStage(Chance& chance)
        : hand(fixture)
    {
        const int count = 1 + chance.below(3);
        for (int i = 0; i < count; ++i) {
            addCurve(chance, QStringList{"n.a", "n.b", "m.c"}[i], i == 0);
        }
        editor().selectNodes(chance.chance(80) ? names : names.mid(0, 1));
        editor().setUndoLevels(1000000);
        fixture.paint();
    }

    CurveEditor& editor() { return fixture.editor; }
    CanvasFunctionBase& logic() { return fixture.logic(); }
    ViewPort& view() { return fixture.canvas(); }
    curve_editor::CurveCommandsManager& manager() { return *editor().getCmdManager(); }

    /// Takes a step back. The drag of one key makes two steps, and undoing the second already leads
    /// to its start: a user goes back by both, for redoing the first alone would move the key.
    void undo()
    {
        while (manager().undo() && isAmidDrag()) {
        }
    }

    bool isAmidDrag()
    {
        const auto labelOf = [](curve_editor::CurveCommand* command) {
            return command ? command->getDescription() : std::string();
        };
        return labelOf(manager().nextUndo()) == "Move Control Points" &&
               labelOf(manager().nextRedo()) == "Change Control Points Values";
    }

    Seen see() const
    {
        Seen all;
        for (const QString& name : names) {
            LentCurve& curve = *fixture.curves.at(name);
            CurveSeen& seen = all.emplace_back();
            seen.content.spline = SplineState(curve.spline);
            if (curve.expression) {
                seen.content.expression = curve.expression->getString();
            }
            for (const double& time : SplineState::momentsOf(curve.spline)) {
                seen.values.push_back(
                    SplineState::bitsOf(curve.spline(time, curve.expression, 10.0)));
            }
        }
        return all;
    }

    /// Where two sights differ; empty where they agree.
    QString difference(const Seen& expected, const Seen& actual) const
    {
        QString text;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            if (!(expected[i] == actual[i])) {
                text += QStringLiteral("%1 is %2 instead of %3; ")
                            .arg(names[static_cast<qsizetype>(i)],
                                 QString::fromStdString(actual[i].content.text()),
                                 QString::fromStdString(expected[i].content.text()));
            }
        }
        return text;
    }

    /// The curves with their keys, and the next steps of undo and redo.
    QString text()
    {
        QString all;
        const Seen seen = see();
        for (std::size_t i = 0; i < seen.size(); ++i) {
            all += names[static_cast<qsizetype>(i)] + ' ' +
                   QString::fromStdString(seen[i].content.text()) + ' ';
        }
        const auto labelOf = [](curve_editor::CurveCommand* command) {
            return command ? QString::fromStdString(command->getDescription())
                           : QStringLiteral("nothing");
        };
        return all + "undo: " + labelOf(manager().nextUndo()) +
               ", redo: " + labelOf(manager().nextRedo());
    }

    bool keysAscend() const
    {
        for (const auto& entry : fixture.curves) {
            const auto& keys = entry.second->spline.getControlPoints();
            for (std::size_t i = 1; i < keys.size(); ++i) {
                if (keys[i - 1]->time > keys[i]->time) {
                    return false;
                }
            }
        }
        return true;
    }

    /// A gesture runs, or is believed to.
    bool isInGesture()
    {
        switch (editor().getCurrentMode()) {
        case CurveEditor::SELECTING:
        case CurveEditor::ADDING2SEL:
        case CurveEditor::MOVING:
        case CurveEditor::SNAP:
        case CurveEditor::ZOOMING:
            return true;
        default:
            return view().rubberDrag || view().panDrag || view().zoomDrag || view().rectActive;
        }
    }

    EditorFixture fixture;
    MouseHand hand;
    QStringList names;

private:
    void addCurve(Chance& chance, const QString& name, const bool& hasKeys)
    {
        static const QList<const char*> texts{"t*2", "sin(t)*5+20", "n.a+1"};
        const char* const text = hasKeys ? texts[chance.below(2)] : chance.oneOf(texts);
        const int kind = chance.below(hasKeys ? 2 : 3);
        LentCurve& curve = fixture.addCurve(name, {}, kind == 0 ? nullptr : text);
        names.append(name);
        if (kind == 2) {
            return; // an expression alone
        }
        curve.spline.setAddFunc(kind == 1);
        for (int key = 2 + chance.below(5); key > 0; --key) {
            const auto type = static_cast<zk_spline::interpolationType>(chance.below(4));
            PointInfo* const point =
                curve.addKey(chance.number() * 2.0, chance.number() * 2.0, type);
            point->bezier.tangentRight = chance.offset();
            point->bezier.tangentLeft = chance.offset();
            point->unifiedTangents = chance.chance(30);
            curve.spline.setBezier(point, point->bezier);
        }
        curve.spline.setLastNodeType(static_cast<SplineBase::nodeType>(chance.below(5)));
    }
};

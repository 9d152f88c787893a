#pragma once

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "commands/CurveCommand.h"
#include "curves/CurveNode.h"
#include "editor/CurveEditor.h"
#include "graphs/SplineCurveGraph.h"
#include "support/LentCurve.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include <initializer_list>
#include <map>
#include <memory>

/// A shown editor whose canvas has 500 by 400 pixels over 50 seconds and 40 units of value: ten
/// pixels are one second or one unit, and pixel (0, 400) is the origin.
class EditorFixture
{
public:
    struct Key
    {
        double time;
        double value;
        zk_spline::interpolationType type = zk_spline::linear;
    };

    EditorFixture()
        : editor(nullptr, qEnvironmentVariable("ZK_ICONS_DIR"))
    {
        canvas().setFixedSize(500, 400);
        editor.resize(1000, 650);
        editor.show();
        QApplication::setActiveWindow(&editor);
        setView(0.0, 50.0, 0.0, 40.0);
        // A host answers undo and redo.
        QObject::connect(&editor, &CurveEditor::curveEditorUndo, &editor,
                         [this] { editor.getCmdManager()->undo(); });
        QObject::connect(&editor, &CurveEditor::curveEditorRedo, &editor,
                         [this] { editor.getCmdManager()->redo(); });
    }

    FunctionEditor& canvas() { return *editor.getFunctionEditor(); }
    CanvasFunctionBase& logic() { return canvas().canvas(); }

    void setView(const double& minX, const double& maxX, const double& minY, const double& maxY)
    {
        editor.setTimeRange(minX, maxX);
        editor.setMinValue(minY);
        editor.setMaxValue(maxY);
        QCoreApplication::processEvents();
    }

    /// Adds "node.name" to the editor and makes it a curve on the canvas; it is not selected.
    LentCurve& addCurve(const QString& name, std::initializer_list<Key> keys,
                        const char* expression = nullptr)
    {
        auto& curve = curves[name];
        curve = std::make_unique<LentCurve>();
        for (const Key& key : keys) {
            curve->addKey(key.time, key.value, key.type);
        }
        if (expression) {
            curve->setExpression(expression);
        }
        const QString node = name.section(QLatin1Char('.'), 0, 0);
        const QString rest = name.section(QLatin1Char('.'), 1);
        editor.addCurve(node, rest, Qt::green, 0.0f, &curve->spline, &curve->expression, -1000.0f,
                        1000.0f, false, true);
        editor.setCurveEditableOn(editor.searchAllNodeList(name));
        return *curve;
    }

    /// The same, and the curve is the only one being edited.
    LentCurve& editCurve(const QString& name, std::initializer_list<Key> keys,
                         const char* expression = nullptr)
    {
        LentCurve& curve = addCurve(name, keys, expression);
        editor.selectNodes(QStringList(name));
        return curve;
    }

    ControlSplineNode& selectionOf(const QString& name)
    {
        return logic().findCurve(name)->splineGraph()->selection();
    }

    /// Selects keys by index, as the user would have done before.
    void selectKeys(const QString& name, std::initializer_list<unsigned> indexes)
    {
        QList<PointInfo*> points;
        for (const unsigned& index : indexes) {
            points.append(curves.at(name)->spline.at(index));
        }
        selectionOf(name).selectPoints(points);
    }

    /// Paints at once, so that grid and pixels are up to date.
    void paint() { canvas().repaint(); }

    static QPoint pixel(const double& time, const double& value)
    {
        return QPoint(qRound(time * 10.0), qRound(400.0 - value * 10.0));
    }

    void send(const QEvent::Type& type, const QPoint& at, const Qt::MouseButton& button,
              const Qt::MouseButtons& buttons,
              const Qt::KeyboardModifiers& modifiers = Qt::NoModifier)
    {
        QMouseEvent event(type, at, canvas().mapToGlobal(at), button, buttons, modifiers);
        QApplication::sendEvent(&canvas(), &event);
    }

    void press(const QPoint& at, const Qt::MouseButton& button = Qt::LeftButton,
               const Qt::KeyboardModifiers& modifiers = Qt::NoModifier)
    {
        send(QEvent::MouseButtonPress, at, button, button, modifiers);
    }

    void moveTo(const QPoint& at, const Qt::MouseButtons& buttons = Qt::LeftButton,
                const Qt::KeyboardModifiers& modifiers = Qt::NoModifier)
    {
        send(QEvent::MouseMove, at, Qt::NoButton, buttons, modifiers);
    }

    void release(const QPoint& at, const Qt::MouseButton& button = Qt::LeftButton,
                 const Qt::KeyboardModifiers& modifiers = Qt::NoModifier)
    {
        send(QEvent::MouseButtonRelease, at, button, Qt::NoButton, modifiers);
    }

    void click(const QPoint& at, const Qt::MouseButton& button = Qt::LeftButton,
               const Qt::KeyboardModifiers& modifiers = Qt::NoModifier)
    {
        press(at, button, modifiers);
        release(at, button, modifiers);
    }

    /// Press, one move and release.
    void drag(const QPoint& from, const QPoint& to,
              const Qt::KeyboardModifiers& modifiers = Qt::NoModifier)
    {
        press(from, Qt::LeftButton, modifiers);
        moveTo(to, Qt::LeftButton, modifiers);
        release(to, Qt::LeftButton, modifiers);
    }

    void doubleClick(const QPoint& at)
    {
        click(at);
        send(QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton);
        release(at);
    }

    void key(const QEvent::Type& type, const int& code,
             const Qt::KeyboardModifiers& modifiers = Qt::NoModifier)
    {
        QKeyEvent event(type, code, modifiers);
        QApplication::sendEvent(&canvas(), &event);
    }

    void typeKey(const int& code, const Qt::KeyboardModifiers& modifiers = Qt::NoModifier)
    {
        key(QEvent::KeyPress, code, modifiers);
        key(QEvent::KeyRelease, code, modifiers);
    }

    void wheel(const QPoint& at, const int& delta,
               const Qt::KeyboardModifiers& modifiers = Qt::NoModifier)
    {
        QWheelEvent event(at, canvas().mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&canvas(), &event);
    }

    /// Undoes everything; the labels of the steps, newest first.
    QStringList undoAll()
    {
        QStringList labels;
        while (curve_editor::CurveCommand* command = editor.getCmdManager()->undo()) {
            labels.append(QString::fromStdString(command->getDescription()));
        }
        return labels;
    }

    /// The labels of the steps that could be undone, newest first; the state is as before.
    QStringList undoSteps()
    {
        const QStringList labels = undoAll();
        for (qsizetype i = 0; i < labels.size(); ++i) {
            editor.getCmdManager()->redo();
        }
        return labels;
    }

    /// Calls `open`, in which a menu runs, and closes that menu; returns whether there was one.
    template <class Open>
    static bool closesMenuOf(const Open& open)
    {
        bool wasOpen = false;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&wasOpen] {
            if (QWidget* menu = QApplication::activePopupWidget()) {
                wasOpen = true;
                menu->close();
            }
        });
        watch.start(0);
        open();
        return wasOpen;
    }

    std::map<QString, std::unique_ptr<LentCurve>> curves; ///< destroyed after the editor
    CurveEditor editor;
};

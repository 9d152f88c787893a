#pragma once

#include <QCoreApplication>
#include <QList>
#include <QStringList>

class CurveNode;
class SplineBase;
class SplineCurveGraph;

/// The curves being edited: leaves of the tree of curve objects, in the order in which they were
/// given, each once. Only they are drawn.
class EditingSet
{
    Q_DECLARE_TR_FUNCTIONS(CanvasFunctionBase) // by which translations know these texts

public:
    EditingSet() = default;
    EditingSet(const EditingSet&) = delete;
    EditingSet& operator=(const EditingSet&) = delete;

    /// @name The curves, none of them owned
    /// @{
    const QList<CurveNode*>& curves() const;
    QList<CurveNode*>::const_iterator begin() const;
    QList<CurveNode*>::const_iterator end() const;
    bool isEmpty() const;
    qsizetype size() const;
    bool contains(const CurveNode* curve) const;
    /// Null if no curve is being edited.
    CurveNode* first() const;
    /// Whether the leaves of these nodes, each once and in this order, are the curves being edited.
    /// Null is passed over.
    bool isExactly(const QList<CurveNode*>& nodes) const;
    /// @}

    /// @name Which they are
    /// @{
    /// Exactly these from now on. A group stands for its leaves; null is passed over. A curve that
    /// is no longer among them loses its selection of keys. A notice is due. Returns the names of
    /// the curves in the order in which they came.
    QStringList replace(const QList<CurveNode*>& nodes);
    /// No curve from now on, and each keeps its selection of keys. Returns those that were.
    QList<CurveNode*> leave();
    /// Takes the curve out, which may be at its end.
    void remove(CurveNode* curve);
    /// Listeners are still to hear of the last change a second time: see
    /// CanvasFunctionBase::updateCanvas.
    bool isNoticeDue() const;
    void noticeGiven();
    /// @}

    /// @name What the set says of itself
    /// @{
    QStringList names() const;
    /// The graph of each curve.
    QList<SplineCurveGraph*> graphs() const;
    /// The graphs of those curves that have keys to edit.
    QList<SplineCurveGraph*> editableGraphs() const;
    /// The spline of the first curve, null if there is none.
    SplineBase* firstSpline() const;
    /// Its dotted name, or "None".
    QString firstName() const;
    /// See files/CurveType.h: the type of the first curve, mixed when it or another one that
    /// differs is a plain spline; expression when no curve is being edited.
    int type() const;
    /// What the expression line shows: "..." where the expressions differ.
    QString lineText() const;
    /// @}

private:
    QStringList enter(CurveNode* node);

    QList<CurveNode*> editing; ///< not owned
    bool noticeDue = false;
};

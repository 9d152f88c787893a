#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class FunctionFloatBase;
class SplineBase;

namespace curve_editor {

class CommandContext;
struct NodeStruct;

/// Exchanges keys and all other fields of two splines: each key keeps its one owner.
void exchangeContents(SplineBase& a, SplineBase& b);

/// The whole contents of some curves in two versions, the old and the new one. Of each curve one
/// version stands in the host's spline, and this object holds and frees the other. An exchange
/// moves the keys themselves, so whatever the host did to a spline while its content was in place
/// goes with it and comes back with it.
///
///     CurveContents contents(context);
///     contents.copyCurveForUndo(record, std::move(newKeys), newExpression);
///     contents.restoreCurveContent(CurveContents::newCurves);
///
/// A curve is known by its record: it may be renamed or removed. Once its spline is destroyed the
/// curve is passed over for good. Keys of a spline that several records share are exchanged once.
class CurveContents
{
public:
    /// Which of the two versions is meant.
    enum Version : int
    {
        oldCurves,
        newCurves
    };

    explicit CurveContents(CommandContext& context);
    ~CurveContents();
    CurveContents(const CurveContents&) = delete;
    CurveContents& operator=(const CurveContents&) = delete;

    /// Notes a whole curve, and the keys and the text of the expression that are to come in place
    /// of its own; what it holds now is the old version. Nothing is exchanged by that. A curve that
    /// never had a spline has no use for the keys. Returns the place, in nodes, of the record whose
    /// keys were taken: an earlier one that has the same spline, or this one.
    qsizetype copyCurveForUndo(NodeStruct* node, std::unique_ptr<SplineBase> keys,
                               const std::optional<QString>& expression);

    /// Both put one version in place where the other one stands, and drop the keys that are gone
    /// from the selections. A box tells of each text that does not parse; false if nothing of the
    /// context is left after it, and the curves behind that one keep their expression.
    ///
    /// Through the curve on the canvas, which also says when it now depends on itself.
    bool restoreCurveContent(const Version& version);
    /// Straight into the record, whether the curve is on the canvas or not.
    bool restoreRecordContent(const Version& version);

    const QList<NodeStruct*>& nodes() const;

private:
    struct Entry
    {
        NodeStruct* node = nullptr;            ///< not owned: the catalogue's
        std::unique_ptr<SplineBase> otherKeys; ///< the version not in place; null where shared
        std::optional<QString> oldText;        ///< of the expression
        std::optional<QString> newText;
        bool newCurveActive = false; ///< which version stands in the host's spline and slot
    };

    std::vector<std::size_t> exchangeKeys(const Version& version);
    const std::optional<QString>& textOf(const std::size_t& entry, const Version& version) const;
    void writeExpression(const NodeStruct* node, std::unique_ptr<FunctionFloatBase> expression);

    CommandContext* context; ///< not owned
    std::vector<Entry> entries;
    QHash<const SplineBase*, qsizetype> keysPlaces; ///< where each spline's keys are exchanged
    QList<NodeStruct*> records;                     ///< those of the entries, in order
};

} // namespace curve_editor

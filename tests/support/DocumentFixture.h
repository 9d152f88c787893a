#pragma once

#include "commands/CommandContext.h"
#include "commands/CurveCommand.h"
#include "commands/CurveCommandsManager.h"
#include "curves/Catalogue.h"
#include "curves/CurveHost.h"
#include "curves/CurveNode.h"
#include "curves/CurveTree.h"
#include "curves/DependencyWalk.h"
#include "curves/DottedName.h"
#include "curves/EditingSet.h"
#include "graphs/SplineCurveGraph.h"
#include "support/LentCurve.h"

#include <QTest>

#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <utility>

/// A document that nobody shows: what commands need, and a list of what they asked for.
class DocumentFixture : public curve_editor::CommandContext, private CurveHost
{
public:
    using NodeStruct = curve_editor::NodeStruct;

    struct Key
    {
        double time;
        double value;
        zk_spline::interpolationType type = zk_spline::linear;
    };

    DocumentFixture() { manager.setMaxStackSize(10); }

    /// @name What a host and a user do
    /// @{
    /// Lists "node.name" and makes it a curve on the canvas; it is not selected.
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
        lend(name, &curve->spline, &curve->expression);
        return *curve;
    }

    /// The same, and the curve is the only one being edited.
    LentCurve& editCurve(const QString& name, std::initializer_list<Key> keys,
                         const char* expression = nullptr)
    {
        LentCurve& curve = addCurve(name, keys, expression);
        edit({name});
        return curve;
    }

    /// The same as addCurve with what the caller owns.
    NodeStruct* lend(const QString& name, SplineBase* spline, FunctionFloatBase** slot)
    {
        const auto parts = curve_editor::DottedName::fromText(name);
        listCurve(NodeStruct::lent(parts.node, parts.curve, Qt::green, 0.0f, spline, slot, -1000.0f,
                                   1000.0f, true));
        enterCanvas(record(name), nullptr);
        return record(name);
    }

    NodeStruct* record(const QString& name) const { return records.find(name); }

    QList<NodeStruct*> recordsOf(const QStringList& names) const
    {
        QList<NodeStruct*> found;
        for (const QString& name : names) {
            found.append(record(name));
        }
        return found;
    }

    /// Exactly these curves are being edited, and nobody counts it.
    void edit(const QStringList& names)
    {
        select(names);
        calls.clear();
    }

    void removeCurve(const QString& name)
    {
        const auto parts = curve_editor::DottedName::fromText(name);
        unlistCurve(parts.node, parts.curve);
    }

    /// A listed curve gets another name under its node, and its object with it.
    void renameCurve(const QString& name, const QString& newName)
    {
        NodeStruct* const renamed = record(name);
        CurveNode* const object = objects.findCurve(name);
        renamed->curveName = curve_editor::DottedName::fromText(newName).curve;
        renamed->dotName = newName;
        records.nameHasChanged(renamed);
        object->setDotName(newName);
    }

    ControlSplineNode& selectionOf(const QString& name) const
    {
        return objects.findCurve(name)->splineGraph()->selection();
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

    /// All keys of the curves being edited.
    void selectAllKeys()
    {
        for (CurveNode* curve : editing) {
            QList<PointInfo*> points;
            for (unsigned i = 0; i < curve->spline()->getControlPointsNumber(); ++i) {
                points.append(curve->spline()->at(i));
            }
            curve->splineGraph()->selection().selectPoints(points);
        }
    }

    /// Undoes everything; the labels of the steps, newest first.
    QStringList undoAll()
    {
        QStringList labels;
        while (curve_editor::CurveCommand* command = manager.undo()) {
            labels.append(QString::fromStdString(command->getDescription()));
        }
        return labels;
    }
    /// @}

    /// @name What has been asked for since the last call
    /// @{
    /// In order: a report as "node|curve", a box as "box: " and its title, and "refresh", "line",
    /// "keys" and "repaint".
    QStringList takeCalls() { return std::exchange(calls, {}); }

    /// The reports alone.
    QStringList takeReports() { return takeCalls().filter(QStringLiteral("|")); }
    /// @}

    const curve_editor::Catalogue& catalogue() const override { return records; }
    const CurveTree& tree() const override { return objects; }
    const EditingSet& editingSet() const override { return editing; }
    curve_editor::KeyDefaults keyDefaults() const override { return defaults; }
    QStringList selection() const override { return selected; }

    void listCurve(const NodeStruct& content) override
    {
        if (!records.findMainNode(content.mainNodeName)) {
            records.addMainNode(content.mainNodeName);
        }
        if (!record(content.dotName)) {
            records.addNode(content);
        }
    }

    void unlistCurve(const QString& node, const QString& curve) override
    {
        const QString name = curve_editor::DottedName(node, curve).text();
        NodeStruct* const gone = record(name);
        leaveCanvas(name);
        if (gone) {
            records.removeNode(gone);
        }
    }

    void enterCanvas(NodeStruct* entering, CurveNode* object) override
    {
        if (entering && !entering->isEditing) {
            entering->isEditing = objects.attach(object) || objects.add(*entering);
        }
    }

    void enterSelected(const QString& node, const QString& curve) override
    {
        enterSelected(node, curve, nullptr);
    }

    void enterSelected(const QString& node, const QString& curve, CurveNode* object) override
    {
        const QString name = curve_editor::DottedName(node, curve).text();
        enterCanvas(record(name), object);
        select({name});
    }

    void leaveCanvas(const QString& dotName) override
    {
        objects.remove(dotName);
        if (NodeStruct* const left = record(dotName)) {
            left->isEditing = false;
        }
    }

    void setColor(NodeStruct* coloured, const QColor& color) override { coloured->color = color; }

    void select(const QStringList& dotNames) override
    {
        selected = dotNames;
        objects.edit(objects.findAll(dotNames));
        refresh();
        refreshExpressionLine();
    }

    void reportOne(const QString& node, const QString& curve) override
    {
        const CurveNode* const shown =
            objects.findCurve(curve_editor::DottedName(node, curve).text());
        if (isBlocked || (shown && !shown->notifiesHost())) {
            return;
        }
        note(node + QLatin1Char('|') + curve);
    }

    using CommandContext::report;
    void report(const QStringList& dotNames) override
    {
        for (const QString& name : dotNames) {
            const auto parts = curve_editor::DottedName::fromText(name);
            reportOne(parts.node, parts.curve);
        }
        refresh();
    }

    bool blockReports(const bool& block) override { return std::exchange(isBlocked, block); }
    void refresh() override { note(QStringLiteral("refresh")); }
    void refreshKeysDialog() override { note(QStringLiteral("keys")); }
    void repaint() override { note(QStringLiteral("repaint")); }

    void refreshExpressionLine() override
    {
        lineText = editing.lineText();
        note(QStringLiteral("line"));
    }

    bool tell(const curve_editor::Problems& problems) override
    {
        for (const curve_editor::Problem& problem : problems) {
            note(QStringLiteral("box: ") + problem.title);
            texts.append(problem.text);
        }
        return problems.isEmpty() || survivesBoxes;
    }

    QString textOf(const CommandLine* /*line*/) const override { return lineText; }

    void showParsed(CommandLine* /*line*/, const ParseMessage& message) override
    {
        lineText = QString::fromLocal8Bit(message.expressionText.c_str());
        parsed = message;
    }

    /// Called for each entry of calls.
    std::function<void(const QString& call)> whenCalled;
    QStringList texts; ///< of the boxes
    bool survivesBoxes = true;
    curve_editor::KeyDefaults defaults;
    QString lineText; ///< of the expression line
    ParseMessage parsed;

    std::map<QString, std::unique_ptr<LentCurve>> curves; ///< destroyed after all that names them

private:
    ViewPort* view() const override { return nullptr; }
    int labelDecimals() const override { return 2; }
    const ParserScope* parserScope() const override { return &records.parserScope(); }
    void createNodeAtCursor(CurveNode* /*curve*/) override {}

    bool dependsOnItself(const QString& parserName, QString& offender) const override
    {
        const NodeStruct* const found =
            curve_editor::dependencyCulprit(records, parserName, parserName);
        offender = found ? found->dotName : offender;
        return found;
    }

    void note(const QString& call)
    {
        calls.append(call);
        if (whenCalled) {
            whenCalled(call);
        }
    }

    QStringList calls;
    QStringList selected;
    bool isBlocked = false;
    curve_editor::Catalogue records;
    EditingSet editing;
    CurveTree objects{editing, this};

public:
    curve_editor::CurveCommandsManager manager{curve_editor::CurveCommandsManager::instance()};
};

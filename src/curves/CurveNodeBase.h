#pragma once

#include "curves/CurveNode.h"
#include "curves/SplineHandle.h"

#include <QColor>
#include <QObject>

#include <memory>

class ExpressionCurveGraph;
class FunctionParserBase;
class QXmlStreamReader;
class QXmlStreamWriter;

/// One curve as the editor sees it: joins the host's spline and the host's expression slot under
/// one dotted name, evaluates and draws it. Neither spline nor slot is owned; the expression in
/// the slot is replaced and deleted here.
class CurveNodeBase : public QObject, public CurveNode
{
    Q_OBJECT

public:
    CurveNodeBase(CanvasFunctionBase* canvas, const QString& name, const QString& path,
                  const QColor& color, float curveValue, SplineBase* spline,
                  FunctionFloatBase** expressionSlot, float minimumValue, float maximumValue,
                  bool notifiesHost);
    ~CurveNodeBase() override;

    bool isCurve() const override;
    void setColor(const QColor& color, const QColor& background) override;
    void updateGraph(ViewPort* viewport) override;
    QList<CurveNode*>* children() override;
    void addChild(CurveNode* child) override;
    int curveType() override;
    QList<SplineBase*> splines() override;
    SplineBase* spline() override;
    FunctionFloatBase* expression() override;
    FunctionFloatBase** expressionSlot() override;
    void draw(ViewPort* viewport, QPainter* painter) override;
    CurveNode* findNode(const QString& dotName) override;
    void setActive(bool active) override;
    void removeExpression(const bool& remove) override;
    void setDotName(const QString& dotName) override;
    void removeNode(const QString& dotName) override;
    SplineCurveGraph* splineGraph() override;
    void setExpression(FunctionFloatBase* expression, ParseMessage& message) override;
    void markChanged() override;
    void setAddFunc(const bool& add) override;
    void reset() override;
    void setPath(const QString& path) override;

    /// The curve's value at a time in seconds, held between minimum and maximum.
    double evaluate(const double& time);
    QColor curveColor() const;
    float curveValue() const;
    float minimumValue() const;
    float maximumValue() const;

    /// Screen data must be rebuilt.
    bool hasChanged() const;

    void saveXML(const QString& path);
    bool LoadXML(const QString& path, FunctionParserBase* parser);
    bool LoadXmlStream(QXmlStreamReader& reader, FunctionParserBase* parser);
    void writeXmlStream(QXmlStreamWriter& writer);

public slots:
    void splineChanged();

signals:
    void curveHasChanged(QString& nodeName, QString& curveName);

private slots:
    void createNodeAtCursor();

private:
    bool needsUpdate(const ViewPort* viewport);
    void sampleExpression(ViewPort* viewport);

    bool changed = false;
    SplineHandle hostSpline;
    FunctionFloatBase** slot; ///< the host's; left alone once its spline is destroyed
    std::unique_ptr<SplineCurveGraph> keysGraph;
    std::unique_ptr<ExpressionCurveGraph> expressionGraph;
    float storedCurveValue;
    float minimum;
    float maximum;
};

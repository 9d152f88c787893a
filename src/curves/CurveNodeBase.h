#pragma once

#include "core/SplineHandle.h"
#include "curves/CurveNode.h"
#include "curves/FileReading.h"

#include <QColor>
#include <QObject>

#include <iosfwd>
#include <memory>

class ExpressionCurveGraph;
class FunctionParserBase;
class ParserScope;
struct PointInfo;
class QXmlStreamReader;
class QXmlStreamWriter;

namespace curve_editor {
struct NodeStruct;
} // namespace curve_editor

namespace curve_files {
struct CurveContent;
} // namespace curve_files

/// One curve as the editor sees it: joins the host's spline and the host's expression slot under
/// one dotted name, evaluates and draws it.
///
///     auto* curve = new CurveNodeBase(canvas, "width", "body", Qt::red, 0, &spline, &expression,
///                                     0, 10, true);
///     const double width = curve->evaluate(1.5);
///
/// Neither spline nor slot is owned; the expression in the slot is replaced and deleted here.
/// Once the host has destroyed the spline the curve has neither spline nor slot: it draws nothing
/// and evaluates as a spline of value 0.
class CurveNodeBase : public QObject, public CurveNode
{
    Q_OBJECT

public:
    /// `canvas`, `spline`, `expressionSlot` and the expression in it may each be null. Values are
    /// held between minimum and maximum. `curveValue` is only stored and handed on to copies.
    CurveNodeBase(CanvasFunctionBase* canvas, const QString& name, const QString& path,
                  const QColor& color, float curveValue, SplineBase* spline,
                  FunctionFloatBase** expressionSlot, float minimumValue, float maximumValue,
                  bool notifiesHost);
    /// A curve made for a tree, which knows it from now on, of what the record lends.
    CurveNodeBase(CurveTree& tree, const curve_editor::NodeStruct& record);
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
    /// A name without a point gives a path equal to the name.
    void setDotName(const QString& dotName) override;
    void removeNode(const QString& dotName) override;
    SplineCurveGraph* splineGraph() override;
    /// Takes the expression into the slot, owned from now on by the host, and deletes the one
    /// that was there, unless it is the same. Without a slot the expression is freed. When the
    /// curve now depends on itself, a box says so and the message marks where: kind 2, spans in
    /// bytes of its text.
    void setExpression(FunctionFloatBase* expression, ParseMessage& message) override;
    /// The same without a box: what that would tell comes back.
    curve_editor::Problems takeExpression(std::unique_ptr<FunctionFloatBase> expression,
                                          ParseMessage& message);
    void markChanged() override;
    void setAddFunc(const bool& add) override;
    /// Deletes the expression, empties selection and spline, and reports the change.
    void reset() override;
    void setPath(const QString& path) override;

    /// The curve's value at a time in seconds, held between minimum and maximum.
    double evaluate(const double& time);
    QColor curveColor() const;
    float curveValue() const;
    float minimumValue() const;
    float maximumValue() const;

    /// Whose names expressions that are read from files read first: that of the canvas, or of the
    /// curve that this one is a detached copy of. Not owned; null for neither.
    const ParserScope* parserScope() const;
    /// Lets a curve without a canvas read the names that another one reads.
    void readNamesAs(const CurveNodeBase& other);

    /// Screen data must be rebuilt.
    bool hasChanged() const;
    /// @name Retained pictures of the curve
    /// @{
    /// It is drawn, as a spline without an expression, and nobody has marked a change since.
    bool isPlain();
    /// Brings the screen data up to date as far as what it is made from has changed, and tells by
    /// a number all that paintGraph paints, but for the view and what belongs to all curves. 0
    /// where it paints nothing.
    std::uint64_t refreshGraph(ViewPort* viewport);
    /// Paints the screen data as it is.
    void paintGraph(ViewPort* viewport, QPainter* painter);
    /// @}

    /// Frees the screen data of a curve that is not to be drawn for some time.
    void dropPixels();

    /// @name The XML curve file
    /// @{
    /// Writes the curve to a file; on a failure the old file stays, without a word.
    void saveXML(const QString& path);
    /// Reads a file into spline and slot, with the parser for the expression. False when it
    /// cannot be opened, or after a message box that tells the error.
    bool LoadXML(const QString& path, FunctionParserBase* parser);
    /// The same without a box: what that would tell comes back.
    curve_editor::FileReading readXml(const QString& path, FunctionParserBase* parser);
    /// The same from a reader that stands on the start of a `curve` element, without any box.
    /// On an error, which the reader then holds, nothing has changed.
    bool LoadXmlStream(QXmlStreamReader& reader, FunctionParserBase* parser);
    void writeXmlStream(QXmlStreamWriter& writer);
    /// Reads on from the start element `point`. The caller owns the key; null after an error.
    static PointInfo* readControlPoint(QXmlStreamReader& reader);
    /// Whether the reader stands on an end element, of whatever name.
    static bool isEndOf(QXmlStreamReader& reader, const QString& name);
    /// Lets the reader fail with the message and the line and column of its place.
    static void raiseXmlError(QXmlStreamReader& reader, const QString& message);
    /// The texts of the file for numbers; "unknown" for a number without one.
    static QString curveTypeName(const int& type);
    static QString nodeTypeName(const int& type);
    static QString interpolationTypeName(const int& type);
    /// The numbers of texts in any case of letters; -1 for one that is none of them.
    static int nodeTypeFromName(const QString& name);
    static int interpolationTypeFromName(const QString& name);
    /// @}

    /// @name The older curve file
    /// @{
    /// Reads a file into spline and slot, with the parser for the expression, of which only the
    /// first word is read. Says nothing when the file cannot be opened; a type that is none of
    /// the three shows a box. In both cases nothing has changed. Keys that do not read leave the
    /// old ones. A curve that keeps its expression while a spline is read is no sum any more.
    void loadCrv(const QString& path, FunctionParserBase* parser);
    /// The same without a box: what that would tell comes back.
    curve_editor::Problems readCrv(const QString& path, FunctionParserBase* parser);
    /// Writes the file from the curve type on; the three lines of the colour come before.
    void saveCrv(std::ofstream& stream);
    void saveCrv(std::ostream& stream);
    /// @}

public slots:
    /// The host edited the spline: the pixels are to be rebuilt.
    void splineChanged();

protected:
    /// The curve changed. Connected to by its signature, from outside too.
    Q_SIGNAL void curveHasChanged(QString& nodeName, QString& curveName);

private slots:
    void createNodeAtCursor();

private:
    CurveNodeBase(CurveTree* tree, const QString& name, const QString& path,
                  const curve_editor::NodeStruct& content);

    FunctionFloatBase** livingSlot() const;
    double framesPerSecond() const;
    int labelDecimals() const;

    bool isActive(const int& type) const;
    bool needsUpdate(const ViewPort* viewport) const;
    void postponeUpdate();
    void clearChangedFlags();
    void sample(ViewPort& viewport, const int& type);
    void sampleExpression(const ViewPort& viewport);
    void drawKeys(ViewPort* viewport, QPainter* painter);

    bool dependsOnItself(QString& offender) const;
    curve_files::CurveContent content();
    void takeContent(const curve_files::CurveContent& read, FunctionParserBase* parser);

    bool changed = false;
    curve_editor::SplineHandle hostSpline;
    FunctionFloatBase** slot; ///< the host's; left alone once its spline is destroyed
    std::unique_ptr<SplineCurveGraph> keysGraph;
    std::unique_ptr<ExpressionCurveGraph> expressionGraph;
    std::uint64_t sampledFrom = 0; ///< what the screen data was made from; 0 if that is unknown
    float storedCurveValue;
    float minimum;
    float maximum;
    const ParserScope* scopeWithoutCanvas = nullptr; ///< not owned; outlives the curve
};

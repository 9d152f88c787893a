// Draws the pictures of docs/expressions.md: reads the document, shows the formula of each worked
// example in an editor and saves what the canvas shows at the place that the document names.

#include <core/FunctionFloatBase.h>
#include <core/FunctionParserBase.h>
#include <core/KeyValue.h>
#include <core/ParseMessage.h>
#include <core/SplineBase.h>
#include <editor/CurveEditor.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextStream>
#include <QTreeWidget>

#include <algorithm>
#include <memory>

namespace {

constexpr double seconds = 10.0;
constexpr double fps = 25.0;
constexpr QSize pictureSize(640, 280);
const QColor ownColor(0xffb347);
const QColor leaderColor(0x5fa8d3);

struct Example
{
    QString formula;
    QString picture; // relative to the document
};

/// A formula is an indented line below a heading of level 3, and its picture follows.
QList<Example> examplesOf(const QString& document)
{
    static const QRegularExpression pattern(
        QStringLiteral("^### [^\n]+\n\n    ([^\n]+)\n.*?\\]\\((pictures/[^)]+)\\)"),
        QRegularExpression::MultilineOption | QRegularExpression::DotMatchesEverythingOption);
    QList<Example> examples;
    QRegularExpressionMatchIterator matches = pattern.globalMatch(document);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        examples.append({match.captured(1), match.captured(2)});
    }
    return examples;
}

/// A curve with keys for the others to follow.
void addLeaderKeys(SplineBase& spline)
{
    spline.addPoint(0.0, 1.0);
    spline.addPoint(2.5, 5.0);
    spline.addPoint(5.0, 2.0);
    spline.addPoint(7.5, 4.0);
    spline.addPoint(10.0, 1.0);
}

/// The range of values over the seconds shown.
struct Range
{
    double lowest = 0.0;
    double highest = 0.0;

    void take(double value)
    {
        lowest = std::min(lowest, value);
        highest = std::max(highest, value);
    }
};

void takeExpression(Range& range, const FunctionFloatBase& expression)
{
    FunctionParserBase* parser = FunctionParserBase::instance();
    for (int frame = 0; frame <= static_cast<int>(seconds * fps); ++frame) {
        writeKeyValue(parser->getKey("t"), frame / fps);
        writeKeyValue(parser->getKey("f"), frame);
        range.take(expression.value());
    }
}

QWidget* canvasOf(const CurveEditor& editor)
{
    const QList<QWidget*> children = editor.findChildren<QWidget*>();
    const auto found = std::find_if(children.begin(), children.end(), [](const QWidget* child) {
        return qstrcmp(child->metaObject()->className(), "FunctionEditor") == 0;
    });
    return found == children.end() ? nullptr : *found;
}

void setLook(CurveEditor& editor)
{
    editor.setCanvasColor(QColor(0x20232a));
    editor.setFrameFontColor(QColor(0xd8d8d8));
    editor.setFrameLinesColor(QColor(0x343943));
    editor.setFrameHLineColor(QColor(0x6a7180));
    editor.setFrameVLineColor(QColor(0x6a7180));
    editor.setControlPointColor(QColor(0xe8eef4));
    editor.setTimeLineColor(QColor(0x20232a));
}

bool drawExample(const Example& example, const QString& path)
{
    SplineBase leader;
    SplineBase unused;
    std::unique_ptr<FunctionFloatBase> tree;
    FunctionFloatBase* noExpression = nullptr;
    FunctionFloatBase* slot = nullptr; // what the tree holds
    addLeaderKeys(leader);
    CurveEditor editor(nullptr, QStringLiteral(ICONS_DIR));
    setLook(editor);
    editor.setFps(fps);
    editor.setShowTime();
    const bool follows = example.formula.contains(QLatin1String("body.height"));
    editor.addCurve("body", "height", leaderColor, 0, &leader, &noExpression, -1000, 1000, follows,
                    true);

    ParseMessage message;
    tree.reset(
        FunctionParserBase::instance()->parseString(example.formula.toStdString(), message, false));
    if (!tree) {
        return false;
    }
    slot = tree.get();
    editor.addCurve("example", "curve", ownColor, 0, &unused, &slot, -1000, 1000, true, true);

    Range range;
    takeExpression(range, *tree);
    for (unsigned i = 0; follows && i < leader.getControlPointsNumber(); ++i) {
        range.take(leader[i]->value);
    }
    const double margin = (range.highest - range.lowest) * 0.12;
    QWidget* canvas = canvasOf(editor);
    canvas->setFixedSize(pictureSize);
    editor.show();
    editor.findChild<QTreeWidget*>()->selectAll();
    editor.setTimeRange(-0.6, seconds + 0.35);
    editor.setMinValue(range.lowest - margin);
    editor.setMaxValue(range.highest + margin);
    QCoreApplication::processEvents();
    return canvas->grab().toImage().convertToFormat(QImage::Format_RGB888).save(path);
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setFont(QFont(QStringLiteral("Liberation Sans"), 9));
    QTextStream out(stdout);
    QFile document(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString());
    if (!document.open(QIODevice::ReadOnly)) {
        out << "usage: expression_pictures DOCUMENT\n";
        return 1;
    }
    const QDir folder = QFileInfo(document).absoluteDir();
    bool areDrawn = true;
    for (const Example& example : examplesOf(QString::fromUtf8(document.readAll()))) {
        const QString path = folder.filePath(example.picture);
        const bool isDrawn = drawExample(example, path);
        out << example.formula << (isDrawn ? ": " : ": NOT drawn, ") << path << '\n';
        areDrawn = areDrawn && isDrawn;
    }
    return areDrawn ? 0 : 1;
}

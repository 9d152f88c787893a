// docs/expressions.md tells animators what they may type: what it states must hold.

#include "editor/MenuTable.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/ParserVariable.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>

#include <cmath>

namespace {

class Document
{
public:
    Document()
        : folder(qEnvironmentVariable("ZK_DOCS_DIR"))
    {
        QFile file(folder.filePath("expressions.md"));
        if (file.open(QIODevice::ReadOnly)) {
            text = QString::fromUtf8(file.readAll());
        }
    }

    /// The rows of all tables whose first two headings are these, cut into cells.
    QList<QStringList> rowsBelow(const QString& first, const QString& second) const
    {
        QList<QStringList> rows;
        bool isInside = false;
        for (const QString& line : text.split('\n')) {
            const QStringList cells = cellsOf(line);
            if (cells.size() < 2) {
                isInside = false;
            } else if (cells[0] == first && cells[1] == second) {
                isInside = true;
            } else if (isInside && !cells[0].startsWith("---")) {
                rows.append(cells);
            }
        }
        return rows;
    }

    /// Formula and path of the picture of each worked example.
    QList<QStringList> examples() const
    {
        const QRegularExpression pattern(
            "^### \\d+\\. [^\n]+\n\n    ([^\n]+)\n(?:(?!^###).)*?\\]\\((pictures/[^)]+)\\)",
            QRegularExpression::MultilineOption | QRegularExpression::DotMatchesEverythingOption);
        QList<QStringList> found;
        QRegularExpressionMatchIterator matches = pattern.globalMatch(text);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            found.append({match.captured(1), folder.filePath(match.captured(2))});
        }
        return found;
    }

    /// What stands between the back quotes of a cell.
    static QString code(const QString& cell) { return cell.section('`', 1, 1); }

    QDir folder;
    QString text;

private:
    static QStringList cellsOf(const QString& line)
    {
        if (!line.startsWith('|')) {
            return {};
        }
        QString inner = line.mid(1, line.lastIndexOf('|') - 1);
        inner.replace("\\|", "\u0001"); // a bar within a cell
        QStringList cells = inner.split('|');
        for (QString& cell : cells) {
            cell = cell.replace("\u0001", "|").trimmed();
        }
        return cells;
    }
};

double numberOf(const QString& cell)
{
    return cell == "nan" ? std::nan("") : cell.toDouble();
}

} // namespace

class TestExpressionDocument : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void everyEntryOfTheInsertMenuStandsInATable_data();
    void everyEntryOfTheInsertMenuStandsInATable();
    void everyFunctionOfTheTablesIsTakenAsItIsWritten();
    void everyConstantHasItsValue();
    void everyStatedValueHolds_data();
    void everyStatedValueHolds();
    void everyStatedErrorIsReported_data();
    void everyStatedErrorIsReported();
    void thereAreTenWorkedExamplesWithPictures();
    void aFormulaNamesACurveInLowerCaseOrInCapitalsOfAToZ();
    void aFormulaReadsZeroWhileNoCurveHasTheName();

private:
    static double valueOf(const char* formula);

    const Document document;
};

void TestExpressionDocument::everyEntryOfTheInsertMenuStandsInATable_data()
{
    QTest::addColumn<QString>("word");
    for (const curve_editor::InsertRow& row : curve_editor::insertRows()) {
        for (const char* text : row.texts) {
            const QString word = QString(text).replace("&&", "&");
            QTest::newRow(text) << word;
        }
    }
}

void TestExpressionDocument::everyEntryOfTheInsertMenuStandsInATable()
{
    QFETCH(QString, word);
    const QRegularExpression inCode("`" + QRegularExpression::escape(word) + "[`(]");
    bool isFound = false;
    const QString text = QString(document.text).replace("\\|", "|");
    for (const QString& line : text.split('\n')) {
        isFound = isFound || (line.startsWith("| `") && line.contains(inCode));
    }
    QVERIFY2(isFound, qPrintable(word));
}

void TestExpressionDocument::everyFunctionOfTheTablesIsTakenAsItIsWritten()
{
    const Variable a("a", 1.0);
    const Variable b("b", 2.0);
    const Variable c("c", 3.0);
    const Variable x("x", 0.5);
    const QList<QStringList> rows = document.rowsBelow("function", "what it gives");
    QCOMPARE(rows.size(), 23);
    for (const QStringList& row : rows) {
        QVERIFY2(!std::isnan(valueOf(qPrintable(Document::code(row[0])))), qPrintable(row[0]));
    }
}

void TestExpressionDocument::everyConstantHasItsValue()
{
    const QList<QStringList> rows = document.rowsBelow("constant", "value");
    QCOMPARE(rows.size(), 3);
    for (const QStringList& row : rows) {
        QCOMPARE(valueOf(qPrintable(Document::code(row[0]))), row[1].toDouble());
    }
}

void TestExpressionDocument::everyStatedValueHolds_data()
{
    QTest::addColumn<QString>("formula");
    QTest::addColumn<double>("value");
    for (const QStringList& row : document.rowsBelow("formula", "value")) {
        QTest::newRow(qPrintable(row[0])) << Document::code(row[0]) << numberOf(row[1]);
    }
}

void TestExpressionDocument::everyStatedValueHolds()
{
    QFETCH(QString, formula);
    QFETCH(double, value);
    LentCurve curve;
    curve.setExpression(qPrintable(formula));
    QVERIFY2(curve.expression, qPrintable(formula));
    const double computed = curve.expression->value();
    const bool isNear = std::abs(computed - value) < 1e-15 * std::max(1.0, std::abs(value));
    QVERIFY2(isNear || computed == value || (std::isnan(computed) && std::isnan(value)),
             qPrintable(QString::number(computed, 'g', 17)));
}

void TestExpressionDocument::everyStatedErrorIsReported_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("marked");
    for (const QStringList& row : document.rowsBelow("line", "the box says")) {
        QTest::newRow(qPrintable(row[0]))
            << Document::code(row[0]) << row[1] << Document::code(row[2]);
    }
}

void TestExpressionDocument::everyStatedErrorIsReported()
{
    QFETCH(QString, line);
    QFETCH(QString, box);
    QFETCH(QString, marked);
    ParseMessage message;
    QVERIFY(!FunctionParserBase::instance()->parseString(line.toStdString(), message, false));
    QCOMPARE(int(message.errorSpans.size()), 1);
    const auto [start, length] = message.errorSpans.front();
    QCOMPARE(line.mid(start, length), marked);
    const QString said = message.errorKind == 1   ? "Variable " + marked + " not found"
                         : message.errorKind == 3 ? "Unmatched parenthesis"
                                                  : "Unknown";
    QCOMPARE(said, box);
}

void TestExpressionDocument::thereAreTenWorkedExamplesWithPictures()
{
    const Variable height("body.height", 3.0);
    const QList<QStringList> examples = document.examples();
    QCOMPARE(examples.size(), 10);
    QStringList pictures;
    for (const QStringList& example : examples) {
        LentCurve curve;
        curve.setExpression(qPrintable(example[0]));
        QVERIFY2(curve.expression, qPrintable(example[0]));
        QVERIFY(std::isfinite(curve.expression->value()));
        QVERIFY2(!QImage(example[1]).isNull(), qPrintable(example[1]));
        pictures.append(example[1]);
    }
    QCOMPARE(pictures.removeDuplicates(), 0);
}

void TestExpressionDocument::aFormulaNamesACurveInLowerCaseOrInCapitalsOfAToZ()
{
    EditorFixture fixture;
    fixture.addCurve(QString::fromUtf8("Körper.Höhe"), {{0.0, 7.0}});
    fixture.addCurve("Left Arm.Height", {{0.0, 8.0}});
    fixture.addCurve("sin.x", {{0.0, 9.0}});
    QCOMPARE(valueOf("körper.höhe"), 7.0);
    QCOMPARE(valueOf("Körper.höhe"), 7.0);
    QVERIFY(std::isnan(valueOf("KÖRPER.HÖHE")));
    QCOMPARE(valueOf("Left_Arm.Height"), 8.0);
    QCOMPARE(valueOf("sin.x+sin(0)"), 9.0);
}

void TestExpressionDocument::aFormulaReadsZeroWhileNoCurveHasTheName()
{
    EditorFixture fixture;
    fixture.addCurve("body.height", {{0.0, 7.0}});
    LentCurve follower;
    follower.setExpression("body.height+1");
    QCOMPARE(follower.expression->value(), 8.0);
    fixture.editor.renameCurve("body", "height", "size");
    QCOMPARE(follower.expression->value(), 1.0);
    QVERIFY(std::isnan(valueOf("body.height")));
    fixture.editor.renameCurve("body", "size", "height");
    QCOMPARE(follower.expression->value(), 8.0);
    fixture.editor.removeCurve("body", "height");
    QCOMPARE(follower.expression->value(), 1.0);
    fixture.addCurve("body.height", {{0.0, 5.0}});
    QCOMPARE(follower.expression->value(), 6.0);
}

/// Not a number where the formula can't be parsed.
double TestExpressionDocument::valueOf(const char* formula)
{
    LentCurve curve;
    curve.setExpression(formula);
    return curve.expression ? curve.expression->value() : std::nan("");
}

QTEST_MAIN(TestExpressionDocument)
#include "test_expression_document.moc"

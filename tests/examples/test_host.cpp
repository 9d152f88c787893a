#include "core/FunctionFloatBase.h"
#include "core/SplineBase.h"
#include "curves/CurveFile.h"
#include "support/FailOnWarning.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>

namespace {

struct Run
{
    int exitCode = -1;
    QString output;
    QString errors;
};

/// The host as a user starts it, on the platform of this test.
Run runHost(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(HOST_PROGRAM), arguments);
    Run run;
    if (!process.waitForFinished(120000)) {
        process.kill();
        process.waitForFinished();
        return run;
    }
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.output = QString::fromUtf8(process.readAllStandardOutput());
    run.errors = QString::fromUtf8(process.readAllStandardError());
    return run;
}

const QString& anyCurve()
{
    static const QString path = QStringLiteral(HOST_CURVES_DIR "/boat-scale.xml");
    return path;
}

} // namespace

class TestHost : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theDemonstrationLeavesAPictureAStepAndTheSavedCurve()
    {
        const QTemporaryDir folder;
        const Run run = runHost({"--demo", folder.path()});
        QVERIFY2(run.exitCode == 0, qPrintable(run.output + run.errors));

        const QStringList steps = run.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        const QStringList pictures = QDir(folder.path()).entryList({"*.png"});
        QCOMPARE(steps.size(), 8);
        QCOMPARE(pictures.size(), steps.size());
        for (const QString& picture : pictures) {
            QVERIFY2(!QImage(folder.filePath(picture)).isNull(), qPrintable(picture));
        }

        SplineBase saved;
        SplineBase shipped;
        FunctionFloatBase* slot = nullptr;
        QString error;
        QVERIFY2(curve_editor::readCurveFile(folder.filePath("boat-position-x.xml"), &saved, &slot,
                                             error),
                 qPrintable(error));
        QVERIFY(curve_editor::readCurveFile(HOST_CURVES_DIR "/boat-position-x.xml", &shipped, &slot,
                                            error));
        QCOMPARE(slot, nullptr);
        QCOMPARE(saved.getControlPointsNumber(), shipped.getControlPointsNumber());
        QVERIFY(saved[2]->value < shipped[2]->value);
        QVERIFY(saved[2]->bezier.tangentRight < 0.0);
    }

    void undoingGoesBackToTheValuesOfTheFile()
    {
        const QTemporaryDir folder;
        const Run run = runHost({"--demo", folder.path()});
        QVERIFY2(run.output.contains("undo: key 3 at"), qPrintable(run.output));
        QVERIFY2(run.output.contains("-> key 3 at 5.200 s, 64.00 (Undo Change Control Points"),
                 qPrintable(run.output));
        QVERIFY2(run.output.contains("Undo Move Control Points, Undo Select Control Points)"),
                 qPrintable(run.output));
    }

    void aFileThatCannotBeReadIsReportedWithTheReasonAndTheProgramGoesOn()
    {
        const QTemporaryDir folder;
        const QString bad = folder.filePath("bad.xml");
        QFile file(bad);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<?xml version=\"1.0\"?>\n<curve version=\"1.1\"/>\n");
        file.close();

        const Run run =
            runHost({"--demo", folder.path(), folder.filePath("missing.xml"), bad, anyCurve()});
        QVERIFY2(run.exitCode == 0, qPrintable(run.output + run.errors));
        QVERIFY2(run.errors.contains("missing.xml can't be read"), qPrintable(run.errors));
        QVERIFY2(run.errors.contains("bad.xml can't be read"), qPrintable(run.errors));
        QVERIFY2(run.errors.contains("Unsupported Version: 1.1 > 1.0"), qPrintable(run.errors));
        QVERIFY2(run.output.contains("files.boat_scale"), qPrintable(run.output));
    }

    void filesOfOneNameGetNamesOfTheirOwn()
    {
        const QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkpath("other"));
        const QStringList copies = {folder.filePath("wave.xml"), folder.filePath("other/wave.xml"),
                                    folder.filePath("wave2.xml")};
        for (const QString& copy : copies) {
            QVERIFY(QFile::copy(anyCurve(), copy));
        }
        const Run run = runHost(QStringList{"--demo", folder.path()} + copies);
        QVERIFY2(run.exitCode == 0, qPrintable(run.output + run.errors));
        // A name that another one begins with would be taken for a group of the tree.
        QVERIFY2(run.output.contains("13 of 13"), qPrintable(run.output));
        QVERIFY2(run.output.contains("files.wave, files.2 wave, files.3 wave2"),
                 qPrintable(run.output));
    }

    void aDemonstrationThatCannotLeaveItsPicturesFails()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath("file");
        QVERIFY(QFile::copy(anyCurve(), file));
        const Run run = runHost({"--demo", file});
        QVERIFY(run.exitCode > 0);
        QVERIFY2(run.errors.contains("FAILED: open"), qPrintable(run.errors));
    }
};

QTEST_GUILESS_MAIN(TestHost)

#include "test_host.moc"

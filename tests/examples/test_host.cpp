#include "core/FunctionFloatBase.h"
#include "core/SplineBase.h"
#include "curves/CurveFile.h"
#include "support/FailOnWarning.h"
#include "support/Patience.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
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
Run runHost(const QStringList& arguments, const QString& temporaryFolder = QDir::tempPath())
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("TMPDIR", temporaryFolder);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(HOST_PROGRAM), arguments);
    Run run;
    if (!process.waitForFinished(5 * patience)) {
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

    void theDemonstrationDoesWhatItSaysAndLeavesItsPictures()
    {
        const QTemporaryDir folder;
        const Run run = runHost({"--demo", folder.path()});
        QVERIFY2(run.exitCode == 0, qPrintable(run.output + run.errors));

        const qsizetype steps = run.output.count(QLatin1Char('\n'));
        const QStringList pictures = QDir(folder.path()).entryList({"*.png"});
        // Boxes, menus and dialogs are pictured within their steps.
        QVERIFY2(steps >= 40 && pictures.size() > steps, qPrintable(run.output));
        for (const QString& picture : pictures) {
            QVERIFY2(!QImage(folder.filePath(picture)).isNull(), qPrintable(picture));
        }

        QVERIFY2(run.output.contains("-> key 3 at 5.200 s, 64.00 (Undo Change Control Points"),
                 qPrintable(run.output));
        QVERIFY2(run.output.contains("Syntax error: "), qPrintable(run.output));
        QVERIFY2(run.output.contains("paste and replace on current frame: "),
                 qPrintable(run.output));
        QVERIFY2(run.output.contains("tension 0 -> -1.5"), qPrintable(run.output));
    }

    void theDemonstrationSavesCurvesThatCanBeReadAgain()
    {
        const QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir("Capital")); // saved paths are put into lower case
        const Run run = runHost({"--demo", folder.path()}, folder.filePath("Capital"));
        QVERIFY2(run.exitCode == 0, qPrintable(run.output + run.errors));

        // It has loaded the lantern's curve into the boat's scale before.
        SplineBase shipped;
        FunctionFloatBase* slot = nullptr;
        QString error;
        QVERIFY(curve_editor::readCurveFile(HOST_CURVES_DIR "/lantern-light.xml", &shipped, &slot,
                                            error));
        for (const char* const name : {"boat-scale.xml", "boat.scale.xml", "sail.hue.xml"}) {
            SplineBase saved;
            QVERIFY2(curve_editor::readCurveFile(folder.filePath(name), &saved, &slot, error),
                     qPrintable(error));
            QCOMPARE(slot, nullptr);
            QCOMPARE(saved.getControlPointsNumber(), shipped.getControlPointsNumber());
            QCOMPARE(saved[1]->time, shipped[1]->time);
            QCOMPARE(saved[1]->value, shipped[1]->value);
        }
    }

    void everyActionOfMenusAndToolbarsCanBeTriggered()
    {
        const Run run = runHost({"--every-action"});
        QVERIFY2(run.exitCode == 0, qPrintable(run.output + run.errors));
        QVERIFY2(!run.output.contains("FAILED"), qPrintable(run.output));
        QVERIFY2(run.output.contains("every action: "), qPrintable(run.output));
        for (const char* const action :
             {"File/Reset All Curves", "Edit/Paste/Paste and Replace on Current Frame",
              "Keys/Last Node Behaviour/Loop offset", "View/Toolbars/Undo/Redo",
              "Insert/Unary functions/logj1", "Insert/D vars/boat/position_x",
              "toolbar Snap/Snap to Grid", "tree/Change color"}) {
            QVERIFY2(run.output.contains(QString("action ") + action), action);
        }
    }

    void everyPictureOfTheManualCanBeDrawn()
    {
        const QTemporaryDir folder;
        const Run run = runHost({"--pictures", folder.path()});
        QVERIFY2(run.exitCode == 0, qPrintable(run.output + run.errors));
        QFile manual(QStringLiteral(MANUAL));
        QVERIFY(manual.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(manual.readAll());
        const QRegularExpression link(QStringLiteral("pictures/editor/([a-z-]+\\.png)"));
        int pictures = 0;
        for (auto match = link.globalMatch(text); match.hasNext(); ++pictures) {
            const QString name = match.next().captured(1);
            QVERIFY2(QFile::exists(folder.filePath(name)), qPrintable(name));
        }
        QVERIFY(pictures > 10);
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

#include "curves/OlderCurveFileTest.h"
#include "files/DeviceStreamBuffer.h"
#include "files/FileReplacement.h"
#include "support/Denied.h"
#include "support/LowerCaseDir.h"

#include <QFileInfo>
#include <QTest>

#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>

/// Whatever hinders a save, the file that was there stays, nothing is left beside it, and nobody
/// is told.
class TestSavingOverFiles : public OlderCurveFileTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theNewFileReplacesTheOldOne_data() { formats(); }
    void theNewFileReplacesTheOldOne();
    void bothWaysOfWritingTheOlderFileGiveTheSameBytes_data() { formats(); }
    void bothWaysOfWritingTheOlderFileGiveTheSameBytes();
    void aFullDiskLeavesTheOldFile_data() { formats(); }
    void aFullDiskLeavesTheOldFile();
    void aFullDiskLeavesNoNewFile_data() { formats(); }
    void aFullDiskLeavesNoNewFile();
    void aFolderThatTakesNoSecondFileTakesTheNewText_data() { formats(); }
    void aFolderThatTakesNoSecondFileTakesTheNewText();
    void aShorterTextWrittenInPlaceLeavesNoRest_data() { formats(); }
    void aShorterTextWrittenInPlaceLeavesNoRest();
    void aFullDiskUnderSuchAFolderLeavesTheOldFile_data() { formats(); }
    void aFullDiskUnderSuchAFolderLeavesTheOldFile();
    void aReadOnlyFolderTakesNoNewFile_data() { formats(); }
    void aReadOnlyFolderTakesNoNewFile();
    void aReadOnlyFileStays_data() { formats(); }
    void aReadOnlyFileStays();
    void anothersFileThatMayOnlyBeWrittenToIsWrittenTo_data() { formats(); }
    void anothersFileThatMayOnlyBeWrittenToIsWrittenTo();
    void aVanishedFolderStaysVanished_data() { formats(); }
    void aVanishedFolderStaysVanished();
    void aFolderOfThatNameStays_data() { formats(); }
    void aFolderOfThatNameStays();
    void anEmptyPathIsNoFile_data() { formats(); }
    void anEmptyPathIsNoFile();
    void aNameTooLongForASecondFileBesideItIsWritten_data() { formats(); }
    void aNameTooLongForASecondFileBesideItIsWritten();
    void aLinkStaysALink_data() { formats(); }
    void aLinkStaysALink();
    void theRightsOfTheFileStay_data() { formats(); }
    void theRightsOfTheFileStay();
    void aDeviceIsWrittenTo_data() { formats(); }
    void aDeviceIsWrittenTo();

private:
    static void formats();
    void save(const QString& target);
    bool saveWithoutRights(const QString& target);
    QByteArray expectedText();
    QByteArray textOf(const QString& target) const;
    void writeOld(const QByteArray& text = "old\n");

    std::unique_ptr<LowerCaseDir> place;
    QString target; ///< in a folder of its own
};

void TestSavingOverFiles::formats()
{
    // Few keys fit into a file's buffer, many do not.
    QTest::addColumn<bool>("xml");
    QTest::addColumn<int>("keys");
    QTest::newRow("XML") << true << 3;
    QTest::newRow("XML of many keys") << true << 1000;
    QTest::newRow("older format") << false << 3;
    QTest::newRow("older format of many keys") << false << 1000;
}

void TestSavingOverFiles::init()
{
    openCurve();
    QFETCH(int, keys);
    for (int i = 0; i < keys; ++i) {
        spline->addPoint(i, i);
    }
    place = std::make_unique<LowerCaseDir>();
    chmod(qPrintable(place->path()), 0777);
    target = place->filePath("curve");
}

void TestSavingOverFiles::cleanup()
{
    QVERIFY(boxes->titles.isEmpty());
    chmod(qPrintable(place->path()), 0777);
    place.reset();
    closeCurve();
}

void TestSavingOverFiles::save(const QString& path)
{
    QFETCH(bool, xml);
    if (xml) {
        curve->saveXML(path);
    } else {
        curve_files::replaceFile(path, [this](QIODevice& file) {
            curve_files::DeviceStreamBuffer buffer(file);
            std::ostream stream(&buffer);
            curve->saveCrv(stream);
        });
    }
}

bool TestSavingOverFiles::saveWithoutRights(const QString& path)
{
    return succeedsWithoutRights([&] {
        save(path);
        return true;
    });
}

QByteArray TestSavingOverFiles::expectedText()
{
    QFETCH(bool, xml);
    return xml ? saved() : body();
}

QByteArray TestSavingOverFiles::textOf(const QString& path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be opened");
}

void TestSavingOverFiles::writeOld(const QByteArray& text)
{
    QFile file(target);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), text.size());
    file.close();
    QCOMPARE(chmod(qPrintable(target), 0666), 0);
}

void TestSavingOverFiles::theNewFileReplacesTheOldOne()
{
    writeOld();
    save(target);
    QCOMPARE(textOf(target), expectedText());
    QCOMPARE(place->names(), QStringList("curve"));
}

void TestSavingOverFiles::bothWaysOfWritingTheOlderFileGiveTheSameBytes()
{
    std::ofstream stream(target.toStdString());
    curve->saveCrv(stream);
    stream.close();
    QCOMPARE(textOf(target), body());
}

void TestSavingOverFiles::aFullDiskLeavesTheOldFile()
{
    writeOld();
    {
        const FullDisk disk(20);
        save(target);
    }
    QCOMPARE(textOf(target), QByteArray("old\n"));
    QCOMPARE(place->names(), QStringList("curve"));
}

void TestSavingOverFiles::aFullDiskLeavesNoNewFile()
{
    {
        const FullDisk disk(20);
        save(target);
    }
    QCOMPARE(place->names(), QStringList());
}

void TestSavingOverFiles::aFolderThatTakesNoSecondFileTakesTheNewText()
{
    writeOld();
    QCOMPARE(chmod(qPrintable(place->path()), 0555), 0);
    QVERIFY(saveWithoutRights(target));
    QCOMPARE(textOf(target), expectedText());
    QCOMPARE(place->names(), QStringList("curve"));
}

void TestSavingOverFiles::aShorterTextWrittenInPlaceLeavesNoRest()
{
    writeOld(QByteArray(2000000, 'x'));
    QCOMPARE(chmod(qPrintable(place->path()), 0555), 0);
    QVERIFY(saveWithoutRights(target));
    QCOMPARE(textOf(target), expectedText());
}

void TestSavingOverFiles::aFullDiskUnderSuchAFolderLeavesTheOldFile()
{
    const QByteArray old(30, 'x');
    writeOld(old);
    QCOMPARE(chmod(qPrintable(place->path()), 0555), 0);
    QVERIFY(succeedsWithoutRights([&] {
        const FullDisk disk(40);
        save(target);
        return true;
    }));
    QCOMPARE(textOf(target), old);
}

void TestSavingOverFiles::aReadOnlyFolderTakesNoNewFile()
{
    QCOMPARE(chmod(qPrintable(place->path()), 0555), 0);
    QVERIFY(saveWithoutRights(target));
    QCOMPARE(place->names(), QStringList());
}

void TestSavingOverFiles::aReadOnlyFileStays()
{
    writeOld();
    QCOMPARE(chmod(qPrintable(target), 0444), 0);
    QVERIFY(saveWithoutRights(target));
    QCOMPARE(textOf(target), QByteArray("old\n"));
    QCOMPARE(place->names(), QStringList("curve"));
}

void TestSavingOverFiles::anothersFileThatMayOnlyBeWrittenToIsWrittenTo()
{
    writeOld();
    QCOMPARE(chmod(qPrintable(place->path()), 01777), 0);
    if (!succeedsAsNobody([this] { return access(qPrintable(target), W_OK) == 0; })) {
        QSKIP("Only root can let somebody else write to a file, and in a folder open to all.");
    }
    QVERIFY(succeedsAsNobody([this] {
        save(target);
        return true;
    }));
    QCOMPARE(textOf(target), expectedText());
    QCOMPARE(place->names(), QStringList("curve"));
}

void TestSavingOverFiles::aVanishedFolderStaysVanished()
{
    save(place->filePath("vanished/curve"));
    QCOMPARE(place->names(), QStringList());
}

void TestSavingOverFiles::aFolderOfThatNameStays()
{
    QVERIFY(QDir().mkdir(target));
    save(target);
    QVERIFY(QFileInfo(target).isDir());
    QCOMPARE(place->names(), QStringList("curve"));
    QVERIFY(QDir(target).isEmpty());
}

void TestSavingOverFiles::anEmptyPathIsNoFile()
{
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(place->path()));
    save(QString());
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(place->names(), QStringList());
}

void TestSavingOverFiles::aNameTooLongForASecondFileBesideItIsWritten()
{
    const QString name(255, QLatin1Char('c'));
    save(place->filePath(name));
    QCOMPARE(textOf(place->filePath(name)), expectedText());
    QCOMPARE(place->names(), QStringList(name));
}

void TestSavingOverFiles::aLinkStaysALink()
{
    writeOld();
    QVERIFY(QFile::link(target, place->filePath("link")));
    save(place->filePath("link"));
    QVERIFY(QFileInfo(place->filePath("link")).isSymLink());
    QCOMPARE(textOf(target), expectedText());
}

void TestSavingOverFiles::theRightsOfTheFileStay()
{
    writeOld();
    QCOMPARE(chmod(qPrintable(target), 0640), 0);
    save(target);
    struct stat state = {};
    QCOMPARE(stat(qPrintable(target), &state), 0);
    QCOMPARE(state.st_mode & 0777u, 0640u);
}

void TestSavingOverFiles::aDeviceIsWrittenTo()
{
    QCOMPARE(mkfifo(qPrintable(target), 0666), 0);
    const int pipe = open(qPrintable(target), O_RDONLY | O_NONBLOCK);
    QVERIFY(pipe >= 0);
    QCOMPARE(fcntl(pipe, F_SETPIPE_SZ, 1 << 20), 1 << 20);
    save(target);
    QByteArray text(1 << 20, '\0');
    text.resize(read(pipe, text.data(), 1 << 20));
    close(pipe);
    QCOMPARE(text, expectedText());
    QVERIFY(!QFileInfo(target).isFile());
}

QTEST_MAIN(TestSavingOverFiles)
#include "test_saving_over_files.moc"

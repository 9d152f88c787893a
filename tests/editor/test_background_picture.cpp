#include "canvas/CanvasBackground.h"
#include "editor/FileActionsFixture.h"

#include <QTest>

#include <sys/stat.h>

class TestBackgroundPicture : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { FileActionsFixture::keepAwayFromTheUsersSettings(); }
    void init();
    void cleanup() { fixture.reset(); }

    void aPictureIsShownStretchedOverTheCanvas_data();
    void aPictureIsShownStretchedOverTheCanvas();
    void theDialogAsksForPictures();
    void theFolderOfTheCurvesIsLeftAlone();
    void aCancelLeavesThePicture();
    void aFileThatCannotBeOpenedLeavesThePictureWithoutAWord();
    void aPipeIsNotWaitedFor();
    void aBadFileGivesTheBoxAndAnEmptyBackground_data();
    void aBadFileGivesTheBoxAndAnEmptyBackground();
    void anotherPictureTakesTheFirstOnesPlace();
    void clearingTakesThePictureAway();
    void clearingWithoutAPictureOnlyRepaints();
    void theActionIsConnectedTwice();
    void theEditorMayBeDeletedWhileTheDialogRuns();
    void theEditorMayBeDeletedWhileTheBoxIsOpen();

private:
    void savePicture(const QString& name, const QColor& color);
    void load(const QString& name);
    CanvasBackground* picture() { return fixture->editor.logic().backgroundPicture(); }
    QColor shownColor();

    std::unique_ptr<FileActionsFixture> fixture;
};

void TestBackgroundPicture::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<FileActionsFixture>();
}

void TestBackgroundPicture::savePicture(const QString& name, const QColor& color)
{
    QImage image(4, 3, QImage::Format_RGB32);
    image.fill(color);
    QVERIFY(image.save(fixture->folder.filePath(name)));
}

void TestBackgroundPicture::load(const QString& name)
{
    FileDialogDriver user(fixture->folder.filePath(name));
    fixture->trigger("loadImage");
    QCOMPARE(user.dialogs, 1);
}

/// Off the grid's lines and labels.
QColor TestBackgroundPicture::shownColor()
{
    const QImage shown = fixture->editor.canvas().grab().toImage();
    std::map<QRgb, int> counts;
    for (int x = 0; x < shown.width(); ++x) {
        for (int y = 0; y < shown.height(); ++y) {
            ++counts[shown.pixel(x, y)];
        }
    }
    const auto most =
        std::max_element(counts.begin(), counts.end(), [](const auto& one, const auto& other) {
            return one.second < other.second;
        });
    return QColor(most->first);
}

void TestBackgroundPicture::aPictureIsShownStretchedOverTheCanvas_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("PNG") << "picture.png";
    QTest::newRow("BMP") << "picture.bmp";
}

void TestBackgroundPicture::aPictureIsShownStretchedOverTheCanvas()
{
    QFETCH(QString, name);
    QCOMPARE(shownColor(), QColor(Qt::black));
    savePicture(name, QColor(10, 200, 30));
    load(name);
    QVERIFY(picture());
    QCOMPARE(picture()->image.size(), QSize(4, 3));
    QCOMPARE(shownColor(), QColor(10, 200, 30));
    QCOMPARE(picture()->pixmap.size(), fixture->editor.canvas().size());
    QVERIFY(fixture->boxes.titles.isEmpty());
}

void TestBackgroundPicture::theDialogAsksForPictures()
{
    FileDialogDriver user;
    fixture->trigger("loadImage");
    QCOMPARE(user.title, QString("Open Image"));
    QCOMPARE(user.filters, QStringList("Images (*.png *.bmp)"));
    QCOMPARE(user.acceptMode, QFileDialog::AcceptOpen);
    QCOMPARE(user.fileMode, QFileDialog::ExistingFile);
    QVERIFY(user.directory != fixture->folder.path());
}

void TestBackgroundPicture::theFolderOfTheCurvesIsLeftAlone()
{
    fixture->editor.editCurve("body.width", {});
    QVERIFY(QDir(fixture->folder.path()).mkdir("pictures"));
    savePicture("pictures/picture.png", Qt::red);
    load("pictures/picture.png");
    FileDialogDriver user;
    fixture->trigger("saveCurve");
    QCOMPARE(user.directory, fixture->folder.path());
}

void TestBackgroundPicture::aCancelLeavesThePicture()
{
    savePicture("picture.png", Qt::red);
    load("picture.png");
    const CanvasBackground* const before = picture();
    FileDialogDriver user;
    fixture->trigger("loadImage");
    QCOMPARE(user.dialogs, 1);
    QCOMPARE(picture(), before);
    QCOMPARE(shownColor(), QColor(Qt::red));
}

void TestBackgroundPicture::aFileThatCannotBeOpenedLeavesThePictureWithoutAWord()
{
    savePicture("picture.png", Qt::red);
    load("picture.png");
    // The file goes between the choice and the reading.
    savePicture("gone.png", Qt::blue);
    FileDialogDriver user;
    user.instead = [this](QFileDialog* dialog) {
        QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                         [](const QString& path) { QFile::remove(path); });
        auto* const field = dialog->findChild<QLineEdit*>("fileNameEdit");
        field->setText(fixture->folder.filePath("gone.png"));
        QTest::keyClick(field, Qt::Key_Return);
    };
    fixture->trigger("loadImage");
    QVERIFY(!QFile::exists(fixture->folder.filePath("gone.png")));
    QCOMPARE(shownColor(), QColor(Qt::red));
    QVERIFY(fixture->boxes.titles.isEmpty());
}

void TestBackgroundPicture::aPipeIsNotWaitedFor()
{
    savePicture("picture.png", Qt::red);
    load("picture.png");
    QCOMPARE(mkfifo(qPrintable(fixture->folder.filePath("pipe.png")), 0600), 0);
    load("pipe.png");
    QCOMPARE(shownColor(), QColor(Qt::red));
    QVERIFY(fixture->boxes.titles.isEmpty());
}

void TestBackgroundPicture::aBadFileGivesTheBoxAndAnEmptyBackground_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("no picture") << QByteArray("no picture");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("a signature and no more") << QByteArray("\x89PNG\r\n\x1a\n");
    QTest::newRow("a huge bitmap in its head alone")
        << QByteArray("BM\x36\x00\x00\x00\x00\x00\x00\x00\x36\x00\x00\x00\x28\x00\x00\x00"
                      "\xff\xff\xff\x7f\xff\xff\xff\x7f\x01\x00\x20\x00\x00\x00\x00\x00"
                      "\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00"
                      "\x00\x00\x00\x00",
                      54);
}

void TestBackgroundPicture::aBadFileGivesTheBoxAndAnEmptyBackground()
{
    QFETCH(QByteArray, text);
    savePicture("picture.png", Qt::red);
    load("picture.png");
    fixture->write("bad.png", text);
    load("bad.png");
    QCOMPARE(fixture->boxes.titles, QStringList("Error"));
    QCOMPARE(fixture->boxes.texts, QStringList("Unable to load image file"));
    QCOMPARE(fixture->boxes.icons, QList<QMessageBox::Icon>{QMessageBox::Warning});
    QVERIFY(picture());
    QVERIFY(picture()->image.isNull());
    QVERIFY(shownColor() != QColor(Qt::red));
}

void TestBackgroundPicture::anotherPictureTakesTheFirstOnesPlace()
{
    savePicture("picture.png", Qt::red);
    savePicture("other.png", Qt::blue);
    load("picture.png");
    QCOMPARE(shownColor(), QColor(Qt::red));
    load("other.png");
    QCOMPARE(shownColor(), QColor(Qt::blue));
}

void TestBackgroundPicture::clearingTakesThePictureAway()
{
    savePicture("picture.png", Qt::red);
    load("picture.png");
    fixture->trigger("clearImage");
    QVERIFY(!picture());
    QCOMPARE(shownColor(), QColor(Qt::black));
}

void TestBackgroundPicture::clearingWithoutAPictureOnlyRepaints()
{
    fixture->editor.canvas().canvasDirty = false;
    fixture->trigger("clearImage");
    QVERIFY(fixture->editor.canvas().canvasDirty);
    QVERIFY(!picture());
}

void TestBackgroundPicture::theActionIsConnectedTwice()
{
    static QStringList dump;
    dump.clear();
    const QtMessageHandler before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& line) { dump.append(line); });
    fixture->editor.editor.findChild<QAction*>("clearImage")->dumpObjectInfo();
    qInstallMessageHandler(before);
    QCOMPARE(dump.filter("--> CurveEditor::").filter("clearImage()").size(), 2);
}

void TestBackgroundPicture::theEditorMayBeDeletedWhileTheDialogRuns()
{
    auto* const editor = new CurveEditor(nullptr, QString());
    FileDialogDriver user;
    user.instead = [editor](QFileDialog*) { delete editor; };
    editor->loadImage();
    QCOMPARE(user.dialogs, 1);
}

void TestBackgroundPicture::theEditorMayBeDeletedWhileTheBoxIsOpen()
{
    fixture.reset(); // it would close the box
    const LowerCaseDir folder;
    QFile bad(folder.filePath("bad.png"));
    QVERIFY(bad.open(QIODevice::WriteOnly));
    bad.close();
    auto* const editor = new CurveEditor(nullptr, QString());
    const QPointer<CurveEditor> watch(editor);
    FileDialogDriver user(bad.fileName());
    QTimer timer;
    timer.callOnTimeout(&timer, [&watch] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box && box->isVisible()) {
            delete watch.data();
            box->done(QMessageBox::Ok);
        }
    });
    timer.start(0);
    editor->loadImage();
    QVERIFY(!watch);
}

QTEST_MAIN(TestBackgroundPicture)
#include "test_background_picture.moc"

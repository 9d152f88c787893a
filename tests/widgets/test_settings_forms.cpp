#include "support/FailOnWarning.h"
#include "widgets/CurveEditorSettings.h"
#include "widgets/PanDialog.h"
#include "widgets/ScaleDialog.h"
#include "widgets/ViewportSettings.h"

#include <QApplication>
#include <QSignalSpy>
#include <QStyle>

#include <map>
#include <memory>

/// The four dialogs that ask for numbers, as their forms make them.
class TestSettingsForms : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void initTestCase();

    void cleanupTestCase() { dialogs.clear(); }

    void eachHasItsNameTitleAndSize_data();
    void eachHasItsNameTitleAndSize();
    void theSettingsKeepTheirSize();
    void eachWidgetHasItsClassAndText_data();
    void eachWidgetHasItsClassAndText();
    void thePartsOfTheSettingsHaveTheirSizes_data();
    void thePartsOfTheSettingsHaveTheirSizes();
    void aTextTooLongForItsBoxIsReadInItsToolTip();
    void theComboBeginsWithTcb();
    void everyLineHoldsNineCharacters();
    void theSpinBoxesHaveTheirRangeAndStepAndAPointInAnyLocale();
    void thePanDialogStandsInAGrid();
    void okIsTheDefaultAndTheToggleIsNotEvenAutoDefault();
    void okAcceptsAndCancelRejectsOnce_data();
    void okAcceptsAndCancelRejectsOnce();
    void everyLabelLeadsToItsField();
    void theExportedDialogsTakeParentTruthValueAndFlags();
    void togglingTheUnitConvertsTheTimeAlone();
    void aRateThatGivesNoNumberShowsZero();
    void everyPartHasRoomForItsTextInEachStyle_data();
    void everyPartHasRoomForItsTextInEachStyle();
    void theSettingsSqueezeAFontThatIsTooLarge_data();
    void theSettingsSqueezeAFontThatIsTooLarge();
    void theSettingsStandInTheirOrder();
    void tabWalksInReadingOrder_data();
    void tabWalksInReadingOrder();

private:
    QWidget& part(const QString& dialog, const QString& name) const;
    static bool hasRoomForItsText(const QWidget& widget);

    std::map<QString, std::unique_ptr<QDialog>> dialogs;
};

void TestSettingsForms::initTestCase()
{
    // A taller one makes the dialogs larger that may grow.
    QApplication::setFont(QFont(QStringLiteral("Liberation Sans"), 9));
    dialogs["settings"] = std::make_unique<CurveEditorSettings>();
    dialogs["viewport"] = std::make_unique<ViewportSettings>();
    dialogs["scale"] = std::make_unique<ScaleDialog>();
    dialogs["pan"] = std::make_unique<PanDialog>();
    for (const auto& dialog : dialogs) {
        dialog.second->show();
    }
}

void TestSettingsForms::eachHasItsNameTitleAndSize_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QSize>("size");
    QTest::newRow("settings") << "SettingsSetter"
                              << "Curve Editor Settings" << QSize(220, 220);
    QTest::newRow("viewport") << "ViewportSettingsSetter"
                              << "viewPort Settings" << QSize(180, 140);
    QTest::newRow("scale") << "ScaleDialogBaseSetter"
                           << "Scale Selection" << QSize(180, 100);
    QTest::newRow("pan") << "PanDialogBaseSetter"
                         << "Pan Selection" << QSize();
}

void TestSettingsForms::eachHasItsNameTitleAndSize()
{
    QFETCH(QSize, size);
    const QDialog& dialog = *dialogs.at(QTest::currentDataTag());
    QTEST(dialog.objectName(), "name");
    QTEST(dialog.windowTitle(), "title");
    QVERIFY(dialog.isModal());
    QCOMPARE(dialog.size(), size.isValid() ? size : dialog.layout()->sizeHint());
}

void TestSettingsForms::theSettingsKeepTheirSize()
{
    const QDialog& dialog = *dialogs.at("settings");
    QCOMPARE(dialog.minimumSize(), QSize(220, 220));
    QCOMPARE(dialog.maximumSize(), QSize(220, 220));
    const auto* const box = qobject_cast<QVBoxLayout*>(dialog.layout());
    QVERIFY(box);
    QCOMPARE(box->spacing(), 6);
    QCOMPARE(box->contentsMargins(), QMargins(11, 11, 11, 11));
}

void TestSettingsForms::eachWidgetHasItsClassAndText_data()
{
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* dialog, const char* name, const char* className,
                        const char* text) {
        QTest::addRow("%s %s", dialog, name) << dialog << name << QByteArray(className) << text;
    };
    row("settings", "textLabel3", "QLabel", "Snap Tolerance (H):");
    row("settings", "radiusH", "QLineEdit", "");
    row("settings", "label", "QLabel", "");
    row("settings", "textLabel1", "QLabel", "Snap Tolerance (V):");
    row("settings", "radiusV", "QLineEdit", "");
    row("settings", "label_2", "QLabel", "");
    row("settings", "textLabel2", "QLabel", "Default Node Type:");
    row("settings", "label_7", "QLabel", "");
    row("settings", "defaultBroken", "QCheckBox", "Tangent Broken by Default");
    row("settings", "defaultAddFunc", "QCheckBox", "Add Expression to Spline by Default");
    row("settings", "showToolTipsOnDrag", "QCheckBox", "Show Control Point Info While Dragging");
    row("settings", "allDone", "QPushButton", "Ok");
    row("settings", "cancel", "QPushButton", "Cancel");
    row("viewport", "textLabel3", "QLabel", "MinX");
    row("viewport", "minX", "QLineEdit", "");
    row("viewport", "textLabel1", "QLabel", "MinY");
    row("viewport", "minY", "QLineEdit", "");
    row("viewport", "textLabel2", "QLabel", "MaxX");
    row("viewport", "maxX", "QLineEdit", "");
    row("viewport", "textLabel4", "QLabel", "MaxY");
    row("viewport", "maxY", "QLineEdit", "");
    row("viewport", "allDone", "QPushButton", "Ok");
    row("viewport", "cancel", "QPushButton", "Cancel");
    row("scale", "textLabel3_2", "QLabel", "Scale X");
    row("scale", "scaleX", "QLineEdit", "");
    row("scale", "textLabel1", "QLabel", "Scale Y");
    row("scale", "scaleY", "QLineEdit", "");
    row("scale", "allDoneScale", "QPushButton", "Ok");
    row("scale", "cancelScale", "QPushButton", "Cancel");
    row("pan", "textLabel3_2_2", "QLabel", "Pan X");
    row("pan", "textLabel1_2", "QLabel", "Pan Y");
    row("pan", "xLabel_", "QLabel", "seconds");
    row("pan", "toggleButton_", "QPushButton", "Toggle frames/seconds");
    row("pan", "allDonePan", "QPushButton", "Ok");
    row("pan", "cancelPan", "QPushButton", "Cancel");
}

void TestSettingsForms::eachWidgetHasItsClassAndText()
{
    QFETCH(QString, dialog);
    QFETCH(QString, name);
    const auto* const widget = dialogs.at(dialog)->findChild<QWidget*>(name);
    QVERIFY(widget);
    QTEST(QByteArray(widget->metaObject()->className()), "className");
    QTEST(widget->property("text").toString(), "text");
}

void TestSettingsForms::thePartsOfTheSettingsHaveTheirSizes_data()
{
    QTest::addColumn<QSize>("least");
    QTest::addColumn<QSize>("most");
    QTest::newRow("textLabel3") << QSize(90, 20) << QSize(117, 20);
    QTest::newRow("radiusH") << QSize(30, 20) << QSize(30, 20);
    QTest::newRow("textLabel1") << QSize(90, 20) << QSize(117, 20);
    QTest::newRow("radiusV") << QSize(30, 0) << QSize(30, QWIDGETSIZE_MAX);
    QTest::newRow("textLabel2") << QSize(92, 20) << QSize(117, 20);
    QTest::newRow("defaultBroken") << QSize(180, 0) << QSize(180, QWIDGETSIZE_MAX);
    QTest::newRow("defaultAddFunc") << QSize(180, 0) << QSize(180, QWIDGETSIZE_MAX);
    QTest::newRow("showToolTipsOnDrag") << QSize(180, 0) << QSize(180, QWIDGETSIZE_MAX);
}

void TestSettingsForms::thePartsOfTheSettingsHaveTheirSizes()
{
    const auto* const widget = dialogs.at("settings")->findChild<QWidget*>(QTest::currentDataTag());
    QTEST(widget->minimumSize(), "least");
    QTEST(widget->maximumSize(), "most");
}

void TestSettingsForms::aTextTooLongForItsBoxIsReadInItsToolTip()
{
    for (const char* const name : {"defaultBroken", "defaultAddFunc", "showToolTipsOnDrag"}) {
        const auto* const box = dialogs.at("settings")->findChild<QCheckBox*>(name);
        QCOMPARE(box->toolTip(), box->text());
    }
}

void TestSettingsForms::theComboBeginsWithTcb()
{
    const auto* const box = dialogs.at("settings")->findChild<QComboBox*>("nodeTypeCombo");
    QStringList texts;
    for (int index = 0; index < box->count(); ++index) {
        texts.append(box->itemText(index));
    }
    QCOMPARE(texts, QStringList({"Tcb node", "Bezier node", "Linear node", "Stepped node"}));
}

void TestSettingsForms::everyLineHoldsNineCharacters()
{
    QStringList names;
    for (const auto& dialog : dialogs) {
        for (QLineEdit* const line : dialog.second->findChildren<QLineEdit*>()) {
            if (line->objectName() != "qt_spinbox_lineedit") {
                names.append(line->objectName());
                QTest::keyClicks(line, "1234567890");
                QCOMPARE(line->text(), QString("123456789"));
                line->clear();
            }
        }
    }
    names.sort();
    QCOMPARE(names, QStringList({"maxX", "maxY", "minX", "minY", "radiusH", "radiusV", "scaleX",
                                 "scaleY"}));
}

void TestSettingsForms::theSpinBoxesHaveTheirRangeAndStepAndAPointInAnyLocale()
{
    for (const char* const name : {"panX", "panY"}) {
        const auto* const box = dialogs.at("pan")->findChild<QDoubleSpinBox*>(name);
        QCOMPARE(box->minimum(), -1000000000.0);
        QCOMPARE(box->maximum(), 1000000000.0);
        QCOMPARE(box->singleStep(), 0.1);
        QCOMPARE(box->locale().language(), QLocale::C);
    }
}

void TestSettingsForms::thePanDialogStandsInAGrid()
{
    const auto* const grid = dialogs.at("pan")->findChild<QGridLayout*>();
    QVERIFY(grid);
    const QStringList rows[] = {{"textLabel3_2_2", "panX", "xLabel_"},
                                {"textLabel1_2", "panY", ""}};
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 3; ++column) {
            const QWidget* const widget = grid->itemAtPosition(row, column)->widget();
            QCOMPARE(widget ? widget->objectName() : QString(), rows[row].at(column));
        }
    }
    QVERIFY(grid->itemAtPosition(1, 2)->spacerItem());
}

void TestSettingsForms::okIsTheDefaultAndTheToggleIsNotEvenAutoDefault()
{
    for (const auto& dialog : dialogs) {
        for (QPushButton* const button : dialog.second->findChildren<QPushButton*>()) {
            QCOMPARE(button->isDefault(), button->text() == "Ok");
            QCOMPARE(button->autoDefault(), button->objectName() != "toggleButton_");
        }
    }
}

void TestSettingsForms::okAcceptsAndCancelRejectsOnce_data()
{
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("answer");
    QTest::newRow("settings Ok") << "settings"
                                 << "allDone" << 1;
    QTest::newRow("settings Cancel") << "settings"
                                     << "cancel" << 0;
    QTest::newRow("viewport Ok") << "viewport"
                                 << "allDone" << 1;
    QTest::newRow("viewport Cancel") << "viewport"
                                     << "cancel" << 0;
    QTest::newRow("scale Ok") << "scale"
                              << "allDoneScale" << 1;
    QTest::newRow("scale Cancel") << "scale"
                                  << "cancelScale" << 0;
    QTest::newRow("pan Ok") << "pan"
                            << "allDonePan" << 1;
    QTest::newRow("pan Cancel") << "pan"
                                << "cancelPan" << 0;
}

void TestSettingsForms::okAcceptsAndCancelRejectsOnce()
{
    QFETCH(QString, dialog);
    QFETCH(QString, button);
    QFETCH(int, answer);
    QDialog& asked = *dialogs.at(dialog);
    asked.show();
    QSignalSpy finished(&asked, SIGNAL(finished(int)));
    QTest::mouseClick(asked.findChild<QPushButton*>(button), Qt::LeftButton);
    QVERIFY(!asked.isVisible());
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toInt(), answer);
    asked.show();
}

void TestSettingsForms::everyLabelLeadsToItsField()
{
    for (const auto& dialog : dialogs) {
        for (const QLabel* const label : dialog.second->findChildren<QLabel*>()) {
            const bool isPlain = label->text().isEmpty() || label->objectName() == "xLabel_";
            QCOMPARE(label->buddy() == nullptr, isPlain);
        }
    }
}

void TestSettingsForms::theExportedDialogsTakeParentTruthValueAndFlags()
{
    QWidget parent;
    const CurveEditorSettings settings(&parent, true, Qt::Tool);
    QCOMPARE(settings.parentWidget(), &parent);
    QCOMPARE(settings.windowType(), Qt::Tool);
    const ViewportSettings viewport(&parent, true, Qt::Tool);
    QCOMPARE(viewport.parentWidget(), &parent);
    QCOMPARE(viewport.windowType(), Qt::Tool);
}

void TestSettingsForms::togglingTheUnitConvertsTheTimeAlone()
{
    PanDialog dialog;
    QVERIFY(dialog.isSeconds);
    QCOMPARE(dialog.fps, 1.0);
    dialog.setSeconds(false);
    dialog.fps = 24.0;
    dialog.show();
    dialog.panX->setValue(48.0);
    dialog.panY->setValue(5.5);
    QTest::mouseClick(dialog.toggleButton_, Qt::LeftButton);
    QCOMPARE(dialog.panX->value(), 2.0);
    QCOMPARE(dialog.xLabel_->text(), QString("seconds"));
    QTest::mouseClick(dialog.toggleButton_, Qt::LeftButton);
    QCOMPARE(dialog.panX->value(), 48.0);
    QCOMPARE(dialog.xLabel_->text(), QString("frames"));
    QCOMPARE(dialog.panY->value(), 5.5);
    dialog.setSeconds(false);
    QCOMPARE(dialog.panX->value(), 48.0);
}

void TestSettingsForms::aRateThatGivesNoNumberShowsZero()
{
    PanDialog dialog;
    dialog.setSeconds(false);
    for (const double rate : {0.0, qInf(), qQNaN()}) {
        dialog.fps = rate;
        dialog.panX->setValue(0.0);
        dialog.toggleSeconds();
        QCOMPARE(dialog.panX->value(), 0.0);
        dialog.panX->setValue(5.0);
        dialog.toggleSeconds();
        QCOMPARE(dialog.panX->value(), 0.0);
    }
}

void TestSettingsForms::everyPartHasRoomForItsTextInEachStyle_data()
{
    QTest::addColumn<QString>("style");
    QTest::newRow("Fusion") << "Fusion";
    QTest::newRow("Windows") << "Windows";
}

void TestSettingsForms::everyPartHasRoomForItsTextInEachStyle()
{
    QFETCH(QString, style);
    const QString oldStyle = QApplication::style()->objectName();
    QApplication::setStyle(style);
    {
        CurveEditorSettings settings;
        settings.show();
        ViewportSettings viewport;
        viewport.show();
        ScaleDialog scale;
        scale.show();
        PanDialog pan;
        pan.show();
        for (const QDialog* const dialog :
             std::initializer_list<const QDialog*>{&settings, &viewport, &scale, &pan}) {
            for (const QWidget* const widget : dialog->findChildren<QWidget*>()) {
                if (!widget->isVisible()) {
                    continue; // the list of a combo box
                }
                const QRect own(widget->mapTo(dialog, QPoint()), widget->size());
                QVERIFY2(dialog->rect().contains(own), qPrintable(widget->objectName()));
                QVERIFY2(hasRoomForItsText(*widget), qPrintable(widget->objectName()));
            }
        }
    }
    QApplication::setStyle(oldStyle);
}

void TestSettingsForms::theSettingsSqueezeAFontThatIsTooLarge_data()
{
    QTest::addColumn<int>("pixels");
    QTest::addColumn<int>("leastPixels");
    QTest::addColumn<int>("leastStretch");
    QTest::newRow("a small one stays") << 5 << 5 << 100;
    QTest::newRow("a usual one is narrower") << 12 << 12 << 80;
    QTest::newRow("a large one is smaller, too") << 15 << 12 << 75;
}

void TestSettingsForms::theSettingsSqueezeAFontThatIsTooLarge()
{
    QFETCH(int, pixels);
    const QFont oldFont = QApplication::font();
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(pixels);
    font.setStretch(QFont::Unstretched);
    QApplication::setFont(font);
    CurveEditorSettings settings;
    settings.show();
    for (const QWidget* const widget : settings.findChildren<QWidget*>()) {
        QVERIFY2(!widget->isVisible() || hasRoomForItsText(*widget),
                 qPrintable(widget->objectName()));
    }
    QApplication::setFont(oldFont);
    QVERIFY(settings.font().pixelSize() <= pixels);
    QFETCH(int, leastPixels);
    QVERIFY(settings.font().pixelSize() >= leastPixels);
    QFETCH(int, leastStretch);
    QVERIFY(settings.font().stretch() >= leastStretch);
}

void TestSettingsForms::theSettingsStandInTheirOrder()
{
    const char* const rows[][3] = {{"textLabel3", "radiusH", "label"},
                                   {"textLabel1", "radiusV", "label_2"},
                                   {"textLabel2", "nodeTypeCombo", "label_7"},
                                   {"defaultBroken"},
                                   {"defaultAddFunc"},
                                   {"showToolTipsOnDrag"},
                                   {"allDone", "cancel"}};
    int bottom = 0;
    for (const auto& row : rows) {
        int right = 0;
        int rowBottom = 0;
        for (const char* const name : row) {
            if (name) {
                const QRect place = part("settings", name).geometry();
                QVERIFY2(place.top() >= bottom && place.left() >= right, name);
                right = place.right();
                rowBottom = qMax(rowBottom, place.bottom());
            }
        }
        bottom = rowBottom;
    }
    QCOMPARE(part("settings", "radiusH").height(), part("settings", "radiusV").height());
    QCOMPARE(part("settings", "radiusH").x(), part("settings", "radiusV").x());
}

void TestSettingsForms::tabWalksInReadingOrder_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::newRow("settings") << QStringList({"radiusH", "radiusV", "nodeTypeCombo",
                                              "defaultBroken", "defaultAddFunc",
                                              "showToolTipsOnDrag", "allDone", "cancel"});
    QTest::newRow("viewport") << QStringList({"minX", "minY", "maxX", "maxY", "allDone", "cancel"});
    QTest::newRow("scale") << QStringList({"scaleX", "scaleY", "allDoneScale", "cancelScale"});
    QTest::newRow("pan") << QStringList(
        {"panX", "panY", "toggleButton_", "allDonePan", "cancelPan"});
}

void TestSettingsForms::tabWalksInReadingOrder()
{
    QFETCH(QStringList, names);
    QDialog& dialog = *dialogs.at(QTest::currentDataTag());
    QApplication::setActiveWindow(&dialog);
    part(QTest::currentDataTag(), names.first()).setFocus();
    for (const QString& name : names) {
        QCOMPARE(dialog.focusWidget()->objectName(), name);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(dialog.focusWidget()->objectName(), names.first());
}

QWidget& TestSettingsForms::part(const QString& dialog, const QString& name) const
{
    return *dialogs.at(dialog)->findChild<QWidget*>(name);
}

/// What is typed may be longer than its line, and a filler has no text.
bool TestSettingsForms::hasRoomForItsText(const QWidget& widget)
{
    return qobject_cast<const QLineEdit*>(&widget) ||
           widget.property("text").toString().isEmpty() ||
           widget.width() >= widget.sizeHint().width();
}

QTEST_MAIN(TestSettingsForms)
#include "test_settings_forms.moc"

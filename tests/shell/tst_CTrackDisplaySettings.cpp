#include "shell/TrackDisplayParts.h"
#include "support/Ink.h"

#include <QTest>

using namespace TrackDisplayParts;

/** What the settings make of a panel: its rows, its colours, its sizes. */
class tst_CTrackDisplaySettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // --- what the settings show ---

    void eachRowFollowsItsSetting_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("type");
        for (const char* name :
             {"lapCount", "lastLap", "bestLap", "status", "averageLap", "speed", "fuelBar"})
            QTest::newRow(qPrintable(QString("%1 of a track").arg(name))) << name << 1;
        for (const char* name :
             {"lapCount", "lastLap", "bestLap", "status", "averageLap", "speed", "fuelLabel"})
            QTest::newRow(qPrintable(QString("%1 of a legend").arg(name))) << name << 2;
    }

    void eachRowFollowsItsSetting()
    {
        QFETCH(QString, name);
        QFETCH(int, type);
        using Setter = void (CSettings::*)(bool);
        const QMap<QString, Setter> setters{{"lapCount", &CSettings::setDisplayShowLaps},
                                            {"lastLap", &CSettings::setDisplayShowLapTime},
                                            {"bestLap", &CSettings::setDisplayShowBestLapTime},
                                            {"status", &CSettings::setDisplayShowStatus},
                                            {"averageLap", &CSettings::setDisplayShowAverageLapTime},
                                            {"speed", &CSettings::setDisplaySpeed},
                                            {"fuelBar", &CSettings::setDisplayFuel},
                                            {"fuelLabel", &CSettings::setDisplayFuel}};
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(type, &settings, nullptr, 1, 3);
        panel.setSettings(&settings);
        QVERIFY(!panel.findChild<QWidget*>(name)->isHidden());
        (settings.*setters.value(name))(false);
        panel.setSettings(&settings);
        QVERIFY(panel.findChild<QWidget*>(name)->isHidden());
        (settings.*setters.value(name))(true);
        panel.setSettings(&settings);
        QVERIFY(!panel.findChild<QWidget*>(name)->isHidden());
    }

    void trackPanelNeverShowsTheWordsOfTheLegend()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(1, &settings, nullptr, 1, 3);
        panel.setSettings(&settings);
        for (const char* name : {"fuelLabel", "driverLabel", "carLabel"})
            QVERIFY2(label(panel, name)->isHidden(), name);
    }

    void legendShowsTheWordsOfDriverAndCar()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(2, &settings, nullptr, 1, 3);
        panel.setSettings(&settings);
        for (const char* name : {"driverLabel", "carLabel"})
            QVERIFY2(!label(panel, name)->isHidden(), name);
    }

    void sectionRowsFollowTheSectorsOfTheRaceway_data()
    {
        QTest::addColumn<int>("sections");
        QTest::addColumn<QString>("shown");
        QTest::newRow("none") << 0 << "";
        QTest::newRow("with sectors on and one section only the first row shows") << 1 << "1";
        QTest::newRow("two") << 2 << "12";
        QTest::newRow("three") << 3 << "123";
        QTest::newRow("four") << 4 << "123";
    }

    void sectionRowsFollowTheSectorsOfTheRaceway()
    {
        QFETCH(int, sections);
        CSettings settings = fullSettings(2);
        for (const int type : {1, 2}) {
            CTrackDisplay panel(type, &settings, nullptr, 1, sections);
            panel.setSettings(&settings);
            QTEST(shownSections(panel), "shown");
            settings.setDisplayShowSectorTimes(false);
            panel.setSettings(&settings);
            QCOMPARE(shownSections(panel), QString());
            settings.setDisplayShowSectorTimes(true);
            panel.setSettings(&settings);
            QTEST(shownSections(panel), "shown");
        }
    }

    void sectionRowBeyondTheSectorsIsLeftAsItIs()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        label(panel, "section3")->show();
        panel.setSettings(&settings);
        QCOMPARE(shownSections(panel), QStringLiteral("13"));
        settings.setDisplayShowSectorTimes(false);
        panel.setSettings(&settings);
        QCOMPARE(shownSections(panel), QString());
    }

    void legendNamesSectorsOrIntermediateTimes()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(2, &settings, nullptr, 1, 3);
        panel.setSettings(&settings);
        QCOMPARE(text(panel, "section1"), QStringLiteral("<SEC1>"));
        QCOMPARE(text(panel, "section2"), QStringLiteral("<SEC2>"));
        QCOMPARE(text(panel, "section3"), QStringLiteral("<SEC3>"));
        settings.setDisplayShowIntermediateTimes(true);
        panel.setSettings(&settings);
        QCOMPARE(text(panel, "section1"), QStringLiteral("<INT1>"));
        QCOMPARE(text(panel, "section2"), QStringLiteral("<INT2>"));
        QCOMPARE(text(panel, "section3"), QStringLiteral("<INT3>"));
    }

    void codeButtonsFollowTheirSetting()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        for (const bool enabled : {true, false, true}) {
            settings.setQrCodeHandlingEnabled(enabled);
            panel.setSettings(&settings);
            QCOMPARE(button(panel, "driverQrButton")->isHidden(), !enabled);
            QCOMPARE(button(panel, "carQrButton")->isHidden(), !enabled);
        }
    }

    void applyingTheSettingsClearsTheSpeed()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        panel.setSettings(&settings);
        panel.setSpeed(99.9);
        panel.setSettings(&settings);
        QCOMPARE(text(panel, "speed"), QStringLiteral("0,0 km/h"));
    }

    void applyingTheSettingsKeepsTheOtherFigures()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(1, &settings, nullptr, 1, 3);
        panel.setSettings(&settings);
        panel.setLaps(1000);
        panel.setLastLap(QTime(0, 0, 5, 734));
        settings.setDisplaySize(1);
        panel.setSettings(&settings);
        QCOMPARE(text(panel, "lapCount"), QStringLiteral("1000"));
        QCOMPARE(label(panel, "lapCount")->font().pointSize(), 120);
        QCOMPARE(text(panel, "lastLap"), QStringLiteral("00:05:734"));
    }

    void commonColourGoesToBestLapStatusAndReserve()
    {
        CSettings settings = fullSettings(2);
        settings.setColorBestLapAndStatus(QStringLiteral("#0000FF"));
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        panel.setSettings(&settings);
        QCOMPARE(label(panel, "bestLap")->color(), QColor(Qt::blue));
        QCOMPARE(label(panel, "status")->color(), QColor(Qt::blue));
        QCOMPARE(fuelBar(panel)->redColorName(), QStringLiteral("#0000FF"));
        CTrackDisplay legend(2, &settings, nullptr, 1, 1);
        legend.setSettings(&settings);
        QCOMPARE(label(legend, "bestLap")->color(), QColor(0x99, 0x99, 0x99));
        QCOMPARE(label(legend, "status")->color(), QColor(0x99, 0x99, 0x99));
    }

    // --- sizes ---

    void labelsOfATrackPanelInEachSize_data()
    {
        labelColumns();
        addLabelRows("lapCount", {320, 182, 135, 91}, {180, 85, 63, 42}, {150, 80, 60, 40});
        for (const QString& name : TimeNames)
            addLabelRows(name, {320, 182, 135, 91}, {60, 35, 26, 17}, {52, 30, 22, 15});
        addLabelRows("status", {320, 182, 135, 91}, {150, 55, 41, 27}, {46, 25, 19, 12});
        addLabelRows("speed", {320, 182, 135, 91}, {60, 35, 26, 17}, {46, 25, 19, 12});
        addLabelRows("fuelLabel", {318, 180, 135, 90}, {60, 35, 26, 17}, {40, 20, 15, 10});
        addLabelRows("driverLabel", {320, 182, 135, 91}, {40, 30, 22, 15}, {25, 15, 11, 7});
        addLabelRows("carLabel", {320, 182, 135, 91}, {40, 30, 22, 15}, {25, 15, 11, 7});
    }

    void labelsOfATrackPanelInEachSize() { checkLabelSize(CTrackDisplay::TrackPanel); }

    void labelsOfALegendInEachSize_data()
    {
        labelColumns();
        addLabelRows("lapCount", {320, 180, 135, 90}, {180, 85, 63, 42}, {150, 75, 56, 37});
        for (const QString& name : TimeNames)
            addLabelRows(name, {320, 180, 135, 90}, {60, 35, 26, 17}, {40, 25, 18, 12});
        addLabelRows("status", {320, 180, 135, 90}, {150, 55, 41, 27}, {33, 20, 15, 10});
        addLabelRows("speed", {320, 180, 135, 90}, {60, 35, 26, 17}, {33, 20, 15, 10});
        addLabelRows("fuelLabel", {320, 180, 135, 90}, {60, 35, 26, 17}, {33, 20, 15, 10});
        addLabelRows("driverLabel", {320, 180, 135, 90}, {40, 30, 22, 15}, {23, 15, 11, 7});
        addLabelRows("carLabel", {320, 180, 135, 90}, {40, 30, 22, 15}, {23, 15, 11, 7});
    }

    void labelsOfALegendInEachSize() { checkLabelSize(CTrackDisplay::LegendPanel); }

    void boxesAndBarInEachSize_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<QVector<int>>("boxes"); // minimum height, maximum width, points
        QTest::addColumn<QVector<int>>("bar");   // maximum height, maximum width, points
        QTest::addColumn<QString>("border");
        using Sizes = QVector<int>;
        const QString whole = QStringLiteral("border-radius: 5px; text-align: center; border: 2px ");
        const QString half = QStringLiteral("border-radius: 2px; text-align: center; border: 1px ");
        QTest::newRow("very large") << 1 << Sizes{40, 320, 25} << Sizes{50, 318, 25} << whole;
        QTest::newRow("large") << 2 << Sizes{25, 282, 12} << Sizes{30, 180, 14} << whole;
        QTest::newRow("medium") << 3 << Sizes{19, 211, 9} << Sizes{22, 135, 10} << whole;
        QTest::newRow("small") << 4 << Sizes{13, 141, 7} << Sizes{15, 90, 7} << half;
        QTest::newRow("an unknown size is large") << 7 << Sizes{25, 282, 12} << Sizes{30, 180, 14} << whole;
    }

    void boxesAndBarInEachSize()
    {
        QFETCH(int, size);
        QFETCH(QString, border);
        CSettings settings = fullSettings(size);
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        panel.setSettings(&settings);
        panel.reset();
        for (const char* name : {"driverBox", "carBox"}) {
            const CRichComboBox* selection = box(panel, name);
            const QVector<int> actual{selection->minimumHeight(), selection->maximumWidth(),
                                      selection->font().pointSize()};
            QTEST(actual, "boxes");
        }
        const CRichProgressBar* bar = fuelBar(panel);
        const QVector<int> actual{bar->maximumHeight(), bar->maximumWidth(), bar->font().pointSize()};
        QTEST(actual, "bar");
        QVERIFY2(bar->styleSheet().contains(border), qPrintable(bar->styleSheet()));
    }

    void usualTextsAreWhollyVisibleInEachSize_data()
    {
        QTest::addColumn<int>("size");
        for (int size = 1; size <= 4; ++size)
            QTest::newRow(qPrintable(QString("size %1").arg(size))) << size;
    }

    void usualTextsAreWhollyVisibleInEachSize()
    {
        QFETCH(int, size);
        CSettings settings = fullSettings(size);
        CTrackDisplay panel(1, &settings, nullptr, 1, 3);
        panel.setSettings(&settings);
        for (const int laps : {110, 0, 444, 888, -1, 1000, 4444, 8888, 9999}) {
            panel.setLaps(laps);
            expectNothingCut(*label(panel, "lapCount"));
        }
        for (const char* time : {"00:05:734", "00:00:000", "11:11:111", "44:44:444", "58:88:888"}) {
            for (const QString& name : TimeNames) {
                label(panel, name)->setText(QLatin1String(time));
                expectNothingCut(*label(panel, name));
            }
        }
        for (int status = 1; status <= 8; ++status) {
            panel.setStatus(status);
            expectNothingCut(*label(panel, "status"));
        }
        for (int unit = 0; unit <= 2; ++unit) {
            settings.setSpeedDisplayType(unit);
            panel.setSettings(&settings);
            panel.setSpeed(unit == 1 ? 88.88 : 888.8);
            expectNoSideCut(*label(panel, "speed"));
        }
    }

    void wordsOfTheLegendAreWhollyVisibleInEachSize_data() { usualTextsAreWhollyVisibleInEachSize_data(); }
    void wordsOfTheLegendAreWhollyVisibleInEachSize()
    {
        QFETCH(int, size);
        for (const bool intermediate : {false, true}) {
            CSettings settings = fullSettings(size);
            settings.setDisplayShowIntermediateTimes(intermediate);
            CTrackDisplay panel(2, &settings, nullptr, 1, 3);
            panel.setSettings(&settings);
            for (const QString& name : LabelNames)
                expectNothingCut(*label(panel, name));
        }
    }

    void digitsNeverMoveInEachSize_data() { usualTextsAreWhollyVisibleInEachSize_data(); }
    void digitsNeverMoveInEachSize()
    {
        QFETCH(int, size);
        CSettings settings = fullSettings(size);
        CTrackDisplay panel(1, &settings, nullptr, 1, 3);
        panel.setSettings(&settings);
        CRichLabel& time = *label(panel, "lastLap");
        time.setText(QStringLiteral("00:00:000"));
        const QImage zeros = pictureOf(time);
        time.setText(QStringLiteral("11:11:110"));
        const QImage ones = pictureOf(time);
        const int lastDigit = zeros.width() * 9 / 10; // from here on both show the same "0"
        QCOMPARE(ones.copy(lastDigit, 0, zeros.width(), zeros.height()),
                 zeros.copy(lastDigit, 0, zeros.width(), zeros.height()));
        QVERIFY(ones != zeros);
    }

private:
    static QString shownSections(const CTrackDisplay& panel)
    {
        QString shown;
        for (const char* number : {"1", "2", "3"})
            shown +=
                label(panel, QStringLiteral("section") + number)->isHidden() ? QString() : QString(number);
        return shown;
    }

    static void labelColumns()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QSize>("expected");
        QTest::addColumn<int>("points");
    }

    /** Four sizes, and one row for a size outside them. */
    static void addLabelRows(const QString& name, const QVector<int>& widths, const QVector<int>& heights,
                             const QVector<int>& points)
    {
        const QVector<QPair<int, int>> columns{{1, 0}, {2, 1}, {3, 2}, {4, 3}, {0, 1}, {5, 1}, {-1, 1}};
        for (const auto& [size, column] : columns)
            QTest::newRow(qPrintable(QString("%1 in size %2").arg(name).arg(size)))
                << size << name << QSize(widths.at(column), heights.at(column)) << points.at(column);
    }

    static void checkLabelSize(int type)
    {
        QFETCH(int, size);
        QFETCH(QString, name);
        CSettings settings = fullSettings(size);
        CTrackDisplay panel(type, &settings, nullptr, 1, 3);
        panel.setSettings(&settings);
        QTEST(label(panel, name)->sizeHint(), "expected");
        QTEST(label(panel, name)->font().pointSize(), "points");
        QCOMPARE(label(panel, name)->font().family(), QStringLiteral("Arial"));
    }

    /** @return the extent of the letters, in the label itself or with room on all sides. */
    static QSize inkSize(const CRichLabel& original, int room)
    {
        CRichLabel copy(original.text(), Qt::white);
        QPalette black = copy.palette();
        black.setColor(QPalette::Window, Qt::black);
        copy.setPalette(black);
        copy.setFont(original.font());
        copy.setWidth(original.sizeHint().width() + room);
        copy.setHeight(original.sizeHint().height() + room);
        return inkOf(pictureOf(copy), Qt::black).size();
    }

    static void expectNothingCut(const CRichLabel& shown)
    {
        QVERIFY2(inkSize(shown, 0) == inkSize(shown, 200),
                 qPrintable(shown.objectName() + ' ' + shown.text()));
    }

    static void expectNoSideCut(const CRichLabel& shown)
    {
        QVERIFY2(inkSize(shown, 0).width() == inkSize(shown, 200).width(),
                 qPrintable(shown.objectName() + ' ' + shown.text()));
    }
};

QTEST_MAIN(tst_CTrackDisplaySettings)
#include "tst_CTrackDisplaySettings.moc"

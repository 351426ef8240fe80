#include "shell/TrackDisplayParts.h"
#include "sound/CSoundOutput.h"
#include "sound/SoundOutLib.h"

#include <QLineEdit>
#include <QLocale>
#include <QStringListModel>
#include <QTest>
#include <QVBoxLayout>

using namespace TrackDisplayParts;

namespace {

/** Writes down what reaches the player. */
class CRecordingLib : public SoundOutLib
{
public:
    explicit CRecordingLib(QStringList& calls) : m_calls(calls) {}

    int load(const char* file) override
    {
        m_calls.append(QStringLiteral("load ") + QLatin1String(file));
        return ++m_lastId;
    }
    void unloadAll() override
    {
        m_calls.append(QStringLiteral("unloadAll"));
        m_lastId = 0;
    }
    void enqueue(int id) override { m_calls.append(QStringLiteral("sample %1").arg(id)); }
    void enqueue(const char* text) override { m_calls.append(QStringLiteral("text ") + QLatin1String(text)); }
    void play() override { m_calls.append(QStringLiteral("play")); }
    void stop() override { m_calls.append(QStringLiteral("stop")); }

private:
    QStringList& m_calls;
    int m_lastId = 0;
};

} // namespace

Q_DECLARE_METATYPE(Qt::Alignment)

class tst_CTrackDisplay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // --- building ---

    void typeOutsideOneToTwoIsALegend_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("expected");
        QTest::newRow("track panel") << 1 << 1;
        QTest::newRow("legend") << 2 << 2;
        QTest::newRow("0") << 0 << 2;
        QTest::newRow("3") << 3 << 2;
        QTest::newRow("-1") << -1 << 2;
    }

    void typeOutsideOneToTwoIsALegend()
    {
        QFETCH(int, type);
        CSettings settings;
        QTEST(CTrackDisplay(type, &settings, nullptr, 1, 1).type(), "expected");
    }

    void rowsOutsideOneToThreeAreOne()
    {
        CSettings settings;
        const QMap<int, int> expected{{0, 1}, {1, 1}, {2, 2}, {3, 3}, {4, 1}, {-1, 1}};
        for (auto row = expected.begin(); row != expected.end(); ++row)
            QCOMPARE(CTrackDisplay(1, &settings, nullptr, row.key(), 1).rows(), row.value());
    }

    void panelWithAParentOnlyIsALegendWithOneRow()
    {
        QWidget parent;
        CTrackDisplay panel(&parent);
        QCOMPARE(panel.type(), int(CTrackDisplay::LegendPanel));
        QCOMPARE(panel.rows(), 1);
        QCOMPARE(panel.parentWidget(), &parent);
        CSettings settings = fullSettings(2);
        panel.setSettings(&settings);
        QVERIFY(!label(panel, "section1")->isHidden());
        QVERIFY(label(panel, "section2")->isHidden());
    }

    void freshTrackPanelHoldsColoursAndSampleTexts_data() { contentColumns(true); }
    void freshTrackPanelHoldsColoursAndSampleTexts() { checkContent(CTrackDisplay::TrackPanel); }
    void freshLegendHoldsItsWordsInGrey_data() { contentColumns(false); }
    void freshLegendHoldsItsWordsInGrey() { checkContent(CTrackDisplay::LegendPanel); }

    void noLabelShowsUntilTheSettingsAreApplied()
    {
        CSettings settings = fullSettings(2);
        for (const int type : {1, 2}) {
            CTrackDisplay panel(type, &settings, nullptr, 1, 3);
            for (const QString& name : LabelNames)
                QVERIFY2(label(panel, name)->isHidden(), qPrintable(name));
        }
    }

    void legendHidesBoxesButtonsAndBar()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(CTrackDisplay::LegendPanel, &settings, nullptr, 1, 3);
        panel.setSettings(&settings);
        for (const char* name : {"driverBox", "carBox"})
            QVERIFY2(box(panel, name)->isHidden(), name);
        for (const char* name : {"driverQrButton", "carQrButton"})
            QVERIFY2(button(panel, name)->isHidden(), name);
        QVERIFY(fuelBar(panel)->isHidden());
    }

    void rowsFromTopToBottomAreCentredButTheBar()
    {
        CSettings settings;
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        const auto* layout = qobject_cast<QVBoxLayout*>(panel.layout());
        QVERIFY(layout);
        QCOMPARE(layout->sizeConstraint(), QLayout::SetMinimumSize);
        const QStringList order{"lapCount",  "section1",    "section2",   "section3", "lastLap",
                                "bestLap",   "status",      "averageLap", "speed",    "fuelBar",
                                "fuelLabel", "driverLabel", "carLabel"};
        for (int i = 0; i < order.size(); ++i) {
            QCOMPARE(layout->itemAt(i)->widget()->objectName(), order.at(i));
            const Qt::Alignment expected = order.at(i) == "fuelBar" ? Qt::Alignment() : Qt::AlignHCenter;
            QCOMPARE(layout->itemAt(i)->alignment(), expected);
        }
        checkBoxRow(layout->itemAt(13), "driverBox", "driverQrButton");
        checkBoxRow(layout->itemAt(14), "carBox", "carQrButton");
        QVERIFY(layout->itemAt(15)->spacerItem());
        QCOMPARE(layout->count(), 16);
    }

    void sizeHintsAreThoseOfTheLayout()
    {
        CSettings settings = fullSettings(1);
        CTrackDisplay panel(1, &settings, nullptr, 1, 3);
        panel.setSettings(&settings);
        QCOMPARE(panel.sizeHint(), panel.layout()->sizeHint());
        QCOMPARE(panel.minimumSizeHint(), panel.layout()->minimumSize());
        QVERIFY(panel.sizeHint().width() >= 320);
    }

    // --- figures ---

    void lapCountTexts_data()
    {
        QTest::addColumn<int>("laps");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<int>("percent");
        QTest::newRow("0") << 0 << "000" << 100;
        QTest::newRow("5") << 5 << "005" << 100;
        QTest::newRow("12") << 12 << "012" << 100;
        QTest::newRow("-1 has a blank in front") << -1 << " -1" << 100;
        QTest::newRow("-12") << -12 << "-12" << 100;
        QTest::newRow("-123") << -123 << "-123" << 80;
        QTest::newRow("999") << 999 << "999" << 100;
        QTest::newRow("1000 is smaller") << 1000 << "1000" << 80;
        QTest::newRow("12345 loses its last digit") << 12345 << "1234" << 80;
        QTest::newRow("-2147483648") << std::numeric_limits<int>::min() << "-214" << 80;
    }

    void lapCountTexts()
    {
        QFETCH(int, laps);
        QFETCH(int, percent);
        const QVector<int> points{150, 80, 60, 40};
        for (int size = 1; size <= 4; ++size) {
            CSettings settings = fullSettings(size);
            CTrackDisplay panel(1, &settings, nullptr, 1, 1);
            panel.setSettings(&settings);
            panel.setLaps(laps);
            QTEST(text(panel, "lapCount"), "expected");
            QCOMPARE(label(panel, "lapCount")->font().pointSize(), points.at(size - 1) * percent / 100);
        }
    }

    void shorterLapCountGetsItsSizeBack()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        panel.setSettings(&settings);
        panel.setLaps(1000);
        panel.setLaps(999);
        QCOMPARE(label(panel, "lapCount")->font().pointSize(), 80);
        panel.setLaps(1000);
        panel.reset();
        QCOMPARE(text(panel, "lapCount"), QStringLiteral("000"));
        QCOMPARE(label(panel, "lapCount")->font().pointSize(), 80);
    }

    void timesInMinutesSecondsAndMilliseconds()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(1, &settings, nullptr, 1, 3);
        panel.setLastLap(QTime(0, 0, 5, 734));
        panel.setBestLap(QTime(0, 0, 5, 421));
        panel.setAverageLap(QTime(0, 1, 2, 3));
        panel.setSection1(QTime(0, 0, 0, 1));
        panel.setSection2(QTime(0, 59, 59, 999));
        panel.setSection3(QTime(1, 2, 3, 4)); // the hour doesn't show
        QCOMPARE(text(panel, "lastLap"), QStringLiteral("00:05:734"));
        QCOMPARE(text(panel, "bestLap"), QStringLiteral("00:05:421"));
        QCOMPARE(text(panel, "averageLap"), QStringLiteral("01:02:003"));
        QCOMPARE(text(panel, "section1"), QStringLiteral("00:00:001"));
        QCOMPARE(text(panel, "section2"), QStringLiteral("59:59:999"));
        QCOMPARE(text(panel, "section3"), QStringLiteral("02:03:004"));
    }

    void statusInWords_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("expected");
        QTest::newRow("0") << 0 << "---";
        QTest::newRow("1") << 1 << "---";
        QTest::newRow("2") << 2 << "warten";
        QTest::newRow("3") << 3 << "starten";
        QTest::newRow("4") << 4 << "läuft";
        QTest::newRow("5") << 5 << "frühstart";
        QTest::newRow("6") << 6 << "beendet";
        QTest::newRow("7") << 7 << "sieger";
        QTest::newRow("8") << 8 << "pause";
        QTest::newRow("9") << 9 << "---";
        QTest::newRow("-1") << -1 << "---";
    }

    void statusInWords()
    {
        QFETCH(int, status);
        CSettings settings;
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        panel.setStatus(status);
        QTEST(text(panel, "status"), "expected");
    }

    void speedInItsUnit_data()
    {
        QTest::addColumn<int>("unit");
        QTest::addColumn<double>("speed");
        QTest::addColumn<QString>("expected");
        QTest::newRow("km/h") << 0 << 123.44 << "123,4 km/h";
        QTest::newRow("m/s") << 1 << 3.456 << "3,46 m/s";
        QTest::newRow("mph") << 2 << 76.66 << "76,7 mph";
        QTest::newRow("an unknown unit is km/h") << 3 << 76.66 << "76,7 km/h";
        QTest::newRow("a negative unit is km/h") << -1 << 76.66 << "76,7 km/h";
        QTest::newRow("thousands have no separator") << 0 << 1234.5 << "1234,5 km/h";
        QTest::newRow("none") << 0 << 0.0 << "0,0 km/h";
    }

    void speedInItsUnit()
    {
        QFETCH(int, unit);
        QFETCH(double, speed);
        CSettings settings;
        settings.setSpeedDisplayType(unit);
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        panel.setSpeed(speed);
        QTEST(text(panel, "speed"), "expected");
    }

    void speedHasTheDecimalMarkOfTheProgramsLanguage()
    {
        const QLocale before;
        CSettings settings;
        settings.setSpeedDisplayType(0);
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        QLocale::setDefault(QLocale(QLocale::English));
        panel.setSpeed(12.3);
        const QString english = text(panel, "speed");
        QLocale::setDefault(QLocale(QLocale::French)); // no catalogue: the German texts stand
        panel.setSpeed(12.4);
        const QString other = text(panel, "speed");
        QLocale::setDefault(before);
        QCOMPARE(english, QStringLiteral("12.3 km/h"));
        QCOMPARE(other, QStringLiteral("12,4 km/h"));
    }

    void speedOfALegendStaysItsWord()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(2, &settings, nullptr, 1, 1);
        panel.setSettings(&settings);
        panel.setSpeed(12.3);
        QCOMPARE(text(panel, "speed"), QStringLiteral("<SPEED>"));
    }

    void fuelGoesToTheBar()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        panel.setSettings(&settings);
        panel.setColor(QStringLiteral("#00FF00"));
        panel.setFuel(21);
        QCOMPARE(fuelBar(panel)->value(), 21);
        QVERIFY(fuelBar(panel)->styleSheet().contains(QLatin1String("solid #00FF00")));
        panel.setFuel(20);
        QCOMPARE(fuelBar(panel)->value(), 20);
        QVERIFY(fuelBar(panel)->styleSheet().contains(QLatin1String("solid ") +
                                                      settings.colorBestLapAndStatus()));
    }

    void resetShowsARaceThatHasNotBegun()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(1, &settings, nullptr, 1, 3);
        panel.setSettings(&settings);
        panel.setLaps(17);
        panel.setStatus(4);
        panel.setSpeed(33.3);
        panel.setFuel(12);
        panel.reset();
        QCOMPARE(text(panel, "lapCount"), QStringLiteral("000"));
        for (const QString& name : TimeNames)
            QCOMPARE(text(panel, name), QStringLiteral("00:00:000"));
        QCOMPARE(text(panel, "status"), QStringLiteral("---"));
        QCOMPARE(text(panel, "speed"), QStringLiteral("0,0 km/h"));
        QCOMPARE(fuelBar(panel)->value(), 100);
    }

    void resetLeavesALegendAsItIs()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(2, &settings, nullptr, 1, 3);
        panel.setSettings(&settings);
        panel.reset();
        QCOMPARE(text(panel, "lapCount"), QString());
        QCOMPARE(text(panel, "lastLap"), QStringLiteral("<LAST>"));
        QCOMPARE(text(panel, "section1"), QStringLiteral("<SEC1>"));
        QCOMPARE(text(panel, "status"), QString());
        QCOMPARE(text(panel, "speed"), QStringLiteral("<SPEED>"));
    }

    void trackColourGoesToTheFiguresOfTheTrack()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(1, &settings, nullptr, 1, 3);
        panel.setSettings(&settings);
        panel.setColor(QStringLiteral("#00FF00"));
        for (const char* name :
             {"lapCount", "lastLap", "averageLap", "section1", "section2", "section3", "speed"})
            QCOMPARE(label(panel, name)->color(), QColor(Qt::green));
        for (const char* name : {"bestLap", "status"})
            QCOMPARE(label(panel, name)->color(), QColor(settings.colorBestLapAndStatus()));
        QCOMPARE(fuelBar(panel)->colorName(), QStringLiteral("#00FF00"));
        for (const char* name : {"driverBox", "carBox"})
            QCOMPARE(box(panel, name)->styleSheet(),
                     QStringLiteral("color: #00FF00; selection-color: #00FF00;"));
        for (const char* name : {"driverQrButton", "carQrButton"})
            QCOMPARE(button(panel, name)->styleSheet(),
                     QStringLiteral("background-color: #00FF00; padding: 0px;"));
    }

    void legendIgnoresTheTrackColour()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(2, &settings, nullptr, 1, 3);
        panel.setSettings(&settings);
        panel.setColor(QStringLiteral("#00FF00"));
        for (const QString& name : LabelNames)
            QCOMPARE(label(panel, name)->color(), QColor(0x99, 0x99, 0x99));
    }

    // --- driver and car ---

    void boxesKeepTheIndexOfTheirModels()
    {
        CSettings settings;
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        QStringListModel drivers({"Anna", "Ben", "Cleo"});
        QStringListModel cars({"Käfer", "Ente"});
        panel.setDriverModel(&drivers);
        panel.setCarModel(&cars);
        panel.setDriverIndex(2);
        panel.setCarIndex(1);
        QCOMPARE(panel.driverIndex(), 2);
        QCOMPARE(panel.carIndex(), 1);
        QCOMPARE(panel.driverName(), QStringLiteral("Cleo"));
        QCOMPARE(box(panel, "carBox")->currentText(), QStringLiteral("Ente"));
        panel.setDriverIndex(-1);
        QCOMPARE(panel.driverName(), QString());
    }

    void boxesAreLockedWhileARaceRuns()
    {
        CSettings settings;
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        panel.lockBoxes(true);
        QVERIFY(!box(panel, "driverBox")->isEnabled());
        QVERIFY(!box(panel, "carBox")->isEnabled());
        panel.lockBoxes(false);
        QVERIFY(box(panel, "driverBox")->isEnabled());
        QVERIFY(box(panel, "carBox")->isEnabled());
    }

    void clientShowsNamesInBoxesThatStayLocked()
    {
        CSettings settings = fullSettings(2);
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        panel.setClientMode(true);
        panel.setSettings(&settings);
        QStringListModel own({"somebody of this machine"});
        panel.setDriverModel(&own);
        panel.setCarModel(&own);
        panel.setDriverName(QStringLiteral("Anna"));
        panel.setCarName(QStringLiteral("Käfer"));
        QCOMPARE(panel.driverName(), QStringLiteral("Anna"));
        QCOMPARE(box(panel, "carBox")->currentText(), QStringLiteral("Käfer"));
        for (const bool lock : {true, false}) {
            panel.lockBoxes(lock);
            QVERIFY(!box(panel, "driverBox")->isEnabled());
            QVERIFY(!box(panel, "carBox")->isEnabled());
        }
        QVERIFY(box(panel, "driverBox")->isEditable());
        QVERIFY(!button(panel, "driverQrButton")->isEnabled());
        QVERIFY(!button(panel, "carQrButton")->isEnabled());
        QCOMPARE(own.rowCount(), 1); // the list of this machine stays as it is
    }

    void clientShowsTheWholeOfANameThatIsInNoBox()
    {
        CSettings settings = fullSettings(2);
        QStringListModel nobody;
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        panel.setClientMode(true);
        panel.setSettings(&settings);
        panel.setDriverModel(&nobody);
        panel.setCarModel(&nobody);
        panel.show();
        for (const QString name : {"Blau #1", "Grün #3", "Jo"}) {
            panel.setCarName(name);
            QCoreApplication::processEvents();
            panel.adjustSize(); // as the dashboard does
            QCoreApplication::processEvents();
            const QLineEdit* line = box(panel, "carBox")->lineEdit();
            QVERIFY2(line->width() > line->fontMetrics().horizontalAdvance(name), qPrintable(name));
        }
        panel.setCarName(QString(20000, 'M'));
        QVERIFY(box(panel, "carBox")->sizeHint().width() < 2000);
    }

    void serverModeLeavesBoxesToTheUser()
    {
        CSettings settings;
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        panel.setClientMode(false);
        QVERIFY(!box(panel, "driverBox")->isEditable());
        QVERIFY(box(panel, "driverBox")->isEnabled());
        QVERIFY(button(panel, "driverQrButton")->isEnabled());
    }

    void codeButtonsAskForTheReaderWithTheirPanel()
    {
        CSettings settings;
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        QList<CTrackDisplay*> asked;
        connect(&panel, &CTrackDisplay::triggerQrReader,
                [&asked](CTrackDisplay* display) { asked.append(display); });
        button(panel, "driverQrButton")->click();
        button(panel, "carQrButton")->click();
        QCOMPARE(asked, (QList<CTrackDisplay*>{&panel, &panel}));
    }

    // --- voice ---

    void voiceLoadsItsSamplesWithTheSettings()
    {
        CSettings settings = fullSettings(2);
        settings.setDriveThroughSound(QStringLiteral("lap.wav"));
        settings.setNewBestLapSound(QStringLiteral("best.wav"));
        settings.setSoundEnhanced(true);
        QStringList calls;
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        panel.setSoundOutput(std::make_unique<CSoundOutput>(std::make_unique<CRecordingLib>(calls)));
        QCOMPARE(calls, QStringList());
        panel.setSettings(&settings);
        QCOMPARE(calls.mid(calls.size() - 4),
                 (QStringList{"unloadAll", "load lap.wav", "load best.wav", "load best.wav"}));
    }

    void silentSettingsLoadNoSamples()
    {
        CSettings settings = fullSettings(2);
        QStringList calls;
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        panel.setSoundOutput(std::make_unique<CSoundOutput>(std::make_unique<CRecordingLib>(calls)));
        panel.setSettings(&settings);
        QCOMPARE(calls, QStringList());
    }

    void voiceOfALap_data()
    {
        QTest::addColumn<bool>("laps");
        QTest::addColumn<bool>("time");
        QTest::addColumn<bool>("bestOnly");
        QTest::addColumn<int>("lapKind");
        QTest::addColumn<QStringList>("expected");
        const QString count = QStringLiteral("text 012");
        const QString time = QStringLiteral("text 00:05:734");
        const QString best = QStringLiteral("text B00:05:734");
        const QString lapSample = QStringLiteral("sample 1");
        const QString bestSample = QStringLiteral("sample 2");
        using Calls = QStringList;
        QTest::newRow("all off: a lap plays the lap sample")
            << false << false << false << 1 << Calls{lapSample};
        QTest::newRow("all off: a best lap plays the best lap sample")
            << false << false << false << 2 << Calls{bestSample};
        QTest::newRow("count, lap") << true << false << false << 1 << Calls{count};
        QTest::newRow("count, best lap") << true << false << false << 2 << Calls{count};
        QTest::newRow("time, lap") << false << true << false << 1 << Calls{time};
        QTest::newRow("time, best lap") << false << true << false << 2 << Calls{best};
        QTest::newRow("count and time, lap") << true << true << false << 1 << Calls{count, time};
        QTest::newRow("count and time, best lap") << true << true << false << 2 << Calls{count, best};
        QTest::newRow("best times only, count off, lap") << false << true << true << 1 << Calls{lapSample};
        QTest::newRow("best times only, count off, best lap") << false << true << true << 2 << Calls{best};
        QTest::newRow("best times only, count on, lap") << true << true << true << 1 << Calls{count};
        QTest::newRow("best times only, count on, best lap")
            << true << true << true << 2 << Calls{count, best};
        QTest::newRow("best times only without times, lap")
            << false << false << true << 1 << Calls{lapSample};
        QTest::newRow("best times only without times, best lap")
            << false << false << true << 2 << Calls{bestSample};
        QTest::newRow("a sensor in the middle of a lap cuts the announcement")
            << true << true << false << 0 << Calls{};
        QTest::newRow("an unknown kind speaks nothing") << true << true << false << 3 << Calls{};
    }

    void voiceOfALap()
    {
        QFETCH(bool, laps);
        QFETCH(bool, time);
        QFETCH(bool, bestOnly);
        QFETCH(int, lapKind);
        QFETCH(QStringList, expected);
        CSettings settings = fullSettings(2);
        settings.setSoundEnhanced(true);
        settings.setSoundVoiceOutputLaps(laps);
        settings.setSoundVoiceOutputLapTime(time);
        settings.setSoundVoiceOutputBestLapTime(bestOnly);
        QStringList calls;
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        panel.setSoundOutput(std::make_unique<CSoundOutput>(std::make_unique<CRecordingLib>(calls)));
        panel.setSettings(&settings);
        panel.setLaps(12);
        panel.setLastLap(QTime(0, 0, 5, 734));
        calls.clear();
        panel.voiceOutput(lapKind);
        QCOMPARE(calls, QStringList{"stop"} + expected + QStringList{"play"});
    }

    void voiceIsSilentWithoutItsSettingAndOnALegend()
    {
        CSettings settings = fullSettings(2);
        QStringList calls;
        CTrackDisplay panel(1, &settings, nullptr, 1, 1);
        panel.setSoundOutput(std::make_unique<CSoundOutput>(std::make_unique<CRecordingLib>(calls)));
        panel.setSettings(&settings);
        panel.voiceOutput(1);
        QCOMPARE(calls, QStringList());
        settings.setSoundEnhanced(true);
        CTrackDisplay legend(2, &settings, nullptr, 1, 1);
        legend.setSoundOutput(std::make_unique<CSoundOutput>(std::make_unique<CRecordingLib>(calls)));
        legend.setSettings(&settings);
        legend.voiceOutput(1);
        QCOMPARE(calls, QStringList());
    }

    // --- costs ---

    void newFiguresMoveNoLayout()
    {
        CSettings settings = fullSettings(1);
        CTrackDisplay panel(1, &settings, nullptr, 1, 3);
        panel.setSettings(&settings);
        panel.reset();
        panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        const QSize before = panel.sizeHint();
        LayoutRequests requests(panel);
        panel.setLaps(1000);
        panel.setLastLap(QTime(0, 0, 5, 734));
        panel.setStatus(5);
        panel.setSpeed(123.4);
        panel.setFuel(99);
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
        QCOMPARE(requests.count, 0);
        QCOMPARE(panel.sizeHint(), before);
    }

private:
    class LayoutRequests : public QObject
    {
    public:
        explicit LayoutRequests(QWidget& widget) { widget.installEventFilter(this); }
        int count = 0;

    protected:
        bool eventFilter(QObject*, QEvent* event) override
        {
            count += event->type() == QEvent::LayoutRequest ? 1 : 0;
            return false;
        }
    };

    static void contentColumns(bool track)
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("color");
        QTest::addColumn<QString>("expected");
        const auto add = [track](const char* name, const char* trackColor, const char* trackText,
                                 const char* legend) {
            QTest::newRow(name) << name << (track ? trackColor : "#999999") << (track ? trackText : legend);
        };
        add("lapCount", "#FFC80A", "110", "");
        add("lastLap", "#FFC80A", "00:05:734", "<LAST>");
        add("bestLap", "#FF3214", "00:05:421", "<FAST>");
        add("status", "#FF3214", "---", "");
        add("averageLap", "#FFC80A", "00:05:734", "<AVER>");
        add("section1", "#FFC80A", "00:05:734", "");
        add("section2", "#FFC80A", "00:05:734", "");
        add("section3", "#FFC80A", "00:05:734", "");
        add("speed", "#FFC80A", "123,4 km/h", "<SPEED>");
        add("fuelLabel", "#999999", "<FUEL>", "<FUEL>");
        add("driverLabel", "#999999", "<DRIVER>", "<DRIVER>");
        add("carLabel", "#999999", "<CAR>", "<CAR>");
    }

    static void checkContent(int type)
    {
        QFETCH(QString, name);
        QFETCH(QString, color);
        CSettings settings;
        CTrackDisplay panel(type, &settings, nullptr, 1, 3);
        QTEST(text(panel, name), "expected");
        QCOMPARE(label(panel, name)->color(), QColor(color));
        QCOMPARE(fuelBar(panel)->minimum(), 0);
        QCOMPARE(fuelBar(panel)->maximum(), 100);
    }

    static void checkBoxRow(QLayoutItem* item, const char* boxName, const char* buttonName)
    {
        QVERIFY(item->layout());
        QCOMPARE(item->alignment(), Qt::Alignment(Qt::AlignHCenter));
        QCOMPARE(item->layout()->itemAt(0)->widget()->objectName(), QLatin1String(boxName));
        QCOMPARE(item->layout()->itemAt(1)->widget()->objectName(), QLatin1String(buttonName));
    }
};

QTEST_MAIN(tst_CTrackDisplay)
#include "tst_CTrackDisplay.moc"

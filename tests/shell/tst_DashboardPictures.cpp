#include "race/CLightAction.h"
#include "race/CRaceMember.h"
#include "shell/CInfoFrame.h"
#include "shell/CLights.h"
#include "shell/CTranslationCatalogue.h"
#include "shell/MainDialogFixture.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QSettings>
#include <QTranslator>

namespace {

const QSize Screen(1920, 1080);

enum State
{
    Running,
    Paused,
    Ended
};

const char* const StateNames[] = {"running", "paused", "ended"};

CRaceEvent lapOfTrack(int track, State state)
{
    CRaceEvent event;
    event.type = CRaceEvent::MemberChanged;
    event.track = track;
    event.laps = 98 + track;
    event.lastLapTime = QTime(0, 0, 8, 531 + track);
    event.bestLapTime = QTime(0, 0, 8, 88);
    event.averageLapTime = QTime(0, 0, 8, 900);
    event.sector1Time = event.split1Time = QTime(0, 0, 2, 800);
    event.sector2Time = event.split2Time = QTime(0, 0, 2, 888);
    event.sector3Time = event.split3Time = QTime(0, 0, 3, 88);
    event.speed = 288.8;
    event.fuelPercent = 15 + 10 * track;
    event.raceRunning = state != Ended;
    const CRaceMemberStatus ended = track == 0 ? CRaceMemberStatus::Winner : CRaceMemberStatus::Finished;
    event.status = int(state == Running  ? CRaceMemberStatus::Running
                       : state == Paused ? CRaceMemberStatus::Paused
                                         : ended);
    return event;
}

/** @return the text of the race that gives the longest message, in the language of the program. */
QString resultText()
{
    return QCoreApplication::translate(
               "CWinningConditionMostConstantTimes",
               "Fahrer %1 hat mit einer max. Abweichung von %2 gewonnen. Die schnellste Rundenzeit war %3, "
               "die langsamste %4.")
        .arg("1", "00:00:443", "00:08:088", "00:08:531");
}

void showRace(MainDialogFixture& fixture, int tracks, State state)
{
    fixture.dialog.vSetUiRaceStarted();
    fixture.dialog.updateLightsDisplay(CLightAction::Go);
    for (int track = 0; track < tracks; ++track)
        fixture.dialog.HandleEventRace(lapOfTrack(track, state));
    fixture.dialog.setRaceTime(QTime(0, 12, 34));
    if (state == Paused)
        fixture.dialog.vSetUiRacePaused();
    if (state == Ended) {
        fixture.dialog.vSetUiRaceStopped();
        fixture.dialog.updateLightsDisplay(CLightAction::AllRed);
        fixture.dialog.setAdditionalInfo(resultText());
    }
}

void showAllFields(CSettings& settings)
{
    settings.setDisplayShowAverageLapTime(true);
    settings.setDisplayShowSectorTimes(true);
    settings.setDisplaySpeed(true);
    settings.setDisplayFuel(true);
    settings.setQrCodeHandlingEnabled(true);
}

bool fitsOnScreen(int tracks, int size, bool allFields)
{
    const int rows = tracks <= 3 ? 1 : 2;
    const int largest = rows == 1 && !allFields  ? CSettings::VeryLarge
                        : rows == 2 && allFields ? CSettings::Small
                                                 : CSettings::Large;
    return size >= largest;
}

/** Shows the window as large as the screen, and waits until it is laid out. */
bool showOnScreen(CKelmoMainDialog& dialog)
{
    dialog.resize(Screen);
    dialog.show();
    return QTest::qWaitForWindowExposed(&dialog);
}

/** The visible widgets that the dashboard shows something on. */
QList<QWidget*> shownWidgets(const CKelmoMainDialog& dialog)
{
    QList<QWidget*> widgets{dialog.findChild<CLights*>("lights"), dialog.findChild<CInfoFrame*>("infoFrame")};
    for (CTrackDisplay* panel : dialog.findChildren<CTrackDisplay*>()) {
        if (!panel->isVisible())
            continue;
        widgets.append(panel);
        for (QWidget* child : panel->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (child->isVisible())
                widgets.append(child);
        }
    }
    return widgets;
}

QRect rectOnDialog(const QWidget* widget, const QWidget* dialog)
{
    return {widget->mapTo(const_cast<QWidget*>(dialog), QPoint(0, 0)), widget->size()};
}

/** @return where the clock and the figures of all tracks stand, by track and label. */
QMap<QString, QRect> placesOfFigures(const CKelmoMainDialog& dialog)
{
    QMap<QString, QRect> places;
    for (const CTrackDisplay* panel : dialog.findChildren<CTrackDisplay*>()) {
        for (const CRichLabel* label : panel->findChildren<CRichLabel*>()) {
            if (label->isVisible())
                places[panel->objectName() + ' ' + label->objectName()] = rectOnDialog(label, &dialog);
        }
    }
    const auto* clock = dialog.findChild<QLabel*>("raceTime");
    places["clock"] = QRect(rectOnDialog(clock, &dialog).topLeft(), QSize()); // its text begins there
    return places;
}

/** The program's English as long as this object lives. */
class EnglishProgram
{
public:
    EnglishProgram()
    {
        QLocale::setDefault(QLocale("en"));
        m_found = CTranslationCatalogue::load(m_translator, QLocale("en"), {TORNIK_BIN_DIR "/languages"});
        QCoreApplication::installTranslator(&m_translator);
    }
    ~EnglishProgram()
    {
        QCoreApplication::removeTranslator(&m_translator);
        QLocale::setDefault(QLocale::c());
    }
    bool isFound() const { return m_found; }

private:
    Q_DISABLE_COPY(EnglishProgram)

    QTranslator m_translator;
    bool m_found;
};

/** A change of size goes up from widget to widget, one event each. */
void letLayoutsSettle()
{
    for (int level = 0; level < 8; ++level)
        QCoreApplication::processEvents();
}

/** Saves the picture where a person wants to look at it: into the directory TORNIK_PICTURES. */
bool savePicture(CKelmoMainDialog& dialog, const QString& name)
{
    letLayoutsSettle();
    const QString directory = qEnvironmentVariable("TORNIK_PICTURES");
    return directory.isEmpty() || dialog.grab().save(QDir(directory).filePath(name + ".png"));
}

} // namespace

/** The whole dashboard at 1920 x 1080; with TORNIK_PICTURES set, for a person to look at. */
class tst_DashboardPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void eightTracksInTheLargeSizeAreWhollyVisible_data();
    void eightTracksInTheLargeSizeAreWhollyVisible();
    void eightTracksInTheSmallSizeAreWhollyVisibleWithAllFields();
    void figuresStandStillInAllStates_data();
    void figuresStandStillInAllStates();
};

void tst_DashboardPictures::init()
{
    QFile::remove("tornik.db");
    QSettings("Tornik", "Tornik").clear();
}

void tst_DashboardPictures::eightTracksInTheLargeSizeAreWhollyVisible_data()
{
    QTest::addColumn<bool>("english");
    QTest::newRow("German") << false;
    QTest::newRow("English") << true;
}

void tst_DashboardPictures::eightTracksInTheLargeSizeAreWhollyVisible()
{
    QFETCH(bool, english);
    const auto language = english ? std::make_unique<EnglishProgram>() : nullptr;
    QVERIFY(!language || language->isFound());
    MainDialogFixture fixture;
    QCOMPARE(fixture.settings.displaySize(), int(CSettings::Large));
    fixture.setRaceway(racewayWithTracks(8));
    QVERIFY(showOnScreen(fixture.dialog));
    showRace(fixture, 8, Ended);
    letLayoutsSettle();
    QCOMPARE(fixture.dialog.size(), Screen);
    const QList<QWidget*> widgets = shownWidgets(fixture.dialog);
    QVERIFY(widgets.size() > 8 * 6);
    for (const QWidget* widget : widgets) {
        const QRect rect = rectOnDialog(widget, &fixture.dialog);
        QVERIFY2(fixture.dialog.rect().contains(rect), qPrintable(widget->objectName()));
        QVERIFY2(rect.height() >= widget->minimumSizeHint().height(), qPrintable(widget->objectName()));
    }
    const auto* message = fixture.dialog.findChild<QLabel*>("additionalInfo");
    QVERIFY(message->height() >= message->heightForWidth(message->width()));
}

void tst_DashboardPictures::eightTracksInTheSmallSizeAreWhollyVisibleWithAllFields()
{
    MainDialogFixture fixture;
    showAllFields(fixture.settings);
    fixture.settings.setDisplaySize(CSettings::Small);
    CRaceway raceway = racewayWithTracks(8);
    raceway.numberOfSectors = 3;
    fixture.setRaceway(raceway);
    QVERIFY(showOnScreen(fixture.dialog));
    showRace(fixture, 8, Ended);
    QVERIFY(savePicture(fixture.dialog, "all-fields-small"));
    QCOMPARE(fixture.dialog.size(), Screen);
    for (const QWidget* widget : shownWidgets(fixture.dialog))
        QVERIFY2(fixture.dialog.rect().contains(rectOnDialog(widget, &fixture.dialog)),
                 qPrintable(widget->objectName()));
}

void tst_DashboardPictures::figuresStandStillInAllStates_data()
{
    QTest::addColumn<int>("tracks");
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("allFields");
    QTest::addColumn<bool>("english");
    const bool forAPerson = !qEnvironmentVariableIsEmpty("TORNIK_PICTURES");
    for (const int tracks : {1, 2, 4, 7, 8}) {
        for (int size = CSettings::VeryLarge; size <= CSettings::Small; ++size) {
            for (const bool allFields : {false, true}) {
                if (!forAPerson && !fitsOnScreen(tracks, size, allFields))
                    continue;
                const QString name = QStringLiteral("tracks%1-size%2-%3")
                                         .arg(QString::number(tracks), QString::number(size),
                                              allFields ? "all-fields" : "usual-fields");
                QTest::newRow(qPrintable(name)) << tracks << size << allFields << false;
                if (forAPerson)
                    QTest::newRow(qPrintable(name + "-english")) << tracks << size << allFields << true;
            }
        }
    }
}

void tst_DashboardPictures::figuresStandStillInAllStates()
{
    QFETCH(int, tracks);
    QFETCH(int, size);
    QFETCH(bool, allFields);
    QFETCH(bool, english);
    const auto language = english ? std::make_unique<EnglishProgram>() : nullptr;
    QVERIFY(!language || language->isFound());
    MainDialogFixture fixture;
    fixture.settings.setDisplaySize(size);
    if (allFields)
        showAllFields(fixture.settings);
    CRaceway raceway = racewayWithTracks(tracks);
    raceway.numberOfSectors = 3;
    fixture.setRaceway(raceway);
    QVERIFY(showOnScreen(fixture.dialog));
    letLayoutsSettle();
    const QMap<QString, QRect> before = placesOfFigures(fixture.dialog);
    QVERIFY(before.size() >= 4 * tracks);
    for (const State state : {Running, Paused, Ended}) {
        showRace(fixture, tracks, state);
        QVERIFY(savePicture(fixture.dialog, QString(QTest::currentDataTag()) + '-' + StateNames[state]));
        if (!fitsOnScreen(tracks, size, allFields))
            continue; // the window is as large as it must be, and a long message takes from the panels
        QCOMPARE(fixture.dialog.size(), Screen);
        QCOMPARE(placesOfFigures(fixture.dialog), before);
    }
}

QTEST_MAIN(tst_DashboardPictures)
#include "tst_DashboardPictures.moc"

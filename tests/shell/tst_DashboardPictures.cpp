#include "race/CLightAction.h"
#include "race/CRaceMember.h"
#include "shell/CInfoFrame.h"
#include "shell/CLights.h"
#include "shell/MainDialogFixture.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QSettings>

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
        fixture.dialog.setAdditionalInfo(
            "Die schnellste Runde war die 12. Runde von Anna mit einer Zeit von 00:08:088.");
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
    void eightTracksInTheLargeSizeAreWhollyVisible();
    void eightTracksInTheSmallSizeAreWhollyVisibleWithAllFields();
    void dashboardInAllStates_data();
    void dashboardInAllStates();
};

void tst_DashboardPictures::init()
{
    QFile::remove("tornik.db");
    QSettings("Tornik", "Tornik").clear();
}

void tst_DashboardPictures::eightTracksInTheLargeSizeAreWhollyVisible()
{
    MainDialogFixture fixture;
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

void tst_DashboardPictures::dashboardInAllStates_data()
{
    QTest::addColumn<int>("tracks");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("state");
    const int lastState = qEnvironmentVariableIsEmpty("TORNIK_PICTURES") ? Running : Ended;
    for (const int tracks : {1, 2, 4, 7, 8}) {
        for (int size = CSettings::VeryLarge; size <= CSettings::Small; ++size) {
            for (int state = Running; state <= lastState; ++state)
                QTest::newRow(qPrintable(
                    QStringLiteral("tracks%1-size%2-%3").arg(tracks).arg(size).arg(StateNames[state])))
                    << tracks << size << state;
        }
    }
}

void tst_DashboardPictures::dashboardInAllStates()
{
    QFETCH(int, tracks);
    QFETCH(int, size);
    QFETCH(int, state);
    MainDialogFixture fixture;
    fixture.settings.setDisplaySize(size);
    fixture.setRaceway(racewayWithTracks(tracks));
    QVERIFY(showOnScreen(fixture.dialog));
    showRace(fixture, tracks, State(state));
    for (int number = 1; number <= tracks; ++number)
        QVERIFY(fixture.track(number)->isVisible());
    QVERIFY(savePicture(fixture.dialog, QTest::currentDataTag()));
}

QTEST_MAIN(tst_DashboardPictures)
#include "tst_DashboardPictures.moc"

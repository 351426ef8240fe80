#include "data/CDriverList.h"
#include "shell/CTrackPanels.h"
#include "shell/CTrackRows.h"
#include "shell/MainDialogFixture.h"

#include <QFile>
#include <QProgressBar>
#include <QSettings>

namespace {

/** @return where the widget stands on the window. */
QRect placeOf(const QWidget* widget, QWidget* window)
{
    return {widget->mapTo(window, QPoint(0, 0)), widget->size()};
}

} // namespace

/** How the panels stand on a window that is wider than they are. */
class tst_CTrackPanels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void eachRowStandsInTheMiddleWithItsPanelsInTheirOwnWidth_data();
    void eachRowStandsInTheMiddleWithItsPanelsInTheirOwnWidth();
    void fuelBarStandsBelowTheFiguresOfItsTrack_data();
    void fuelBarStandsBelowTheFiguresOfItsTrack();
};

void tst_CTrackPanels::init()
{
    QFile::remove("tornik.db");
    QSettings("Tornik", "Tornik").clear();
}

void tst_CTrackPanels::eachRowStandsInTheMiddleWithItsPanelsInTheirOwnWidth_data()
{
    QTest::addColumn<int>("tracks");
    QTest::newRow("one row with a track and a legend") << 1;
    QTest::newRow("three and one") << 4;
    QTest::newRow("three and two") << 5;
    QTest::newRow("four and three") << 7;
    QTest::newRow("two equal rows") << 8;
}

void tst_CTrackPanels::eachRowStandsInTheMiddleWithItsPanelsInTheirOwnWidth()
{
    QFETCH(int, tracks);
    MainDialogFixture fixture;
    fixture.settings.setDisplayFuel(true);
    fixture.setRaceway(racewayWithTracks(tracks));
    fixture.dialog.resize(1920, 1080);
    QVERIFY(fixture.activate());
    const CTrackRows rows(tracks);
    for (const QVector<int>& row : {rows.firstRow(), rows.secondRow()}) {
        QRect rowPlace;
        for (const int number : row) {
            const QString name = (CTrackRows::isTrackPanel(number) ? QString("track%1") : QString("legend%1"))
                                     .arg(number / 2 + 1);
            const auto* panel = fixture.dialog.findChild<CTrackDisplay*>(name);
            QVERIFY(panel->isVisible());
            QCOMPARE(panel->width(), panel->sizeHint().width());
            rowPlace |= placeOf(panel, &fixture.dialog);
        }
        if (!row.isEmpty())
            QVERIFY2(qAbs(rowPlace.center().x() - fixture.dialog.rect().center().x()) <= 1,
                     qPrintable(QString::number(rowPlace.center().x())));
    }
}

void tst_CTrackPanels::fuelBarStandsBelowTheFiguresOfItsTrack_data()
{
    QTest::addColumn<int>("displaySize");
    QTest::addColumn<QString>("driverName");
    for (int size = CSettings::VeryLarge; size <= CSettings::Small; ++size) {
        QTest::newRow(qPrintable(QString("size %1").arg(size))) << size << "Anna";
        QTest::newRow(qPrintable(QString("size %1, wide boxes").arg(size)))
            << size << "Maximilian Mustermann-Schmidt";
    }
}

void tst_CTrackPanels::fuelBarStandsBelowTheFiguresOfItsTrack()
{
    QFETCH(int, displaySize);
    QFETCH(QString, driverName);
    CDriver driver;
    driver.setName(driverName);
    CDriverList().addDriver(driver);
    MainDialogFixture fixture;
    fixture.settings.setDisplayFuel(true);
    fixture.settings.setDisplaySize(displaySize);
    fixture.setRaceway(racewayWithTracks(4));
    fixture.dialog.resize(1920, 1080);
    QVERIFY(fixture.activate());
    for (const int track : {1, 4}) {
        const QRect figures =
            placeOf(fixture.track(track)->findChild<CRichLabel*>("lapCount"), &fixture.dialog);
        const QRect bar = placeOf(fixture.track(track)->findChild<QProgressBar*>(), &fixture.dialog);
        QVERIFY(bar.top() > figures.bottom());
        QCOMPARE(bar.width(), fixture.track(track)->findChild<QProgressBar*>()->maximumWidth());
        QVERIFY(qAbs(bar.center().x() - figures.center().x()) <= 1);
    }
}

QTEST_MAIN(tst_CTrackPanels)
#include "tst_CTrackPanels.moc"

#include "data/CRaceway.h"
#include "wizard/WizardDriver.h"

#include <QTest>

namespace {

constexpr int MostTracks = 8;
const QString At2560 = QStringLiteral("L&T AT2560");

/** The answers that decide the way. */
struct Answers
{
    QString hardware = QStringLiteral("Parallel Port");
    bool chaosButton = false;
    bool chaosSignal = false;
    bool powerOff = false;
    bool lights = false;
    bool separateEnd = false;
    int fuelIndex = 0;
    int sectorIndex = 0;
    int tracks = 1;
};

QString describe(const Answers& a)
{
    return QStringLiteral("%1 chaos %2%3 power %4 lights %5 end %6 fuel %7 sectors %8 tracks %9")
        .arg(a.hardware)
        .arg(a.chaosButton)
        .arg(a.chaosSignal)
        .arg(a.powerOff)
        .arg(a.lights)
        .arg(a.separateEnd)
        .arg(a.fuelIndex)
        .arg(a.sectorIndex)
        .arg(a.tracks);
}

QStringList pagesOfTrack(int number, const Answers& answers)
{
    QStringList pages{"CRwWizardSlotPage"};
    if (answers.fuelIndex == 1 || answers.fuelIndex == 3 || answers.fuelIndex == 4)
        pages << "CRwWizardFuelSensorPage";
    if (answers.fuelIndex == 2 || answers.fuelIndex == 4)
        pages << "CRwWizardFuelFinishedSensorPage";
    if (answers.sectorIndex > 0)
        pages << "CRwWizardSector2SensorPage";
    if (answers.sectorIndex == 2)
        pages << "CRwWizardSector3SensorPage";
    if (answers.separateEnd)
        pages << "CRwWizardEndSensorPage";
    for (QString& page : pages)
        page += QStringLiteral(" %1").arg(number);
    return pages;
}

/** @return the pages from the features on, as the rules tell them. */
QStringList expectedPages(const Answers& answers)
{
    QStringList pages{"CAvailableFeaturesPage"};
    if (answers.hardware != At2560)
        pages << "COpenPage";
    if (answers.chaosButton)
        pages << "CChaosButtonPage";
    if (answers.chaosButton && answers.chaosSignal)
        pages << "CChaosPhaseOutputPage";
    if (answers.powerOff)
        pages << "CPowerOffFeaturePage";
    if (answers.lights)
        pages << "CRwWizardLightsPage";
    for (int number = 1; number <= answers.tracks; ++number)
        pages << pagesOfTrack(number, answers);
    return pages << "CRwWizardDebounceTimePage"
                 << "CFinishPage";
}

/** @return every combination of answers that can be given on one kind of hardware. */
QVector<Answers> allAnswers(const QString& hardware)
{
    QVector<Answers> all;
    Answers answers;
    answers.hardware = hardware;
    for (int features = 0; features < 32; ++features) {
        answers.chaosButton = features & 1;
        answers.chaosSignal = features & 2;
        answers.powerOff = features & 4;
        answers.lights = features & 8;
        answers.separateEnd = features & 16;
        if (answers.chaosSignal && !answers.chaosButton) // can't be chosen
            continue;
        for (answers.fuelIndex = 0; answers.fuelIndex <= 4; ++answers.fuelIndex) {
            for (answers.sectorIndex = 0; answers.sectorIndex <= 2; ++answers.sectorIndex) {
                for (answers.tracks = 1; answers.tracks <= MostTracks; ++answers.tracks)
                    all.append(answers);
            }
        }
    }
    return all;
}

/** The controls of the first three pages, set without a look at them. */
void preset(const CRacewayWizard& wizard, const Answers& answers)
{
    const auto check = [&wizard](const char* box, bool on) {
        wizard.findChild<QCheckBox*>(box)->setChecked(on);
    };
    wizard.findChild<QComboBox*>("tracksBox")->setCurrentIndex(answers.tracks - 1);
    check("chaosBox", answers.chaosButton);
    check("chaosOutputBox", answers.chaosSignal);
    check("powerOffBox", answers.powerOff);
    check("lightsBox", answers.lights);
    check("separateEndBox", answers.separateEnd);
    wizard.findChild<QComboBox*>("fuelBox")->setCurrentIndex(answers.fuelIndex);
    wizard.findChild<QComboBox*>("sectorBox")->setCurrentIndex(answers.sectorIndex);
}

/** @return the pages to which one leads, each asked for the next one. */
QStringList pagesFrom(WizardPage* page)
{
    QStringList pages{page->objectName()};
    while (!page->isLastPage() && pages.size() < 100) {
        page = page->nextPage();
        pages.append(page->objectName());
    }
    return pages;
}

/** Answers on the first three pages, from the first one on. */
void answer(WizardDriver& user, const Answers& answers)
{
    user.describe("Bahn", answers.tracks);
    user.next();
    user.choose("hardwareBox", answers.hardware);
    user.next();
    user.check("chaosBox", answers.chaosButton);
    if (answers.chaosButton)
        user.check("chaosOutputBox", answers.chaosSignal);
    user.check("powerOffBox", answers.powerOff);
    user.check("lightsBox", answers.lights);
    user.check("separateEndBox", answers.separateEnd);
    user.choose("fuelBox", answers.fuelIndex);
    user.choose("sectorBox", answers.sectorIndex);
}

/** @return how often the way through the real pages was that of the rules; the first other one fails. */
int compareWays(const QVector<Answers>& all)
{
    int ways = 0;
    CRaceway raceway;
    WizardDriver::create(&raceway, [&](WizardDriver& user) {
        for (const Answers& answers : all) {
            answer(user, answers);
            const QStringList pages = user.goToTheEnd();
            if (pages != expectedPages(answers)) {
                QWARN(qPrintable(describe(answers) + ": " + pages.join(", ")));
                return;
            }
            if (!user.goBackTo("CStartPage"))
                return;
            ++ways;
        }
    });
    return ways;
}

} // namespace

/** The way through the pages of the real wizard, for all answers that make a difference. */
class tst_WizardWays : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachHardwareLeadsThroughTheFeaturesThatAreThere_data();
    void eachHardwareLeadsThroughTheFeaturesThatAreThere();
    void eachTrackHasTheSensorsThatAreThere_data();
    void eachTrackHasTheSensorsThatAreThere();
    void everyCombinationOfAnswersLeadsThroughThePagesOfTheRules_data();
    void everyCombinationOfAnswersLeadsThroughThePagesOfTheRules();
    void oneSlotWithoutFeaturesHasSevenPages();
    void withEverythingEachOfTwoTracksHasSixPages();
    void anAt2560NeverShowsTheOpenPage();
    void fuelIndex2ShowsTheEndOfTheZoneButNoFuelSensor();
    void withoutHardwareEverySensorPageGoesOn_data();
    void withoutHardwareEverySensorPageGoesOn();
};

void tst_WizardWays::eachHardwareLeadsThroughTheFeaturesThatAreThere_data()
{
    QTest::addColumn<QString>("hardware");
    for (const char* hardware : {"Parallel Port", "IO-Warrior24", "IO-Warrior40", "Carrera CU",
                                 "IO-Warrior56", "IO-Warrior28", "IO-Warrior100", "L&T AT2560"})
        QTest::newRow(hardware) << QString(hardware);
}

void tst_WizardWays::eachHardwareLeadsThroughTheFeaturesThatAreThere()
{
    QVector<Answers> all;
    Answers answers;
    QFETCH(QString, hardware);
    answers.hardware = hardware;
    for (int features = 0; features < 32; ++features) {
        answers.chaosButton = features & 1;
        answers.chaosSignal = features & 2;
        answers.powerOff = features & 4;
        answers.lights = features & 8;
        answers.tracks = features & 16 ? 2 : 1;
        if (answers.chaosButton || !answers.chaosSignal) // the signal can't be chosen without the button
            all.append(answers);
    }
    QCOMPARE(all.size(), 24);
    QCOMPARE(compareWays(all), all.size());
}

void tst_WizardWays::eachTrackHasTheSensorsThatAreThere_data()
{
    QTest::addColumn<QString>("hardware");
    QTest::newRow("states of a port") << "Parallel Port";
    QTest::newRow("inputs of an AT2560") << At2560;
}

void tst_WizardWays::eachTrackHasTheSensorsThatAreThere()
{
    QVector<Answers> all;
    Answers answers;
    QFETCH(QString, hardware);
    answers.hardware = hardware;
    for (const int tracks : {1, 2, MostTracks}) {
        answers.tracks = tracks;
        for (answers.fuelIndex = 0; answers.fuelIndex <= 4; ++answers.fuelIndex) {
            for (answers.sectorIndex = 0; answers.sectorIndex <= 2; ++answers.sectorIndex) {
                for (const bool separateEnd : {false, true}) {
                    answers.separateEnd = separateEnd;
                    all.append(answers);
                }
            }
        }
    }
    QCOMPARE(all.size(), 3 * 5 * 3 * 2);
    QCOMPARE(compareWays(all), all.size());
}

void tst_WizardWays::everyCombinationOfAnswersLeadsThroughThePagesOfTheRules_data()
{
    eachTrackHasTheSensorsThatAreThere_data();
}

/** All of them, page by page as each answers; what the dialog makes of them is told by the tests above. */
void tst_WizardWays::everyCombinationOfAnswersLeadsThroughThePagesOfTheRules()
{
    QFETCH(QString, hardware);
    CRacewayWizard wizard;
    wizard.findChild<QComboBox*>("hardwareBox")->setCurrentText(hardware);
    WizardPage* features = wizard.findChild<WizardPage*>("CIoInterfacePage")->nextPage();
    const QVector<Answers> all = allAnswers(hardware);
    QCOMPARE(all.size(), 24 * 5 * 3 * MostTracks);
    for (const Answers& answers : all) {
        preset(wizard, answers);
        const QStringList pages = pagesFrom(features);
        QVERIFY2(pages == expectedPages(answers), qPrintable(describe(answers) + ": " + pages.join(", ")));
    }
}

void tst_WizardWays::oneSlotWithoutFeaturesHasSevenPages()
{
    CRaceway raceway;
    WizardDriver::create(&raceway, [](WizardDriver& user) {
        user.describe("Bahn", 1);
        QCOMPARE(user.goToTheEnd(),
                 QStringList({"CStartPage", "CIoInterfacePage", "CAvailableFeaturesPage", "COpenPage",
                              "CRwWizardSlotPage 1", "CRwWizardDebounceTimePage", "CFinishPage"}));
    });
}

void tst_WizardWays::withEverythingEachOfTwoTracksHasSixPages()
{
    Answers answers;
    answers.tracks = 2;
    answers.fuelIndex = 4;
    answers.sectorIndex = 2;
    answers.separateEnd = true;
    CRaceway raceway;
    WizardDriver::create(&raceway, [&](WizardDriver& user) {
        answer(user, answers);
        const QStringList pages = user.goToTheEnd();
        QCOMPARE(pages.filter(QRegularExpression(" 1$")).size(), 6);
        QCOMPARE(pages.filter(QRegularExpression(" 2$")).size(), 6);
        QCOMPARE(pages, expectedPages(answers));
    });
}

void tst_WizardWays::anAt2560NeverShowsTheOpenPage()
{
    CRaceway raceway;
    WizardDriver::create(&raceway, [](WizardDriver& user) {
        Answers answers;
        answer(user, answers);
        QVERIFY(user.goToTheEnd().contains("COpenPage"));
        QVERIFY(user.goBackTo("CStartPage"));
        answers.hardware = At2560;
        answer(user, answers);
        QVERIFY(!user.goToTheEnd().contains("COpenPage"));
    });
}

void tst_WizardWays::fuelIndex2ShowsTheEndOfTheZoneButNoFuelSensor()
{
    Answers answers;
    answers.fuelIndex = 2;
    CRaceway raceway;
    WizardDriver::create(&raceway, [&](WizardDriver& user) {
        answer(user, answers);
        const QStringList pages = user.goToTheEnd();
        QVERIFY(pages.contains("CRwWizardFuelFinishedSensorPage 1"));
        QVERIFY(!pages.contains("CRwWizardFuelSensorPage 1"));
    });
}

void tst_WizardWays::withoutHardwareEverySensorPageGoesOn_data()
{
    eachHardwareLeadsThroughTheFeaturesThatAreThere_data();
}

/** Neither a library nor a device is there; every sensor is learned all the same. */
void tst_WizardWays::withoutHardwareEverySensorPageGoesOn()
{
    QFETCH(QString, hardware);
    Answers answers;
    answers.hardware = hardware;
    answers.chaosButton = answers.chaosSignal = answers.powerOff = answers.lights = true;
    answers.separateEnd = true;
    answers.fuelIndex = 4;
    answers.sectorIndex = 2;
    answers.tracks = 2;
    CRacewayWizard wizard;
    CRaceway raceway;
    int scans = 0;
    const int result = WizardDriver::create(wizard, &raceway, [&](WizardDriver& user) {
        answer(user, answers);
        QStringList pages{user.pageName()};
        while (!user.page()->isLastPage()) {
            if (user.field<QPushButton>("learnButton")) {
                user.learn();
                ++scans;
            }
            user.next();
            pages.append(user.pageName());
        }
        QCOMPARE(pages, expectedPages(answers));
        user.finish();
    });
    QCOMPARE(result, 1);
    QCOMPARE(scans, hardware == At2560 ? 0 : 2 + 2 * 6);
    QVERIFY(raceway.ioSettings.size() >= 279);
    WizardDriver::edit(wizard, &raceway, [&](WizardDriver& user) {
        user.next();
        QCOMPARE(user.field<QComboBox>("hardwareBox")->currentText(), hardware);
    });
}

QTEST_MAIN(tst_WizardWays)
#include "tst_WizardWays.moc"

#include "data/CCarList.h"
#include "data/CDriverList.h"
#include "qr/CQrCodeGenerator.h"
#include "qr/PrintedPages.h"
#include "qr/QZXing.h"
#include "qr/QrTags.h"
#include "support/DatabaseFile.h"

#include <QMetaMethod>
#include <QTranslator>
#include <QtTest>

namespace {

CCar carNamed(const QString& name)
{
    CCar car;
    car.setName(name);
    car.setOriginalManufacturer("Werk");
    car.setOriginalType("GT 3");
    return car;
}

CDriver driverNamed(const QString& name)
{
    CDriver driver;
    driver.setName(name);
    return driver;
}

QString ownReading(const QImage& picture)
{
    QZXing decoder;
    decoder.setDecoder(QZXing::DecodeQrCode);
    decoder.setSourceFilterType(QZXing::NormalImage | QZXing::InvertedImage);
    decoder.setTryHarderBehaviour(QZXing::ThoroughScanning | QZXing::Rotation);
    return decoder.decodeImage(picture, -1, -1, false);
}

/** @return the texts of all codes of a document as this program reads them, in their order. */
QStringList ownReading(const PrintedPages& pages)
{
    QStringList texts;
    for (const auto& code : pages.codes()) {
        if (!pages.isBlank(code.page, code.imageCell))
            texts.append(ownReading(pages.picture(code)));
    }
    return texts;
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

/** Leaves the pages where a person can look at them, if he says where. */
void show(const PrintedPages& pages, const char* name)
{
    const QString directory = qEnvironmentVariable("TORNIK_PICTURES");
    if (!directory.isEmpty())
        pages.save(directory + "/" + name + "-%1");
}

} // namespace

/** Each document is printed, and its pages are read like paper: by this program and by a foreign reader. */
class tst_CQrCodeGenerator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_directory = std::make_unique<ScratchDirectory>(); }
    void cleanup() { m_directory.reset(); }

    void slotsStandInTheirOrder();
    void aCodeOfADriverIsRead_data();
    void aCodeOfADriverIsRead();
    void aCodeOfACarIsRead_data();
    void aCodeOfACarIsRead();
    void anEmptyNameGivesACodeOfTheTagAlone();
    void threeCarsGiveTwoRowsWithTheLastCellsEmpty();
    void carsWithEqualLabelsHaveEqualCodes();
    void labelOfOneCarAndOfACarInTheList();
    void aLabelInTheListEndsWithALineEnd();
    void labelOfADriverIsTheName();
    void everyNameHasItsOwnPicture();
    void twoHundredCarsOverSeveralPages();
    void allDriversOfTheList();
    void noDriversGiveAnEmptyTable();
    void anEmptyFileNameWritesNothing();
    void aFileThatCannotBeWrittenIsPassedOver();
    void theNextDocumentStartsAnew();
    void theScaleIsDividedInWholeHundreds_data();
    void theScaleIsDividedInWholeHundreds();
    void aScaleBelowAHundredLeavesTheLabelOnly();
    void aNameTooLongForAnyCodeHasItsLabelOnly();
    void codesDoNotDependOnTheLanguage();

private:
    std::unique_ptr<ScratchDirectory> m_directory;
};

void tst_CQrCodeGenerator::slotsStandInTheirOrder()
{
    const QMetaObject& meta = CQrCodeGenerator::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        QCOMPARE(method.methodType(), QMetaMethod::Slot);
        methods.append((method.access() == QMetaMethod::Public ? "public " : "private ") +
                       QString::fromLatin1(method.methodSignature()));
    }
    QCOMPARE(methods,
             QStringList({"public generateCarCodes(QString,const CCarList*)",
                          "public generateCarCodes(QString,CCar)",
                          "public generateDriverCodes(QString,const CDriverList*)",
                          "public generateDriverCodes(QString,CDriver)", "private writePdf(QString)"}));
}

void tst_CQrCodeGenerator::aCodeOfADriverIsRead_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "Anna";
    QTest::newRow("umlauts") << "Jürgen Größe-Öztürk";
    QTest::newRow("other alphabets") << "Łukasz Ørsted Жанна 走る";
    QTest::newRow("beyond the basic plane") << QString::fromUtf8("Rosi \xF0\x9F\x8F\x81");
    QTest::newRow("120 characters") << QString("Adelheid von Ückermünde ").repeated(5);
    QTest::newRow("digits") << "0049";
    QTest::newRow("signs") << R"(A&B <c> "d" 50% #1 a:b/c?d=e\f)";
    QTest::newRow("tag in the name") << "<car>Anna";
    QTest::newRow("entity") << "&amp; &nbsp;";
    QTest::newRow("blanks around") << " Anna ";
}

void tst_CQrCodeGenerator::aCodeOfADriverIsRead()
{
    QFETCH(QString, name);
    CQrCodeGenerator().generateDriverCodes("codes.pdf", driverNamed(name));
    const PrintedPages pages("codes.pdf");
    QCOMPARE(pages.count(), 1);
    QCOMPARE(ownReading(pages), QStringList{qrTagDriver + name});
    QCOMPARE(pages.foreignReading(), QStringList{qrTagDriver + name});
    show(pages, QTest::currentDataTag());
}

void tst_CQrCodeGenerator::aCodeOfACarIsRead_data()
{
    aCodeOfADriverIsRead_data();
}

void tst_CQrCodeGenerator::aCodeOfACarIsRead()
{
    QFETCH(QString, name);
    CQrCodeGenerator().generateCarCodes("codes.pdf", carNamed(name));
    const PrintedPages pages("codes.pdf");
    QCOMPARE(ownReading(pages), QStringList{qrTagCar + name});
    QCOMPARE(pages.foreignReading(), QStringList{qrTagCar + name});
}

void tst_CQrCodeGenerator::anEmptyNameGivesACodeOfTheTagAlone()
{
    CQrCodeGenerator().generateCarCodes("car.pdf", carNamed(QString()));
    const PrintedPages car("car.pdf");
    QCOMPARE(ownReading(car), QStringList{"<car>"});
    QCOMPARE(car.foreignReading(), QStringList{"<car>"});

    CQrCodeGenerator().generateDriverCodes("driver.pdf", driverNamed(QString()));
    const PrintedPages driver("driver.pdf");
    QCOMPARE(ownReading(driver), QStringList{"<drv>"});
    QCOMPARE(driver.foreignReading(), QStringList{"<drv>"});
}

void tst_CQrCodeGenerator::threeCarsGiveTwoRowsWithTheLastCellsEmpty()
{
    CCarList list;
    list.removeAll();
    list.updateCar(0, carNamed("A"));
    list.addCar(carNamed("B"));
    list.addCar(carNamed("C"));
    CQrCodeGenerator().generateCarCodes("codes.pdf", &list);

    const PrintedPages pages("codes.pdf");
    const auto codes = pages.codes();
    QCOMPARE(codes.size(), 4);
    QCOMPARE(codes[0].imageCell.top(), codes[1].imageCell.top());
    QCOMPARE(codes[2].imageCell.top(), codes[3].imageCell.top());
    QVERIFY(codes[0].imageCell.bottom() < codes[2].imageCell.top());
    QVERIFY(codes[0].imageCell.right() < codes[0].labelCell.left());
    QVERIFY(codes[0].labelCell.right() < codes[1].imageCell.left());
    QVERIFY(!pages.isBlank(0, codes[2].labelCell));
    QVERIFY(pages.isBlank(0, codes[3].imageCell));
    QVERIFY(pages.isBlank(0, codes[3].labelCell));
    QCOMPARE(ownReading(pages), QStringList({"<car>A", "<car>B", "<car>C"}));
    show(pages, "three-cars");
}

void tst_CQrCodeGenerator::carsWithEqualLabelsHaveEqualCodes()
{
    CCarList list;
    list.removeAll();
    list.updateCar(0, carNamed("Zwilling"));
    list.addCar(carNamed("Zwilling"));
    CQrCodeGenerator().generateCarCodes("codes.pdf", &list);
    const PrintedPages pages("codes.pdf");
    QCOMPARE(ownReading(pages), QStringList({"<car>Zwilling", "<car>Zwilling"}));
    QCOMPARE(pages.labels(), QStringList({"Zwilling Werk GT 3", "Zwilling Werk GT 3"}));
}

void tst_CQrCodeGenerator::labelOfOneCarAndOfACarInTheList()
{
    const CCar car = carNamed("Müllers <Rote> & Co");
    CQrCodeGenerator().generateCarCodes("one.pdf", car);
    const PrintedPages one("one.pdf");
    QCOMPARE(one.labels(), QStringList{"Müllers <Rote> & Co Werk GT 3"});

    CCarList list;
    list.removeAll();
    list.updateCar(0, car);
    CQrCodeGenerator().generateCarCodes("all.pdf", &list);
    QCOMPARE(PrintedPages("all.pdf").labels(), one.labels());
}

/** In the list a label ends with the end of a line: beside a tall label the cell is higher by one. */
void tst_CQrCodeGenerator::aLabelInTheListEndsWithALineEnd()
{
    const CCar car = carNamed(QString("Adelheid von Ückermünde ").repeated(5));
    CQrCodeGenerator().generateCarCodes("one.pdf", car);
    CCarList list;
    list.removeAll();
    list.updateCar(0, car);
    CQrCodeGenerator().generateCarCodes("all.pdf", &list);
    const int heightOfOne = PrintedPages("one.pdf").codes().first().labelCell.height();
    const int heightInTheList = PrintedPages("all.pdf").codes().first().labelCell.height();
    QVERIFY2(heightInTheList > heightOfOne + 10,
             qPrintable(QString("%1 %2").arg(heightOfOne).arg(heightInTheList)));
}

void tst_CQrCodeGenerator::labelOfADriverIsTheName()
{
    CQrCodeGenerator().generateDriverCodes("codes.pdf", driverNamed("Özil \"der\" <Schnelle>"));
    QCOMPARE(PrintedPages("codes.pdf").labels(), QStringList{"Özil \"der\" <Schnelle>"});
}

/** Names that would not be told apart, or would be none, as the address of a picture. */
void tst_CQrCodeGenerator::everyNameHasItsOwnPicture()
{
    const QStringList names{"#1",        "#2",     "%41", "A", "Team: Anna",
                            "Team: Ben", "a/../b", "a b", "b", "http://x"};
    CDriverList list;
    list.removeAll();
    list.updateDriver(0, driverNamed(names.first()));
    for (const QString& name : names.mid(1))
        list.addDriver(driverNamed(name));
    CQrCodeGenerator().generateDriverCodes("codes.pdf", &list);

    const PrintedPages pages("codes.pdf");
    QStringList texts = ownReading(pages);
    QCOMPARE(sorted(texts), sorted(names).replaceInStrings(QRegularExpression("^"), "<drv>"));
    texts.replaceInStrings("<drv>", "");
    QCOMPARE(pages.labels(), texts);
}

void tst_CQrCodeGenerator::twoHundredCarsOverSeveralPages()
{
    CCarList list;
    list.removeAll();
    QStringList texts;
    QStringList labels;
    for (int number = 1; number <= 200; ++number) {
        CCar car = carNamed(QString("Wagen %1").arg(number, 3, 10, QChar('0')));
        if (number % 7 == 0)
            car.setOriginalType("mit einem sehr langen Namen, der umbrochen wird");
        if (number == 1)
            list.updateCar(0, car);
        else
            list.addCar(car);
        texts.append("<car>" + car.name());
        labels.append(QStringList{car.name(), car.originalManufacturer(), car.originalType()}.join(' '));
    }
    CQrCodeGenerator().generateCarCodes("codes.pdf", &list);

    const PrintedPages pages("codes.pdf");
    show(pages, "two-hundred-cars");
    QVERIFY(pages.count() > 3);
    QCOMPARE(ownReading(pages), texts);
    QCOMPARE(pages.foreignReading(), texts);
    QCOMPARE(pages.labels(), labels);
}

void tst_CQrCodeGenerator::allDriversOfTheList()
{
    CDriverList list;
    list.removeAll();
    list.updateDriver(0, driverNamed("Zoë"));
    list.addDriver(driverNamed("Anna"));
    CQrCodeGenerator().generateDriverCodes("codes.pdf", &list);
    const PrintedPages pages("codes.pdf");
    QCOMPARE(ownReading(pages), QStringList({"<drv>Anna", "<drv>Zoë"}));
    QCOMPARE(pages.labels(), QStringList({"Anna", "Zoë"}));
}

void tst_CQrCodeGenerator::noDriversGiveAnEmptyTable()
{
    CDriverList list;
    list.removeAll();
    list.removeDriver(0);
    QCOMPARE(list.count(), 0);
    CQrCodeGenerator().generateDriverCodes("codes.pdf", &list);
    const PrintedPages pages("codes.pdf");
    QCOMPARE(pages.count(), 1);
    QCOMPARE(pages.foreignReading(), QStringList());
}

void tst_CQrCodeGenerator::anEmptyFileNameWritesNothing()
{
    const QStringList before = QDir().entryList(QDir::Files);
    CQrCodeGenerator().generateDriverCodes(QString(), driverNamed("Anna"));
    CQrCodeGenerator().generateCarCodes(QString(), carNamed("Pfeil"));
    QCOMPARE(QDir().entryList(QDir::Files), before);
}

void tst_CQrCodeGenerator::aFileThatCannotBeWrittenIsPassedOver()
{
    CQrCodeGenerator().generateDriverCodes("no/such/directory/codes.pdf", driverNamed("Anna"));
    QVERIFY(!QFile::exists("no"));
    CQrCodeGenerator().generateDriverCodes("codes.pdf", driverNamed("Anna"));
    QVERIFY(QFile::exists("codes.pdf"));
}

void tst_CQrCodeGenerator::theNextDocumentStartsAnew()
{
    CQrCodeGenerator generator;
    generator.generateDriverCodes("first.pdf", driverNamed("Anna"));
    generator.generateCarCodes("second.pdf", carNamed("Pfeil"));
    QCOMPARE(ownReading(PrintedPages("first.pdf")), QStringList{"<drv>Anna"});
    const PrintedPages second("second.pdf");
    QCOMPARE(second.codes().size(), 2);
    QCOMPARE(ownReading(second), QStringList{"<car>Pfeil"});
}

void tst_CQrCodeGenerator::theScaleIsDividedInWholeHundreds_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<int>("side"); // dots of the printed code
    QTest::newRow("100") << 100 << 120;
    QTest::newRow("199") << 199 << 120;
    QTest::newRow("200") << 200 << 240;
    QTest::newRow("299") << 299 << 240;
}

void tst_CQrCodeGenerator::theScaleIsDividedInWholeHundreds()
{
    QFETCH(int, percent);
    QFETCH(int, side);
    CQrCodeGenerator generator;
    generator.setImageScalePercent(percent);
    generator.generateDriverCodes("codes.pdf", driverNamed("Anna"));
    const PrintedPages pages("codes.pdf");
    const auto codes = pages.codes();
    QVERIFY(!codes.isEmpty());
    const int width = codes.first().imageCell.width(); // the padding stands on both sides
    QVERIFY2(qAbs(width - side - 12) <= 6, qPrintable(QString::number(width)));
    QCOMPARE(ownReading(pages), QStringList{"<drv>Anna"});
}

void tst_CQrCodeGenerator::aScaleBelowAHundredLeavesTheLabelOnly()
{
    CQrCodeGenerator generator;
    generator.setImageScalePercent(99);
    generator.generateDriverCodes("codes.pdf", driverNamed("Anna"));
    const PrintedPages pages("codes.pdf");
    QCOMPARE(pages.count(), 1);
    QVERIFY(pages.text().contains("Anna"));
    QCOMPARE(ownReading(pages.page(0)), QString());
    QCOMPARE(pages.foreignReading(0), QStringList());
    // The same look finds a code where there is one.
    generator.setImageScalePercent(100);
    generator.generateDriverCodes("codes.pdf", driverNamed("Anna"));
    const PrintedPages usual("codes.pdf");
    QCOMPARE(ownReading(usual.page(0)), QString("<drv>Anna"));
    QCOMPARE(usual.foreignReading(0), QStringList{"<drv>Anna"});
}

void tst_CQrCodeGenerator::aNameTooLongForAnyCodeHasItsLabelOnly()
{
    const QString name = QString("Adelheid ").repeated(400).trimmed();
    CQrCodeGenerator().generateDriverCodes("codes.pdf", driverNamed(name));
    const PrintedPages pages("codes.pdf");
    QCOMPARE(pages.text().remove(QRegularExpression(" \\d+")), name); // without the numbers of the pages
    QCOMPARE(ownReading(pages.page(0)), QString());
    QCOMPARE(pages.foreignReading(0), QStringList());
}

void tst_CQrCodeGenerator::codesDoNotDependOnTheLanguage()
{
    CQrCodeGenerator().generateCarCodes("german.pdf", carNamed("Pfeil"));
    QTranslator english;
    QVERIFY(english.load(QStringLiteral(TORNIK_BIN_DIR "/languages/Tornik_en.qm")));
    qApp->installTranslator(&english);
    CQrCodeGenerator().generateCarCodes("english.pdf", carNamed("Pfeil"));
    qApp->removeTranslator(&english);
    const PrintedPages german("german.pdf");
    const PrintedPages translated("english.pdf");
    QCOMPARE(ownReading(translated), ownReading(german));
    QCOMPARE(translated.labels(), german.labels());
}

QTEST_MAIN(tst_CQrCodeGenerator)
#include "tst_CQrCodeGenerator.moc"

#include "data/CDriver.h"
#include "support/StreamBytes.h"

#include <QTest>

class tst_CDriver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewDriverIsCalledDefaultAndHasNoRow();
    void keepsWhatIsSet();
    void streamFormIsTheNameAndTheId();
    void streamKeepsAllFields();
    void anEmptyStreamGivesEmptyFields();
};

void tst_CDriver::aNewDriverIsCalledDefaultAndHasNoRow()
{
    const CDriver driver;
    QCOMPARE(driver.name(), QStringLiteral("Default"));
    QCOMPARE(driver.id(), -1);
}

void tst_CDriver::keepsWhatIsSet()
{
    CDriver driver;
    driver.setName(QStringLiteral("Jörg"));
    driver.setId(12);
    QCOMPARE(driver.name(), QStringLiteral("Jörg"));
    QCOMPARE(driver.id(), 12);
}

void tst_CDriver::streamFormIsTheNameAndTheId()
{
    CDriver driver;
    driver.setName(QStringLiteral("Jö"));
    driver.setId(258);
    QCOMPARE(streamForm(driver), QByteArray::fromHex("00000004"
                                                     "004a00f6"
                                                     "00000102"));
}

void tst_CDriver::streamKeepsAllFields()
{
    CDriver driver;
    driver.setName(QStringLiteral("Jörg"));
    driver.setId(-7);
    const CDriver copy = fromStreamForm<CDriver>(streamForm(driver));
    QCOMPARE(copy.name(), QStringLiteral("Jörg"));
    QCOMPARE(copy.id(), -7);
}

void tst_CDriver::anEmptyStreamGivesEmptyFields()
{
    const CDriver driver = fromStreamForm<CDriver>(QByteArray());
    QCOMPARE(driver.name(), QString());
    QCOMPARE(driver.id(), 0);
}

QTEST_APPLESS_MAIN(tst_CDriver)
#include "tst_CDriver.moc"

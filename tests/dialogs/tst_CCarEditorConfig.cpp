#include "dialogs/CCarEditorConfig.h"
#include "support/StreamBytes.h"

#include <QDataStream>
#include <QSettings>
#include <QTest>

namespace {

CCarEditorConfig unusualConfig()
{
    CCarEditorConfig config;
    for (int index = 0; index < CCarEditorConfig::NumberOfFields; ++index) {
        config.setShowFreeField(index, index % 2 == 1);
        config.setTitleFreeField(index, QStringLiteral("Größe; Teil %1, \"neu\"").arg(index));
    }
    return config;
}

QString key(const QString& name)
{
    return "uiConfig/uiCarEditorDialog/" + name;
}

} // namespace

class tst_CCarEditorConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aConstructedRecordShowsNothing();
    void anEmptyStoreGivesTheDefaults_data();
    void anEmptyStoreGivesTheDefaults();
    void everyValueLiesUnderItsKey();
    void whatIsWrittenIsReadAgain();
    void aMissingKeyGivesItsDefaultAlone();
    void writingLeavesTheOtherSettingsAlone();
    void namesOfTheRunningProgramDoNotMatter();
    void streamCarriesPairsOfBoolAndText();
    void aCutStreamGivesEmptyFields();
    void indexOutsideIsHarmless();
};

void tst_CCarEditorConfig::init()
{
    QSettings("Tornik", "Tornik").clear();
}

void tst_CCarEditorConfig::aConstructedRecordShowsNothing()
{
    const CCarEditorConfig config;
    for (int index = 0; index < CCarEditorConfig::NumberOfFields; ++index) {
        QVERIFY(!config.showFreeField(index));
        QVERIFY(config.titleFreeField(index).isEmpty());
    }
}

void tst_CCarEditorConfig::anEmptyStoreGivesTheDefaults_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("show");
    QTest::addColumn<QString>("title");
    QTest::newRow("colour") << 0 << true << "Farbe";
    QTest::newRow("tyres") << 1 << true << "Reifen";
    QTest::newRow("modifications") << 2 << true << "Modifikationen";
    for (int index = 3; index < 10; ++index)
        QTest::newRow(qPrintable(QStringLiteral("field %1").arg(index))) << index << false << "";
}

void tst_CCarEditorConfig::anEmptyStoreGivesTheDefaults()
{
    QFETCH(int, index);
    QFETCH(QString, title);
    CCarEditorConfig config = unusualConfig();
    config.read();
    QTEST(config.showFreeField(index), "show");
    QCOMPARE(config.titleFreeField(index), title);
}

void tst_CCarEditorConfig::everyValueLiesUnderItsKey()
{
    unusualConfig().write();
    const QSettings store(QSettings::NativeFormat, QSettings::UserScope, "Tornik", "Tornik");
    QCOMPARE(store.allKeys().size(), 20);
    for (int index = 0; index < 10; ++index) {
        QCOMPARE(store.value(key("ShowFreeField%1").arg(index)).toBool(), index % 2 == 1);
        QCOMPARE(store.value(key("TitleFreeField%1").arg(index)).toString(),
                 unusualConfig().titleFreeField(index));
    }
}

void tst_CCarEditorConfig::whatIsWrittenIsReadAgain()
{
    unusualConfig().write();
    CCarEditorConfig config;
    config.read();
    QCOMPARE(streamForm(config), streamForm(unusualConfig()));
}

void tst_CCarEditorConfig::aMissingKeyGivesItsDefaultAlone()
{
    unusualConfig().write();
    QSettings store("Tornik", "Tornik");
    store.remove(key("ShowFreeField0"));
    store.remove(key("TitleFreeField1"));
    store.sync();
    CCarEditorConfig config;
    config.read();
    QVERIFY(config.showFreeField(0));
    QCOMPARE(config.titleFreeField(0), unusualConfig().titleFreeField(0));
    QVERIFY(config.showFreeField(1));
    QCOMPARE(config.titleFreeField(1), QString("Reifen"));
}

void tst_CCarEditorConfig::writingLeavesTheOtherSettingsAlone()
{
    QSettings("Tornik", "Tornik").setValue("network/Port", 4711);
    unusualConfig().write();
    QCOMPARE(QSettings("Tornik", "Tornik").value("network/Port").toInt(), 4711);
}

void tst_CCarEditorConfig::namesOfTheRunningProgramDoNotMatter()
{
    QCoreApplication::setOrganizationName("Elsewhere");
    QCoreApplication::setApplicationName("Another");
    unusualConfig().write();
    QVERIFY(QSettings("Tornik", "Tornik").contains(key("ShowFreeField9")));
}

void tst_CCarEditorConfig::streamCarriesPairsOfBoolAndText()
{
    CCarEditorConfig config;
    config.setShowFreeField(1, true);
    config.setTitleFreeField(1, "Ö");
    config.setTitleFreeField(9, "z");
    const QByteArray none("\x00\xff\xff\xff\xff", 5); // a text that was never set
    QByteArray expected = none + QByteArray("\x01\x00\x00\x00\x02\x00\xd6", 7);
    for (int index = 2; index < 9; ++index)
        expected += none;
    expected += QByteArray("\x00\x00\x00\x00\x02\x00z", 7);
    QCOMPARE(streamForm(config).toHex(' '), expected.toHex(' '));

    CCarEditorConfig copy = unusualConfig();
    QDataStream stream(expected);
    stream.setVersion(QDataStream::Qt_5_5);
    stream >> copy;
    QCOMPARE(streamForm(copy), expected);
}

void tst_CCarEditorConfig::aCutStreamGivesEmptyFields()
{
    const QByteArray bytes = streamForm(unusualConfig());
    for (const int length : {0, 1, 4, 20, int(bytes.size()) - 1}) {
        CCarEditorConfig config = unusualConfig();
        QDataStream stream(bytes.left(length));
        stream.setVersion(QDataStream::Qt_5_5);
        stream >> config;
        QVERIFY(stream.status() != QDataStream::Ok);
        QVERIFY(config.titleFreeField(9).isEmpty());
    }
}

void tst_CCarEditorConfig::indexOutsideIsHarmless()
{
    CCarEditorConfig config = unusualConfig();
    for (const int index : {-1, 10, 4711}) {
        config.setShowFreeField(index, true);
        config.setTitleFreeField(index, "outside");
        QVERIFY(!config.showFreeField(index));
        QVERIFY(config.titleFreeField(index).isEmpty());
    }
    QCOMPARE(streamForm(config), streamForm(unusualConfig()));
}

QTEST_GUILESS_MAIN(tst_CCarEditorConfig)
#include "tst_CCarEditorConfig.moc"

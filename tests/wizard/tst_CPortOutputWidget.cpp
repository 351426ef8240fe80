#include "support/FakeRacewayIo.h"
#include "wizard/CPortOutputWidget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using TestSupport::FakeRacewayIo;

namespace {

QComboBox* pinsOf(const CPortOutputWidget& widget)
{
    return widget.findChild<QComboBox*>("pinBox");
}

QCheckBox* inversOf(const CPortOutputWidget& widget)
{
    return widget.findChild<QCheckBox*>("invertBox");
}

/** An interface of a kind without its hardware. */
class Interface
{
public:
    explicit Interface(int type) : m_io(std::make_unique<FakeRacewayIo>(&m_log, type)), m_pointer(m_io.get())
    {
    }

    CRacewayIo* operator->() { return m_io.get(); }
    CRacewayIo** address() { return &m_pointer; }

private:
    QStringList m_log;
    std::unique_ptr<FakeRacewayIo> m_io;
    CRacewayIo* m_pointer;
};

} // namespace

class tst_CPortOutputWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beginsWithoutAPin();
    void offersThePinsOfTheInterface_data();
    void offersThePinsOfTheInterface();
    void anIoWarrior28JumpsFromTheEighteenthPinToTheLast();
    void noPinHasTheMask0();
    void maskAndPolarityAreSetTogether();
    void anUnknownMaskChangesNothing();
    void showsWhatTheInterfaceHolds();
    void theOutputsOfAnAt2560AreFixed();
    void anotherInterfaceLeavesNothingOfTheOneBefore();
    void storesWhatItShows();
    void everyChangeIsTold();
    void withoutAnInterfaceThereIsNoPin();
};

void tst_CPortOutputWidget::beginsWithoutAPin()
{
    CPortOutputWidget widget(10, "Bahnstrom 1");
    QCOMPARE(widget.portId(), 10);
    QCOMPARE(pinsOf(widget)->count(), 1);
    QCOMPARE(pinsOf(widget)->currentText(), QString(" ---"));
    QCOMPARE(inversOf(widget)->text(), QString("invers"));
    QCOMPARE(widget.findChild<QLabel*>()->text(), QString("Bahnstrom 1"));
    QVERIFY(!widget.inverted());
}

void tst_CPortOutputWidget::offersThePinsOfTheInterface_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("pins");
    QTest::addColumn<QString>("firstText");
    QTest::addColumn<QString>("lastText");
    QTest::addColumn<quint32>("firstMask");
    QTest::addColumn<quint32>("lastMask");
    QTest::newRow("parallel port") << 1 << 8 << "Pin2 (D0)"
                                   << "Pin9 (D7)" << 1U << 0x80U;
    QTest::newRow("IO-Warrior24") << 2 << 16 << "P0.0"
                                  << "P1.7" << 1U << 0x8000U;
    QTest::newRow("IO-Warrior40") << 3 << 32 << "P0.0"
                                  << "P3.7" << 1U << 0x80000000U;
    QTest::newRow("RaceControl") << 4 << 0 << ""
                                 << "" << 0U << 0U;
    QTest::newRow("Carrera CU") << 5 << 0 << ""
                                << "" << 0U << 0U;
    QTest::newRow("IO-Warrior28") << 6 << 19 << "P0.0"
                                  << "P3.7" << 1U << 0x80000000U;
    QTest::newRow("IO-Warrior56") << 7 << 32 << "P0.0"
                                  << "P3.7" << 1U << 0x80000000U;
    QTest::newRow("IO-Warrior100") << 8 << 32 << "P0.0"
                                   << "P3.7" << 1U << 0x80000000U;
    QTest::newRow("AT2560") << 9 << 16 << "D0"
                            << "D15" << 0U << 15U;
}

void tst_CPortOutputWidget::offersThePinsOfTheInterface()
{
    QFETCH(int, type);
    QFETCH(int, pins);
    Interface io(type);
    CPortOutputWidget widget(10, "");
    widget.fillForInterface(io.address());
    const QComboBox* box = pinsOf(widget);
    QCOMPARE(box->count(), pins + 1);
    QCOMPARE(box->itemText(0), QString(" ---"));
    QCOMPARE(box->isEnabled(), type != 9);
    if (pins == 0)
        return;
    QTEST(box->itemText(1), "firstText");
    QTEST(box->itemText(pins), "lastText");
    QTEST(box->itemData(1).toUInt(), "firstMask");
    QTEST(box->itemData(pins).toUInt(), "lastMask");
    for (int i = 0; i < qMin(pins, 18); ++i)
        QCOMPARE(box->itemData(i + 1).toUInt(), type == 9 ? quint32(i) : 1U << i);
}

void tst_CPortOutputWidget::anIoWarrior28JumpsFromTheEighteenthPinToTheLast()
{
    Interface io(CRacewayIo::IoWarrior28);
    CPortOutputWidget widget(10, "");
    widget.fillForInterface(io.address());
    QCOMPARE(pinsOf(widget)->itemText(18), QString("P2.1"));
    QCOMPARE(pinsOf(widget)->itemData(18).toUInt(), 1U << 17);
    QCOMPARE(pinsOf(widget)->itemText(19), QString("P3.7"));
    QCOMPARE(pinsOf(widget)->itemData(19).toUInt(), 0x80000000U);
    QCOMPARE(pinsOf(widget)->count(), 20);
}

void tst_CPortOutputWidget::noPinHasTheMask0()
{
    for (const int type : {1, 2, 9}) {
        Interface io(type);
        io->setPortState(10, 4, false);
        CPortOutputWidget widget(10, "");
        widget.fillForInterface(io.address());
        QCOMPARE(widget.mask(), 4U);
        pinsOf(widget)->setCurrentIndex(0);
        QCOMPARE(pinsOf(widget)->currentText(), QString(" ---"));
        QCOMPARE(widget.mask(), 0U);
        pinsOf(widget)->setCurrentIndex(-1);
        QCOMPARE(widget.mask(), 0U);
    }
}

void tst_CPortOutputWidget::maskAndPolarityAreSetTogether()
{
    Interface io(CRacewayIo::IoWarrior40);
    CPortOutputWidget widget(10, "");
    widget.fillForInterface(io.address());
    widget.setMaskAndInvert(0x80000000U, true);
    QCOMPARE(pinsOf(widget)->currentText(), QString("P3.7"));
    QCOMPARE(widget.mask(), 0x80000000U);
    QVERIFY(widget.inverted());
    widget.setMaskAndInvert(1, false);
    QCOMPARE(pinsOf(widget)->currentText(), QString("P0.0"));
    QVERIFY(!widget.inverted());
}

void tst_CPortOutputWidget::anUnknownMaskChangesNothing()
{
    Interface io(CRacewayIo::ParallelPort);
    CPortOutputWidget widget(10, "");
    widget.fillForInterface(io.address());
    widget.setMaskAndInvert(8, true);
    for (const quint32 mask : {0U, 3U, 256U, quint32(-1)}) {
        widget.setMaskAndInvert(mask, false);
        QCOMPARE(widget.mask(), 8U);
        QVERIFY(widget.inverted());
    }
}

void tst_CPortOutputWidget::showsWhatTheInterfaceHolds()
{
    Interface io(CRacewayIo::ParallelPort);
    io->setPortState(18, 16, true);
    io->setPortState(19, 32, false);
    CPortOutputWidget first(18, "");
    CPortOutputWidget second(19, "");
    first.fillForInterface(io.address());
    second.fillForInterface(io.address());
    QCOMPARE(pinsOf(first)->currentText(), QString("Pin6 (D4)"));
    QVERIFY(first.inverted());
    QCOMPARE(pinsOf(second)->currentText(), QString("Pin7 (D5)"));
    QVERIFY(!second.inverted());
}

void tst_CPortOutputWidget::theOutputsOfAnAt2560AreFixed()
{
    Interface io(CRacewayIo::LtAt2560);
    io->setPortState(23, 0, true);
    CPortOutputWidget widget(23, "");
    widget.fillForInterface(io.address());
    QVERIFY(!pinsOf(widget)->isEnabled());
    QCOMPARE(pinsOf(widget)->currentText(), QString("D0"));
    QVERIFY(widget.inverted());
    QVERIFY(inversOf(widget)->isEnabled());
    Interface other(CRacewayIo::ParallelPort);
    widget.fillForInterface(other.address());
    QVERIFY(pinsOf(widget)->isEnabled());
}

void tst_CPortOutputWidget::anotherInterfaceLeavesNothingOfTheOneBefore()
{
    Interface box(CRacewayIo::LtAt2560);
    box->setPortState(10, 8, true);
    Interface port(CRacewayIo::ParallelPort);
    port->setPortState(10, -1, false);
    CPortOutputWidget widget(10, "");
    widget.fillForInterface(box.address());
    QVERIFY(widget.inverted());
    widget.fillForInterface(port.address());
    QCOMPARE(pinsOf(widget)->currentText(), QString(" ---"));
    QVERIFY(!widget.inverted());
}

void tst_CPortOutputWidget::storesWhatItShows()
{
    Interface io(CRacewayIo::ParallelPort);
    io->setPortState(10, -1, false);
    CPortOutputWidget widget(10, "");
    widget.fillForInterface(io.address());
    widget.store(*io.address());
    QCOMPARE(io->portState(10), 0);
    widget.setMaskAndInvert(64, true);
    widget.store(*io.address());
    QCOMPARE(io->portState(10), 64);
    QVERIFY(io->isInverted(10));
    pinsOf(widget)->setCurrentIndex(0);
    widget.store(*io.address());
    widget.fillForInterface(io.address());
    QCOMPARE(widget.mask(), 0U);
    QVERIFY(widget.inverted());
}

void tst_CPortOutputWidget::everyChangeIsTold()
{
    Interface io(CRacewayIo::ParallelPort);
    CPortOutputWidget widget(10, "");
    widget.fillForInterface(io.address());
    QSignalSpy changed(&widget, &CPortOutputWidget::valueChanged);
    pinsOf(widget)->setCurrentIndex(3);
    QCOMPARE(changed.count(), 1);
    inversOf(widget)->click();
    QCOMPARE(changed.count(), 2);
}

void tst_CPortOutputWidget::withoutAnInterfaceThereIsNoPin()
{
    CPortOutputWidget widget(10, "");
    widget.fillForInterface(nullptr);
    QCOMPARE(pinsOf(widget)->count(), 1);
    CRacewayIo* none = nullptr;
    widget.fillForInterface(&none);
    QCOMPARE(pinsOf(widget)->count(), 1);
    widget.store(nullptr);
    QCOMPARE(widget.mask(), 0U);
}

QTEST_MAIN(tst_CPortOutputWidget)
#include "tst_CPortOutputWidget.moc"

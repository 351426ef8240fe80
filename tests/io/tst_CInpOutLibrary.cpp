#include "TestPort.h"
#include "io/CInpOutLibrary.h"
#include "io/CInpOutRegisters.h"

#include <QtTest>

#include <optional>

class tst_CInpOutLibrary : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void libraryIsLoaded();
    void readsTheStatusRegisterByDefault();
    void writesTheDataRegisterByDefault();
    void addressAndOffsetsChooseTheRegisters();
    void valueIsSignExtendedFrom16Bits();
    void sumOfAddressAndOffsetWrapsAt16Bits();
    void everyUserGetsTheSameObject();
    void addressStaysBetweenUsers();
    void lastReleaseFreesTheObject();
    void releaseTooManyIsHarmless();

private:
    std::optional<TestPort> m_port;
    CInpOutLibrary* m_library = nullptr;
};

void tst_CInpOutLibrary::initTestCase()
{
    m_port.emplace();
}

void tst_CInpOutLibrary::init()
{
    m_port->reset();
    m_library = CInpOutLibrary::instance();
}

void tst_CInpOutLibrary::cleanup()
{
    CInpOutLibrary::release();
}

void tst_CInpOutLibrary::libraryIsLoaded()
{
    CInpOutRegisters registers;
    QVERIFY(registers.isLoaded());
    const unsigned before = (*m_port)->reads();
    QCOMPARE(registers.read(0x379), short(127));
    QCOMPARE((*m_port)->reads(), before + 1);
}

void tst_CInpOutLibrary::readsTheStatusRegisterByDefault()
{
    QCOMPARE(m_library->readPort(), 127);
    (*m_port)->write(TestPort::Status, 0x55);
    QCOMPARE(m_library->readPort(), 0x55);
}

void tst_CInpOutLibrary::writesTheDataRegisterByDefault()
{
    m_library->writePort(0x7E);
    QCOMPARE((*m_port)->read(TestPort::Data), short(0x7E));
    QCOMPARE((*m_port)->read(TestPort::Status), short(127));
}

void tst_CInpOutLibrary::addressAndOffsetsChooseTheRegisters()
{
    m_library->setBaseAddress(0x278);
    m_library->setInputOffset(0);
    m_library->setOutputOffset(2);
    (*m_port)->write(0x278, 0x12);
    QCOMPARE(m_library->readPort(), 0x12);
    m_library->writePort(0x0C);
    QCOMPARE((*m_port)->read(0x27A), short(0x0C));
}

void tst_CInpOutLibrary::valueIsSignExtendedFrom16Bits()
{
    (*m_port)->write(TestPort::Status, short(0x8001));
    QCOMPARE(m_library->readPort(), -32767);
    (*m_port)->write(TestPort::Status, short(0xFFFF));
    QCOMPARE(m_library->readPort(), -1);
    (*m_port)->write(TestPort::Status, 0xFF);
    QCOMPARE(m_library->readPort(), 255);
}

void tst_CInpOutLibrary::sumOfAddressAndOffsetWrapsAt16Bits()
{
    m_library->setBaseAddress(0x10378);
    QCOMPARE(m_library->readPort(), 127);
    m_library->setBaseAddress(0xFFFF);
    m_library->setInputOffset(0x379 + 1);
    QCOMPARE(m_library->readPort(), 127);
    m_library->setOutputOffset(0x378 + 1);
    m_library->writePort(3);
    QCOMPARE((*m_port)->read(TestPort::Data), short(3));
    m_library->setBaseAddress(INT_MAX);
    m_library->setInputOffset(INT_MAX);
    QCOMPARE(m_library->readPort(), 255);
}

void tst_CInpOutLibrary::everyUserGetsTheSameObject()
{
    QCOMPARE(CInpOutLibrary::instance(), m_library);
    CInpOutLibrary::release();
}

void tst_CInpOutLibrary::addressStaysBetweenUsers()
{
    CInpOutLibrary* user = CInpOutLibrary::instance();
    user->setBaseAddress(0x278);
    CInpOutLibrary::release();
    (*m_port)->write(0x279, 9);
    QCOMPARE(m_library->readPort(), 9);
}

void tst_CInpOutLibrary::lastReleaseFreesTheObject()
{
    m_library->setBaseAddress(0x278);
    (*m_port)->write(0x279, 9);
    QCOMPARE(m_library->readPort(), 9);
    CInpOutLibrary::release();
    m_library = CInpOutLibrary::instance();
    QCOMPARE(m_library->readPort(), 127); // a new object, at the default address
}

void tst_CInpOutLibrary::releaseTooManyIsHarmless()
{
    CInpOutLibrary::release();
    CInpOutLibrary::release();
    m_library = CInpOutLibrary::instance();
    QCOMPARE(m_library->readPort(), 127);
}

QTEST_GUILESS_MAIN(tst_CInpOutLibrary)
#include "tst_CInpOutLibrary.moc"

#ifndef TORNIK_IO_CRACEWAYIOFACTORY_H
#define TORNIK_IO_CRACEWAYIOFACTORY_H

#include <memory>

class CRacewayIo;
class QByteArray;

/** Makes interfaces, from nothing or from a settings blob. The caller owns the result. */
class CRacewayIoFactory
{
public:
    static std::unique_ptr<CRacewayIo> createParallelPort();
    static std::unique_ptr<CRacewayIo> createParallelPort(int baseAddress, int inputOffset, int outputOffset);
    /** The chips of the IO-Warrior family: of the named kind, whatever device is attached. */
    static std::unique_ptr<CRacewayIo> createIoWarrior24();
    static std::unique_ptr<CRacewayIo> createIoWarrior40();
    static std::unique_ptr<CRacewayIo> createIoWarrior28();
    static std::unique_ptr<CRacewayIo> createIoWarrior56();
    static std::unique_ptr<CRacewayIo> createIoWarrior100();
    static std::unique_ptr<CRacewayIo> createRaceControl();
    static std::unique_ptr<CRacewayIo> createCarreraCu();
    static std::unique_ptr<CRacewayIo> createLtAt2560();

    /**
     * Makes the class of the blob's type code and lets it load the blob. An unknown code, that of
     * an empty blob included, gives a parallel port.
     * @return never null
     */
    static std::unique_ptr<CRacewayIo> createFromSettings(const QByteArray& blob);

private:
    static std::unique_ptr<CRacewayIo> createIoWarrior(int interfaceType);
};

#endif

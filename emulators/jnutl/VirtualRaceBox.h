#ifndef TORNIK_EMULATORS_VIRTUALRACEBOX_H
#define TORNIK_EMULATORS_VIRTUALRACEBOX_H

#include "BoxTelegrams.h"
#include "support/TerminalProgram.h"

/** What the program was told when it was started. */
struct RaceBoxSettings
{
    TerminalProgram::Files files;
    int number = 0;         ///< 0 to 3: which of the program's boxes this one is
    quint32 firstStamp = 0; ///< of the box's clock
};

/** The program: one RaceControl box on a pseudo-terminal, for the stand-in library `jnutl`. */
class VirtualRaceBox : public TerminalProgram
{
    Q_OBJECT

public:
    explicit VirtualRaceBox(const RaceBoxSettings& settings);

protected:
    void unplugged() override {}
    void receive(const QByteArray& bytes) override;
    void work() override {}
    qint64 nextChange() const override { return -1; }
    bool command(const QStringList& words) override;
    QString help() const override;

private:
    quint32 stamp() const;
    int numberBits() const { return m_settings.number << 2; }
    bool press(QStringList words);
    bool sendCode(const QStringList& words);
    bool sendBytes(const QString& hexadecimal);
    void tell(int code, quint32 stamp);
    void printStatus() const;

    RaceBoxSettings m_settings;
    BoxTelegrams::Reader m_reader;
    int m_events = 0;
};

#endif

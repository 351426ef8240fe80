#ifndef TORNIK_TESTS_SUPPORT_VIRTUALUNIT_H
#define TORNIK_TESTS_SUPPORT_VIRTUALUNIT_H

#include "ControlUnitFrames.h"
#include "support/EmulatorProgram.h"

/** The program virtual-control-unit. */
class VirtualUnit : public EmulatorProgram
{
public:
    VirtualUnit() : EmulatorProgram(QStringLiteral("virtual-control-unit")) {}

    /** @return how many polls the unit heard so far. */
    int polls() { return ask("status", "crossings").section(' ', 3, 3).toInt(); }

    static QVector<Crossing> journal(const QString& fileName)
    {
        QVector<Crossing> crossings;
        for (const QList<QByteArray>& words : journalWords(fileName)) {
            if (words.size() == 3)
                crossings.append({words.at(0).toInt(), words.at(1).toUInt(), words.at(2).toInt()});
        }
        return crossings;
    }
};

#endif

#ifndef TORNIK_TESTS_SUPPORT_VIRTUALBOX_H
#define TORNIK_TESTS_SUPPORT_VIRTUALBOX_H

#include "At2560Line.h"
#include "support/EmulatorProgram.h"

/** The program virtual-at2560. */
class VirtualBox : public EmulatorProgram
{
public:
    VirtualBox() : EmulatorProgram(QStringLiteral("virtual-at2560")) {}

    QString outputs() { return ask("outputs", "lamps"); }
    /** @return how many activations were reported so far. */
    int reported() { return ask("status", "clock").section(' ', 3, 3).toInt(); }

    static QVector<Activation> journal(const QString& fileName)
    {
        QVector<Activation> activations;
        for (const QList<QByteArray>& words : journalWords(fileName)) {
            if (words.size() == 2)
                activations.append({words.at(0).toInt(), words.at(1).toUInt()});
        }
        return activations;
    }
};

#endif

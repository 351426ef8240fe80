#ifndef TORNIK_IO_CCARRERACUEVENTS_H
#define TORNIK_IO_CCARRERACUEVENTS_H

#include <QEvent>
#include <QString>

#include <array>

/** A whole frame of the Control Unit, posted by its reading thread to CCarreraCuIo. */
class CCarreraCuEvent : public QEvent
{
public:
    static constexpr QEvent::Type EventType = QEvent::Type(1027);

    explicit CCarreraCuEvent(const QString& data) : QEvent(EventType), m_data(data) {}

    const QString& data() const { return m_data; }

private:
    QString m_data;
};

/** The tank levels and the start light of the Control Unit, posted to the receiver (the race). */
class CCarreraCuStatusEvent : public QEvent
{
public:
    static constexpr QEvent::Type EventType = QEvent::Type(1028);
    static constexpr int Cars = 6;
    static constexpr int FullTank = 15;

    /**
     * @param fuel tank level of car 1 to 6, 0 to 15 each
     * @param startLight state of the start light, 0 to 15
     */
    CCarreraCuStatusEvent(const std::array<quint8, Cars>& fuel, quint8 startLight)
        : QEvent(EventType), m_fuel(fuel), m_startLight(startLight)
    {
    }

    const std::array<quint8, Cars>& fuel() const { return m_fuel; }
    quint8 startLight() const { return m_startLight; }

private:
    std::array<quint8, Cars> m_fuel;
    quint8 m_startLight;
};

#endif

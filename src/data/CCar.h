#ifndef TORNIK_DATA_CCAR_H
#define TORNIK_DATA_CCAR_H

#include "data/CFuelTank.h"

#include <QString>

#include <array>

class QDataStream;

/** A car: what the table `cars` keeps of it, and its tank. A value, copied freely. */
class CCar
{
public:
    static constexpr int NumberOfFreeFields = 10;

    const QString& name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }
    const QString& originalManufacturer() const { return m_originalManufacturer; }
    void setOriginalManufacturer(const QString& text) { m_originalManufacturer = text; }
    const QString& originalType() const { return m_originalType; }
    void setOriginalType(const QString& text) { m_originalType = text; }
    const QString& startNumber() const { return m_startNumber; }
    void setStartNumber(const QString& text) { m_startNumber = text; }
    const QString& modelManufacturer() const { return m_modelManufacturer; }
    void setModelManufacturer(const QString& text) { m_modelManufacturer = text; }

    /** @return the speed class, 1 (very fast) to 5 (very slow), 0 for none. */
    int speedClass() const { return m_speedClass; }
    void setSpeedClass(int speedClass) { m_speedClass = speedClass; }

    /** @return the divisor of the scale: 24 means 1/24. */
    int scale() const { return m_scale; }
    void setScale(int scale) { m_scale = scale; }

    /** @return the id of the database row, -1 for none. */
    int id() const { return m_id; }
    void setId(int id) { m_id = id; }

    const QString& chassis() const { return m_chassis; }
    void setChassis(const QString& text) { m_chassis = text; }
    const QString& comment() const { return m_comment; }
    void setComment(const QString& text) { m_comment = text; }

    const CFuelTank& fuelTank() const { return m_fuelTank; }
    void setFuelTank(const CFuelTank& tank) { m_fuelTank = tank; }

    /** @return centimetres. */
    int distanceDriven() const { return m_distanceDriven; }
    void setDistanceDriven(int centimetres) { m_distanceDriven = centimetres; }

    /** @param index 0 to 9; any other index gives an empty text. */
    QString freeField(int index) const;
    /** @param index 0 to 9; any other index is ignored. */
    void setFreeField(int index, const QString& text);

    /** @return the tank's level in percent of its size, cut to a whole number. */
    int fuelPercent() const { return m_fuelTank.percent(); }
    /** A value of 101 and above is ignored. */
    void setFuelPercent(int percent) { m_fuelTank.setPercent(percent); }
    /** Fills the tank by an amount, up to its size. */
    void addFuel(double amount) { m_fuelTank.addFuel(amount); }
    /** Lets the tank consume for one lap. @param lapTime milliseconds */
    CFuelTank::LapResult consumeLap(quint32 lapTime) { return m_fuelTank.consumeLap(lapTime); }

private:
    QString m_name;
    QString m_originalManufacturer = QStringLiteral("unknown");
    QString m_originalType = QStringLiteral("unknown");
    QString m_startNumber;
    QString m_modelManufacturer = QStringLiteral("unknown");
    int m_speedClass = 0;
    int m_scale = 24;
    int m_id = -1;
    QString m_chassis = QStringLiteral("unknown");
    QString m_comment;
    CFuelTank m_fuelTank;
    int m_distanceDriven = 0;
    std::array<QString, NumberOfFreeFields> m_freeFields;
};

/** Stream form: see the definition; the scale stands before the class. */
QDataStream& operator<<(QDataStream& stream, const CCar& car);
QDataStream& operator>>(QDataStream& stream, CCar& car);

#endif

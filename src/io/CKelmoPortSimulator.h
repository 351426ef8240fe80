#ifndef TORNIK_IO_CKELMOPORTSIMULATOR_H
#define TORNIK_IO_CKELMOPORTSIMULATOR_H

#include "data/CRaceway.h"
#include "io/PortIds.h"

#include <QBitArray>
#include <QDialog>
#include <QElapsedTimer>
#include <QPointer>

#include <array>
#include <vector>

class QPushButton;
class QVBoxLayout;

/** The slots of the six buttons that a track has. */
// clang-format off
#define TORNIK_SIMULATOR_SLOTS_OF_TRACK(number)                                                    \
    void slot##number##Pressed() { press(PortId::lapSensor((number) - 1)); }                       \
    void slot##number##FuelPressed() { press(PortId::fuelSensor((number) - 1)); }                  \
    void slot##number##FuelEndPressed() { press(PortId::fuelFinishedSensor((number) - 1)); }       \
    void slot##number##Sector2BeginPressed() { press(PortId::sector2Sensor((number) - 1)); }       \
    void slot##number##Sector3BeginPressed() { press(PortId::sector3Sensor((number) - 1)); }       \
    void slot##number##EndSensorPressed() { press(PortId::endSensor((number) - 1)); }
// clang-format on

/**
 * One button for each sensor of the raceway: a held button is a closed sensor. Posts the same
 * CDriveThroughEvents as a hardware interface, beside it and not in its place, so that a race can
 * be driven with no hardware at all.
 *
 * Made once by the main dialog, which owns it; not modal. Each button has a slot of its own, and
 * the object name of the slot without "Pressed": "slot1Fuel", "allRefuel", "chaosButton".
 */
class CKelmoPortSimulator : public QDialog
{
    Q_OBJECT

public:
    explicit CKelmoPortSimulator(QWidget* parent = nullptr);
    ~CKelmoPortSimulator() override;

    /** @param receiver the race; not owned */
    void setReceiver(QObject* receiver) { m_receiver = receiver; }
    /** Shows the buttons of the sensors that the raceway has, for its first eight tracks. */
    void setRaceway(const CRaceway& raceway);
    const CRaceway& raceway() const { return m_raceway; }

public Q_SLOTS:
    /** Begins a new time base, near 0, and shows the dialog. */
    void show();

    // Each posts an event in which its sensors are closed and no others.
    TORNIK_SIMULATOR_SLOTS_OF_TRACK(1)
    TORNIK_SIMULATOR_SLOTS_OF_TRACK(2)
    TORNIK_SIMULATOR_SLOTS_OF_TRACK(3)
    TORNIK_SIMULATOR_SLOTS_OF_TRACK(4)
    TORNIK_SIMULATOR_SLOTS_OF_TRACK(5)
    TORNIK_SIMULATOR_SLOTS_OF_TRACK(6)
    TORNIK_SIMULATOR_SLOTS_OF_TRACK(7)
    TORNIK_SIMULATOR_SLOTS_OF_TRACK(8)
    void allPressed() { press(PortId::FirstLapSensor, PortId::Tracks); }
    void allRefuelPressed() { press(PortId::FirstFuelSensor, PortId::Tracks); }
    void allRefuelEndPressed() { press(PortId::FirstFuelFinishedSensor, PortId::Tracks); }
    void allSector2BeginPressed() { press(PortId::FirstSector2Sensor, PortId::Tracks); }
    void allSector3BeginPressed() { press(PortId::FirstSector3Sensor, PortId::Tracks); }
    void allEndSensorsPressed() { press(PortId::FirstEndSensor, PortId::Tracks); }
    void chaosButtonPressed() { press(PortId::ChaosButton); }
    /** Posts an event in which no sensor is closed. */
    void slotReleased();

private:
    /** The kinds of sensors, from top to bottom of the dialog. */
    enum Kind
    {
        Slot,
        Sector2,
        Sector3,
        EndSensor,
        Fuel,
        FuelEnd,
        KindCount
    };
    /** A button for each track and one for all of them. */
    struct Row
    {
        std::vector<QPushButton*> buttons;
        QPushButton* all = nullptr;
    };

    Row addRow(QVBoxLayout* layout, Kind kind);
    /** @param name that of the button's slot without "Pressed" */
    QPushButton* makeButton(const QString& name, const QString& text);
    /** Shows one button for each track, and that for all of them if there is more than one. */
    void showRow(Kind kind, bool available, int tracks);
    /** Closes so many sensors from a port id on, in place of those before. */
    void press(int firstPortId, int count = 1);
    void postSensors();

    QPushButton* m_chaosButton = nullptr;
    CRaceway m_raceway;
    std::array<Row, KindCount> m_rows;
    QElapsedTimer m_clock;
    QPointer<QObject> m_receiver;
    QBitArray m_sensors;
};

#undef TORNIK_SIMULATOR_SLOTS_OF_TRACK

#endif

#ifndef TORNIK_IO_CKELMOPORTSIMULATOR_H
#define TORNIK_IO_CKELMOPORTSIMULATOR_H

#include "data/CRaceway.h"

#include <QBitArray>
#include <QDialog>
#include <QElapsedTimer>
#include <QPointer>

#include <array>
#include <vector>

class QPushButton;
class QVBoxLayout;

/**
 * One button for each sensor of the raceway: a held button is a closed sensor. Posts the same
 * CDriveThroughEvents as a hardware interface, beside it and not in its place, so that a race can
 * be driven with no hardware at all.
 *
 * Made once by the main dialog, which owns it; not modal. Each button has an object name: "slot1"
 * to "slot8", with "Fuel", "FuelEnd", "Sector2Begin", "Sector3Begin" or "EndSensor" behind it for
 * the other sensors of a track, "all", "allRefuel", "allRefuelEnd", "allSector2Begin",
 * "allSector3Begin" and "allEndSensors" for those of all tracks, and "chaosButton".
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
    /** @param firstPortId, count the sensors that the button closes */
    QPushButton* makeButton(const QString& name, const QString& text, int firstPortId, int count);
    /** Shows one button for each track, and that for all of them if there is more than one. */
    void showRow(Kind kind, bool available, int tracks);
    void press(int firstPortId, int count);
    void postSensors();

    QPushButton* m_chaosButton = nullptr;
    CRaceway m_raceway;
    std::array<Row, KindCount> m_rows;
    QElapsedTimer m_clock;
    QPointer<QObject> m_receiver;
    QBitArray m_sensors;
};

#endif

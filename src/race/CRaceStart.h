#ifndef TORNIK_RACE_CRACESTART_H
#define TORNIK_RACE_CRACESTART_H

#include <QObject>
#include <QTime>
#include <QTimer>

#include <memory>

class CRaceSettings;

/**
 * Decides when a race begins and drives the start lights. The race makes a new one for each start
 * and owns it; everything runs in the main thread.
 */
class CRaceStart : public QObject
{
    Q_OBJECT

public:
    virtual void start() = 0;
    virtual void stop() = 0;
    /** @return the procedure in words. */
    virtual QString description() const = 0;

    /** @return whether the start was given; before that a car on the start sensor is too early. */
    bool isGoGiven() const { return m_goGiven; }

Q_SIGNALS:
    void go();
    /** @param iAction a CLightAction */
    void UpdateLights(int iAction);

protected:
    void giveGo();
    void setGoGiven(bool given) { m_goGiven = given; }

private:
    bool m_goGiven = false;
};

/** Flying start: the go is given at once. */
class CRaceStartNoCondition : public CRaceStart
{
    Q_OBJECT

public:
    void start() override;
    void stop() override;
    QString description() const override;
};

/** Start by lights: five reds, one a second, and green after a random while. */
class CRaceStartTimer : public CRaceStart
{
    Q_OBJECT

public:
    /**
     * @param startDelay time to the go; its minutes and seconds count, 5 seconds at least
     * @param startLightsMinDelay milliseconds from the fifth red to green at least
     * @param startLightsMaxDelay milliseconds added to it at most
     */
    CRaceStartTimer(const QTime& startDelay, quint32 startLightsMinDelay, quint32 startLightsMaxDelay);

    void start() override;
    void stop() override;
    QString description() const override;

    int remainingSeconds() const { return m_remainingSeconds; }

private Q_SLOTS:
    void vStartTimerEventOccured();

private:
    QTimer m_startTimer{this};
    QTime m_startDelay;
    int m_remainingSeconds = 0;
    quint32 m_startLightsMinDelay;
    quint32 m_startLightsMaxDelay;
};

/** @return the procedure that the settings ask for; never null. */
std::unique_ptr<CRaceStart> createRaceStart(const CRaceSettings& settings);

#endif

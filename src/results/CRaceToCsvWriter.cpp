#include "results/CRaceToCsvWriter.h"

#include "race/CRace.h"
#include "results/CsvTimeFormat.h"
#include "shell/CSettings.h"

#include <QTime>

namespace {

constexpr int LabelColumn = 0;
constexpr int ValueColumn = 1;

enum Row
{
    RacewayRow,
    StartConditionRow,
    EndConditionRow,
    WinningConditionRow,
    StartTimeRow,
    RaceTimeRow,
    DriverRow,
    CarRow,
    AverageRow,
    StatusRow,
    LapHeaderRow,
    FirstLapRow
};

} // namespace

CRaceToCsvWriter::CRaceToCsvWriter(CRace* race) : m_race(race) {}

void CRaceToCsvWriter::setRace(CRace* race)
{
    m_race = race;
    if (!m_race)
        return;
    fillRaceway();
    fillRaceData();
    fillMembers();
}

void CRaceToCsvWriter::fillRaceway()
{
    setCell(LabelColumn, RacewayRow, tr("Rennstrecke:"));
    setCell(ValueColumn, RacewayRow, m_race->raceSettingsCopy().raceway().name);
}

void CRaceToCsvWriter::fillRaceData()
{
    const QString clock = QStringLiteral("hh:mm:ss");
    setCell(LabelColumn, StartConditionRow, tr("Startbedingung:"));
    setCell(ValueColumn, StartConditionRow, m_race->raceStart()->description());
    setCell(LabelColumn, EndConditionRow, tr("Endebedingung:"));
    setCell(ValueColumn, EndConditionRow, m_race->endCondition()->description());
    setCell(LabelColumn, WinningConditionRow, tr("Siegbedingung:"));
    setCell(ValueColumn, WinningConditionRow, m_race->winningCondition()->description());
    setCell(LabelColumn, StartTimeRow, tr("Startzeit:"));
    setCell(ValueColumn, StartTimeRow, m_race->raceDateTime().toString(clock));
    setCell(LabelColumn, RaceTimeRow, tr("Renndauer:"));
    setCell(ValueColumn, RaceTimeRow, m_race->raceTime().toString(clock));
}

void CRaceToCsvWriter::fillMembers()
{
    setCell(LabelColumn, DriverRow, tr("Fahrername:"));
    setCell(LabelColumn, CarRow, tr("Fahrzeug:"));
    setCell(LabelColumn, AverageRow, tr("Durchschnittszeit:"));
    setCell(LabelColumn, StatusRow, tr("Status:"));
    setCell(LabelColumn, LapHeaderRow, tr("Rundenzeiten:"));
    const int sectors = m_race->raceSettingsCopy().raceway().numberOfSectors;
    const int columnsOfMember = sectors < 2 ? 1 : sectors + 1;
    for (int i = 0; i < m_race->numberOfMembers(); ++i)
        fillMember(m_race->raceMember(i), i * columnsOfMember + 1, sectors);
}

void CRaceToCsvWriter::fillMember(const CRaceMember& member, int column, int sectors)
{
    setCell(column, DriverRow, member.driver().name());
    setCell(column, CarRow, member.car().name());
    setCell(column, AverageRow, timeText(member.averageLapTime()));
    if (member.status() == CRaceMemberStatus::Winner)
        setCell(column, StatusRow, tr("Sieger"));
    fillLapHeader(column, sectors);
    for (int i = 0; i < member.numberOfLaps(); ++i)
        fillLap(member.lap(i), i, column, sectors);
}

void CRaceToCsvWriter::fillLapHeader(int column, int sectors)
{
    setCell(column, LapHeaderRow, tr("Rundenzeit"));
    if (sectors > 1) {
        setCell(column + 1, LapHeaderRow, tr("Sektor 1"));
        setCell(column + 2, LapHeaderRow, tr("Sektor 2"));
        if (sectors != 2)
            setCell(column + 3, LapHeaderRow, tr("Sektor 3"));
    }
}

void CRaceToCsvWriter::fillLap(const CLapTime& lap, int index, int column, int sectors)
{
    const int row = FirstLapRow + index;
    setCell(LabelColumn, row, index + 1);
    setCell(column, row, timeText(lap.lapTime));
    if (sectors > 1) {
        setCell(column + 1, row, timeText(lap.sector1Time));
        setCell(column + 2, row, timeText(lap.sector2Time));
        if (sectors != 2)
            setCell(column + 3, row, timeText(lap.sector3Time));
    }
}

QString CRaceToCsvWriter::timeText(const QTime& time) const
{
    return time.toString(csvTimeFormat(m_race->settings()->storageCsvTimeFormat()));
}

QString CRaceToCsvWriter::timeText(int milliseconds) const
{
    return timeText(QTime(0, 0).addMSecs(milliseconds));
}

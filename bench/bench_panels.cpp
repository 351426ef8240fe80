// Eight panels in the largest size: what one MemberChanged event costs from the slot to the painted
// picture. The yardstick is the same window with fifteen plain QLabels a panel.

#include "shell/CRichLabel.h"
#include "shell/CSettings.h"
#include "shell/CTrackDisplay.h"
#include "shell/CTrackRows.h"
#include "shell/CTrackTier.h"

#include <QApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QTime>

#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>

namespace {

constexpr int Tracks = 8;

const char* const WindowStyle =
    "QWidget {color: #646464; background-color: black;  selection-background-color: transparent; "
    "alternate-background-color: transparent; } QMenuBar { background-color: transparent; } QMenuBar::item "
    "{background: transparent; } QMenu { border-style: outset; border-width: 1px; border-radius: 0px; "
    "border-color: darkgray;} QMenu::item:selected { background: rgba(100, 100, 100, 150); color: white;} "
    "QComboBox QAbstractItemView { border: 2px solid darkgray; selection-background-color: rgba(100, 100, "
    "100, "
    "150); } QPushButton { background-color: transparent; border-style: outset; border-width: 1px; "
    "border-radius: 0px; border-color: darkgray; padding: 5px; min-width: 5em;} QPushButton:pressed { "
    "background-color: transparent; border-style: inset;}";

/** A window as the main dialog is one, with two rows of panels. */
class CWindow : public QDialog
{
public:
    CWindow()
    {
        setStyleSheet(WindowStyle);
        setAutoFillBackground(true);
        auto* column = new QVBoxLayout(this);
        for (auto& row : m_rows) {
            row = new QHBoxLayout;
            column->addLayout(row);
        }
    }

    void add(QWidget* panel, int track) { m_rows[track < Tracks / 2 ? 0 : 1]->addWidget(panel); }

    void showAndSettle()
    {
        show();
        for (int i = 0; i < 10; ++i)
            QCoreApplication::processEvents();
    }

private:
    QHBoxLayout* m_rows[2];
};

/** Values that change with every turn, so that every text of an event is new. */
struct CFigures
{
    explicit CFigures(int turn)
        : laps(100 + turn % 800),
          time(0, 0, turn % 60, turn * 37 % 1000),
          status(4 + turn % 2),
          speed(100 + turn % 500 / 10.0),
          fuel(30 + turn % 70)
    {
    }

    int laps;
    QTime time;
    int status;
    double speed;
    int fuel;
};

class CPanels
{
public:
    CPanels()
    {
        m_settings.setDisplaySize(CSettings::VeryLarge);
        m_settings.setDisplayShowAverageLapTime(true);
        m_settings.setDisplayShowSectorTimes(true);
        m_settings.setSoundEnhanced(false);
        const CTrackRows rows(Tracks);
        for (int i = 0; i < rows.panelCount(); ++i) {
            const bool track = CTrackRows::isTrackPanel(i);
            auto* panel = new CTrackDisplay(track ? CTrackDisplay::TrackPanel : CTrackDisplay::LegendPanel,
                                            &m_settings, &m_window, rows.rows(), 3);
            panel->setSettings(&m_settings);
            panel->setColor(QStringLiteral("#FFC80A"));
            panel->reset();
            panel->hide();
            if (i == rows.hiddenPanel())
                continue;
            m_window.add(panel, i / 2);
            panel->show();
            if (track)
                m_panels.append(panel);
        }
        m_window.showAndSettle();
    }

    void event(int track, int turn)
    {
        const CFigures figures(turn);
        CTrackDisplay& panel = *m_panels.at(track);
        panel.setLaps(figures.laps);
        panel.setLastLap(figures.time);
        panel.setBestLap(figures.time);
        panel.setStatus(figures.status);
        panel.setAverageLap(figures.time);
        panel.setSection1(figures.time);
        panel.setSection2(figures.time);
        panel.setSection3(figures.time);
        panel.setSpeed(figures.speed);
        panel.setFuel(figures.fuel);
        panel.lockBoxes(true);
        panel.voiceOutput(1);
    }

private:
    CWindow m_window;
    CSettings m_settings;
    QVector<CTrackDisplay*> m_panels;
};

/** Where the yardstick's fifteen texts stand: those of a panel, and six more in the size of a time. */
QVector<CLabelTier> fifteenLabels()
{
    const CPanelTier& tier = trackPanelTier(CSettings::VeryLarge);
    QVector<CLabelTier> labels{tier.lapCount, tier.status,      tier.speed,
                               tier.fuel,     tier.participant, tier.participant};
    while (labels.size() < 15)
        labels.append(tier.time);
    return labels;
}

/** Panels of labels of a kind: plain ones, or ours alone. */
template <typename Label>
class CLabelPanels
{
public:
    CLabelPanels()
    {
        for (int track = 0; track < Tracks; ++track) {
            auto* panel = new QWidget(&m_window);
            auto* column = new QVBoxLayout(panel);
            QVector<Label*> labels;
            for (const CLabelTier& tier : fifteenLabels()) {
                labels.append(create(panel, tier));
                column->addWidget(labels.last(), 0, Qt::AlignHCenter);
            }
            m_labels.append(labels);
            m_window.add(panel, track);
        }
        m_window.showAndSettle();
    }

    void event(int track, int turn)
    {
        const CFigures figures(turn);
        const QVector<Label*>& labels = m_labels.at(track);
        labels.at(0)->setText(QString::number(figures.laps));
        labels.at(1)->setText(turn % 2 ? QStringLiteral("frühstart") : QStringLiteral("läuft"));
        labels.at(2)->setText(QLocale(QLocale::German).toString(figures.speed, 'f', 1) + " km/h");
        labels.at(3)->setText(QString::number(figures.fuel) + "%");
        labels.at(4)->setText(turn % 2 ? QStringLiteral("Anna") : QStringLiteral("Ben"));
        labels.at(5)->setText(turn % 2 ? QStringLiteral("Käfer") : QStringLiteral("Ente"));
        for (int i = 6; i < labels.size(); ++i)
            labels.at(i)->setText(figures.time.toString(QStringLiteral("mm:ss:zzz")));
    }

private:
    static QLabel* createLabel(QLabel* label, const CLabelTier& tier)
    {
        QFont font(QStringLiteral("Arial"), 10, QFont::Bold);
        font.setPixelSize(tier.pointSize * 96 / 72);
        label->setFont(font);
        label->setFixedSize(tier.width, tier.height);
        label->setAlignment(Qt::AlignCenter);
        return label;
    }

    static CRichLabel* createLabel(CRichLabel* label, const CLabelTier& tier)
    {
        label->setPointSize(tier.pointSize);
        label->setWidth(tier.width);
        label->setHeight(tier.height);
        label->setColor(QColor(0x64, 0x64, 0x64));
        return label;
    }

    static Label* create(QWidget* parent, const CLabelTier& tier)
    {
        return createLabel(new Label(parent), tier);
    }

    CWindow m_window;
    QVector<QVector<Label*>> m_labels;
};

/** Counts the widgets that paint themselves. */
class CPaintCounter : public QObject
{
public:
    CPaintCounter() { qApp->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

/** One event on each of the first tracks, and then the picture. */
template <typename Scene>
void toPicture(Scene& scene, int tracks, int turn)
{
    for (int track = 0; track < tracks; ++track)
        scene.event(track, turn);
    QCoreApplication::processEvents();
}

template <typename Scene>
int countPaints(Scene& scene, int tracks)
{
    CPaintCounter counter;
    toPicture(scene, tracks, 1);
    return counter.count;
}

template <typename Scene>
void eventToPicture(benchmark::State& state)
{
    Scene scene;
    const int tracks = int(state.range(0));
    toPicture(scene, tracks, 0);
    state.counters["painted"] = countPaints(scene, tracks);
    int turn = 1;
    for (auto _ : state)
        toPicture(scene, tracks, ++turn);
}

void tune(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1)->Arg(Tracks)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);
}

BENCHMARK_TEMPLATE(eventToPicture, CPanels)->Name("panels")->Apply(tune);
BENCHMARK_TEMPLATE(eventToPicture, CLabelPanels<QLabel>)->Name("plain_labels")->Apply(tune);
BENCHMARK_TEMPLATE(eventToPicture, CLabelPanels<CRichLabel>)->Name("our_labels")->Apply(tune);

/** Keeps the processor times, so that they can be set against each other on a busy machine, too. */
class CReporter : public benchmark::ConsoleReporter
{
public:
    std::map<std::string, double> times;

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            times[run.benchmark_name()] = run.GetAdjustedCPUTime();
    }
};

void printRatio(CReporter& reporter, const char* name, int events)
{
    const std::string suffix = "/" + std::to_string(events) + "/repeats:5_median";
    const double ours = reporter.times[name + suffix];
    const double yardstick = reporter.times["plain_labels" + suffix];
    if (ours > 0 && yardstick > 0)
        std::printf("%s / plain_labels, events on %d of %d panels: %.2f (at most 1)\n", name, events, Tracks,
                    ours / yardstick);
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    CReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const char* name : {"panels", "our_labels"}) {
        printRatio(reporter, name, 1);
        printRatio(reporter, name, Tracks);
    }
    return 0;
}

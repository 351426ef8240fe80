#ifndef TORNIK_TESTS_RESULTS_ANALYZERFIXTURE_H
#define TORNIK_TESTS_RESULTS_ANALYZERFIXTURE_H

#include "data/CCarList.h"
#include "data/CDriverList.h"
#include "data/CRacewayList.h"
#include "results/CKelmoRaceAnalyzer.h"
#include "shell/MainDialogFixture.h"
#include "support/DatabaseFile.h"
#include "support/ModalAnswers.h"
#include "support/ModelTexts.h"

#include <QComboBox>
#include <QHeaderView>
#include <QPushButton>
#include <QSettings>
#include <QStyledItemDelegate>
#include <QTreeView>

/**
 * The analyzer of the real main window, over a database of two raceways, the current "Testbahn" with
 * two tracks and "Ausweichbahn" with three, of the drivers Anna, Ben and Özil and the cars GT and LMP.
 */
class AnalyzerFixture
{
public:
    AnalyzerFixture()
    {
        fillDatabase();
        m_window = std::make_unique<MainDialogFixture>();
        analyzer = m_window->dialog.findChild<CKelmoRaceAnalyzer*>("raceAnalyzer");
        auto questions = std::make_unique<CScriptedQuestions>();
        user = questions.get();
        analyzer->setUserQuestions(std::move(questions));
    }

    CKelmoMainDialog& window() { return m_window->dialog; }
    CSettings& settings() { return m_window->settings; }

    /** Opens the analyzer from the menu, works with it, and closes it by its button. */
    void show(const std::function<void()>& work)
    {
        modal.expect([this, work](QDialog* dialog) {
            QCOMPARE(dialog, analyzer);
            work();
            QTest::mouseClick(button("closeButton"), Qt::LeftButton);
        });
        m_window->action(CMainMenu::RaceAnalyzer)->trigger();
        QVERIFY(!analyzer->isVisible());
    }

    QComboBox* box(const char* name) const { return analyzer->findChild<QComboBox*>(name); }
    QPushButton* button(const char* name) const { return analyzer->findChild<QPushButton*>(name); }
    QTreeView* tree() const { return analyzer->findChild<QTreeView*>("treeView"); }
    QHeaderView* header() const { return tree()->header(); }

    QStringList entries(const char* name) const
    {
        QStringList texts;
        for (int i = 0; i < box(name)->count(); ++i)
            texts << box(name)->itemText(i);
        return texts;
    }
    /** Chooses the entry of that text. */
    void choose(const char* name, const QString& entry)
    {
        const int index = box(name)->findText(entry);
        QVERIFY2(index >= 0, qPrintable(entry));
        box(name)->setCurrentIndex(index);
    }
    /** @return the rows as they are on the screen, the columns joined with "|". */
    QStringList rows() const
    {
        return rowsOf(tree()->model(), [this](const QModelIndex& index) { return shownText(index); });
    }
    void clickHeader(int column)
    {
        const int x = header()->sectionViewportPosition(column) + header()->sectionSize(column) / 2;
        QTest::mouseClick(header()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(x, header()->height() / 2));
    }
    /** Clicks on the button "E&xportieren". @return the lines of the file */
    QStringList exported(const QString& fileName = "list.csv")
    {
        user->fileName = fileName;
        QTest::mouseClick(button("exportButton"), Qt::LeftButton);
        return QString::fromUtf8(contentOf(fileName)).split('\n');
    }

    CKelmoRaceAnalyzer* analyzer = nullptr;
    CScriptedQuestions* user = nullptr;
    ModalAnswers modal;

private:
    QString shownText(const QModelIndex& index) const
    {
        const auto* delegate = qobject_cast<QStyledItemDelegate*>(tree()->itemDelegate(index));
        return delegate->displayText(index.data(), QLocale::c());
    }

    static void fillDatabase()
    {
        QSettings("Tornik", "Tornik").clear();
        const DatabaseReference reference;
        {
            CRacewayList raceways;
            raceways.updateRaceway(0, racewayNamed("Testbahn", 2));
            raceways.addRaceway(racewayNamed("Ausweichbahn", 3));
        }
        DatabaseFile file;
        QVERIFY(file.exec("DELETE FROM driver") && file.exec("DELETE FROM cars"));
        QVERIFY(file.exec("INSERT INTO driver(id, name) VALUES(11, 'Ben'), (12, 'Anna'), (13, 'Özil')"));
        QVERIFY(file.exec("INSERT INTO cars(id, name) VALUES(21, 'LMP'), (22, 'GT')"));
        const QString add = "INSERT INTO fastestLapTimes(racewayId, trackId, driverId, carId, time) "
                            "SELECT t.racewayId, t.id, %1, %2, %3 FROM tracks t JOIN raceways r "
                            "ON r.id = t.racewayId WHERE r.name = '%4' AND t.noOfTrack = %5";
        const auto record = [&](const char* raceway, int track, int driver, int car, int time) {
            QVERIFY(file.exec(add.arg(driver).arg(car).arg(time).arg(raceway).arg(track)));
        };
        record("Testbahn", 1, 12, 22, 8531);
        record("Testbahn", 2, 12, 22, 75400);
        record("Testbahn", 1, 11, 21, 9000);
        record("Testbahn", 2, 13, 21, 8100);
        record("Ausweichbahn", 3, 11, 22, 6000);
    }
    static CRaceway racewayNamed(const QString& name, int tracks)
    {
        CRaceway raceway(tracks);
        raceway.name = name;
        return raceway;
    }

    ScratchDirectory m_scratch;
    std::unique_ptr<MainDialogFixture> m_window;
};

#endif

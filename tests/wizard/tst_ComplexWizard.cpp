#include "wizard/ComplexWizard.h"
#include "wizard/WizardPage.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <vector>

namespace {

/** A page that writes down what is asked of it. */
class Page : public WizardPage
{
public:
    Page(const QString& name, QStringList* log) : m_log(log)
    {
        setObjectName(name);
        setFocusPolicy(Qt::StrongFocus);
    }

    void resetPage() override { m_log->append("reset " + objectName()); }
    WizardPage* nextPage() override
    {
        m_log->append("next of " + objectName());
        return next;
    }
    bool isLastPage() const override { return isLast; }
    bool isComplete() const override { return isReady; }

    void setReady(bool ready)
    {
        isReady = ready;
        Q_EMIT completeStateChanged();
    }

    WizardPage* next = nullptr;
    bool isLast = false;
    bool isReady = true;

private:
    QStringList* m_log;
};

/** Three pages, one behind the other, shown in a wizard. */
class ThreePages
{
public:
    ThreePages() : first("first", &log), second("second", &log), third("third", &log)
    {
        first.next = &second;
        second.next = &third;
        third.isLast = true;
    }

    bool show()
    {
        wizard.setFirstPage(&first);
        wizard.show();
        wizard.activateWindow();
        return QTest::qWaitForWindowActive(&wizard);
    }

    QPushButton* button(const char* name) { return wizard.findChild<QPushButton*>(name); }
    void click(const char* name) { QTest::mouseClick(button(name), Qt::LeftButton); }
    bool isEnabled(const char* name) { return button(name)->isEnabled(); }

    /** @return the names of the pages that can be seen. */
    QStringList shown()
    {
        QStringList names;
        for (const Page* page : {&first, &second, &third}) {
            if (page->isVisible())
                names.append(page->objectName());
        }
        return names;
    }

    QStringList log;
    ComplexWizard wizard;
    Page first;
    Page second;
    Page third;
};

} // namespace

class tst_ComplexWizard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsItsButtons();
    void pagesStayHiddenUntilTheirTurn();
    void theWayLeadsThroughThePagesAndBack();
    void backFromTheSecondPageDisablesBackAgain();
    void anIncompletePageKeepsNextDisabledUntilItTellsOfAChange();
    void anIncompleteLastPageKeepsFinishDisabled();
    void goingBackAndForwardAsksForTheNextPageAgain();
    void pagesAreResetWhenEnteredForwardsAndWhenLeftBackwards();
    void nextIsTheDefaultButtonAndFinishOnTheLastPage();
    void thePageGetsTheFocus();
    void aPageThatIsLeftIsHeardNoMore();
    void aPageWithoutANextOneStays();
    void setFirstPageBeginsAnew();
    void cancelRejectsAndFinishAccepts();
    void theDefaultsOfAPageAreThoseOfACompleteOneInTheMiddle();
};

void tst_ComplexWizard::showsItsButtons()
{
    ThreePages pages;
    QVERIFY(pages.show());
    QCOMPARE(pages.button("cancelButton")->text(), QString("Abbrechen"));
    QCOMPARE(pages.button("backButton")->text(), QString("< &Zurück"));
    QCOMPARE(pages.button("nextButton")->text(), QString("Weiter >"));
    QCOMPARE(pages.button("finishButton")->text(), QString("&Fertigstellen"));
    int left = -1;
    for (const char* name : {"cancelButton", "backButton", "nextButton", "finishButton"}) {
        QVERIFY2(pages.button(name)->x() > left, name);
        left = pages.button(name)->x();
        QVERIFY(pages.first.geometry().bottom() < pages.button(name)->y());
    }
}

void tst_ComplexWizard::pagesStayHiddenUntilTheirTurn()
{
    QStringList log;
    ComplexWizard wizard;
    Page shown("shown", &log);
    auto* other = new Page("other", &log);
    other->setParent(&wizard);
    auto* child = new WizardPage(&wizard);
    wizard.setFirstPage(&shown);
    wizard.show();
    QVERIFY(shown.isVisible());
    QVERIFY(!other->isVisible());
    QVERIFY(!child->isVisible());
}

void tst_ComplexWizard::theWayLeadsThroughThePagesAndBack()
{
    ThreePages pages;
    QVERIFY(pages.show());
    QCOMPARE(pages.shown(), QStringList{"first"});
    pages.click("nextButton");
    QCOMPARE(pages.shown(), QStringList{"second"});
    pages.click("nextButton");
    QCOMPARE(pages.shown(), QStringList{"third"});
    pages.click("backButton");
    QCOMPARE(pages.shown(), QStringList{"second"});
    pages.click("backButton");
    QCOMPARE(pages.shown(), QStringList{"first"});
}

void tst_ComplexWizard::backFromTheSecondPageDisablesBackAgain()
{
    ThreePages pages;
    QVERIFY(pages.show());
    QVERIFY(!pages.isEnabled("backButton"));
    pages.click("nextButton");
    QVERIFY(pages.isEnabled("backButton"));
    pages.click("backButton");
    QVERIFY(!pages.isEnabled("backButton"));
}

void tst_ComplexWizard::anIncompletePageKeepsNextDisabledUntilItTellsOfAChange()
{
    ThreePages pages;
    pages.first.isReady = false;
    QVERIFY(pages.show());
    QVERIFY(!pages.isEnabled("nextButton"));
    pages.first.isReady = true; // nobody knows yet
    QVERIFY(!pages.isEnabled("nextButton"));
    pages.first.setReady(true);
    QVERIFY(pages.isEnabled("nextButton"));
    pages.first.setReady(false);
    QVERIFY(!pages.isEnabled("nextButton"));
    QVERIFY(!pages.isEnabled("finishButton"));
}

void tst_ComplexWizard::anIncompleteLastPageKeepsFinishDisabled()
{
    ThreePages pages;
    pages.third.isReady = false;
    QVERIFY(pages.show());
    pages.click("nextButton");
    pages.click("nextButton");
    QVERIFY(!pages.isEnabled("finishButton"));
    pages.third.setReady(true);
    QVERIFY(pages.isEnabled("finishButton"));
    QVERIFY(!pages.isEnabled("nextButton"));
}

void tst_ComplexWizard::goingBackAndForwardAsksForTheNextPageAgain()
{
    ThreePages pages;
    QVERIFY(pages.show());
    pages.click("nextButton");
    pages.click("backButton");
    pages.click("nextButton");
    QCOMPARE(pages.log.count("next of first"), 2);
    pages.first.next = &pages.third; // another answer, another way
    pages.click("backButton");
    pages.click("nextButton");
    QCOMPARE(pages.log.count("next of first"), 3);
    QCOMPARE(pages.shown(), QStringList{"third"});
}

void tst_ComplexWizard::pagesAreResetWhenEnteredForwardsAndWhenLeftBackwards()
{
    ThreePages pages;
    QVERIFY(pages.show());
    QCOMPARE(pages.log, QStringList{"reset first"});
    pages.log.clear();
    pages.click("nextButton");
    QCOMPARE(pages.log, QStringList({"next of first", "reset second"}));
    pages.log.clear();
    pages.click("backButton");
    QCOMPARE(pages.log, QStringList{"reset second"});
}

void tst_ComplexWizard::nextIsTheDefaultButtonAndFinishOnTheLastPage()
{
    ThreePages pages;
    QVERIFY(pages.show());
    QVERIFY(pages.button("nextButton")->isDefault());
    QVERIFY(!pages.isEnabled("finishButton"));
    QTest::keyClick(&pages.wizard, Qt::Key_Return);
    QVERIFY(pages.button("nextButton")->isDefault());
    QTest::keyClick(&pages.wizard, Qt::Key_Return);
    QCOMPARE(pages.shown(), QStringList{"third"});
    QVERIFY(pages.button("finishButton")->isDefault());
    QVERIFY(pages.isEnabled("finishButton"));
    QVERIFY(!pages.isEnabled("nextButton"));
    pages.click("backButton");
    QVERIFY(pages.button("nextButton")->isDefault());
    QVERIFY(pages.isEnabled("nextButton"));
    QVERIFY(!pages.isEnabled("finishButton"));
}

void tst_ComplexWizard::thePageGetsTheFocus()
{
    ThreePages pages;
    QVERIFY(pages.show());
    QVERIFY(pages.first.hasFocus());
    pages.click("nextButton");
    QVERIFY(pages.second.hasFocus());
    pages.click("backButton");
    QVERIFY(pages.first.hasFocus());
}

void tst_ComplexWizard::aPageThatIsLeftIsHeardNoMore()
{
    ThreePages pages;
    QVERIFY(pages.show());
    pages.click("nextButton");
    pages.second.isReady = false; // without a word
    pages.first.setReady(true);
    QVERIFY(pages.isEnabled("nextButton"));
    pages.second.setReady(false);
    QVERIFY(!pages.isEnabled("nextButton"));
    pages.click("backButton");
    pages.click("nextButton"); // connected once, however often it was entered
    QSignalSpy changes(&pages.second, &WizardPage::completeStateChanged);
    pages.second.setReady(true);
    QCOMPARE(changes.count(), 1);
    QVERIFY(pages.isEnabled("nextButton"));
}

void tst_ComplexWizard::aPageWithoutANextOneStays()
{
    ThreePages pages;
    pages.first.next = nullptr;
    QVERIFY(pages.show());
    pages.click("nextButton");
    QCOMPARE(pages.shown(), QStringList{"first"});
    QVERIFY(!pages.isEnabled("backButton"));
}

void tst_ComplexWizard::setFirstPageBeginsAnew()
{
    ThreePages pages;
    QVERIFY(pages.show());
    pages.click("nextButton");
    pages.log.clear();
    pages.wizard.setFirstPage(&pages.third);
    QCOMPARE(pages.log, QStringList{"reset third"});
    QCOMPARE(pages.shown(), QStringList{"third"});
    QVERIFY(!pages.isEnabled("backButton"));
    pages.second.setReady(false); // heard no more
    QVERIFY(pages.isEnabled("finishButton"));
}

void tst_ComplexWizard::cancelRejectsAndFinishAccepts()
{
    ThreePages pages;
    QSignalSpy finished(&pages.wizard, &QDialog::finished);
    QVERIFY(pages.show());
    pages.click("cancelButton");
    QCOMPARE(finished.takeFirst().first().toInt(), 0);
    QVERIFY(pages.show());
    QTest::keyClick(&pages.wizard, Qt::Key_Escape);
    QCOMPARE(finished.takeFirst().first().toInt(), 0);
    QVERIFY(pages.show());
    pages.click("nextButton");
    pages.click("nextButton");
    pages.click("finishButton");
    QCOMPARE(finished.takeFirst().first().toInt(), 1);
}

void tst_ComplexWizard::theDefaultsOfAPageAreThoseOfACompleteOneInTheMiddle()
{
    WizardPage page;
    page.resetPage();
    QVERIFY(page.isComplete());
    QVERIFY(!page.isLastPage());
    QVERIFY(!page.nextPage());
}

QTEST_MAIN(tst_ComplexWizard)
#include "tst_ComplexWizard.moc"

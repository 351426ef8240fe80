#ifndef TORNIK_TESTS_WIZARD_WIZARDDRIVER_H
#define TORNIK_TESTS_WIZARD_WIZARDDRIVER_H

#include "support/ModalAnswers.h"
#include "wizard/CRacewayWizard.h"
#include "wizard/WizardPage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <functional>

/** Goes through an open raceway wizard as a user does. Pages are named by their classes. */
class WizardDriver
{
public:
    explicit WizardDriver(QDialog* wizard) : m_wizard(wizard) {}

    /** Opens the wizard for a new raceway, or for the one given, and lets @p user work with it. */
    static int create(CRacewayWizard& wizard, CRaceway* raceway, std::function<void(WizardDriver&)> user)
    {
        ModalAnswers answers;
        expect(answers, std::move(user));
        return wizard.createRaceway(raceway);
    }
    static int edit(CRacewayWizard& wizard, CRaceway* raceway, std::function<void(WizardDriver&)> user)
    {
        ModalAnswers answers;
        expect(answers, std::move(user));
        return wizard.editRaceway(raceway);
    }
    /** The same with a wizard that serves once. */
    static int create(CRaceway* raceway, std::function<void(WizardDriver&)> user)
    {
        CRacewayWizard wizard;
        return create(wizard, raceway, std::move(user));
    }
    static int edit(CRaceway* raceway, std::function<void(WizardDriver&)> user)
    {
        CRacewayWizard wizard;
        return edit(wizard, raceway, std::move(user));
    }
    /** Lets @p user work with the next wizard that opens; what he leaves open is cancelled. */
    static void expect(ModalAnswers& answers, std::function<void(WizardDriver&)> user)
    {
        answers.expect([user = std::move(user)](QDialog* dialog) {
            dialog->activateWindow();
            WizardDriver driver(dialog);
            user(driver);
            if (dialog->isVisible())
                dialog->reject();
        });
    }

    QDialog* dialog() const { return m_wizard; }
    WizardPage* page() const
    {
        for (WizardPage* page : m_wizard->findChildren<WizardPage*>()) {
            if (page->isVisible())
                return page;
        }
        return nullptr;
    }
    /** @return the name of the page that is shown, "CRwWizardSlotPage 1" for one of a track. */
    QString pageName() const { return page() ? page()->objectName() : QString(); }
    QString title() const { return text("title"); }
    QString explanation() const { return text("explanation"); }
    QString text(const char* label) const { return field<QLabel>(label)->text(); }

    /** @return a control of the page that is shown. */
    template <typename Widget>
    Widget* field(const QString& name) const
    {
        return page()->findChild<Widget*>(name);
    }
    QPushButton* button(const char* name) const { return m_wizard->findChild<QPushButton*>(name); }
    void click(const char* name) { QTest::mouseClick(button(name), Qt::LeftButton); }

    void next() { click("nextButton"); }
    void back() { click("backButton"); }
    void cancel() { click("cancelButton"); }
    void finish() { click("finishButton"); }

    /** Goes forward to a page. @return whether it was reached */
    bool goTo(const QString& name)
    {
        return go(name, [this] { next(); });
    }
    bool goBackTo(const QString& name)
    {
        return go(name, [this] { back(); });
    }
    /** Goes on to the end. @return the pages that were shown, the first and the last one too */
    QStringList goToTheEnd()
    {
        QStringList names{pageName()};
        while (!page()->isLastPage() && names.size() < MostPages) {
            next();
            names.append(pageName());
        }
        return names;
    }

    void type(const QString& name, const QString& text)
    {
        auto* edit = field<QLineEdit>(name);
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, text);
    }
    void choose(const QString& name, const QString& item) { field<QComboBox>(name)->setCurrentText(item); }
    void choose(const QString& name, int index) { field<QComboBox>(name)->setCurrentIndex(index); }
    void check(const QString& name, bool on = true)
    {
        if (field<QCheckBox>(name)->isChecked() != on)
            QTest::mouseClick(field<QCheckBox>(name), Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
    }
    bool isChecked(const QString& name) const { return field<QCheckBox>(name)->isChecked(); }

    /** Fills in the first page. */
    void describe(const QString& name, int tracks)
    {
        type("nameEdit", name);
        choose("tracksBox", tracks - 1);
    }
    /** Types the path of a serial line on the page of the hardware. */
    void typePort(const QString& path, const QString& box = QStringLiteral("serialPort1"))
    {
        for (auto* port : page()->findChildren<QComboBox*>(box)) {
            if (!port->isVisible())
                continue;
            port->lineEdit()->selectAll();
            QTest::keyClicks(port->lineEdit(), path);
        }
    }
    QString port(const QString& box = QStringLiteral("serialPort1")) const
    {
        for (const auto* port : page()->findChildren<QComboBox*>(box)) {
            if (port->isVisible())
                return port->currentText();
        }
        return {};
    }

    /** Presses "Ermitteln". */
    void learn() { QTest::mouseClick(field<QPushButton>("learnButton"), Qt::LeftButton); }
    QString state() const { return field<QLineEdit>("stateEdit")->text(); }
    void chooseInput(int number) { choose("inputBox", QStringLiteral("D%1").arg(number)); }
    QString input() const { return field<QComboBox>("inputBox")->currentText(); }

    /** Chooses the pin of an output by its text. */
    void chooseOutput(int portId, const QString& pin, bool inverted)
    {
        auto* output = field<QWidget>(QStringLiteral("output%1").arg(portId));
        output->findChild<QComboBox*>("pinBox")->setCurrentText(pin);
        output->findChild<QCheckBox*>("invertBox")->setChecked(inverted);
    }
    /** @return for example "Pin2 (D0)", and "Pin2 (D0) invers". */
    QString output(int portId) const
    {
        const auto* output = field<QWidget>(QStringLiteral("output%1").arg(portId));
        if (!output->isVisible())
            return {};
        const QString pin = output->findChild<QComboBox*>("pinBox")->currentText();
        return output->findChild<QCheckBox*>("invertBox")->isChecked() ? pin + " invers" : pin;
    }

private:
    static constexpr int MostPages = 70;

    template <typename Step>
    bool go(const QString& name, Step step)
    {
        for (int pages = 0; pages < MostPages && pageName() != name; ++pages)
            step();
        return pageName() == name;
    }

    QDialog* m_wizard;
};

#endif

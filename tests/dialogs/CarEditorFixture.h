#ifndef TORNIK_TESTS_DIALOGS_CAREDITORFIXTURE_H
#define TORNIK_TESTS_DIALOGS_CAREDITORFIXTURE_H

#include "dialogs/CCarEditorDlg.h"
#include "support/DialogUser.h"
#include "support/ModalAnswers.h"

#include <QDataStream>
#include <QGridLayout>
#include <QLabel>
#include <QSettings>

/** Works the open editor and the configuration that opens from it. */
class EditorUser : public DialogUser
{
public:
    EditorUser(QDialog* editor, ModalAnswers& answers) : DialogUser(editor), m_answers(answers) {}

    /** Opens the configuration and lets the user work there; a press of @p button ends it. */
    void configure(const std::function<void(const DialogUser&)>& work, const char* button) const
    {
        m_answers.expect([work, button](QDialog* window) {
            const DialogUser user(window);
            work(user);
            user.press(button);
        });
        press("configureButton");
    }

private:
    ModalAnswers& m_answers;
};

/** What the user does in the open editor. */
using Work = std::function<void(const EditorUser&)>;
using Edit = int (CCarEditorDlg::*)(CCar*);

constexpr Edit NewCar = &CCarEditorDlg::newCar;
constexpr Edit EditCar = &CCarEditorDlg::editCar;

/** Opens the editor and lets the user work; a press of @p button ends it. @return what the editor gives */
inline int open(CCarEditorDlg& editor, Edit edit, CCar& car, const Work& work,
                const char* button = "okButton")
{
    ModalAnswers answers;
    answers.expect([&answers, work, button](QDialog* window) {
        const EditorUser user(window, answers);
        work(user);
        user.press(button);
    });
    return (editor.*edit)(&car);
}

/** A car with a value of its own in every field. It comes back from the editor as it went in. */
inline CCar porsche()
{
    CCar car;
    car.setName(QStringLiteral("Der Weiße"));
    car.setOriginalManufacturer(QStringLiteral("Porsche"));
    car.setOriginalType(QStringLiteral("917k"));
    car.setStartNumber(QStringLiteral("23"));
    car.setScale(32);
    car.setSpeedClass(4);
    car.setId(11);
    car.setModelManufacturer(QStringLiteral("Carrera"));
    car.setChassis(QStringLiteral("Carrera D132"));
    car.setComment(QStringLiteral("Sieger; 1970"));
    CFuelTank tank;
    tank.setTankSizeAndReserveLevel(80, 12);
    tank.setLevel(33);
    tank.setMaxUsage(6.5, 1000);
    tank.setMinUsage(1.5, 10000);
    tank.setConsumptionEnabled(false);
    car.setFuelTank(tank);
    car.setDistanceDriven(123456);
    for (int index = 0; index < CCar::NumberOfFreeFields; ++index)
        car.setFreeField(index, QStringLiteral("Wert %1").arg(index));
    return car;
}

inline QByteArray bytesOf(const CCar& car)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_5);
    stream << car;
    return bytes;
}

inline QByteArray freeField(int index)
{
    return "freeField" + QByteArray::number(index);
}

inline QByteArray freeFieldTitle(int index)
{
    return "freeFieldTitle" + QByteArray::number(index);
}

/** Lets the editor show the free fields for which @p show says so. */
inline void showFreeFields(const std::function<bool(int)>& show)
{
    CCarEditorConfig config;
    for (int index = 0; index < CCarEditorConfig::NumberOfFields; ++index) {
        config.setShowFreeField(index, show(index));
        config.setTitleFreeField(index, QStringLiteral("Titel %1").arg(index));
    }
    config.write();
}

#endif

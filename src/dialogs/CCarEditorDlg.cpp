#include "dialogs/CCarEditorDlg.h"

#include "data/CCarList.h"
#include "dialogs/CCarEditorConfigDlg.h"
#include "dialogs/FormParts.h"
#include "shell/DialogStyle.h"
#include "wizard/CStrictIntValidator.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>

namespace {

constexpr int NarrowestText = 200;
constexpr int WidestText = 255;
constexpr int LongestText = 120;
constexpr int LongestComment = 255;
constexpr int NumberWidth = 30;
constexpr int DistanceWidth = 100;
constexpr int SpaceAboveButtons = 20;
constexpr int SpaceBetweenColumns = 6;
constexpr int SpaceBetweenRows = 2;
// All ten free fields fit on a small screen.
const char NarrowRows[] = "QLineEdit, QAbstractSpinBox, QComboBox, QPushButton#changeDistance "
                          "{ padding-top: 0px; padding-bottom: 0px; }";
constexpr int NumberOfClasses = 5;
const char DefaultScale[] = "24";
constexpr int DefaultClassIndex = 1;

QLineEdit* textEdit(const char* name, int longest, QWidget* parent)
{
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QLatin1String(name));
    edit->setMaxLength(longest);
    edit->setMinimumWidth(NarrowestText);
    edit->setMaximumWidth(WidestText);
    return edit;
}

QLineEdit* textEdit(const char* name, const QString& placeholder, QWidget* parent)
{
    auto* edit = textEdit(name, LongestText, parent);
    FormParts::setPlaceholder(edit, placeholder);
    return edit;
}

QLineEdit* numberEdit(const char* name, int digits, int largest, int width, QWidget* parent)
{
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QLatin1String(name));
    edit->setMaxLength(digits);
    edit->setValidator(new CStrictIntValidator(0, largest, edit));
    edit->setMaximumWidth(width);
    FormParts::fitLetters(edit, width, QString::number(largest).replace(QRegularExpression("."), "0"));
    return edit;
}

QDoubleSpinBox* amountBox(const char* name, QWidget* parent)
{
    auto* box = FormParts::amountBox(name, parent);
    box->setMaximumWidth(WidestText);
    return box;
}

void append(QString& text, const QString& word)
{
    if (!text.isEmpty() && !word.isEmpty())
        text += QLatin1Char(' ');
    text += word;
}

} // namespace

CCarEditorDlg::CCarEditorDlg(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("carEditorDialog"));
    setWindowTitle(tr("Fahrzeug Editor"));
    setStyleSheet(dialogStyleSheet() + QLatin1String(NarrowRows));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(createForm());
    layout->addSpacing(SpaceAboveButtons);
    layout->addLayout(createButtons());
    layout->setSizeConstraint(QLayout::SetFixedSize); // it grows and shrinks with the free fields
    connectName();
    m_configDialog = new CCarEditorConfigDlg(this);
}

// The form

QGridLayout* CCarEditorDlg::createForm()
{
    createEdits();
    createDistanceEdit();
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(SpaceBetweenColumns);
    grid->setVerticalSpacing(SpaceBetweenRows);
    const std::pair<QString, QWidget*> rows[] = {{tr("Fahrzeug Name"), m_name},
                                                 {tr("Hersteller Original"), m_originalManufacturer},
                                                 {tr("Typenbezeichnung Original"), m_originalType},
                                                 {tr("Startnummer"), m_startNumber},
                                                 {tr("Fahrzeug Maßstab 1/"), m_scale},
                                                 {tr("Fahrzeug Klasse"), m_speedClass},
                                                 {tr("Hersteller des Modell"), m_modelManufacturer},
                                                 {tr("Fahrzeug Chassis"), m_chassis},
                                                 {tr("Kommentar"), m_comment},
                                                 {tr("Tankgröße"), m_tankSize},
                                                 {tr("Reservelevel"), m_reserveLevel},
                                                 {tr("Min. Verbrauch"), m_minUsage},
                                                 {tr("Max. Verbrauch"), m_maxUsage},
                                                 {tr("gefahrene Strecke (cm)"), m_distance}};
    int row = 0;
    for (const auto& [caption, edit] : rows) {
        const bool alone = edit == m_startNumber || edit == m_scale || edit == m_distance;
        grid->addWidget(FormParts::label(caption, this), row, 0);
        grid->addWidget(edit, row, 1, 1, alone ? 1 : 2);
        ++row;
    }
    grid->addWidget(m_changeDistance, row - 1, 2);
    addFreeFields(grid, row);
    grid->setColumnMinimumWidth(2, WidestText - DistanceWidth - SpaceBetweenColumns);
    return grid;
}

void CCarEditorDlg::createEdits()
{
    m_name = textEdit("carName", LongestText, this);
    m_originalManufacturer = textEdit("originalManufacturer", tr("z.B. Porsche"), this);
    m_originalType = textEdit("originalType", tr("z.B. 917k"), this);
    m_startNumber = numberEdit("startNumber", 3, 999, NumberWidth, this);
    m_startNumber->setFixedWidth(NumberWidth);
    m_scale = numberEdit("scale", 3, 100, NumberWidth, this);
    m_scale->setText(QLatin1String(DefaultScale));
    m_speedClass = new QComboBox(this);
    m_speedClass->setObjectName(QStringLiteral("speedClass"));
    const QString words[NumberOfClasses] = {tr("sehr schnell"), tr("schnell"), tr("normal"), tr("langsam"),
                                            tr("sehr langsam")};
    for (int index = 0; index < NumberOfClasses; ++index)
        m_speedClass->addItem(QStringLiteral("(%1) - %2").arg(index + 1).arg(words[index]));
    m_speedClass->setCurrentIndex(DefaultClassIndex);
    m_speedClass->setMaximumWidth(WidestText);
    m_modelManufacturer = textEdit("modelManufacturer", tr("z.B. Carrera"), this);
    m_chassis = textEdit("chassis", tr("z.B. Carrera D124"), this);
    m_comment = textEdit("comment", LongestComment, this);
    m_tankSize = amountBox("tankSize", this);
    m_reserveLevel = amountBox("reserveLevel", this);
    m_minUsage = amountBox("minUsage", this);
    m_maxUsage = amountBox("maxUsage", this);
}

/** The driven distance can be corrected on purpose only. */
void CCarEditorDlg::createDistanceEdit()
{
    m_distance = numberEdit("distanceDriven", 10, 999999999, DistanceWidth, this);
    m_distance->setFixedWidth(DistanceWidth);
    m_distance->setEnabled(false);
    m_changeDistance = FormParts::button<QPushButton>("changeDistance", tr("Ändern"), this);
    m_changeDistance->setCheckable(true);
    connect(m_changeDistance, &QPushButton::toggled, m_distance, &QLineEdit::setEnabled);
}

void CCarEditorDlg::addFreeFields(QGridLayout* grid, int firstRow)
{
    for (int index = 0; index < CCarEditorConfig::NumberOfFields; ++index) {
        FreeField& field = m_freeFields[std::size_t(index)];
        field.title = FormParts::label(QString(), this);
        field.title->setObjectName(QStringLiteral("freeFieldTitle%1").arg(index));
        field.title->setTextFormat(Qt::PlainText);
        field.title->setMaximumWidth(WidestText);
        field.text = textEdit(qPrintable(QStringLiteral("freeField%1").arg(index)), LongestText, this);
        grid->addWidget(field.title, firstRow + index, 0);
        grid->addWidget(field.text, firstRow + index, 1, 1, 2);
    }
}

QHBoxLayout* CCarEditorDlg::createButtons()
{
    using FormParts::button;
    auto* configure = button<QPushButton>("configureButton", tr("Editor &konfigurieren"), this);
    auto* ok = button<QPushButton>("okButton", tr("&Ok"), this);
    auto* cancel = button<QPushButton>("cancelButton", tr("&Abbrechen"), this);
    ok->setDefault(true);
    connect(configure, &QPushButton::clicked, this, &CCarEditorDlg::showConfigDialog);
    connect(ok, &QPushButton::clicked, this, &CCarEditorDlg::accept);
    connect(cancel, &QPushButton::clicked, this, &CCarEditorDlg::close);

    auto* row = new QHBoxLayout;
    row->addWidget(configure);
    row->addStretch();
    row->addWidget(ok);
    row->addWidget(cancel);
    return row;
}

// The name

void CCarEditorDlg::connectName()
{
    for (QLineEdit* source : {m_originalManufacturer, m_originalType, m_startNumber})
        connect(source, &QLineEdit::textEdited, this, &CCarEditorDlg::compileCarName);
    connect(m_name, &QLineEdit::editingFinished, this, &CCarEditorDlg::compileCarName);
    connect(m_name, &QLineEdit::textEdited, this, &CCarEditorDlg::checkIfNameShallBeCompiledAutomatically);
}

void CCarEditorDlg::compileCarName()
{
    if (!m_compileNameAutomatically)
        return;
    QString name;
    append(name, m_originalManufacturer->text());
    append(name, m_originalType->text());
    if (!m_startNumber->text().isEmpty())
        append(name, QLatin1Char('#') + m_startNumber->text());
    m_name->setText(name);
}

void CCarEditorDlg::checkIfNameShallBeCompiledAutomatically()
{
    m_compileNameAutomatically = m_name->text().isEmpty();
}

// Between the car and the form

int CCarEditorDlg::newCar(CCar* car)
{
    if (!car)
        return Rejected;
    CCar empty;
    empty.setOriginalManufacturer(QString());
    empty.setOriginalType(QString());
    empty.setModelManufacturer(QString());
    empty.setChassis(QString());
    empty.setSpeedClass(DefaultClassIndex + 1);
    empty.setFuelTank(car->fuelTank());
    empty.setDistanceDriven(car->distanceDriven());
    showCar(empty);
    return run(*car);
}

int CCarEditorDlg::editCar(CCar* car)
{
    if (!car)
        return Rejected;
    showCar(*car);
    return run(*car);
}

void CCarEditorDlg::showCar(const CCar& car)
{
    m_name->setText(car.name());
    // Required: with a name the flag stays as the use before has left it.
    if (car.name().isEmpty())
        m_compileNameAutomatically = true;
    m_originalManufacturer->setText(car.originalManufacturer());
    m_originalType->setText(car.originalType());
    m_startNumber->setText(car.startNumber());
    m_scale->setText(QString::number(car.scale()));
    // Required: a car without a class leaves the box where it stands, and gets that class.
    if (car.speedClass() >= 1 && car.speedClass() <= NumberOfClasses)
        m_speedClass->setCurrentIndex(car.speedClass() - 1);
    m_modelManufacturer->setText(car.modelManufacturer());
    m_chassis->setText(car.chassis());
    m_comment->setText(car.comment());
    showTank(car.fuelTank());
    for (int index = 0; index < CCarEditorConfig::NumberOfFields; ++index)
        m_freeFields[std::size_t(index)].text->setText(car.freeField(index));
    showDistance(car.distanceDriven());
}

void CCarEditorDlg::showTank(const CFuelTank& tank)
{
    m_tankSize->setValue(tank.tankSize());
    m_reserveLevel->setValue(tank.reserveLevel());
    m_minUsage->setValue(tank.minUsageAmount());
    m_maxUsage->setValue(tank.maxUsageAmount());
}

void CCarEditorDlg::showDistance(int centimetres)
{
    m_distance->setText(QString::number(centimetres));
    m_distance->setEnabled(false);
    m_changeDistance->setChecked(false);
}

int CCarEditorDlg::run(CCar& car)
{
    applyConfig();
    m_name->selectAll();
    m_name->setFocus();
    const int result = exec();
    if (result == Accepted)
        storeCar(car);
    return result;
}

/** All that the form holds, also the fields that the user doesn't see. */
void CCarEditorDlg::storeCar(CCar& car) const
{
    car.setName(m_name->text());
    car.setOriginalManufacturer(m_originalManufacturer->text());
    car.setOriginalType(m_originalType->text());
    car.setStartNumber(m_startNumber->text());
    car.setScale(m_scale->text().toInt());
    car.setSpeedClass(m_speedClass->currentIndex() + 1);
    car.setModelManufacturer(m_modelManufacturer->text());
    car.setChassis(m_chassis->text());
    car.setComment(m_comment->text());
    car.setFuelTank(storedTank(car.fuelTank()));
    car.setDistanceDriven(m_distance->text().toInt());
    for (int index = 0; index < CCarEditorConfig::NumberOfFields; ++index)
        car.setFreeField(index, m_freeFields[std::size_t(index)].text->text());
}

CFuelTank CCarEditorDlg::storedTank(CFuelTank tank) const
{
    tank.setTankSizeAndReserveLevel(m_tankSize->value(), m_reserveLevel->value());
    tank.setMaxUsage(m_maxUsage->value(), CCarList::MaxUsageTime);
    tank.setMinUsage(m_minUsage->value(), CCarList::MinUsageTime);
    return tank;
}

// The free fields

void CCarEditorDlg::applyConfig()
{
    m_config.read();
    for (int index = 0; index < CCarEditorConfig::NumberOfFields; ++index) {
        const FreeField& field = m_freeFields[std::size_t(index)];
        field.title->setText(m_config.titleFreeField(index));
        field.title->setToolTip(m_config.titleFreeField(index)); // one that is too wide is cut
        field.title->setVisible(m_config.showFreeField(index));
        field.text->setVisible(m_config.showFreeField(index));
    }
}

void CCarEditorDlg::showConfigDialog()
{
    m_config.read();
    if (m_configDialog->editConfig(&m_config) != Accepted)
        return;
    m_config.write();
    applyConfig();
}

#include "shell/DialogStyle.h"

#include <QString>

namespace {

const char Texts[] =
    "QWidget { color: #a0a0a0; selection-background-color: #646464; selection-color: white; }"
    "QWidget:disabled { color: #505050; }";

const char Frames[] =
    "QGroupBox { border: 1px solid #646464; margin-top: 1.2ex; padding-top: 1ex; }"
    "QGroupBox::title { subcontrol-origin: margin; left: 8px; padding: 0px 3px; }"
    "QTabWidget::pane { border: 1px solid #646464; }"
    "QTabBar::tab { border: 1px solid #646464; padding: 5px 12px; }"
    "QTabBar::tab:selected { color: white; border-bottom-color: black; }"
    "QPushButton:disabled { border-color: #323232; }"
    "QPushButton:default, QPushButton:focus, QPushButton:checked { color: white; border-color: white; }"
    "QPushButton:checked { border-style: inset; }";

const char Fields[] =
    "QLineEdit, QAbstractSpinBox, QComboBox, QTreeView { border: 1px solid darkgray; padding: 2px; }"
    "QLineEdit:disabled, QAbstractSpinBox:disabled, QComboBox:disabled { border-color: #323232; }"
    "QLineEdit:focus, QAbstractSpinBox:focus, QComboBox:focus { border-color: white; color: white; }"
    "QLineEdit[showsPlaceholder=\"true\"] { color: #646464; }"
    "QLineEdit[showsPlaceholder=\"true\"]:disabled { color: #505050; }"
    "QAbstractSpinBox { padding-right: 18px; }"
    "QAbstractSpinBox::up-button { subcontrol-position: top right; width: 16px; border: none; }"
    "QAbstractSpinBox::down-button { subcontrol-position: bottom right; width: 16px; border: none; }"
    "QComboBox::drop-down { width: 18px; border: none; }";

// A triangle is what is left of a border around nothing.
const char Arrows[] =
    "QAbstractSpinBox::up-arrow { width: 0px; height: 0px; border-left: 4px solid black; "
    "border-right: 4px solid black; border-bottom: 5px solid darkgray; }"
    "QAbstractSpinBox::down-arrow, QComboBox::down-arrow { width: 0px; height: 0px; "
    "border-left: 4px solid black; border-right: 4px solid black; border-top: 5px solid darkgray; }"
    "QAbstractSpinBox::up-arrow:disabled, QAbstractSpinBox::up-arrow:off { border-bottom-color: #323232; }"
    "QAbstractSpinBox::down-arrow:disabled, QAbstractSpinBox::down-arrow:off, QComboBox::down-arrow:disabled "
    "{ border-top-color: #323232; }";

const char Indicators[] =
    "QCheckBox::indicator, QRadioButton::indicator { width: 8px; height: 8px; padding: 2px; "
    "border: 1px solid darkgray; background-clip: content; background-origin: content; }"
    "QRadioButton::indicator { border-radius: 7px; }"
    "QCheckBox::indicator:checked { background-color: #e0e0e0; }"
    "QCheckBox::indicator:checked:disabled { background-color: #505050; }"
    "QRadioButton::indicator:checked { background: qradialgradient(cx: 0.5, cy: 0.5, radius: 0.5, "
    "fx: 0.5, fy: 0.5, stop: 0 #e0e0e0, stop: 0.8 #e0e0e0, stop: 1 black); }"
    "QRadioButton::indicator:checked:disabled { background: qradialgradient(cx: 0.5, cy: 0.5, "
    "radius: 0.5, fx: 0.5, fy: 0.5, stop: 0 #505050, stop: 0.8 #505050, stop: 1 black); }"
    "QCheckBox::indicator:disabled, QRadioButton::indicator:disabled { border-color: #505050; }"
    "QCheckBox:focus, QRadioButton:focus { color: white; }";

const char Sliders[] =
    "QSlider::groove:horizontal { height: 2px; background: #646464; }"
    "QSlider::handle:horizontal { width: 8px; margin: -6px 0px; background: darkgray; }"
    "QSlider::handle:horizontal:focus { background: white; }"
    "QSlider::groove:horizontal:disabled, QSlider::handle:horizontal:disabled { background: #323232; }";

} // namespace

QString dialogStyleSheet()
{
    QString sheet;
    for (const char* part : {Texts, Frames, Fields, Arrows, Indicators, Sliders})
        sheet += QLatin1String(part);
    return sheet;
}

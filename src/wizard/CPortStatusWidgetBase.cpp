#include "wizard/CPortStatusWidgetBase.h"

CPortStatusWidgetBase::CPortStatusWidgetBase(QWidget* parent) : QWidget(parent) {}

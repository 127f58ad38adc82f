#pragma once
// Binds a TPanel's caption to a label: the status text and the date field.

#include "controls/Panel.h"

class QLabel;

void BindPanel(TPanel& panel, QLabel& label);

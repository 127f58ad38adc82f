#include "gui/ComboBoxBinding.h"

#include <QComboBox>
#include <QLineEdit>

#include "gui/ControlBinding.h"
#include "gui/QtText.h"

TComboBoxBinding::TComboBoxBinding(TComboBox& combo, QComboBox& widget)
    : combo(combo), widget(widget) {
    widget.setEditable(combo.Style == TComboStyle::csDropDown);
    widget.setInsertPolicy(QComboBox::NoInsert);
    ShowModel();
    subscription = combo.Subscribe([this](TControl&, TChange) { ShowModel(); });
    connect(&widget, &QComboBox::activated, this, [this](int index) {
        if (!showing) Guarded([&] { this->combo.UserPick(index); });
    });
    if (widget.isEditable())
        connect(widget.lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
            Guarded([&] { this->combo.UserType(FromQString(text)); });
        });
    BindCommonProperties(combo, widget);
}

TComboBoxBinding::~TComboBoxBinding() {
    combo.Unsubscribe(subscription);
}

void TComboBoxBinding::ShowModel() {
    showing = true;
    const TStringList& items = combo.Items();
    if (widget.count() != items.Count() ||
        (items.Count() > 0 && FromQString(widget.itemText(0)) != items[0])) {
        widget.clear();
        for (const AnsiString& item : items)
            widget.addItem(ToQString(item));
    }
    widget.setCurrentIndex(combo.ItemIndex());
    if (widget.isEditable() && FromQString(widget.currentText()) != combo.Text())
        widget.setEditText(ToQString(combo.Text()));
    showing = false;
}

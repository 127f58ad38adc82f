#include "gui/RadioGroupBinding.h"

#include <QGroupBox>
#include <QRadioButton>

#include "gui/QtText.h"

TRadioGroupBinding::TRadioGroupBinding(TRadioGroup& group, QGroupBox& widget)
    : TModelBinding(group, widget), group(group), box(widget) {
    widget.setLayout(&grid);
    connect(&buttons, &QButtonGroup::idClicked, this, [this](int index) {
        FromPerson([this, index] { this->group.UserPick(index); });
        ShowModel();
    });
    Start();
}

TRadioGroupBinding::~TRadioGroupBinding() {
    for (auto& radio : radios)
        buttons.removeButton(radio.get());
}

void TRadioGroupBinding::RebuildButtons() {
    for (auto& radio : radios)
        buttons.removeButton(radio.get());
    radios.clear();
    const int columns = group.Columns > 0 ? group.Columns : 1;
    for (int i = 0; i < group.Items().Count(); ++i) {
        auto radio = std::make_unique<QRadioButton>(ToQString(group.Items()[i]), &box);
        grid.addWidget(radio.get(), i / columns, i % columns);
        buttons.addButton(radio.get(), i);
        radios.push_back(std::move(radio));
    }
}

void TRadioGroupBinding::ShowModel() {
    box.setTitle(ToQString(group.Caption()));
    if (static_cast<int>(radios.size()) != group.Items().Count()) RebuildButtons();
    for (int i = 0; i < static_cast<int>(radios.size()); ++i)
        radios[static_cast<std::size_t>(i)]->setText(ToQString(group.Items()[i]));
    // No button is checked for index -1, which an exclusive group cannot show.
    buttons.setExclusive(false);
    for (int i = 0; i < static_cast<int>(radios.size()); ++i)
        radios[static_cast<std::size_t>(i)]->setChecked(i == group.ItemIndex());
    buttons.setExclusive(true);
}

#include "desktop/windows/binder.h"

#include <QAction>
#include <QPointer>

#include "desktop/ports/text.h"
#include "desktop/windows/calm_wheel.h"
#include "desktop/windows/text_box.h"

namespace tarnvex::desktop {
namespace {

void showItems(QComboBox* widget, const platform::ComboBox& model) {
  QStringList items;
  for (const auto& item : model.items()) {
    items << toScreen(item);
  }
  QStringList shown;
  for (int i = 0; i < widget->count(); ++i) {
    shown << widget->itemText(i);
  }
  if (items != shown) {
    widget->clear();
    widget->addItems(items);
  }
}

/// Updates those of the widget's lines that differ from the model's.
void showLines(QListWidget* widget, const platform::ListBox& model) {
  while (widget->count() > model.count()) {
    delete widget->takeItem(widget->count() - 1);
  }
  for (int i = 0; i < model.count(); ++i) {
    const QString text = lineToScreen(model.item(i));
    if (i >= widget->count()) {
      widget->addItem(text);
    } else if (widget->item(i)->text() != text) {
      widget->item(i)->setText(text);
    }
  }
}

/// The selected row, or -1.
int selectedRow(const QListWidget* widget) {
  const auto selected = widget->selectedItems();
  return selected.isEmpty() ? -1 : widget->row(selected.first());
}

/// The model's selection becomes the lines of the widget that `isChosen` names.
void takeLines(platform::EventGate& gate, const QListWidget* widget, platform::ListBox& model,
               bool (*isChosen)(const QListWidgetItem&)) {
  std::vector<bool> chosen(static_cast<std::size_t>(widget->count()));
  for (int i = 0; i < widget->count(); ++i) {
    chosen[static_cast<std::size_t>(i)] = isChosen(*widget->item(i));
  }
  gate.enter([&model, row = widget->currentRow(), chosen = std::move(chosen)] {
    model.setListIndex(row);
    model.userSelect(chosen);
  });
}

/// Selects all lines at once, since line by line the time would grow with the square of their
/// number.
void showSelection(QListWidget* widget, const platform::ListBox& model) {
  QItemSelection selection;
  for (int first = 0; first < model.count(); ++first) {
    int last = first;
    while (model.selected(last)) {
      ++last;
    }
    if (last > first) {
      selection.select(widget->model()->index(first, 0), widget->model()->index(last - 1, 0));
      first = last;
    }
  }
  widget->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

}  // namespace

void showIf(QWidget* widget, bool visible) {
  if (!visible || widget->parentWidget() != nullptr) {
    widget->setVisible(visible);
  }
}

void keepRoom(QWidget* widget) {
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
}

void focusIfShown(QWidget* widget) {
  if (widget->isVisible()) {
    widget->setFocus();
  }
}

void Binder::bindControl(QWidget* widget, platform::Control& model) {
  widget->setObjectName(QString::fromStdString(model.name()));
  if (model.passesKeysOn()) {
    widget->installEventFilter(forwarder_);
  }
  keep(model.focusRequested.connect([widget] { focusIfShown(widget); }));
  follow(model.changed, [widget, &model] {
    widget->setEnabled(model.enabled());
    showIf(widget, model.visible());
  });
}

void Binder::enter(Urgency urgency, platform::EventGate::Handler handler) {
  switch (urgency) {
    case Urgency::Normal:
      return gate_.enter(std::move(handler));
    case Urgency::Closing:
      return gate_.enterClosing(std::move(handler));
    case Urgency::Leaving:
      return gate_.enterLeaving(std::move(handler));
  }
}

void Binder::bind(QPushButton* widget, platform::Button& model, Urgency urgency) {
  bindControl(widget, model);
  widget->setText(toScreen(model.caption()));
  const Urgency used = isDialogs() ? Urgency::Closing : urgency;
  QObject::connect(widget, &QPushButton::clicked, widget,
                   [this, used, &model] { enter(used, [&model] { model.userClick(); }); });
}

template <class Act, class Show>
void Binder::act(Urgency urgency, QWidget* widget, Act act, Show show) {
  enter(urgency, [guard = QPointer<QWidget>(widget), act, show] {
    act();
    if (guard) {
      show();
    }
  });
}

template <class Widget, class Model>
void Binder::bindSwitch(Widget* widget, Model& model, Urgency urgency) {
  bindControl(widget, model);
  widget->setText(toScreen(model.caption()));
  const auto show = [widget, &model] { widget->setChecked(model.value()); };
  follow(model.changed, show);
  QObject::connect(widget, &Widget::clicked, widget, [this, urgency, widget, &model, show] {
    act(
        urgency, widget, [&model] { model.userClick(); }, show);
  });
}

void Binder::bind(QCheckBox* widget, platform::CheckBox& model) {
  bindSwitch(widget, model, Urgency::Normal);
}

void Binder::bind(QRadioButton* widget, platform::OptionButton& model, Urgency urgency) {
  // The model manages the group, in which it is possible that nothing is chosen.
  widget->setAutoExclusive(false);
  bindSwitch(widget, model, urgency);
}

void Binder::bind(QComboBox* widget, platform::ComboBox& model) {
  bindControl(widget, model);
  const auto show = [widget, &model] {
    showItems(widget, model);
    widget->setCurrentIndex(model.listIndex());
  };
  follow(model.changed, show);
  calmWheel(widget);
  QObject::connect(widget, &QComboBox::activated, widget, [this, widget, &model, show](int index) {
    act(
        Urgency::Normal, widget, [&model, index] { model.userChoose(index); }, show);
  });
}

void Binder::bind(QListWidget* widget, platform::ListBox& model) {
  bindControl(widget, model);
  follow(model.changed, [widget, &model] {
    const QSignalBlocker silent(widget);
    showLines(widget, model);
    if (selectedRow(widget) != model.listIndex()) {
      widget->setCurrentRow(model.listIndex());
    }
  });
  bindCurrentLine(widget, model);
  bindClicks(widget, model);
}

/// Also for an arrow key or the right button: the list's menu is about the highlighted line.
void Binder::bindCurrentLine(QListWidget* widget, platform::ListBox& model) {
  QObject::connect(widget, &QListWidget::itemSelectionChanged, widget, [this, widget, &model] {
    if (const int row = selectedRow(widget); row >= 0) {
      gate_.enter([&model, row] { model.setListIndex(row); });
    }
  });
  widget->setContextMenuPolicy(Qt::CustomContextMenu);
  QObject::connect(widget, &QListWidget::customContextMenuRequested, widget,
                   [this, &model] { gate_.enter([&model] { model.userRightPress(); }); });
}

/// Space is the keyboard's click.
void Binder::bindClicks(QListWidget* widget, platform::ListBox& model) {
  const auto click = [this, &model](int row) {
    gate_.enter([&model, row] { model.userClick(row); });
  };
  QObject::connect(widget, &QListWidget::itemClicked, widget,
                   [click, widget](QListWidgetItem* item) { click(widget->row(item)); });
  auto* press = new QAction(widget);
  press->setShortcut(Qt::Key_Space);
  press->setShortcutContext(Qt::WidgetShortcut);
  widget->addAction(press);
  QObject::connect(press, &QAction::triggered, widget,
                   [click, widget] { click(selectedRow(widget)); });
}

void Binder::bindSelection(QListWidget* widget, platform::ListBox& model) {
  bindControl(widget, model);
  widget->setSelectionMode(QAbstractItemView::ExtendedSelection);
  follow(model.changed, [widget, &model] {
    const QSignalBlocker silent(widget);
    showLines(widget, model);
    showSelection(widget, model);
    if (model.listIndex() >= 0) {
      widget->setCurrentRow(model.listIndex(), QItemSelectionModel::NoUpdate);
    }
  });
  QObject::connect(widget, &QListWidget::itemSelectionChanged, widget, [this, widget, &model] {
    takeLines(gate_, widget, model, [](const QListWidgetItem& line) { return line.isSelected(); });
  });
}

void Binder::bindTicks(QListWidget* widget, platform::ListBox& model) {
  bindControl(widget, model);
  follow(model.changed, [widget, &model] {
    const QSignalBlocker silent(widget);
    showLines(widget, model);
    for (int i = 0; i < model.count(); ++i) {
      widget->item(i)->setCheckState(model.selected(i) ? Qt::Checked : Qt::Unchecked);
    }
    widget->setCurrentRow(model.listIndex());
  });
  QObject::connect(widget, &QListWidget::itemChanged, widget, [this, widget, &model] {
    takeLines(gate_, widget, model,
              [](const QListWidgetItem& line) { return line.checkState() == Qt::Checked; });
  });
}

void Binder::bind(QLineEdit* widget, platform::TextBox& model) {
  bindControl(widget, model);
  follow(model.changed, [widget, &model] {
    const QString text = toScreen(model.text());
    if (widget->text() != text) {
      widget->setText(text);
    }
  });
  new TextBoxEditing(widget, model, gate_, isDialogs());
}

}  // namespace tarnvex::desktop

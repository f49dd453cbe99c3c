#include "desktop/windows/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QShortcut>
#include <QToolButton>
#include <algorithm>

namespace tarnvex::desktop {

FindBar::FindBar(QTableView& table, std::vector<int> columns, QStringList emptyTexts, QWidget* page)
    : QWidget(page),
      table_(table),
      columns_(std::move(columns)),
      emptyTexts_(std::move(emptyTexts)),
      text_(new QLineEdit),
      count_(new QLabel),
      hideEmpty_(new QCheckBox(tr("Hide empty channels"))) {
  setObjectName(QStringLiteral("findBar"));
  text_->setObjectName(QStringLiteral("findText"));
  text_->setPlaceholderText(tr("Find a tag, frequency, ID or tone"));
  text_->setAccessibleName(tr("Find"));
  text_->setClearButtonEnabled(true);
  text_->setMaximumWidth(text_->fontMetrics().averageCharWidth() * 40);
  count_->setObjectName(QStringLiteral("findCount"));
  count_->setMinimumWidth(count_->fontMetrics().horizontalAdvance(QStringLiteral("0000 of 0000")));
  hideEmpty_->setObjectName(QStringLiteral("hideEmpty"));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->addWidget(text_, 1);
  const auto addButton = [&](Qt::ArrowType arrow, const QString& name, Way way) {
    auto* button = new QToolButton;
    button->setArrowType(arrow);
    button->setToolTip(name);
    button->setAccessibleName(name);
    connect(button, &QToolButton::clicked, this, [this, way] { find(way); });
    row->addWidget(button);
  };
  addButton(Qt::UpArrow, tr("Find the previous one (Shift+F3)"), Way::Back);
  addButton(Qt::DownArrow, tr("Find the next one (F3)"), Way::Next);
  row->addWidget(count_);
  row->addStretch();
  row->addWidget(hideEmpty_);
  connect(text_, &QLineEdit::textChanged, this, [this] { find(Way::Here); });
  connect(text_, &QLineEdit::returnPressed, this, [this] { find(Way::Next); });
  connect(hideEmpty_, &QCheckBox::toggled, this, [this] { hideRows(); });
  connect(table_.model(), &QAbstractItemModel::dataChanged, this,
          [this](const QModelIndex& cell) { hideRow(cell.row()); });
  connect(table_.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& now, const QModelIndex& before) {
            hideRow(now.row());
            hideRow(before.row());
          });
  addKeys(page);
  hide();
}

void FindBar::addKeys(QWidget* page) {
  const auto add = [&](const QKeySequence& key, auto act) {
    connect(new QShortcut(key, page), &QShortcut::activated, this, act);
  };
  add(QKeySequence::Find, [this] { open(); });
  add(Qt::Key_F3, [this] { find(Way::Next); });
  add(Qt::SHIFT | Qt::Key_F3, [this] { find(Way::Back); });
}

void FindBar::open() {
  show();
  text_->selectAll();
  text_->setFocus(Qt::ShortcutFocusReason);
}

void FindBar::close() {
  hide();
  table_.setFocus();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
  } else {
    QWidget::keyPressEvent(event);
  }
}

bool FindBar::matches(int row) const {
  return std::ranges::any_of(columns_, [&](int column) {
    const auto text = table_.model()->index(row, column).data().toString();
    return text.contains(text_->text().trimmed(), Qt::CaseInsensitive);
  });
}

bool FindBar::isEmpty(int row) const {
  return emptyTexts_.contains(table_.model()->index(row, columns_.front()).data().toString());
}

std::vector<int> FindBar::foundRows() const {
  std::vector<int> rows;
  for (int row = 0; row < table_.model()->rowCount(); ++row) {
    if (!table_.isRowHidden(row) && matches(row)) {
      rows.push_back(row);
    }
  }
  return rows;
}

void FindBar::find(Way way) {
  const auto rows = text_->text().trimmed().isEmpty() ? std::vector<int>{} : foundRows();
  if (rows.empty()) {
    count_->setText(text_->text().trimmed().isEmpty() ? QString() : tr("Not found"));
    return;
  }
  const int from = table_.currentIndex().row();
  auto at = way == Way::Next ? std::ranges::upper_bound(rows, from)
                             : std::ranges::lower_bound(rows, from);
  if (way == Way::Back) {
    at = at == rows.begin() ? rows.end() - 1 : at - 1;
  } else if (at == rows.end()) {
    at = rows.begin();
  }
  const int column = std::max(table_.currentIndex().column(), 1);
  table_.setCurrentIndex(table_.model()->index(*at, column));
  count_->setText(tr("%1 of %2").arg(at - rows.begin() + 1).arg(rows.size()));
}

void FindBar::hideRow(int row) {
  if (row >= 0) {
    const bool wanted =
        hideEmpty_->isChecked() && row != table_.currentIndex().row() && isEmpty(row);
    if (wanted != table_.isRowHidden(row)) {
      table_.setRowHidden(row, wanted);
    }
  }
}

void FindBar::hideRows() {
  for (int row = 0; row < table_.model()->rowCount(); ++row) {
    hideRow(row);
  }
  table_.scrollTo(table_.currentIndex());
}

}  // namespace tarnvex::desktop

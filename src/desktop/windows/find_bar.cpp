#include "desktop/windows/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QShortcut>
#include <algorithm>

#include "desktop/windows/parts.h"
#include "desktop/windows/plain_text.h"

namespace tarnvex::desktop {

FindBar::FindBar(QTableView& table, std::vector<int> columns, QStringList emptyTexts, QWidget* page)
    : QWidget(page),
      table_(table),
      columns_(std::move(columns)),
      emptyTexts_(std::move(emptyTexts)),
      text_(makeSearchLine("findText", tr("Find a tag, frequency, ID or tone"), tr("Find"))),
      count_(named(makeLabel(), "findCount")),
      hideEmpty_(named(new QCheckBox(tr("Hide empty rows")), "hideEmpty")) {
  setObjectName(QStringLiteral("findBar"));
  text_->setMaximumWidth(text_->fontMetrics().averageCharWidth() * 40);
  count_->setMinimumWidth(count_->fontMetrics().horizontalAdvance(QStringLiteral("0000 of 0000")));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->addWidget(text_, 1);
  row->addWidget(makeArrow(Qt::UpArrow, tr("Find the previous one (Shift+F3)"), Way::Back));
  row->addWidget(makeArrow(Qt::DownArrow, tr("Find the next one (F3)"), Way::Next));
  row->addWidget(count_);
  row->addStretch();
  row->addWidget(hideEmpty_);
  connect(text_, &QLineEdit::textChanged, this, [this] { find(Way::Here); });
  connect(text_, &QLineEdit::returnPressed, this, [this] { find(Way::Next); });
  connect(hideEmpty_, &QCheckBox::toggled, this, [this] { hideRows(); });
  followTable();
  addKeys(page);
  hide();
}

QToolButton* FindBar::makeArrow(Qt::ArrowType arrow, const QString& spoken, Way way) {
  auto* button = new QToolButton;
  button->setArrowType(arrow);
  button->setToolTip(plainTip(spoken));
  button->setAccessibleName(spoken);
  connect(button, &QToolButton::clicked, this, [this, way] { find(way); });
  return button;
}

void FindBar::followTable() {
  connect(table_.model(), &QAbstractItemModel::dataChanged, this,
          [this](const QModelIndex& cell) { hideRow(cell.row()); });
  connect(table_.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& now, const QModelIndex& before) {
            hideRow(before.row());
            showRow(now);
          });
}

void FindBar::addKeys(QWidget* page) {
  const auto add = [&](const QKeySequence& key, auto act) {
    connect(new QShortcut(key, page), &QShortcut::activated, this, act);
  };
  add(QKeySequence::Find, [this] { open(); });
  const auto findOrOpen = [this](Way way) { wanted().isEmpty() ? open() : find(way); };
  add(Qt::Key_F3, [findOrOpen] { findOrOpen(Way::Next); });
  add(Qt::SHIFT | Qt::Key_F3, [findOrOpen] { findOrOpen(Way::Back); });
}

void FindBar::open() {
  show();
  text_->selectAll();
  text_->setFocus(Qt::ShortcutFocusReason);
}

void FindBar::close() {
  // No row stays hidden while nothing shows why.
  hideEmpty_->setChecked(false);
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

QString FindBar::wanted() const {
  return text_->text().trimmed();
}

/// A frequency may be typed with the comma of many languages.
QStringList FindBar::spellings() const {
  return {wanted(), wanted().replace(u',', u'.')};
}

bool FindBar::matches(int row, const QStringList& spellings) const {
  return std::ranges::any_of(columns_, [&](int column) {
    const auto text = table_.model()->index(row, column).data().toString();
    return std::ranges::any_of(spellings, [&](const QString& spelling) {
      return text.contains(spelling, Qt::CaseInsensitive);
    });
  });
}

bool FindBar::isEmpty(int row) const {
  return emptyTexts_.contains(table_.model()->index(row, columns_.front()).data().toString());
}

std::vector<int> FindBar::foundRows() const {
  const QStringList spellings = this->spellings();
  std::vector<int> rows;
  for (int row = 0; row < table_.model()->rowCount(); ++row) {
    if (!table_.isRowHidden(row) && matches(row, spellings)) {
      rows.push_back(row);
    }
  }
  return rows;
}

void FindBar::find(Way way) {
  const auto rows = wanted().isEmpty() ? std::vector<int>{} : foundRows();
  if (rows.empty()) {
    count_->setText(wanted().isEmpty() ? QString() : tr("Not found"));
    return;
  }
  const std::size_t at = placeAfter(rows, table_.currentIndex().row(), way);
  const int column = std::max(table_.currentIndex().column(), 1);
  table_.setCurrentIndex(table_.model()->index(rows[at], column));
  count_->setText(tr("%1 of %2").arg(at + 1).arg(rows.size()));
}

/// Which of the found rows comes next from a row, round the ends of the table.
std::size_t FindBar::placeAfter(const std::vector<int>& rows, int from, Way way) {
  const auto here = way == Way::Next ? std::ranges::upper_bound(rows, from)
                                     : std::ranges::lower_bound(rows, from);
  const auto place = static_cast<std::size_t>(here - rows.begin());
  return (place + (way == Way::Back ? rows.size() - 1 : 0)) % rows.size();
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

/// The view has passed over the row if it was hidden, and doesn't scroll to it by itself.
void FindBar::showRow(const QModelIndex& current) {
  if (current.isValid() && table_.isRowHidden(current.row())) {
    hideRow(current.row());
    table_.doItemsLayout();
    table_.scrollTo(current);
  }
}

void FindBar::hideRows() {
  for (int row = 0; row < table_.model()->rowCount(); ++row) {
    hideRow(row);
  }
  table_.scrollTo(table_.currentIndex());
}

}  // namespace tarnvex::desktop

#include "desktop/windows/plan_table.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

#include "desktop/ports/text.h"
#include "desktop/windows/binder.h"

namespace tarnvex::desktop {
namespace {

/// Width of an average digit, in twips, in the face that the tables' widths are given for.
constexpr double kTwipsPerDigit = 90;

}  // namespace

PlanModel::PlanModel(platform::Table& table, QObject* parent)
    : QAbstractTableModel(parent), table_(table) {
  changed_ = table_.cellChanged.connect([this](int row, int column) { cellChanged(row, column); });
}

int PlanModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : table_.rows() - 1;
}

int PlanModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : table_.cols();
}

QVariant PlanModel::data(const QModelIndex& index, int role) const {
  switch (role) {
    case Qt::DisplayRole:
      return lineToScreen(table_.textMatrix(index.row() + 1, index.column()));
    case Qt::TextAlignmentRole:
      // Flags stand under the middle of their short headings.
      return QVariant(table_.colWidth(index.column()) == 500 && index.column() > 0
                          ? Qt::AlignCenter
                          : Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::BackgroundRole:
      return index.column() == 0 ? QVariant(QApplication::palette().brush(QPalette::Button))
                                 : QVariant();
    case Qt::ForegroundRole:
      return index.column() == 0 ? QVariant(QApplication::palette().brush(QPalette::ButtonText))
                                 : QVariant();
    default:
      return {};
  }
}

QVariant PlanModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
    return toScreen(table_.textMatrix(0, section));
  }
  return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags PlanModel::flags(const QModelIndex& index) const {
  return index.column() == 0 ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

void PlanModel::cellChanged(int row, int column) {
  if (row == 0) {
    emit headerDataChanged(Qt::Horizontal, column, column);
  } else {
    const QModelIndex cell = index(row - 1, column);
    emit dataChanged(cell, cell, {Qt::DisplayRole});
  }
}

PlanTable::PlanTable(platform::Table& table, platform::EventGate& gate, int stretched,
                     QWidget* parent)
    : QTableView(parent), table_(table), gate_(gate), stretched_(stretched) {
  setObjectName(QString::fromStdString(table.name()));
  setModel(new PlanModel(table, this));
  setTabKeyNavigation(false);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ContiguousSelection);
  setAlternatingRowColors(true);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionsMovable(false);
  cursor_ = table_.cursorMoved.connect([this] { showCursor(); });
  columns_ = table_.changed.connect([this] { showColumns(); });
  scroll_ = table_.scrollRequested.connect(
      [this](int row) { scrollTo(model()->index(row - 1, 1), PositionAtTop); });
  focus_ = table_.focusRequested.connect([this] { focusIfShown(this); });
  addEditActions();
  showColumns();
  showCursor();
}

void PlanTable::addEditActions() {
  const auto add = [this](const QString& caption, QKeySequence::StandardKey key, auto act) {
    auto* action = new QAction(caption, this);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, act);
    addAction(action);
  };
  add(tr("&Copy"), QKeySequence::Copy, [this] { copySelection(); });
  add(tr("&Paste"), QKeySequence::Paste, [this] { pasteClipboard(); });
  setContextMenuPolicy(Qt::ActionsContextMenu);
}

void PlanTable::copySelection() const {
  QModelIndexList cells = selectionModel()->selectedIndexes();
  std::ranges::sort(cells, [](const QModelIndex& a, const QModelIndex& b) {
    return std::pair(a.row(), a.column()) < std::pair(b.row(), b.column());
  });
  QString text;
  int lastRow = -1;
  for (const QModelIndex& cell : cells) {
    if (isColumnHidden(cell.column())) {
      continue;
    }
    if (lastRow >= 0) {
      text += cell.row() == lastRow ? QLatin1Char('\t') : QLatin1Char('\n');
    }
    lastRow = cell.row();
    text += toScreen(table_.textMatrix(cell.row() + 1, cell.column()));
  }
  QApplication::clipboard()->setText(text);
}

void PlanTable::pasteClipboard() {
  const int firstColumn = table_.col();
  QString text = QApplication::clipboard()->text();
  text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  bool beyondColumns = false;
  bool dropped = false;
  for (const QChar character : text) {
    if (character == QLatin1Char('\n')) {
      if (table_.row() + 1 == table_.rows()) {
        break;
      }
      table_.userMoveTo(table_.row() + 1, firstColumn);
      beyondColumns = false;
    } else if (character == QLatin1Char('\t')) {
      beyondColumns = beyondColumns || !pasteIntoNextColumn();
    } else if (!beyondColumns) {
      dropped = !typeText(character) || dropped;
    }
  }
  if (dropped) {
    QApplication::beep();
  }
}

/// A copy leaves out the columns that aren't shown.
bool PlanTable::pasteIntoNextColumn() {
  int column = table_.col() + 1;
  while (column < table_.cols() && isColumnHidden(column)) {
    ++column;
  }
  if (column < table_.cols()) {
    table_.userMoveTo(table_.row(), column);
  }
  return column < table_.cols();
}

void PlanTable::showCursor() {
  // The core may rest the cursor on a heading or label for a moment; the view keeps its cell then.
  if (table_.row() >= 1 && table_.col() >= 1) {
    const QModelIndex cell = model()->index(table_.row() - 1, table_.col());
    if (currentIndex() != cell) {
      setCurrentIndex(cell);
    }
  }
}

void PlanTable::showColumns() {
  const QFontMetrics metrics(font());
  const double digit = metrics.horizontalAdvance(QStringLiteral("0123456789")) / 10.0;
  verticalHeader()->setDefaultSectionSize(metrics.height() + metrics.height() / 3);
  for (int column = 0; column < table_.cols(); ++column) {
    const int twips = table_.colWidth(column);
    setColumnHidden(column, twips == 0);
    const int heading = horizontalHeader()->sectionSizeHint(column) + metrics.averageCharWidth();
    const int design = twips == platform::Table::kDesignWidth
                           ? metrics.horizontalAdvance(QStringLiteral("0000.00000"))
                           : static_cast<int>(twips / kTwipsPerDigit * digit);
    horizontalHeader()->setSectionResizeMode(
        column, column == stretched_ ? QHeaderView::Stretch : QHeaderView::Interactive);
    setColumnWidth(column, std::max(heading, design));
  }
}

void PlanTable::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    showColumns();
  }
}

void PlanTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (current.isValid()) {
    table_.userMoveTo(current.row() + 1, std::max(current.column(), 1));
  }
  if (current.isValid() && current.column() == 0) {
    // On a row's label the cursor means the row. Later, since the click goes on to select its cell.
    QMetaObject::invokeMethod(
        this, [this] { setCurrentIndex(model()->index(table_.row() - 1, table_.col())); },
        Qt::QueuedConnection);
  }
}

void PlanTable::keyPressEvent(QKeyEvent* event) {
  const bool command = (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    table_.userKey('\r');
  } else if (event->key() == Qt::Key_Backspace) {
    table_.userKey('\b');
  } else if (command || event->key() == Qt::Key_Escape || event->key() == Qt::Key_Delete ||
             !typeText(event->text())) {
    QTableView::keyPressEvent(event);
  }
}

bool PlanTable::typeText(const QString& text) {
  if (text.isEmpty() || !text[0].isPrint()) {
    return false;
  }
  bool dropped = false;
  for (const char character : fromScreen(text, &dropped)) {
    table_.userKey(character);
  }
  if (dropped) {
    QApplication::beep();
  }
  return true;
}

void PlanTable::mouseDoubleClickEvent(QMouseEvent* event) {
  QTableView::mouseDoubleClickEvent(event);
  gate_.enter([&table = table_] { table.userDoubleClick(); });
}

}  // namespace tarnvex::desktop

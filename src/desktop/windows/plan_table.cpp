#include "desktop/windows/plan_table.h"

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <algorithm>
#include <utility>

#include "desktop/panel/colour_math.h"
#include "desktop/ports/text.h"
#include "desktop/windows/binder.h"
#include "desktop/windows/parts.h"

namespace tarnvex::desktop {
namespace {

/// The width of an average digit, in twips, in the font for which the tables' widths are given.
constexpr double kTwipsPerDigit = 90;

/// The colour of a selection, but mostly transparent, so that the text keeps its contrast.
QBrush markBrush() {
  const QPalette palette = QApplication::palette();
  return mixed(palette.color(QPalette::Base), palette.color(QPalette::Highlight), 0.25);
}

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
      // Flags are centred below their short headings.
      return QVariant(table_.colWidth(index.column()) == 500 && index.column() > 0
                          ? Qt::AlignCenter
                          : Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::BackgroundRole:
      if (index.row() + 1 == marked_) {
        return markBrush();
      }
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
  const bool heading = orientation == Qt::Horizontal && role == Qt::DisplayRole;
  return heading ? toScreen(table_.textMatrix(0, section))
                 : QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags PlanModel::flags(const QModelIndex& index) const {
  return index.column() == 0 ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

void PlanModel::markRow(int row) {
  for (const int changed : {std::exchange(marked_, row), row}) {
    if (changed > 0 && changed < table_.rows()) {
      emit dataChanged(index(changed - 1, 0), index(changed - 1, table_.cols() - 1),
                       {Qt::BackgroundRole});
    }
  }
}

void PlanModel::cellChanged(int row, int column) {
  if (row == 0) {
    emit headerDataChanged(Qt::Horizontal, column, column);
  } else {
    const QModelIndex cell = index(row - 1, column);
    emit dataChanged(cell, cell, {Qt::DisplayRole});
  }
}

PlanTable::PlanTable(platform::Table& table, memory::PlanEditor& editor, platform::EventGate& gate,
                     int stretched, QWidget* parent)
    : QTableView(parent), table_(table), editor_(editor), gate_(gate), stretched_(stretched) {
  setObjectName(QString::fromStdString(table.name()));
  setModel(new PlanModel(table, this));
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ContiguousSelection);
  makePlain(this);
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

template <class Act>
QAction* PlanTable::addEdit(const char* name, const QString& caption,
                            const QList<QKeySequence>& keys, Act act) {
  auto* action = named(new QAction(caption, this), name);
  action->setShortcuts(keys);
  action->setShortcutContext(Qt::WidgetShortcut);
  connect(action, &QAction::triggered, this, act);
  addAction(action);
  return action;
}

void PlanTable::addEditActions() {
  undo_ = addEdit("mnuUndo", tr("&Undo"), {QKeySequence(Qt::CTRL | Qt::Key_Z)},
                  [this] { beepUnless(editor_.undo()); });
  redo_ =
      addEdit("mnuRedo", tr("&Redo"),
              {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)},
              [this] { beepUnless(editor_.redo()); });
  auto* separator = new QAction(this);
  separator->setSeparator(true);
  addAction(separator);
  addEdit("mnuCut", tr("Cu&t"), {QKeySequence(Qt::CTRL | Qt::Key_X)}, [this] { cutSelection(); });
  addEdit("mnuCopy", tr("&Copy"), {QKeySequence(Qt::CTRL | Qt::Key_C)},
          [this] { copySelection(); });
  addEdit("mnuPaste", tr("&Paste"), {QKeySequence(Qt::CTRL | Qt::Key_V)},
          [this] { pasteClipboard(); });
  addEdit("mnuDelete", tr("&Delete"), {QKeySequence(Qt::Key_Delete)},
          [this] { editor_.clear(table_, selectedCells(), "Delete"); });
}

void PlanTable::contextMenuEvent(QContextMenuEvent* event) {
  const auto name = [](QAction* action, const QString& what, const std::string& step) {
    action->setText(step.empty() ? what : what + QLatin1Char(' ') + toScreen(step));
  };
  name(undo_, tr("&Undo"), editor_.undoName());
  name(redo_, tr("&Redo"), editor_.redoName());
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addActions(actions());
  // Opened by the keyboard, it belongs to the current cell.
  const bool byKeyboard = event->reason() == QContextMenuEvent::Keyboard;
  const QPoint cell = visualRect(currentIndex()).bottomLeft();
  menu->popup(byKeyboard ? viewport()->mapToGlobal(cell) : event->globalPos());
}

void PlanTable::beepUnless(bool done) {
  if (!done) {
    QApplication::beep();
  }
}

memory::CellRange PlanTable::selectedCells() const {
  memory::CellRange cells{table_.row(), table_.col(), table_.row(), table_.col()};
  const QItemSelection selection = selectionModel()->selection();
  for (const QItemSelectionRange& range : selection) {
    cells = {range.top() + 1, std::max(range.left(), 1), range.bottom() + 1, range.right()};
  }
  cells.hides = [this](int row) { return isRowHidden(row - 1); };
  return cells;
}

void PlanTable::copySelection() const {
  QApplication::clipboard()->setText(toScreen(editor_.copy(table_, selectedCells())));
}

void PlanTable::cutSelection() {
  copySelection();
  editor_.clear(table_, selectedCells(), "Cut");
}

void PlanTable::pasteClipboard() {
  const QString text = QApplication::clipboard()->text();
  beepUnless(!text.isEmpty());
  // A zero byte replaces each character that the plan can't hold, so that its field is left out.
  if (const auto message = editor_.paste(table_, selectedCells(), fromScreen(text, '\0'))) {
    // Not within the menu that may have called: while the message is open, Qt deletes the menu.
    QMetaObject::invokeMethod(
        this,
        [this, message] { gate_.enter([&editor = editor_, message] { editor.tell(*message); }); },
        Qt::QueuedConnection);
  }
}

/// If the core has put the cursor on a heading or a label, waits for the event loop: it may move on
/// at once.
void PlanTable::showCursor() {
  if (table_.row() < 1 || table_.col() < 1) {
    QMetaObject::invokeMethod(
        this, [this] { settleCursor(); }, Qt::QueuedConnection);
    return;
  }
  const QModelIndex cell = model()->index(table_.row() - 1, table_.col());
  if (currentIndex() != cell) {
    setCurrentIndex(cell);
  }
}

void PlanTable::settleCursor() {
  table_.userMoveTo(std::max(table_.row(), 1), std::max(table_.col(), 1));
  setCurrentIndex(model()->index(table_.row() - 1, table_.col()));
}

int PlanTable::designWidth(int column) const {
  const QFontMetrics metrics(font());
  const int twips = table_.colWidth(column);
  const double digit = metrics.horizontalAdvance(QStringLiteral("0123456789")) / 10.0;
  return twips == platform::Table::kDesignWidth
             ? metrics.horizontalAdvance(QStringLiteral("0000.00000"))
             : static_cast<int>(twips / kTwipsPerDigit * digit);
}

void PlanTable::showColumns() {
  const QFontMetrics metrics(font());
  verticalHeader()->setDefaultSectionSize(metrics.height() + metrics.height() / 3);
  for (int column = 0; column < table_.cols(); ++column) {
    setColumnHidden(column, table_.colWidth(column) == 0);
    const int heading = horizontalHeader()->sectionSizeHint(column) + metrics.averageCharWidth();
    horizontalHeader()->setSectionResizeMode(
        column, column == stretched_ ? QHeaderView::Stretch : QHeaderView::Interactive);
    setColumnWidth(column, std::max(heading, designWidth(column)));
  }
}

std::vector<int> PlanTable::columnWidths() const {
  std::vector<int> widths;
  widths.reserve(static_cast<std::size_t>(table_.cols()));
  for (int column = 0; column < table_.cols(); ++column) {
    widths.push_back(columnWidth(column));
  }
  return widths;
}

void PlanTable::setColumnWidths(const std::vector<int>& widths) {
  if (std::cmp_not_equal(widths.size(), table_.cols())) {
    return;
  }
  for (int column = 0; column < table_.cols(); ++column) {
    const int width = widths[static_cast<std::size_t>(column)];
    if (column != stretched_ && !isColumnHidden(column) && width > 0) {
      setColumnWidth(column, width);
    }
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
  setAttribute(Qt::WA_InputMethodEnabled);
  if (current.isValid()) {
    table_.userMoveTo(current.row() + 1, std::max(current.column(), 1));
  }
  if (current.isValid() && current.column() == 0) {
    // A click on a row's label goes to the row's first cell. This is queued, since the click itself
    // is still about to select the label.
    QMetaObject::invokeMethod(
        this, [this] { settleCursor(); }, Qt::QueuedConnection);
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

/// Letters that are composed of several keys, such as an accent and its letter.
void PlanTable::inputMethodEvent(QInputMethodEvent* event) {
  typeText(event->commitString());
  event->accept();
}

/// The view itself only wants composed letters for cells that it edits.
void PlanTable::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  setAttribute(Qt::WA_InputMethodEnabled);
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

void PlanTable::mousePressEvent(QMouseEvent* event) {
  pressedRow_ = rowAt(event->pos().y());
  pressedAt_ = event->timestamp();
  QTableView::mousePressEvent(event);
}

/// Only if both clicks were on this row: the first one may have been on a list of hits, and the
/// table has taken its place.
void PlanTable::mouseDoubleClickEvent(QMouseEvent* event) {
  QTableView::mouseDoubleClickEvent(event);
  const auto between = event->timestamp() - pressedAt_;
  if (rowAt(event->pos().y()) == pressedRow_ &&
      std::cmp_less_equal(between, QApplication::doubleClickInterval())) {
    gate_.enter([&table = table_] { table.userDoubleClick(); });
  }
}

}  // namespace tarnvex::desktop

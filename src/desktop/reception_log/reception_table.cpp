#include "desktop/reception_log/reception_table.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QUrl>
#include <array>

#include "desktop/ports/file_manager.h"
#include "desktop/windows/parts.h"

namespace tarnvex::desktop {
namespace {

constexpr int kBars = 4;
/// Characters.
constexpr int kLeastTag = 14;
/// The widest text of each column.
constexpr std::array kWidths = {"2026-12-31 23:59:59",
                                "1:00:00",
                                "000.00000",
                                "",
                                "Bank",
                                "Channel",
                                "000.0",
                                "Signal",
                                "Recording"};

/// Paints four rising bars, the lit ones in a strong colour. Paints nothing if the signal isn't
/// known.
void paintBars(QPainter* painter, const QRectF& cell, int lit, QColor colour) {
  const double height = cell.height() * 0.52;
  const double width = height / 3;
  QRectF bar(cell.left() + width * 2, 0, width, 0);
  for (int step = 1; step <= kBars && lit > 0; ++step) {
    bar.setTop(cell.center().y() + height / 2 - height * step / kBars);
    bar.setBottom(cell.center().y() + height / 2);
    colour.setAlphaF(step <= lit ? 1.0F : 0.18F);
    painter->fillRect(bar, colour);
    bar.translate(width * 1.6, 0);
  }
}

void paintPlay(QPainter* painter, const QRectF& cell, const QColor& colour) {
  const double side = cell.height() * 0.46;
  const QPointF middle = cell.center();
  painter->setPen(Qt::NoPen);
  painter->setBrush(colour);
  painter->drawPolygon(QPolygonF{{middle.x() - side * 0.4, middle.y() - side / 2},
                                 {middle.x() + side * 0.5, middle.y()},
                                 {middle.x() - side * 0.4, middle.y() + side / 2}});
}

}  // namespace

void ReceptionDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  const bool signal = index.column() == ReceptionModel::Signal;
  const bool drawn = signal || index.column() == ReceptionModel::Recording;
  const auto& model = *static_cast<const ReceptionModel*>(index.model());
  const ReceptionRow* row = drawn ? model.row(index.row()) : nullptr;
  if (row == nullptr) {
    return;
  }
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  const auto role = signal ? QPalette::Text : QPalette::Highlight;
  const QColor colour = option.palette.color(selected ? QPalette::HighlightedText : role);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  if (signal) {
    paintBars(painter, option.rect, row->bars, colour);
  } else if (!row->recording.isEmpty()) {
    paintPlay(painter, option.rect, colour);
  }
  painter->restore();
}

ReceptionTable::ReceptionTable(ReceptionModel& model, QString recordings, QWidget* parent)
    : QTableView(parent), model_(model), recordings_(std::move(recordings)) {
  setObjectName(QStringLiteral("receptions"));
  setAccessibleName(tr("Receptions"));
  setItemDelegate(new ReceptionDelegate(this));
  setSelectionBehavior(SelectRows);
  makePlain(this);
  setShowGrid(false);
  horizontalHeader()->setSortIndicator(ReceptionModel::Time, Qt::DescendingOrder);
  setModel(&model_);
  connect(horizontalHeader(), &QHeaderView::sortIndicatorChanged, &model_, &ReceptionModel::sort);
  connect(horizontalHeader(), &QHeaderView::sortIndicatorChanged, this, [this] { sizeColumns(); });
  horizontalHeader()->setSortIndicatorShown(true);
  horizontalHeader()->setSectionsClickable(true);
  // A user who has scrolled down goes on seeing the same rows.
  model_.onRowsAbove = [this](int rows) {
    if (!isAtTop()) {
      verticalScrollBar()->setValue(verticalScrollBar()->value() + rows);
    }
  };
  connect(&model_, &ReceptionModel::modelAboutToBeReset, this, [this] { keepCurrent(); });
  connect(&model_, &ReceptionModel::modelReset, this, [this] { restoreCurrent(); });
  sizeColumns();
}

bool ReceptionTable::isAtTop() const {
  return verticalScrollBar()->value() == 0;
}

void ReceptionTable::keepCurrent() {
  withCurrent([this](const ReceptionRow& row) { kept_ = row; });
}

/// Selects the same row again, unless it is no longer among the first.
void ReceptionTable::restoreCurrent() {
  const auto kept = std::exchange(kept_, std::nullopt);
  const int known = kept ? std::min(model_.rowCount(), ReceptionModel::kPageRows) : 0;
  for (int row = 0; row < known; ++row) {
    const ReceptionRow* now = model_.row(row);
    if (now != nullptr && now->started == kept->started && now->source.id == kept->source.id) {
      return selectRow(row);
    }
  }
}

void ReceptionTable::sizeColumns() {
  const QFontMetrics metrics(font());
  verticalHeader()->setDefaultSectionSize(metrics.height() + metrics.height() / 2);
  const int padding = metrics.height() * 3 / 4;
  for (int column = 0; column < ReceptionModel::kColumns; ++column) {
    const int heading = metrics.horizontalAdvance(
        model_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    const int text = metrics.horizontalAdvance(QLatin1String(kWidths.at(std::size_t(column))));
    const bool sorted = column == horizontalHeader()->sortIndicatorSection();
    setColumnWidth(column, std::max(heading + (sorted ? metrics.height() : 0), text) + padding);
  }
  fitTag();
}

/// The tag has the room that the others leave, and never too little to be read.
void ReceptionTable::fitTag() {
  const int others = horizontalHeader()->length() - columnWidth(ReceptionModel::Tag);
  const int least = fontMetrics().averageCharWidth() * kLeastTag;
  setColumnWidth(ReceptionModel::Tag, std::max(viewport()->width() - others, least));
}

void ReceptionTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  fitTag();
}

void ReceptionTable::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    sizeColumns();
  }
}

void ReceptionTable::withCurrent(const std::function<void(const ReceptionRow&)>& act) const {
  const ReceptionRow* row = currentIndex().isValid() ? model_.row(currentIndex().row()) : nullptr;
  if (row != nullptr && act) {
    // The model may drop the row's page meanwhile.
    const ReceptionRow copy = *row;
    act(copy);
  }
}

void ReceptionTable::mouseDoubleClickEvent(QMouseEvent* event) {
  QTableView::mouseDoubleClickEvent(event);
  const QModelIndex cell = indexAt(event->pos());
  if (event->button() == Qt::LeftButton && cell.isValid() &&
      cell.column() != ReceptionModel::Recording) {
    withCurrent(onTune);
  }
}

/// A press with Ctrl or Shift selects rows and doesn't play a recording.
void ReceptionTable::mousePressEvent(QMouseEvent* event) {
  QTableView::mousePressEvent(event);
  plays_ = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier &&
           indexAt(event->pos()).column() == ReceptionModel::Recording;
}

void ReceptionTable::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  const QModelIndex cell = indexAt(event->pos());
  if (std::exchange(plays_, false) && cell.isValid() && cell == currentIndex()) {
    withCurrent([this](const ReceptionRow& row) { play(row); });
  }
}

void ReceptionTable::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    copy();
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    withCurrent(onTune);
  } else {
    QTableView::keyPressEvent(event);
  }
}

/// The actions for the current row. Some need a recording. They are queued, since Qt deletes the
/// menu while the radio is tuned or a question is open.
QMenu* ReceptionTable::makeMenu(bool recorded) {
  auto* menu = named(new QMenu(this), "receptionMenu");
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const auto add = [&](const QString& text, auto act) {
    return menu->addAction(text, this, act, Qt::QueuedConnection);
  };
  add(tr("&Copy"), [this] { copy(); });
  menu->addSeparator();
  add(tr("&Tune the Radio There"), [this] { withCurrent(onTune); });
  add(tr("&Store in the Plan"), [this] { withCurrent(onStore); });
  menu->addSeparator();
  auto* playing = add(tr("&Play Recording"),
                      [this] { withCurrent([this](const ReceptionRow& row) { play(row); }); });
  playing->setEnabled(recorded);
  auto* folder = add(tr("Show Recording in &Folder"), [this] {
    withCurrent([this](const ReceptionRow& row) { showInFileManager(fileOf(row)); });
  });
  folder->setEnabled(recorded);
  return menu;
}

void ReceptionTable::contextMenuEvent(QContextMenuEvent* event) {
  withCurrent([&](const ReceptionRow& row) {
    makeMenu(!row.recording.isEmpty())->popup(event->globalPos());
  });
}

/// Copies the selected rows that the model has: a line for each row, tabs between the columns.
void ReceptionTable::copy() const {
  QModelIndexList rows = selectionModel()->selectedRows();
  std::ranges::sort(rows, {}, &QModelIndex::row);
  QStringList lines;
  for (const QModelIndex& row : rows) {
    QStringList cells;
    for (int column = 0; column < ReceptionModel::kColumns; ++column) {
      const int role = column < ReceptionModel::Signal ? Qt::DisplayRole : Qt::AccessibleTextRole;
      cells << model_.data(row.siblingAtColumn(column), role).toString();
    }
    lines << cells.join(QLatin1Char('\t'));
  }
  QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

QString ReceptionTable::fileOf(const ReceptionRow& row) const {
  return recordings_ + QLatin1Char('/') + row.recording;
}

void ReceptionTable::play(const ReceptionRow& row) const {
  if (!row.recording.isEmpty()) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(fileOf(row)));
  }
}

}  // namespace tarnvex::desktop

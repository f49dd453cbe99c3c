#include "desktop/reception_log/reception_model.h"

#include <algorithm>

#include "desktop/reception_log/reception_texts.h"
#include "desktop/windows/plain_text.h"

namespace tarnvex::desktop {
namespace {

constexpr int kSoonMilliseconds = 300;
constexpr int kMostPages = 64;
/// The pages of the newest rows, which may still become longer or get a recording.
constexpr int kPagesThatChange = 2;

}  // namespace

ReceptionModel::ReceptionModel(QueryThread& thread, SourceList::PlanTag planTag, QObject* parent)
    : QAbstractTableModel(parent), thread_(thread), sources_(std::move(planTag)) {
  soon_.setSingleShot(true);
  soon_.setInterval(kSoonMilliseconds);
  connect(&soon_, &QTimer::timeout, this, [this] { askAfterChange(); });
}

void ReceptionModel::setFilter(const ReceptionFilter& filter) {
  filter_ = filter;
  ask(Question::New);
}

void ReceptionModel::sort(int column, Qt::SortOrder order) {
  column_ = static_cast<Column>(column);
  descending_ = order == Qt::DescendingOrder;
  ask(Question::New);
}

void ReceptionModel::refresh() {
  if (!soon_.isActive()) {
    soon_.start();
  }
}

void ReceptionModel::forgetTags() {
  sources_.forgetTags();
  if (query_.someSources || column_ == Tag) {
    otherTags_ = true;
    refresh();
  } else {
    emit dataChanged(index(0, Tag), index(rowCount() - 1, Tag));
  }
}

/// Asks for the sources first, since the query for the rows depends on them.
void ReceptionModel::ask(Question question) {
  const int asked = ++asked_;
  thread_.ask([this, asked, question,
               mark = sources_.mark()](ReceptionReader& reader) -> QueryThread::Answer {
    return [this, asked, question, news = reader.sourcesSince(mark)] {
      sources_.add(news);
      begin(asked, question);
    };
  });
}

void ReceptionModel::begin(int asked, Question question) {
  if (asked != asked_) {
    return;
  }
  updateQuery();
  thread_.ask(
      [this, asked, question, query = query_](ReceptionReader& reader) -> QueryThread::Answer {
        const ReceptionCount count = reader.begin(query);
        const int wanted = question == Question::New ? kPageRows : 0;
        return [this, asked, question, count, rows = reader.rows(count, 0, wanted),
                state = reader.state()] {
          if (asked == asked_) {
            answered_ = asked;
            fetching_ = false;
            state_ = state;
            question == Question::New ? take(count, rows) : takeAgain(count);
            tellCounted();
          }
        };
      });
}

void ReceptionModel::take(const ReceptionCount& count, const QVector<ReceptionRow>& first) {
  beginResetModel();
  count_ = count;
  pages_.clear();
  // The first rows are available at once, whichever pages they belong to.
  for (int row = 0; row < first.size(); ++row) {
    Page& page = pages_[static_cast<int>(place(row) / kPageRows)];
    const auto at = static_cast<qsizetype>(place(row) % kPageRows);
    page.rows.resize(std::max(page.rows.size(), at + 1));
    page.rows[at] = first[row];
    page.stale = true;
  }
  endResetModel();
}

/// Takes the answer to a question that was asked again. The rows on the screen stay until the new
/// ones arrive, and the selected places stay selected.
void ReceptionModel::takeAgain(const ReceptionCount& count) {
  const bool fewer = count.bottom != count_.bottom || count.count < count_.count;
  resize(count);
  if (fewer) {
    pages_.clear();
  }
  for (Page& page : pages_) {
    page.stale = true;
  }
  if (rowCount() > 0) {
    emit dataChanged(index(0, 0), index(rowCount() - 1, kColumns - 1));
  }
}

/// Asks anew if a question is still open, since its answer may not include the change.
void ReceptionModel::askAfterChange() {
  if (!counted()) {
    return refresh();
  }
  if (std::exchange(otherTags_, false)) {
    return ask(Question::Again);
  }
  thread_.ask([this, asked = asked_, count = count_,
               mark = sources_.mark()](ReceptionReader& reader) -> QueryThread::Answer {
    return [this, asked, count = reader.beyond(count), news = reader.sourcesSince(mark)] {
      if (asked == asked_) {
        takeBeyond(count, news);
      }
    };
  });
}

/// Unless new rows simply come at the top, everything is asked for again.
void ReceptionModel::takeBeyond(const ReceptionCount& count, const NewSources& news) {
  const bool unknown = sources_.add(news);
  const bool dropped = count.bottom != count_.bottom || count.top < count_.top;
  if (dropped || !growsAtTop() || query_.recordedOnly || (unknown && query_.someSources)) {
    return ask(Question::Again);
  }
  resize(count);
  for (auto page = pages_.begin(); page != pages_.end(); ++page) {
    page->stale = page->stale || page.key() + kPagesThatChange > count_.count / kPageRows;
  }
  if (rowCount() > 0) {
    emit dataChanged(index(0, 0), index(std::min(rowCount(), kPageRows) - 1, kColumns - 1));
  }
  tellCounted();
}

void ReceptionModel::tellCounted() const {
  if (onCounted) {
    onCounted();
  }
}

/// Adds rows at the top if that is where they come, otherwise at the end. Removes rows at the end.
void ReceptionModel::resize(const ReceptionCount& count) {
  const auto before = static_cast<int>(count_.count);
  const auto added = static_cast<int>(count.count - count_.count);
  if (added > 0) {
    const int first = growsAtTop() ? 0 : before;
    beginInsertRows({}, first, first + added - 1);
    count_ = count;
    endInsertRows();
    if (growsAtTop() && onRowsAbove) {
      onRowsAbove(added);
    }
  } else if (added < 0) {
    beginRemoveRows({}, before + added, before - 1);
    count_ = count;
    endRemoveRows();
  } else {
    count_ = count;
  }
}

void ReceptionModel::updateQuery() {
  using Order = ReceptionQuery::Order;
  static const QHash<int, Order> kOrders = {{Time, Order::Time},
                                            {For, Order::Length},
                                            {Signal, Order::Signal},
                                            {Recording, Order::Recording}};
  static const QHash<int, SourceList::Order> kSourceOrders = {{Tag, SourceList::Order::Tag},
                                                              {Bank, SourceList::Order::Bank},
                                                              {Channel, SourceList::Order::Channel},
                                                              {Tone, SourceList::Order::Tone}};
  query_ = {.from = filter_.from,
            .to = filter_.to,
            .recordedOnly = filter_.recordedOnly,
            .someSources = !filter_.text.trimmed().isEmpty() || !filter_.radio.isEmpty(),
            .sources = {},
            .order = kOrders.value(column_, Order::Source),
            .descending = descending_};
  if (query_.someSources || query_.order == Order::Source) {
    query_.sources = sources_.find(filter_.text, filter_.radio,
                                   kSourceOrders.value(column_, SourceList::Order::Name));
  }
}

qint64 ReceptionModel::place(int row) const {
  return growsAtTop() ? count_.count - 1 - row : row;
}

const ReceptionRow* ReceptionModel::row(int row) const {
  const qint64 at = place(row);
  const auto page = pages_.constFind(static_cast<int>(at / kPageRows));
  if (page == pages_.constEnd()) {
    want(row);
    return nullptr;
  }
  const auto in = static_cast<qsizetype>(at % kPageRows);
  const bool there = in < page->rows.size() && page->rows[in].started != 0;
  if (!there || page->stale) {
    want(row);
  }
  return there ? &page->rows[in] : nullptr;
}

void ReceptionModel::want(int row) const {
  wantedPage_ = static_cast<int>(place(row) / kPageRows);
  if (!fetching_ && counted()) {
    askPage();
  }
}

void ReceptionModel::askPage() const {
  fetching_ = true;
  const int page = std::exchange(wantedPage_, -1);
  const qint64 size = std::min<qint64>(kPageRows, count_.count - qint64(page) * kPageRows);
  const qint64 first =
      growsAtTop() ? count_.count - qint64(page) * kPageRows - size : qint64(page) * kPageRows;
  // The table calls this while it paints. Asking the file changes none of the rows that it has.
  auto* self = const_cast<ReceptionModel*>(this);
  thread_.ask([self, page, first, size, asked = asked_,
               count = count_](ReceptionReader& reader) -> QueryThread::Answer {
    auto rows = reader.rows(count, first, static_cast<int>(size));
    return [self, page, rows = std::move(rows), asked] { self->takePage(page, rows, asked); };
  });
}

void ReceptionModel::takePage(int page, QVector<ReceptionRow> rows, int asked) {
  if (asked != asked_) {
    return;
  }
  fetching_ = false;
  if (!rows.isEmpty()) {
    adopt(page, std::move(rows));
  }
  // Another page may be wanted by now.
  if (wantedPage_ >= 0 && counted()) {
    askPage();
  }
}

void ReceptionModel::adopt(int page, QVector<ReceptionRow> rows) {
  if (growsAtTop()) {
    std::ranges::reverse(rows);
  }
  pages_[page] = {std::move(rows), false};
  dropFarPages(page);
  const qint64 first = qint64(page) * kPageRows;
  const qint64 last = std::min(first + kPageRows, count_.count) - 1;
  const auto rowAt = [this](qint64 at) {
    return static_cast<int>(growsAtTop() ? count_.count - 1 - at : at);
  };
  const auto [top, bottom] = std::minmax({rowAt(first), rowAt(last)});
  emit dataChanged(index(top, 0), index(bottom, kColumns - 1));
}

void ReceptionModel::dropFarPages(int page) {
  while (pages_.size() > kMostPages) {
    const auto far =
        std::ranges::max(pages_.keys(), {}, [page](int key) { return std::abs(key - page); });
    pages_.remove(far);
  }
}

int ReceptionModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid()
             ? 0
             : static_cast<int>(std::min<qint64>(count_.count, std::numeric_limits<int>::max()));
}

int ReceptionModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QString ReceptionModel::text(const ReceptionRow& row, int column) const {
  switch (column) {
    case Time:
      return timeText(row.started);
    case For:
      return lengthText(row.seconds);
    case Source:
      return sourceText(row.source);
    case Tag:
      return sources_.tag(row.source);
    case Bank:
      return bankText(row.source);
    case Channel:
      return row.source.channel == 0 ? QString() : QString::number(row.source.channel);
    case Tone:
      return toneText(row.source.tone);
    default:
      return {};
  }
}

QVariant ReceptionModel::data(const QModelIndex& index, int role) const {
  if (role == Qt::TextAlignmentRole) {
    const bool number = index.column() == For || index.column() == Source ||
                        index.column() == Channel || index.column() == Tone;
    return QVariant(Qt::AlignVCenter | (number                   ? Qt::AlignRight
                                        : index.column() == Bank ? Qt::AlignHCenter
                                                                 : Qt::AlignLeft));
  }
  if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole && role != Qt::ToolTipRole) {
    return {};
  }
  const ReceptionRow* shown = row(index.row());
  if (shown == nullptr) {
    return {};
  }
  if (role == Qt::AccessibleTextRole && index.column() == Signal) {
    return tr("%1 of 4 bars").arg(shown->bars);
  }
  const QString all = index.column() == Recording && role != Qt::DisplayRole
                          ? shown->recording
                          : text(*shown, index.column());
  return role == Qt::ToolTipRole ? plainTip(all) : all;
}

QVariant ReceptionModel::headerData(int section, Qt::Orientation orientation, int role) const {
  static const QStringList kNames = {tr("Time"), tr("For"),    tr("Frequency or ID"),
                                     tr("Tag"),  tr("Bank"),   tr("Channel"),
                                     tr("Tone"), tr("Signal"), tr("Recording")};
  if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
    return kNames.value(section);
  }
  return QAbstractTableModel::headerData(section, orientation, role);
}

}  // namespace tarnvex::desktop

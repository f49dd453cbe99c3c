#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QTimer>
#include <functional>

#include "desktop/reception_log/query_thread.h"

namespace tarnvex::desktop {

/// What the user wants to see of the log.
struct ReceptionFilter {
  /// Each of its words has to be in what the table shows of the source.
  QString text;
  qint64 from = std::numeric_limits<qint64>::min();
  qint64 to = std::numeric_limits<qint64>::max();
  /// Empty for both.
  QString radio;
  bool recordedOnly = false;
};

/// The rows of the log for a table. It asks the log's file in a thread of its own and keeps only
/// the pages of rows around those that are shown; a row that hasn't come yet is blank for a moment.
/// What the log has ever heard, which is a short list, it holds whole: the text filter and the
/// orders by it work there.
class ReceptionModel : public QAbstractTableModel {
 public:
  enum Column { Time, For, Source, Tag, Bank, Channel, Tone, Signal, Recording, kColumns };
  /// The tag that the plan has for a source without one.
  using PlanTag = std::function<QString(const ReceptionSource&)>;

  ReceptionModel(QueryThread& thread, PlanTag planTag, QObject* parent = nullptr);

  void setFilter(const ReceptionFilter& filter);
  /// Rows have come or gone. Many calls in a short time are one.
  void refresh();
  /// The plan's tags have changed.
  void forgetTags();

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;
  void sort(int column, Qt::SortOrder order) override;

  /// The row, if it has come.
  [[nodiscard]] const ReceptionRow* row(int row) const;
  /// The tag that is shown.
  [[nodiscard]] QString tag(const ReceptionSource& source) const;
  /// The question whose rows are shown, as the log is asked.
  [[nodiscard]] const ReceptionQuery& query() const { return query_; }
  [[nodiscard]] const QHash<qint64, ReceptionSource>& sources() const { return sources_; }
  /// Whether the rows of the last filter have been counted.
  [[nodiscard]] bool counted() const { return answered_ == asked_; }
  [[nodiscard]] DatabaseState state() const { return state_; }

  /// Run when the rows have been counted anew.
  std::function<void()> onCounted;
  /// Run when rows have come at the top, with their number.
  std::function<void(int)> onRowsAbove;

  static constexpr int kPageRows = 128;

 private:
  struct Page {
    QVector<ReceptionRow> rows;
    /// Rows may have changed since.
    bool stale = false;
  };

  void ask();
  void begin(int asked);
  void take(const ReceptionCount& count, QVector<ReceptionRow> first, int asked);
  void adopt(const ReceptionCount& count);
  void askBeyond();
  void takeBeyond(const ReceptionCount& count, const QVector<ReceptionSource>& sources);
  void want(int row) const;
  void askPage() const;
  void takePage(int page, QVector<ReceptionRow> rows, int asked);
  void dropFarPages(int page);
  void updateQuery();
  [[nodiscard]] bool matches(const ReceptionSource& source, const QStringList& words) const;
  void sortSources(QVector<qint64>& ids) const;
  bool addSources(const QVector<ReceptionSource>& sources);
  [[nodiscard]] bool growsAtTop() const { return column_ == Time && descending_; }
  [[nodiscard]] qint64 place(int row) const;
  [[nodiscard]] QString text(const ReceptionRow& row, int column) const;

  QueryThread& thread_;
  PlanTag planTag_;
  ReceptionFilter filter_;
  Column column_ = Time;
  bool descending_ = true;
  ReceptionQuery query_;
  ReceptionCount count_;
  DatabaseState state_ = DatabaseState::Good;
  QHash<qint64, ReceptionSource> sources_;
  qint64 lastSource_ = 0;
  mutable QHash<qint64, QString> tags_;
  /// By the place of their rows. Where rows come at the top, places are counted from the oldest
  /// row, so that they stay.
  QHash<int, Page> pages_;
  mutable int wantedPage_ = -1;
  mutable bool fetching_ = false;
  /// The questions about the rows, by number: what is answered of an older one is dropped.
  int asked_ = 0;
  int answered_ = 0;
  QTimer soon_;
};

}  // namespace tarnvex::desktop

#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QTimer>
#include <functional>

#include "desktop/reception_log/query_thread.h"
#include "desktop/reception_log/source_list.h"

namespace tarnvex::desktop {

/// What the user wants to see of the log.
struct ReceptionFilter {
  /// See `SourceList::find`.
  QString text;
  qint64 from = std::numeric_limits<qint64>::min();
  qint64 to = std::numeric_limits<qint64>::max();
  /// Empty for both radios.
  QString radio;
  bool recordedOnly = false;
};

/// The rows of the log for a table. It reads the log's file in a thread of its own and keeps only
/// the pages around the visible rows; a row that hasn't arrived yet is blank for a moment. The
/// text filter and the orders by source work on the list of the sources.
class ReceptionModel : public QAbstractTableModel {
 public:
  enum Column { Time, For, Source, Tag, Bank, Channel, Tone, Signal, Recording, kColumns };

  ReceptionModel(QueryThread& thread, SourceList::PlanTag planTag, QObject* parent = nullptr);

  void setFilter(const ReceptionFilter& filter);
  [[nodiscard]] const ReceptionFilter& filter() const { return filter_; }
  /// Rows were added or deleted. Many calls in a short time count as one.
  void refresh();
  /// The plan's tags have changed.
  void forgetTags();
  /// From now on the plan isn't asked for tags. Called before the main form is destroyed.
  void forgetPlan() { sources_.forgetPlan(); }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;
  void sort(int column, Qt::SortOrder order) override;

  /// The row. Null if it hasn't arrived yet.
  [[nodiscard]] const ReceptionRow* row(int row) const;
  /// The query whose rows are shown.
  [[nodiscard]] const ReceptionQuery& query() const { return query_; }
  [[nodiscard]] const SourceList& sources() const { return sources_; }
  /// Whether the rows of the last filter have been counted.
  [[nodiscard]] bool counted() const { return answered_ == asked_; }
  [[nodiscard]] DatabaseState state() const { return state_; }

  /// Called when the rows have been counted again.
  std::function<void()> onCounted;
  /// Called when rows have been added at the top, with their number.
  std::function<void(int)> onRowsAbove;

  static constexpr int kPageRows = 128;

 private:
  struct Page {
    QVector<ReceptionRow> rows;
    /// The file's rows may have changed since.
    bool stale = false;
  };

  /// A new question shows the table from its top. The same one asked again keeps the visible rows.
  enum class Question { New, Again };
  void ask(Question question);
  void begin(int asked, Question question);
  void take(const ReceptionCount& count, const QVector<ReceptionRow>& first);
  void takeAgain(const ReceptionCount& count);
  void askAfterChange();
  void takeBeyond(const ReceptionCount& count, const NewSources& news);
  void resize(const ReceptionCount& count);
  void tellCounted() const;
  void want(int row) const;
  void askPage() const;
  void takePage(int page, QVector<ReceptionRow> rows, int asked);
  void adopt(int page, QVector<ReceptionRow> rows);
  void dropFarPages(int page);
  void updateQuery();
  [[nodiscard]] bool growsAtTop() const { return column_ == Time && descending_; }
  [[nodiscard]] qint64 place(int row) const;
  [[nodiscard]] QString text(const ReceptionRow& row, int column) const;

  QueryThread& thread_;
  SourceList sources_;
  ReceptionFilter filter_;
  Column column_ = Time;
  bool descending_ = true;
  ReceptionQuery query_;
  ReceptionCount count_;
  DatabaseState state_ = DatabaseState::Good;
  /// By the places of their rows. If new rows come at the top, places are counted from the oldest
  /// row, so that they don't change.
  QHash<int, Page> pages_;
  mutable int wantedPage_ = -1;
  mutable bool fetching_ = false;
  /// Numbers of the last question about the rows that was asked and that was answered. Answers to
  /// older questions are dropped.
  int asked_ = 0;
  int answered_ = 0;
  bool otherTags_ = false;
  QTimer soon_;
};

}  // namespace tarnvex::desktop

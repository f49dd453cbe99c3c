#pragma once

#include <QHash>
#include <functional>

#include "desktop/reception_log/reception_query.h"

namespace tarnvex::desktop {

/// Every frequency and talkgroup in a log, each once. They are few, so all of them are in memory.
/// The list has the tags to show, and does the text filter and the orders by source.
class SourceList {
 public:
  /// Returns the plan's tag for a source without a tag of its own.
  using PlanTag = std::function<QString(const ReceptionSource&)>;
  /// By what `find` sorts.
  enum class Order { Name, Tag, Bank, Channel, Tone };

  explicit SourceList(PlanTag planTag) : planTag_(std::move(planTag)) {}

  /// Adds sources. False if there is nothing new.
  bool add(const NewSources& news);
  /// How much of the log the list has.
  [[nodiscard]] const SourceMark& mark() const { return mark_; }
  [[nodiscard]] const QHash<qint64, ReceptionSource>& all() const { return sources_; }

  /// The tag to show for a source.
  [[nodiscard]] QString tag(const ReceptionSource& source) const;
  /// The plan's tags have changed.
  void forgetTags() { tags_.clear(); }
  /// From now on the plan isn't asked for tags.
  void forgetPlan() {
    planTag_ = [](const ReceptionSource&) { return QString(); };
  }

  /// The numbers of the sources that `text` finds, in the given order. If `radio` isn't empty, only
  /// those of this radio. Each word must occur in one of the texts that the table shows for the
  /// source. A text in quotation marks must equal one of them.
  [[nodiscard]] QVector<qint64> find(const QString& text, const QString& radio, Order order) const;

 private:
  [[nodiscard]] bool matches(const ReceptionSource& source, const QStringList& words) const;

  PlanTag planTag_;
  QHash<qint64, ReceptionSource> sources_;
  SourceMark mark_;
  mutable QHash<qint64, QString> tags_;
};

}  // namespace tarnvex::desktop

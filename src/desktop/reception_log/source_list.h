#pragma once

#include <QHash>
#include <functional>

#include "desktop/reception_log/reception_query.h"

namespace tarnvex::desktop {

/// Everything that a log has ever heard, each frequency or talkgroup once. There are few, so the
/// list is whole and in memory: it knows the tags to show, what a text filter finds, and the orders
/// by source.
class SourceList {
 public:
  /// The tag that the plan has for a source without one.
  using PlanTag = std::function<QString(const ReceptionSource&)>;
  enum class Order { Name, Tag, Bank, Channel, Tone };

  explicit SourceList(PlanTag planTag) : planTag_(std::move(planTag)) {}

  /// False if nothing is new.
  bool add(const NewSources& news);
  /// How far the list knows the log.
  [[nodiscard]] const SourceMark& mark() const { return mark_; }
  [[nodiscard]] const QHash<qint64, ReceptionSource>& all() const { return sources_; }

  /// The tag to show.
  [[nodiscard]] QString tag(const ReceptionSource& source) const;
  /// The plan's tags have changed.
  void forgetTags() { tags_.clear(); }
  /// From here on the plan isn't asked any more.
  void forgetPlan() {
    planTag_ = [](const ReceptionSource&) { return QString(); };
  }

  /// The numbers of the sources of that radio, or of both if `radio` is empty, that `text` finds,
  /// in an order. Each word must be in a text that the table shows of the source. What is in
  /// quotation marks must be all of such a text.
  [[nodiscard]] QVector<qint64> find(const QString& text, const QString& radio, Order order) const;

 private:
  [[nodiscard]] bool matches(const ReceptionSource& source, const QStringList& words) const;

  PlanTag planTag_;
  QHash<qint64, ReceptionSource> sources_;
  SourceMark mark_;
  mutable QHash<qint64, QString> tags_;
};

}  // namespace tarnvex::desktop

#include "desktop/reception_log/source_list.h"

#include <QRegularExpression>
#include <algorithm>

#include "desktop/reception_log/reception_texts.h"

namespace tarnvex::desktop {
namespace {

using Order = SourceList::Order;

/// Splits a text into words and quoted texts. The latter keep their quotation marks.
QStringList wordsOf(const QString& text) {
  static const QRegularExpression kWord(QStringLiteral("\"[^\"]+\"|\\S+"));
  QStringList words;
  for (auto found = kWord.globalMatch(text); found.hasNext();) {
    words << found.next().captured();
  }
  return words;
}

bool isQuoted(const QString& word) {
  return word.size() > 2 && word.startsWith(QLatin1Char('"')) && word.endsWith(QLatin1Char('"'));
}

/// Talkgroups come before frequencies: those with dashes by their text, the others by their number.
double nameNumber(const ReceptionSource& source) {
  constexpr double kBeforeAll = -1e9;
  if (source.talkgroup.isEmpty()) {
    return double(source.frequency);
  }
  bool number = false;
  const int id = source.talkgroup.toInt(&number);
  return number ? kBeforeAll + id : 2 * kBeforeAll;
}

double numberOf(const ReceptionSource& source, Order order) {
  switch (order) {
    case Order::Name:
      return nameNumber(source);
    case Order::Bank:
      return source.bank;
    case Order::Channel:
      return source.channel;
    case Order::Tone:
      return source.tone;
    default:
      return 0;
  }
}

}  // namespace

bool SourceList::add(const NewSources& news) {
  mark_ = news.mark;
  if (news.anew) {
    sources_.clear();
    tags_.clear();
  }
  for (const ReceptionSource& source : news.sources) {
    sources_.insert(source.id, source);
  }
  return !news.sources.isEmpty();
}

QString SourceList::tag(const ReceptionSource& source) const {
  if (!source.tag.isEmpty()) {
    return source.tag;
  }
  const auto known = tags_.constFind(source.id);
  return known != tags_.constEnd() ? *known : *tags_.insert(source.id, planTag_(source));
}

bool SourceList::matches(const ReceptionSource& source, const QStringList& words) const {
  const QStringList shown = {frequencyText(source.frequency), source.talkgroup, tag(source),
                             toneText(source.tone), source.radio};
  return std::ranges::all_of(words, [&](const QString& word) {
    return std::ranges::any_of(shown, [&](const QString& text) {
      return isQuoted(word) ? text.compare(word.mid(1, word.size() - 2), Qt::CaseInsensitive) == 0
                            : text.contains(word, Qt::CaseInsensitive);
    });
  });
}

QVector<qint64> SourceList::find(const QString& text, const QString& radio, Order order) const {
  const QStringList words = wordsOf(text);
  QVector<std::tuple<double, QString, qint64>> keys;
  for (const ReceptionSource& source : sources_) {
    if ((radio.isEmpty() || source.radio == radio) && matches(source, words)) {
      keys.emplace_back(numberOf(source, order),
                        order == Order::Tag ? tag(source).toLower() : source.talkgroup, source.id);
    }
  }
  std::ranges::sort(keys);
  QVector<qint64> ids;
  for (const auto& key : keys) {
    ids.push_back(std::get<qint64>(key));
  }
  return ids;
}

}  // namespace tarnvex::desktop

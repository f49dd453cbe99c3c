#include <gtest/gtest.h>

#include "desktop/reception_log/picture_data.h"
#include "desktop/reception_log/reception_texts.h"

namespace tarnvex::desktop {
namespace {

constexpr qint64 kMinute = 60'000;
constexpr qint64 kHour = 60 * kMinute;
constexpr qint64 kDay = 24 * kHour;
/// 2026-03-01 00:00 in Berlin, where the clocks are put forward on the 29th.
constexpr qint64 kMarch = 1'772'319'600'000;

class Picture : public testing::Test {
 protected:
  Picture() {
    qputenv("TZ", "Europe/Berlin");
    tzset();
  }
};

QString rounded(const QRectF& rect) {
  return QStringLiteral("%1 %2 %3x%4")
      .arg(qRound(rect.x()))
      .arg(qRound(rect.y()))
      .arg(qRound(rect.width()))
      .arg(qRound(rect.height()));
}

TEST_F(Picture, PlacesItsPartsByTheHeightOfALine) {
  const TimeSpan day{kMarch, kMarch + kDay};
  const PictureGeometry one({1000, 700}, 16, 20, day);
  EXPECT_EQ(rounded(one.plot()), "259 48 562x486");
  EXPECT_EQ(rounded(one.airtime(0)), "821 48 80x24");
  EXPECT_EQ(rounded(one.count(19)), "901 509 80x24");
  EXPECT_EQ(rounded(one.hours()), "259 578 562x80");
  // Everything is twice as large.
  const PictureGeometry fine({2000, 1400}, 32, 20, day);
  EXPECT_EQ(fine.plot(), QRectF(one.plot().topLeft() * 2, one.plot().size() * 2));
  EXPECT_EQ(fine.hours(), QRectF(one.hours().topLeft() * 2, one.hours().size() * 2));
  // Nothing lies outside the window, and rows don't overlap.
  EXPECT_LT(one.hours().bottom() + 16 * 1.4, 700);
  EXPECT_LT(one.plot().bottom(), one.hours().top());
  for (int row = 0; row < 20; ++row) {
    EXPECT_EQ(one.rowAt(one.row(row).center().y()), row);
  }
  EXPECT_EQ(one.rowAt(10), -1);
  EXPECT_EQ(one.rowAt(600), -1);
}

TEST_F(Picture, DrawsABarFromItsBeginningToItsEnd) {
  const PictureGeometry geometry({1000, 700}, 16, 20, {kMarch, kMarch + kDay});
  const QRectF plot = geometry.plot();
  const QRectF noon = geometry.bar(3, kMarch + 12 * kHour, kMarch + 18 * kHour);
  EXPECT_DOUBLE_EQ(noon.left(), plot.center().x());
  EXPECT_DOUBLE_EQ(noon.width(), plot.width() / 4);
  EXPECT_TRUE(geometry.row(3).contains(noon));
  EXPECT_EQ(geometry.time(geometry.x(kMarch + 5 * kHour)), kMarch + 5 * kHour);
  // Even a moment is visible. What extends beyond the plot is cut off, and what lies outside isn't
  // drawn.
  EXPECT_DOUBLE_EQ(geometry.bar(0, kMarch + kHour, kMarch + kHour).width(), 1.5);
  EXPECT_DOUBLE_EQ(geometry.bar(0, kMarch - kHour, kMarch + kHour).left(), plot.left());
  EXPECT_DOUBLE_EQ(geometry.bar(0, kMarch + 23 * kHour, kMarch + 30 * kHour).right(), plot.right());
  EXPECT_TRUE(geometry.bar(0, kMarch - kHour, kMarch - kMinute).isEmpty());
  EXPECT_TRUE(geometry.bar(0, kMarch + 25 * kHour, kMarch + 26 * kHour).isEmpty());
}

TEST_F(Picture, MarksRoundLocalTimes) {
  struct Case {
    TimeSpan span;
    const char* marks;
  };
  const Case cases[] = {
      {{kMarch, kMarch + kDay}, "1 Mar|06:00|12:00|18:00"},
      {{kMarch + 90 * kMinute, kMarch + 150 * kMinute}, "01:30|01:45|02:00|02:15"},
      {{kMarch, kMarch + 4 * kDay}, "1 Mar|2 Mar|3 Mar|4 Mar"},
      // An hour is missing here.
      {{kMarch + 28 * kDay, kMarch + 29 * kDay - kHour}, "29 Mar|07:00|13:00|19:00"},
  };
  for (const Case& one : cases) {
    QStringList texts;
    for (const AxisMark& mark : PictureGeometry({1000, 700}, 16, 20, one.span).marks()) {
      texts << mark.text;
    }
    EXPECT_EQ(texts.join('|').toStdString(), one.marks);
  }
}

TEST_F(Picture, ZoomsAroundThePointerAndStaysInThePeriod) {
  const TimeSpan whole{0, kDay};
  const TimeSpan half = whole.zoomed(0.5, 6 * kHour, whole);
  EXPECT_EQ(half, (TimeSpan{3 * kHour, 15 * kHour}));
  EXPECT_EQ(half.zoomed(4, 5 * kHour, whole), whole);
  EXPECT_EQ(whole.zoomed(1e-9, 6 * kHour, whole).length(), kMinute);
  EXPECT_EQ(half.moved(kHour, whole), (TimeSpan{4 * kHour, 16 * kHour}));
  EXPECT_EQ(half.moved(kDay, whole), (TimeSpan{12 * kHour, kDay}));
  EXPECT_EQ(half.moved(-kDay, whole), (TimeSpan{0, 12 * kHour}));
}

TEST_F(Picture, ShowsTheHoursOfTheDay) {
  const PictureGeometry geometry({1000, 700}, 16, 20, {kMarch, kMarch + kDay});
  const qint64 slice = 15 * kMinute;
  const auto hours = hoursOfDay({{(kMarch + 7 * kHour) / slice, 10},
                                 {(kMarch + 8 * kHour - kMinute) / slice, 5},
                                 {(kMarch + 31 * kHour) / slice, 2},
                                 {(kMarch + 29 * kDay + 7 * kHour - kHour) / slice, 3}},
                                slice);
  EXPECT_EQ(hours[7], 20);
  EXPECT_DOUBLE_EQ(geometry.hour(7, 1).height(), geometry.hours().height());
  EXPECT_EQ(geometry.hour(8, 0).height(), 0);
  EXPECT_EQ(geometry.hourAt(geometry.hour(23, 1).center()), 23);
  EXPECT_EQ(geometry.hourAt(geometry.hours().topLeft() - QPointF(5, 0)), -1);
}

TEST_F(Picture, ReachesFromTheFirstReceptionToTheEndOfTheLast) {
  EXPECT_EQ(periodOf({}), TimeSpan());
  // The last one to begin isn't the last one to end.
  EXPECT_EQ(periodOf({{0, 5, kMarch + 1000, kMarch + 6000},
                      {1, 900, kMarch + 20 * kMinute, kMarch + 35 * kMinute},
                      {2, 1, kMarch + 31 * kMinute, kMarch + 31 * kMinute + 1000}}),
            (TimeSpan{kMarch, kMarch + 36 * kMinute}));
}

TEST_F(Picture, NamesTheBusiestOnceEach) {
  SourceList sources([](const ReceptionSource&) { return QString(); });
  sources.add({{},
               true,
               {{1, "BC895XLT", 155115000, "", "", 1, 12, 0},
                {2, "BC895XLT", 155115000, "", "Fire", 0, 0, 0},
                {3, "BC245XLT", 851012500, "1616", "Patrol", 2, 1, 0},
                {4, "BC245XLT", 852012500, "1616", "Patrol", 2, 1, 0}}});
  const auto rows = busiest({{1, 3, 30}, {2, 2, 25}, {3, 1, 20}, {4, 1, 70}}, sources);
  PictureData data{{kMarch, kMarch + kDay}, rows, {}};
  data.hours[17] = 90;
  EXPECT_EQ(inWords(data),
            "The busiest from 2026-03-01 00:00:00 to 2026-03-02 00:00:00:\n"
            "Patrol, 1616: 1:30 in 2 receptions.\nFire, 155.1150: 55 s in 5 receptions.\n"
            "The busiest hour of the day begins at 17:00.");
}

TEST_F(Picture, FindsSourcesByWordsAndInOrder) {
  SourceList sources([](const ReceptionSource& source) {
    return source.frequency == 155161600 ? QString("City works") : QString();
  });
  sources.add({{},
               true,
               {{1, "BC895XLT", 155161600, "", "", 1, 12, 0},
                {2, "BC895XLT", 46012500, "", "Fire", 0, 0, 103.5},
                {3, "BC245XLT", 851012500, "1616", "Patrol city", 2, 1, 0},
                {4, "BC245XLT", 851012500, "848", "", 2, 9, 0},
                {5, "BC245XLT", 0, "04-032", "", 8, 2, 0}}});
  using Order = SourceList::Order;
  struct Case {
    const char* text;
    const char* radio;
    Order order;
    QVector<qint64> ids;
  };
  for (const auto& [text, radio, order, ids] :
       {Case{"", "", Order::Name, {5, 4, 3, 2, 1}}, Case{"", "", Order::Channel, {2, 3, 5, 4, 1}},
        Case{"", "", Order::Tag, {4, 5, 1, 2, 3}}, Case{"1616", "", Order::Name, {3, 1}},
        Case{"\"1616\"", "", Order::Name, {3}}, Case{"\"city works\"", "", Order::Name, {1}},
        Case{"city PATROL", "", Order::Name, {3}}, Case{"103.5", "", Order::Name, {2}},
        Case{"", "BC895XLT", Order::Name, {2, 1}}, Case{"\"", "", Order::Name, {}}}) {
    EXPECT_EQ(sources.find(text, radio, order), ids) << text << radio;
  }
}

TEST_F(Picture, WritesLengthsAndFrequencies) {
  const std::pair<double, const char*> lengths[] = {
      {0, "1 s"},   {0.2, "1 s"},    {59, "59 s"},      {59.5, "1:00"},
      {65, "1:05"}, {3599, "59:59"}, {3600, "1:00:00"}, {90061, "25:01:01"}};
  for (const auto& [seconds, text] : lengths) {
    EXPECT_EQ(lengthText(seconds).toStdString(), text);
  }
  EXPECT_EQ(frequencyText(46012500), "46.0125");
  EXPECT_EQ(bankText({0, "BC895XLT", 0, "", "", 10, 0, 0}), "J");
  EXPECT_EQ(bankText({0, "BC245XLT", 0, "", "", 10, 0, 0}), "10");
}

}  // namespace
}  // namespace tarnvex::desktop

#include <QScreen>
#include <functional>

#include "panel_fixture.h"

namespace tarnvex::desktop {
namespace {

/// A text that fills the element, whatever its kind.
QString fullText(const DisplayElement& element) {
  return element.kind == ElementKind::Text ? QString(60, 'W') : QString(24, '8');
}

QRect differing(const QImage& a, const QImage& b) {
  QRect box;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      if (a.pixel(x, y) != b.pixel(x, y)) {
        box |= QRect(x, y, 1, 1);
      }
    }
  }
  return box;
}

class Painting : public testing::TestWithParam<std::function<PanelLayout()>> {
 protected:
  PanelInWindow shown{GetParam()()};
  RadioPanel& panel = *shown.panel;
};

TEST_P(Painting, EachElementShowsWithinItsPlaceAndLeavesNoTrace) {
  const QImage dark = shown.picture();
  for (const DisplayElement& element : panel.layoutData().elements) {
    panel.setElement(element.name, fullText(element), true);
    const QRect change = differing(dark, shown.picture());
    EXPECT_FALSE(change.isEmpty()) << element.name.toStdString();
    EXPECT_TRUE(panel.elementRect(element.name).adjusted(-2, -2, 2, 2).contains(change))
        << element.name.toStdString() << " paints outside its place";
    panel.setElement(element.name, fullText(element), false);
    EXPECT_EQ(dark, shown.picture()) << element.name.toStdString();
  }
}

TEST_P(Painting, OnlyWhatChangedIsPaintedAgain) {
  PaintRecorder recorder(&panel);
  recorder.take();
  for (const DisplayElement& element : panel.layoutData().elements) {
    panel.setElement(element.name, "12", true);
    const QRegion painted = recorder.take();
    const QRect place = panel.elementRect(element.name);
    EXPECT_EQ(painted.intersected(place), QRegion(place)) << element.name.toStdString();
    EXPECT_TRUE(place.adjusted(-3, -3, 3, 3).contains(painted.boundingRect()))
        << element.name.toStdString();
    panel.setElement(element.name, "12", true);
    EXPECT_TRUE(recorder.take().isEmpty()) << element.name.toStdString();
  }
}

TEST_P(Painting, WhatCannotBeSeenPaintsNothing) {
  PaintRecorder recorder(&panel);
  recorder.take();
  panel.setElement("Nonsense", "12", true);
  panel.setElement("Bankltr(10)", "", true);
  panel.setElement("Knob(13)", "", true);
  panel.setElement("Frequency", "155.1150", false);  // the element isn't lit
  panel.setElement("Scan", "", false);
  panel.setDisplayColour(panel.displayColour());
  panel.setKeyDown(-1, true);
  panel.setKeyDown(99, true);
  EXPECT_TRUE(recorder.take().isEmpty());
  panel.setElement("Scan", "SCAN", true);
  recorder.take();
  panel.setElement("Scan", "", true);  // an indicator ignores the text
  EXPECT_TRUE(recorder.take().isEmpty());
}

TEST_P(Painting, PartialPaintsAddUpToTheWholePicture) {
  const auto window = [this] {
    QApplication::processEvents();
    return shown.window.screen()
        ->grabWindow(shown.window.winId())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
  };
  const auto& elements = panel.layoutData().elements;
  for (int round = 0; round < 3; ++round) {
    for (int i = 0; i < elements.size(); ++i) {
      const bool lit = (i * 7 + round * 5) % 3 != 0;
      panel.setElement(elements[i].name, QString::number(1000 * (round + 1) + i), lit);
    }
    panel.setKeyDown(round, true);
    panel.setDisplayColour(round == 1 ? Qt::white : panel.layoutData().lightColour);
    QApplication::processEvents();
  }
  const QImage partial = window();
  ASSERT_FALSE(partial.isNull());
  panel.update();
  EXPECT_EQ(partial, window());
}

TEST_P(Painting, BackLightTakesItsColourAndTextStaysReadable) {
  panel.setElement("Frequency", "888.8888", true);
  const auto darkest = [this] {
    const QImage image = shown.picture().copy(panel.elementRect("Frequency"));
    int least = 255;
    int most = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        least = std::min(least, qGray(image.pixel(x, y)));
        most = std::max(most, qGray(image.pixel(x, y)));
      }
    }
    return std::pair(least, most);
  };
  for (const QColor colour : {QColor(255, 255, 128), QColor(0, 0, 96), QColor(Qt::black),
                              QColor(Qt::white), QColor(200, 0, 0)}) {
    panel.setDisplayColour(colour);
    EXPECT_EQ(panel.displayColour(), colour);
    const auto [least, most] = darkest();
    EXPECT_GT(most - least, 100) << colour.name().toStdString();
    const QRectF glass = panel.layoutData().glass;
    const QColor middle = shown.picture().pixelColor(glass.center().toPoint() + QPoint(0, 4));
    EXPECT_NEAR(middle.hueF(), colour.hueF(), 0.03) << colour.name().toStdString();
  }
}

TEST_P(Painting, KeepsItsProportionsAtAnySize) {
  const double ratio = panel.layoutData().size.width() / panel.layoutData().size.height();
  EXPECT_NEAR(800.0 / panel.heightForWidth(800), ratio, 0.02);
  for (const QSize room : {QSize(1400, 300), QSize(700, 900), QSize(2000, 1200)}) {
    shown.window.resize(room);
    QApplication::processEvents();
    const QRect first = panel.keyRect(0);
    const QRectF unit = panel.layoutData().keys[0].rect;
    EXPECT_NEAR(double(first.width()) / first.height(), unit.width() / unit.height(), 0.12);
    for (int i = 0; i < panel.layoutData().keys.size(); ++i) {
      EXPECT_TRUE(panel.rect().contains(panel.keyRect(i)));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Radios, Painting, testing::Values(bc895Layout, bc245Layout));

TEST(KnobPainting, ExactlyOneMarkIsLitWhateverTheOrder) {
  PanelInWindow shown(bc895Layout());
  RadioPanel& panel = *shown.panel;
  const PanelKnob knob = *panel.layoutData().knob;
  const auto lit = [&] {
    const QImage image = shown.picture();
    QStringList marks;
    for (int i = 0; i < knob.marks; ++i) {
      const double turn = 2 * M_PI * i / knob.marks;
      const QPointF at = knob.centre + QPointF(std::sin(turn), -std::cos(turn)) * knob.ringRadius;
      const QColor colour = image.pixelColor(at.toPoint());
      if (colour.red() > colour.blue() + 100) {
        marks.append(QString::number(i));
      }
    }
    return marks.join(' ');
  };
  EXPECT_EQ(lit(), "");
  panel.setElement("Knob(0)", "", true);
  EXPECT_EQ(lit(), "0");
  panel.setElement("Knob(0)", "", false);
  panel.setElement("Knob(1)", "", true);
  EXPECT_EQ(lit(), "1");
  panel.setElement("Knob(12)", "", true);
  panel.setElement("Knob(1)", "", false);
  EXPECT_EQ(lit(), "12");
  PaintRecorder recorder(&panel);
  panel.setElement("Knob(5)", "", true);
  EXPECT_TRUE(panel.knobRect().contains(recorder.take().boundingRect()));
}

}  // namespace
}  // namespace tarnvex::desktop

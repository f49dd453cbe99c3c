// Whether everybody can read the windows: names and roles for screen readers, and contrast,
// computed from the painted pixels, in common palettes.
#include <QAccessible>
#include <QTest>
#include <cmath>

#include "desktop/window_fixture.h"

namespace tarnvex::test {
namespace {

struct Scheme {
  const char* name;
  QColor window, base, text, highlight;
};

const std::vector<Scheme> kSchemes = {
    {"light", "#efefef", "#ffffff", "#000000", "#308cc6"},
    {"GTK dark", "#353535", "#2d2d2d", "#eeeeec", "#15539e"},
    {"KDE dark", "#31363b", "#232629", "#eff0f1", "#3daee9"},
    {"Qt dark", "#323232", "#242424", "#f0f0f0", "#308cc6"},
};

QPalette paletteOf(const Scheme& scheme) {
  QPalette palette(scheme.window, scheme.window);
  palette.setColor(QPalette::Base, scheme.base);
  palette.setColor(QPalette::AlternateBase, scheme.base.lighter(105));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Active, role, scheme.text);
    palette.setColor(QPalette::Inactive, role, scheme.text);
  }
  palette.setColor(QPalette::Highlight, scheme.highlight);
  return palette;
}

double luminance(QRgb colour) {
  const auto linear = [](int part) {
    const double share = part / 255.0;
    return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) +
         0.0722 * linear(qBlue(colour));
}

double contrast(QRgb one, QRgb other) {
  const auto [dark, bright] = std::minmax(luminance(one), luminance(other));
  return (bright + 0.05) / (dark + 0.05);
}

/// The contrast between the most frequent colour of the picture and the colour that differs most
/// from it.
double contrastOf(const QImage& piece) {
  std::map<QRgb, int> counts;
  for (int y = 0; y < piece.height(); ++y) {
    for (int x = 0; x < piece.width(); ++x) {
      ++counts[piece.pixel(x, y)];
    }
  }
  const QRgb back =
      std::ranges::max_element(counts, {}, [](auto& one) { return one.second; })->first;
  double most = 1;
  for (const auto& [colour, count] : counts) {
    most = std::max(most, contrast(back, colour));
  }
  return most;
}

bool hasText(const QWidget* widget) {
  const auto* label = qobject_cast<const QLabel*>(widget);
  const auto* button = qobject_cast<const QAbstractButton*>(widget);
  return (label != nullptr && !label->text().isEmpty()) ||
         (button != nullptr && !button->text().isEmpty()) ||
         qobject_cast<const QComboBox*>(widget) != nullptr;
}

void expectReadable(QWidget& page, const char* scheme) {
  const QImage picture = page.grab().toImage();
  int read = 0;
  for (QWidget* widget : page.findChildren<QWidget*>()) {
    const QRect place(widget->mapTo(&page, QPoint()), widget->size());
    if (hasText(widget) && widget->isVisible() && widget->isEnabled() &&
        page.rect().contains(place)) {
      EXPECT_GE(contrastOf(picture.copy(place)), 4.5)
          << scheme << ": " << widget->objectName().toStdString() << ' '
          << widget->accessibleName().toStdString();
      ++read;
    }
  }
  EXPECT_GT(read, 0);
}

TEST_F(Bc895Window, IsReadableInEveryPaletteAndFollowsAChange) {
  const QPalette before = QApplication::palette();
  window.resize(1300, 900);
  for (const Scheme& scheme : kSchemes) {
    QApplication::setPalette(paletteOf(scheme));
    for (int tab = 0; tab < 4; ++tab) {
      openTab(tab);
      loop.turn();
      expectReadable(*find<QTabWidget>("SSTab1").currentWidget(), scheme.name);
    }
    const auto* table = find<QTableView>("MSFlexGrid1").model();
    static_cast<desktop::PlanTable&>(find<QTableView>("MSFlexGrid1")).markRow(7);
    const auto mark = table->index(6, 1).data(Qt::BackgroundRole).value<QBrush>().color();
    EXPECT_GE(contrast(mark.rgb(), scheme.text.rgb()), 4.5) << scheme.name << ": marked channel";
  }
  QApplication::setPalette(before);
}

/// Collects the object names of controls without a name or a role.
void collectNameless(QAccessibleInterface* here, QStringList& nameless) {
  const bool isControl = here->state().focusable && !here->state().invisible;
  const bool anonymous = here->text(QAccessible::Name).isEmpty() &&
                         here->role() != QAccessible::Cell && here->role() != QAccessible::ListItem;
  const bool roleless = here->role() == QAccessible::Client || here->role() == QAccessible::NoRole;
  // The frame around the pages has no role of its own. Its tab bar is the control.
  const bool isFrame = qobject_cast<QTabWidget*>(here->object()) != nullptr;
  if (isControl && !isFrame && (anonymous || roleless)) {
    nameless << (here->object() != nullptr ? here->object()->objectName() : QStringLiteral("?")) +
                    QStringLiteral(" as %1").arg(here->role());
  }
  const bool isTable = here->role() == QAccessible::Table || here->role() == QAccessible::List;
  for (int i = 0; !isTable && i < here->childCount(); ++i) {
    if (auto* child = here->child(i)) {
      collectNameless(child, nameless);
    }
  }
}

void expectNames(QWidget* of) {
  QStringList nameless;
  collectNameless(QAccessible::queryAccessibleInterface(of), nameless);
  EXPECT_EQ(nameless.join('\n').toStdString(), "") << "in " << of->objectName().toStdString();
}

template <class Window>
void expectNamesOnAllPages(Window& window, QTabWidget& tabs) {
  for (int tab = 0; tab < 4; ++tab) {
    tabs.setCurrentIndex(tab);
    expectNames(&window);
  }
}

TEST_F(Bc895Window, EveryControlHasANameAndARole) {
  expectNamesOnAllPages(window, find<QTabWidget>("SSTab1"));
  const auto* com = QAccessible::queryAccessibleInterface(&find<QRadioButton>("Option1"));
  EXPECT_EQ(com->role(), QAccessible::RadioButton);
  EXPECT_TRUE(com->state().checked);
}

TEST_F(Bc245Window, EveryControlHasANameAndARole) {
  expectNamesOnAllPages(window, find<QTabWidget>("SSTab1"));
}

TEST_F(Bc895Window, FindsRowsAndHidesEmptyOnes) {
  openTab(0);
  form.MSFlexGrid1.setTextMatrix(5, 1, "155.1150");
  form.MSFlexGrid1.setTextMatrix(5, 7, "Fire dispatch");
  form.MSFlexGrid1.setTextMatrix(90, 1, "460.0000");
  form.MSFlexGrid1.setTextMatrix(90, 7, "County fire");
  auto& page = *find<QTabWidget>("SSTab1").currentWidget();
  auto& table = *page.findChild<QTableView*>("MSFlexGrid1");
  auto& text = *page.findChild<QLineEdit*>("findText");
  const auto count = [&] { return page.findChild<QLabel*>("findCount")->text().toStdString(); };
  EXPECT_FALSE(text.isVisible());
  QTest::keyClick(&table, Qt::Key_F, Qt::ControlModifier);
  ASSERT_TRUE(text.isVisible());
  QTest::keyClicks(&text, "FIRE");
  EXPECT_EQ(count(), "1 of 2");
  EXPECT_EQ(form.MSFlexGrid1.row(), 5);
  QTest::keyClick(&text, Qt::Key_Return);
  EXPECT_EQ(form.MSFlexGrid1.row(), 90);
  QTest::keyClick(&text, Qt::Key_F3);
  EXPECT_EQ(form.MSFlexGrid1.row(), 5) << "wraps around at the end";
  QTest::keyClick(&text, Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(form.MSFlexGrid1.row(), 90);
  text.setText("no such");
  EXPECT_EQ(count(), "Not found");
  EXPECT_EQ(form.MSFlexGrid1.row(), 90);
  page.findChild<QCheckBox*>("hideEmpty")->setChecked(true);
  EXPECT_TRUE(table.isRowHidden(5));
  EXPECT_FALSE(table.isRowHidden(4)) << "channel 5";
  form.MSFlexGrid1.userMoveTo(91, 7);
  EXPECT_FALSE(table.isRowHidden(90)) << "the cursor's row is visible";
  form.MSFlexGrid1.setTextMatrix(6, 1, "151.0000");
  EXPECT_FALSE(table.isRowHidden(5)) << "no longer empty";
  QTest::keyClick(&text, Qt::Key_Escape);
  EXPECT_FALSE(text.isVisible());
  EXPECT_TRUE(table.hasFocus());
  EXPECT_FALSE(state.MemoryModified);
}

}  // namespace
}  // namespace tarnvex::test

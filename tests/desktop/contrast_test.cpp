// Whether everybody can see texts and the outlines of controls: the contrast, computed from the
// painted pixels of each page, in common palettes.
#include <QTest>
#include <cmath>

#include "desktop/window_fixture.h"
#include "desktop/windows/outline_style.h"
#include "desktop/windows/readable_selection.h"

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
  const auto [dark, bright] = std::minmax({luminance(one), luminance(other)});
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

/// Where the outline of a control is, in the control's coordinates; empty if it has none.
QRect outlineOf(const QWidget* widget) {
  const auto* button = qobject_cast<const QAbstractButton*>(widget);
  if (qobject_cast<const QCheckBox*>(widget) != nullptr ||
      qobject_cast<const QRadioButton*>(widget) != nullptr) {
    QStyleOptionButton option;
    option.initFrom(widget);
    const bool box = qobject_cast<const QCheckBox*>(widget) != nullptr;
    return widget->style()->subElementRect(
        box ? QStyle::SE_CheckBoxIndicator : QStyle::SE_RadioButtonIndicator, &option, widget);
  }
  const bool hasEdge = button != nullptr || qobject_cast<const QComboBox*>(widget) != nullptr ||
                       qobject_cast<const QLineEdit*>(widget) != nullptr ||
                       qobject_cast<const QAbstractItemView*>(widget) != nullptr;
  // A table's headings and corner lie within it.
  const bool inTable = qobject_cast<const QTableView*>(widget->parentWidget()) != nullptr;
  return hasEdge && !inTable ? widget->rect() : QRect();
}

/// Between what is left of a control and its left edge, half way down.
double contrastOfEdge(const QImage& page, const QRect& control) {
  constexpr int kEdge = 2;
  const int y = control.center().y();
  const QRgb around = page.pixel(control.left() - kEdge, y);
  double most = 1;
  for (int x = control.left(); x < control.left() + kEdge; ++x) {
    most = std::max(most, contrast(around, page.pixel(x, y)));
  }
  return most;
}

class Contrast {
 public:
  explicit Contrast(QWidget& page) : page_(page), picture_(page.grab().toImage()) {}

  void expect(const char* scheme) {
    for (QWidget* widget : page_.findChildren<QWidget*>()) {
      const QRect place(widget->mapTo(&page_, QPoint()), widget->size());
      if (!widget->isVisible() || !widget->isEnabled() || !page_.rect().contains(place)) {
        continue;
      }
      SCOPED_TRACE(std::string(scheme) + ": " + widget->objectName().toStdString() + " " +
                   widget->accessibleName().toStdString());
      if (hasText(widget)) {
        EXPECT_GE(contrastOf(picture_.copy(place)), 4.5) << "text";
        ++texts;
      }
      const QRect edge = outlineOf(widget).translated(place.topLeft());
      if (!edge.isEmpty() && edge.left() > 2) {
        EXPECT_GE(contrastOfEdge(picture_, edge), 3) << "outline";
        ++outlines;
      }
    }
  }

  int texts = 0;
  int outlines = 0;

 private:
  QWidget& page_;
  QImage picture_;
};

template <class Form>
class ContrastOf : public WindowTest<Form> {
 protected:
  ContrastOf() : before_(QApplication::palette()) {
    desktop::installOutlines();
    this->window.resize(1300, 900);
  }
  ~ContrastOf() override { QApplication::setPalette(before_); }

  /// The table's cursor shows how selected text looks.
  void expectReadableSelection(const Scheme& scheme) {
    const auto& table = this->template find<QTableView>("MSFlexGrid1");
    const QRect cell = table.visualRect(table.currentIndex()).adjusted(2, 2, -2, -2);
    EXPECT_GE(contrastOf(table.viewport()->grab(cell).toImage()), 4.5) << scheme.name;
  }

  /// The palette changes while the window is shown.
  void expectAllPages(const Scheme& scheme) {
    QApplication::setPalette(paletteOf(scheme));
    for (int tab = 0; tab < 4; ++tab) {
      this->openTab(tab);
      this->loop.turn();
      Contrast page(*this->template find<QTabWidget>("SSTab1").currentWidget());
      page.expect(scheme.name);
      EXPECT_GT(page.texts, 0);
      EXPECT_GT(page.outlines, 0);
    }
    this->openTab(0);
    expectReadableSelection(scheme);
  }

 private:
  const desktop::ReadableSelection readableSelection_;
  QPalette before_;
};

using Bc895Contrast = ContrastOf<shell::Form4>;
using Bc245Contrast = ContrastOf<shell::Form2>;

TEST_F(Bc895Contrast, IsEnoughInEveryPaletteAndFollowsAChange) {
  for (const Scheme& scheme : kSchemes) {
    expectAllPages(scheme);
    const auto* table = find<QTableView>("MSFlexGrid1").model();
    static_cast<desktop::PlanTable&>(find<QTableView>("MSFlexGrid1")).markRow(7);
    const auto mark = table->index(6, 1).data(Qt::BackgroundRole).value<QBrush>().color();
    EXPECT_GE(contrast(mark.rgb(), scheme.text.rgb()), 4.5) << scheme.name << ": marked channel";
  }
}

TEST_F(Bc245Contrast, IsEnoughInEveryPaletteAndFollowsAChange) {
  for (const Scheme& scheme : kSchemes) {
    expectAllPages(scheme);
  }
}

TEST_F(Bc895Contrast, IsEnoughWhereTheFocusIs) {
  openTab(2);
  for (const Scheme& scheme : kSchemes) {
    QApplication::setPalette(paletteOf(scheme));
    for (const char* name : {"LLimit", "Command3", "Combo4", "chkRecord", "List3"}) {
      find<QWidget>(name).setFocus(Qt::TabFocusReason);
      loop.turn();
      Contrast(*find<QTabWidget>("SSTab1").currentWidget()).expect(scheme.name);
    }
  }
}

}  // namespace
}  // namespace tarnvex::test

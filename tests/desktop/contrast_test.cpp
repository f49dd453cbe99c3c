// Whether everybody can see texts and the outlines of controls: the contrast, computed from the
// painted pixels of each page, in common palettes.
#include <QHeaderView>
#include <QMenuBar>
#include <QTabBar>
#include <QTest>
#include <cmath>

#include "desktop/window_fixture.h"
#include "desktop/windows/outline_style.h"
#include "desktop/windows/readable_palette.h"

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

using Places = std::vector<QRect>;

/// Where the headings, cells or lines of a table or list are.
Places textsOfView(const QAbstractItemView* view) {
  Places places;
  const auto* header = qobject_cast<const QHeaderView*>(view);
  const auto* list = view->model();
  for (int row = 0; row < std::min(list->rowCount(), 20); ++row) {
    for (int column = 0; column < list->columnCount(); ++column) {
      const QModelIndex cell = list->index(row, column, view->rootIndex());
      if (header == nullptr && !cell.data().toString().isEmpty()) {
        places.push_back(view->visualRect(cell));
      } else if (header != nullptr && row == 0) {
        places.emplace_back(header->sectionViewportPosition(column), 0, header->sectionSize(column),
                            header->height());
      }
    }
  }
  return places;
}

/// Where a widget shows texts, in its coordinates.
Places textsOf(const QWidget* widget) {
  Places places;
  const auto* label = qobject_cast<const QLabel*>(widget);
  const auto* button = qobject_cast<const QAbstractButton*>(widget);
  const auto* line = qobject_cast<const QLineEdit*>(widget);
  if ((label != nullptr && !label->text().isEmpty()) ||
      (button != nullptr && !button->text().isEmpty()) ||
      qobject_cast<const QComboBox*>(widget) != nullptr ||
      (line != nullptr && !(line->text() + line->placeholderText()).isEmpty())) {
    places.push_back(widget->rect());
  } else if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
    for (int tab = 0; tab < tabs->count(); ++tab) {
      places.push_back(tabs->tabRect(tab));
    }
  } else if (const auto* menus = qobject_cast<const QMenuBar*>(widget)) {
    for (QAction* menu : menus->actions()) {
      places.push_back(menus->actionGeometry(menu));
    }
  } else if (const auto* view = qobject_cast<const QAbstractItemView*>(widget->parentWidget());
             view != nullptr && view->viewport() == widget) {
    places = textsOfView(view);
  }
  return places;
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
      for (const QRect& text : textsOf(widget)) {
        // Without the control's outline.
        const QRect inner = (text & widget->rect()).adjusted(3, 3, -3, -3);
        if (inner.height() > widget->fontMetrics().ascent() && inner.width() > 6) {
          EXPECT_GE(contrastOf(picture_.copy(inner.translated(place.topLeft()))), 4.5) << "text";
          ++texts;
        }
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
    fill();
  }
  ~ContrastOf() override { QApplication::setPalette(before_); }

  /// With something in each list, and the bar for finding channels open and empty.
  void fill() {
    this->form.MSFlexGrid1.setTextMatrix(1, 7, "Fire dispatch");
    for (auto* list : {&this->form.hitLists.List1, &this->form.hitLists.List2,
                       &this->form.customSearch.saved.List3}) {
      list->add("155.1150");
      list->add("460.1250");
      list->setListIndex(0);
    }
    this->openTab(0);
    this->template find<QTabWidget>("SSTab1")
        .currentWidget()
        ->template findChild<QAbstractButton*>("find")
        ->click();
    // So that no cursor is in it.
    this->template find<QTabWidget>("SSTab1").tabBar()->setFocus();
  }

  /// The palette changes while the window is shown.
  void expectAllPages(const Scheme& scheme) {
    QApplication::setPalette(paletteOf(scheme));
    for (int tab = 0; tab < 4; ++tab) {
      this->openTab(tab);
      this->loop.turn();
      Contrast page(this->window);
      page.expect(scheme.name);
      EXPECT_GT(page.texts, 13);
      EXPECT_GT(page.outlines, 0);
    }
  }

 private:
  QPalette before_;
  const desktop::ReadablePalette readablePalette_;
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

/// The contrast of the brightest spot with the brightest corner: what is behind it is shaded.
double contrastOfPrint(const QImage& piece) {
  double ink = 0;
  for (int y = 0; y < piece.height(); ++y) {
    for (int x = 0; x < piece.width(); ++x) {
      ink = std::max(ink, luminance(piece.pixel(x, y)));
    }
  }
  double ground = 0;
  for (const QPoint& corner : {piece.rect().topLeft(), piece.rect().topRight(),
                               piece.rect().bottomLeft(), piece.rect().bottomRight()}) {
    ground = std::max(ground, luminance(piece.pixel(corner)));
  }
  return (ink + 0.05) / (ground + 0.05);
}

class PanelContrast : public testing::TestWithParam<bool> {
 protected:
  /// Enlarged, so that strokes have their full colour.
  QImage picture() {
    panel.resize((layout.size * kScale).toSize());
    return panel.grab().toImage();
  }
  static QRect enlarged(const QRectF& units) {
    return QRectF(units.topLeft() * kScale, units.size() * kScale).toRect();
  }

  static constexpr double kScale = 4;
  const desktop::PanelLayout layout = GetParam() ? desktop::bc245Layout() : desktop::bc895Layout();
  desktop::RadioPanel panel{layout};
};

TEST_P(PanelContrast, IsEnoughForThePrintOnTheBodyAndTheKeys) {
  const QImage front = picture();
  for (const desktop::PanelCaption& caption : layout.captions) {
    EXPECT_GE(contrastOfPrint(front.copy(enlarged(caption.rect))), 4.5)
        << caption.text.toStdString();
  }
  for (const desktop::PanelKey& key : layout.keys) {
    const QRectF label = key.rect.adjusted(4, key.rect.height() / 3, -4, -key.rect.height() / 3);
    EXPECT_GE(contrastOfPrint(front.copy(enlarged(label))), 4.5) << key.spoken.toStdString();
  }
}

TEST_P(PanelContrast, IsEnoughForTheDisplayAlsoWhenItIsNotLive) {
  panel.setElement("Alpha", "Fire dispatch", true);
  const auto& tag = layout.elements[layout.elementIndex("Alpha")];
  for (const QColor& back : {layout.displayColour, layout.lightColour, QColor(0, 0, 128)}) {
    for (const bool live : {true, false}) {
      panel.setDisplayColour(back);
      panel.setLive(live);
      EXPECT_GE(contrastOf(picture().copy(enlarged(tag.rect))), 4.5)
          << back.name().toStdString() << live;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(BothRadios, PanelContrast, testing::Bool());

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

#pragma once

#include <QColor>
#include <QString>
#include <QVector>
#include <QWidget>
#include <memory>

#include "desktop/panel/panel_layout.h"

namespace tarnvex::desktop {

class PanelRenderer;

/// Draws a radio's front panel and reports presses. It knows nothing about the radios. A window
/// binds its elements to the panel's labels and its signals to the key handlers.
///
/// It keeps the layout's proportions at any size, and repaints only what has changed. At first
/// every element is dark. One key has the keyboard focus: the arrow keys move it, Space and Enter
/// press the key. Page Up, Page Down and the wheel turn the knob. All other keys are passed to the
/// parent widget, and so are mouse presses beside the keys and the knob.
class RadioPanel : public QWidget {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(RadioPanel)

 public:
  explicit RadioPanel(const PanelLayout& layout, QWidget* parent = nullptr);
  ~RadioPanel() override;

  /// Shows `text` in the display element with this control name ("Frequency", "Bankltr(3)",
  /// "Sig(0)", "Knob(12)"), lit or not. Unknown names are ignored. Indicator words, letters and
  /// bars ignore the text and use only `visible`. Repaints nothing if nothing has changed.
  void setElement(const QString& name, const QString& text, bool visible);

  /// Sets the colour of the display's back light. On a dark one the text is light.
  void setDisplayColour(QColor back);
  [[nodiscard]] QColor displayColour() const;

  /// Sets whether the display shows a live radio, which is true at first. If it doesn't, the glass
  /// is dark, its text is faint, and the display in words begins with "Not live".
  void setLive(bool live);

  /// Shows a key as pressed, for a press that came from elsewhere. Emits no signal. Unknown keys
  /// are ignored.
  void setKeyDown(int keyIndex, bool down);

  /// Clicks a key, with all signals. For assistive technology.
  void clickKey(int keyIndex, Qt::MouseButton button = Qt::LeftButton);
  /// Holds the knob for a moment, long enough for one step: right turns up, left down.
  void turnKnob(Qt::MouseButton button);
  /// The mark to which the knob points, from 0.
  [[nodiscard]] int knobMark() const;

  [[nodiscard]] const PanelLayout& layoutData() const;

  /// The display in words: "Frequency 155.1150, Fire dispatch, SCAN, bank A B". This is also the
  /// accessible description.
  [[nodiscard]] QString displayText() const;
  /// What screen readers were told last.
  [[nodiscard]] QString announcement() const;

  /// Where things are now, in widget coordinates. Empty for what doesn't exist.
  [[nodiscard]] QRect keyRect(int keyIndex) const;
  [[nodiscard]] QRect elementRect(const QString& name) const;
  [[nodiscard]] QRect knobRect() const;
  [[nodiscard]] QRect spareRect() const;

  /// The key that has the keyboard focus, or gets it when the panel gets it. -1 if there are no
  /// keys.
  [[nodiscard]] int focusKey() const;
  void setFocusKey(int keyIndex);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;

 signals:
  /// A key was pressed with the mouse or the keyboard. Space and Enter count as the left button.
  void keyPressed(int keyIndex, Qt::MouseButton button);
  /// The same key was released, wherever the pointer is by then.
  void keyReleased(int keyIndex, Qt::MouseButton button);
  /// A key was pressed and released. Not sent if the pointer has left the key before the release.
  void keyClicked(int keyIndex, Qt::MouseButton button);
  /// The knob is held: left turns down, right turns up.
  void knobPressed(Qt::MouseButton button);
  void knobReleased(Qt::MouseButton button);
  void displayDoubleClicked();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  struct Held;
  struct State;

  [[nodiscard]] QPointF toUnits(const QPointF& where) const;
  [[nodiscard]] int keyboardTarget() const;
  bool press(const QPointF& where, Qt::MouseButton button);
  void hold(int target, Qt::MouseButton button, bool byKeyboard);
  void release(Qt::MouseButton button, bool byKeyboard, int over);
  void releaseKey(int target, Qt::MouseButton button, bool click);
  void releaseAll();
  void setMark(int mark, bool lit);
  void setHoverKey(int keyIndex);
  void setFocusRing(bool shown);
  void updateKey(int keyIndex);
  void showTip(const QPoint& where, const QPoint& onScreen);
  void addAnnouncements();
  void announce();
  void tellReception();

  std::unique_ptr<State> state_;
  std::unique_ptr<PanelRenderer> renderer_;
};

}  // namespace tarnvex::desktop

#include "desktop/windows/panel_binding.h"

#include "desktop/ports/colour.h"
#include "desktop/ports/text.h"
#include "monitor/bc895_keypad.h"

namespace tarnvex::desktop {
namespace {

monitor::MouseButton buttonOf(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return monitor::MouseButton::Left;
    case Qt::RightButton:
      return monitor::MouseButton::Right;
    default:
      return monitor::MouseButton::Other;
  }
}

}  // namespace

PanelBinding::PanelBinding(RadioPanel& view, const monitor::PanelElements& elements,
                           const platform::Label& background)
    : view_(view) {
  for (const platform::Label* element : elements) {
    connections_.push_back(element->changed.follow([this, element] { show(*element); }));
  }
  connections_.push_back(background.changed.follow(
      [this, &background] { view_.setDisplayColour(toScreen(background.backColor())); }));
}

PanelBinding::PanelBinding(RadioPanel& view, shell::Form4& form, platform::EventGate& gate)
    : PanelBinding(view, form.panel.elements(), form.panel.Label1) {
  QObject::connect(
      &view, &RadioPanel::keyPressed, &view, [&gate, &form](int key, Qt::MouseButton button) {
        const auto press = [&form, key, which = buttonOf(button)] { form.pressKey(key, which); };
        if (monitor::Bc895Keypad::leaves(key, buttonOf(button))) {
          gate.enterLeaving(press);
        } else {
          gate.enter(press);
        }
      });
  QObject::connect(&view, &RadioPanel::displayDoubleClicked, &view,
                   [&gate, &form] { gate.enter([&form] { form.chooseDisplayColour(); }); });
  bindKnob(view, form, gate);
}

void PanelBinding::bindKnob(RadioPanel& view, shell::Form4& form, platform::EventGate& gate) {
  const auto knob = [&gate, &form](Qt::MouseButton button, void (shell::Form4::*act)(bool)) {
    if (button == Qt::LeftButton || button == Qt::RightButton) {
      gate.enter([&form, act, up = button == Qt::RightButton] { (form.*act)(up); });
    }
  };
  QObject::connect(&view, &RadioPanel::knobPressed, &view,
                   [knob](Qt::MouseButton button) { knob(button, &shell::Form4::pressKnob); });
  QObject::connect(&view, &RadioPanel::knobReleased, &view,
                   [knob](Qt::MouseButton button) { knob(button, &shell::Form4::releaseKnob); });
}

PanelBinding::PanelBinding(RadioPanel& view, shell::Form2& form, platform::EventGate& gate)
    : PanelBinding(view, form.panel.elements(), form.panel.Display) {
  const auto label = [&view](int key) { return view.layoutData().keys[key].control.toStdString(); };
  QObject::connect(&view, &RadioPanel::keyPressed, &view,
                   [&gate, &form, label](int key, Qt::MouseButton button) {
                     gate.enter([&form, name = label(key), which = buttonOf(button)] {
                       form.pressKey(name, which);
                     });
                   });
  QObject::connect(&view, &RadioPanel::keyClicked, &view,
                   [&gate, &form, label](int key, Qt::MouseButton button) {
                     if (button == Qt::LeftButton) {
                       gate.enter([&form, name = label(key)] { form.clickKey(name); });
                     }
                   });
}

void PanelBinding::follow(const link::LinkState& line) {
  connections_.push_back(line.changed.follow([this, &line] { view_.setLive(line.live()); }));
}

void PanelBinding::show(const platform::Label& element) {
  view_.setElement(QString::fromStdString(element.name()), lineToScreen(element.caption()),
                   element.visible());
}

}  // namespace tarnvex::desktop

// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QPainter>
#include <QTest>
#include <QtMath>

#include "agent/menu/menu_view.h"
#include "protocol/pairing_qr_payload.h"
#include "tools/pictures/scene.h"

namespace glintboard {
namespace {

constexpr Appearance light;
constexpr Appearance dark{.dark = true};
constexpr Appearance lightContrast{.increasedContrast = true};
constexpr Appearance darkContrast{.dark = true, .increasedContrast = true};
constexpr Appearance largeText{.textScale = 1.5};

constexpr int desktopFrame = 8;  // points around the popover's shadow
constexpr int tallEnough = 4096;
constexpr int settling = 250;  // milliseconds

QImage drawMenu(const MenuState& state, const Appearance& appearance) {
  MenuBarModel model([](MenuCommand) {});
  model.setState(state);
  MenuView view(model, MenuStyle::translucentPopover, appearance);
  // A coloured desktop makes the shadow and the translucency visible.
  const QColor desktop(appearance.dark ? 0x3A2A44 : 0xE9DCE8);
  view.setColor(desktop);
  view.open(std::nullopt);
  view.root().setProperty("maximumHeight", tallEnough);
  if (!QTest::qWaitForWindowExposed(&view)) {
    return {};
  }
  QTest::qWait(settling);
  checkTexts(view, {"482", "913", "Ann's iPhone"});
  QImage popover = view.grabWindow();
  // At a fractional scale factor the window may be one pixel larger than its content.
  const qreal ratio = view.devicePixelRatio();
  popover = popover.copy(0, 0, qFloor(view.width() * ratio), qFloor(view.height() * ratio));
  const int frame = qRound(desktopFrame * popover.devicePixelRatio());
  QImage picture(popover.size() + QSize(2 * frame, 2 * frame), QImage::Format_RGB32);
  picture.fill(desktop);
  QPainter painter(&picture);
  painter.drawImage(QRect({frame, frame}, popover.size()), popover);
  return picture;
}

// Builds the state when drawing, because it holds texts in the current language.
std::function<QImage(const Appearance&)> menu(MenuState (*state)()) {
  return [state](const Appearance& appearance) { return drawMenu(state(), appearance); };
}

QString translated(const char* text) {
  return QCoreApplication::translate("ListenerService", text);
}

MenuState unpaired() {
  const PairingQRPayload address{"Studio", "4d5f0b6e9a3c48d7a1f2e6b8c0937d15"};
  MenuState state;
  state.pairingQRString = QString::fromStdString(address.encodedURL().value_or(""));
  state.currentPIN = QStringLiteral("482913");
  state.status = ConnectionStatus::Ready;
  return state;
}

MenuState paired() {
  MenuState state = unpaired();
  state.section = PairingSection::PairedDevice;
  state.isPaired = true;
  state.pairingStatusText = QStringLiteral("Ann's iPhone");
  state.status = ConnectionStatus::Connected;
  return state;
}

MenuState showingCode() {
  MenuState state = paired();
  state.section = PairingSection::Code;
  state.isShowingPairingCode = true;
  return state;
}

MenuState locked() {
  MenuState state = unpaired();
  state.section = PairingSection::LockedOut;
  state.pairingStatusText = AgentViewModel::tr("Pairing locked \u2014 too many failed attempts");
  return state;
}

MenuState failed() {
  MenuState state = paired();
  state.status = ConnectionStatus::Failed;
  state.listenerError =
      translated("Port %1 is already in use. Quit the other Glintboard Agent first.").arg(9847);
  return state;
}

MenuState withHint() {
  MenuState state = paired();
  state.hint = translated(
      "Allow this Shortcut on your Mac (System Settings \u2192 Privacy & Security \u2192 "
      "Automation), then try again.");
  return state;
}

}  // namespace

std::vector<Scene> menuScenes() {
  return {
      {"menu-unpaired-light", 1, light, menu(unpaired)},
      {"menu-unpaired-dark", 1, dark, menu(unpaired)},
      {"menu-paired-light", 1, light, menu(paired)},
      {"menu-paired-dark", 1, dark, menu(paired)},
      {"menu-showing-code-light", 1, light, menu(showingCode)},
      {"menu-showing-code-dark", 1, dark, menu(showingCode)},
      {"menu-locked-light", 1, light, menu(locked)},
      {"menu-locked-dark", 1, dark, menu(locked)},
      {"menu-failed-light", 1, light, menu(failed)},
      {"menu-failed-dark", 1, dark, menu(failed)},
      {"menu-hint-light", 1, light, menu(withHint)},
      {"menu-hint-dark", 1, dark, menu(withHint)},
      {"menu-contrast-light", 1, lightContrast, menu(unpaired)},
      {"menu-contrast-dark", 1, darkContrast, menu(withHint)},
      {"menu-unpaired-dark@2x", 2, dark, menu(unpaired)},
      {"menu-unpaired-light@1.25x", 1.25, light, menu(unpaired)},
      {"menu-large-text", 1, largeText, menu(unpaired)},
      {"menu-large-failed", 1, largeText, menu(failed)},
      {"menu-large-hint", 1, largeText, menu(withHint)},
      {"menu-german", 1, dark, menu(unpaired), "de"},
      {"menu-japanese", 1, light, menu(unpaired), "ja"},
  };
}

}  // namespace glintboard

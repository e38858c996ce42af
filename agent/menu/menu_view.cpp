// SPDX-License-Identifier: MIT
#include "agent/menu/menu_view.h"

#include <QGuiApplication>
#include <QQmlComponent>
#include <QScreen>
#include <stdexcept>

#include "agent/menu/popover_placement.h"
#include "ui/qml_engine.h"

// Written by the build; a static library's module is known only after this call.
void qml_register_types_Glintboard_Agent();

namespace glintboard {
namespace {

constexpr int distanceToEdges = 8;

}  // namespace

MenuView::MenuView(MenuBarModel& model, MenuStyle style, const Appearance& appearance)
    : style_(style) {
  qml_register_types_Glintboard_Agent();
  prepareEngine(engine_, appearance);
  setTitle(MenuContent::title());
  setFlags(isPopover() ? Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                             Qt::NoDropShadowWindowHint
                       : Qt::Window);
  setColor(style == MenuStyle::translucentPopover ? QColor(Qt::transparent)
                                                  : themeOf(engine_).windowBottom());

  QQmlComponent component(&engine_, QUrl(QStringLiteral("qrc:/Glintboard/Agent/MenuBarView.qml")));
  root_.reset(qobject_cast<QQuickItem*>(component.createWithInitialProperties(
      {{QStringLiteral("menu"), QVariant::fromValue(&model)},
       {QStringLiteral("popover"), isPopover()},
       {QStringLiteral("translucent"), style == MenuStyle::translucentPopover}})));
  if (!root_) {
    throw std::runtime_error("the menu's view: " + component.errorString().toStdString());
  }
  root_->setParentItem(contentItem());
  connect(root_.get(), SIGNAL(shownHeightChanged()), this, SLOT(fit()));
  connect(root_.get(), SIGNAL(implicitWidthChanged()), this, SLOT(fit()));
  connect(root_.get(), SIGNAL(closeRequested()), this, SLOT(hide()));
  connect(this, &QWindow::activeChanged, this, [this] {
    // The loss that an earlier closing has caused may be told only now.
    if (isPopover() && isVisible() && !isActive() && hasHadFocus_) {
      Q_EMIT focusLost();
      hide();
    }
    hasHadFocus_ = isActive();
  });
}

MenuView::~MenuView() {
  disconnect(this, nullptr, nullptr, nullptr);
}

void MenuView::setAppearance(const Appearance& appearance) {
  Theme& look = themeOf(engine_);
  look.setAppearance(appearance);
  if (style_ != MenuStyle::translucentPopover) {
    setColor(look.windowBottom());
  }
}

void MenuView::open(std::optional<QPoint> anchor) {
  anchor_.reset();
  QScreen* place = QGuiApplication::primaryScreen();
  for (QScreen* const candidate : QGuiApplication::screens()) {
    if (anchor && !anchor_) {
      anchor_ = pointOnScreen(*anchor, candidate->geometry(), candidate->devicePixelRatio());
      place = anchor_ ? candidate : place;
    }
  }
  setScreen(place);
  const qreal shadows = 2 * root_->property("margin").toReal();
  root_->setProperty("maximumHeight",
                     place->availableGeometry().height() - 2 * distanceToEdges + shadows);
  hasHadFocus_ = false;
  root_->setProperty("settled", false);
  fit();
  root_->setProperty("settled", true);
  show();
  raise();
  requestActivate();
  root_->forceActiveFocus(Qt::PopupFocusReason);
}

// Makes the window as large as the view wants to be; a popover grows away from its panel.
void MenuView::fit() {
  const QSize size(qRound(root_->implicitWidth()), qRound(root_->property("shownHeight").toReal()));
  setMinimumSize(size);
  setMaximumSize(size);
  if (!isPopover()) {
    resize(size);
    return;
  }
  const int margin = qRound(root_->property("margin").toReal());
  const QMargins shadow(margin, margin, margin, margin);
  const QSize panel = size.shrunkBy(shadow);
  const QPoint place =
      popoverPosition(anchor_, panel, screen()->geometry(), screen()->availableGeometry());
  setGeometry(QRect(place, panel).marginsAdded(shadow));
}

// The window system may give another size than was wanted.
void MenuView::resizeEvent(QResizeEvent* event) {
  QQuickWindow::resizeEvent(event);
  root_->setSize(event->size());
}

bool MenuView::event(QEvent* event) {
  const bool handled = QQuickWindow::event(event);
  if (event->type() == QEvent::Hide) {
    Q_EMIT closed();
  }
  return handled;
}

}  // namespace glintboard

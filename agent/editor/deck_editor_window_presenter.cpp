// SPDX-License-Identifier: MIT
#include "agent/editor/deck_editor_window_presenter.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickView>
#include <QScreen>

#include "agent/editor/editor_icons.h"
#include "agent/editor/window_placement.h"
#include "platform/log.h"
#include "ui/qml_engine.h"

// Written by the build; a static library's module is known only after this call.
void qml_register_types_Glintboard_Editor();

namespace glintboard {
namespace {

constexpr QSize preferredSize{1120, 780};
constexpr QSize smallestSize{860, 600};

void place(QQuickView& window) {
  std::vector<ScreenArea> areas;
  const auto screens = QGuiApplication::screens();
  for (const auto* screen : screens) {
    areas.push_back({screen->geometry(), screen->availableGeometry()});
  }
  const auto own = static_cast<int>(screens.indexOf(window.screen()));
  const QRect geometry = centredWindow(preferredSize, QCursor::pos(), areas, own);
  window.setMinimumSize(smallestSize.boundedTo(geometry.size()));
  window.setGeometry(geometry);
}

}  // namespace

DeckEditorWindowPresenter::DeckEditorWindowPresenter(DeckEditorInputs inputs, Appearance appearance)
    : inputs_(std::move(inputs)), appearance_(appearance) {}

DeckEditorWindowPresenter::~DeckEditorWindowPresenter() {
  auto* const window = window_.data();
  forget();
  delete window;
}

void DeckEditorWindowPresenter::show() {
  if (window_ == nullptr) {
    open();
  }
  if (window_->windowStates().testFlag(Qt::WindowMinimized)) {
    window_->setWindowStates(window_->windowStates() & ~Qt::WindowMinimized);
  }
  window_->show();
  window_->raise();
  window_->requestActivate();
}

void DeckEditorWindowPresenter::close() {
  if (window_ != nullptr) {
    window_->close();
  }
}

void DeckEditorWindowPresenter::setAppearance(const Appearance& appearance) {
  appearance_ = appearance;
  if (window_ != nullptr) {
    themeOf(*window_->engine()).setAppearance(appearance_);
  }
}

void DeckEditorWindowPresenter::refreshLive() {
  if (model_) {
    model_->refreshLive();
  }
}

void DeckEditorWindowPresenter::open() {
  qml_register_types_Glintboard_Editor();
  model_ = DeckEditorModel::create(inputs_);
  window_ = new QQuickView;
  QQmlEngine& engine = *window_->engine();
  prepareEngine(engine, appearance_);
  engine.addImageProvider(QLatin1String(EditorIcons::providerName),
                          new EditorIconProvider(model_->icons()));
  // The views read the model until the last of them is gone.
  connect(window_, &QObject::destroyed, [model = model_] {});
  connect(model_.get(), &DeckEditorModel::closeRequested, window_, &QWindow::close,
          Qt::QueuedConnection);
  window_->installEventFilter(this);
  window_->setTitle(tr("Edit Deck"));
  window_->setResizeMode(QQuickView::SizeRootObjectToView);
  window_->setColor(themeOf(engine).windowBottom());
  place(*window_);
  window_->setInitialProperties({{QStringLiteral("editor"), QVariant::fromValue(model_.get())}});
  window_->setSource(QUrl(QStringLiteral("qrc:/Glintboard/Editor/DeckEditorView.qml")));
  for (const auto& error : window_->errors()) {
    log::warning("the editor's view: ", error.toString().toStdString());
  }
  model_->open();
}

bool DeckEditorWindowPresenter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Close && watched == window_) {
    auto* const window = window_.data();
    forget();
    // Not now: the window is handling this very event.
    window->deleteLater();
  }
  return QObject::eventFilter(watched, event);
}

void DeckEditorWindowPresenter::forget() {
  if (window_ != nullptr) {
    window_->removeEventFilter(this);
    window_ = nullptr;
  }
  if (model_) {
    model_->close();
    model_.reset();
  }
}

}  // namespace glintboard

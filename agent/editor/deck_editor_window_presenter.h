// SPDX-License-Identifier: MIT
// The window of the deck editor.
#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickView>
#include <memory>

#include "agent/editor/deck_editor_model.h"
#include "ui/design/appearance.h"

namespace glintboard {

// Shows one window at a time. Each window has its own editor model and QML engine, which are
// destroyed with it. A save under way is finished. Main thread only.
class DeckEditorWindowPresenter : public QObject {
  Q_OBJECT

 public:
  explicit DeckEditorWindowPresenter(DeckEditorInputs inputs, Appearance appearance = {});
  ~DeckEditorWindowPresenter() override;

  // Opens the window in the middle of the screen under the pointer, or brings the open one to the
  // front.
  void show();
  void close();
  // Applies to the open window and to later ones.
  void setAppearance(const Appearance& appearance);
  // Call it when a phone connects or disconnects: updates the open window.
  void refreshLive();

  // Null while no window is open.
  QQuickView* window() const { return window_; }
  std::shared_ptr<DeckEditorModel> model() const { return model_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void open();
  void forget();

  DeckEditorInputs inputs_;
  Appearance appearance_;
  QPointer<QQuickView> window_;
  std::shared_ptr<DeckEditorModel> model_;
};

}  // namespace glintboard

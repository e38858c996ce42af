// SPDX-License-Identifier: MIT
// The states of the deck editor.
#include <QDateTime>
#include <QQuickItem>
#include <QTest>

#include "tests/support/editor_stage.h"
#include "tools/pictures/scene.h"

namespace glintboard {
namespace {

using test::EditorStage;

struct Sample {
  const char* id;
  const char* name;
  const char* symbol;
  int hue;
};

// A typical desktop.
constexpr Sample samples[] = {
    {"calculator", "Calculator", "slider.horizontal.3", 30},
    {"calendar", "Calendar", "rectangle.grid.2x2", 10},
    {"camera", "Camera", "video.fill", 280},
    {"chat", "Chat", "bubble.left.and.bubble.right.fill", 265},
    {"code", "Code", "terminal.fill", 205},
    {"contacts", "Contacts", "message.fill", 140},
    {"files", "Files", "folder.fill", 215},
    {"help", "Help and Documentation for Everyone", "questionmark", 190},
    {"maps", "Maps", "safari.fill", 120},
    {"mail", "Mail", "message.fill", 200},
    {"mixer", "Mixer", "speaker.wave.3.fill", 330},
    {"movies", "Movies", "play.tv.fill", 0},
    {"music", "Music", "music.note", 345},
    {"network", "Network", "globe", 180},
    {"notes", "Notes", "pencil", 45},
    {"passwords", "Passwords", "lock.fill", 225},
    {"player", "Player", "music.note.list", 300},
    {"preferences", "Preferences", "gearshape.fill", 240},
    {"radio", "Radio", "waveform", 165},
    {"recorder", "Recorder", "mic.fill", 355},
    {"screens", "Screens", "desktopcomputer", 210},
    {"studio", "Studio", "video.fill", 270},
    {"terminal", "Terminal", "terminal.fill", 150},
    {"web", "Web", "globe", 220},
};

DeckTile appTile(const char* id, const char* name) {
  return DeckTile::app(0, name, id);
}

DeckTile shortcutTile(const char* name, const char* id) {
  return DeckTile::shortcut(0, name, id, std::string(DeckTile::shortcutSymbolName));
}

void furnish(EditorStage& stage) {
  for (const auto& [id, name, symbol, hue] : samples) {
    stage.app(id, name, QString::fromLatin1(symbol), hue);
  }
  stage.listShortcuts(std::string("echo 'Brew tea (") + EditorStage::briefId +
                      ")'; echo 'Tidy the desk (" + EditorStage::tidyId +
                      ")'; echo 'Good morning (C0000000-0000-0000-0000-00000000000C)'; "
                      "echo 'Glintboard \u2014 Voice in Cursor "
                      "(D0000000-0000-0000-0000-00000000000D)'");
  stage.shortcutIcon(EditorStage::briefId, QStringLiteral("waveform"), 25);
  stage.shortcutIcon(EditorStage::tidyId, QStringLiteral("rectangle.grid.2x2"), 190);
}

std::vector<DeckTile> usualTiles() {
  return {appTile("studio", "Studio"),
          appTile("chat", "Chat"),
          appTile("web", "Web"),
          appTile("music", "Music"),
          appTile("camera", "Camera"),
          appTile("terminal", "Terminal"),
          DeckTile::action(0, BuiltinAction::volumeDown),
          DeckTile::action(0, BuiltinAction::volumeUp),
          shortcutTile("Brew tea", EditorStage::briefId),
          appTile("files", "Files")};
}

void usual(EditorStage& stage) {
  furnish(stage);
  stage.deck(DeckCategoryID::streaming, "On Air", usualTiles());
  stage.running = {"studio", "music"};
  stage.phone = true;
}

void full(EditorStage& stage) {
  furnish(stage);
  std::vector<DeckTile> tiles = {DeckTile::action(0, BuiltinAction::volumeDown),
                                 DeckTile::action(0, BuiltinAction::volumeUp),
                                 DeckTile::action(0, BuiltinAction::volumeMute),
                                 shortcutTile("Brew tea", EditorStage::briefId)};
  // More cards than the deck has slots.
  for (std::size_t i = 0; tiles.size() < deckCapacity; ++i) {
    if (i % 6 != 1) {
      tiles.push_back(appTile(samples[i].id, samples[i].name));
    }
  }
  stage.deck(DeckCategoryID::streaming, "Everything", tiles);
  stage.phone = true;
}

void game(EditorStage& stage) {
  furnish(stage);
  stage.deck(DeckCategoryID::gaming, "Game Night",
             {appTile("chat", "Chat"), appTile("player", "Player"),
              shortcutTile("Lights off", "E0000000-0000-0000-0000-00000000000E")});
  stage.phone = true;
}

void almostEmpty(EditorStage& stage) {
  usual(stage);
  stage.deck(DeckCategoryID::streaming, "On Air", {appTile("studio", "Studio")});
}

void failing(EditorStage& stage) {
  usual(stage);
  stage.listShortcuts("echo 'no answer from the helper' >&2; exit 1");
}

void withoutShortcuts(EditorStage& stage) {
  almostEmpty(stage);
  stage.listShortcuts("true");
}

QPoint centreOf(EditorStage& stage, const QString& name, QPointF inside = {-1, -1}) {
  auto* item = stage.presenter->window()->rootObject()->findChild<QQuickItem*>(name);
  const QPointF point = inside.x() < 0 ? QPointF(item->width() / 2, item->height() / 2) : inside;
  return item->mapToScene(point).toPoint();
}

// Drags the third card of the first row over a key of the phone.
void drag(EditorStage& stage) {
  auto* window = stage.presenter->window();
  const QPoint from = centreOf(stage, QStringLiteral("page-apps"), {230, 60});
  const QPoint to = centreOf(stage, QStringLiteral("phone"), {120, 130});
  QTest::mousePress(window, Qt::LeftButton, {}, from);
  for (int step = 1; step <= 20; ++step) {
    QTest::mouseMove(window, from + (to - from) * step / 20);
    stage.turnFor(10);
  }
  stage.turnFor(500);
}

void showTab(EditorStage& stage, const char* tab) {
  stage.presenter->model()->setLibraryTab(QString::fromLatin1(tab));
}

// The user's texts, and the letters that stand for icons.
QStringList ownTexts() {
  QStringList own{"Brew tea",   "Tidy the desk", "Good morning",
                  "Lights off", "On Air",        "Streaming",
                  "Everything", "Game Night",    "Vol \u2212",
                  "Vol +",      "Mute",          "Glintboard \u2014 Voice in Cursor"};
  for (const auto& sample : samples) {
    own += {QString::fromLatin1(sample.name), QString(QLatin1Char(*sample.name))};
  }
  return own;
}

using Step = std::function<void(EditorStage&)>;

void nothing(EditorStage& /*stage*/) {}

// `prepare` runs before the window opens, `act` after everything has loaded.
std::function<QImage(const Appearance&)> drawn(Step prepare, Step act = nothing,
                                               QSize size = {1120, 780}) {
  return [=](const Appearance& appearance) {
    EditorStage stage;
    prepare(stage);
    stage.open(appearance);
    auto* window = stage.presenter->window();
    // The offscreen display is smaller than the window.
    window->setMinimumSize({});
    window->setGeometry({QPoint(0, 0), size});
    test::turnUntil([&] { return stage.isLoaded(); });
    EditorStage::turnFor(300);
    act(stage);
    test::turnUntil([&] { return stage.isLoaded(); });
    EditorStage::turnFor(600);
    checkTexts(*window, ownTexts());
    return window->grabWindow();
  };
}

void showGaming(EditorStage& stage) {
  stage.presenter->model()->setSelectedCategory(QStringLiteral("gaming"));
}

void showActions(EditorStage& stage) {
  showTab(stage, "actions");
}

void showShortcuts(EditorStage& stage) {
  showTab(stage, "shortcuts");
}

void edit(EditorStage& stage) {
  auto model = stage.presenter->model();
  model->remove(1);
  model->addApp(QStringLiteral("mixer"));
  model->addApp(QStringLiteral("mixer"));
}

void addShortcut(EditorStage& stage) {
  showShortcuts(stage);
  stage.presenter->model()->addShortcut(QString::fromLatin1(EditorStage::tidyId));
}

void searchInVain(EditorStage& stage) {
  stage.presenter->model()->setSearchText(QStringLiteral("zzz"));
}

void useKeyboard(EditorStage& stage) {
  auto* window = stage.presenter->window();
  auto* phone = window->rootObject()->findChild<QQuickItem*>(QStringLiteral("phone"));
  phone->forceActiveFocus(Qt::TabFocusReason);
  QTest::keyClick(window, Qt::Key_Right);
}

void openCategories(EditorStage& stage) {
  auto* window = stage.presenter->window();
  QTest::mouseClick(window, Qt::LeftButton, {}, centreOf(stage, QStringLiteral("category")));
}

// A draft of today or of an earlier day.
void keepDraft(EditorStage& stage, bool isOfToday) {
  usual(stage);
  auto tiles = usualTiles();
  const DeckTemplate base("streaming", isOfToday ? "On Air" : "Off Air",
                          DeckEdits::renumbered(usualTiles()));
  tiles.push_back(appTile("mixer", "Mixer"));
  const QDateTime made(isOfToday ? QDate::currentDate() : QDate(2026, 11, 20), QTime(14, 2));
  stage.drafts.keep(
      DeckCategoryID::streaming,
      DeckDraft{{"streaming", "On Air", DeckEdits::renumbered(tiles)},
                base,
                {std::chrono::sys_seconds(std::chrono::seconds(made.toSecsSinceEpoch()))}});
}

void withDraft(EditorStage& stage) {
  keepDraft(stage, true);
}

void withOutdatedDraft(EditorStage& stage) {
  keepDraft(stage, false);
}

// The built-in deck has no installed application here.
void reset(EditorStage& stage) {
  auto model = stage.presenter->model();
  model->reset();
  test::turnUntil([&] { return !model->isResetting(); });
  EditorStage::turnFor(300);
}

void undoReset(EditorStage& stage) {
  reset(stage);
  auto model = stage.presenter->model();
  model->undo();
  test::turnUntil([&] { return !model->isResetting(); });
}

void emptyDeck(EditorStage& stage) {
  furnish(stage);
  stage.deck(DeckCategoryID::streaming, "On Air", {});
}

}  // namespace

std::vector<Scene> editorScenes() {
  constexpr Appearance light{};
  constexpr Appearance dark{.dark = true};
  constexpr Appearance contrast{.dark = true, .increasedContrast = true};
  constexpr Appearance still{.reducedMotion = true};
  constexpr Appearance large{.textScale = 1.5};
  constexpr QSize narrow{860, 600};
  return {
      {"editor-light", 1, light, drawn(usual)},
      {"editor-dark", 1, dark, drawn(usual)},
      {"editor-gaming-light", 1, light, drawn(game, showGaming)},
      {"editor-gaming-dark", 1, dark, drawn(game, showGaming)},
      {"editor-full", 1, dark, drawn(full)},
      {"editor-empty", 1, dark, drawn(emptyDeck)},
      {"editor-unsaved", 1, light, drawn(usual, edit)},
      {"editor-draft-light", 1, light, drawn(withDraft)},
      {"editor-draft-dark", 1, dark, drawn(withOutdatedDraft)},
      {"editor-draft-contrast", 1, contrast, drawn(withDraft)},
      {"editor-reset-light", 1, light, drawn(usual, reset)},
      {"editor-reset-undone-light", 1, light, drawn(usual, undoReset)},
      {"editor-reset-undone-dark", 1, dark, drawn(usual, undoReset)},
      {"editor-drag-light", 1, light, drawn(usual, drag)},
      {"editor-drag-dark", 1, dark, drawn(usual, drag)},
      {"editor-actions", 1, light, drawn(usual, showActions)},
      {"editor-shortcuts", 1, dark, drawn(usual, showShortcuts)},
      {"editor-shortcuts-empty", 1, light, drawn(withoutShortcuts, showShortcuts)},
      {"editor-shortcuts-failed", 1, dark, drawn(failing, showShortcuts)},
      {"editor-first-shortcut", 1, light, drawn(almostEmpty, addShortcut)},
      {"editor-search", 1, light, drawn(usual, searchInVain)},
      {"editor-categories", 1, light, drawn(usual, openCategories)},
      {"editor-keyboard", 1, light, drawn(usual, useKeyboard)},
      {"editor-narrow-light", 1, light, drawn(usual, nothing, narrow)},
      {"editor-narrow-dark", 1, dark, drawn(full, nothing, narrow)},
      {"editor-contrast", 1, contrast, drawn(usual)},
      {"editor-reduced-motion", 1, still, drawn(usual, drag)},
      {"editor-large-text", 1, large, drawn(usual)},
      {"editor-200", 2, light, drawn(usual)},
      {"editor-large-narrow", 1, large, drawn(almostEmpty, addShortcut, narrow)},
      {"editor-large-draft", 1, large, drawn(withOutdatedDraft)},
      {"editor-large-narrow-draft", 1, large, drawn(withOutdatedDraft, nothing, narrow)},
      {"editor-large-reset-undone", 1, large, drawn(usual, undoReset)},
      {"editor-large-failed", 1, large, drawn(failing, showShortcuts)},
      {"editor-german", 1, light, drawn(usual), "de"},
      {"editor-german-draft", 1, light, drawn(withOutdatedDraft, nothing, narrow), "de"},
      {"editor-japanese", 1, dark, drawn(usual), "ja"},
  };
}

}  // namespace glintboard

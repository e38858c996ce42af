#include "tools/screenshots/editor_scenes.h"

#include <QQuickItem>
#include <QTest>

namespace glintboard::screenshots {
namespace {

using test::EditorStage;

struct Sample {
  const char* id;
  const char* name;
  const char* symbol;
  int hue;
};

// A desktop as anybody might have one.
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

std::string appTile(int slot, const char* id, const char* name) {
  std::string tile = R"({"slot":)";
  tile.append(std::to_string(slot)).append(R"(,"label":")").append(name);
  return tile.append(R"(","bundleId":")").append(id).append(R"("})");
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

std::string usualTiles() {
  return appTile(1, "studio", "Studio") + "," + appTile(2, "chat", "Chat") + "," +
         appTile(3, "web", "Web") + "," + appTile(4, "music", "Music") + "," +
         appTile(5, "camera", "Camera") + "," + appTile(6, "terminal", "Terminal") + "," +
         R"({"slot":7,"kind":"action","id":"system.volume.down","label":"Vol −","actionId":"system.volume.down","iconSymbol":"speaker.wave.1.fill"},)"
         R"({"slot":8,"kind":"action","id":"system.volume.up","label":"Vol +","actionId":"system.volume.up","iconSymbol":"speaker.wave.3.fill"},)" +
         R"({"slot":9,"kind":"shortcut","label":"Brew tea","shortcutIdentifier":")" +
         EditorStage::briefId + R"("},)" + appTile(10, "files", "Files");
}

void usual(EditorStage& stage) {
  furnish(stage);
  stage.deck("streaming", "On Air", usualTiles());
  stage.running = {"studio", "music"};
  stage.phone = true;
}

void full(EditorStage& stage) {
  furnish(stage);
  std::string tiles;
  int slot = 1;
  for (const auto& [id, name, symbol, hue] : samples) {
    tiles.append(slot > 1 ? "," : "").append(appTile(slot, id, name));
    ++slot;
  }
  stage.deck("streaming", "Everything", tiles);
  stage.phone = true;
}

void game(EditorStage& stage) {
  furnish(stage);
  stage.deck(
      "gaming", "Game Night",
      appTile(1, "chat", "Chat") + "," + appTile(2, "player", "Player") + "," +
          R"({"slot":3,"kind":"shortcut","label":"Lights off","shortcutIdentifier":"E0000000-0000-0000-0000-00000000000E"})");
  stage.phone = true;
}

void failing(EditorStage& stage) {
  usual(stage);
  stage.listShortcuts("echo 'no answer from the helper' >&2; exit 1");
}

void withoutShortcuts(EditorStage& stage) {
  usual(stage);
  stage.deck("streaming", "On Air", appTile(1, "studio", "Studio"));
  stage.listShortcuts("true");
}

QPoint centreOf(EditorStage& stage, const QString& name, QPointF inside = {-1, -1}) {
  auto* item = stage.presenter->window()->rootObject()->findChild<QQuickItem*>(name);
  const QPointF point = inside.x() < 0 ? QPointF(item->width() / 2, item->height() / 2) : inside;
  return item->mapToScene(point).toPoint();
}

// A press on the third card of the first row, and the pointer over a key of the phone.
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

}  // namespace

std::vector<EditorScene> editorScenes() {
  constexpr Appearance light{};
  constexpr Appearance dark{.dark = true};
  const auto shortcuts = [](EditorStage& stage) { showTab(stage, "shortcuts"); };
  const auto edited = [](EditorStage& stage) {
    stage.presenter->model()->remove(1);
    stage.presenter->model()->addApp(QStringLiteral("mixer"));
    stage.presenter->model()->addApp(QStringLiteral("mixer"));
  };
  const auto first = [](EditorStage& stage) {
    showTab(stage, "shortcuts");
    stage.presenter->model()->addShortcut(QString::fromLatin1(EditorStage::tidyId));
  };
  const auto keyboard = [](EditorStage& stage) {
    auto* window = stage.presenter->window();
    window->rootObject()
        ->findChild<QQuickItem*>(QStringLiteral("phone"))
        ->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(window, Qt::Key_Right);
  };
  return {
      {"editor-light", light, {1120, 780}, usual},
      {"editor-dark", dark, {1120, 780}, usual},
      {"editor-gaming-light",
       light,
       {1120, 780},
       game,
       [](EditorStage& stage) { stage.presenter->model()->setSelectedCategory("gaming"); }},
      {"editor-gaming-dark",
       dark,
       {1120, 780},
       game,
       [](EditorStage& stage) { stage.presenter->model()->setSelectedCategory("gaming"); }},
      {"editor-full", dark, {1120, 780}, full},
      {"editor-unsaved", light, {1120, 780}, usual, edited},
      {"editor-drag-light", light, {1120, 780}, usual, drag},
      {"editor-drag-dark", dark, {1120, 780}, usual, drag},
      {"editor-actions",
       light,
       {1120, 780},
       usual,
       [](EditorStage& stage) { showTab(stage, "actions"); }},
      {"editor-shortcuts", dark, {1120, 780}, usual, shortcuts},
      {"editor-shortcuts-empty", light, {1120, 780}, withoutShortcuts, shortcuts},
      {"editor-shortcuts-failed", dark, {1120, 780}, failing, shortcuts},
      {"editor-first-shortcut",
       light,
       {1120, 780},
       [](EditorStage& stage) {
         usual(stage);
         stage.deck("streaming", "On Air", appTile(1, "studio", "Studio"));
       },
       first},
      {"editor-empty-deck",
       dark,
       {1120, 780},
       [](EditorStage& stage) {
         furnish(stage);
         stage.deck("streaming", "On Air", "");
       }},
      {"editor-search",
       light,
       {1120, 780},
       usual,
       [](EditorStage& stage) { stage.presenter->model()->setSearchText("zzz"); }},
      {"editor-keyboard", light, {1120, 780}, usual, keyboard},
      {"editor-narrow", light, {860, 600}, usual},
      {"editor-narrow-dark", dark, {860, 600}, full},
      {"editor-200", light, {1120, 780}, usual, [](EditorStage&) {}, 2},
      {"editor-contrast", {.dark = true, .increasedContrast = true}, {1120, 780}, usual},
      {"editor-reduced-motion", {.reducedMotion = true}, {1120, 780}, usual, drag},
      {"editor-large-text", {.textScale = 1.5}, {1120, 780}, usual},
  };
}

}  // namespace glintboard::screenshots

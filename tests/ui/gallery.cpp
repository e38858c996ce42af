// Draws the gallery pages in both appearances: glintboard-ui-gallery FOLDER [SCALE].
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include "ui/design/symbols.h"
#include "ui/qml_engine.h"

namespace {

using namespace glintboard;

constexpr const char* controls = R"(
Rectangle {
  width: 680; height: 520
  gradient: Gradient {
    GradientStop { position: 0; color: Look.windowTop }
    GradientStop { position: 1; color: Look.windowBottom }
  }
  GlassPanel {
    x: 24; y: 24; width: 300; height: 472; raised: true
    Column {
      x: 16; y: 16; width: 268; spacing: 12
      Text { text: "Glintboard Agent"; font: Look.fonts.ui(Look.Headline, Look.Semibold); color: Look.text }
      Text { text: "STREAMING"; font: Look.fonts.hero(Look.Title); color: Look.text }
      Text { text: Look.teachingCaption; font: Look.fonts.handCaption(Look.Title3); color: Look.accent }
      Text { text: "482 913"; font: Look.fonts.mono(Look.Title2, Look.Semibold); color: Look.text }
      Text { text: "Scan with iPhone"; font: Look.fonts.ui(Look.Footnote); color: Look.secondaryText }
      Row { spacing: 8; PillButton { text: "Cancel" }
        PillButton { id: first; kind: PillButton.Primary; text: "Save to iPhone" } }
      Row { spacing: 8; PillButton { text: "Add"; symbolName: "plus" }
        PillButton { kind: PillButton.Primary; text: "Save to iPhone"; busy: true } }
      GlintTextField { width: parent.width; symbolName: "magnifyingglass"; placeholderText: "Search installed apps" }
      Divider { width: parent.width }
      Column { width: parent.width
        MenuRowButton { width: parent.width; text: "Edit Deck"; symbolName: "pencil" }
        MenuRowButton { width: parent.width; text: "Unpair iPhone"; symbolName: "personalhotspot.slash"; destructive: true }
        MenuRowButton { width: parent.width; text: "Quit"; symbolName: "power"; shortcutText: "Ctrl+Q" } }
    }
  }
  Grid {
    x: 348; y: 24; columns: 8; spacing: 12
    Repeater { model: symbolNames
      Symbol { required property string modelData; name: modelData; color: Look.text; size: 28 } }
  }
  Spinner { x: 348; y: 300; size: 32; color: Look.accent }
  Row { x: 348; y: 360; spacing: 12
    Repeater { model: [Look.success, Look.warning, Look.dangerVivid, Look.inactive, Look.accent]
      Rectangle { required property color modelData; width: 24; height: 24; radius: 12; color: modelData } } }
  Component.onCompleted: first.forceActiveFocus(Qt.TabFocusReason)
  property var symbolNames
})";

bool grab(const char* source, const Appearance& appearance, const QVariantMap& properties,
          const QString& file) {
  QQmlEngine engine;
  prepareEngine(engine, appearance);
  QQmlComponent component(&engine);
  component.setData(QByteArray("import QtQuick\nimport Glintboard.UI\n") + source,
                    QUrl("qrc:/Gallery.qml"));
  QQuickWindow window;
  const std::unique_ptr<QQuickItem> root(
      qobject_cast<QQuickItem*>(component.createWithInitialProperties(properties)));
  if (!root) {
    qWarning("%s", qPrintable(component.errorString()));
    return false;
  }
  root->setParentItem(window.contentItem());
  window.resize(root->size().toSize());
  window.show();
  QTest::qWait(400);
  return window.grabWindow().save(file);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    qWarning("usage: glintboard-ui-gallery FOLDER [SCALE]");
    return 2;
  }
  const QString folder = argv[1];
  const QByteArray scale = argc > 2 ? argv[2] : "1";
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  qputenv("QT_SCALE_FACTOR", scale);
  const QGuiApplication application(argc, argv);
  bool good = true;
  for (const bool dark : {false, true}) {
    const QString end = QString(dark ? "-dark" : "-light") + "@" + scale + "x.png";
    good = grab(controls, {dark, false, false, 1}, {{"symbolNames", Symbols::names()}},
                folder + "/controls" + end) &&
           good;
  }
  return good ? 0 : 1;
}

// SPDX-License-Identifier: MIT
// Microbenchmarks: codec, decks file, deck filter, lookups.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>

#include "agent/decks/deck_store.h"
#include "platform/linux/linux_applications.h"
#include "protocol/deck_template_filter.h"
#include "protocol/message_factory.h"
#include "protocol/wire_codec.h"
#include "protocol/wire_message_parser.h"
#include "tests/platform/desktop_folders.h"
#include "tests/support/await.h"

namespace {

using namespace glintboard;

constexpr int keys = 24;

std::string bundleId(int number) {
  return "org.example.Application" + std::to_string(number);
}

DeckTemplate deck(const std::string& id, int first) {
  std::vector<DeckTile> tiles;
  for (int i = 0; i < keys; ++i) {
    tiles.push_back(
        DeckTile::app(i + 1, "Application " + std::to_string(first + i), bundleId(first + i)));
  }
  return {id, id, std::move(tiles)};
}

DecksFile decksFile() {
  return {1, {deck("streaming", 0), deck("gaming", keys)}};
}

const auto installed = [](const std::string&) { return true; };
const auto running = [](const std::string& id) { return id.ends_with('3'); };

DecksSnapshotPayload snapshots() {
  DecksSnapshotPayload payload;
  for (const auto& each : decksFile().decks) {
    payload.decks.push_back(DeckTemplateFilter::snapshot(each, installed, running));
    for (const auto& tile : each.tiles) {
      payload.decks.back().iconRevisions[tile.bundleId] = std::string(64, 'a');
    }
  }
  return payload;
}

template <class Message>
void encode(benchmark::State& state, const Message& message) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(WireCodec::encodeString(message));
  }
}

template <class Message>
void decode(benchmark::State& state, const Message& message) {
  const std::string text = WireCodec::encode(message);
  for (auto _ : state) {
    benchmark::DoNotOptimize(WireCodec::decode<decltype(message.payload)>(text));
  }
}

template <class Message>
void parse(benchmark::State& state, const Message& message) {
  const std::string text = WireCodec::encode(message);
  for (auto _ : state) {
    benchmark::DoNotOptimize(WireMessageParser::parse(text));
  }
}

template <class Message>
void registerMessage(const Message& message) {
  const auto add = [&](const char* what, auto function) {
    benchmark::RegisterBenchmark((what + message.type).c_str(),
                                 [=](benchmark::State& state) { function(state, message); });
  };
  add("encode/", [](auto& state, const auto& each) { encode(state, each); });
  add("decode/", [](auto& state, const auto& each) { decode(state, each); });
}

// As the listener does: the envelope, then the payload of its type.
template <class Message>
void registerRequest(const Message& message) {
  registerMessage(message);
  benchmark::RegisterBenchmark(("parse/" + message.type).c_str(),
                               [=](benchmark::State& state) { parse(state, message); });
}

void registerMessages() {
  using namespace MessageFactory;
  const Uuid id = randomUuid();
  const auto now = WireDate::now();
  const std::string text = "A text for the user";
  std::vector<std::string> all;
  for (int i = 0; i < keys; ++i) {
    all.push_back(bundleId(i));
  }
  const auto decks = snapshots();
  registerRequest(pairRequest(PairingMethod::pin, "123456", "Phone", id, id));
  registerRequest(deckSync(id));
  registerRequest(ping(now, id));
  registerRequest(appLaunch(bundleId(1), id));
  registerRequest(appFocus(bundleId(1), id));
  registerRequest(actionRun("system.volume.up", id));
  registerRequest(shortcutRun(uuidText(id), "Label", id));
  registerRequest(appIconRequest(all, id));
  registerMessage(pairOK(uuidText(id), id));
  registerMessage(pairFail(PairingFailureReason::invalidPIN, text, id));
  const auto& first = decks.decks.front();
  registerMessage(deckSnapshot(first.deckId, first.name, first.tiles, first.runningBundleIds,
                               first.iconRevisions, id));
  registerMessage(decksSnapshot(decks.decks, id));
  registerMessage(appOK(bundleId(1), id));
  registerMessage(appError(bundleId(1), AppErrorCode::notFound, text, id));
  registerMessage(pong(now, 0.01, std::vector(all.begin(), all.begin() + 4), id));
  registerMessage(appIcon(bundleId(1), std::string(64, 'a'), std::string(8000, 'A'), id));
  registerMessage(actionOK("system.volume.up", id));
  registerMessage(actionError("system.volume.up", ActionErrorCode::failed, text, id));
  registerMessage(shortcutOK(uuidText(id), id));
  registerMessage(shortcutError(uuidText(id), ShortcutErrorCode::timedOut, text, id));
}

void filter(benchmark::State& state) {
  const auto streaming = deck("streaming", 0);
  for (auto _ : state) {
    benchmark::DoNotOptimize(DeckTemplateFilter::snapshot(streaming, installed, running));
  }
}
BENCHMARK(filter);

// Installs that many desktop entries, the first 48 of which are on the decks.
struct Desktop {
  explicit Desktop(int applications) {
    QImage icon(128, 128, QImage::Format_ARGB32);
    icon.fill(Qt::red);
    icon.save(QString::fromStdString(folders.root.write("icon.png", "").string()));
    for (int i = 0; i < applications; ++i) {
      folders.entry("system/applications/" + bundleId(i) + ".desktop",
                    "Exec=true\nIcon=" + (folders.root / "icon.png").string() + "\n");
    }
    live.emplace(executors, folders.folders);
    workspace = live->workspaceClient();
    const auto path = folders.root / "decks.json";
    writeDecksFile(path, decksFile());
    store.emplace(executors.service(), executors.workers(), path);
    icons.emplace(executors.workerStrand(), live->iconClient());
    shortcutIcons.emplace(
        executors.workerStrand(),
        ShortcutIconClient{[](const std::string&) { return std::nullopt; },
                           [] { return std::vector<ShortcutIconClient::Icon>(); }});
  }

  test::DesktopFolders folders;
  Executors executors;
  std::optional<LinuxApplications> live;
  WorkspaceClient workspace;
  std::optional<DeckStore> store;
  std::optional<AppIconProvider> icons;
  std::optional<ShortcutIconProvider> shortcutIcons;
};

void readDecksFile(benchmark::State& state) {
  const Desktop desktop(0);
  DecksReader reader(desktop.store->storageURL());
  for (auto _ : state) {
    benchmark::DoNotOptimize(reader.read());
  }
}
BENCHMARK(readDecksFile);

// Runs the operations on the service loop, so that the switch to its thread is not measured.
template <class Operation>
Awaitable<> repeat(benchmark::State& state, Operation operation) {
  for (auto _ : state) {
    auto once = operation();
    benchmark::DoNotOptimize(co_await std::move(once));
  }
}

void runningDeckBundleIds(benchmark::State& state) {
  Desktop desktop(static_cast<int>(state.range(0)));
  test::await(desktop.executors.service(), repeat(state, [&] {
                return desktop.store->runningDeckBundleIds(desktop.workspace);
              }));
}
BENCHMARK(runningDeckBundleIds)->Arg(60)->Arg(600);

void deckSnapshots(benchmark::State& state) {
  Desktop desktop(static_cast<int>(state.range(0)));
  test::await(desktop.executors.service(), repeat(state, [&] {
                return desktop.store->deckSnapshots(desktop.workspace, *desktop.icons,
                                                    *desktop.shortcutIcons);
              }));
}
BENCHMARK(deckSnapshots)->Arg(60)->Arg(600)->UseRealTime();

void iconLookUp(benchmark::State& state) {
  Desktop desktop(static_cast<int>(state.range(0)));
  test::await(desktop.icons->executor(), repeat(state, [&] {
                return desktop.icons->pngAndRevision(bundleId(1), desktop.workspace);
              }));
}
BENCHMARK(iconLookUp)->Arg(60)->Arg(600)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  registerMessages();
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}

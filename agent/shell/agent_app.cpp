#include "agent/shell/agent_app.h"

#include <signal.h>
#include <unistd.h>

#include <QGuiApplication>
#include <boost/asio/signal_set.hpp>
#include <cstdlib>
#include <thread>

#include "agent/connection/single_instance_guard.h"
#include "agent/pairing/keychain_paired_device_store.h"
#include "agent/shell/agent_view_model.h"
#include "agent/shell/text_menu.h"
#include "platform/live.h"
#include "platform/log.h"
#include "platform/main_thread.h"
#include "platform/spawn.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

// A successor kills after 100 ms whoever it has asked to end.
constexpr auto stopDeadline = 70ms;

AgentEnvironment environment(Executors& executors, LivePlatform& platform) {
  return {executors,
          platform.workspaceClient(),
          platform.applicationIconClient(),
          platform.shortcutIconClient(),
          platform.processRunner(),
          platform.audioOutput(),
          platform.keychain(),
          platform.bonjourAdvertiser(),
          [&platform] { return platform.localizedName(); },
          [&platform](bool connected) { platform.watchRunningApplications(connected); }};
}

// The application: everything that lives until the process ends. It ends without running any
// destructor, since a worker may hang in one of them.
class AgentApp {
 public:
  AgentApp()
      : platform_(executors_, pairedDevicesMergeRule()),
        deckStore_(executors_.service(), executors_.workers()),
        viewModel_(mainThread_.executor(), environment(executors_, platform_), deckStore_),
        menu_(viewModel_, STDIN_FILENO, STDOUT_FILENO, [this] { stop(); }) {
    spawn(executors_.service(), obeySignals(this), "signals");
  }

 private:
  static Awaitable<> obeySignals(AgentApp* app) {
    asio::signal_set signals(co_await asio::this_coro::executor, SIGTERM, SIGINT, SIGHUP);
    signals.add(SIGUSR1);
    for (;;) {
      const int signal = co_await signals.async_wait(asio::use_awaitable);
      if (signal == SIGUSR1) {
        spawn(app->executors_.service(),
              app->viewModel_.services().listenerService().pushDecksSnapshot(), "push");
      } else {
        app->stop();
      }
    }
  }

  // Leaves in order where that goes quickly, and in any case before the deadline.
  void stop() {
    std::thread([] {
      std::this_thread::sleep_for(stopDeadline);
      std::_Exit(EXIT_SUCCESS);
    }).detach();
    spawn(executors_.service(), leave(this), "stopping");
  }

  static Awaitable<> leave(AgentApp* app) {
    co_await app->viewModel_.services().listenerService().shutDown();
    co_await app->deckStore_.finishChanges();
    std::_Exit(EXIT_SUCCESS);
  }

  MainThread mainThread_;
  Executors executors_;
  LivePlatform platform_;
  DeckStore deckStore_;
  AgentViewModel viewModel_;
  TextMenu menu_;
};

}  // namespace

int runAgent(int argc, char** argv) {
  ::signal(SIGPIPE, SIG_IGN);
  // Without windows there is no display to find.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QCoreApplication::setApplicationName(QStringLiteral("glintboard-agent"));
  const QGuiApplication application(argc, argv);
  try {
    const auto instances = liveAgentInstances();
    if (!SingleInstanceGuard::enforce(*instances)) {
      log::info("a younger agent is running; this one ends");
      return EXIT_SUCCESS;
    }
    // Never destroyed: see AgentApp.
    [[maybe_unused]] auto* const app = new AgentApp;
    return QGuiApplication::exec();
  } catch (const std::exception& error) {
    log::write("error", error.what());
    return EXIT_FAILURE;
  }
}

}  // namespace glintboard

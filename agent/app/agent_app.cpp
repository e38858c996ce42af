// SPDX-License-Identifier: MIT
#include "agent/app/agent_app.h"

#include <signal.h>
#include <unistd.h>

#include <QGuiApplication>
#include <QQuickWindow>
#include <QSessionManager>
#include <QWindow>
#include <array>
#include <boost/asio/signal_set.hpp>
#include <cstdlib>
#include <iostream>
#include <thread>

#include "agent/app/agent_arguments.h"
#include "agent/app/display_loss.h"
#include "agent/app/single_instance_guard.h"
#include "agent/editor/deck_editor_window_presenter.h"
#include "agent/language/language.h"
#include "agent/menu/agent_view_model.h"
#include "agent/menu/desktop_shell.h"
#include "agent/menu/menu_bar_model.h"
#include "agent/menu/menu_window.h"
#include "agent/menu/text_menu.h"
#include "agent/pairing/keychain_paired_device_store.h"
#include "platform/descriptor_limit.h"
#include "platform/display.h"
#include "platform/identity.h"
#include "platform/live.h"
#include "platform/log.h"
#include "platform/main_thread.h"
#include "platform/sound_settings.h"
#include "platform/spawn.h"
#include "platform/startup_pages.h"
#include "ui/design/deck_typography.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

// A newer instance kills this one 100 ms after it asked it to end.
constexpr auto stopDeadline = 70ms;

// The start is complete after this time.
constexpr auto startDuration = 2s;

constexpr int wrongUsage = 2;  // an exit code

// The system's tool for Shortcuts, or the one beside the agent where the system has none.
std::string shortcutsExecutable() {
  const std::string system = ShortcutsCatalog::defaultExecutable;
  const std::string own = QCoreApplication::applicationDirPath().toStdString() + "/shortcuts";
  return !isExecutableFile(system) && isExecutableFile(own) ? own : system;
}

AgentEnvironment environment(Executors& executors, LivePlatform& platform) {
  return {.executors = executors,
          .workspace = platform.workspaceClient(),
          .applicationIcons = platform.applicationIconClient(),
          .shortcutIcons = platform.shortcutIconClient(),
          .processRunner = platform.processRunner(),
          .audioOutput = platform.audioOutput(),
          .keychain = platform.keychain(),
          .bonjour = platform.bonjourAdvertiser(),
          .localizedName = [&platform] { return platform.localizedName(); },
          .nameChanges = platform.nameChanges(),
          .watchRunningApplications =
              [&platform](bool on, std::function<void()> scanned) {
                platform.watchRunningApplications(on, std::move(scanned));
              },
          .shortcutsExecutable = shortcutsExecutable()};
}

// A terminal stops a background job that reads from it or, if it is set so, writes to it, unless
// all its threads block these signals. Reading then fails.
void outliveTerminalStops() {
  sigset_t stops;
  ::sigemptyset(&stops);
  ::sigaddset(&stops, SIGTTIN);
  ::sigaddset(&stops, SIGTTOU);
  ::pthread_sigmask(SIG_BLOCK, &stops, nullptr);
}

// The application: everything that lives until the process ends. It ends without running any
// destructor, since a worker may hang in one of them.
class AgentApp {
 public:
  AgentApp(bool hasDisplay, bool background)
      : platform_(executors_, pairedDevicesMergeRule()),
        deckStore_(executors_.service(), executors_.workers()),
        deckDrafts_(executors_.service(), executors_.workers()),
        viewModel_(mainThread_.executor(), environment(executors_, platform_), deckStore_) {
    if (hasDisplay) {
      showOnDesktop();
      if (background) {
        desktop_->startInBackground();
      } else {
        menuWindow_->show();
      }
    } else {
      textMenu_ =
          std::make_unique<TextMenu>(viewModel_, STDIN_FILENO, STDOUT_FILENO, [this] { stop(); });
    }
    spawn(executors_.service(), obeySignals(this), "signals");
    spawn(executors_.service(), settle(executors_.workers()), "settling");
    platform_.sleepWatch().start([this] {
      spawn(executors_.service(), viewModel_.services().listenerService().checkAfterSleep(),
            "waking up");
    });
  }

  // Ends the process in order if that is quick, and before the deadline in any case. Any thread.
  void stop() {
    std::thread([] {
      std::this_thread::sleep_for(stopDeadline);
      std::_Exit(EXIT_SUCCESS);
    }).detach();
    // Runs while the connections close.
    spawn(executors_.service(), deckDrafts_.finish(), "finishing the drafts");
    spawn(executors_.service(), leave(this), "stopping");
  }

 private:
  void showOnDesktop() {
    editor_ = std::make_unique<DeckEditorWindowPresenter>(editorInputs());
    menu_ = std::make_unique<MenuBarModel>(
        viewModel_, MenuActions{[this] { editor_->show(); }, [this] { stop(); }});
    menuWindow_ = std::make_unique<MenuWindow>(*menu_);
    desktop_ = std::make_unique<DesktopShell>(viewModel_, *menuWindow_);
    QObject::connect(&viewModel_, &AgentViewModel::hasConnectedPhoneChanged, editor_.get(),
                     &DeckEditorWindowPresenter::refreshLive);
    const auto followAppearance = [this] {
      const DesktopAppearance wanted = desktop_->appearance();
      const Appearance appearance{wanted.dark, wanted.increasedContrast, wanted.reducedMotion,
                                  wanted.textScale};
      menuWindow_->setAppearance(appearance);
      editor_->setAppearance(appearance);
    };
    QObject::connect(desktop_.get(), &DesktopShell::appearanceChanged, followAppearance);
    followAppearance();
  }

  DeckEditorInputs editorInputs() {
    AgentServices& services = viewModel_.services();
    const AgentEnvironment& desktop = services.environment();
    return {
        .mainThread = mainThread_.executor(),
        .timers = executors_.service(),
        .workers = executors_.workers(),
        .deckStore = deckStore_,
        .deckDrafts = deckDrafts_,
        .workspace = desktop.workspace,
        .appsCatalog = InstalledAppsCatalog(executors_.workers(), platform_.applicationListClient(),
                                            desktop.applicationIcons),
        .shortcutsCatalog = ShortcutsCatalog(desktop.shortcutsExecutable, desktop.processRunner),
        .shortcutIconProvider = services.shortcutIconProvider(),
        .isPhoneConnected = [this] { return viewModel_.refreshConnectedPhone(); },
        .onSaved = [this] { return viewModel_.services().listenerService().pushDecksSnapshot(); },
        .tryKey = [this](DeckTile key) { return viewModel_.services().perform(std::move(key)); }};
  }

  static Awaitable<> settle(asio::any_io_executor workers) {
    co_await sleepFor(startDuration);
    DisplayLoss::startIsOver();
    asio::post(workers, releaseStartupPages);
  }

  static Awaitable<> obeySignals(AgentApp* app) {
    asio::signal_set signals(co_await asio::this_coro::executor, SIGTERM, SIGINT, SIGHUP);
    signals.add(SIGUSR1);
    for (;;) {
      const int signal = co_await signals.async_wait(asio::use_awaitable);
      log::info("signal ", signal, signal == SIGUSR1 ? ": the decks are sent" : ": the agent ends");
      if (signal == SIGUSR1) {
        spawn(app->executors_.service(),
              app->viewModel_.services().listenerService().pushDecksSnapshot(), "push");
      } else {
        app->stop();
      }
    }
  }

  static Awaitable<> leave(AgentApp* app) {
    co_await app->viewModel_.services().listenerService().shutDown();
    co_await app->deckStore_.finishChanges();
    co_await app->deckDrafts_.finish();
    std::_Exit(EXIT_SUCCESS);
  }

  MainThread mainThread_;
  Executors executors_;
  LivePlatform platform_;
  DeckStore deckStore_;
  DeckDrafts deckDrafts_;
  AgentViewModel viewModel_;
  // With a display.
  std::unique_ptr<MenuBarModel> menu_;
  std::unique_ptr<MenuWindow> menuWindow_;
  std::unique_ptr<DeckEditorWindowPresenter> editor_;
  std::unique_ptr<DesktopShell> desktop_;
  // Without one.
  std::unique_ptr<TextMenu> textMenu_;
};

// Qt's application object on the first window system that works. The arguments must outlive it.
class Application {
 public:
  Application(std::string program, const std::vector<std::string>& displays)
      : program_(std::move(program)), platforms_(listOf(displays)) {
    QCoreApplication::setApplicationName(QStringLiteral("glintboard-agent"));
    QGuiApplication::setDesktopFileName(QString::fromUtf8(agentIdentifier));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND")) {
      // A graphics driver needs twice the memory of the rest of the agent.
      QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
    }
    qt_.emplace(count_, arguments_.data());
    // The desktop starts the agent at login; a restored session must not open its menu as well.
    QObject::connect(
        &*qt_, &QGuiApplication::saveStateRequest, &*qt_,
        [](QSessionManager& session) { session.setRestartHint(QSessionManager::RestartNever); },
        Qt::DirectConnection);
    speakLanguageOfUser();
    holdFramePace();
  }

  static bool hasDisplay() { return QGuiApplication::platformName() != QLatin1String("offscreen"); }

 private:
  // On X11 only this variable limits the frame rate of the software renderer. Qt reads it at the
  // first update of a window. Launched programs must not inherit it.
  static void holdFramePace() {
    constexpr auto variable = "QT_QPA_UPDATE_IDLE_TIME";  // milliseconds
    if (QGuiApplication::platformName() == QLatin1String("xcb") &&
        !qEnvironmentVariableIsSet(variable)) {
      qputenv(variable, "14");
      QWindow window;
      window.create();
      window.requestUpdate();
      qunsetenv(variable);
    }
  }

  // Qt uses the first one that starts.
  static std::string listOf(const std::vector<std::string>& displays) {
    std::string list;
    for (const std::string& display : displays) {
      list += display + ";";
    }
    return list + "offscreen";
  }

  std::string program_;
  std::string option_ = "-platform";
  std::string platforms_;
  int count_ = 3;
  std::array<char*, 4> arguments_{program_.data(), option_.data(), platforms_.data(), nullptr};
  std::optional<QGuiApplication> qt_;
};

int serve(const std::string& program, const AgentArguments& arguments) {
  const auto displays = arguments.withoutDisplay ? std::vector<std::string>() : reachableDisplays();
  // A display may die while Qt connects to it.
  std::optional<DisplayLoss> displayLoss;
  if (!displays.empty()) {
    displayLoss.emplace(std::vector<std::string>{program, withoutDisplayOption});
  }
  const Application application(program, displays);
  const bool hasDisplay = Application::hasDisplay();
  log::info("Glintboard Agent " GLINTBOARD_VERSION " starts, ",
            hasDisplay ? "with the display of " + QGuiApplication::platformName().toStdString()
                       : std::string("without a display"));
  if (hasDisplay) {
    DeckTypography::registerFonts();
  } else {
    displayLoss.reset();
  }
  try {
    const auto instances = liveAgentInstances();
    if (!SingleInstanceGuard::enforce(*instances)) {
      log::info("a younger agent is running; this one ends");
      displayLoss.reset();
      return EXIT_SUCCESS;
    }
    // Never destroyed: see AgentApp.
    auto* const app = new AgentApp(hasDisplay, arguments.background);
    QGuiApplication::exec();
    // The session has ended, or a window received a quit request.
    app->stop();
    for (;;) {
      ::pause();
    }
  } catch (const std::exception& error) {
    log::error(error.what());
    displayLoss.reset();
    return EXIT_FAILURE;
  }
}

}  // namespace

int runAgent(int argc, char** argv) {
  ::signal(SIGPIPE, SIG_IGN);
  outliveTerminalStops();
  raiseDescriptorLimit();
  shareNoMemoryWithSoundServer();
  log::takeMessagesOfLibraries("glintboard-agent");
  const std::vector<std::string> words(argv, argv + argc);
  const std::string program = words.empty() ? "glintboard-agent" : words.front();
  try {
    const auto arguments =
        parseAgentArguments({words.begin() + (words.empty() ? 0 : 1), words.end()});
    if (arguments.help || arguments.version) {
      std::cout << (arguments.help ? agentHelpText() : agentVersionText());
      return EXIT_SUCCESS;
    }
    return serve(program, arguments);
  } catch (const std::invalid_argument& error) {
    std::cerr << error.what() << '\n';
    return wrongUsage;
  }
}

}  // namespace glintboard

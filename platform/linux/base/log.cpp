// SPDX-License-Identifier: MIT
#include "platform/log.h"

#include <glib.h>
#include <unistd.h>

#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <string>

namespace glintboard::log {
namespace {

constexpr const char* levelVariable = "GLINTBOARD_LOG";
constexpr std::size_t maxText = 2000;  // bytes; messages may quote a phone

struct LevelWords {
  std::string_view name;
  GLogLevelFlags flag;   // GLib ends a program that logs what it calls an error.
  const char* priority;  // the journal's
};
constexpr std::array<LevelWords, 4> words = {{{"error", G_LOG_LEVEL_CRITICAL, "3"},
                                              {"warning", G_LOG_LEVEL_WARNING, "4"},
                                              {"info", G_LOG_LEVEL_INFO, "6"},
                                              {"debug", G_LOG_LEVEL_DEBUG, "7"}}};

std::string_view wantedLevel() {
  const char* value = std::getenv(levelVariable);
  return value == nullptr ? std::string_view() : value;
}

Level levelFromEnvironment() {
  const auto found = std::ranges::find(words, wantedLevel(), &LevelWords::name);
  return found == words.end() ? Level::info : static_cast<Level>(found - words.begin());
}

Level levelOf(GLogLevelFlags flags) {
  if ((flags & (G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL)) != 0) {
    return Level::error;
  }
  if ((flags & G_LOG_LEVEL_WARNING) != 0) {
    return Level::warning;
  }
  return (flags & G_LOG_LEVEL_DEBUG) != 0 ? Level::debug : Level::info;
}

Level levelOf(QtMsgType type) {
  switch (type) {
    case QtDebugMsg:
      return Level::debug;
    case QtInfoMsg:
      return Level::info;
    case QtWarningMsg:
      return Level::warning;
    case QtCriticalMsg:
    case QtFatalMsg:
      break;
  }
  return Level::error;
}

GLogWriterOutput put(GLogLevelFlags flags, const GLogField* fields, gsize count, void* nothing) {
  static const bool isJournal = g_log_writer_is_journald(STDERR_FILENO) != 0;
  if (isJournal && g_log_writer_journald(flags, fields, count, nothing) == G_LOG_WRITER_HANDLED) {
    return G_LOG_WRITER_HANDLED;
  }
  const std::unique_ptr<char, decltype(&g_free)> text(
      g_log_writer_format_fields(flags, fields, count, FALSE), &g_free);
  // GLib starts urgent messages with an empty line.
  std::string line = text.get();
  line.erase(0, line.find_first_not_of('\n'));
  line += '\n';
  // There is nowhere else to report a failure.
  [[maybe_unused]] const auto written = ::write(STDERR_FILENO, line.data(), line.size());
  return G_LOG_WRITER_HANDLED;
}

GLogWriterOutput putOfGLib(GLogLevelFlags flags, const GLogField* fields, gsize count,
                           void* nothing) {
  return levelOf(flags) <= threshold ? put(flags, fields, count, nothing) : G_LOG_WRITER_HANDLED;
}

void putOf(const char* origin, Level level, std::string_view text) {
  const std::string whole(text.substr(0, maxText));
  const std::unique_ptr<char, decltype(&g_free)> valid(
      g_utf8_make_valid(whole.data(), static_cast<gssize>(whole.size())), &g_free);
  std::string line = valid.get();
  // Text from the network must not forge another line.
  std::ranges::replace_if(line, [](unsigned char byte) { return byte < ' ' || byte == 0x7f; }, ' ');
  const LevelWords& word = words.at(static_cast<std::size_t>(level));
  const std::array<GLogField, 4> fields = {{{"MESSAGE", line.c_str(), -1},
                                            {"PRIORITY", word.priority, -1},
                                            {"GLIB_DOMAIN", origin, -1},
                                            {"SYSLOG_IDENTIFIER", g_get_prgname(), -1}}};
  // Without a program name, the last field is left out.
  put(word.flag, fields.data(), g_get_prgname() == nullptr ? 3 : 4, nullptr);
}

void putOfQt(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (levelOf(type) <= threshold) {
    putOf("Qt", levelOf(type), text.toStdString());
  }
}

}  // namespace

const Level threshold = levelFromEnvironment();

void write(Level level, std::string_view text) {
  putOf("Glintboard", level, text);
}

void takeMessagesOfLibraries(const char* program) {
  g_set_prgname(program);
  g_log_set_writer_func(putOfGLib, nullptr, nullptr);
  qInstallMessageHandler(putOfQt);
  const std::string_view wanted = wantedLevel();
  if (!wanted.empty() && std::ranges::find(words, wanted, &LevelWords::name) == words.end()) {
    warning(levelVariable, "=", wanted, ": expected error, warning, info or debug");
  }
}

}  // namespace glintboard::log

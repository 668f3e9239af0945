// SPDX-License-Identifier: MIT
#include <io.h>
#include <windows.h>

#include <QDir>
#include <cerrno>
#include <cstdlib>

#include "platform/program_start.h"

namespace tolvex {

namespace {

UINT consoleCodePage = 0;  ///< as it was found, for the programs that use the console next

}  // namespace

/// Qt takes the system's texts as UTF-16; only what is written to a console must be said to be
/// UTF-8.
void ChooseUtf8Locale() {
    consoleCodePage = ::GetConsoleOutputCP();
    if (consoleCodePage != 0 && ::SetConsoleOutputCP(CP_UTF8) != FALSE) {
        std::atexit([] { ::SetConsoleOutputCP(consoleCodePage); });
    }
}

/// The progress line consists of escape sequences, which older consoles take only when asked.
void OpenStandardStreams() {
    const HANDLE errors = ::GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    if (::GetConsoleMode(errors, &mode) != FALSE) {
        ::SetConsoleMode(errors, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    }
}

int TerminalColumns() {
    CONSOLE_SCREEN_BUFFER_INFO console{};
    return ::GetConsoleScreenBufferInfo(::GetStdHandle(STD_ERROR_HANDLE), &console) != FALSE
               ? console.srWindow.Right - console.srWindow.Left + 1
               : 0;
}

// Qt's folder for settings is the one that stays on this machine; this one goes along with the
// user.
std::optional<QByteArray> ReadStandardInput(qsizetype most) {
    QFile file;
    const bool opened = file.open(0, QIODevice::ReadOnly);
    return opened ? std::optional(file.read(most)) : std::nullopt;
}

bool OpenStream(QFile& file) {
    return file.open(QIODevice::WriteOnly);
}

bool SyncToDisk(const QFileDevice& file) {
    return ::_commit(file.handle()) == 0 || errno == EBADF;
}

QString UserConfigFolder() {
    return QDir::fromNativeSeparators(qEnvironmentVariable("APPDATA"));
}

QString UserMark() {
    return qEnvironmentVariable("USERNAME");
}

}  // namespace tolvex

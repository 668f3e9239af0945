// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <langinfo.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QStandardPaths>
#include <clocale>
#include <csignal>

#include "platform/program_start.h"

namespace tolvex {

void ChooseUtf8Locale() {
    std::setlocale(LC_ALL, "");
    if (qstrcmp(::nl_langinfo(CODESET), "UTF-8") != 0) {
        qputenv("LC_ALL", "C.UTF-8");
    }
}

void OpenStandardStreams() {
    std::signal(SIGPIPE, SIG_IGN);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) == -1) {
            ::open("/dev/null", O_RDONLY);  // not for writing, so that what is lost shows
        }
    }
}

int TerminalColumns() {
    constexpr int kUsual = 80;
    if (::isatty(STDERR_FILENO) == 0) {
        return 0;
    }
    winsize size{};
    return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : kUsual;
}

QString UserConfigFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

QString UserMark() {
    return QString::number(::getuid());
}

}  // namespace tolvex

// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <langinfo.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QStandardPaths>
#include <cerrno>
#include <clocale>
#include <csignal>

#include "base/stop_signals.h"
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

std::optional<QByteArray> ReadStandardInput(qsizetype most) {
    CatchStopSignals(kSignalThatEnds);
    QByteArray text;
    QByteArray part(1 << 16, '\0');
    pollfd waiting[] = {{STDIN_FILENO, POLLIN, 0}, {StopDescriptor(), POLLIN, 0}};
    while (text.size() < most) {
        ::poll(waiting, std::size(waiting), -1);
        if (StopSignal() != 0) {
            return std::nullopt;
        }
        const ssize_t count =
            ::read(STDIN_FILENO, part.data(), static_cast<std::size_t>(part.size()));
        if (count == 0) {
            break;
        }
        if (count < 0 && errno != EINTR) {
            return std::nullopt;
        }
        text += QByteArrayView(part).first(std::max<ssize_t>(count, 0));
    }
    return text;
}

bool OpenStream(QFile& file) {
    constexpr int kPollMs = 50;
    const QByteArray name = QFile::encodeName(file.fileName());
    for (;;) {
        const int stream = ::open(name.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        if (stream != -1) {
            ::fcntl(stream, F_SETFL, O_WRONLY);
            return file.open(stream, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle);
        }
        if (errno != ENXIO || StopSignal() != 0) {
            return false;
        }
        pollfd stop{StopDescriptor(), POLLIN, 0};
        ::poll(&stop, 1, kPollMs);
    }
}

bool SyncToDisk(const QFileDevice& file) {
    return ::fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOSYS;
}

QString UserConfigFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

QString UserMark() {
    return QString::number(::getuid());
}

}  // namespace tolvex

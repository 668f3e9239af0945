// SPDX-License-Identifier: MIT
#include "benchmark/wire_steps.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <array>
#include <thread>

namespace tolvex::bench {

using namespace std::chrono_literals;

namespace {

constexpr int kReplyTimeOut = 10'000;  // ms

bool Await(int terminal, qsizetype count) {
    std::array<char, 256> buffer{};
    while (count > 0) {
        pollfd ready{terminal, POLLIN, 0};
        if (::poll(&ready, 1, kReplyTimeOut) != 1) {
            return false;
        }
        const ssize_t got = ::read(terminal, buffer.data(), buffer.size());
        if (got <= 0) {
            return false;
        }
        count -= got;
    }
    return true;
}

}  // namespace

QList<WireStep> StepsOfTrace(const QString& path) {
    QList<WireStep> steps;
    std::chrono::microseconds before{0};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    while (!file.atEnd()) {
        const QList<QByteArray> words = file.readLine().simplified().split(' ');
        const QByteArray event = words.value(1);
        const std::chrono::microseconds at(words[0].toLongLong());
        const QByteArray bytes = QByteArray::fromHex(words.mid(2).join());
        if (event == ">" || event == "close") {  // nothing is sent, but the pause before it counts
            const auto gap = steps.isEmpty() ? 0us : at - before;
            const auto pause = std::chrono::round<std::chrono::duration<int, std::deci>>(gap);
            steps.append({gap < 90ms ? 0us : pause, bytes, 0});
        } else if (event == "<" && !steps.isEmpty()) {
            steps.last().reply += bytes.size();
        } else {
            continue;
        }
        before = at;
    }
    return steps;
}

FloorRun RunFloor(const QString& path, const QList<WireStep>& steps) {
    const int terminal = ::open(QFile::encodeName(path).constData(), O_RDWR | O_NOCTTY);
    termios mode{};
    if (terminal < 0 || ::tcgetattr(terminal, &mode) != 0) {
        return {};
    }
    ::cfmakeraw(&mode);
    ::tcsetattr(terminal, TCSANOW, &mode);
    ::tcflush(terminal, TCIFLUSH);
    QElapsedTimer timer;
    timer.start();
    FloorRun run;
    run.complete = !steps.isEmpty();
    for (const WireStep& step : steps) {
        std::this_thread::sleep_for(step.pause);
        run.complete = run.complete &&
                       ::write(terminal, step.bytes.constData(),
                               static_cast<std::size_t>(step.bytes.size())) == step.bytes.size() &&
                       Await(terminal, step.reply);
        if (!run.complete) {
            break;
        }
    }
    run.seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    ::close(terminal);
    return run;
}

}  // namespace tolvex::bench

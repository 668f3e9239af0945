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

constexpr int kPatience = 10'000;  // ms

bool Await(int terminal, qsizetype count) {
    std::array<char, 256> buffer{};
    while (count > 0) {
        pollfd ready{terminal, POLLIN, 0};
        if (::poll(&ready, 1, kPatience) != 1) {
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

void StepCollector::Sent(std::chrono::microseconds at, const QByteArray& bytes) {
    const auto gap = steps.isEmpty() ? 0us : at - last_;
    const auto pause =
        gap < 90ms ? 0us : std::chrono::round<std::chrono::duration<int, std::deci>>(gap);
    steps.append({std::chrono::duration_cast<std::chrono::microseconds>(pause), bytes, 0});
    last_ = at;
}

void StepCollector::Received(std::chrono::microseconds at, qsizetype count) {
    if (!steps.isEmpty()) {
        steps.last().reply += count;
    }
    last_ = at;
}

QList<WireStep> StepsOfTrace(const QString& path) {
    StepCollector collector;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    while (!file.atEnd()) {
        const QList<QByteArray> words = file.readLine().simplified().split(' ');
        const std::chrono::microseconds at(words[0].toLongLong());
        const QByteArray bytes = QByteArray::fromHex(words.mid(2).join());
        if (words.value(1) == ">") {
            collector.Sent(at, bytes);
        } else if (words.value(1) == "<") {
            collector.Received(at, bytes.size());
        } else if (words.value(1) == "close") {
            collector.Sent(at, {});  // nothing, but the pause before it counts
        }
    }
    return collector.steps;
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

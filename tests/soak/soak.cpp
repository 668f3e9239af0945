// SPDX-License-Identifier: MIT
// tolvex_soak [CYCLES]: program, verify, read and erase over and over in one process on a real
// pseudo-terminal whose far end goes away now and then. Memory, descriptors and files must not
// grow.
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <cstdio>

#include "platform/event_loop_clock.h"
#include "port/qt_serial_port.h"
#include "tests/support/test_bench.h"

namespace tolvex::testing {
namespace {

/// Real time, eight times as fast: pauses and time-outs are not what is soaked here.
class HastyClock : public EventClock {
  public:
    Instant Now() const override { return clock_.Now() * kHaste; }
    void Yield(Instant deadline) override { clock_.Yield(deadline / kHaste); }
    bool Ended() const override { return clock_.Ended(); }
    void End() override { clock_.End(); }

  private:
    static constexpr int kHaste = 8;
    EventLoopClock clock_;
};

struct Holding {
    double megabytes = 0;
    long long descriptors = 0, files = 0;
};

Holding Now(const QString& folder) {
    QFile memory(u"/proc/self/statm"_s);
    const bool open = memory.open(QIODevice::ReadOnly);
    const double pages = open ? memory.readAll().split(' ').value(1).toDouble() : 0;
    return {pages * 4096 / 1e6,
            QDir(u"/proc/self/fd"_s).entryList(QDir::Files | QDir::System).size(),
            QDir(folder).entryList(QDir::Files).size()};
}

int Soak(int cycles) {
    HastyClock clock;
    const QTemporaryDir place;
    const ComPorts ports(place.path());
    QtSerialPort port(ports);
    TestBench t(0, &port, &clock);
    QDir(place.path()).mkdir(u"ports"_s);
    QStringList options = {u"--link"_s, place.filePath(u"ports/com1"_s), u"--baud"_s, u"0"_s};
    int hangUps = 0;
    for (int command = 7000; command < 2000 * cycles; command += 101'111) {
        options << u"--fault"_s << u"%1:hang-up"_s.arg(command);
        ++hangUps;
    }
    QProcess writer;
    writer.start(QStringLiteral(TOLVEX_BIN_DIR "/tolvex-writer"), options);
    writer.waitForReadyRead();
    int failed = 0;
    Holding early;
    for (int cycle = 1; cycle <= cycles; ++cycle) {
        // Anew, because a read that broke off leaves part of itself.
        t.bench.state.images = {};
        t.bench.state.images.flash[1] = t.bench.state.images.eeprom[1] = 0x55;
        for (const QString& button : {u"Program"_s, u"Verify"_s, u"Read"_s, u"Erase"_s}) {
            QElapsedTimer timer;
            timer.start();
            const bool done = t.Press(button);
            failed += done ? 0 : 1;
            t.Forget();
            if (!done && timer.elapsed() > 5000) {
                std::printf("a lost line held the program up for %lld ms\n", timer.elapsed());
                return 1;
            }
        }
        if (cycle == (cycles + 9) / 10) {
            early = Now(t.folder.path());
        }
    }
    const Holding late = Now(t.folder.path());
    writer.terminate();
    writer.waitForFinished();
    std::printf("%d cycles, %d failed operations at %d hang-ups\n", cycles, failed, hangUps);
    for (const Holding& now : {early, late}) {
        std::printf("%.1f MB, %lld descriptors, %lld files\n", now.megabytes, now.descriptors,
                    now.files);
    }
    const bool grown = late.megabytes > early.megabytes + 1 ||
                       late.descriptors > early.descriptors || late.files > early.files;
    return grown || failed > 2 * hangUps ? 1 : 0;
}

}  // namespace
}  // namespace tolvex::testing

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    return tolvex::testing::Soak(argc > 1 ? QByteArray(argv[1]).toInt() : 1000);
}

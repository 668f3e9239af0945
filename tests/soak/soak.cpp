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
#include "platform/qt_serial_port.h"
#include "tests/support/test_bench.h"

using namespace Qt::StringLiterals;

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
    qsizetype descriptors = 0, files = 0;
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
    TestBench t(0);
    const QString link = t.folder.filePath(u"ports/com1"_s);
    QDir(t.folder.path()).mkdir(u"ports"_s);
    QStringList options = {u"--link"_s, link, u"--baud"_s, u"0"_s};
    for (int command = 7000; command < 2000 * cycles; command += 101'111) {
        options << u"--fault"_s << u"%1:hang-up"_s.arg(command);
    }
    QProcess writer;
    writer.start(QStringLiteral(TOLVEX_BIN_DIR "/tolvex-writer"), options);
    writer.waitForReadyRead();
    const ComPorts ports(t.folder.path());
    QtSerialPort port(ports);
    HastyClock clock;
    Workbench bench({.port = port,
                     .clock = clock,
                     .settings = t.settings,
                     .folders = t.folders,
                     .person = t.person.AsPerson(),
                     .mainCaption = {},
                     .showPortDialog = {}});
    bench.selection.FillDeviceLists();
    bench.state.images.flash[1] = bench.state.images.eeprom[1] = 0x55;
    int failed = 0;
    Holding early;
    for (int cycle = 1; cycle <= cycles; ++cycle) {
        for (const char16_t* key : {u"Program", u"Verify", u"Read", u"Erase"}) {
            QElapsedTimer timer;
            timer.start();
            const ChainResult result = bench.toolbar.Click(QStringView(key));
            const bool done = result.program  ? result.program->Verified()
                              : result.verify ? result.verify->Matches()
                              : result.read   ? result.read->Complete()
                                              : result.erase && result.erase->erased;
            failed += done ? 0 : 1;
            t.person.calls.clear();
            t.person.progress.clear();
            if (!done && timer.elapsed() > 5000) {
                std::printf("a lost line held the program up for %lld ms\n", timer.elapsed());
                return 1;
            }
        }
        // What a read that broke off has left of the images.
        bench.state.images = {};
        bench.state.images.flash[1] = bench.state.images.eeprom[1] = 0x55;
        if (cycle == (cycles + 9) / 10) {
            early = Now(t.folder.path());
        }
    }
    const Holding late = Now(t.folder.path());
    writer.terminate();
    writer.waitForFinished();
    const auto hangUps = (options.size() - 4) / 2;
    std::printf(
        "%d cycles, %d failed operations at %d hang-ups; %.1f -> %.1f MB, %d -> %d descriptors, "
        "%d -> %d files\n",
        cycles, failed, static_cast<int>(hangUps), early.megabytes, late.megabytes,
        static_cast<int>(early.descriptors), static_cast<int>(late.descriptors),
        static_cast<int>(early.files), static_cast<int>(late.files));
    const bool grown = late.megabytes > early.megabytes + 1 ||
                       late.descriptors > early.descriptors || late.files > early.files;
    return grown || failed > 2 * hangUps ? 1 : 0;
}

}  // namespace
}  // namespace tolvex::testing

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const int cycles = QCoreApplication::arguments().value(1, u"1000"_s).toInt();
    return tolvex::testing::Soak(cycles);
}

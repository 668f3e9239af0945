// SPDX-License-Identifier: MIT
// tolvex_bench [--quick] [--json FILE]: how fast Tolvex is, against the fastest that the line and
// the toolkit allow, each pair measured in turn. `./bench` builds and starts it.
#include <sys/resource.h>
#include <sys/utsname.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <algorithm>
#include <cstdio>
#include <random>

#include "benchmark/wire_steps.h"
#include "image/hex_writer.h"
#include "platform/settings_file.h"

namespace tolvex::bench {
namespace {

using namespace Qt::StringLiterals;

struct Device {
    const char* name;
    int index;
    int words;
    int bytes;
};

/// A simulated writer of its own process, at COM1 of the settings that everything here uses.
class Board {
  public:
    Board(const QString& folder, const Device& device, const QStringList& options = {}) {
        path_ = folder + u"/Tolvex/ports/com1"_s;
        QDir().mkpath(folder + u"/Tolvex/ports"_s);
        process_.start(
            QCoreApplication::applicationDirPath() + u"/tolvex-writer"_s,
            QStringList{u"--link"_s, path_, u"--device"_s, QString::fromLatin1(device.name)} +
                options);
        process_.waitForReadyRead();
        SettingsFile settings(SettingsPath());
        settings.SaveSetting(u"ComNox"_s, u"1"_s);
        settings.SaveSetting(u"Index_Com_Flag"_s, u"1"_s);
        settings.SaveSetting(u"Index_First_Flag"_s, u"1"_s);
        settings.SaveSetting(u"device"_s, QString::number(device.index));
    }
    ~Board() {
        process_.terminate();
        process_.waitForFinished();
    }
    QString Path() const { return path_; }

  private:
    QProcess process_;
    QString path_;
};

struct Run {
    double seconds = 0;
    double firstWord = 0;  ///< seconds until it said something
    double lastWord = 0;
    double share = 0;  ///< of a core
    bool succeeded = false;
    QJsonObject report;
};

/// Elapsed time and share are those that the program reports of itself, if it does.
Run Measure(const QString& program, const QStringList& arguments) {
    const auto processor = [] {
        rusage used{};
        ::getrusage(RUSAGE_CHILDREN, &used);
        return static_cast<double>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) +
               static_cast<double>(used.ru_utime.tv_usec + used.ru_stime.tv_usec) / 1e6;
    };
    QProcess process;
    QElapsedTimer timer;
    const double before = processor();
    timer.start();
    const auto elapsed = [&timer] { return static_cast<double>(timer.nsecsElapsed()) / 1e9; };
    process.start(QCoreApplication::applicationDirPath() + u'/' + program, arguments);
    Run run;
    while (process.waitForReadyRead(-1)) {
        run.lastWord = elapsed();
        run.firstWord = run.firstWord > 0 ? run.firstWord : run.lastWord;
    }
    process.waitForFinished(-1);
    const double seconds = elapsed(), share = (processor() - before) / seconds;
    run.succeeded = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    run.report =
        QJsonDocument::fromJson(process.readAllStandardOutput().trimmed().split('\n').last())
            .object();
    run.seconds = run.report[u"seconds"_s].toDouble(seconds);
    run.share = run.report[u"share"_s].toDouble(share);
    return run;
}

/// A display that nobody sees, for a window comes up otherwise than a picture in memory; which it
/// is where there is no Xvfb.
class Display {
  public:
    Display() {
        server_.start(u"Xvfb"_s,
                      {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1280x1024x24"_s});
        if (server_.waitForReadyRead()) {
            qputenv("DISPLAY", ':' + server_.readAllStandardOutput().trimmed());
            qputenv("QT_QPA_PLATFORM", "xcb");
        }
    }
    ~Display() {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        server_.terminate();
        server_.waitForFinished();
    }
    QString Name() const { return qEnvironmentVariable("QT_QPA_PLATFORM"); }

  private:
    QProcess server_;
};

double Median(QList<double> values) {
    std::ranges::sort(values);
    return values.isEmpty() ? 0 : values[values.size() / 2];
}

class Bench {
  public:
    Bench(const QString& folder, bool quick) : folder_(folder), quick_(quick) {}

    QJsonObject MeasureAll() {
        for (const Device& device :
             {Device{"AT90S1200", 0, 512, 64}, Device{"AT90S2313", 2, 1024, 128},
              Device{"AT90S8515", 8, 4096, 512}}) {
            if (!quick_ || device.words == 512) {
                MeasureOperations(device);
            }
        }
        MeasureLatency();
        MeasureStart();
        MeasureFiles();
        MeasureIdle();
        return {{u"machine"_s, Machine()}, {u"rows"_s, rows_}};
    }

    /// No row missed its goal and nothing that was measured failed.
    bool AllWell() const { return allWell_; }

  private:
    Run RunProgram(const QString& program, const QStringList& arguments) {
        const Run run = Measure(program, arguments);
        allWell_ = allWell_ && run.succeeded;
        return run;
    }

    static QString Machine() {
        utsname system{};
        ::uname(&system);
        QFile processor(u"/proc/cpuinfo"_s);
        QString model;
        if (processor.open(QIODevice::ReadOnly)) {
            const QByteArray text = processor.readAll();
            model = QString::fromLatin1(text.mid(text.indexOf("model name")).split('\n')[0])
                        .section(u": "_s, 1);
        }
        return u"%1 x %2, Linux %3"_s.arg(QString::number(QThread::idealThreadCount()), model,
                                          QString::fromLatin1(system.release));
    }

    /// `goal` is the most that is wanted; 0 = none.
    void Row(const QString& what, double value, const QString& unit, double goal = 0,
             const QString& against = {}) {
        allWell_ = allWell_ && (goal == 0 || value <= goal);
        const QString mark = goal == 0 ? QString() : value <= goal ? u"ok"_s : u"over"_s;
        const QString line = u"%1 %2 %3 %4 %5 %6"_s.arg(what, -44)
                                 .arg(value, 10, 'f', 3)
                                 .arg(unit, -6)
                                 .arg(goal == 0 ? QString() : u"<= %1"_s.arg(goal), -8)
                                 .arg(mark, -5)
                                 .arg(against);
        std::puts(qUtf8Printable(line));
        std::fflush(stdout);
        rows_ << QJsonObject{{u"what"_s, what},
                             {u"value"_s, value},
                             {u"unit"_s, unit},
                             {u"goal"_s, goal},
                             {u"against"_s, against}};
    }

    QString RandomFiles(const Device& device) const {
        MemoryImages images;
        std::mt19937 random(1);
        std::generate_n(images.flash.begin(), 2 * device.words,
                        [&random] { return static_cast<std::uint8_t>(random()); });
        std::generate_n(images.eeprom.begin(), device.bytes,
                        [&random] { return static_cast<std::uint8_t>(random()); });
        const QString stem = folder_ + u"/random"_s;
        WriteCodeHex(stem + u".hex"_s, images.flash, device.words);
        WriteDataHex(stem + u".eep"_s, images.eeprom, device.bytes);
        return stem;
    }

    /// Program, verify and read on the terminal and in the window, and the same steps by the floor
    /// client, in turn on one board.
    void MeasureOperations(const Device& device) {
        const Board board(folder_, device);
        const QString stem = RandomFiles(device);
        const struct {
            const char* command;
            const char* button;
            QString code;
        } operations[] = {{"program", "Program", stem + u".hex"_s},
                          {"verify", "Verify", stem + u".hex"_s},
                          {"read", "Read", folder_ + u"/read.hex"_s}};
        for (const auto& operation : operations) {
            const QString name = QString::fromLatin1(operation.command);
            const QString title = u"%1 %2 words, "_s.arg(name).arg(device.words);
            QStringList call = {name, operation.code, u"--quiet"_s};
            if (name == u"read"_s) {
                call << u"--overwrite"_s;
            }
            MeasureAgainstFloor(title + u"terminal"_s, {1.03, 4}, board, u"tolvex-cli"_s, call,
                                {u"--trace"_s, Trace()});
            MeasureAgainstFloor(title + u"window"_s, {1.06, 6}, board, u"tolvex_measured_window"_s,
                                {QString::fromLatin1(operation.button), operation.code}, {Trace()});
        }
    }

    QString Trace() const { return folder_ + u"/trace"_s; }

    struct Goals {
        double ratio;
        double percentOfCore;
    };

    /// `record` is what makes a call note down its steps for the floor client. Whatever else the
    /// machine does only adds to a run, so the middle of three turns is taken.
    void MeasureAgainstFloor(const QString& title, Goals goals, const Board& board,
                             const QString& program, const QStringList& call,
                             const QStringList& record) {
        QFile::remove(Trace());
        bool succeeded = RunProgram(program, call + record).succeeded;
        const QList<WireStep> steps = StepsOfTrace(Trace());
        QList<double> floors, times, ratios, shares;
        for (int turn = 0; turn < (quick_ ? 1 : 3); ++turn) {
            const FloorRun floor = RunFloor(board.Path(), steps);
            const Run ours = RunProgram(program, call);
            succeeded = succeeded && floor.complete && ours.succeeded;
            floors << floor.seconds;
            times << ours.seconds;
            ratios << ours.seconds / floor.seconds;
            shares << 100 * ours.share;
        }
        allWell_ = allWell_ && succeeded;  // the floor client as well
        Row(title + u" / floor"_s, Median(ratios), {}, goals.ratio,
            u"%1 s, floor %2 s%3"_s.arg(QString::number(Median(times), 'f', 3),
                                        QString::number(Median(floors), 'f', 3),
                                        succeeded ? QString() : u" FAILED"_s));
        Row(title + u", share of a core"_s, Median(shares), u"%"_s, goals.percentOfCore);
    }

    /// The simulated adapter can't be told to hurry, as a real one can; so this is the price of the
    /// mode that Tolvex takes away.
    void MeasureLatency() {
        const Device device{"AT90S1200", 0, 512, 64};
        const QString code = RandomFiles(device) + u".hex"_s;
        for (const char* latency : {"0", "16"}) {
            const Board board(folder_, device, {u"--latency"_s, QString::fromLatin1(latency)});
            RunProgram(u"tolvex-cli"_s, {u"program"_s, code, u"--quiet"_s});
            const Run run = RunProgram(u"tolvex-cli"_s, {u"verify"_s, code, u"--quiet"_s});
            Row(u"verify 512 words, adapter with a %1 ms timer"_s.arg(QLatin1StringView(latency)),
                run.seconds, u"s"_s);
        }
    }

    void MeasureStart() {
        const Display display;
        QList<double> ours, whole, empty;
        double megabytes = 0;
        for (int turn = 0; turn < (quick_ ? 11 : 51); ++turn) {
            const Run bare = RunProgram(u"tolvex_measured_window"_s, {u"empty"_s});
            const Run full = RunProgram(u"tolvex_measured_window"_s, {u"start"_s});
            ours << full.firstWord;
            whole << full.lastWord;
            empty << bare.firstWord;
            megabytes =
                full.report[u"megabytes"_s].toDouble() - bare.report[u"megabytes"_s].toDouble();
        }
        Row(u"start to the first painted window / empty"_s, Median(ours) / Median(empty), {}, 1.3,
            u"%1 s, empty %2 s, %3"_s.arg(QString::number(Median(ours), 'f', 3),
                                          QString::number(Median(empty), 'f', 3), display.Name()));
        Row(u"start until all windows are painted"_s, 1000 * Median(whole), u"ms"_s);
        Row(u"memory above an empty window"_s, megabytes, u"MB"_s, 20);
    }

    void MeasureFiles() {
        const Device device{"AT90S8515", 8, 4096, 512};
        const QString code = RandomFiles(device) + u".hex"_s;
        const Run small = RunProgram(u"tolvex_measured_window"_s, {u"open"_s, code});
        Row(u"open 8 KB until both listings are painted"_s, 1000 * small.seconds, u"ms"_s);
        for (const int megabytes : {10, 100}) {
            const QString path = folder_ + u"/large.hex"_s;
            QFile file(path);
            if ((quick_ && megabytes > 10) || !file.open(QIODevice::WriteOnly)) {
                continue;
            }
            const QByteArray record = ":10000000000102030405060708090A0B0C0D0E0F78\r\n";
            for (qsizetype size = 0; size < megabytes * 1'000'000LL; size += record.size()) {
                file.write(record);
            }
            file.close();
            const Run large = RunProgram(u"tolvex_measured_window"_s, {u"open"_s, path});
            Row(u"open %1 MB"_s.arg(megabytes), large.seconds, u"s"_s);
            Row(u"open %1 MB, longest without a repaint"_s.arg(megabytes),
                large.report[u"stillness"_s].toDouble(), u"s"_s);
        }
    }

    void MeasureIdle() {
        const Run idle =
            RunProgram(u"tolvex_measured_window"_s, {u"idle"_s, quick_ ? u"5"_s : u"30"_s});
        Row(u"at rest, share of a core"_s, 100 * idle.share, u"%"_s, 0.1);
    }

    QString folder_;
    bool quick_;
    QJsonArray rows_;
    bool allWell_ = true;
};

}  // namespace
}  // namespace tolvex::bench

int main(int argc, char** argv) {
    using namespace Qt::StringLiterals;
    const QTemporaryDir folder;
    // Nothing of the user's own is touched, and no screen is needed.
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"}) {
        qputenv(variable, folder.path().toLocal8Bit());
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QCoreApplication application(argc, argv);
    QCommandLineParser line;
    line.setApplicationDescription(u"Measures how fast Tolvex is and prints a table."_s);
    const QCommandLineOption quick(u"quick"_s, u"Two minutes instead of some twenty."_s);
    const QCommandLineOption json(u"json"_s, u"Write the figures to FILE as well."_s, u"FILE"_s);
    line.addOptions({quick, json});
    line.addHelpOption();
    line.process(application);
    tolvex::bench::Bench bench(folder.path(), line.isSet(quick));
    const QJsonObject result = bench.MeasureAll();
    QFile file(line.value(json));
    const bool written = !line.isSet(json) || (file.open(QIODevice::WriteOnly) &&
                                               file.write(QJsonDocument(result).toJson()) > 0);
    return written && bench.AllWell() ? 0 : 1;
}

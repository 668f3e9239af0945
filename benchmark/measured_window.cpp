// SPDX-License-Identifier: MIT
// The window program as it is measured: tolvex_measured_window TASK [ARGUMENT [RECORD]]. It prints
// one JSON object and ends.
#include <sys/resource.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMainWindow>
#include <QMdiArea>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>

#include "app/desktop.h"
#include "app/japanese_texts.h"
#include "cli/traced_port.h"
#include "widgets/fitted_label.h"
#include "widgets/fonts.h"

namespace tolvex::bench {
namespace {

using namespace Qt::StringLiterals;

double ProcessorSeconds() {
    rusage used{};
    ::getrusage(RUSAGE_SELF, &used);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(used.ru_utime) + seconds(used.ru_stime);
}

double ResidentMegabytes() {
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const QByteArray text = status.readAll();
    return text.mid(text.indexOf("VmRSS:") + 6).simplified().split(' ')[0].toDouble() / 1024;
}

/// The longest time between two passes of the event loop, which is how long a window stands still.
class Stillness {
  public:
    Stillness() {
        QObject::connect(&timer_, &QTimer::timeout, [this] { Look(); });
        timer_.start(5);
        passed_.start();
    }
    double Longest() {
        Look();
        return static_cast<double>(longest_) / 1e9;
    }

  private:
    void Look() {
        longest_ = std::max(longest_, passed_.nsecsElapsed());
        passed_.start();
    }
    QTimer timer_;
    QElapsedTimer passed_;
    qint64 longest_ = 0;
};

void Print(const QJsonObject& result) {
    std::puts(QJsonDocument(result).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}

/// Prints an empty object as soon as a window was painted, so that the reader knows how long it
/// took to come this far.
class WatchedApplication : public QApplication {
  public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        painting_ = painting_ || event->type() == QEvent::Paint;
        const bool done = QApplication::notify(receiver, event);
        if (!painted_ && painting_ && receiver->isWindowType()) {
            painted_ = true;  // and the picture handed over
            Print({});
        }
        return done;
    }
    /// On a real display it comes when the display says so.
    void WaitUntilPainted() {
        while (!painted_) {
            processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

  private:
    bool painting_ = false;
    bool painted_ = false;
};

void SettleWindows() {
    for (int pass = 0; pass < 3; ++pass) {
        QApplication::processEvents();
    }
}

void SettleFirstWindow() {
    static_cast<WatchedApplication*>(qApp)->WaitUntilPainted();
    SettleWindows();
}

/// Runs `work` to its end and to the last repaint.
template <typename Work>
QJsonObject Measured(Work work) {
    Stillness stillness;
    QElapsedTimer timer;
    const double before = ProcessorSeconds();
    timer.start();
    work();
    SettleWindows();
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    return {{u"seconds"_s, seconds},
            {u"share"_s, (ProcessorSeconds() - before) / seconds},
            {u"stillness"_s, stillness.Longest()},
            {u"megabytes"_s, ResidentMegabytes()}};
}

void EmptyWindow() {
    QMainWindow window;
    window.setCentralWidget(new QMdiArea);
    window.resize(753, 527);
    window.show();
    SettleFirstWindow();
    Print({{u"megabytes"_s, ResidentMegabytes()}});
}

void Rest(std::chrono::seconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

/// The flag alone does not tell: a difference that a verify finds is no failed command.
bool AllWell(WindowProgram& program) {
    const auto* message = program.Window().findChild<FittedLabel*>(u"txtMsg"_s);
    return !program.Bench().state.errorFlag.Failed() &&
           (!message->isVisible() ||
            message->WholeText() == u"ベリファイ　FLASH : OK / EEPROM : OK"_s);
}

/// The program in front of the port that the stored settings name, without any first-start dialog.
/// The result is the status to exit with.
int Tolvex(const QString& task, const QString& argument, const QString& record) {
    QTemporaryDir folder;
    const AppDir folders{folder.path() + u'/', {folder.path() + u'/'}};
    Desktop desktop;
    TracedPort port(desktop.port, desktop.clock);
    if (!record.isEmpty() && !port.TraceTo(record)) {
        qFatal("can't write %s", qPrintable(record));
    }
    WindowProgram program(desktop.Parts(port, folders));
    program.Start();
    SettleFirstWindow();
    QJsonObject result{{u"megabytes"_s, ResidentMegabytes()}};
    if (task == u"idle"_s) {
        const double before = ProcessorSeconds();
        Rest(std::chrono::seconds(argument.toInt()));
        result[u"share"_s] = (ProcessorSeconds() - before) / argument.toInt();
    } else if (task == u"open"_s) {
        result = Measured([&] { Q_EMIT program.Window().FilesDropped({argument}); });
    } else if (task != u"start"_s) {
        if (!argument.isEmpty()) {
            Q_EMIT program.Window().FilesDropped({argument});
            SettleWindows();
        }
        auto* button = program.Window().findChild<QAbstractButton*>(task);
        result = Measured([&program, button] {
            button->click();  // which only asks for the run
            do {
                QApplication::processEvents(QEventLoop::WaitForMoreEvents);
            } while (!program.Window().Tools().isEnabled());
        });
    }
    Print(result);
    const bool well = AllWell(program);
    program.ShutDown();
    return well ? 0 : 1;
}

}  // namespace
}  // namespace tolvex::bench

int main(int argc, char** argv) {
    tolvex::bench::WatchedApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tolvex"));
    QApplication::setFont(tolvex::WindowFont());
    const QString task = QApplication::arguments().value(1);
    if (task == QStringLiteral("empty")) {
        tolvex::bench::EmptyWindow();
    } else {
        const tolvex::JapaneseTexts japanese;
        const QStringList arguments = QApplication::arguments();
        return tolvex::bench::Tolvex(task, arguments.value(2), arguments.value(3));
    }
    return 0;
}

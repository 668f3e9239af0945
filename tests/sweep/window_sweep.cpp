// SPDX-License-Identifier: MIT
// At every yield of every operation one of the things that a person can do, against the window
// program in virtual time: tolvex_window_sweep [--full].
#include <QTest>
#include <QTimer>
#include <cstdio>

#include "tests/app/window_bench.h"

namespace tolvex::testing {
namespace {

const QString kSample = QStringLiteral(TOLVEX_SOURCE_DIR "/samples/blink.hex");

struct Deed {
    QString name;
    std::function<void()> doIt;
};

/// Everything within reach now, apart from ending the program.
QList<Deed> Deeds(WindowBench& b) {
    QList<Deed> deeds;
    for (QAction* action : b.window.findChildren<QAction*>()) {
        if (action->objectName() != u"mnuFileExit"_s && !action->isSeparator()) {
            deeds << Deed{action->text() + u" of the menu"_s, [action] { action->trigger(); }};
        }
    }
    for (QWidget* widget : QApplication::allWidgets()) {
        if (!widget->isVisible() || widget->objectName().isEmpty()) {
            continue;
        }
        const QString name = widget->objectName();
        deeds << Deed{u"press "_s + name, [widget] { QTest::mouseClick(widget, Qt::LeftButton); }};
        for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Down}) {
            deeds << Deed{QKeySequence(key).toString() + u" in "_s + name,
                          [widget, key] { QTest::keyClick(widget, key); }};
        }
        deeds << Deed{u"Ctrl+S in "_s + name,
                      [widget] { QTest::keyClick(widget, Qt::Key_S, Qt::ControlModifier); }};
    }
    for (QMdiSubWindow* child : b.window.Area().subWindowList()) {
        deeds << Deed{u"close "_s + child->windowTitle(), [child] { child->close(); }}
              << Deed{u"maximise "_s + child->windowTitle(), [child] { child->showMaximized(); }};
    }
    // As an assistive tool may that goes past what is disabled.
    auto* setting = b.Find<frmSetting>("frmSetting");
    return deeds << Deed{u"drop"_s, [&b] { Q_EMIT b.window.FilesDropped({kSample}); }}
                 << Deed{u"panel"_s, [&b] { Q_EMIT b.window.Panels().PanelClicked(5); }}
                 << Deed{u"tool"_s, [&b] { Q_EMIT b.window.Tools().ButtonClicked(u"Clear"_s); }}
                 << Deed{u"device"_s, [setting] { Q_EMIT setting->DeviceChosen(5); }}
                 << Deed{u"READ"_s, [setting] { Q_EMIT setting->FuseReadClicked(); }}
                 << Deed{u"WRITE"_s, [setting] { Q_EMIT setting->FuseWriteClicked(); }}
                 << Deed{u"address"_s, [&b] { b.Type("txtAddress", u"G"_s); }};
}

/// Does it, and puts away whatever it has opened.
void Do(const Deed& deed) {
    const auto putAway = [] {
        for (QWidget* open :
             {QApplication::activePopupWidget(), QApplication::activeModalWidget()}) {
            if (open != nullptr) {
                open->close();
            }
        }
    };
    QTimer::singleShot(0, putAway);
    deed.doIt();
    putAway();
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

struct Operation {
    const char* button;
    int device;
    int fault;  ///< the board is silent at this command; 0 = never
};

/// One run. `atYield` hears their number, counted from 1. Gives what is left behind.
QString Run(const Operation& operation, const std::function<void(WindowBench&, int)>& atYield) {
    WindowBench b(operation.device, 19200);
    b.Start();
    MemoryImages& images = b.program.Bench().state.images;
    images.flash[1] = 0x12;
    images.eeprom[3] = 0x34;
    if (operation.fault != 0) {
        b.board.SetFault(operation.fault, FaultKind::Silent);
    }
    auto& flag = b.program.Bench().state.errorFlag.value;
    bool touched = false;  // the flag, or the dialog of what runs
    const auto dialogShown = [&b] {
        const auto* dialog = b.Find<QDialog>("frmMsg");
        return dialog != nullptr && dialog->isVisible();
    };
    int yields = 0;
    b.clock.OnYield([&] {
        if (!b.clock.Ended()) {
            const auto before = std::exchange(flag, 2);  // kept by who leaves it alone
            const bool shown = dialogShown();
            atYield(b, ++yields);
            touched = touched || std::exchange(flag, before) != 2 || shown != dialogShown();
        }
    });
    b.Click(operation.button);
    b.clock.OnYield({});
    if (b.clock.Ended()) {
        const QString open = b.port.IsOpen() ? u"the port, "_s : QString();
        return open + (b.window.isVisible() ? u"the window, "_s : QString()) + b.Message() +
               b.ListingFiles().join(u' ');
    }
    const QByteArray bytes(reinterpret_cast<const char*>(&images), sizeof images);
    QString left = b.port.Wire().join(u' ') + b.Message() + b.settings.values[u"device"_s];
    for (const int panel : {1, 2, 3, 5}) {
        left += u'|' + b.Panel(panel);
    }
    left += u" %1 %2 %3 "_s.arg(b.port.IsOpen()).arg(b.window.isVisible()).arg(touched);
    return left + QString::number(qHash(bytes) ^ qHash(b.chip->Contents().flash));
}

/// All deeds at all yields. Gives how many of the runs left something else than the calm one.
int Sweep(const Operation& operation, bool full) {
    int yields = 0, failures = 0;
    qsizetype deeds = 0;
    const QString calm = Run(operation, [&](WindowBench& b, int) {
        ++yields;
        deeds = std::max(deeds, Deeds(b).size());
    });
    const auto tell = [&](int yield, const QString& deed, const QString& left) {
        std::printf("%s, yield %d, %s: left\n  %s\ninstead of\n  %s\n", operation.button, yield,
                    qPrintable(deed), qPrintable(left.right(400)), qPrintable(calm.right(400)));
    };
    // One deed after another, one at each yield; or at `only` one yield.
    const auto differs = [&](qsizetype first, int only) {
        QString name;
        const QString left = Run(operation, [&](WindowBench& b, int yield) {
            if (only == 0 || yield == only) {
                const QList<Deed> now = Deeds(b);
                const Deed& deed = now[(first + yield) % now.size()];
                name = deed.name;
                Do(deed);
            }
        });
        if (left != calm && only != 0) {
            tell(only, name, left);
        }
        return left != calm;
    };
    for (qsizetype first = 0; first < deeds; first += full ? 1 : 1 + deeds / 12) {
        if (differs(first, 0)) {
            ++failures;
            for (int yield = 1; yield <= yields && !differs(first, yield); ++yield) {
            }
        }
    }
    for (int end = 1; end <= yields; end += full ? 1 : 1 + yields / 12) {
        const QString left = Run(operation, [end](WindowBench& b, int yield) {
            if (yield == end) {
                b.window.close();
            }
        });
        if (!left.isEmpty()) {
            ++failures;
            tell(end, u"closed"_s, left);
        }
    }
    std::printf("%s: %d yields, %lld deeds\n", operation.button, yields,
                static_cast<long long>(deeds));
    return failures;
}

}  // namespace
}  // namespace tolvex::testing

int main(int argc, char** argv) {
    using namespace tolvex::testing;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const bool full = QApplication::arguments().contains(u"--full"_s);
    QList<Operation> operations = {{"Program", 0, 0},      {"Program", 0, 9},
                                   {"Erase", 0, 6},        {"cmdFuseRead", 4, 0},
                                   {"cmdFuseWrite", 4, 0}, {"cmdFuseWrite", 4, 9}};
    if (full) {
        operations << Operation{"Verify", 0, 0};
    }
    int failures = 0;
    for (const Operation& operation : operations) {
        failures += Sweep(operation, full);
    }
    return failures == 0 ? 0 : 1;
}

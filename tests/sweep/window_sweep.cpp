// SPDX-License-Identifier: MIT
// At every yield of every operation one of the things that a person can do, against the window
// program in virtual time: tolvex_window_sweep [--full].
#include <QApplication>
#include <QDropEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>
#include <QTimer>
#include <cstdio>

#include "tests/app/window_bench.h"

using namespace Qt::StringLiterals;

namespace tolvex::testing {
namespace {

struct Deed {
    QString name;
    std::function<void()> doIt;
};

void Press(QWidget* widget) {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, widget->rect().center(),
                          widget->mapToGlobal(widget->rect().center()), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }
}

void Type(QWidget* widget, int key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, QString(QChar(key & 0xFF)));
    QApplication::sendEvent(widget, &press);
}

void Drop(WindowBench& b) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QStringLiteral(TOLVEX_SOURCE_DIR "/samples/blink.hex"))});
    QDropEvent drop(QPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&b.program.Window(), &drop);
}

/// Everything within reach now, apart from ending the program.
QList<Deed> Deeds(WindowBench& b) {
    QList<Deed> deeds = {{u"drop"_s, [&b] { Drop(b); }}};
    for (QAction* action : b.program.Window().findChildren<QAction*>()) {
        if (action->objectName() != u"mnuFileExit"_s && !action->isSeparator()) {
            deeds << Deed{action->text() + u" of the menu"_s, [action] { action->trigger(); }};
        }
    }
    for (QWidget* widget : QApplication::allWidgets()) {
        if (!widget->isVisible() || widget->objectName().isEmpty()) {
            continue;
        }
        const QString name = widget->objectName();
        deeds << Deed{u"press "_s + name, [widget] { Press(widget); }};
        for (const int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Down}) {
            deeds << Deed{QKeySequence(key).toString() + u" in "_s + name,
                          [widget, key] { Type(widget, key, Qt::NoModifier); }};
        }
        deeds << Deed{u"Ctrl+S in "_s + name,
                      [widget] { Type(widget, Qt::Key_S, Qt::ControlModifier); }};
    }
    for (QMdiSubWindow* child : b.program.Window().Area().subWindowList()) {
        deeds << Deed{u"close "_s + child->windowTitle(), [child] { child->close(); }}
              << Deed{u"maximise "_s + child->windowTitle(), [child] { child->showMaximized(); }};
    }
    for (const int panel : {1, 5}) {
        deeds << Deed{u"panel"_s,
                      [&b, panel] { Q_EMIT b.program.Window().Panels().PanelClicked(panel); }};
    }
    return deeds;
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
    b.program.Bench().state.images.flash[1] = 0x12;
    b.program.Bench().state.images.eeprom[3] = 0x34;
    if (operation.fault != 0) {
        b.board.SetFault(operation.fault, FaultKind::Silent);
    }
    int yields = 0;
    b.clock.OnYield([&] {
        if (!b.clock.Ended()) {
            atYield(b, ++yields);
        }
    });
    b.Click(operation.button);
    b.clock.OnYield({});
    const MemoryImages& images = b.program.Bench().state.images;
    const QByteArray bytes(reinterpret_cast<const char*>(&images), sizeof images);
    auto* message = b.Find<FittedLabel>("txtMsg");
    QString left = b.clock.Ended() ? u"ended, "_s : b.port.Wire().join(u' ');
    left += message == nullptr ? u"no message"_s : message->WholeText();
    for (const int panel : {1, 2, 3, 5}) {
        left += u'|' + (b.clock.Ended() ? QString() : b.Panel(panel));
    }
    left += u" %1 %2 %3 %4"_s.arg(b.port.IsOpen()).arg(b.program.Window().isVisible());
    left = left.arg(b.clock.Ended() ? b.ListingFiles().size() : 0);
    return left.arg(qHash(bytes) ^ (b.clock.Ended() ? 0 : qHash(b.chip.Contents().flash)));
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
    int failures = 0;
    QList<Operation> operations = {{"Program", 0, 0},      {"Program", 0, 9},
                                   {"Erase", 0, 6},        {"cmdFuseRead", 4, 0},
                                   {"cmdFuseWrite", 4, 0}, {"cmdFuseWrite", 4, 9}};
    if (full) {
        operations << Operation{"Verify", 0, 0};
    }
    for (const Operation& operation : operations) {
        int yields = 0;
        qsizetype deeds = 0;
        const QString calm = Run(operation, [&](WindowBench& b, int) {
            ++yields;
            deeds = std::max(deeds, Deeds(b).size());
        });
        const auto differs = [&](qsizetype first, int only) {
            QString name;
            const QString left = Run(operation, [&](WindowBench& b, int yield) {
                const QList<Deed> now = Deeds(b);
                if (only == 0 || yield == only) {
                    name = now[(first + yield) % now.size()].name;
                    Do(now[(first + yield) % now.size()]);
                }
            });
            if (left != calm && only != 0) {
                std::printf("%s, yield %d, %s: left\n  %s\ninstead of\n  %s\n", operation.button,
                            only, qPrintable(name), qPrintable(left.right(400)),
                            qPrintable(calm.right(400)));
            }
            return left != calm;
        };
        for (qsizetype first = 0; first < deeds; first += full ? 1 : 1 + deeds / 12) {
            if (!differs(first, 0)) {
                continue;
            }
            ++failures;
            for (int yield = 1; yield <= yields && !differs(first, yield); ++yield) {
            }
        }
        for (int end = 1; end <= yields; end += full ? 1 : 1 + yields / 12) {
            const QString left = Run(operation, [end](WindowBench& b, int yield) {
                if (yield == end) {
                    b.program.Window().close();
                }
            });
            if (left.section(u' ', 0, -2) != u"ended, no message|||| 0 0 0"_s) {
                ++failures;
                std::printf("%s, closed at yield %d: left\n  %s\n", operation.button, end,
                            qPrintable(left));
            }
        }
        std::printf("%s: %d yields, %lld deeds\n", operation.button, yields,
                    static_cast<long long>(deeds));
    }
    return failures == 0 ? 0 : 1;
}

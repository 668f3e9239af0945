// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QTranslator>
#include <cstdio>

#include "app/window_program.h"
#include "base/utf8_locale.h"
#include "platform/com_ports.h"
#include "platform/event_loop_clock.h"
#include "platform/help_window.h"
#include "platform/program_folder.h"
#include "platform/qt_serial_port.h"
#include "platform/settings_file.h"
#include "platform/single_instance.h"
#include "platform/window_dialogs.h"
#include "widgets/fonts.h"

int main(int argc, char** argv) {
    using namespace tolvex;
    ChooseUtf8Locale();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tolvex"));
    QApplication::setFont(WindowFont());
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/tolvex.svg")));
    // The texts that Qt brings along (file dialog, context menus); without the file they are
    // English.
    QTranslator japanese;
    if (japanese.load(QStringLiteral("qtbase_ja"),
                      QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(&japanese);
    }

    const SingleInstance instance(InstanceLockPath());
    if (!instance.IsFirst()) {
        return 0;
    }
    if (!JapaneseFontFound()) {
        std::fputs("tolvex: no Japanese font found; install fonts-ipafont-gothic\n", stderr);
    }
    const AppDir folders = EnterProgramFolder();
    SettingsFile settings(SettingsPath());
    const ComPorts comPorts(ConfigFolder());
    QtSerialPort port(comPorts);
    EventLoopClock clock;
    WindowDialogs dialogs([] { return QApplication::activeWindow(); });
    WindowHelp help;

    WindowProgram program({.port = port,
                           .clock = clock,
                           .settings = settings,
                           .folders = folders,
                           .comPorts = comPorts,
                           .dialogs = dialogs,
                           .help = help});
    if (!program.Start()) {
        return 0;
    }
    // How the desktop entry hands over the file that was double-clicked: arguments are ignored.
    if (const QString file = qEnvironmentVariable("TOLVEX_FILE"); !file.isEmpty()) {
        program.Bench().files.OpenDropped({file});
    }
    return QApplication::exec();
}

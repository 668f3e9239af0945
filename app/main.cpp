// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QMessageBox>
#include <QSocketNotifier>
#include <optional>

#include "app/desktop.h"
#include "app/japanese_texts.h"
#include "base/language.h"
#include "base/stop_signals.h"
#include "platform/program_start.h"
#include "widgets/fonts.h"

namespace {

/// In English, for Japanese would not show.
void TellHowToGetAFont() {
    QMessageBox::warning(
        nullptr, QStringLiteral("Tolvex"),
        QStringLiteral("No Japanese font was found, so the texts of Tolvex can't be shown.\n\n"
                       "Please install one and start Tolvex again. On Debian and Ubuntu:\n\n"
                       "    sudo apt install fonts-ipafont-gothic"));
}

/// When the system asks the program to end, it does so in order, from the event loop. Who asks
/// twice in the same way ends it at once.
void ShutDownWhenAsked(tolvex::WindowProgram& program) {
    tolvex::CatchStopSignals(2);
    if (const int descriptor = tolvex::StopDescriptor(); descriptor != -1) {
        auto* asked = new QSocketNotifier(descriptor, QSocketNotifier::Read, &program);
        QObject::connect(asked, &QSocketNotifier::activated, &program, [&program, asked] {
            asked->setEnabled(false);  // the descriptor stays readable
            program.ShutDown();
        });
    }
}

}  // namespace

int main(int, char** argv) {
    using namespace tolvex;
    ChooseUtf8Locale();
    // Arguments are ignored, those that Qt would understand as well.
    char fallback[] = "tolvex";
    char* name[] = {argv[0] != nullptr ? argv[0] : fallback, nullptr};
    int count = 1;
    QApplication application(count, name);
    QApplication::setApplicationName(QStringLiteral("Tolvex"));
    QApplication::setFont(WindowFont());
    const Language language = WindowLanguage(SettingsFile(SettingsPath()));
    const auto texts = InstallTexts(language);
    std::optional<JapaneseTexts> qtTexts;
    if (language == Language::Japanese) {
        qtTexts.emplace();
    }

    // How the desktop entry hands over the file that was double-clicked: arguments are ignored.
    const QString file = qEnvironmentVariable("TOLVEX_FILE");
    SingleInstance instance(InstanceLockPath());
    if (!instance.IsFirst()) {
        return file.isEmpty() || instance.HandOver(file) ? 0 : 1;
    }
    if (language == Language::Japanese && !JapaneseFontFound()) {
        TellHowToGetAFont();
    }
    const AppDir folders = EnterProgramFolder();
    Desktop desktop;
    WindowProgram program(desktop.Parts(desktop.port, folders));
    desktop.blocked = &program.Window();
    ShutDownWhenAsked(program);
    // A logout may yet be called off, so the program goes on; it is told to quit when it is not.
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &program,
                     &WindowProgram::StoreLayout, Qt::DirectConnection);
    if (!program.Start()) {
        return 0;
    }
    instance.TakeFiles([&program](const QString& handed) { program.OpenHandedOver(handed); });
    if (!file.isEmpty()) {
        Q_EMIT program.Window().FilesDropped({file});
    }
    return QApplication::exec();
}

// SPDX-License-Identifier: MIT
#include "tests/app/window_bench.h"

#include <QTimer>

namespace tolvex::testing {

WindowBench::WindowBench(int deviceIndex, int baud, const QMap<QString, QString>& stored)
    : Surroundings(deviceIndex, baud, stored),
      comPorts(folder.path()),
      program({port, clock, settings, folders, comPorts, user,
               [this](const QString& file) { helpShown = file; }}) {
    settings.values[u"Index_First_Flag"_s] = settings.values[u"Index_Com_Flag"_s] = u"1"_s;
}

void WindowBench::Start() {
    program.Start();
    QApplication::processEvents();
}

void WindowBench::Click(const char* name) {
    ASSERT_TRUE(Item(name) != nullptr || Find<QAbstractButton>(name) != nullptr) << name;
    Item(name) != nullptr ? Item(name)->trigger() : Find<QAbstractButton>(name)->click();
    QApplication::processEvents();
}

QMdiSubWindow* WindowBench::Child(const char* name) {
    for (QMdiSubWindow* child : window.Area().subWindowList()) {
        if (child->widget()->objectName() == QString::fromLatin1(name)) {
            return child;
        }
    }
    return nullptr;
}

QString WindowBench::Focus() {
    const QWidget* focus = window.focusWidget();
    return focus == nullptr ? QString() : focus->objectName();
}

QString WindowBench::Message() {
    const auto* text = Find<FittedLabel>("txtMsg");
    return text == nullptr || !text->isVisible() ? QString() : text->WholeText();
}

void WindowBench::AnswerDialogs(const QStringList& buttons) {
    if (buttons.isEmpty()) {
        return;
    }
    QTimer::singleShot(0, &program, [this, buttons] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr) {
            AnswerDialogs(buttons);
            return;
        }
        dialogsSeen << dialog->windowTitle();
        if (const auto look = std::exchange(look_, nullptr)) {
            look(*dialog);
        }
        dialog->findChild<QPushButton*>(buttons.first())->click();
        QApplication::sendPostedEvents();  // what the button does is queued
        AnswerDialogs(buttons.mid(1));
    });
}

}  // namespace tolvex::testing
